// Something to measure.
#pragma once

#include <functional>

namespace tn::bench {

/// Repeated by the benchmark. It owns what it works on.
using Work = std::function<void()>;

} // namespace tn::bench
