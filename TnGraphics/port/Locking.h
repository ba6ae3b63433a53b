// Private: the counted lock that all surfaces share.
#pragma once

#include "TnGraphics/port/Assertion.h"
#include "TnGraphics/port/TnBitMapHelper.h"

#include <cstdint>

namespace tn {

inline constinit AssertionSite unbalancedUnlock = {"clients > 0", "RemoveClient", "port/Locking", __LINE__};

/// Raises the count and calls lock for the first client. When that throws, the count is 0.
template <class Lock> void CountClient(std::uint32_t& clients, const Lock& lock) {
    ++clients;
    if (clients != 1) {
        return;
    }
    try {
        lock();
    } catch (...) {
        clients = 0;
        throw;
    }
}

/// Lowers the count and calls unlock after the last client. A count of 0 wraps.
template <class Unlock> void DiscountClient(std::uint32_t& clients, const Unlock& unlock) {
    unbalancedUnlock.AssertInDebug(clients > 0);
    --clients;
    if (clients == 0) {
        unlock();
    }
}

/// Locks the storage and returns its address. Storage that cannot say its address is unlocked again.
/// \throws std::bad_alloc ("bad allocation") for no storage, and what the storage throws
void* LockStorage(TnBitMapHelper* storage);

/// Unlocks the storage, if there is one.
void UnlockStorage(TnBitMapHelper* storage);

} // namespace tn
