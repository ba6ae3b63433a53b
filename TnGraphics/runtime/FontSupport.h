// Private: where the font engine finds its files.
#pragma once

#include "TnEngines/abi/kel.h"

#include <cstdint>

namespace tn {

/// Suites of fonts, each in a folder of its own.
inline constexpr int kSuiteR40 = 0;
inline constexpr int kSuiteR50 = 1;

/// Starts the font engine with the folders of a suite, below the one that programs share and below the user's own.
///
/// The first suite chosen in a process is the one for good.
///
/// \param client the client's number for the engine
/// \return what the engine returned; 0 without having asked it for an unknown suite, where the shell does not tell the
///         folders, and where a path would not fit into kPathUnits
std::uint32_t SetUpFontSupport(KelGetAddressProc getAddress, std::uint32_t client, std::uint32_t japanese, int suite);

} // namespace tn
