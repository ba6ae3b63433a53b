#include "TnGraphics/draw/ClientRecords.h"

#include <cstddef>

namespace tn {
namespace {

constinit std::array<SharedObject*, kSharedKinds> firstOfKind = {};

SharedObject*& FirstOf(SharedKind kind) { return firstOfKind[static_cast<std::size_t>(kind)]; }

// What is shared is listed as it comes, so there is nothing to prepare.
bool StartSharing() { return true; }

template <SharedKind kind> void StopSharing() { GiveUpAll(kind); }

} // namespace

constexpr std::array<ClientRecord, kSharedKinds> kSharedKindRecords = {{
    {"port", &StartSharing, &StopSharing<SharedKind::kPort>},
    {"graphics-state port", &StartSharing, &StopSharing<SharedKind::kGStatePort>},
    {"image iterator", &StartSharing, &StopSharing<SharedKind::kImageIterator>},
    {"image producer", &StartSharing, &StopSharing<SharedKind::kImageProducer>},
    {"image tile", &StartSharing, &StopSharing<SharedKind::kImageTile>},
    {"EPS client", &StartSharing, &StopSharing<SharedKind::kEpsClient>},
    {"print device controller", &StartSharing, &StopSharing<SharedKind::kPrintDeviceController>},
    {"line segment", &StartSharing, &StopSharing<SharedKind::kLineSegment>},
    {"color conversion segment", &StartSharing, &StopSharing<SharedKind::kColorConversionSegment>},
    {"stream", &StartSharing, &StopSharing<SharedKind::kStream>},
}};

SharedObject::SharedObject(SharedKind kind) noexcept : next_(FirstOf(kind)), previousNext_(&FirstOf(kind)) {
    if (next_ != nullptr) {
        next_->previousNext_ = &next_;
    }
    *previousNext_ = this;
}

SharedObject::~SharedObject() { Unlink(); }

void SharedObject::Unlink() noexcept {
    if (previousNext_ == nullptr) {
        return;
    }
    *previousNext_ = next_;
    if (next_ != nullptr) {
        next_->previousNext_ = previousNext_;
    }
    previousNext_ = nullptr;
}

void GiveUpAll(SharedKind kind) noexcept {
    while (SharedObject* const object = FirstOf(kind)) {
        object->Unlink(); // first, as it may end its life
        object->GiveUp();
    }
}

} // namespace tn
