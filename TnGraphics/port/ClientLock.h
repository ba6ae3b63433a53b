/// \file
/// A lock on a surface that lives as long as its holder.
#pragma once

#include <utility>

namespace tn {

/// Holds one lock on a surface, or none. Copies hold a lock of their own.
template <class SurfaceType> class ClientLock {
public:
    ClientLock() = default;

    /// Locks a surface, which must outlive the lock.
    /// \throws std::bad_alloc ("bad allocation") for a sized surface without storage
    explicit ClientLock(const SurfaceType& surface) : surface_(&surface) { surface.AddClient(); }

    /// Locks the other one's surface once more, if it has one.
    ClientLock(const ClientLock& other) : surface_(other.surface_) {
        if (surface_ != nullptr) {
            surface_->AddClient();
        }
    }
    ~ClientLock() {
        if (surface_ != nullptr) {
            surface_->RemoveClient();
        }
    }

    /// Locks the other one's surface in place of its own. The new surface is locked before the old one is unlocked, so
    /// a surface assigned over itself stays locked.
    ClientLock& operator=(const ClientLock& other) {
        ClientLock replacement(other);
        std::swap(surface_, replacement.surface_);
        return *this;
    }

    /// The surface that is locked, or null.
    const SurfaceType* Surface() const { return surface_; }

private:
    const SurfaceType* surface_ = nullptr;
};

} // namespace tn
