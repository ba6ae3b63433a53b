#include "TnEngines/vec/port/PortRegistry.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace tn::vec {
namespace {

// A handle is a serial number above the place of its port.
constexpr int kPlaceBits = 20;
constexpr std::uint64_t kMostPlaces = std::uint64_t{1} << kPlaceBits;

struct Place {
    std::uint64_t serial = 0; // of the port that is there, or 0
    std::unique_ptr<Port> port;
};

// Empty whenever no port is alive.
constinit std::vector<Place> thePlaces;
constinit std::uint64_t theLastSerial = 0;

Place* PlaceOf(VecPort handle) {
    const std::uint64_t value = reinterpret_cast<std::uintptr_t>(handle);
    const std::uint64_t place = value & (kMostPlaces - 1);
    const std::uint64_t serial = value >> kPlaceBits;
    if (serial == 0 || place >= thePlaces.size() || thePlaces[place].serial != serial) {
        return nullptr;
    }
    return &thePlaces[place];
}

std::size_t FreePlace() {
    for (std::size_t i = 0; i < thePlaces.size(); ++i) {
        if (thePlaces[i].serial == 0) {
            return i;
        }
    }
    if (thePlaces.size() == kMostPlaces) {
        throw std::bad_alloc();
    }
    thePlaces.emplace_back();
    return thePlaces.size() - 1;
}

} // namespace

VecPort Register(std::unique_ptr<Port> port) {
    const std::size_t place = FreePlace();
    thePlaces[place] = {++theLastSerial, std::move(port)};
    return reinterpret_cast<VecPort>(static_cast<std::uintptr_t>(theLastSerial << kPlaceBits | place));
}

Port* Find(VecPort handle) {
    const Place* const place = PlaceOf(handle);
    return place != nullptr ? place->port.get() : nullptr;
}

void Unregister(VecPort handle) {
    Place* const place = PlaceOf(handle);
    if (place == nullptr) {
        return;
    }
    *place = {};
    while (!thePlaces.empty() && thePlaces.back().serial == 0) {
        thePlaces.pop_back();
    }
    if (thePlaces.empty()) {
        thePlaces.shrink_to_fit();
    }
}

} // namespace tn::vec
