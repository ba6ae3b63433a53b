// Numbered random cases, each of which can be run again alone.
#pragma once

#include "tests/support/Random.h"

#include <cstdint>
#include <functional>

namespace tn::test {

/// Runs the body on count random cases and stops after the first that fails.
///
/// A failure tells the case's number. Environment:
///   TN_CASE=number  runs that case alone
///   TN_SEED=number  takes the place of the fixed seed from which the numbers are derived
///   TN_TRACE        prints each case's number before it runs, to find one that ends the process
///   TN_SOAK         runs 50 times as many cases, from a fresh seed that is printed unless TN_SEED gives one
void ForEachCase(int count, const std::function<void(Random& random)>& body);

/// True in long runs, where tests that are exhaustive beyond what an ordinary run has time for are so.
bool IsSoaking();

/// True where there is time for every value of a large space: in optimised builds, and in long runs.
bool HasTimeForEveryValue();

/// The seed from which the cases of this run are derived.
std::uint64_t BaseSeed();

} // namespace tn::test
