// Every overload of every compositing operation, as data.
#pragma once

#include "tests/ops/compositing/Requests.h"

#include "TnGraphics/ops/Compositing.h"
#include "TnGraphics/ops/Copies.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>

namespace tn::test {

/// Which arguments an overload takes beside the surfaces and the whole offset, and heeds.
struct Heeded {
    bool opacity = false;
    bool transform = false;
    bool clip = false;
    bool subPixel = false; ///< The offset is in 65536ths.
    bool fraction = false; ///< And its fraction counts.
};

inline constexpr Heeded kPlain = {};
inline constexpr Heeded kClip = {.clip = true};
inline constexpr Heeded kOpacity = {.opacity = true};
inline constexpr Heeded kTransform = {.opacity = true, .transform = true, .clip = true};
inline constexpr Heeded kSubPixel = {
    .opacity = true, .transform = true, .clip = true, .subPixel = true, .fraction = true};
inline constexpr Heeded kWholePartOnly = {.opacity = true, .subPixel = true};

template <class SourceType, class DestinationType> struct Form {
    const char* name;
    model::Combination combination;
    Heeded heeded;
    void (*run)(const SourceType& source, DestinationType& destination, const Request& request);

    bool ErasesOutside() const {
        return combination == model::Combination::kIntersect || combination == model::Combination::kIntersectNoColor;
    }

    /// What the model is to do for the request.
    model::Compositing CallFor(const Request& request, const TnPoint& destinationSize) const {
        model::Compositing call;
        call.combination = combination;
        call.erasesOutside = ErasesOutside();
        call.matrix = heeded.transform ? MatrixOf(request.transform) : model::ChannelMatrix{};
        call.opacity = heeded.opacity ? request.opacity : 255;
        call.clip = heeded.clip ? request.clip : TnRect{0, 0, destinationSize.x, destinationSize.y};
        call.x = OffsetFor(request.at.x, request.subPixelAt.x);
        call.y = OffsetFor(request.at.y, request.subPixelAt.y);
        call.map = MapOf(request);
        return call;
    }

    friend void PrintTo(const Form& form, std::ostream* out) { *out << form.name; }

private:
    std::int32_t OffsetFor(std::int32_t whole, TnFixed subPixel) const {
        if (heeded.fraction) {
            return subPixel.raw;
        }
        return model::FixedOffset(heeded.subPixel ? model::FloorOfFixed(subPixel.raw) : whole);
    }
};

using ImageForm = Form<TnImage, TnImage>;
using MatteForm = Form<TnMatte, TnMatte>;
using ImageToMatteForm = Form<TnImage, TnMatte>;
using MatteToImageForm = Form<TnMatte, TnImage>;

using enum model::Combination;

inline constexpr ImageForm kImageForms[] = {
    {"TnCopy", kCopy, kPlain, [](const TnImage& s, TnImage& d, const Request& r) { TnCopy(s, d, r.at); }},
    {"TnCopyInClip", kCopy, kClip, [](const TnImage& s, TnImage& d, const Request& r) { TnCopy(s, d, r.at, r.clip); }},
    {"TnCopyWithTransform", kCopy, kTransform,
     [](const TnImage& s, TnImage& d, const Request& r) { TnCopy(s, r.transform, r.opacity, d, r.at, r.clip); }},
    {"TnCopyColor", kCopyColor, kPlain,
     [](const TnImage& s, TnImage& d, const Request& r) { TnCopyColor(s, d, r.at); }},
    {"CopyLuminenceToAlpha", kLuminanceToAlpha, kPlain,
     [](const TnImage& s, TnImage& d, const Request& r) { CopyLuminenceToAlpha(s, d, r.at); }},
    {"TnCopyMapColor", kMapColor, kPlain,
     [](const TnImage& s, TnImage& d, const Request& r) { TnCopyMapColor(s, d, r.at, r.from, r.to); }},
    {"BlendImage", kBlend, kOpacity,
     [](const TnImage& s, TnImage& d, const Request& r) { BlendImage(s, r.opacity, d, r.at); }},
    {"BlendImageWithTransform", kBlend, kTransform,
     [](const TnImage& s, TnImage& d, const Request& r) { BlendImage(s, r.transform, r.opacity, d, r.at, r.clip); }},
    {"BlendImageSubPixel", kBlend, kSubPixel,
     [](const TnImage& s, TnImage& d, const Request& r) {
         BlendImage(s, r.transform, r.opacity, d, r.subPixelAt, r.clip);
     }},
    {"PreBlendImageAndAlpha", kPreBlend, kOpacity,
     [](const TnImage& s, TnImage& d, const Request& r) { PreBlendImageAndAlpha(s, r.opacity, d, r.at); }},
    {"PreBlendImageAndAlphaWithTransform", kPreBlend, kTransform,
     [](const TnImage& s, TnImage& d, const Request& r) {
         PreBlendImageAndAlpha(s, r.transform, r.opacity, d, r.at, r.clip);
     }},
    {"PreBlendImageAndAlphaSubPixel", kPreBlend, kSubPixel,
     [](const TnImage& s, TnImage& d, const Request& r) {
         PreBlendImageAndAlpha(s, r.transform, r.opacity, d, r.subPixelAt, r.clip);
     }},
    {"IntersectAlpha", kIntersect, kOpacity,
     [](const TnImage& s, TnImage& d, const Request& r) { IntersectAlpha(s, r.opacity, d, r.at); }},
    {"IntersectAlphaWithTransform", kIntersect, kTransform,
     [](const TnImage& s, TnImage& d, const Request& r) {
         IntersectAlpha(s, r.transform, r.opacity, d, r.at, r.clip);
     }},
    {"IntersectAlphaSubPixel", kIntersect, kSubPixel,
     [](const TnImage& s, TnImage& d, const Request& r) {
         IntersectAlpha(s, r.transform, r.opacity, d, r.subPixelAt, r.clip);
     }},
    {"IntersectAlphaNoColor", kIntersectNoColor, kOpacity,
     [](const TnImage& s, TnImage& d, const Request& r) { IntersectAlphaNoColor(s, r.opacity, d, r.at); }},
    {"IntersectAlphaNoColorWithTransform", kIntersectNoColor, kOpacity,
     [](const TnImage& s, TnImage& d, const Request& r) {
         IntersectAlphaNoColor(s, r.transform, r.opacity, d, r.at, r.clip);
     }},
    {"IntersectAlphaNoColorSubPixel", kIntersectNoColor, kWholePartOnly,
     [](const TnImage& s, TnImage& d, const Request& r) {
         IntersectAlphaNoColor(s, r.transform, r.opacity, d, r.subPixelAt, r.clip);
     }},
    {"SubtractAlpha", kSubtract, kOpacity,
     [](const TnImage& s, TnImage& d, const Request& r) { SubtractAlpha(s, r.opacity, d, r.at); }},
    {"SubtractAlphaWithTransform", kSubtract, kTransform,
     [](const TnImage& s, TnImage& d, const Request& r) { SubtractAlpha(s, r.transform, r.opacity, d, r.at, r.clip); }},
    {"SubtractAlphaSubPixel", kSubtract, kSubPixel,
     [](const TnImage& s, TnImage& d, const Request& r) {
         SubtractAlpha(s, r.transform, r.opacity, d, r.subPixelAt, r.clip);
     }},
    {"XORAlpha", kXor, kOpacity,
     [](const TnImage& s, TnImage& d, const Request& r) { XORAlpha(s, r.opacity, d, r.at); }},
    {"XORAlphaWithTransform", kXor, kTransform,
     [](const TnImage& s, TnImage& d, const Request& r) { XORAlpha(s, r.transform, r.opacity, d, r.at, r.clip); }},
    {"XORAlphaSubPixel", kXor, kSubPixel,
     [](const TnImage& s, TnImage& d, const Request& r) {
         XORAlpha(s, r.transform, r.opacity, d, r.subPixelAt, r.clip);
     }},
};

inline constexpr MatteForm kMatteForms[] = {
    {"TnCopy", kCopy, kPlain, [](const TnMatte& s, TnMatte& d, const Request& r) { TnCopy(s, d, r.at); }},
    {"IntersectAlpha", kIntersectNoColor, kOpacity,
     [](const TnMatte& s, TnMatte& d, const Request& r) { IntersectAlpha(s, r.opacity, d, r.at); }},
};

inline constexpr ImageToMatteForm kImageToMatteForms[] = {
    {"TnCopy", kCopyAlpha, kPlain, [](const TnImage& s, TnMatte& d, const Request& r) { TnCopy(s, d, r.at); }},
    {"TnCopyAlpha", kCopyAlpha, kPlain,
     [](const TnImage& s, TnMatte& d, const Request& r) { TnCopyAlpha(s, d, r.at); }},
    {"CopyLuminenceToAlpha", kLuminanceToAlpha, kPlain,
     [](const TnImage& s, TnMatte& d, const Request& r) { CopyLuminenceToAlpha(s, d, r.at); }},
};

inline constexpr MatteToImageForm kMatteToImageForms[] = {
    {"TnCopy", kCopyAlpha, kPlain, [](const TnMatte& s, TnImage& d, const Request& r) { TnCopy(s, d, r.at); }},
    {"TnCopyAlpha", kCopyAlpha, kPlain,
     [](const TnMatte& s, TnImage& d, const Request& r) { TnCopyAlpha(s, d, r.at); }},
    {"CopyAlphaToLuminence", kAlphaToLuminance, kPlain,
     [](const TnMatte& s, TnImage& d, const Request& r) { CopyAlphaToLuminence(s, d, r.at); }},
    {"IntersectAlpha", kIntersectNoColor, kOpacity,
     [](const TnMatte& s, TnImage& d, const Request& r) { IntersectAlpha(s, r.opacity, d, r.at); }},
};

/// The name of a test with a form as parameter.
template <class FormType> std::string FormTestName(const ::testing::TestParamInfo<FormType>& info) {
    return info.param.name;
}

/// Runs the body with each form of each kind of surfaces, until one fails.
template <class Body> void ForEachForm(const Body& body) {
    const auto each = [&](const auto& forms, const char* kinds) {
        for (const auto& form : forms) {
            if (!::testing::Test::HasFailure()) {
                SCOPED_TRACE(std::string(form.name) + ", " + kinds);
                body(form);
            }
        }
    };
    each(kImageForms, "image to image");
    each(kMatteForms, "matte to matte");
    each(kImageToMatteForms, "image to matte");
    each(kMatteToImageForms, "matte to image");
}

} // namespace tn::test
