// Private: the procedures of the component runtime `Kel`, by the interfaces that TnEngines/abi/interfaces.h lists.
#pragma once

#include "TnEngines/abi/kel.h"

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

// The core: interface "Kel"

/// Adds a procedure to an interface, or replaces the one of that name; it is found before the runtime's own. Names are
/// copied. 0 when there is no memory, and for null arguments.
typedef int32_t (*KelRegisterProcAddressType)(const char* interfaceName, const char* procedureName, void* procedure);

/// Keeps a reference to the error as the last one reported; null reports nothing.
typedef void (*KelReportErrorType)(KelError error);

/// Forgets the procedures that were registered for an interface and raises the counter by 1; it wraps. Null changes
/// nothing.
typedef void (*KelUnregisterInterfaceType)(const char* interfaceName);

/// Where the counter of unregistered interfaces is, for as long as the process lives.
typedef const uint32_t* (*KelGetUnregisterCountAddrType)(void);

/// Not 0 when several threads may use the runtime at once.
typedef int32_t (*KelIsMultiThreadedType)(void);

// The base interface

/// The version of the interfaces between runtime and clients.
typedef int32_t (*KelGetInterfaceVersionType)(void);

// The error interface. Null handles are accepted everywhere.

/// A new error with one reference, which is the caller's. Text and component are copied; null is empty. Without memory
/// it is the core error 1.
typedef KelError (*KelNewErrorType)(const char* message, const char* component, int32_t number);

/// An error of the runtime's own that lives as long as the process: 0 is no fault, 1 is exhausted memory. Null for
/// other numbers.
typedef KelError (*KelGetCoreErrorType)(int32_t number);

typedef void (*KelErrorAddReferenceType)(KelError error);
typedef void (*KelErrorReleaseType)(KelError error);

/// The signature of the component that the error is from. It lives with the error.
typedef const char* (*KelErrorGetComponentType)(KelError error);

/// The error's number within its component.
typedef int32_t (*KelErrorGetNumberType)(KelError error);

/// What the error says. It lives with the error.
typedef const char* (*KelErrorGetMessageType)(KelError error);

// The memory interface. Null when there is no memory; a block of no bytes is a block.

typedef void* (*KelAllocateType)(size_t bytes);

/// Moves a block's bytes into one of another size; null in place of a block allocates one. Without memory the block
/// stays.
typedef void* (*KelReallocateType)(void* block, size_t bytes);
typedef void (*KelFreeType)(void* block);

// The container interface

/// Tells a client of containers that come and go.
typedef KelError (*KelContainerCallback)(void* container, int32_t event);

/// Remembers a callback and what it is to be called for, once however often it is registered. Null, or an error.
typedef KelError (*KelRegisterContainerCallbackType)(KelContainerCallback callback, int32_t flag);

/// Forgets a callback for a flag; nothing for one that is not remembered.
typedef KelError (*KelUnregisterContainerCallbackType)(KelContainerCallback callback, int32_t flag);

#ifdef __cplusplus
}
#endif
