#include "tests/fakes/RecordingEngines.h"

#include "TnEngines/abi/huex.h"
#include "TnEngines/abi/vec.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tn::test {
namespace {

RecordingEngines* current = nullptr;
std::uint32_t unregisterCount = 0;

void* FindAs(const char* name, const char* interfaceName, const char* method, const char* procedure) {
    RecordingEngines* const engines = RecordingEngines::Current(procedure);
    return engines == nullptr ? nullptr : engines->Find(name, interfaceName, method, procedure);
}

void* FirstGet(const char* interfaceName, const char* method, const char* procedure) {
    return FindAs("get", interfaceName, method, procedure);
}

void* SecondGet(const char* interfaceName, const char* method, const char* procedure) {
    return FindAs("get-2", interfaceName, method, procedure);
}

CallLine::Word WordFor(const char* text) { return {text == nullptr ? "null" : text}; }

CallLine::Word WordFor(KelGetAddressProc getAddress) {
    return {getAddress == nullptr      ? "null"
            : getAddress == &FirstGet  ? "first"
            : getAddress == &SecondGet ? "second"
                                       : "unknown"};
}

std::u16string TextOf(const char16_t* text) { return text == nullptr ? u"null" : text; }

RecordedFontStart Recorded(KelGetAddressProc getAddress, std::uint32_t client, std::uint32_t japanese,
                           const FontSupportParams& params) {
    return {getAddress,
            client,
            japanese,
            params.version,
            TextOf(params.osFontList),
            TextOf(params.commonFontList),
            TextOf(params.fontNamesDatabase),
            TextOf(params.unicodeFolder),
            TextOf(params.cmapsFolder),
            TextOf(params.cmapList),
            params.spare1 == nullptr && params.spare2 == nullptr};
}

} // namespace

RecordingEngines::RecordingEngines() {
    EXPECT_EQ(current, nullptr) << "there are other engines";
    current = this;
    unregisterCount = 0;
}

RecordingEngines::~RecordingEngines() {
    LetAllGo();
    for (const std::string& object : handles.Unbalanced()) {
        ADD_FAILURE() << "references are left to " << object;
    }
    EXPECT_EQ(liveBlocks, 0) << "blocks of memory are left";
    current = nullptr;
}

RecordingEngines* RecordingEngines::Current(const char* entry) {
    if (current == nullptr) {
        ADD_FAILURE() << (entry == nullptr ? "null" : entry) << " is used without engines";
    }
    return current;
}

std::uint32_t& RecordingEngines::UnregisterCount() { return unregisterCount; }

KelGetAddressProc RecordingEngines::FirstGetAddress() { return &FirstGet; }
KelGetAddressProc RecordingEngines::SecondGetAddress() { return &SecondGet; }

std::vector<std::string> RecordingEngines::Log() const { return Lines(true, true); }
std::vector<std::string> RecordingEngines::Lookups() const { return Lines(true, false); }
std::vector<std::string> RecordingEngines::Calls() const { return Lines(false, true); }

std::vector<std::string> RecordingEngines::Lines(bool lookups, bool calls) const {
    std::vector<std::string> lines;
    for (const Line& line : log_) {
        if (line.isLookup ? lookups : calls) {
            lines.emplace_back(line.text);
        }
    }
    return lines;
}

std::size_t RecordingEngines::CountOf(const std::string& line) const {
    return static_cast<std::size_t>(std::ranges::count(Log(), line));
}

void RecordingEngines::AddLine(const CallLine& line, bool isLookup) {
    log_.emplace_back();
    log_.back().text = line.Text();
    log_.back().isLookup = isLookup;
}

bool RecordingEngines::IsHidden(const char* procedure) const {
    return std::ranges::find(hidden_, procedure) != hidden_.end();
}

void RecordingEngines::Offer(const char* interfaceName, const char* procedure, void* address) {
    offered_.insert(offered_.begin(), {interfaceName, procedure, address});
}

void* RecordingEngines::Find(const char* name, const char* interfaceName, const char* method, const char* procedure) {
    if (whenAskedFor) {
        whenAskedFor(procedure);
    }
    AddLine(CallLine(name, WordFor(interfaceName), WordFor(method), WordFor(procedure)), true);
    if (interfaceName == nullptr || procedure == nullptr || IsHidden(procedure)) {
        return nullptr;
    }
    for (const Offered& offered : offered_) {
        if (offered.interfaceName == interfaceName && offered.procedure == procedure) {
            return offered.address;
        }
    }
    void* const address = RuntimeProcedure(interfaceName, procedure);
    return address != nullptr ? address : VecProcedure(interfaceName, procedure);
}

