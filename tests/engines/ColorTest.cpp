#include "tests/engines/Runtime.h"
#include "tests/support/AllocationFailure.h"

#include "TnEngines/abi/huex.h"
#include "TnEngines/abi/huex_procedures.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace tn::test {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

using AlphaRgb = std::array<int, 4>;
using GrayAlpha = std::array<int, 2>;

class HuexColors : public testing::Test {
protected:
    HuexColors() { HuexStartup(KelStartup(0), 0); }
    ~HuexColors() override {
        HuexShutdown();
        EXPECT_EQ(LiveAllocations(), before_) << "a colour is still alive";
    }

    template <class Type> static Type At(abi::Color place) {
        return Procedure<Type>(abi::kColorInterface, abi::kColorProcedures, place);
    }

    HuexColor Gray(float value) { return new_(kHuexGray, &value, 1); }

    HuexColor Color(const std::array<float, 4>& alphaRgb) { return new_(kHuexAlphaRgb, alphaRgb.data(), 4); }

    AlphaRgb AlphaRgbOf(HuexColor color) {
        std::uint8_t bytes[4] = {};
        getAlphaRgb_(color, bytes);
        release_(color);
        return {bytes[0], bytes[1], bytes[2], bytes[3]};
    }

    GrayAlpha GrayAlphaOf(HuexColor color) {
        std::uint8_t bytes[2] = {};
        getGrayAlpha_(color, bytes);
        release_(color);
        return {bytes[0], bytes[1]};
    }

    std::int64_t before_ = LiveAllocations();
    HuexNewColorType new_ = At<HuexNewColorType>(abi::Color::kNewColor);
    HuexColorAddReferenceType addReference_ = At<HuexColorAddReferenceType>(abi::Color::kAddReference);
    HuexColorReleaseType release_ = At<HuexColorReleaseType>(abi::Color::kRelease);
    HuexColorGetSpaceType getSpace_ = At<HuexColorGetSpaceType>(abi::Color::kGetSpace);
    HuexColorGetComponentsType getComponents_ = At<HuexColorGetComponentsType>(abi::Color::kGetComponents);
    HuexColorGetAlphaRgbBytesType getAlphaRgb_ = At<HuexColorGetAlphaRgbBytesType>(abi::Color::kGetAlphaRgbBytes);
    HuexColorGetGrayAlphaBytesType getGrayAlpha_ = At<HuexColorGetGrayAlphaBytesType>(abi::Color::kGetGrayAlphaBytes);
};

TEST_F(HuexColors, HaveTheirSpaceAndComponents) {
    float components[4] = {9, 9, 9, 9};
    const HuexColor gray = Gray(0.25F);
    EXPECT_EQ(getSpace_(gray), kHuexGray);
    EXPECT_EQ(getComponents_(gray, components), 1);
    EXPECT_EQ(std::vector<float>(components, components + 4), (std::vector<float>{0.25F, 9, 9, 9}));
    release_(gray);
    const HuexColor color = Color({0.5F, 0.25F, 0.125F, 1});
    EXPECT_EQ(getSpace_(color), kHuexAlphaRgb);
    EXPECT_EQ(getComponents_(color, components), 4);
    EXPECT_EQ(std::vector<float>(components, components + 4), (std::vector<float>{0.5F, 0.25F, 0.125F, 1}));
    release_(color);
}

TEST_F(HuexColors, KeepComponentsOutsideTheirRangeAsGiven) {
    float components[4] = {};
    const HuexColor color = Color({-1, kNaN, kInfinity, 2});
    getComponents_(color, components);
    release_(color);
    EXPECT_EQ(components[0], -1.0F);
    EXPECT_TRUE(std::isnan(components[1]));
    EXPECT_EQ(components[2], kInfinity);
    EXPECT_EQ(components[3], 2.0F);
}

TEST_F(HuexColors, CopyTheirComponents) {
    std::array<float, 4> components = {1, 0, 0, 0};
    const HuexColor color = new_(kHuexAlphaRgb, components.data(), 4);
    components = {0, 1, 1, 1};
    EXPECT_EQ(AlphaRgbOf(color), (AlphaRgb{255, 0, 0, 0}));
}

TEST_F(HuexColors, AreCounted) {
    const HuexColor color = Gray(1);
    addReference_(color);
    release_(color);
    EXPECT_EQ(LiveAllocations(), before_ + 1);
    EXPECT_EQ(getSpace_(color), kHuexGray);
    release_(color);
    EXPECT_EQ(LiveAllocations(), before_);
}

