#include "TnEngines/kel/Errors.h"

#include "TnEngines/abi/kel_procedures.h"
#include "TnEngines/abi/procedure_table.h"
#include "TnEngines/kel/Interfaces.h"

#include <cstddef>
#include <new>
#include <string>

struct KelErrorObject {
    const char* message;
    const char* component;
    std::int32_t number;
    bool isCore;
};

namespace tn::kel {
namespace {

constexpr const char* kEmpty = "";

// They stand ready because whoever reports exhausted memory cannot allocate.
constinit KelErrorObject theCoreErrors[] = {
    {"no fault", abi::kCoreComponent, 0, true},
    {"out of memory", abi::kCoreComponent, abi::kOutOfMemory, true},
};

const char* TextOrEmpty(const char* text) { return text != nullptr ? text : kEmpty; }

struct MadeError : KelErrorObject {
    MadeError(const char* givenMessage, const char* givenComponent, std::int32_t givenNumber)
        : KelErrorObject{}, messageCopy(givenMessage), componentCopy(givenComponent) {
        message = messageCopy.c_str();
        component = componentCopy.c_str();
        number = givenNumber;
    }

    std::string messageCopy;
    std::string componentCopy;
    std::size_t references = 1;
};

// Null for core errors, whose references nobody counts.
MadeError* MadeOrNull(KelError error) {
    return error != nullptr && !error->isCore ? static_cast<MadeError*>(error) : nullptr;
}

const char* GetComponent(KelError error) noexcept { return error != nullptr ? error->component : kEmpty; }

std::int32_t GetNumber(KelError error) noexcept { return error != nullptr ? error->number : 0; }

const char* GetMessageText(KelError error) noexcept { return error != nullptr ? error->message : kEmpty; }

constexpr auto kTable = abi::MakeProcedureTable(
    abi::kErrorInterface, abi::kErrorProcedures,
    {&abi::AddressOf<KelNewErrorType, &NewError>, &abi::AddressOf<KelGetCoreErrorType, &CoreError>,
     &abi::AddressOf<KelErrorAddReferenceType, &AddReference>, &abi::AddressOf<KelErrorReleaseType, &Release>,
     &abi::AddressOf<KelErrorGetComponentType, &GetComponent>, &abi::AddressOf<KelErrorGetNumberType, &GetNumber>,
     &abi::AddressOf<KelErrorGetMessageType, &GetMessageText>});

} // namespace

KelError NewError(const char* message, const char* component, std::int32_t number) noexcept {
    try {
        return new MadeError(TextOrEmpty(message), TextOrEmpty(component), number);
    } catch (...) {
        return CoreError(abi::kOutOfMemory);
    }
}

KelError CoreError(std::int32_t number) noexcept {
    for (KelErrorObject& error : theCoreErrors) {
        if (error.number == number) {
            return &error;
        }
    }
    return nullptr;
}

void AddReference(KelError error) noexcept {
    if (MadeError* const made = MadeOrNull(error)) {
        ++made->references;
    }
}

void Release(KelError error) noexcept {
    MadeError* const made = MadeOrNull(error);
    if (made != nullptr && --made->references == 0) {
        delete made;
    }
}

Table ErrorInterface() { return kTable; }

} // namespace tn::kel
