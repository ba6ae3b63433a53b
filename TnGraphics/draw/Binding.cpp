#include "TnGraphics/draw/Binding.h"

#include "TnGraphics/draw/CKelError.h"
#include "TnGraphics/draw/EngineErrors.h"

#include <algorithm>
#include <cstddef>
#include <memory>

namespace tn {
namespace {

constinit Binding theBinding;

constexpr std::int32_t kContainerFlag = 1;

// Containers are nobody's concern yet; the runtime still wants somebody to tell.
KelError ContainerChanged(void*, std::int32_t) { return nullptr; }

bool StartClient(const ClientRecord& client) {
    try {
        return client.start();
    } catch (...) {
        return false;
    }
}

void StopClients(std::span<const ClientRecord> clients) {
    for (const ClientRecord& client : clients) {
        try {
            client.stop();
        } catch (...) { // the others stop all the same
        }
    }
}

} // namespace

Binding& TheBinding() { return theBinding; }

void RenewBinding() { std::construct_at(&theBinding); }

bool Binding::Start(KelGetAddressProc getAddress) {
    if (isStarted_) {
        return true;
    }
    if (getAddress == nullptr) {
        return false;
    }
    getAddress_ = getAddress;
    ++start_;
    hasRuntime_ = FindCore() && FindRuntimeInterfaces();
    isStarted_ = hasRuntime_ && StartClients() && RegisterContainers();
    isLive_ = isStarted_;
    if (!isStarted_) {
        LeaveRuntime();
    }
    return isStarted_;
}

void Binding::Stop() noexcept {
    if (!isStarted_) {
        return;
    }
    isLive_ = false;
    if (!containers_.empty()) {
        try {
            Valid(container_)
                .At<KelUnregisterContainerCallbackType>(abi::Container::kUnregisterCallback)(&ContainerChanged,
                                                                                             kContainerFlag);
        } catch (const CKelError&) { // then the runtime has nothing to unregister from
        }
    }
    StopClients(containers_);
    StopClients(clients_);
    LeaveRuntime();
    isStarted_ = false;
}

bool Binding::FindCore() {
    const InterfaceCache& core = core_.Cache();
    for (std::size_t i = 0; i < core.procedures.size(); ++i) {
        const auto& [method, procedure] = core.request.procedures[i];
        core.procedures[i] = getAddress_(core.request.interfaceName, method, procedure);
        if (core.procedures[i] == nullptr) {
            return false;
        }
    }
    unregisterCount_ = CoreProcedure<KelGetUnregisterCountAddrType>(abi::Core::kGetUnregisterCountAddr)();
    return unregisterCount_ != nullptr;
}

bool Binding::FindRuntimeInterfaces() {
    isStrict_ = false;
    const bool isOurVersion = interfaceVersion_ == abi::kInterfaceVersion;
    isStrict_ =
        isOurVersion && Find(base_.Cache()) && Find(errors_.Cache()) && KeepCoreErrors() && Find(memory_.Cache());
    return isStrict_;
}

bool Binding::KeepCoreErrors() {
    const auto coreError = errors_.At<KelGetCoreErrorType>(abi::Error::kGetCoreError);
    for (std::size_t number = 0; number < coreErrors_.size(); ++number) {
        coreErrors_[number] = coreError(static_cast<std::int32_t>(number));
        AddReference(coreErrors_[number]);
    }
    return true;
}

void Binding::LeaveRuntime() {
    for (KelError& error : coreErrors_) {
        Release(error);
        error = nullptr;
    }
    hasRuntime_ = false;
}

bool Binding::StartClients() const {
    for (std::size_t i = 0; i < clients_.size(); ++i) {
        if (!StartClient(clients_[i])) {
            StopClients(clients_.first(i));
            return false;
        }
    }
    return true;
}

bool Binding::RegisterContainers() {
    if (containers_.empty()) {
        return true;
    }
    if (!Find(container_.Cache())) {
        StopClients(clients_);
        return false;
    }
    container_.At<KelRegisterContainerCallbackType>(abi::Container::kRegisterCallback)(&ContainerChanged,
                                                                                       kContainerFlag);
    return true;
}

bool Binding::Find(const InterfaceRequest& request, std::span<void*> procedures) const {
    if (getAddress_ == nullptr) {
        return request.procedures.empty();
    }
    for (std::size_t i = request.procedures.size(); i > 0; --i) {
        const auto& [method, procedure] = request.procedures[i - 1];
        procedures[i - 1] = getAddress_(request.interfaceName, method, procedure);
        if (procedures[i - 1] == nullptr) {
            return false;
        }
    }
    return true;
}

// The counter is read first: should it change meanwhile, the next use finds the table outdated.
bool Binding::Find(InterfaceCache& cache) const {
    const std::uint32_t count = UnregisterCount();
    cache.isFilled = Find(cache.request, cache.procedures);
    if (cache.isFilled) {
        cache.start = start_;
        cache.unregisterCount = count;
    }
    return cache.isFilled;
}

bool Binding::Acquire(const InterfaceRequest& request, std::span<void*> procedures) const {
    const bool isFound = Find(request, procedures);
    if (!isFound && isStrict_) {
        ThrowNewError("");
    }
    return isFound;
}

bool Binding::IsValid(const InterfaceCache& cache) const {
    return cache.isFilled && cache.start == start_ && cache.unregisterCount == UnregisterCount();
}

bool Binding::Validate(InterfaceCache& cache, Need need) const {
    if (hasRuntime_ && (IsValid(cache) || Find(cache))) {
        return true;
    }
    if (need == Need::kRequired) {
        ThrowNewError("Missing Interface");
    }
    cache.procedures.front() = nullptr;
    return false;
}

// Errors may come before the start is complete, and may outlive the stop. Some of their procedures are worse than none:
// references would be dropped that nobody could add.
void Binding::KeepErrorsValid() {
    InterfaceCache& errors = errors_.Cache();
    if (unregisterCount_ != nullptr && !IsValid(errors) && !Find(errors)) {
        std::ranges::fill(errors.procedures, nullptr);
    }
}

} // namespace tn
