// The library upon engines that do what they say, linked in or imported.
#include "tests/runtime/FreshLibrary.h"

#include "TnGraphics/draw/CKelError.h"
#include "TnGraphics/draw/ClientObjects.h"
#include "TnGraphics/draw/EngineErrors.h"
#include "TnGraphics/runtime/EngineVersions.h"
#include "TnGraphics/runtime/TnGraphicsMem.h"

#include "TnEngines/abi/huex_procedures.h"

#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

namespace tn::test {
namespace {

constexpr std::uint64_t kBudget = std::uint64_t{1} << 26;

class RealEngines : public ::testing::Test {
    FreshLibrary fresh_;

protected:
    TnGraphicsMem graphics = TnGraphicsMem(kBudget, BasekitFromAscii("en_US"));
};

using ColorTable = ProcedureTable<abi::Color, abi::kColorProcedures.size()>;

template <class Procedure> Procedure Core(abi::Core which) { return TheBinding().CoreProcedure<Procedure>(which); }

TEST_F(RealEngines, AllStart) {
    EXPECT_TRUE(graphics.IsVecStarted());
    EXPECT_TRUE(graphics.IsHuexStarted());
    EXPECT_TRUE(TheBinding().IsLive());
    EXPECT_NE(TnGraphicsMem::GetKelGetAddressProc(), nullptr);
}

TEST_F(RealEngines, ServeASecondStartAsWell) {
    const KelGetAddressProc first = TnGraphicsMem::GetKelGetAddressProc();
    {
        const TnGraphicsMem second(kBudget, BasekitFromAscii("ja_JP"));
        EXPECT_TRUE(second.IsVecStarted());
        EXPECT_EQ(TnGraphicsMem::GetKelGetAddressProc(), first);
    }
    EXPECT_FALSE(TheBinding().IsStarted());
}

TEST_F(RealEngines, TellTheirVersions) {
    EXPECT_EQ(VecVersionString(), "4.26.17");
    EXPECT_EQ(GlyphonVersionString(), "1.0.0");
}

TEST_F(RealEngines, AreNotMultiThreaded) { EXPECT_EQ(Core<KelIsMultiThreadedType>(abi::Core::kIsMultiThreaded)(), 0); }

TEST_F(RealEngines, MakeColorsThroughATable) {
    ColorTable colors(abi::kColorInterface, abi::kColorProcedures);
    const float gray = 0.5F;
    const HuexColor color = TheBinding().Valid(colors).At<HuexNewColorType>(abi::Color::kNewColor)(kHuexGray, &gray, 1);
    ASSERT_NE(color, nullptr);
    std::uint8_t bytes[4] = {};
    colors.At<HuexColorGetAlphaRgbBytesType>(abi::Color::kGetAlphaRgbBytes)(color, bytes);
    EXPECT_EQ(bytes[0], 255);
    EXPECT_EQ(bytes[1], 128);
    colors.At<HuexColorReleaseType>(abi::Color::kRelease)(color);
}

TEST_F(RealEngines, AreLookedUpAgainAfterAnyInterfaceIsUnregistered) {
    ColorTable colors(abi::kColorInterface, abi::kColorProcedures);
    TheBinding().Valid(colors);
    const std::uint32_t before = colors.Cache().unregisterCount;
    Core<KelUnregisterInterfaceType>(abi::Core::kUnregisterInterface)("SomebodyElsesInterface");
    TheBinding().Valid(colors);
    EXPECT_EQ(colors.Cache().unregisterCount, before + 1);
}

TEST_F(RealEngines, UseAProcedureThatAClientRegisters) {
    const auto registerProcedure = Core<KelRegisterProcAddressType>(abi::Core::kRegisterProcAddress);
    int procedure = 0;
    ASSERT_NE(registerProcedure("TestInterface", "TestProc", &procedure), 0);
    EXPECT_EQ(TnGraphicsMem::GetKelGetAddressProc()("TestInterface", "Test", "TestProc"), &procedure);
    Core<KelUnregisterInterfaceType>(abi::Core::kUnregisterInterface)("TestInterface");
    EXPECT_EQ(TnGraphicsMem::GetKelGetAddressProc()("TestInterface", "Test", "TestProc"), nullptr);
}

TEST_F(RealEngines, LackAnUnknownInterface) {
    constexpr std::array<abi::ProcedureName, 1> kNames = {{{"Do", "NobodysProc"}}};
    void* procedure = nullptr;
    try {
        TheBinding().Acquire({"NobodysInterface", kNames}, {&procedure, 1});
        FAIL();
    } catch (const CKelError& error) {
        EXPECT_STREQ(error.what(), "");
        EXPECT_STREQ(error.Component(), "Kel");
    }
}

TEST_F(RealEngines, SayWhatErrorsSay) {
    const KelError made = NewError("something is amiss");
    try {
        ThrowIfError(made);
        FAIL();
    } catch (const CKelError& error) {
        EXPECT_STREQ(error.what(), "something is amiss");
        EXPECT_STREQ(error.Component(), "Kel");
        EXPECT_EQ(error.Number(), 0);
        EXPECT_EQ(error.Handle(), made);
    }
    Release(made);
}

TEST_F(RealEngines, ReportExhaustedMemoryAsTheStandardException) {
    try {
        ThrowIfError(TheBinding().CoreError(abi::kOutOfMemory));
        FAIL();
    } catch (const std::bad_alloc& exception) {
        EXPECT_STREQ(exception.what(), "bad allocation");
    }
}

TEST_F(RealEngines, ReportOtherCoreErrorsAsTheyAre) {
    EXPECT_THROW(ThrowIfError(TheBinding().CoreError(0)), CKelError);
}

TEST_F(RealEngines, GetAnErrorFromAClientThatThrows) {
    const KelError error = Guarded(kUnknownFailure, [] { throw std::runtime_error("lost"); });
    EXPECT_STREQ(MessageOf(error), "unknown Kel error");
    Release(error);
}

TEST(RealEnginesAfterwards, ErrorsOutliveTheEngines) {
    const FreshLibrary fresh;
    std::unique_ptr<CKelError> late;
    {
        const TnGraphicsMem graphics(kBudget, BasekitFromAscii("en_US"));
        const KelError made = NewError("late");
        late = std::make_unique<CKelError>(made);
        Release(made);
    }
    const CKelError copy = *late;
    EXPECT_STREQ(copy.what(), "late");
    late.reset();
    EXPECT_STREQ(copy.what(), "late");
}

} // namespace
} // namespace tn::test
