#include "TnEngines/vec/port/Faults.h"

#include "TnEngines/abi/kel_procedures.h"
#include "TnEngines/vec/Runtime.h"

#include <new>
#include <stdexcept>

namespace tn::vec {
namespace {

constexpr const char* kComponent = "Vec";

const char* MessageOf(Fault fault) {
    switch (fault) {
    case Fault::kStopped:
        return "engine not started";
    case Fault::kTarget:
        return "bitmap cannot be painted into";
    case Fault::kNoCurrentPoint:
        return "no current point";
    case Fault::kPoint:
        return "coordinate is not a number";
    case Fault::kLineWidth:
        return "line width is not a number";
    case Fault::kUnexpected:
        return "unexpected fault";
    }
    return "";
}

template <class Type> Type ErrorProcedure(abi::Error place) {
    return RuntimeProcedure<Type>(abi::kErrorInterface, abi::kErrorProcedures, place);
}

} // namespace

KelError NewErrorOf(Fault fault) {
    const auto make = ErrorProcedure<KelNewErrorType>(abi::Error::kNewError);
    return make == nullptr ? nullptr : make(MessageOf(fault), kComponent, static_cast<std::int32_t>(fault));
}

KelError ExhaustedMemory() {
    const auto get = ErrorProcedure<KelGetCoreErrorType>(abi::Error::kGetCoreError);
    return get == nullptr ? nullptr : get(abi::kOutOfMemory);
}

void ReleaseError(KelError error) {
    if (error == nullptr) {
        return;
    }
    if (const auto release = ErrorProcedure<KelErrorReleaseType>(abi::Error::kRelease)) {
        release(error);
    }
}

Faults::~Faults() {
    for (KelError const error : made_) {
        ReleaseError(error);
    }
}

KelError Faults::Record(Fault fault) {
    KelError& made = made_[static_cast<std::size_t>(fault) - 1];
    if (made == nullptr) {
        made = NewErrorOf(fault);
    }
    last_ = made;
    if (made == ExhaustedMemory()) {
        made = nullptr; // so that the next time, with memory, tells more
    }
    return last_;
}

KelError Faults::RecordCaught() noexcept {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return RecordExhaustedMemory();
    } catch (const std::length_error&) { // of a container that would not fit into memory
        return RecordExhaustedMemory();
    } catch (...) {
        return Record(Fault::kUnexpected);
    }
}

} // namespace tn::vec
