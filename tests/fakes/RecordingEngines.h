// Engines that paint nothing and note everything: what is linked with them finds them behind the nine entries.
#pragma once

#include "tests/fakes/EngineHandles.h"
#include "tests/fakes/QuietText.h"

#include "TnEngines/abi/glyphon.h"
#include "TnEngines/abi/kel.h"
#include "TnEngines/abi/kel_procedures.h"
#include "TnEngines/abi/vec_procedures.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tn::test {

/// What the font engine was started with.
struct RecordedFontStart {
    KelGetAddressProc getAddress = nullptr;
    std::uint32_t client = 0;
    std::uint32_t japanese = 0;
    std::uint32_t version = 0;
    std::u16string osFontList, commonFontList, fontNamesDatabase, unicodeFolder, cmapsFolder, cmapList;
    bool hasNullSpares = false;
};

/// The engines while it lives. One of these lives at a time.
///
/// A test fails when a handle is used that has no references left, and, at the end, when references are left.
class RecordingEngines {
public:
    RecordingEngines();
    ~RecordingEngines();
    RecordingEngines(const RecordingEngines&) = delete;
    RecordingEngines& operator=(const RecordingEngines&) = delete;

    // What happened, in order. Handles are told by their names: "error#1", "core#0", "color#1", "port#1", "gstate#1".

    /// Lookups and calls, for example "get Kel KelReportError KelReportError" and "VecPortMoveToProc port#1 1.5 -2".
    std::vector<std::string> Log() const;
    std::vector<std::string> Lookups() const;
    std::vector<std::string> Calls() const;
    std::size_t CountOf(const std::string& line) const;
    void ForgetLog() { log_.clear(); }

    const std::vector<RecordedFontStart>& FontStarts() const { return fontStarts_; }

    // What the engines answer

    enum class GetAddress { kFirst, kSecond, kNull };
    GetAddress startupGives = GetAddress::kFirst;
    static KelGetAddressProc FirstGetAddress();
    static KelGetAddressProc SecondGetAddress(); ///< Looks the same up, noted as "get-2".

    std::uint32_t huexStatus = 1;
    std::uint32_t vecStatus = 1;
    std::uint32_t glyphonStatus = 1;
    std::uint32_t vecVersion = 0x41A11;
    std::uint32_t glyphonVersion = 0x10203;
    std::int32_t interfaceVersion = 13;
    std::int32_t isMultiThreaded = 0;
    bool givesCounterAddress = true;
    bool givesCoreErrors = true;
    bool givesMemory = true;
    bool makesColors = true;
    bool makesPorts = true; ///< Otherwise there is neither a port nor an error.
    bool offersGState = true;

    enum class ErrorMaking { kMakes, kGivesOutOfMemory, kGivesNull };
    ErrorMaking errorMaking = ErrorMaking::kMakes;

    /// Lets lookups of a procedure give null, in every interface.
    void Hide(const char* procedure) { hidden_.emplace_back(procedure); }
    void ShowAll() { hidden_.clear(); }

    /// Lets lookups give this address, also where there was none.
    void Offer(const char* interfaceName, const char* procedure, void* address);

    /// Lets a procedure that gives errors give a new one at each call.
    void Fail(const char* procedure, const char* message, const char* component, std::int32_t number);
    void FailNothing() { faults_.clear(); }

    /// The runtime's counter of unregistered interfaces. It stays where it is when the engines are gone.
    static std::uint32_t& UnregisterCount();

    /// Is told the name of each procedure that is looked up, or called, before that is done.
    std::function<void(const char* procedure)> whenAskedFor;
    std::function<void(const char* procedure)> whenCalled;

    // Objects

    /// An error that the engines hold one reference to until they let it go.
    KelError KeepError(const char* message, const char* component, std::int32_t number);
    void LetGo(KelError error);
    void LetAllGo();

    EngineHandles handles;
    KelContainerCallback containerCallback = nullptr; ///< What is registered.
    VecBitmap lastBitmap = {};                        ///< What the last port was made over.
    int liveBlocks = 0;                               ///< Of the memory interface.

    // For the engines' entries and procedures

    /// The living engines. Without any the test fails and what is called does nothing.
    static RecordingEngines* Current(const char* entry);

    void* Find(const char* name, const char* interfaceName, const char* method, const char* procedure);
    template <class... Arguments> void Note(const char* procedure, const Arguments&... arguments) {
        if (whenCalled) {
            whenCalled(procedure);
        }
        AddLine(CallLine(procedure, arguments...), false);
    }
    CallLine::Word NameOf(const void* handle) const { return {handles.NameOf(handle)}; }

    /// The error that a procedure is to give, with a reference that is the caller's. Null for none.
    EngineObject* FaultOf(const char* procedure);
    EngineObject* NewError(const char* message, const char* component, std::int32_t number);

    void NoteFontStart(const RecordedFontStart& start) { fontStarts_.push_back(start); }
    void Register(const char* interfaceName, const char* procedure, void* address);
    void Unregister(const char* interfaceName);
    KelError Keep(EngineObject* error);

private:
    struct Line {
        QuietString text;
        bool isLookup = false;
    };
    struct Offered {
        QuietString interfaceName, procedure;
        void* address;
    };
    struct Fault {
        QuietString procedure, message, component;
        std::int32_t number;
    };

    void AddLine(const CallLine& line, bool isLookup);
    bool IsHidden(const char* procedure) const;
    std::vector<std::string> Lines(bool lookups, bool calls) const;

    QuietVector<Line> log_;
    QuietVector<QuietString> hidden_;
    QuietVector<Offered> offered_;
    QuietVector<Fault> faults_;
    QuietVector<EngineObject*> kept_;
    std::vector<RecordedFontStart> fontStarts_;
};

/// The address of the procedure in the runtime and the colour engine, or in the vector engine. Null for none.
void* RuntimeProcedure(const char* interfaceName, const char* procedure);
void* VecProcedure(const char* interfaceName, const char* procedure);

} // namespace tn::test
