#include "TnEngines/kel/GetAddress.h"

#include "TnEngines/kel/Interfaces.h"
#include "TnEngines/kel/Registrations.h"
#include "TnEngines/kel/TestHooks.h"

#include <cstring>

namespace tn::kel {
namespace {

using EngineProcedures = const EngineProcedure* (*)(std::size_t*);

Table TableOf(EngineProcedures procedures) {
    std::size_t count = 0;
    const EngineProcedure* const first = procedures(&count);
    return {first, count};
}

void* FindIn(Table table, const char* interfaceName, const char* procedureName) {
    for (const EngineProcedure& entry : table) {
        if (std::strcmp(entry.procedureName, procedureName) == 0 &&
            std::strcmp(entry.interfaceName, interfaceName) == 0) {
            return entry.procedure();
        }
    }
    return nullptr;
}

void* FindBuiltIn(const char* interfaceName, const char* procedureName) {
    const Table tables[] = {CoreInterface(),      BaseInterface(),          ErrorInterface(),       MemoryInterface(),
                            ContainerInterface(), TableOf(&HuexProcedures), TableOf(&VecProcedures)};
    for (const Table table : tables) {
        if (void* const procedure = FindIn(table, interfaceName, procedureName)) {
            return procedure;
        }
    }
    return nullptr;
}

} // namespace

void* GetAddress(const char* interfaceName, const char*, const char* procedureName) noexcept {
    if (interfaceName == nullptr || procedureName == nullptr || IsHidden(interfaceName, procedureName)) {
        return nullptr;
    }
    void* const registered = FindRegistered(interfaceName, procedureName);
    return registered != nullptr ? registered : FindBuiltIn(interfaceName, procedureName);
}

} // namespace tn::kel
