// Matrices for random cases.
#pragma once

#include "tests/models/TransformModels.h"
#include "tests/support/Random.h"

#include "TnGraphics/geometry/TnPoint.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace tn::test {

/// From -1 to 1.
inline double RandomFraction(Random& random) { return random.Between(-1000000, 1000000) / 1000000.0; }

/// What no host means: no numbers, infinities, denormals, and the ends of the ranges of all that follows.
inline double OddElement(Random& random) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr std::array<double, 26> kOdd = {std::numeric_limits<double>::quiet_NaN(),
                                             kInfinity,
                                             -kInfinity,
                                             0.0,
                                             -0.0,
                                             1e300,
                                             -1e300,
                                             1e39,
                                             3e38,
                                             -1e20,
                                             1e10,
                                             -3e9,
                                             2147483648.0,
                                             -2147483649.0,
                                             65536.0,
                                             32768.0,
                                             -32768.0,
                                             32767.99999,
                                             1e-5,
                                             -7.6e-6,
                                             1e-12,
                                             1e-40,
                                             -1e-46,
                                             1e-310,
                                             2.0,
                                             2.0000001};
    return random.OneOf(kOdd);
}

/// Matrices that lead from a destination of one size to a source of another, more or less.
class RandomMatrix {
public:
    RandomMatrix(Random& random, const TnPoint& sourceSize, const TnPoint& size)
        : random_(random), source_(sourceSize), size_(size) {}

    model::Elements Any() {
        model::Elements elements = Useful();
        if (random_.OneIn(10)) {
            elements[Index()] = OddElement(random_);
        }
        if (random_.OneIn(30)) {
            for (double& element : elements) {
                element = random_.OneIn(2) ? OddElement(random_) : RandomFraction(random_) * 10;
            }
        }
        return elements;
    }

private:
    std::size_t Index() { return static_cast<std::size_t>(random_.Between(0, 8)); }

    model::Elements Useful() {
        switch (random_.Between(0, 9)) {
        case 0:
            return Centred(1, 0, 0, 1);
        case 1:
            return Centred(Factor(), 0, 0, Factor());
        case 2:
            return Centred(Factor(), RandomFraction(random_), RandomFraction(random_) / 4, Factor());
        case 3:
            return RightAngles();
        case 4:
        case 5:
            return Rotation();
        case 6:
        case 7:
            return Reduction();
        default:
            return Projection(random_.OneIn(3) ? Rotation() : Centred(Factor(), 0, 0, Factor()));
        }
    }

    // The destination's middle falls near the source's, on whole positions in half of the cases.
    model::Elements Centred(double m00, double m01, double m10, double m11) {
        const double x = size_.x / 2.0;
        const double y = size_.y / 2.0;
        double dx = source_.x / 2.0 - (m00 * x + m01 * y) + RandomFraction(random_) * 3;
        double dy = source_.y / 2.0 - (m10 * x + m11 * y) + RandomFraction(random_) * 3;
        if (random_.OneIn(2)) {
            dx = std::floor(dx);
            dy = std::floor(dy);
        }
        return {m00, m01, dx, m10, m11, dy, 0, 0, random_.OneIn(8) ? 2.0 : 1.0};
    }

    double Factor() {
        constexpr std::array<double, 8> kPlain = {1, -1, 0.5, 0.25, 2, 1.5, -0.5, 0};
        return random_.OneIn(2) ? random_.OneOf(kPlain) : RandomFraction(random_) * 2;
    }

    // Flips and quarter turns.
    model::Elements RightAngles() {
        const double a = random_.OneIn(2) ? 1 : -1;
        const double b = random_.OneIn(2) ? 1 : -1;
        return random_.OneIn(2) ? Centred(a, 0, 0, b) : Centred(0, a, b, 0);
    }

    model::Elements Rotation() {
        const double angle = RandomFraction(random_) * 3.2;
        const double zoom = random_.OneIn(2) ? 1 : 0.2 + std::fabs(RandomFraction(random_)) * 1.8;
        return Centred(zoom * std::cos(angle), -zoom * std::sin(angle), zoom * std::sin(angle), zoom * std::cos(angle));
    }

    // By more than 2 to 1 along one axis at least.
    model::Elements Reduction() {
        const double strong = 2 + std::fabs(RandomFraction(random_)) * (random_.OneIn(4) ? 40 : 5);
        const double other = random_.OneIn(2) ? strong : Factor();
        const double shear = random_.OneIn(2) ? 0 : RandomFraction(random_);
        return random_.OneIn(2) ? Centred(strong, shear, 0, other) : Centred(other, 0, shear, strong);
    }

    // w is 0 at a pixel of the destination in a third of the cases, and changes its sign there.
    model::Elements Projection(model::Elements elements) {
        elements[6] = random_.OneIn(4) ? 0 : RandomFraction(random_) / 50;
        elements[7] = random_.OneIn(4) ? 0 : RandomFraction(random_) / 50;
        elements[8] = 1 + RandomFraction(random_) / 4;
        if (random_.OneIn(3)) {
            elements[6] = random_.Between(-2, 2) / 4.0;
            elements[7] = random_.Between(-2, 2) / 4.0;
            elements[8] = -elements[6] * random_.Between(0, size_.x) - elements[7] * random_.Between(0, size_.y);
        } else if (random_.OneIn(8)) {
            elements[7] = 1e-12;
        }
        return elements;
    }

    Random& random_;
    TnPoint source_;
    TnPoint size_;
};

} // namespace tn::test
