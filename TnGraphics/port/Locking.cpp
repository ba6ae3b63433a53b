#include "TnGraphics/port/Locking.h"

#include "TnGraphics/port/Raise.h"

namespace tn {

void* LockStorage(TnBitMapHelper* storage) {
    if (storage == nullptr) {
        RaiseBadAllocation();
    }
    storage->Lock();
    try {
        return storage->BaseAddr();
    } catch (...) {
        storage->Unlock();
        throw;
    }
}

void UnlockStorage(TnBitMapHelper* storage) {
    if (storage != nullptr) {
        storage->Unlock();
    }
}

} // namespace tn
