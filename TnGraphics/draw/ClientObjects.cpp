#include "TnGraphics/draw/ClientObjects.h"

#include "TnGraphics/draw/Binding.h"
#include "TnGraphics/draw/EngineErrors.h"

namespace tn {

// No error would mean success, so where none can be made it is the one of exhausted memory.
KelError ErrorForException(const char* message) noexcept {
    if (const KelError error = NewError(message)) {
        return error;
    }
    const KelError outOfMemory = TheBinding().CoreError(abi::kOutOfMemory);
    AddReference(outOfMemory);
    return outOfMemory;
}

} // namespace tn
