#include "tests/support/AllocationFailure.h"

#include "TnEngines/abi/basekit.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace tn::test {
namespace {

int Compare(std::u16string_view a, std::u16string_view b) {
    return BasekitCompare(a.data(), a.size(), b.data(), b.size());
}

TEST(BasekitConvertAscii, WidensEveryAsciiCharacter) {
    for (int code = 0; code < 128; ++code) {
        const char ascii = static_cast<char>(code);
        char16_t unit = u'?';
        BasekitConvertAscii(&ascii, 1, &unit);
        EXPECT_EQ(unit, static_cast<char16_t>(code));
    }
}

TEST(BasekitConvertAscii, ReplacesEveryOtherByte) {
    for (int code = 128; code < 256; ++code) {
        const char other = static_cast<char>(static_cast<unsigned char>(code));
        char16_t unit = u'?';
        BasekitConvertAscii(&other, 1, &unit);
        EXPECT_EQ(unit, u'\uFFFD') << code;
    }
}

TEST(BasekitConvertAscii, WritesAsManyUnitsAsThereAreCharacters) {
    char16_t units[] = u"......";
    BasekitConvertAscii("ja_JP", 2, units + 1);
    EXPECT_EQ(std::u16string_view(units), u".ja...");
    BasekitConvertAscii("ja_JP", 0, units);
    BasekitConvertAscii(nullptr, 0, units);
    EXPECT_EQ(std::u16string_view(units), u".ja...");
}

TEST(BasekitFromAscii, GivesTheTextAsUtf16) {
    EXPECT_TRUE(BasekitFromAscii("ja_JP") == u"ja_JP");
    EXPECT_TRUE(BasekitFromAscii("").empty());
    EXPECT_TRUE(BasekitFromAscii({}).empty());
    EXPECT_EQ(BasekitFromAscii(std::string_view("a\0b", 3)).size(), 3U);
    EXPECT_TRUE(BasekitFromAscii(std::string(1000, 'x')) == BasekitString(1000, u'x'));
}

TEST(BasekitCompare, OrdersByCodeUnits) {
    EXPECT_EQ(Compare(u"ja_JP", u"ja_JP"), 0);
    EXPECT_LT(Compare(u"ja_JP", u"ja_jp"), 0);
    EXPECT_GT(Compare(u"ja_jp", u"ja_JP"), 0);
    EXPECT_LT(Compare(u"a", u"\u3042"), 0);
    EXPECT_GT(Compare(u"\uFFFD", u"\u0001"), 0) << "units are unsigned";
    EXPECT_LT(Compare(u"\U00010000", u"\uFFFD"), 0) << "by units, not by characters";
    EXPECT_LT(Compare(u"\u00FF", u"\u0100"), 0) << "by units, not by their bytes";
}

TEST(BasekitCompare, PutsTheShorterOfTwoEqualBeginningsFirst) {
    EXPECT_LT(Compare(u"ja", u"ja_JP"), 0);
    EXPECT_GT(Compare(u"ja_JP.UTF-8", u"ja_JP"), 0);
    EXPECT_LT(Compare(u"", u"j"), 0);
    EXPECT_EQ(Compare(u"", u""), 0);
    EXPECT_EQ(BasekitCompare(nullptr, 0, nullptr, 0), 0);
    EXPECT_LT(BasekitCompare(nullptr, 0, u"j", 1), 0);
    EXPECT_GT(BasekitCompare(u"j", 1, nullptr, 0), 0);
}

TEST(BasekitCompare, LooksBehindZeroes) {
    using namespace std::string_view_literals;
    EXPECT_LT(Compare(u"a\0b"sv, u"a\0c"sv), 0);
    EXPECT_GT(Compare(u"a\0"sv, u"a"sv), 0);
}

TEST(BasekitString, IsCopiedMovedAndLengthened) {
    BasekitString text = BasekitFromAscii("a text that does not fit into the string object");
    const BasekitString copy = text;
    text += u" at all";
    EXPECT_TRUE(text == copy + u" at all");
    BasekitString moved = std::move(text);
    EXPECT_TRUE(moved == copy + u" at all");
    moved = copy;
    EXPECT_TRUE(moved == copy);
}

TEST(BasekitString, GivesItsMemoryBack) {
    const std::int64_t before = LiveAllocations();
    for (std::size_t length = 0; length < 1000; length += 7) {
        BasekitString text(length, u'x');
        text.append(500, u'y');
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(BasekitString, WithoutMemoryThrowsBadAllocation) {
    const FailAllocation fail(1);
    try {
        const BasekitString text(1000, u'x');
        ADD_FAILURE();
    } catch (const std::bad_alloc& exception) {
        EXPECT_STREQ(exception.what(), "bad allocation");
    }
    EXPECT_TRUE(fail.HasFailed());
}

TEST(BasekitString, WithoutMemoryStaysAsItIs) {
    BasekitString text(1000, u'x');
    const FailAllocation fail(1);
    EXPECT_THROW(text.append(1000, u'y'), std::bad_alloc);
    EXPECT_TRUE(text == BasekitString(1000, u'x'));
}

TEST(BasekitBlockAllocator, HasNoBlocksOfImpossibleSizes) {
    BasekitBlockAllocator<char16_t> allocator;
    constexpr std::size_t kLargest = std::numeric_limits<std::size_t>::max();
    for (const std::size_t count : {kLargest, kLargest / 2 + 1, kLargest / 2}) {
        EXPECT_THROW((void)allocator.allocate(count), BasekitBadAlloc) << count;
    }
}

TEST(BasekitBlockAllocator, EqualsEveryOther) {
    const BasekitBlockAllocator<char16_t> one;
    const BasekitBlockAllocator<int> other(one);
    EXPECT_TRUE(one == other);
    EXPECT_FALSE(one != other);
}

} // namespace
} // namespace tn::test
