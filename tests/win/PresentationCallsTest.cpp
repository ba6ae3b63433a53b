// What the presentation asks of GDI+, call by call.
#include "TnGraphics/win/CDC.h"

#include "tests/support/RecordingStorage.h"
#include "tests/win/FakeGdiPlus.h"

#include "TnGraphics/port/TnMask.h"
#include "TnGraphics/win/Presentation.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace tn::test {
namespace {

using Lines = std::vector<std::string>;

constexpr std::uintptr_t kContext = 4711;
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();

template <class... Arguments> std::string Call(const char* function, const Arguments&... arguments) {
    return std::string(CallLine(function, arguments...).Text());
}

std::string Replaced(std::string line, const std::string& word, const std::string& by) {
    const std::size_t at = line.find(word);
    return at == std::string::npos ? line : line.replace(at, word.size(), by);
}

Lines Replaced(Lines lines, const std::string& word, const std::string& by) {
    for (std::string& line : lines) {
        line = Replaced(line, word, by);
    }
    return lines;
}

Lines Joined(const std::vector<Lines>& parts) {
    Lines lines;
    for (const Lines& part : parts) {
        lines.insert(lines.end(), part.begin(), part.end());
    }
    return lines;
}

// Storage that says another depth than it was made for.
class StorageOfDepth : public WinBitMapHelper {
public:
    StorageOfDepth(const TnPoint& size, std::uint32_t depth) : WinBitMapHelper(size, 32, true), depth_(depth) {}

    std::uint32_t Depth() const override { return depth_; }

private:
    std::uint32_t depth_;
};

class PresentationCalls : public testing::Test {
protected:
    PresentationCalls() { context.Attach(reinterpret_cast<HDC>(kContext)); }

    // Shows the same part of a storage in a rectangle of its size.
    static constexpr TnRect kSource = {1, 2, 3, 2};
    static constexpr TnRect kSameSize = {10, 20, 3, 2};

    const Lines kDrawing = {"GdipDrawImageRectRectI graphics#1 image#1 10 20 3 2 1 2 3 2 2 null null null"};
    const Lines kImageMaking = {Call("GdipAlloc", sizeof(Gdiplus::Bitmap)),
                                Call("GdipCreateBitmapFromScan0", 6, 4, 32, 0x26200A)};
    const Lines kMatteMaking = {Call("GdipAlloc", sizeof(Gdiplus::Bitmap)),
                                Call("GdipCreateBitmapFromScan0", 6, 4, 14, 0x30803),
                                "GdipSetImagePalette image#1 2 256"};
    const Lines kDeletion = {"GdipDisposeImage image#1", "GdipFree block#1"};

    // All of a presentation, given its parts.
    static Lines Presentation(const Lines& making, int mode, const Lines& drawing, const Lines& deletion) {
        return Joined({{"GdipCreateFromHDC 4711"},
                       making,
                       {Call("GdipSetCompositingMode", CallLine::Word{"graphics#1"}, mode)},
                       drawing,
                       deletion,
                       {"GdipDeleteGraphics graphics#1"}});
    }

    // What is called between the choice of the compositing mode and the deletion of the bitmap.
    Lines DrawingOf(const TnRect& source, const TnRect& destination) {
        FakeGdiPlus gdi;
        EXPECT_NO_THROW(CopyImage(&image, source, context, destination));
        const Lines& log = gdi.Log();
        const auto begin = std::ranges::find(log, "GdipSetCompositingMode graphics#1 1");
        const auto end = std::ranges::find(log, "GdipDisposeImage image#1");
        return begin < end ? Lines(begin + 1, end) : Lines();
    }

