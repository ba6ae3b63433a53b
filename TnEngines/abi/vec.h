// Private: the vector engine `Vec`: how it is started and stopped.
#pragma once

#include "TnEngines/abi/kel.h"

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Not 0 when it is started; 0 for a null procedure.
///
/// \param client    the client's version: 0x41A11
/// \param reserved1 0
/// \param reserved2 0
uint32_t VecStartup(KelGetAddressProc getAddress, uint32_t client, uint32_t reserved1, uint32_t reserved2);

/// May be called at any time, any number of times, also while there are ports: they paint nothing from then on.
void VecShutdown(void);

/// The version, packed: major from bit 16, minor from bit 8, patch. Bit 31 has no meaning.
uint32_t VecVersion(void);

#ifdef __cplusplus
}
#endif
