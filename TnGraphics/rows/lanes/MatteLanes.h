// Private: vector registers of matte pixels.
#pragma once

#include "TnGraphics/port/TnMattePixel.h"
#include "TnGraphics/rows/lanes/VectorLanes.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tn {

/// A register of matte pixels, for what operators do to alphas alone.
template <class Set> struct MatteLanes {
    using Channels = ChannelLanes<Set>;
    using Mattes = MatteLanes;
    using Narrower = void;
    static constexpr std::size_t kCount = sizeof(typename Set::Register);

    struct Opacity {
        std::uint16_t value;

        explicit Opacity(std::uint32_t opacity) : value(static_cast<std::uint16_t>(opacity)) {}
    };

    typename Set::Register bytes;

    static MatteLanes Load(const TnMattePixel* from) { return {Set::Load(from)}; }
    void Store(TnMattePixel* to) const { Set::Store(to, bytes); }

    static MatteLanes LoadFirst(const TnMattePixel* from, std::size_t count) {
        std::uint8_t values[kCount] = {};
        std::memcpy(values, from, count);
        return {Set::Load(values)};
    }
    void StoreFirst(TnMattePixel* to, std::size_t count) const {
        std::uint8_t values[kCount];
        Set::Store(values, bytes);
        std::memcpy(static_cast<void*>(to), values, count);
    }

    MatteLanes WithAlphaOf(MatteLanes other) const { return other; }
    friend MatteLanes MinBytes(MatteLanes a, MatteLanes b) { return {Set::MinBytes(a.bytes, b.bytes)}; }
    friend MatteLanes Faded(MatteLanes pixels, Opacity opacity) {
        const Channels values = {Set::WidenLow(pixels.bytes), Set::WidenHigh(pixels.bytes)};
        const Channels quotients = DividedBy255(values * Channels::All16(opacity.value));
        return {Set::Narrow(quotients.low, quotients.high)};
    }
};

} // namespace tn
