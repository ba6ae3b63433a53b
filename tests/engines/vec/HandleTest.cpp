// Handles that are no living port, and ports of an engine that is stopped.

#include "tests/engines/vec/EveryProcedure.h"

#include <memory>

namespace tn::test {
namespace {

using Handles = Drawing;

const std::vector<std::string> kNone;

// Expects every procedure to have been called and none to have found anything.
void ExpectNobody(VecPort handle) {
    Answers answers = EveryProcedure(handle).Call();
    EXPECT_EQ(answers.calls, static_cast<int>(abi::kPortProcedures.size()));
    std::erase_if(answers.notNull, [](const std::string& method) { // nobody's are empty
        return method == "IsPathEmpty" || method == "IsClipEmpty";
    });
    EXPECT_EQ(answers.notNull, kNone);
    EXPECT_EQ(answers.written, kNone);
}

template <class Pointer> VecPort AsPort(Pointer pointer) { return reinterpret_cast<VecPort>(pointer); }

void SetMatrixOf(VecPort gstate) {
    Procedure<VecGStatePortSetMatrixType>(abi::kGStatePortInterface, abi::kGStatePortProcedures,
                                          abi::GStatePort::kSetMatrix)(gstate, 2, 0, 0, 2, 5, 5);
}

TEST_F(Handles, OfALivingPortAreAnswered) {
    Canvas canvas(8, 8);
    const Answers answers = EveryProcedure(canvas.Port()).Call();
    EXPECT_EQ(answers.calls, static_cast<int>(abi::kPortProcedures.size()));
    EXPECT_NE(answers.notNull, kNone);
    Do(canvas, abi::Port::kInitClip);
    canvas.NewPath();
    canvas.White();
    canvas.Rect(0, 0, 8, 8);
    EXPECT_EQ(canvas.Fill(), nullptr) << "as many references are left as before";
    EXPECT_EQ(canvas.Get(2, 2), 255U);
}

TEST_F(Handles, ThatAreNullAreNobody) {
    ExpectNobody(nullptr);
    SetMatrixOf(nullptr);
}

TEST_F(Handles, ThatAreGarbageAreNobody) {
    std::array<std::uint8_t, 64> bytes{};
    bytes.fill(0xFF);
    for (const VecPort handle : {AsPort(std::uintptr_t{1}), AsPort(std::uintptr_t{16}), AsPort(~std::uintptr_t{0}),
                                 AsPort(bytes.data()), AsPort(bytes.data() + 1)}) {
        ExpectNobody(handle);
        SetMatrixOf(handle);
    }
}

TEST_F(Handles, NearThoseOfALivingPortAreNobody) {
    Canvas canvas(8, 8);
    const auto handle = reinterpret_cast<std::uintptr_t>(canvas.Port());
    ExpectNobody(AsPort(handle + 1));
    ExpectNobody(AsPort(handle - 1));
    ExpectNobody(AsPort(handle ^ 1024));
    EXPECT_TRUE(IsBlank(canvas));
    EXPECT_EQ(CurrentPoint(canvas), std::nullopt);
    EXPECT_EQ(canvas.Error(), nullptr);
}

TEST_F(Handles, OfOtherObjectsAreNobody) {
    const float gray = 0.5F;
    const HuexColor color = NewColor(kHuexGray, &gray, 1);
    ExpectNobody(AsPort(color));
    SetMatrixOf(AsPort(color));
    std::array<float, 4> components{};
    EXPECT_EQ(Procedure<HuexColorGetComponentsType>(abi::kColorInterface, abi::kColorProcedures,
                                                    abi::Color::kGetComponents)(color, components.data()),
              1);
    EXPECT_EQ(components[0], 0.5F);
    Release(color);
    const ErrorProcedures errors;
    const KelError error = errors.make("an error", "Test", 7);
    ExpectNobody(AsPort(error));
    SetMatrixOf(AsPort(error));
    ExpectError(error, "an error", "Test", 7);
    errors.release(error);
}

TEST_F(Handles, OfReleasedPortsAreNobody) {
    Canvas canvas(8, 8);
    const VecPort dead = canvas.Port();
    const VecPort gstate = canvas.Call<VecPortGetGStatePortType>(abi::Port::kGetGStatePort);
    canvas.ReleasePort();
    ExpectNobody(dead);
    SetMatrixOf(dead);
    SetMatrixOf(gstate);
    EXPECT_TRUE(IsBlank(canvas));
}

TEST_F(Handles, OfReleasedPortsAreNobodyAmongOthers) {
    constexpr std::size_t kPorts = 20;
    std::vector<std::unique_ptr<Canvas>> canvases;
    for (std::size_t i = 0; i < kPorts; ++i) {
        canvases.push_back(std::make_unique<Canvas>(8, 8));
    }
    for (std::size_t i = 0; i < kPorts; i += 3) {
        const VecPort dead = canvases[i]->Port();
        canvases[i]->ReleasePort();
        ExpectNobody(dead);
    }
    for (std::size_t i = 0; i < kPorts; ++i) {
        if (canvases[i]->Port() != nullptr) {
            canvases[i]->Rect(0, 0, 8, 8);
            EXPECT_EQ(canvases[i]->Fill(), nullptr);
        }
        EXPECT_EQ(IsBlank(*canvases[i]), i % 3 == 0);
    }
}

// Null where a procedure wants to read or to write.
TEST_F(Handles, OfLivingPortsComeWithNullArguments) {
    using enum abi::Port;
    Canvas canvas(8, 8);
    canvas.MoveTo(1, 2);
    for (const abi::Port place : {kAddRect, kAddEllipse}) {
        canvas.Call<VecPortRectPathType>(place, static_cast<const VecRect*>(nullptr));
    }
    for (const abi::Port place : {kFillRect, kStrokeRect, kClipRect}) {
        canvas.Call<VecPortRectPaintType>(place, static_cast<const VecRect*>(nullptr));
    }
    for (const abi::Port place : {kGetBounds, kGetPathBounds, kGetClipBounds}) {
        canvas.Call<VecPortGetRectType>(place, static_cast<VecRect*>(nullptr));
    }
    for (const abi::Port place :
         {kGetCurrentPoint, kTransformPoint, kInverseTransformPoint, kTransformDistance, kInverseTransformDistance}) {
        canvas.Call<VecPortGetPointType>(place, static_cast<VecPoint*>(nullptr));
    }
    canvas.Call<VecPortConcatMatrixType>(kConcatMatrix, static_cast<const VecMatrix*>(nullptr));
    canvas.Call<VecPortGetMatrixType>(kGetMatrix, static_cast<VecMatrix*>(nullptr));
    EXPECT_EQ(MatrixOf(canvas), (Numbers6{1, 0, 0, 1, 0, 0}));
    EXPECT_EQ(CurrentPoint(canvas), (Numbers2{1, 2}));
    EXPECT_TRUE(IsBlank(canvas));
    EXPECT_EQ(ClipBounds(canvas), (Numbers4{0, 0, 8, 8}));
}

TEST_F(Handles, OfNoColorChangeNothing) {
    Canvas canvas(8, 8);
    canvas.Call<VecPortSetColorServerV4Type>(abi::Port::kSetColorServer, HuexColor{}, std::int32_t{0}, std::int32_t{0});
    canvas.Rect(0, 0, 4, 4);
    EXPECT_EQ(canvas.Fill(), nullptr);
    EXPECT_EQ(canvas.Get(0, 0), 255U);
}

class StoppedVec : public testing::Test {
protected:
    // Draws with everything that a port has before the engine is stopped.
    StoppedVec() {
        canvas_.GSave();
        canvas_.Rect(1, 1, 7, 7);
        EXPECT_EQ(canvas_.Clip(), nullptr);
    }