    WinBitMapHelper image{{6, 4}, 32, true};
    WinBitMapHelper matte{{6, 4}, 8, true};
    CDC context;
};

TEST_F(PresentationCalls, OfAnImageThatIsCopied) {
    FakeGdiPlus gdi;
    CopyImage(&image, kSource, context, kSameSize);
    EXPECT_EQ(gdi.Log(), (Lines{"GdipCreateFromHDC 4711", Call("GdipAlloc", sizeof(Gdiplus::Bitmap)),
                                "GdipCreateBitmapFromScan0 6 4 32 2498570", "GdipSetCompositingMode graphics#1 1",
                                "GdipDrawImageRectRectI graphics#1 image#1 10 20 3 2 1 2 3 2 2 null null null",
                                "GdipDisposeImage image#1", "GdipFree block#1", "GdipDeleteGraphics graphics#1"}));
    EXPECT_EQ(gdi.FirstBytes(), std::vector<const void*>{image.BaseAddr()});
}

TEST_F(PresentationCalls, OfAnImageThatIsBlended) {
    FakeGdiPlus gdi;
    BlendImage(&image, kSource, context, kSameSize);
    EXPECT_EQ(gdi.Log(), Presentation(kImageMaking, 0, kDrawing, kDeletion));
}

TEST_F(PresentationCalls, OfAMatteThatIsCopied) {
    FakeGdiPlus gdi;
    CopyImage(&matte, kSource, context, kSameSize);
    EXPECT_EQ(gdi.Log(), (Lines{"GdipCreateFromHDC 4711", Call("GdipAlloc", sizeof(Gdiplus::Bitmap)),
                                "GdipCreateBitmapFromScan0 6 4 14 198659", "GdipSetImagePalette image#1 2 256",
                                "GdipSetCompositingMode graphics#1 1",
                                "GdipDrawImageRectRectI graphics#1 image#1 10 20 3 2 1 2 3 2 2 null null null",
                                "GdipDisposeImage image#1", "GdipFree block#1", "GdipDeleteGraphics graphics#1"}));
    EXPECT_EQ(gdi.FirstBytes(), std::vector<const void*>{matte.BaseAddr()});
}

TEST_F(PresentationCalls, OfAMatteThatIsBlended) {
    FakeGdiPlus gdi;
    BlendImage(&matte, kSource, context, kSameSize);
    EXPECT_EQ(gdi.Log(), Presentation(kMatteMaking, 0, kDrawing, kDeletion));
}

TEST_F(PresentationCalls, OfAMaskAreThoseOfAMatte) {
    const TnMask mask({9, 3}, true);
    auto* const storage = dynamic_cast<WinBitMapHelper*>(mask.Storage());
    ASSERT_NE(storage, nullptr);
    FakeGdiPlus gdi;
    BlendImage(storage, kSource, context, kSameSize);
    const Lines making = {Call("GdipAlloc", sizeof(Gdiplus::Bitmap)),
                          Call("GdipCreateBitmapFromScan0", 9, 3, 10, 0x30803), "GdipSetImagePalette image#1 2 256"};
    EXPECT_EQ(gdi.Log(), Presentation(making, 0, kDrawing, kDeletion));
    EXPECT_EQ(gdi.FirstBytes(), std::vector<const void*>{storage->BaseAddr()});
}

TEST_F(PresentationCalls, OfAnyDepthBut32AreThoseOfAMatte) {
    for (const std::uint32_t depth : {0U, 2U, 7U, 16U, 24U, 31U, 33U, 64U, 32U << 8U}) {
        StorageOfDepth storage({6, 4}, depth);
        const FakeGdiPlus gdi;
        const std::unique_ptr<Gdiplus::Bitmap> bitmap = MakeGDIPlusBitmap(&storage);
        EXPECT_EQ(gdi.Log(), Replaced(kMatteMaking, "6 4 14", "6 4 32")) << depth;
    }
}

TEST_F(PresentationCalls, AreMadeAnewEachTime) {
    FakeGdiPlus gdi;
    CopyImage(&image, kSource, context, kSameSize);
    BlendImage(&matte, kSource, context, kSameSize);
    Lines second = Presentation(kMatteMaking, 0, kDrawing, kDeletion);
    for (const char* const kind : {"graphics", "image", "block"}) {
        second = Replaced(second, std::string(kind) + "#1", std::string(kind) + "#2");
    }
    EXPECT_EQ(gdi.Log(), Joined({Presentation(kImageMaking, 1, kDrawing, kDeletion), second}));
}

// Widths alone decide

TEST_F(PresentationCalls, LeaveTheInterpolationForEqualWidths) {
    for (const std::int32_t height : {1, 2, 3, 1000}) {
        const Lines drawing = {Call("GdipDrawImageRectRectI", CallLine::Word{"graphics#1"}, CallLine::Word{"image#1"},
                                    10, 20, 3, height, 1, 2, 3, 2, 2, CallLine::Word{"null"}, CallLine::Word{"null"},
                                    CallLine::Word{"null"})};
        EXPECT_EQ(DrawingOf({1, 2, 3, 2}, {10, 20, 3, height}), drawing);
    }
}

TEST_F(PresentationCalls, FilterWhereTheDestinationIsNarrower) {
    EXPECT_EQ(DrawingOf({1, 2, 3, 2}, {10, 20, 2, 2}),
              (Lines{"GdipSetInterpolationMode graphics#1 7",
                     "GdipDrawImageRectRectI graphics#1 image#1 10 20 2 2 1 2 3 2 2 null null null"}));
    EXPECT_EQ(DrawingOf({0, 0, 6, 4}, {-5, -6, 1, 400}),
              (Lines{"GdipSetInterpolationMode graphics#1 7",
                     "GdipDrawImageRectRectI graphics#1 image#1 -5 -6 1 400 0 0 6 4 2 null null null"}));
}

TEST_F(PresentationCalls, TakeTheNearestPixelWhereTheDestinationIsWider) {
    EXPECT_EQ(DrawingOf({1, 2, 3, 2}, {10, 20, 4, 2}),
              (Lines{"GdipSetInterpolationMode graphics#1 5",
                     "GdipDrawImageRectRect graphics#1 image#1 10 20 4 2 0.5 1.5 3 2 2 null null null"}));
    EXPECT_EQ(DrawingOf({0, 0, 6, 4}, {-5, -6, 60, 1}),
              (Lines{"GdipSetInterpolationMode graphics#1 5",
                     "GdipDrawImageRectRect graphics#1 image#1 -5 -6 60 1 -0.5 -0.5 6 4 2 null null null"}));
}

// Floats throughout would give 16777220 and 16777224.
TEST_F(PresentationCalls, ShiftByHalfAPixelInDoubles) {
    const Lines drawing = DrawingOf({16777219, 16777223, 1, 1}, {0, 0, 2, 1});
    EXPECT_EQ(drawing.back(), Call("GdipDrawImageRectRect", CallLine::Word{"graphics#1"}, CallLine::Word{"image#1"},
                                   0.0F, 0.0F, 2.0F, 1.0F, 16777218.0F, 16777222.0F, 1.0F, 1.0F, 2,
                                   CallLine::Word{"null"}, CallLine::Word{"null"}, CallLine::Word{"null"}));
}

TEST_F(PresentationCalls, RoundTheOtherNumbersToFloats) {
    const Lines drawing = DrawingOf({kLeast, kLargest, 16777217, 16777219}, {kLargest, kLeast, kLargest, -16777219});
    EXPECT_EQ(drawing.back(),
              Call("GdipDrawImageRectRect", CallLine::Word{"graphics#1"}, CallLine::Word{"image#1"}, 2147483648.0F,
                   -2147483648.0F, 2147483648.0F, -16777220.0F, -2147483648.0F, 2147483648.0F, 16777216.0F, 16777220.0F,
                   2, CallLine::Word{"null"}, CallLine::Word{"null"}, CallLine::Word{"null"}));
}

TEST_F(PresentationCalls, PassEmptyRectanglesOn) {
    EXPECT_EQ(DrawingOf({}, {}), Lines{"GdipDrawImageRectRectI graphics#1 image#1 0 0 0 0 0 0 0 0 2 null null null"});
    EXPECT_EQ(DrawingOf({1, 2, 3, 2}, {}),
              (Lines{"GdipSetInterpolationMode graphics#1 7",
                     "GdipDrawImageRectRectI graphics#1 image#1 0 0 0 0 1 2 3 2 2 null null null"}));
    EXPECT_EQ(DrawingOf({}, {10, 20, 1, 0}),
              (Lines{"GdipSetInterpolationMode graphics#1 5",
                     "GdipDrawImageRectRect graphics#1 image#1 10 20 1 0 -0.5 -0.5 0 0 2 null null null"}));
    EXPECT_EQ(DrawingOf({1, 2, -3, -4}, {10, 20, -3, 5}),
              Lines{"GdipDrawImageRectRectI graphics#1 image#1 10 20 -3 5 1 2 -3 -4 2 null null null"});
    EXPECT_EQ(DrawingOf({1, 2, -3, 2}, {10, 20, -2, 2}),
              (Lines{"GdipSetInterpolationMode graphics#1 5",
                     "GdipDrawImageRectRect graphics#1 image#1 10 20 -2 2 0.5 1.5 -3 2 2 null null null"}));
}

TEST_F(PresentationCalls, PassRectanglesOutsideOn) {
    EXPECT_EQ(DrawingOf({-100, 300, 5, 6}, {-7, -8, 5, 6}),
              Lines{"GdipDrawImageRectRectI graphics#1 image#1 -7 -8 5 6 -100 300 5 6 2 null null null"});
    EXPECT_EQ(DrawingOf({kLeast, kLargest, kLargest, kLargest}, {kLargest, kLeast, kLeast, kLeast}),
              (Lines{"GdipSetInterpolationMode graphics#1 7",
                     "GdipDrawImageRectRectI graphics#1 image#1 2147483647 -2147483648 -2147483648 -2147483648 "
                     "-2147483648 2147483647 2147483647 2147483647 2 null null null"}));
}

// Failures

// The handle that a function would have made; what follows is given null instead.
std::string MadeBy(const std::string& function) {
    return function == "GdipCreateFromHDC" ? "graphics#1" : function == "GdipCreateBitmapFromScan0" ? "image#1" : "";
}

class PresentationFaults : public PresentationCalls, public testing::WithParamInterface<const char*> {
protected:
    static constexpr int kLastStatus = 21;

