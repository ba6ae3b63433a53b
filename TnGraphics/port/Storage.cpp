#include "TnGraphics/port/Storage.h"

#include "TnGraphics/port/Raise.h"
#include "TnGraphics/port/WinBitMapHelper.h"

#include <new>

namespace tn {
namespace {

template <class... Arguments> std::unique_ptr<TnBitMapHelper> MakeOrRaise(const Arguments&... arguments) {
    try {
        return std::make_unique<WinBitMapHelper>(arguments...);
    } catch (const std::bad_alloc&) {
        RaiseBitmapExhausted();
    }
}

} // namespace

std::unique_ptr<TnBitMapHelper> MakeStorage(const TnPoint& size, std::uint32_t depth, bool clear) {
    return MakeOrRaise(size, depth, clear);
}

std::unique_ptr<TnBitMapHelper> CopyStorage(const TnBitMapHelper* source) {
    if (source == nullptr) {
        return nullptr;
    }
    return MakeOrRaise(dynamic_cast<const WinBitMapHelper&>(*source));
}

std::uint32_t RowBytesOf(const TnBitMapHelper* storage) { return storage != nullptr ? storage->RowBytes() : 0; }

} // namespace tn
