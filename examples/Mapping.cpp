#include "Mapping.h"

Mapping Product(const Mapping& first, const Mapping& second) {
    Mapping product;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            for (int n = 0; n < 3; ++n) {
                product.m[row][column] += first.m[row][n] * second.m[n][column];
            }
        }
    }
    return product;
}

Mapping Inverse(const Mapping& mapping) {
    const auto& m = mapping.m;
    // What remains without a row and a column; counting on past the last ones takes care of the sign.
    const auto cofactor = [&m](int row, int column) {
        const auto at = [&](int down, int right) { return m[(row + down) % 3][(column + right) % 3]; };
        return at(1, 1) * at(2, 2) - at(1, 2) * at(2, 1);
    };
    const double determinant = m[0][0] * cofactor(0, 0) + m[0][1] * cofactor(0, 1) + m[0][2] * cofactor(0, 2);
    Mapping inverse;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            inverse.m[row][column] = cofactor(column, row) / determinant;
        }
    }
    return inverse;
}

Mapping About(const TnFloatPoint& origin, const Mapping& mapping) {
    const Mapping there = MakeMatrix<double>::Translate(origin.x, origin.y);
    const Mapping back = MakeMatrix<double>::Translate(-origin.x, -origin.y);
    return Product(there, Product(mapping, back));
}
