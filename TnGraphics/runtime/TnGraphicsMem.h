/// \file
/// Starting and stopping the engines that drawing needs.
#pragma once

#include "TnEngines/abi/basekit.h"
#include "TnEngines/abi/kel.h"
#include "TnGraphics/TnExport.h"

#include <cstdint>

/// Keeps the engines started for as long as it lives: the component runtime, the colour engine, the vector engine and,
/// once in a process, the font engine. A host makes one before it draws and keeps it until it has drawn; surfaces and
/// operations on pixels do not need it.
///
/// It is made and destroyed on one thread, while no other one draws. A second one beside the first starts the engines
/// once more, all but the font engine, which is started by the first one of a process alone; every destructor stops all
/// engines.
class TnGraphicsMem {
public:
    /// Starts the engines. What fails to start is left out: drawing then throws.
    ///
    /// \param size   how many bytes of memory the engines may use; a hint
    /// \param locale "ja_JP" puts Japanese fonts first; only this spelling does
    TN_EXPORT TnGraphicsMem(std::uint64_t size, const BasekitString& locale);
    TnGraphicsMem(const TnGraphicsMem&) = delete;
    TnGraphicsMem& operator=(const TnGraphicsMem&) = delete;

    /// Stops the font engine, the vector engine, the colour engine and the library's binding to the runtime.
    TN_EXPORT ~TnGraphicsMem();

    bool IsVecStarted() const { return vecStarted_; }   ///< True when the vector engine started.
    bool IsHuexStarted() const { return huexStarted_; } ///< True when the colour engine started.

    /// The procedure by which other components of the host find those of the runtime. Null before the first
    /// TnGraphicsMem; it stays when that is destroyed.
    TN_EXPORT static KelGetAddressProc GetKelGetAddressProc();

private:
    bool vecStarted_ = false;
    bool huexStarted_ = false;
};
