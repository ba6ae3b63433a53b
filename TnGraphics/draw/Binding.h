// Private: the binding to the component runtime and, through it, to the engines.
#pragma once

#include "TnEngines/abi/interfaces.h"
#include "TnEngines/abi/kel.h"
#include "TnEngines/abi/kel_procedures.h"
#include "TnGraphics/draw/ClientRecords.h"
#include "TnGraphics/draw/ProcedureTable.h"

#include <array>
#include <cstdint>
#include <span>

namespace tn {

/// What becomes of a table whose procedures cannot be found.
enum class Need {
    kRequired, ///< CKelError "Missing Interface".
    kOptional  ///< The table is cleared; its first procedure is null.
};

/// Every procedure of the runtime and of the engines is found by name through the runtime's get-address procedure. Once
/// found, procedures are used until the runtime's counter of unregistered interfaces changes.
///
/// There is one binding, which lives as long as the process. Its constructor and destructor do nothing, so it takes
/// nothing to load the library, and errors may outlive everything.
class Binding {
public:
    constexpr Binding() = default;
    Binding(const Binding&) = delete;
    Binding& operator=(const Binding&) = delete;

    /// True when it is started then. Lets no exception out.
    bool Start(KelGetAddressProc getAddress);

    /// Gives up what is shared with the engines. Lets no exception out.
    void Stop() noexcept;

    bool IsStarted() const { return isStarted_; }

    /// Between the end of the start and the beginning of the stop.
    bool IsLive() const { return isLive_; }

    /// Fills a table, from its last procedure to its first.
    ///
    /// False when the runtime lacks a procedure; what was found before it stays in the table.
    /// \throws CKelError with an empty message instead, once the interfaces of the runtime itself have been found
    bool Acquire(const InterfaceRequest& request, std::span<void*> procedures) const;

    /// Makes sure that a table is filled and valid, as it has to be before each use. False for an optional one that is
    /// not to be had.
    /// \throws CKelError "Missing Interface"
    bool Validate(InterfaceCache& cache, Need need) const;

    /// Validates a table and gives it back.
    template <class Table> const Table& Valid(Table& table) const {
        Validate(table.Cache(), Need::kRequired);
        return table;
    }

    template <class Procedure> Procedure CoreProcedure(abi::Core which) const { return core_.At<Procedure>(which); }

    /// The procedures of errors, after the stop too. All are null while one of them is not to be had.
    template <class Procedure> Procedure ErrorProcedure(abi::Error which) {
        KeepErrorsValid();
        return errors_.At<Procedure>(which);
    }

    /// One of the runtime's own errors, borrowed. Null while the binding is not started.
    KelError CoreError(int number) const { return coreErrors_[static_cast<std::size_t>(number)]; }

    // What tests put in place of what is there otherwise.

    void UseClients(std::span<const ClientRecord> clients) { clients_ = clients; }
    void UseContainers(std::span<const ClientRecord> containers) { containers_ = containers; }
    void UseInterfaceVersion(int version) { interfaceVersion_ = version; }

private:
    using CoreTable = ProcedureTable<abi::Core, abi::kCoreProcedures.size()>;
    using BaseTable = ProcedureTable<abi::Base, abi::kBaseProcedures.size()>;
    using ErrorTable = ProcedureTable<abi::Error, abi::kErrorProcedures.size()>;
    using MemoryTable = ProcedureTable<abi::Memory, abi::kMemoryProcedures.size()>;
    using ContainerTable = ProcedureTable<abi::Container, abi::kContainerProcedures.size()>;

    bool FindCore();
    bool FindRuntimeInterfaces();
    bool KeepCoreErrors();
    void LeaveRuntime();
    bool StartClients() const;
    bool RegisterContainers();
    void KeepErrorsValid();
    bool Find(const InterfaceRequest& request, std::span<void*> procedures) const;
    bool Find(InterfaceCache& cache) const;
    bool IsValid(const InterfaceCache& cache) const;
    std::uint32_t UnregisterCount() const { return unregisterCount_ == nullptr ? 0 : *unregisterCount_; }

    KelGetAddressProc getAddress_ = nullptr;
    const std::uint32_t* unregisterCount_ = nullptr;
    std::uint32_t start_ = 0;
    bool isStrict_ = false;
    bool hasRuntime_ = false; // from when its interfaces are found to the end of the stop
    bool isStarted_ = false;
    bool isLive_ = false;
    int interfaceVersion_ = abi::kInterfaceVersion;
    CoreTable core_ = {abi::kKel, abi::kCoreProcedures};
    BaseTable base_ = {abi::kBaseInterface, abi::kBaseProcedures};
    ErrorTable errors_ = {abi::kErrorInterface, abi::kErrorProcedures};
    MemoryTable memory_ = {abi::kMemoryInterface, abi::kMemoryProcedures};
    ContainerTable container_ = {abi::kContainerInterface, abi::kContainerProcedures};
    std::array<KelError, 2> coreErrors_ = {};
    std::span<const ClientRecord> clients_ = kSharedKindRecords;
    std::span<const ClientRecord> containers_;
};

/// The binding of this process.
Binding& TheBinding();

/// For tests: makes the binding what it was when the library was loaded, without asking anybody.
void RenewBinding();

} // namespace tn