    void ExpectTheRestIsDone(WinBitMapHelper& storage, const TnRect& destination, const Lines& calls) {
        const std::string made = MadeBy(GetParam());
        const Lines expected = made.empty() ? calls : Replaced(calls, made, "null");
        for (int status = 1; status <= kLastStatus; ++status) {
            FakeGdiPlus gdi;
            gdi.Fail(GetParam(), static_cast<Gdiplus::Status>(status));
            EXPECT_NO_THROW(CopyImage(&storage, kSource, context, destination));
            EXPECT_EQ(gdi.Log(), expected) << status;
        }
    }
};

TEST_P(PresentationFaults, LeaveTheRestToBeDoneForAnImage) {
    ExpectTheRestIsDone(image, kSameSize, Presentation(kImageMaking, 1, kDrawing, kDeletion));
}

TEST_P(PresentationFaults, LeaveTheRestToBeDoneForAMatte) {
    ExpectTheRestIsDone(matte, kSameSize, Presentation(kMatteMaking, 1, kDrawing, kDeletion));
}

TEST_P(PresentationFaults, LeaveTheRestToBeDoneForAReduction) {
    const Lines drawing = {"GdipSetInterpolationMode graphics#1 7",
                           "GdipDrawImageRectRectI graphics#1 image#1 10 20 1 1 1 2 3 2 2 null null null"};
    ExpectTheRestIsDone(matte, {10, 20, 1, 1}, Presentation(kMatteMaking, 1, drawing, kDeletion));
}

TEST_P(PresentationFaults, LeaveTheRestToBeDoneForAnEnlargement) {
    const Lines drawing = {"GdipSetInterpolationMode graphics#1 5",
                           "GdipDrawImageRectRect graphics#1 image#1 10 20 6 4 0.5 1.5 3 2 2 null null null"};
    ExpectTheRestIsDone(image, {10, 20, 6, 4}, Presentation(kImageMaking, 1, drawing, kDeletion));
}

constexpr std::array<const char*, 9> kFunctions = {
    "GdipCreateFromHDC",      "GdipCreateBitmapFromScan0", "GdipSetImagePalette",
    "GdipSetCompositingMode", "GdipSetInterpolationMode",  "GdipDrawImageRectRectI",
    "GdipDrawImageRectRect",  "GdipDisposeImage",          "GdipDeleteGraphics",
};
INSTANTIATE_TEST_SUITE_P(OfEachFunction, PresentationFaults, testing::ValuesIn(kFunctions),
                         [](const auto& function) { return std::string(function.param); });

TEST_F(PresentationCalls, AreAllMadeWhereGdiPlusWasNotStarted) {
    FakeGdiPlus gdi;
    for (const char* const function : kFunctions) {
        gdi.Fail(function, Gdiplus::GdiplusNotInitialized);
    }
    EXPECT_NO_THROW(BlendImage(&matte, kSource, context, kSameSize));
    const Lines calls = Presentation(kMatteMaking, 0, kDrawing, kDeletion);
    EXPECT_EQ(gdi.Log(), Replaced(Replaced(calls, "graphics#1", "null"), "image#1", "null"));
}

TEST_F(PresentationCalls, DrawNoImageWithoutMemory) {
    const Lines drawing = Replaced(kDrawing, "image#1", "null");
    for (WinBitMapHelper* const storage : {&image, &matte}) {
        FakeGdiPlus gdi;
        gdi.givesMemory = false;
        EXPECT_NO_THROW(CopyImage(storage, kSource, context, kSameSize));
        EXPECT_EQ(gdi.Log(), Presentation({kImageMaking[0]}, 1, drawing, {}));
    }
}

TEST_F(PresentationCalls, DrawNoEnlargedImageWithoutMemory) {
    FakeGdiPlus gdi;
    gdi.givesMemory = false;
    EXPECT_NO_THROW(BlendImage(&image, kSource, context, {10, 20, 6, 4}));
    const Lines drawing = {"GdipSetInterpolationMode graphics#1 5",
                           "GdipDrawImageRectRect graphics#1 null 10 20 6 4 0.5 1.5 3 2 2 null null null"};
    EXPECT_EQ(gdi.Log(), Presentation({kImageMaking[0]}, 0, drawing, {}));
}

TEST_F(PresentationCalls, AreNoneWithoutStorageOrDeviceContext) {
    FakeGdiPlus gdi;
    CDC none;
    EXPECT_NO_THROW(CopyImage(nullptr, kSource, context, kSameSize));
    EXPECT_NO_THROW(BlendImage(nullptr, kSource, context, kSameSize));
    EXPECT_NO_THROW(CopyImage(&image, kSource, none, kSameSize));
    EXPECT_NO_THROW(BlendImage(&matte, kSource, none, kSameSize));
    EXPECT_NO_THROW(BlendImage(nullptr, kSource, none, kSameSize));
    EXPECT_EQ(gdi.Log(), Lines());
}

// The bitmap

class GdiPlusBitmap : public PresentationCalls {
protected:
    static WinBitMapHelper Mask(std::int32_t width, std::int32_t height) { return {{width, height}, 1, true}; }