void RecordingEngines::Register(const char* interfaceName, const char* procedure, void* address) {
    Offer(interfaceName, procedure, address);
}

void RecordingEngines::Unregister(const char* interfaceName) {
    std::erase_if(offered_, [&](const Offered& offered) { return offered.interfaceName == interfaceName; });
    ++unregisterCount;
}

void RecordingEngines::Fail(const char* procedure, const char* message, const char* component, std::int32_t number) {
    faults_.push_back({procedure, message, component, number});
}

EngineObject* RecordingEngines::FaultOf(const char* procedure) {
    const auto fault = std::ranges::find(faults_, procedure, &Fault::procedure);
    return fault == faults_.end() ? nullptr : NewError(fault->message.c_str(), fault->component.c_str(), fault->number);
}

EngineObject* RecordingEngines::NewError(const char* message, const char* component, std::int32_t number) {
    EngineObject& error = handles.Make(HandleKind::kError);
    error.message = message == nullptr ? "" : message;
    error.component = component == nullptr ? "" : component;
    error.number = number;
    return &error;
}

KelError RecordingEngines::Keep(EngineObject* error) {
    if (error != nullptr) {
        kept_.push_back(error);
    }
    return AsError(error);
}

KelError RecordingEngines::KeepError(const char* message, const char* component, std::int32_t number) {
    return Keep(NewError(message, component, number));
}

void RecordingEngines::LetGo(KelError error) {
    std::erase(kept_, static_cast<void*>(error));
    handles.Release("the end of an engine's own reference", error, HandleKind::kError);
}

void RecordingEngines::LetAllGo() {
    while (!kept_.empty()) {
        LetGo(AsError(kept_.back()));
    }
}

} // namespace tn::test

using tn::test::RecordingEngines;
using tn::test::WordFor;

KelGetAddressProc KelStartup(std::uint64_t budget) {
    RecordingEngines* const engines = RecordingEngines::Current("KelStartup");
    if (engines == nullptr) {
        return nullptr;
    }
    engines->Note("KelStartup", budget);
    switch (engines->startupGives) {
    case RecordingEngines::GetAddress::kFirst:
        return RecordingEngines::FirstGetAddress();
    case RecordingEngines::GetAddress::kSecond:
        return RecordingEngines::SecondGetAddress();
    case RecordingEngines::GetAddress::kNull:
        break;
    }
    return nullptr;
}

std::uint32_t HuexStartup(KelGetAddressProc getAddress, std::uint32_t reserved) {
    RecordingEngines* const engines = RecordingEngines::Current("HuexStartup");
    if (engines == nullptr) {
        return 0;
    }
    engines->Note("HuexStartup", WordFor(getAddress), reserved);
    return engines->huexStatus;
}

std::uint32_t VecStartup(KelGetAddressProc getAddress, std::uint32_t client, std::uint32_t reserved1,
                         std::uint32_t reserved2) {
    RecordingEngines* const engines = RecordingEngines::Current("VecStartup");
    if (engines == nullptr) {
        return 0;
    }
    engines->Note("VecStartup", WordFor(getAddress), client, reserved1, reserved2);
    return engines->vecStatus;
}

std::uint32_t GlyphonStartup(KelGetAddressProc getAddress, std::uint32_t client, std::uint32_t japanese,
                             const FontSupportParams* params) {
    RecordingEngines* const engines = RecordingEngines::Current("GlyphonStartup");
    if (engines == nullptr) {
        return 0;
    }
    engines->Note("GlyphonStartup", WordFor(getAddress), client, japanese);
    if (params == nullptr) {
        ADD_FAILURE() << "GlyphonStartup is given no record";
        return 0;
    }
    engines->NoteFontStart(tn::test::Recorded(getAddress, client, japanese, *params));
    return engines->glyphonStatus;
}

namespace {

void NoteCall(const char* entry) {
    if (RecordingEngines* const engines = RecordingEngines::Current(entry)) {
        engines->Note(entry);
    }
}

} // namespace

void HuexShutdown() { NoteCall("HuexShutdown"); }
void VecShutdown() { NoteCall("VecShutdown"); }
void GlyphonShutdown() { NoteCall("GlyphonShutdown"); }

std::uint32_t VecVersion() {
    NoteCall("VecVersion");
    RecordingEngines* const engines = RecordingEngines::Current("VecVersion");
    return engines == nullptr ? 0 : engines->vecVersion;
}

std::uint32_t GlyphonVersion() {
    NoteCall("GlyphonVersion");
    RecordingEngines* const engines = RecordingEngines::Current("GlyphonVersion");
    return engines == nullptr ? 0 : engines->glyphonVersion;
}
