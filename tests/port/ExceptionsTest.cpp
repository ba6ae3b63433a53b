#include "TnGraphics/port/Exceptions.h"

#include "TnGraphics/port/Raise.h"

#include <gtest/gtest.h>
#include <type_traits>

namespace tn::test {
namespace {

static_assert(std::is_base_of_v<std::bad_alloc, bad_alloc_bitmap>);

TEST(Exceptions, ExhaustedBitmapSaysBadAllocation) { EXPECT_STREQ(bad_alloc_bitmap().what(), "bad allocation"); }

TEST(Exceptions, ExhaustedBitmapIsCaughtAsTheStandardException) {
    EXPECT_THROW(RaiseBitmapExhausted(), bad_alloc_bitmap);
    EXPECT_THROW(RaiseBitmapExhausted(), std::bad_alloc);
}

TEST(Exceptions, MissingStorageIsNoExhaustedBitmap) {
    try {
        RaiseBadAllocation();
    } catch (const bad_alloc_bitmap&) {
        FAIL();
    } catch (const std::bad_alloc& exception) {
        EXPECT_STREQ(exception.what(), "bad allocation");
    }
}

} // namespace
} // namespace tn::test
