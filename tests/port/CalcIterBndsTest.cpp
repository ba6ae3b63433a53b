#include "TnGraphics/port/CalcIterBnds.h"

#include "tests/geometry/PixelSet.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>
#include <limits>

namespace tn::test {
namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();
constexpr TnRect kNothing = {0, 0, 0, 0};
constexpr TnRect kUntouched = {91, 92, 93, 94};
constexpr TnRect kEverywhere = {kSmallest / 2, kSmallest / 2, kLargest, kLargest};

struct Placement {
    TnPoint sourceSize;
    TnPoint destinationSize;
    TnPoint offset;
    TnRect clip = kEverywhere;
};

struct Plan {
    bool something;
    TnRect source = kUntouched;
    TnRect destination = kUntouched;

    friend bool operator==(const Plan&, const Plan&) = default;
};

Plan PlanOf(const Placement& placement) {
    Plan plan = {};
    plan.something = CalcIterBnds(placement.sourceSize, placement.destinationSize, placement.offset, placement.clip,
                                  &plan.source, &plan.destination);
    return plan;
}

TEST(CalcIterBnds, EmptyClipWritesNothing) {
    for (const TnRect clip : {TnRect{0, 0, 0, 5}, {0, 0, 5, 0}, {2, 2, -1, 5}, {2, 2, 5, kSmallest}}) {
        EXPECT_EQ(PlanOf({{4, 4}, {10, 10}, {0, 0}, clip}), (Plan{false, kUntouched, kUntouched}));
    }
}

TEST(CalcIterBnds, NothingPlacedEmptiesTheDestinationAlone) {
    EXPECT_EQ(PlanOf({{4, 4}, {10, 10}, {10, 0}}), (Plan{false, kUntouched, kNothing}));
    EXPECT_EQ(PlanOf({{4, 4}, {10, 10}, {0, -4}}), (Plan{false, kUntouched, kNothing}));
    EXPECT_EQ(PlanOf({{4, 4}, {10, 10}, {0, 0}, {4, 0, 6, 10}}), (Plan{false, kUntouched, kNothing}));
    EXPECT_EQ(PlanOf({{0, 4}, {10, 10}, {0, 0}}), (Plan{false, kUntouched, kNothing}));
    EXPECT_EQ(PlanOf({{4, 4}, {10, -10}, {0, 0}}), (Plan{false, kUntouched, kNothing}));
}

TEST(CalcIterBnds, PlacesTheWholeSourceInside) {
    EXPECT_EQ(PlanOf({{4, 5}, {10, 12}, {3, 2}}), (Plan{true, {0, 0, 4, 5}, {3, 2, 4, 5}}));
}

TEST(CalcIterBnds, CutsTheSourceAtTheLeftAndTop) {
    EXPECT_EQ(PlanOf({{4, 5}, {10, 12}, {-1, -2}}), (Plan{true, {1, 2, 3, 3}, {0, 0, 3, 3}}));
}

TEST(CalcIterBnds, CutsTheSourceAtTheRightAndBottom) {
    EXPECT_EQ(PlanOf({{4, 5}, {10, 12}, {8, 9}}), (Plan{true, {0, 0, 2, 3}, {8, 9, 2, 3}}));
}

TEST(CalcIterBnds, CutsTheSourceAtTheClip) {
    EXPECT_EQ(PlanOf({{8, 8}, {10, 10}, {1, 1}, {3, 4, 2, 3}}), (Plan{true, {2, 3, 2, 3}, {3, 4, 2, 3}}));
    EXPECT_EQ(PlanOf({{8, 8}, {10, 10}, {1, 1}, {-5, -5, 8, 8}}), (Plan{true, {0, 0, 2, 2}, {1, 1, 2, 2}}));
}

TEST(CalcIterBnds, TakesAHugeClipForEverythingFromThere) {
    EXPECT_EQ(PlanOf({{8, 8}, {10, 10}, {1, 1}, {2, 3, kLargest, kLargest}}), (Plan{true, {1, 2, 7, 6}, {2, 3, 7, 6}}));
}

TEST(CalcIterBnds, TakesAHugeSourceForEverythingFromItsOffset) {
    EXPECT_EQ(PlanOf({{kLargest, kLargest}, {10, 10}, {4, 5}}), (Plan{true, {0, 0, 6, 5}, {4, 5, 6, 5}}));
}

TEST(CalcIterBnds, ReachesFarIntoAHugeSource) {
    const Plan plan = PlanOf({{kLargest, kLargest}, {10, 10}, {kSmallest + 5, -kLargest + 3}});
    EXPECT_EQ(plan, (Plan{true, {kLargest - 4, kLargest - 3, 4, 3}, {0, 0, 4, 3}}));
}

TEST(CalcIterBnds, PlacesNothingAtTheEndsOfTheRange) {
    EXPECT_FALSE(PlanOf({{kLargest, kLargest}, {10, 10}, {kSmallest, 0}}).something);
    EXPECT_FALSE(PlanOf({{kLargest, kLargest}, {kLargest, kLargest}, {0, kLargest}}).something);
    EXPECT_EQ(PlanOf({{9, 9}, {kLargest, kLargest}, {kLargest - 1, 0}, {0, 0, kLargest, kLargest}}),
              (Plan{true, {0, 0, 1, 9}, {kLargest - 1, 0, 1, 9}}));
}

// The plan in the words of pixels: those of the destination that the clip admits and the placed source covers.
class PlacedPixels {
public:
    explicit PlacedPixels(const Placement& placement) : placement_(placement) {}