TEST_F(HuexColors, OfUnknownSpacesOrOtherNumbersOfComponentsAreNull) {
    const float components[5] = {};
    for (const HuexColorSpace space : {-2, -1, 2, 3, std::numeric_limits<HuexColorSpace>::max()}) {
        for (const std::int32_t count : {0, 1, 4}) {
            EXPECT_EQ(new_(space, components, count), nullptr) << space << ' ' << count;
        }
    }
    for (const std::int32_t count : {-1, 0, 2, 3, 4, 5}) {
        EXPECT_EQ(new_(kHuexGray, components, count), nullptr) << count;
    }
    for (const std::int32_t count : {-4, 0, 1, 3, 5}) {
        EXPECT_EQ(new_(kHuexAlphaRgb, components, count), nullptr) << count;
    }
    EXPECT_EQ(new_(kHuexGray, nullptr, 1), nullptr);
    EXPECT_EQ(new_(kHuexAlphaRgb, nullptr, 4), nullptr);
}

TEST_F(HuexColors, WithoutMemoryAreNull) {
    for (const AllocationFault fault : {AllocationFault::kBadAlloc, AllocationFault::kOther}) {
        const FailAllocation fail(1, fault);
        EXPECT_EQ(Gray(1), nullptr);
        EXPECT_TRUE(fail.HasFailed());
    }
}

TEST_F(HuexColors, AreNotMadeWhileTheEngineIsStopped) {
    HuexShutdown();
    EXPECT_EQ(Gray(1), nullptr);
    HuexStartup(KelStartup(0), 0);
    const HuexColor color = Gray(1);
    EXPECT_NE(color, nullptr);
    release_(color);
}

TEST_F(HuexColors, LiveOnWhenTheEngineIsStopped) {
    const HuexColor color = Color({1, 0, 1, 0});
    HuexShutdown();
    addReference_(color);
    release_(color);
    EXPECT_EQ(getSpace_(color), kHuexAlphaRgb);
    EXPECT_EQ(AlphaRgbOf(color), (AlphaRgb{255, 0, 255, 0}));
}

TEST_F(HuexColors, ThatAreNullDoNothing) {
    float components[4] = {9, 9, 9, 9};
    std::uint8_t bytes[4] = {9, 9, 9, 9};
    addReference_(nullptr);
    release_(nullptr);
    EXPECT_EQ(getSpace_(nullptr), kHuexNoSpace);
    EXPECT_EQ(getComponents_(nullptr, components), 0);
    getAlphaRgb_(nullptr, bytes);
    getGrayAlpha_(nullptr, bytes);
    EXPECT_EQ(components[0], 9.0F);
    EXPECT_EQ(bytes[0], 9);
}

TEST_F(HuexColors, WriteNowhereWhenThereIsNowhere) {
    const HuexColor color = Gray(1);
    EXPECT_EQ(getComponents_(color, nullptr), 0);
    getAlphaRgb_(color, nullptr);
    getGrayAlpha_(color, nullptr);
    release_(color);
}

TEST_F(HuexColors, OfGrayAreEqualPartsAndOpaque) {
    EXPECT_EQ(AlphaRgbOf(Gray(0)), (AlphaRgb{255, 0, 0, 0}));
    EXPECT_EQ(AlphaRgbOf(Gray(1)), (AlphaRgb{255, 255, 255, 255}));
    EXPECT_EQ(AlphaRgbOf(Gray(0.25F)), (AlphaRgb{255, 64, 64, 64})); // 63.75 + 0.5
    EXPECT_EQ(GrayAlphaOf(Gray(0.25F)), (GrayAlpha{64, 255}));
}

TEST_F(HuexColors, KeepAlphaFirst) {
    EXPECT_EQ(AlphaRgbOf(Color({0, 0.25F, 0.5F, 1})), (AlphaRgb{0, 64, 128, 255}));
    EXPECT_EQ(AlphaRgbOf(Color({1, 0.5F, 0.25F, 0})), (AlphaRgb{255, 128, 64, 0}));
}

TEST_F(HuexColors, ComeBackFromBytesUnchanged) {
    for (int value = 0; value <= 255; ++value) {
        const float component = static_cast<float>(value) / 255.0F;
        EXPECT_EQ(AlphaRgbOf(Color({component, component, component, component})),
                  (AlphaRgb{value, value, value, value}));
        EXPECT_EQ(GrayAlphaOf(Gray(component)), (GrayAlpha{value, 255}));
    }
}

TEST_F(HuexColors, RoundHalvesUp) {
    EXPECT_EQ(AlphaRgbOf(Gray(0.5F))[1], 128); // 127.5
    EXPECT_EQ(AlphaRgbOf(Gray(0.5F - 0x1p-24F))[1], 127);
    EXPECT_EQ(AlphaRgbOf(Gray(0x1p-9F))[1], 0);       // 0.498
    EXPECT_EQ(AlphaRgbOf(Gray(1 - 0x1p-9F))[1], 255); // 254.502
    EXPECT_EQ(AlphaRgbOf(Gray(1 - 0x1p-8F))[1], 254); // 254.004
}

