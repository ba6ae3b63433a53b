#include "TnEngines/abi/engine_tables.h"

const EngineProcedure* VecProcedures(size_t* count) {
    *count = 0;
    return nullptr;
}
