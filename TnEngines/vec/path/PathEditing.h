// Private: paths made from paths.
#pragma once

#include "TnEngines/vec/path/Matrix.h"
#include "TnEngines/vec/path/Path.h"

namespace tn::vec {

/// The path with its curves as lines.
Path Flattened(const Path& path, double flatness);

/// The path with each sub-path from its end to its start.
Path Reversed(const Path& path);

/// The length of all lines and curves, closing lines included, in the user space of an invertible matrix.
double LengthOf(const Path& path, double flatness, const Matrix& matrix);

} // namespace tn::vec