TEST_F(HuexColors, AreCutWhereTheyAreOutOfRange) {
    EXPECT_EQ(AlphaRgbOf(Color({2, -1, 1.5F, -0.5F})), (AlphaRgb{255, 0, 255, 0}));
    EXPECT_EQ(AlphaRgbOf(Color({kInfinity, -kInfinity, 1e30F, -1e30F})), (AlphaRgb{255, 0, 255, 0}));
    EXPECT_EQ(AlphaRgbOf(Gray(-0.0F)), (AlphaRgb{255, 0, 0, 0}));
    EXPECT_EQ(AlphaRgbOf(Gray(7)), (AlphaRgb{255, 255, 255, 255}));
    EXPECT_EQ(GrayAlphaOf(Gray(-7)), (GrayAlpha{0, 255}));
}

TEST_F(HuexColors, TakeWhatIsNoNumberAsZero) {
    EXPECT_EQ(AlphaRgbOf(Color({kNaN, 1, -kNaN, 1})), (AlphaRgb{0, 255, 0, 255}));
    EXPECT_EQ(AlphaRgbOf(Gray(kNaN)), (AlphaRgb{255, 0, 0, 0}));
    EXPECT_EQ(GrayAlphaOf(Gray(kNaN)), (GrayAlpha{0, 255}));
    EXPECT_EQ(GrayAlphaOf(Color({kNaN, kNaN, kNaN, kNaN})), (GrayAlpha{0, 0}));
}

TEST_F(HuexColors, BecomeGrayByTheWeightsOfTheirParts) {
    EXPECT_EQ(GrayAlphaOf(Color({1, 1, 0, 0})), (GrayAlpha{76, 255}));        // 255 * 19595 / 65536 = 76.24
    EXPECT_EQ(GrayAlphaOf(Color({1, 0, 1, 0})), (GrayAlpha{150, 255}));       // 255 * 38470 / 65536 = 149.69
    EXPECT_EQ(GrayAlphaOf(Color({1, 0, 0, 1})), (GrayAlpha{29, 255}));        // 255 * 7471 / 65536 = 29.07
    EXPECT_EQ(GrayAlphaOf(Color({1, 0.5F, 0, 0.25F})), (GrayAlpha{45, 255})); // 38.12 + 7.27 = 45.39
    EXPECT_EQ(GrayAlphaOf(Color({1, 1, 1, 1})), (GrayAlpha{255, 255}));
    EXPECT_EQ(GrayAlphaOf(Color({1, 0, 0, 0})), (GrayAlpha{0, 255}));
}

TEST_F(HuexColors, ChangeTheirGrayWhereTheWeightSaysSo) {
    constexpr std::array<double, 3> kWeights = {19595, 38470, 7471};
    for (std::size_t part = 0; part < kWeights.size(); ++part) {
        for (const int gray : {1, 10, 29}) {
            const double edge = (gray - 0.5) * 65536 / (255 * kWeights.at(part));
            std::array<float, 4> components = {1, 0, 0, 0};
            components.at(part + 1) = static_cast<float>(edge * (1 + 1e-6));
            EXPECT_EQ(GrayAlphaOf(Color(components)), (GrayAlpha{gray, 255})) << part;
            components.at(part + 1) = static_cast<float>(edge * (1 - 1e-6));
            EXPECT_EQ(GrayAlphaOf(Color(components)), (GrayAlpha{gray - 1, 255})) << part;
        }
    }
}

TEST_F(HuexColors, OfEqualPartsBecomeThatGray) {
    for (int value = 0; value <= 255; ++value) {
        const float component = static_cast<float>(value) / 255.0F;
        EXPECT_EQ(GrayAlphaOf(Color({1, component, component, component})), (GrayAlpha{value, 255}));
    }
}

TEST_F(HuexColors, KeepTheirAlphaBesideTheGray) {
    EXPECT_EQ(GrayAlphaOf(Color({0.5F, 1, 1, 1})), (GrayAlpha{255, 128}));
    EXPECT_EQ(GrayAlphaOf(Color({0, 1, 1, 1})), (GrayAlpha{255, 0}));
}

TEST_F(HuexColors, AreCutBeforeTheyBecomeGray) {
    EXPECT_EQ(GrayAlphaOf(Color({3, 1, -5, kNaN})), (GrayAlpha{76, 255}));
    EXPECT_EQ(GrayAlphaOf(Color({1, kInfinity, 0, 0})), (GrayAlpha{76, 255}));
}

} // namespace
} // namespace tn::test
