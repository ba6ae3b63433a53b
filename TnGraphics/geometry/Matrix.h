/// \file
/// The matrix that describes a mapping of the plane.
#pragma once

/// Elements in rows, a plain value; all 0 by default.
///
/// A mapping of the plane is a Matrix<double, 3, 3>. Points are columns: (x, y) is mapped to (x' / w, y' / w) with
///
///     x' = m[0][0] * x + m[0][1] * y + m[0][2]
///     y' = m[1][0] * x + m[1][1] * y + m[1][2]
///     w  = m[2][0] * x + m[2][1] * y + m[2][2]
///
/// so the third column moves, and the bottom row carries the projective terms. Where m[2][0] and m[2][1] are 0 the
/// mapping is affine: it is not divided, and m[2][2] means nothing.
///
/// Products and inverses of matrices are the host's affair.
template <class Element, int rows, int columns> struct Matrix {
    Element m[rows][columns] = {}; ///< The elements: m[row][column].

    /// True when all elements are equal.
    friend constexpr bool operator==(const Matrix&, const Matrix&) = default;
};
