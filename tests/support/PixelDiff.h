// Comparing pictures and telling where they differ.
#pragma once

#include "tests/models/ModelPicture.h"

#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

#include <gtest/gtest.h>

namespace tn::test {

/// The content of a surface, read through the surface's own interface and without polling its cancel procedure.
ModelImage ContentOf(const TnImage& image);
ModelMatte ContentOf(const TnMatte& matte);

/// Whether the pictures have the same sizes and the same values everywhere, outside their contents too. A failure tells
/// the number of differing pixels and the first of them, with its position in the content's frame.
::testing::AssertionResult SamePixels(const ModelImage& expected, const ModelImage& actual);
::testing::AssertionResult SamePixels(const ModelMatte& expected, const ModelMatte& actual);

/// The same for a surface's content.
::testing::AssertionResult SamePixels(const ModelImage& expected, const TnImage& actual);
::testing::AssertionResult SamePixels(const ModelMatte& expected, const TnMatte& actual);
::testing::AssertionResult SamePixels(const TnImage& expected, const TnImage& actual);
::testing::AssertionResult SamePixels(const TnMatte& expected, const TnMatte& actual);

} // namespace tn::test
