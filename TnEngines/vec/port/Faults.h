// Private: what a port reports to its client.
#pragma once

#include "TnEngines/abi/kel.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tn::vec {

/// The numbers of the engine's own errors.
enum class Fault : std::int32_t {
    kStopped = 1,    ///< The engine is not started.
    kTarget,         ///< The bitmap is none that can be painted into.
    kNoCurrentPoint, ///< A line or a curve begins nowhere.
    kPoint,          ///< A coordinate is no number.
    kLineWidth,      ///< The width is no number, or infinite.
    kUnexpected      ///< Something else went wrong.
};
inline constexpr auto kFaults = static_cast<std::size_t>(Fault::kUnexpected);

/// A new error with one reference, which is the caller's. Null without a runtime that makes errors.
KelError NewErrorOf(Fault fault);

/// The runtime's own error, which needs no memory and no reference.
KelError ExhaustedMemory();

void ReleaseError(KelError error);

/// The errors of a port, which lend themselves to its client until the port is released.
class Faults {
public:
    Faults() = default;
    ~Faults();
    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;

    KelError Record(Fault fault);
    KelError RecordExhaustedMemory() { return last_ = ExhaustedMemory(); }

    /// Records what is being caught.
    KelError RecordCaught() noexcept;

    /// The last that was recorded, or null.
    KelError Last() const { return last_; }

private:
    std::array<KelError, kFaults> made_ = {}; // each once
    KelError last_ = nullptr;
};

} // namespace tn::vec