    StartedEngines engines_;
    Canvas canvas_{8, 8};
};

TEST_F(StoppedVec, PaintsNothingAndReportsAnError) {
    VecShutdown();
    using enum abi::Port;
    for (const abi::Port paint : {kFill, kEOFill, kStroke, kClip, kEOClip}) {
        canvas_.Rect(2, 2, 6, 6);
        ExpectOwnError(canvas_.Paint(paint));
    }
    for (const abi::Port paint : {kFillRect, kStrokeRect}) {
        ExpectOwnError(canvas_.PaintRect(paint, {2, 2, 6, 6}));
    }
    EXPECT_TRUE(IsBlank(canvas_));
}

TEST_F(StoppedVec, LeavesEveryProcedureSafe) {
    VecShutdown();
    EveryProcedure(canvas_.Port()).Call();
    EXPECT_TRUE(IsBlank(canvas_));
}

TEST_F(StoppedVec, LeavesReleaseSafeAndComplete) {
    const std::int64_t before = LiveAllocations();
    const VecBitmap bitmap = canvas_.Bitmap();
    const VecPort port = NewPort(&bitmap);
    CallOn<VecPortCommandType>(port, abi::Port::kGSave);
    CallOn<VecPortPointType>(port, abi::Port::kMoveTo, 1.0F, 1.0F);
    VecShutdown();
    CallOn<VecPortCommandType>(port, abi::Port::kRelease);
    CallOn<VecPortCommandType>(port, abi::Port::kRelease);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST_F(StoppedVec, MakesNoPort) {
    VecShutdown();
    const VecBitmap bitmap = canvas_.Bitmap();
    EXPECT_EQ(NewPort(&bitmap), nullptr);
}

TEST_F(StoppedVec, StartsAgain) {
    VecShutdown();
    canvas_.Fill();
    VecStartup(KelStartup(0), 0x41A11, 0, 0);
    Canvas canvas(4, 4);
    canvas.Rect(1, 1, 3, 3);
    EXPECT_EQ(canvas.Fill(), nullptr);
    EXPECT_EQ(Picture(canvas), (Rows{"....", ".##.", ".##.", "...."}));
    EXPECT_EQ(canvas.Error(), nullptr);
}

} // namespace
} // namespace tn::test
