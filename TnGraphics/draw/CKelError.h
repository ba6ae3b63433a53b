/// \file
/// The exception of an engine's error.
#pragma once

#include "TnEngines/abi/kel.h"
#include "TnGraphics/TnExport.h"

#include <exception>

/// Thrown when the vector engine or the component runtime reports an error. Errors of exhausted memory come as
/// std::bad_alloc instead, unless memory ran out while an error was being made of something else.
///
/// It holds a reference to the runtime's error object, or none where the runtime could not even make an error.
class TN_EXPORT CKelError : public std::exception {
public:
    /// Takes a reference of its own.
    explicit CKelError(KelError error) noexcept;
    CKelError(const CKelError& other) noexcept;            ///< Takes a reference of its own to the same error.
    CKelError& operator=(const CKelError& other) noexcept; ///< Drops its reference and takes one to the other's error.
    ~CKelError() override;

    /// What the error says; empty where there is none.
    const char* what() const noexcept override;

    /// The signature of the component that the error is from; empty where there is none.
    const char* Component() const noexcept;

    /// The error's number within its component; 0 where there is none.
    int Number() const noexcept;

    /// The error itself, borrowed. May be null.
    KelError Handle() const noexcept { return error_; }

private:
    KelError error_;
};
