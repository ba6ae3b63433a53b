#include "tests/ops/compositing/Forms.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/PixelDiff.h"
#include "tests/support/Surfaces.h"

#include <gtest/gtest.h>
#include <new>
#include <vector>

namespace tn::test {
namespace {

constexpr TnPoint kSize = {20, 40};

Request OrdinaryRequest() {
    Request request;
    request.at = {1, 2};
    request.subPixelAt = {{65536 + 32768}, {131072 + 1}};
    request.clip = {0, 0, 18, 35};
    request.opacity = 100;
    request.transform.red = {-256, 255};
    return request;
}

TEST(CompositingAllocation, NothingIsAllocatedButByTnCopyMapColor) {
    ForEachForm([]<class SourceType, class DestinationType>(const Form<SourceType, DestinationType>& form) {
        if (form.combination != kMapColor) {
            const SourceType source(kSize, true);
            DestinationType destination(kSize, true);
            const Request request = OrdinaryRequest();
            const FailAllocation fail(1);
            EXPECT_NO_THROW(form.run(source, destination, request));
            EXPECT_FALSE(fail.HasFailed());
        }
    });
}

using Colors = std::vector<TnImagePixel>;

// Longer lists than any call had before, so that the library's own need room. Of the first, each pixel that is 1
// becomes 2.
std::size_t longest = 100000;

Colors LongerColors(TnImagePixel color) { return Colors(longest += 1000, color); }

class TnCopyMapColorWithoutMemory : public ::testing::Test {
protected:
    TnCopyMapColorWithoutMemory() {
        SetAll(source_, 1);
        SetAll(destination_, 3);
    }

    bool FailsAtAllocation(int nth, const Colors& from, const Colors& to) {
        const FailAllocation fail(nth);
        try {
            TnCopyMapColor(source_, destination_, {0, 0}, from, to);
        } catch (const std::bad_alloc&) {
            EXPECT_TRUE(fail.HasFailed());
            return true;
        }
        EXPECT_FALSE(fail.HasFailed());
        return false;
    }

    void ExpectEverywhere(std::uint32_t value) {
        EXPECT_TRUE(SamePixels(UniformPicture<std::uint32_t>(kSize.x, kSize.y, value), destination_));
        EXPECT_EQ(source_.Clients() + destination_.Clients(), 0U);
    }

    TnImage source_{kSize};
    TnImage destination_{kSize};
};

TEST_F(TnCopyMapColorWithoutMemory, ChangesNothing) {
    int nth = 1;
    while (FailsAtAllocation(nth, LongerColors(1), LongerColors(2))) {
        ExpectEverywhere(3);
        ++nth;
    }
    EXPECT_GT(nth, 2); // both lists needed room
    ExpectEverywhere(2);
}

TEST_F(TnCopyMapColorWithoutMemory, WorksAgainAfterwards) {
    ASSERT_TRUE(FailsAtAllocation(1, LongerColors(1), {2}));
    TnCopyMapColor(source_, destination_, {0, 0}, {1}, {4, 5});
    ExpectEverywhere(4);
    ASSERT_TRUE(FailsAtAllocation(1, {}, LongerColors(2)));
    TnCopyMapColor(source_, destination_, {0, 0}, {}, {6});
    ExpectEverywhere(6);
}

TEST_F(TnCopyMapColorWithoutMemory, NeedsNoneForListsNoLongerThanBefore) {
    TnCopyMapColor(source_, destination_, {0, 0}, Colors(50, 1), Colors(50, 2));
    EXPECT_FALSE(FailsAtAllocation(1, Colors(40, 1), Colors(50, 7)));
    ExpectEverywhere(7);
}

} // namespace
} // namespace tn::test
