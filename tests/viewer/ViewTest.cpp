#include "examples/viewer/View.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

TEST(View, ShowsASmallPictureAtItsSizeInTheMiddle) {
    View view({100, 50});
    view.Fit({300, 250});
    EXPECT_EQ(view.Zoom(), 1.0);
    const Part part = view.VisiblePart({300, 250});
    EXPECT_EQ(part.picture, (TnRect{0, 0, 100, 50}));
    EXPECT_EQ(part.window, (TnRect{100, 100, 100, 50}));
}

TEST(View, ReducesALargePictureUntilItFits) {
    View view({1000, 1000});
    view.Fit({548, 1048});
    EXPECT_EQ(view.Zoom(), 0.5);
    const Part part = view.VisiblePart({548, 1048});
    EXPECT_EQ(part.picture, (TnRect{0, 0, 1000, 1000}));
    EXPECT_EQ(part.window, (TnRect{24, 274, 500, 500}));
}

TEST(View, KeepsWhatIsUnderTheCursor) {
    View view({100, 100});
    view.Fit({300, 300});
    view.ZoomAt({150, 150}, 4.0);
    const Part part = view.VisiblePart({300, 300});
    EXPECT_EQ(part.picture, (TnRect{12, 12, 76, 76}));
    EXPECT_EQ(part.window, (TnRect{-2, -2, 304, 304}));
}

TEST(View, MovesWithTheHand) {
    View view({100, 100});
    view.Fit({300, 300});
    view.MoveBy(-30, 40);
    EXPECT_EQ(view.VisiblePart({300, 300}).window, (TnRect{70, 140, 100, 100}));
}

TEST(View, ShowsNothingOfAPictureThatWasMovedAway) {
    View view({100, 100});
    view.Fit({300, 300});
    view.MoveBy(1000, 0);
    EXPECT_EQ(view.VisiblePart({300, 300}).picture.width, 0);
    view.MoveBy(-3000, 0);
    EXPECT_EQ(view.VisiblePart({300, 300}).picture.width, 0);
}

TEST(View, ZoomsWithinReason) {
    View view({100, 100});
    view.Fit({300, 300});
    for (int i = 0; i < 1000; ++i) {
        view.ZoomAt({0, 0}, 2.0);
    }
    EXPECT_EQ(view.Zoom(), 64.0);
    for (int i = 0; i < 1000; ++i) {
        view.ZoomAt({0, 0}, 0.5);
    }
    EXPECT_EQ(view.Zoom(), 1.0 / 64.0);
}

} // namespace
} // namespace viewer
