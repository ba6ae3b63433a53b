/// \file
/// The device context that pictures are shown on: that of the Microsoft Foundation Classes where the compiler has them,
/// and otherwise a class of that name with as much of it as is needed. The two are never mixed in one program.
#pragma once

#if __has_include(<afxwin.h>)

#include <afxwin.h>

#else

#include <windows.h>

#include <utility>

/// Holds the handle of a device context, which stays the host's to release.
class CDC {
public:
    HDC m_hDC = nullptr; ///< Null where there is none.

    /// The handle, or null.
    HDC GetSafeHdc() const { return m_hDC; }

    /// Takes a handle; true for one that is not null.
    BOOL Attach(HDC handle) {
        m_hDC = handle;
        return handle != nullptr ? TRUE : FALSE;
    }

    /// Gives the handle away.
    HDC Detach() { return std::exchange(m_hDC, nullptr); }
};

#endif
