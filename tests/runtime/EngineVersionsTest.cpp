#include "TnGraphics/runtime/EngineVersions.h"

#include "tests/fakes/EngineTest.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <locale>
#include <string>

namespace tn::test {
namespace {

class EngineVersions : public EngineTest {
protected:
    void ExpectText(std::uint32_t packed, const std::string& text) {
        engines.vecVersion = packed;
        engines.glyphonVersion = ~packed;
        EXPECT_EQ(VecVersionString(), text);
        engines.vecVersion = ~packed;
        engines.glyphonVersion = packed;
        EXPECT_EQ(GlyphonVersionString(), text);
    }
};

TEST_F(EngineVersions, AreThreeNumbers) {
    ExpectText(0x41A11, "4.26.17");
    ExpectText(0x10203, "1.2.3");
    ExpectText(0x10A00, "1.10.0");
    ExpectText(0x7FFFFFFF, "32767.255.255");
}

TEST_F(EngineVersions, MayBeNothing) { ExpectText(0, "0.0.0"); }

TEST_F(EngineVersions, LeaveTheHighestBitOut) {
    ExpectText(0x80010203, "1.2.3");
    ExpectText(0x80000000, "0.0.0");
    ExpectText(0xFFFFFFFF, "32767.255.255");
}

TEST_F(EngineVersions, AreAskedForEachTime) {
    VecVersionString();
    engines.vecVersion = 0x20000;
    EXPECT_EQ(VecVersionString(), "2.0.0");
    GlyphonVersionString();
    engines.glyphonVersion = 0x30000;
    EXPECT_EQ(GlyphonVersionString(), "3.0.0");
    EXPECT_EQ(engines.Log(), (Lines{"VecVersion", "VecVersion", "GlyphonVersion", "GlyphonVersion"}));
}

/// Separates every digit.
struct Grouping : std::numpunct<char> {
    char do_thousands_sep() const override { return '\''; }
    std::string do_grouping() const override { return "\1"; }
};

TEST_F(EngineVersions, AreWrittenTheSameInEveryLocale) {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Grouping));
    ExpectText(0x7FFFFFFF, "32767.255.255");
    std::locale::global(before);
}

} // namespace
} // namespace tn::test
