#include "TnEngines/kel/Registrations.h"

#include <new>
#include <string>

namespace tn::kel {
namespace {

struct Registration {
    Registration* next;
    std::string interfaceName;
    std::string procedureName;
    void* procedure;
};

// It is never taken down: what the runtime gave away is called until the process ends.
struct State {
    Registration* first = nullptr;
    std::uint32_t unregisterCount = 0;
};
constinit State theState;

Registration* Find(const char* interfaceName, const char* procedureName) {
    for (Registration* registration = theState.first; registration != nullptr; registration = registration->next) {
        if (registration->procedureName == procedureName && registration->interfaceName == interfaceName) {
            return registration;
        }
    }
    return nullptr;
}

bool Add(const char* interfaceName, const char* procedureName, void* procedure) {
    try {
        theState.first = new Registration{theState.first, interfaceName, procedureName, procedure};
        return true;
    } catch (...) {
        return false;
    }
}

void RemoveAllOf(const char* interfaceName) {
    Registration** link = &theState.first;
    while (Registration* const registration = *link) {
        if (registration->interfaceName == interfaceName) {
            *link = registration->next;
            delete registration;
        } else {
            link = &registration->next;
        }
    }
}

} // namespace

std::int32_t Register(const char* interfaceName, const char* procedureName, void* procedure) noexcept {
    if (interfaceName == nullptr || procedureName == nullptr || procedure == nullptr) {
        return 0;
    }
    if (Registration* const registration = Find(interfaceName, procedureName)) {
        registration->procedure = procedure;
        return 1;
    }
    return Add(interfaceName, procedureName, procedure) ? 1 : 0;
}

void UnregisterInterface(const char* interfaceName) noexcept {
    if (interfaceName != nullptr) {
        RemoveAllOf(interfaceName);
        ++theState.unregisterCount;
    }
}

void* FindRegistered(const char* interfaceName, const char* procedureName) noexcept {
    const Registration* const registration = Find(interfaceName, procedureName);
    return registration != nullptr ? registration->procedure : nullptr;
}

const std::uint32_t* GetUnregisterCountAddress() noexcept { return &theState.unregisterCount; }

std::uint32_t& UnregisterCount() noexcept { return theState.unregisterCount; }

} // namespace tn::kel
