// The procedures of the recording runtime and colour engine.
#include "tests/fakes/RecordingEngines.h"

#include "TnEngines/abi/huex_procedures.h"
#include "TnEngines/abi/interfaces.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>

namespace tn::test {
namespace {

// What a callback given to the runtime is told by.
CallLine::Word WordFor(const void* address) { return {address == nullptr ? "null" : "address"}; }

// The core

std::int32_t RegisterProcAddress(const char* interfaceName, const char* procedure, void* address) {
    RecordingEngines* const engines = RecordingEngines::Current("KelRegisterProcAddress");
    if (engines == nullptr) {
        return 0;
    }
    engines->Note("KelRegisterProcAddress", interfaceName, procedure, WordFor(address));
    engines->Register(interfaceName, procedure, address);
    return 1;
}

void ReportError(KelError error) {
    if (RecordingEngines* const engines = RecordingEngines::Current("KelReportError")) {
        engines->Note("KelReportError", engines->NameOf(error));
        engines->handles.Use("KelReportError", error, HandleKind::kError);
    }
}

void UnregisterInterface(const char* interfaceName) {
    if (RecordingEngines* const engines = RecordingEngines::Current("KelUnregisterInterface")) {
        engines->Note("KelUnregisterInterface", interfaceName);
        engines->Unregister(interfaceName);
    }
}

const std::uint32_t* GetUnregisterCountAddr() {
    RecordingEngines* const engines = RecordingEngines::Current("KelGetUnregisterCountAddr");
    if (engines == nullptr) {
        return nullptr;
    }
    engines->Note("KelGetUnregisterCountAddr");
    return engines->givesCounterAddress ? &RecordingEngines::UnregisterCount() : nullptr;
}

std::int32_t IsMultiThreaded() {
    RecordingEngines* const engines = RecordingEngines::Current("KelIsMultiThreaded");
    if (engines == nullptr) {
        return 0;
    }
    engines->Note("KelIsMultiThreaded");
    return engines->isMultiThreaded;
}

std::int32_t GetInterfaceVersion() {
    RecordingEngines* const engines = RecordingEngines::Current("KelGetInterfaceVersionProc");
    if (engines == nullptr) {
        return 0;
    }
    engines->Note("KelGetInterfaceVersionProc");
    return engines->interfaceVersion;
}

// Errors

KelError NewError(const char* message, const char* component, std::int32_t number) {
    RecordingEngines* const engines = RecordingEngines::Current("KelNewErrorProc");
    if (engines == nullptr) {
        return nullptr;
    }
    engines->Note("KelNewErrorProc", message, CallLine::Word{component == nullptr ? "null" : component}, number);
    switch (engines->errorMaking) {
    case RecordingEngines::ErrorMaking::kMakes:
        return AsError(engines->NewError(message, component, number));
    case RecordingEngines::ErrorMaking::kGivesOutOfMemory: {
        // The reference that a maker gets, so that its release balances here too.
        EngineObject& error = engines->handles.CoreError(1);
        ++error.references;
        return AsError(&error);
    }
    case RecordingEngines::ErrorMaking::kGivesNull:
        break;
    }
    return nullptr;
}

KelError GetCoreError(std::int32_t number) {
    RecordingEngines* const engines = RecordingEngines::Current("KelGetCoreErrorProc");
    if (engines == nullptr) {
        return nullptr;
    }
    engines->Note("KelGetCoreErrorProc", number);
    const bool isThere = engines->givesCoreErrors && (number == 0 || number == 1);
    return isThere ? AsError(&engines->handles.CoreError(number)) : nullptr;
}

void ErrorAddReference(KelError error) {
    if (RecordingEngines* const engines = RecordingEngines::Current("KelErrorAddReferenceProc")) {
        engines->Note("KelErrorAddReferenceProc", engines->NameOf(error));
        engines->handles.AddReference("KelErrorAddReferenceProc", error, HandleKind::kError);
    }
}

void ErrorRelease(KelError error) {
    if (RecordingEngines* const engines = RecordingEngines::Current("KelErrorReleaseProc")) {
        engines->Note("KelErrorReleaseProc", engines->NameOf(error));
        engines->handles.Release("KelErrorReleaseProc", error, HandleKind::kError);
    }
}

EngineObject* NotedError(const char* procedure, KelError error) {
    RecordingEngines* const engines = RecordingEngines::Current(procedure);
    if (engines == nullptr) {
        return nullptr;
    }
    engines->Note(procedure, engines->NameOf(error));
    return engines->handles.Use(procedure, error, HandleKind::kError);
}

const char* ErrorGetComponent(KelError error) {
    const EngineObject* const object = NotedError("KelErrorGetComponentProc", error);
    return object == nullptr ? "" : object->component.c_str();
}

std::int32_t ErrorGetNumber(KelError error) {
    const EngineObject* const object = NotedError("KelErrorGetNumberProc", error);
    return object == nullptr ? 0 : object->number;
}

const char* ErrorGetMessage(KelError error) {
    const EngineObject* const object = NotedError("KelErrorGetMessageProc", error);
    return object == nullptr ? "" : object->message.c_str();
}

// Memory

void* Allocate(std::size_t bytes) {
    RecordingEngines* const engines = RecordingEngines::Current("KelAllocateProc");
    if (engines == nullptr) {
        return nullptr;
    }
    engines->Note("KelAllocateProc", bytes);
    if (!engines->givesMemory) {
        return nullptr;
    }
    ++engines->liveBlocks;
    return std::malloc(std::max<std::size_t>(bytes, 1));
}

void* Reallocate(void* block, std::size_t bytes) {
    RecordingEngines* const engines = RecordingEngines::Current("KelReallocateProc");
    if (engines == nullptr) {
        return nullptr;
    }
    engines->Note("KelReallocateProc", WordFor(block), bytes);
    if (!engines->givesMemory) {
        return nullptr;
    }
    engines->liveBlocks += block == nullptr ? 1 : 0;
    return std::realloc(block, std::max<std::size_t>(bytes, 1));
}

void Free(void* block) {
    if (RecordingEngines* const engines = RecordingEngines::Current("KelFreeProc")) {
        engines->Note("KelFreeProc", WordFor(block));
        engines->liveBlocks -= block == nullptr ? 0 : 1;
        std::free(block);
    }
}

// Containers

KelError RegisterContainerCallback(KelContainerCallback callback, std::int32_t flag) {
    RecordingEngines* const engines = RecordingEngines::Current("KelRegisterContainerCallbackProc");
    if (engines == nullptr) {
        return nullptr;
    }
    engines->Note("KelRegisterContainerCallbackProc", flag);
    EngineObject* const fault = engines->FaultOf("KelRegisterContainerCallbackProc");
    if (fault == nullptr) {
        EXPECT_EQ(engines->containerCallback, nullptr) << "a container callback is registered already";
        engines->containerCallback = callback;
    }
    return engines->Keep(fault);
}

KelError UnregisterContainerCallback(KelContainerCallback callback, std::int32_t flag) {
    RecordingEngines* const engines = RecordingEngines::Current("KelUnregisterContainerCallbackProc");
    if (engines == nullptr) {
        return nullptr;
    }
    engines->Note("KelUnregisterContainerCallbackProc", flag);
    if (engines->containerCallback != nullptr) { // null where it was refused
        EXPECT_EQ(callback, engines->containerCallback) << "another container callback is registered";
    }
    engines->containerCallback = nullptr;
    return engines->Keep(engines->FaultOf("KelUnregisterContainerCallbackProc"));
}

// Colours

std::int32_t ComponentsOf(HuexColorSpace space) { return space == kHuexAlphaRgb ? 4 : space == kHuexGray ? 1 : 0; }

HuexColor NewColor(HuexColorSpace space, const float* components, std::int32_t count) {
    RecordingEngines* const engines = RecordingEngines::Current("HuexNewColorProc");
    if (engines == nullptr) {
        return nullptr;
    }
    if (count == 4) {
        engines->Note("HuexNewColorProc", space, count, components[0], components[1], components[2], components[3]);
    } else if (count == 1) {
        engines->Note("HuexNewColorProc", space, count, components[0]);
    } else {
        engines->Note("HuexNewColorProc", space, count);
    }
    if (!engines->makesColors || count <= 0 || count != ComponentsOf(space)) {
        return nullptr;
    }
    EngineObject& color = engines->handles.Make(HandleKind::kColor);
    color.space = space;
    std::copy_n(components, count, color.colorComponents.begin());
    return AsColor(&color);
}

void ColorAddReference(HuexColor color) {
    if (RecordingEngines* const engines = RecordingEngines::Current("HuexColorAddReferenceProc")) {
        engines->Note("HuexColorAddReferenceProc", engines->NameOf(color));
        engines->handles.AddReference("HuexColorAddReferenceProc", color, HandleKind::kColor);
    }
}

void ColorRelease(HuexColor color) {
    if (RecordingEngines* const engines = RecordingEngines::Current("HuexColorReleaseProc")) {
        engines->Note("HuexColorReleaseProc", engines->NameOf(color));
        engines->handles.Release("HuexColorReleaseProc", color, HandleKind::kColor);
    }
}

const EngineObject* NotedColor(const char* procedure, HuexColor color) {
    RecordingEngines* const engines = RecordingEngines::Current(procedure);
    if (engines == nullptr) {
        return nullptr;
    }
    engines->Note(procedure, engines->NameOf(color));
    return engines->handles.Use(procedure, color, HandleKind::kColor);
}

HuexColorSpace ColorGetSpace(HuexColor color) {
    const EngineObject* const object = NotedColor("HuexColorGetSpaceProc", color);
    return object == nullptr ? 0 : object->space;
}

std::int32_t ColorGetComponents(HuexColor color, float* components) {
    const EngineObject* const object = NotedColor("HuexColorGetComponentsProc", color);
    if (object == nullptr) {
        return 0;
    }
    const std::int32_t count = ComponentsOf(object->space);
    std::copy_n(object->colorComponents.begin(), count, components);
    return count;
}

// Bytes of colours are what engines ask each other for. These paint nothing.
void ColorGetAlphaRgbBytes(HuexColor color, std::uint8_t* alphaRgb) {
    NotedColor("HuexColorGetAlphaRgbBytesProc", color);
    std::fill_n(alphaRgb, 4, std::uint8_t{0});
}

void ColorGetGrayAlphaBytes(HuexColor color, std::uint8_t* grayAlpha) {
    NotedColor("HuexColorGetGrayAlphaBytesProc", color);
    std::fill_n(grayAlpha, 2, std::uint8_t{0});
}

/// An address as the runtime gives it; the type has to be the procedure's own.
template <class Type> void* AddressOf(Type procedure) { return reinterpret_cast<void*>(procedure); }

template <std::size_t count>
void* Among(const char* expectedInterface, const std::array<abi::ProcedureName, count>& names,
            const std::array<void*, count>& addresses, const char* interfaceName, const char* procedure) {
    if (std::strcmp(expectedInterface, interfaceName) != 0) {
        return nullptr;
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (std::strcmp(names[i].procedure, procedure) == 0) {
            return addresses[i];
        }
    }
    return nullptr;
}

} // namespace

void* RuntimeProcedure(const char* interfaceName, const char* procedure) {
    const std::array<void*, abi::kCoreProcedures.size()> core = {
        AddressOf<KelRegisterProcAddressType>(&RegisterProcAddress), AddressOf<KelReportErrorType>(&ReportError),
        AddressOf<KelUnregisterInterfaceType>(&UnregisterInterface),
        AddressOf<KelGetUnregisterCountAddrType>(&GetUnregisterCountAddr),
        AddressOf<KelIsMultiThreadedType>(&IsMultiThreaded)};
    const std::array<void*, abi::kBaseProcedures.size()> base = {
        AddressOf<KelGetInterfaceVersionType>(&GetInterfaceVersion)};
    const std::array<void*, abi::kErrorProcedures.size()> errors = {
        AddressOf<KelNewErrorType>(&NewError),
        AddressOf<KelGetCoreErrorType>(&GetCoreError),
        AddressOf<KelErrorAddReferenceType>(&ErrorAddReference),
        AddressOf<KelErrorReleaseType>(&ErrorRelease),
        AddressOf<KelErrorGetComponentType>(&ErrorGetComponent),
        AddressOf<KelErrorGetNumberType>(&ErrorGetNumber),
        AddressOf<KelErrorGetMessageType>(&ErrorGetMessage)};
    const std::array<void*, abi::kMemoryProcedures.size()> memory = {AddressOf<KelAllocateType>(&Allocate),
                                                                     AddressOf<KelReallocateType>(&Reallocate),
                                                                     AddressOf<KelFreeType>(&Free)};
    const std::array<void*, abi::kContainerProcedures.size()> containers = {
        AddressOf<KelRegisterContainerCallbackType>(&RegisterContainerCallback),
        AddressOf<KelUnregisterContainerCallbackType>(&UnregisterContainerCallback)};
    const std::array<void*, abi::kColorProcedures.size()> colors = {
        AddressOf<HuexNewColorType>(&NewColor),
        AddressOf<HuexColorAddReferenceType>(&ColorAddReference),
        AddressOf<HuexColorReleaseType>(&ColorRelease),
        AddressOf<HuexColorGetSpaceType>(&ColorGetSpace),
        AddressOf<HuexColorGetComponentsType>(&ColorGetComponents),
        AddressOf<HuexColorGetAlphaRgbBytesType>(&ColorGetAlphaRgbBytes),
        AddressOf<HuexColorGetGrayAlphaBytesType>(&ColorGetGrayAlphaBytes)};

    const std::array<void*, 6> found = {
        Among(abi::kKel, abi::kCoreProcedures, core, interfaceName, procedure),
        Among(abi::kBaseInterface, abi::kBaseProcedures, base, interfaceName, procedure),
        Among(abi::kErrorInterface, abi::kErrorProcedures, errors, interfaceName, procedure),
        Among(abi::kMemoryInterface, abi::kMemoryProcedures, memory, interfaceName, procedure),
        Among(abi::kContainerInterface, abi::kContainerProcedures, containers, interfaceName, procedure),
        Among(abi::kColorInterface, abi::kColorProcedures, colors, interfaceName, procedure)};
    const auto first = std::ranges::find_if(found, [](const void* address) { return address != nullptr; });
    return first == found.end() ? nullptr : *first;
}

} // namespace tn::test
