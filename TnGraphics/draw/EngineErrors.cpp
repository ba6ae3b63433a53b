#include "TnGraphics/draw/EngineErrors.h"

#include "TnGraphics/draw/Binding.h"
#include "TnGraphics/draw/CKelError.h"
#include "TnGraphics/port/Raise.h"

#include <string_view>

namespace tn {
namespace {

/// Calls a procedure of errors, or gives what stands for its result where there is none to call.
template <class Procedure, class Result> Result AskOf(KelError error, abi::Error which, Result otherwise) {
    const auto ask = error == nullptr ? nullptr : TheBinding().ErrorProcedure<Procedure>(which);
    return ask == nullptr ? otherwise : ask(error);
}

const char* TextOf(const char* text) { return text == nullptr ? "" : text; }

bool IsOutOfMemory(KelError error) {
    return ComponentOf(error) == std::string_view(abi::kCoreComponent) && NumberOf(error) == abi::kOutOfMemory;
}

} // namespace

void AddReference(KelError error) noexcept {
    if (error != nullptr) {
        if (const auto add = TheBinding().ErrorProcedure<KelErrorAddReferenceType>(abi::Error::kAddReference)) {
            add(error);
        }
    }
}

void Release(KelError error) noexcept {
    if (error != nullptr) {
        if (const auto release = TheBinding().ErrorProcedure<KelErrorReleaseType>(abi::Error::kRelease)) {
            release(error);
        }
    }
}

const char* ComponentOf(KelError error) noexcept {
    return TextOf(AskOf<KelErrorGetComponentType>(error, abi::Error::kGetComponent, ""));
}

const char* MessageOf(KelError error) noexcept {
    return TextOf(AskOf<KelErrorGetMessageType>(error, abi::Error::kGetMessage, ""));
}

std::int32_t NumberOf(KelError error) noexcept {
    return AskOf<KelErrorGetNumberType>(error, abi::Error::kGetNumber, std::int32_t{0});
}

KelError NewError(const char* message) noexcept {
    const auto make = TheBinding().ErrorProcedure<KelNewErrorType>(abi::Error::kNewError);
    return make == nullptr ? nullptr : make(message, abi::kKel, 0);
}

void ThrowNewError(const char* message) {
    const KelError made = NewError(message);
    const CKelError error(made);
    Release(made);
    throw CKelError(error);
}

void ThrowIfError(KelError handle) {
    if (handle == nullptr) {
        return;
    }
    const CKelError error(handle);
    if (IsOutOfMemory(handle)) {
        RaiseBadAllocation();
    }
    throw CKelError(error);
}

} // namespace tn