    bool Covers(const FarPixel& pixel) const {
        const FarPixel inSource = {pixel.x - placement_.offset.x, pixel.y - placement_.offset.y};
        return tn::test::Covers(Whole(placement_.destinationSize), pixel) && tn::test::Covers(placement_.clip, pixel) &&
               tn::test::Covers(Whole(placement_.sourceSize), inSource);
    }

    std::vector<FarPixel> Candidates(const TnRect& result) const {
        const TnRect placed = {placement_.offset.x, placement_.offset.y, placement_.sourceSize.x,
                               placement_.sourceSize.y};
        return PixelsAtEdges({Whole(placement_.destinationSize), placement_.clip, placed, result});
    }

private:
    static TnRect Whole(const TnPoint& size) { return {0, 0, size.x, size.y}; }

    Placement placement_;
};

Placement RandomPlacement(Random& random) {
    const TnRect source = random.Rect({12, 9});
    const TnRect destination = random.Rect({12, 9});
    return {{source.width, source.height},
            {destination.width, destination.height},
            {source.left, source.top},
            random.Rect({12, 9})};
}

TEST(CalcIterBnds, PlansExactlyThePlacedPixels) {
    ForEachCase(20000, [](Random& random) {
        const Placement placement = RandomPlacement(random);
        const Plan plan = PlanOf(placement);
        const TnRect destination = placement.clip.IsEmpty() ? kNothing : plan.destination;
        const PlacedPixels placed(placement);
        bool something = false;
        for (const FarPixel& pixel : placed.Candidates(destination)) {
            ASSERT_EQ(Covers(destination, pixel), placed.Covers(pixel)) << pixel.x << ", " << pixel.y;
            something |= placed.Covers(pixel);
        }
        ASSERT_EQ(plan.something, something);
    });
}

TEST(CalcIterBnds, MovesTheDestinationRectangleIntoTheSource) {
    ForEachCase(20000, [](Random& random) {
        const Placement placement = RandomPlacement(random);
        const Plan plan = PlanOf(placement);
        if (!plan.something) {
            ASSERT_EQ(plan.source, kUntouched);
            ASSERT_EQ(plan.destination, placement.clip.IsEmpty() ? kUntouched : kNothing);
            return;
        }
        ASSERT_EQ(std::int64_t{plan.source.left} + placement.offset.x, plan.destination.left);
        ASSERT_EQ(std::int64_t{plan.source.top} + placement.offset.y, plan.destination.top);
        ASSERT_EQ(plan.source.width, plan.destination.width);
        ASSERT_EQ(plan.source.height, plan.destination.height);
    });
}

} // namespace
} // namespace tn::test
