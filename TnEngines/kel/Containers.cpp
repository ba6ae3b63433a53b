#include "TnEngines/kel/Containers.h"

#include "TnEngines/abi/procedure_table.h"
#include "TnEngines/kel/Errors.h"
#include "TnEngines/kel/Interfaces.h"

#include <new>

namespace tn::kel {
namespace {

struct Entry {
    Entry* next;
    KelContainerCallback callback;
    std::int32_t flag;
};
constinit Entry* theFirst = nullptr;

// The link that leads to the entry, or the last link when there is none.
Entry** Find(KelContainerCallback callback, std::int32_t flag) {
    Entry** link = &theFirst;
    while (*link != nullptr && ((*link)->callback != callback || (*link)->flag != flag)) {
        link = &(*link)->next;
    }
    return link;
}

KelError RegisterCallback(KelContainerCallback callback, std::int32_t flag) noexcept {
    if (callback == nullptr || IsContainerCallback(callback, flag)) {
        return nullptr;
    }
    Entry* const entry = new (std::nothrow) Entry{theFirst, callback, flag};
    if (entry == nullptr) {
        return CoreError(abi::kOutOfMemory);
    }
    theFirst = entry;
    return nullptr;
}

KelError UnregisterCallback(KelContainerCallback callback, std::int32_t flag) noexcept {
    Entry** const link = Find(callback, flag);
    if (Entry* const entry = *link) {
        *link = entry->next;
        delete entry;
    }
    return nullptr;
}

constexpr auto kTable =
    abi::MakeProcedureTable(abi::kContainerInterface, abi::kContainerProcedures,
                            {&abi::AddressOf<KelRegisterContainerCallbackType, &RegisterCallback>,
                             &abi::AddressOf<KelUnregisterContainerCallbackType, &UnregisterCallback>});

} // namespace

bool IsContainerCallback(KelContainerCallback callback, std::int32_t flag) noexcept {
    return *Find(callback, flag) != nullptr;
}

Table ContainerInterface() { return kTable; }

} // namespace tn::kel
