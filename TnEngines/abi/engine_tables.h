// Private: how the runtime finds the procedures of the engines that stand behind it.
#pragma once

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/// A procedure of an engine. It may be looked up at any time and checks by itself whether its engine is started.
typedef struct EngineProcedure {
    const char* interfaceName;
    const char* procedureName;
    void* (*procedure)(void); ///< Gives its address, which is no constant before the engine is loaded.
} EngineProcedure;

/// All procedures of an engine; they live as long as the process.
const EngineProcedure* HuexProcedures(size_t* count);
const EngineProcedure* VecProcedures(size_t* count);

#ifdef __cplusplus
}
#endif
