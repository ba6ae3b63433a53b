#include <TnGraphics/TnGraphics.h>

#include <cstddef>
#include <gtest/gtest.h>
#include <limits>
#include <regex>
#include <stdexcept>
#include <string>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace {

TEST(TnGraphicsMem, StartsTheEnginesForItsLife) {
    {
        const TnGraphicsMem graphics(1 << 20, BasekitFromAscii("en_US"));
        EXPECT_TRUE(graphics.IsVecStarted());
        EXPECT_TRUE(graphics.IsHuexStarted());
    }
    EXPECT_NE(TnGraphicsMem::GetKelGetAddressProc(), nullptr);
}

TEST(TnGraphicsMem, LeadsOtherComponentsToTheRuntime) {
    const TnGraphicsMem graphics(1 << 20, BasekitFromAscii("ja_JP"));
    const KelGetAddressProc getAddress = TnGraphicsMem::GetKelGetAddressProc();
    ASSERT_NE(getAddress, nullptr);
    EXPECT_NE(getAddress("Kel", "KelIsMultiThreaded", "KelIsMultiThreaded"), nullptr);
    EXPECT_EQ(getAddress("Kel", "Nothing", "Nothing"), nullptr);
}

TEST(EngineVersions, AreThreeNumbers) {
    const std::regex threeNumbers("[0-9]+\\.[0-9]+\\.[0-9]+");
    EXPECT_TRUE(std::regex_match(VecVersionString(), threeNumbers)) << VecVersionString();
    EXPECT_TRUE(std::regex_match(GlyphonVersionString(), threeNumbers)) << GlyphonVersionString();
}

TEST(CKelError, IsAStandardExceptionThatMayHaveNoError) {
    try {
        throw CKelError(nullptr);
    } catch (const std::exception& exception) {
        EXPECT_STREQ(exception.what(), "");
    }
}

TEST(Allocator, GivesNullForAnImpossibleSizeAndTakesItBack) {
    Allocator allocator;
    volatile std::size_t size = std::numeric_limits<std::size_t>::max();
    void* const block = allocator.Allocate(size);
    EXPECT_EQ(block, nullptr);
    allocator.Free(block);
}

} // namespace
