// Pictures on a device context in memory, through GDI+ itself.
#include "TnGraphics/win/CDC.h"

// The headers of GDI+ lean on those of Windows.
#include <objidl.h>

#include <gdiplus.h>

#include "tests/public/Pixels.h"
#include "tests/support/RecordingStorage.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace tn::test {
namespace {

using Words = std::vector<std::uint32_t>;

// Like the translucent colours here it is made of multiples of 5, and their alphas are multiples of 51: blending them
// has nothing to round.
constexpr std::uint32_t kGround = 0xC88C3C;

// A device context of 32 bits over pixels that can be read.
class Screen {
public:
    static constexpr std::int32_t kWidth = 12;
    static constexpr std::int32_t kHeight = 9;

    Screen() {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = kWidth;
        info.bmiHeader.biHeight = -kHeight; // the top row first
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* pixels = nullptr;
        handle_ = CreateCompatibleDC(nullptr);
        bitmap_ = CreateDIBSection(handle_, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
        previous_ = SelectObject(handle_, bitmap_);
        pixels_ = static_cast<std::uint32_t*>(pixels);
        context.Attach(handle_);
        Clear(kGround);
    }
    ~Screen() {
        SelectObject(handle_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(handle_);
    }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    void Clear(std::uint32_t color) {
        GdiFlush();
        std::fill_n(pixels_, kWidth * kHeight, color);
    }

    /// The colours of a rectangle, row by row. What a screen has besides is nobody's.
    Words Colors(const TnRect& rect) const {
        GdiFlush();
        Words colors;
        for (std::int32_t y = rect.top; y < rect.top + rect.height; ++y) {
            for (std::int32_t x = rect.left; x < rect.left + rect.width; ++x) {
                colors.push_back(pixels_[y * kWidth + x] & 0xFFFFFFU);
            }
        }
        return colors;
    }

    /// True when every pixel has the ground's colour that is outside a rectangle.
    bool IsGroundBeside(const TnRect& rect) const {
        const Words colors = Colors({0, 0, kWidth, kHeight});
        for (std::int32_t at = 0; at < kWidth * kHeight; ++at) {
            const bool isInside = !Intersection(rect, {at % kWidth, at / kWidth, 1, 1}).IsEmpty();
            if (!isInside && colors[static_cast<std::size_t>(at)] != kGround) {
                return false;
            }
        }
        return true;
    }
    bool IsGround() const { return IsGroundBeside({}); }

    CDC context;

private:
    HDC handle_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ previous_ = nullptr;
    std::uint32_t* pixels_ = nullptr;
};

// The surfaces that are shown. Rows of mattes are as long as GDI+ wants them for widths that divide by 4.
class Presentation : public testing::Test {
protected:
    static constexpr TnRect kAll = {0, 0, 3, 2};

    Presentation() {
        Store(image, {0xFF112233, 0xFF445566, 0xFF778899, 0x33FA9605, 0x66C8640A, 0x00ABCDEF});
        Store(matte, {0, 51, 102, 153, 204, 255, 0, 255, 255, 204, 153, 102, 51, 0, 255, 0});
    }

    template <class SurfaceType> static void Store(SurfaceType& surface, const Words& values) {
        auto value = values.begin();
        for (auto& pixel : surface) {
            pixel = static_cast<decltype(pixel.value)>(*value++);
        }
    }

    static WinBitMapHelper* StorageOf(const TnMatte& surface) {
        return dynamic_cast<WinBitMapHelper*>(surface.Storage());
    }

    Screen screen;
    TnImage image{{3, 2}};
    TnMatte matte{{8, 2}};
};

class PresentationWithGdiPlus : public Presentation {
protected:
    PresentationWithGdiPlus() {
        const Gdiplus::GdiplusStartupInput input;
        EXPECT_EQ(Gdiplus::GdiplusStartup(&token_, &input, nullptr), Gdiplus::Ok);
    }
    ~PresentationWithGdiPlus() override { Gdiplus::GdiplusShutdown(token_); }

private:
    ULONG_PTR token_ = 0;
};

// GDI+ is not started yet: these come first

template <class Type> const Type* At(HMODULE library, std::size_t offset) {
    return reinterpret_cast<const Type*>(reinterpret_cast<const char*>(library) + offset);
}

const IMAGE_IMPORT_DESCRIPTOR* ImportsOf(HMODULE library) {
    const auto start = static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(library, 0)->e_lfanew);
    const auto& directories = At<IMAGE_NT_HEADERS64>(library, start)->OptionalHeader.DataDirectory;
    return At<IMAGE_IMPORT_DESCRIPTOR>(library, directories[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
}

// The functions that a library takes from others by name.
std::vector<std::string> ImportedNames(HMODULE library) {
    std::vector<std::string> names;
    for (const auto* import = ImportsOf(library); import->Name != 0; ++import) {
        for (const auto* entry = At<IMAGE_THUNK_DATA64>(library, import->OriginalFirstThunk); entry->u1.Ordinal != 0;
             ++entry) {
            if (!IMAGE_SNAP_BY_ORDINAL64(entry->u1.Ordinal)) {
                names.emplace_back(At<IMAGE_IMPORT_BY_NAME>(library, entry->u1.AddressOfData)->Name);
            }
        }
    }
    return names;
}

// Not every GDI+ asks whether it was started.
bool InsistsOnBeingStarted() {
    Gdiplus::GpBitmap* bitmap = nullptr;
    const Gdiplus::Status status =
        Gdiplus::DllExports::GdipCreateBitmapFromScan0(1, 1, 4, PixelFormat32bppARGB, nullptr, &bitmap);
    if (status == Gdiplus::Ok) {
        Gdiplus::DllExports::GdipDisposeImage(bitmap);
    }
    return status == Gdiplus::GdiplusNotInitialized;
}

using PresentationWithoutGdiPlus = Presentation;

TEST_F(PresentationWithoutGdiPlus, IsWhereOperationsOnPixelsWorkAsWell) {
    ColorFill(image, image.Bounds(), {0x80, 0x10, 0x20, 0x30});
    EXPECT_EQ(Count(image, 0x80102030), 6);
}

TEST_F(PresentationWithoutGdiPlus, IsNotTheLibrarysToStart) {
    const std::vector<std::string> names = ImportedNames(GetModuleHandleW(L"TnGraphics.dll"));
    EXPECT_EQ(std::ranges::count(names, "GdipCreateFromHDC"), 1);
    EXPECT_EQ(std::ranges::count(names, "GdiplusStartup"), 0);
    EXPECT_EQ(std::ranges::count(names, "GdiplusShutdown"), 0);
}

TEST_F(PresentationWithoutGdiPlus, ThrowsNothing) {
    EXPECT_NO_THROW(CopyImage(GetWinBitMapHelper(image), kAll, screen.context, {1, 2, 3, 2}));
    EXPECT_NO_THROW(BlendImage(GetWinBitMapHelper(image), kAll, screen.context, {1, 2, 6, 4}));
    EXPECT_NO_THROW(CopyImage(StorageOf(matte), {0, 0, 8, 2}, screen.context, {1, 2, 4, 1}));
    EXPECT_TRUE(screen.IsGroundBeside({1, 2, 6, 4}));
}

TEST_F(PresentationWithoutGdiPlus, ShowsNothing) {
    if (!InsistsOnBeingStarted()) {
        GTEST_SKIP() << "this GDI+ works without being started";
    }
    CopyImage(GetWinBitMapHelper(image), kAll, screen.context, {1, 2, 3, 2});
    BlendImage(StorageOf(matte), {0, 0, 8, 2}, screen.context, {1, 2, 8, 2});
    EXPECT_EQ(MakeGDIPlusBitmap(GetWinBitMapHelper(image))->GetLastStatus(), Gdiplus::GdiplusNotInitialized);
    EXPECT_TRUE(screen.IsGround());
}

// Pixels

// A screen has no alphas: a copy leaves each colour there times its alpha.
const Words kCopied = {0x112233, 0x445566, 0x778899, 0x321E01, 0x502804, 0x000000};

// Each colour repeated to the right and downwards.
Words Enlarged(const Words& colors, std::size_t width, std::size_t times) {
    Words enlarged;
    const std::size_t height = colors.size() / width;
    for (std::size_t y = 0; y < height * times; ++y) {
        for (std::size_t x = 0; x < width * times; ++x) {
            enlarged.push_back(colors[y / times * width + x / times]);
        }
    }
    return enlarged;
}

std::uint32_t Gray(std::uint32_t value) { return value << 16U | value << 8U | value; }

// A value times itself as an alpha.
std::uint32_t OfItself(std::uint32_t value) { return (value * value + 127) / 255; }

template <class SurfaceType> Words ValuesOf(SurfaceType& surface) {
    Words values;
    for (const auto& pixel : surface) {
        values.push_back(pixel.value);
    }
    return values;
}

Words CopiedGrays(TnMatte& matte) {
    Words colors = ValuesOf(matte);
    std::ranges::transform(colors, colors.begin(), [](std::uint32_t value) { return Gray(OfItself(value)); });
    return colors;
}

// A gray over the ground, with itself as the alpha.
std::uint32_t BlendedGray(std::uint32_t value) {
    std::uint32_t color = 0;
    for (const unsigned shift : {16U, 8U, 0U}) {
        const std::uint32_t ground = kGround >> shift & 0xFFU;
        color |= (OfItself(value) + ground * (255 - value) / 255) << shift;
    }
    return color;
}

TEST_F(PresentationWithGdiPlus, CopiesAnImage) {
    CopyImage(GetWinBitMapHelper(image), kAll, screen.context, {4, 3, 3, 2});
    EXPECT_EQ(screen.Colors({4, 3, 3, 2}), kCopied);
    EXPECT_TRUE(screen.IsGroundBeside({4, 3, 3, 2}));
}

TEST_F(PresentationWithGdiPlus, BlendsAnImage) {
    BlendImage(GetWinBitMapHelper(image), kAll, screen.context, {4, 3, 3, 2});
    EXPECT_EQ(screen.Colors({4, 3, 3, 2}), (Words{0x112233, 0x445566, 0x778899, 0xD28E31, 0xC87C28, kGround}));
    EXPECT_TRUE(screen.IsGroundBeside({4, 3, 3, 2}));
}

TEST_F(PresentationWithGdiPlus, LeavesTheStorageAsItIs) {
    const Words before = ValuesOf(image);
    CopyImage(GetWinBitMapHelper(image), kAll, screen.context, {4, 3, 3, 2});
    BlendImage(GetWinBitMapHelper(image), kAll, screen.context, {1, 1, 6, 4});
    EXPECT_EQ(ValuesOf(image), before);
}

TEST_F(PresentationWithGdiPlus, ShowsAPartOfAnImage) {
    CopyImage(GetWinBitMapHelper(image), {1, 0, 2, 1}, screen.context, {4, 3, 2, 1});
    EXPECT_EQ(screen.Colors({4, 3, 2, 1}), (Words{0x445566, 0x778899}));
    EXPECT_TRUE(screen.IsGroundBeside({4, 3, 2, 1}));
}

TEST_F(PresentationWithGdiPlus, CountsFromTheStoragesCorner) {
    image.Content({1, 1, 2, 1});
    CopyImage(GetWinBitMapHelper(image), kAll, screen.context, {4, 3, 3, 2});
    EXPECT_EQ(screen.Colors({4, 3, 3, 2}), kCopied);
}

TEST_F(PresentationWithGdiPlus, EnlargesEachPixelToABlock) {
    CopyImage(GetWinBitMapHelper(image), kAll, screen.context, {1, 2, 6, 4});
    EXPECT_EQ(screen.Colors({1, 2, 6, 4}), Enlarged(kCopied, 3, 2));
    EXPECT_TRUE(screen.IsGroundBeside({1, 2, 6, 4}));
    screen.Clear(kGround);
    CopyImage(GetWinBitMapHelper(image), kAll, screen.context, {2, 3, 9, 6});
    EXPECT_EQ(screen.Colors({2, 3, 9, 6}), Enlarged(kCopied, 3, 3));
    EXPECT_TRUE(screen.IsGroundBeside({2, 3, 9, 6}));
}

TEST_F(PresentationWithGdiPlus, EnlargesAndBlends) {
    BlendImage(GetWinBitMapHelper(image), kAll, screen.context, {1, 2, 6, 4});
    const Words blended = {0x112233, 0x445566, 0x778899, 0xD28E31, 0xC87C28, kGround};
    EXPECT_EQ(screen.Colors({1, 2, 6, 4}), Enlarged(blended, 3, 2));
    EXPECT_TRUE(screen.IsGroundBeside({1, 2, 6, 4}));
}

TEST_F(PresentationWithGdiPlus, EnlargesAPart) {
    CopyImage(GetWinBitMapHelper(image), {1, 0, 2, 2}, screen.context, {1, 2, 4, 4});
    EXPECT_EQ(screen.Colors({1, 2, 4, 4}), Enlarged({0x445566, 0x778899, 0x502804, 0x000000}, 2, 2));
    EXPECT_TRUE(screen.IsGroundBeside({1, 2, 4, 4}));
}

// How it is reduced is left to GDI+.
TEST_F(PresentationWithGdiPlus, ShowsSomethingReduced) {
    SetAll(image, 0xFF000000);
    for (const TnRect& destination : {TnRect{5, 4, 2, 2}, TnRect{5, 4, 1, 1}, TnRect{5, 4, 2, 4}, TnRect{5, 4, 3, 1}}) {
        screen.Clear(kGround);
        CopyImage(GetWinBitMapHelper(image), kAll, screen.context, destination);
        EXPECT_FALSE(screen.IsGround());
        EXPECT_TRUE(screen.IsGroundBeside(destination));
    }
}

TEST_F(PresentationWithGdiPlus, CopiesAMatteInGrays) {
    CopyImage(StorageOf(matte), {0, 0, 8, 2}, screen.context, {2, 3, 8, 2});
    EXPECT_EQ(screen.Colors({2, 3, 8, 2}), CopiedGrays(matte));
    EXPECT_TRUE(screen.IsGroundBeside({2, 3, 8, 2}));
}

TEST_F(PresentationWithGdiPlus, BlendsDarkGraysLessThanLightOnes) {
    BlendImage(StorageOf(matte), {0, 0, 8, 2}, screen.context, {2, 3, 8, 2});
    Words blended = ValuesOf(matte);
    std::ranges::transform(blended, blended.begin(), BlendedGray);
    EXPECT_EQ(screen.Colors({2, 3, 8, 2}), blended);
    EXPECT_EQ(screen.Colors({2, 3, 1, 1}), Words{kGround});
    EXPECT_EQ(screen.Colors({7, 3, 1, 1}), Words{0xFFFFFF});
}

TEST_F(PresentationWithGdiPlus, EnlargesAMatte) {
    CopyImage(StorageOf(matte), {0, 0, 4, 2}, screen.context, {2, 3, 8, 4});
    const Words grays = CopiedGrays(matte);
    const Words shown = {grays[0], grays[1], grays[2], grays[3], grays[8], grays[9], grays[10], grays[11]};
    EXPECT_EQ(screen.Colors({2, 3, 8, 4}), Enlarged(shown, 4, 2));
}

TEST_F(PresentationWithGdiPlus, ShowsNoMatteWhoseRowsGdiPlusRefuses) {
    for (const std::int32_t width : {1, 2, 3, 5, 6, 7, 9}) {
        TnMatte odd({width, 2});
        SetAll(odd, 255);
        CopyImage(StorageOf(odd), odd.Bounds(), screen.context, {1, 1, width, 2});
        BlendImage(StorageOf(odd), odd.Bounds(), screen.context, {0, 0, 12, 9});
        EXPECT_TRUE(screen.IsGround()) << width;
        EXPECT_EQ(MakeGDIPlusBitmap(StorageOf(odd))->GetLastStatus(), Gdiplus::InvalidParameter) << width;
    }
}

TEST_F(PresentationWithGdiPlus, ShowsNoMask) {
    for (std::int32_t width = 1; width <= 24; ++width) {
        TnMask mask({width, 2});
        auto* const storage = dynamic_cast<WinBitMapHelper*>(mask.Storage());
        ASSERT_NE(storage, nullptr);
        std::memset(storage->BaseAddr(), 255, storage->ByteSize());
        CopyImage(storage, {0, 0, 1, 2}, screen.context, {1, 1, 1, 2});
        EXPECT_TRUE(screen.IsGround()) << width;
    }
}

TEST_F(PresentationWithGdiPlus, ShowsNothingInNoPixels) {
    for (const TnRect& destination : {TnRect{1, 1, 0, 0}, TnRect{1, 1, 3, 0}, TnRect{1, 1, 0, 2}, TnRect{1, 1, 9, 0}}) {
        CopyImage(GetWinBitMapHelper(image), kAll, screen.context, destination);
        BlendImage(GetWinBitMapHelper(image), kAll, screen.context, destination);
    }
    EXPECT_TRUE(screen.IsGround());
}

TEST_F(PresentationWithGdiPlus, ShowsNothingBesideTheScreen) {
    CopyImage(GetWinBitMapHelper(image), kAll, screen.context, {12, 0, 3, 2});
    CopyImage(GetWinBitMapHelper(image), kAll, screen.context, {-6, -4, 6, 4});
    EXPECT_TRUE(screen.IsGround());
    CopyImage(GetWinBitMapHelper(image), kAll, screen.context, {-1, -1, 3, 2});
    EXPECT_EQ(screen.Colors({0, 0, 2, 1}), (Words{kCopied[4], kCopied[5]}));
    EXPECT_TRUE(screen.IsGroundBeside({0, 0, 2, 1}));
}

TEST_F(PresentationWithGdiPlus, ShowsNothingWithoutStorageOrDeviceContext) {
    CDC none;
    EXPECT_NO_THROW(CopyImage(nullptr, kAll, screen.context, kAll));
    EXPECT_NO_THROW(BlendImage(GetWinBitMapHelper(TnImage()), kAll, screen.context, kAll));
    EXPECT_NO_THROW(CopyImage(GetWinBitMapHelper(image), kAll, none, kAll));
    EXPECT_TRUE(screen.IsGround());
}

TEST_F(PresentationWithGdiPlus, ShowsStorageThatTheHostMade) {
    auto* const storage = new WinBitMapHelper({3, 2}, 32, true);
    const TnImage over(storage, {3, 2});
    EXPECT_EQ(GetWinBitMapHelper(over), storage);
    CopyImage(storage, kAll, screen.context, kAll);
    EXPECT_EQ(screen.Colors(kAll), Words(6, 0));
}

TEST_F(PresentationWithGdiPlus, HasNoStorageOfTheHostsOwnKindToShow) {
    StorageProbe probe;
    EXPECT_EQ(GetWinBitMapHelper(TnImage(new RecordingStorage(probe, 24, 3), {4, 3})), nullptr);
}

std::size_t BlocksOf(HANDLE heap) {
    std::size_t blocks = 0;
    PROCESS_HEAP_ENTRY entry = {};
    HeapLock(heap);
    while (HeapWalk(heap, &entry) != FALSE) {
        blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? 1U : 0U;
    }
    HeapUnlock(heap);
    return blocks;
}

// The blocks of memory that are in use in this process.
std::size_t LiveBlocks() {
    std::array<HANDLE, 100> heaps = {};
    const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    EXPECT_LE(count, heaps.size());
    std::size_t blocks = 0;
    for (std::size_t i = 0; i < std::min<std::size_t>(count, heaps.size()); ++i) {
        blocks += BlocksOf(heaps[i]);
    }
    return blocks;
}

// More often than a process can have handles.
TEST_F(PresentationWithGdiPlus, LeavesNothingBehind) {
    const auto show = [this](int times) {
        for (int i = 0; i < times; ++i) {
            CopyImage(GetWinBitMapHelper(image), {0, 0, 1, 1}, screen.context, {0, 0, 1, 1});
            BlendImage(StorageOf(matte), {0, 0, 1, 1}, screen.context, {1, 0, 1, 1});
        }
    };
    show(1000);
    const std::size_t before = LiveBlocks();
    show(35000);
    EXPECT_LT(LiveBlocks(), before + 1000);
    screen.Clear(kGround);
    CopyImage(GetWinBitMapHelper(image), kAll, screen.context, {4, 3, 3, 2});
    BlendImage(StorageOf(matte), {5, 0, 1, 1}, screen.context, {0, 0, 2, 2});
    EXPECT_EQ(screen.Colors({4, 3, 3, 2}), kCopied);
    EXPECT_EQ(screen.Colors({0, 0, 2, 2}), Words(4, 0xFFFFFF));
}

// Bitmaps for the host's own use

TEST_F(PresentationWithGdiPlus, GivesABitmapOverThePixelsOfAnImage) {
    const std::unique_ptr<Gdiplus::Bitmap> bitmap = MakeGDIPlusBitmap(GetWinBitMapHelper(image));
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(bitmap->GetLastStatus(), Gdiplus::Ok);
    EXPECT_EQ(bitmap->GetWidth(), 3U);
    EXPECT_EQ(bitmap->GetHeight(), 2U);
    EXPECT_EQ(bitmap->GetPixelFormat(), 0x26200A);
    PixelAt(image, 2, 1) = 0x80102030;
    Gdiplus::Color color;
    EXPECT_EQ(bitmap->GetPixel(2, 1, &color), Gdiplus::Ok);
    EXPECT_EQ(color.GetValue(), 0x80102030U);
    EXPECT_EQ(bitmap->SetPixel(0, 1, Gdiplus::Color(0x40, 1, 2, 3)), Gdiplus::Ok);
    EXPECT_EQ(PixelAt(image, 0, 1), TnImagePixel(0x40010203));
}

TEST_F(PresentationWithGdiPlus, GivesABitmapOverThePixelsOfAMatte) {
    const std::unique_ptr<Gdiplus::Bitmap> bitmap = MakeGDIPlusBitmap(StorageOf(matte));
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(bitmap->GetLastStatus(), Gdiplus::Ok);
    EXPECT_EQ(bitmap->GetWidth(), 8U);
    EXPECT_EQ(bitmap->GetHeight(), 2U);
    EXPECT_EQ(bitmap->GetPixelFormat(), 0x30803);
    PixelAt(matte, 7, 1) = 0x7B;
    Gdiplus::Color color;
    EXPECT_EQ(bitmap->GetPixel(7, 1, &color), Gdiplus::Ok);
    EXPECT_EQ(color.GetValue(), 0x7B7B7B7BU);
}

} // namespace
} // namespace tn::test
