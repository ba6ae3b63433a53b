// Questions about alphas and content, answered pixel by pixel, and the polls on the way to the answer.
#pragma once

#include "tests/models/ModelPicture.h"
#include "tests/models/PollModels.h"
#include "tests/models/SamplingModels.h"

#include "TnGraphics/port/TnColor.h"

#include <cstdint>
#include <functional>

namespace tn::test::model {

/// What an operation finds, and how often each of its surfaces is polled meanwhile.
template <class Value> struct Answer {
    Value value;
    int polls;
};

/// Whether a position of the content frame holds content.
using IsContent = std::function<bool(int x, int y)>;

inline IsContent ContentOfImage(const ModelImage& image) {
    return [&image](int x, int y) { return image.At(x, y) >= 0x01000000; };
}

inline IsContent ContentOfMatte(const ModelMatte& matte, std::uint8_t background) {
    return [&matte, background](int x, int y) { return matte.At(x, y) != background; };
}

Answer<bool> HasAlpha(const ModelImage& image);

/// The four scans for the content of a rectangle, one pixel after the other.
Answer<TnRect> ContentArea(const TnPoint& size, const TnRect& rect, const IsContent& isContent);

/// The extent of all content in a rectangle, found by looking everywhere; {0, 0, 0, 0} without content.
TnRect ExtentOfContent(const TnPoint& size, const TnRect& rect, const IsContent& isContent);

/// Whether a pixel of the square around a point is visible. The reads need no polls.
bool HasHit(const ReadSurface& surface, const TnPoint& point, int radius);

/// The luma of a pixel in percent.
int LevelOf(std::uint32_t pixel);

Answer<int> RepresentativeBrightness(const ModelImage& image);

struct Inspection {
    bool hasColor = false;
    bool hasAlpha = false;

    friend bool operator==(const Inspection&, const Inspection&) = default;
};

Answer<Inspection> Inspect(const ModelImage& image, const TnRect& rect);

/// Both surfaces are polled that often.
Answer<bool> AreEqual(const ModelImage& a, const ModelImage& b, const TnPoint& at);
Answer<bool> AreEqual(const ModelMatte& a, const ModelMatte& b, const TnPoint& at);

void BuildAlpha(ModelImage& image, const TnColor& key);
void SetAlphaRect(ModelImage& image, const TnRect& rect);
void InvertAlpha(ModelMatte& matte);

/// The walk that looks for alphas, which changes no column, and the one that makes them.
Walks WalksOfBuildingAlpha(const ModelImage& before);

} // namespace tn::test::model
