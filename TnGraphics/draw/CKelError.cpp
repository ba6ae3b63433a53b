#include "TnGraphics/draw/CKelError.h"

#include "TnGraphics/draw/EngineErrors.h"

#include <utility>

CKelError::CKelError(KelError error) noexcept : error_(error) { tn::AddReference(error_); }

CKelError::CKelError(const CKelError& other) noexcept : std::exception(other), error_(other.error_) {
    tn::AddReference(error_);
}

CKelError& CKelError::operator=(const CKelError& other) noexcept {
    tn::AddReference(other.error_);
    tn::Release(std::exchange(error_, other.error_));
    return *this;
}

CKelError::~CKelError() { tn::Release(error_); }

const char* CKelError::what() const noexcept { return tn::MessageOf(error_); }

const char* CKelError::Component() const noexcept { return tn::ComponentOf(error_); }

int CKelError::Number() const noexcept { return tn::NumberOf(error_); }
