// Private: the colour engine `Huex`: how it is started and stopped.
#pragma once

#include "TnEngines/abi/kel.h"

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Not 0 when it is started; 0 for a null procedure.
///
/// \param reserved 0
uint32_t HuexStartup(KelGetAddressProc getAddress, uint32_t reserved);

/// May be called at any time, any number of times.
void HuexShutdown(void);

#ifdef __cplusplus
}
#endif
