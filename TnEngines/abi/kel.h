/// \file
/// The component runtime `Kel`: how it is entered, and the types that cross it.
///
/// Its one entry gives the procedure by which every other procedure of the runtime and of the engines is reached. All
/// texts are zero-terminated strings of 8-bit characters.
#pragma once

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Finds a procedure of an interface: null when the interface has none of that name, or for a null name.
///
/// The method's name is the procedure's place in the interface's table; which procedure it is, its own name decides.
typedef void* (*KelGetAddressProc)(const char* interfaceName, const char* methodName, const char* procedureName);

/// An error of the runtime or of an engine, reached through the runtime's procedures alone. References to it are
/// counted. A null handle is no error.
typedef struct KelErrorObject* KelError;

/// Starts the runtime, unless it is started. Never null afterwards.
///
/// \param budget how many bytes of memory the host would like to be used at most; the runtime may not care
KelGetAddressProc KelStartup(uint64_t budget);

#ifdef __cplusplus
}
#endif