    FakeGdiPlus gdi;
};

TEST_F(GdiPlusBitmap, IsOwnedByWhoAsksForIt) {
    std::unique_ptr<Gdiplus::Bitmap> bitmap = MakeGDIPlusBitmap(&matte);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(gdi.Log(), kMatteMaking);
    EXPECT_EQ(gdi.Left(), (Lines{"block#1", "image#1"}));
    bitmap.reset();
    EXPECT_EQ(gdi.Log(), Joined({kMatteMaking, kDeletion}));
    EXPECT_EQ(gdi.Left(), Lines());
}

TEST_F(GdiPlusBitmap, IsNoneWithoutStorage) {
    EXPECT_EQ(MakeGDIPlusBitmap(nullptr), nullptr);
    EXPECT_EQ(gdi.Log(), Lines());
}

TEST_F(GdiPlusBitmap, IsNoneWithoutMemory) {
    gdi.givesMemory = false;
    EXPECT_EQ(MakeGDIPlusBitmap(&image), nullptr);
    EXPECT_EQ(MakeGDIPlusBitmap(&matte), nullptr);
    EXPECT_EQ(gdi.Log(), (Lines{kImageMaking[0], kImageMaking[0]}));
}

TEST_F(GdiPlusBitmap, OfAnImageHasNoPalette) {
    MakeGDIPlusBitmap(&image);
    EXPECT_TRUE(gdi.Palettes().empty());
}

TEST_F(GdiPlusBitmap, OfAMatteHasGraysWithAlphasAsPalette) {
    MakeGDIPlusBitmap(&matte);
    ASSERT_EQ(gdi.Palettes().size(), 1U);
    const NotedPalette& palette = gdi.Palettes()[0];
    EXPECT_EQ(palette.flags, 2U);
    ASSERT_EQ(palette.entries.size(), 256U);
    for (std::uint32_t gray = 0; gray < 256; ++gray) {
        EXPECT_EQ(palette.entries[gray], gray << 24U | gray << 16U | gray << 8U | gray);
    }
}

TEST_F(GdiPlusBitmap, OfAMaskIsMadeWhereItsRowsHoldAsManyBytes) {
    for (const std::int32_t width : {1, 7, 8, 9, 10}) {
        for (const std::int32_t height : {1, 2, 50}) {
            WinBitMapHelper mask = Mask(width, height);
            EXPECT_NE(MakeGDIPlusBitmap(&mask), nullptr) << width << " x " << height;
        }
    }
}

TEST_F(GdiPlusBitmap, OfAMaskIsRefusedWhereItsLastRowIsTooShort) {
    for (const std::int32_t width : {11, 12, 16, 17, 64, 1000}) {
        for (const std::int32_t height : {1, 2, 50}) {
            WinBitMapHelper mask = Mask(width, height);
            EXPECT_EQ(MakeGDIPlusBitmap(&mask), nullptr) << width << " x " << height;
        }
    }
    EXPECT_EQ(gdi.Log(), Lines());
}

TEST_F(GdiPlusBitmap, ThatIsRefusedLeavesTheRestToBeDone) {
    WinBitMapHelper mask = Mask(11, 4);
    EXPECT_NO_THROW(CopyImage(&mask, kSource, context, kSameSize));
    EXPECT_EQ(gdi.Log(), Presentation({}, 1, Replaced(kDrawing, "image#1", "null"), {}));
}

TEST_F(GdiPlusBitmap, OfNoPixelsIsAskedForAllTheSame) {
    WinBitMapHelper narrow({0, 3}, 32, true);
    WinBitMapHelper low({3, 0}, 8, true);
    MakeGDIPlusBitmap(&narrow);
    MakeGDIPlusBitmap(&low);
    EXPECT_EQ(gdi.Log()[1], Call("GdipCreateBitmapFromScan0", 0, 3, 8, 0x26200A));
    EXPECT_EQ(gdi.Log()[5], Call("GdipCreateBitmapFromScan0", 3, 0, 11, 0x30803));
}

TEST_F(GdiPlusBitmap, IsFineWhereNothingFails) {
    EXPECT_EQ(MakeGDIPlusBitmap(&image)->GetLastStatus(), Gdiplus::Ok);
    EXPECT_EQ(MakeGDIPlusBitmap(&matte)->GetLastStatus(), Gdiplus::Ok);
}

TEST_F(GdiPlusBitmap, KeepsTheStatusOfItsCreation) {
    gdi.Fail("GdipCreateBitmapFromScan0", Gdiplus::ValueOverflow);
    EXPECT_EQ(MakeGDIPlusBitmap(&image)->GetLastStatus(), Gdiplus::ValueOverflow);
}

TEST_F(GdiPlusBitmap, KeepsTheStatusOfAFailingPalette) {
    gdi.Fail("GdipSetImagePalette", Gdiplus::Win32Error);
    EXPECT_EQ(MakeGDIPlusBitmap(&matte)->GetLastStatus(), Gdiplus::Win32Error);
    gdi.Fail("GdipCreateBitmapFromScan0", Gdiplus::ValueOverflow);
    EXPECT_EQ(MakeGDIPlusBitmap(&matte)->GetLastStatus(), Gdiplus::Win32Error);
}

// The storage of an image

TEST(StorageOfAnImage, IsFoundWhereItIsTheLibrarysOwn) {
    const TnImage image({4, 3}, true);
    EXPECT_EQ(GetWinBitMapHelper(image), image.Storage());
    auto* const storage = new WinBitMapHelper({4, 3}, 32, true);
    EXPECT_EQ(GetWinBitMapHelper(TnImage(storage, {4, 3})), storage);
    auto* const derived = new StorageOfDepth({4, 3}, 24);
    EXPECT_EQ(GetWinBitMapHelper(TnImage(derived, {4, 3})), derived);
}

TEST(StorageOfAnImage, IsNoneWhereItIsOfAnotherKind) {
    StorageProbe probe;
    EXPECT_EQ(GetWinBitMapHelper(TnImage(new RecordingStorage(probe, 24, 3), {4, 3})), nullptr);
    EXPECT_EQ(probe.locks, 0);
}

TEST(StorageOfAnImage, IsNoneWhereThereIsNone) {
    EXPECT_EQ(GetWinBitMapHelper(TnImage()), nullptr);
    EXPECT_EQ(GetWinBitMapHelper(TnImage(nullptr, {4, 3})), nullptr);
}

// The fake itself

void LeaveABitmap() {
    const FakeGdiPlus gdi;
    Gdiplus::GpBitmap* bitmap = nullptr;
    std::array<BYTE, 4> pixel = {};
    Gdiplus::DllExports::GdipCreateBitmapFromScan0(1, 1, 4, 0x26200A, pixel.data(), &bitmap);
}

void LeaveABlock() {
    const FakeGdiPlus gdi;
    Gdiplus::DllExports::GdipAlloc(8);
}

void DeleteGraphicsTwice() {
    const FakeGdiPlus gdi;
    Gdiplus::GpGraphics* graphics = nullptr;
    Gdiplus::DllExports::GdipCreateFromHDC(reinterpret_cast<HDC>(kContext), &graphics);
    Gdiplus::DllExports::GdipDeleteGraphics(graphics);
    Gdiplus::DllExports::GdipDeleteGraphics(graphics);
}

void FreeTheStack() {
    const FakeGdiPlus gdi;
    int variable = 0;
    Gdiplus::DllExports::GdipFree(&variable);
}

TEST(FakeGdiPlus, ComplainsOfWhatIsLeft) {
    EXPECT_NONFATAL_FAILURE(LeaveABitmap(), "image#1 is left");
    EXPECT_NONFATAL_FAILURE(LeaveABlock(), "block#1 is left");
}

TEST(FakeGdiPlus, ComplainsOfOddHandles) {
    EXPECT_NONFATAL_FAILURE(DeleteGraphicsTwice(), "graphics#1 is used after it was deleted");
    EXPECT_NONFATAL_FAILURE(FreeTheStack(), "what is used is no block");
}

TEST(FakeGdiPlus, ComplainsOfCallsWithoutIt) {
    EXPECT_NONFATAL_FAILURE(Gdiplus::DllExports::GdipFree(nullptr), "GdipFree is used without GDI+");
}

} // namespace
} // namespace tn::test
