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
    struct ShortSums;
    struct LongSums;
    struct Square;
    static constexpr std::size_t kCount = sizeof(typename Set::Register);

    struct Opacity {
        std::uint16_t value;

        explicit Opacity(std::uint32_t opacity) : value(static_cast<std::uint16_t>(opacity)) {}
    };

    typename Set::Register bytes;

    /// The value whose word this is, in every pixel.
    static MatteLanes All(std::uint32_t word) { return {Set::All32((word >> 24) * 0x01010101U)}; }

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
    bool HasBits() const { return Set::HasBits(bytes); }
    friend MatteLanes operator&(MatteLanes a, MatteLanes b) { return {Set::And(a.bytes, b.bytes)}; }
    friend MatteLanes operator|(MatteLanes a, MatteLanes b) { return {Set::Or(a.bytes, b.bytes)}; }
    friend MatteLanes operator^(MatteLanes a, MatteLanes b) { return {Set::Xor(a.bytes, b.bytes)}; }
    friend MatteLanes operator+(MatteLanes a, MatteLanes b) { return {Set::Add8(a.bytes, b.bytes)}; }
    friend MatteLanes operator-(MatteLanes a, MatteLanes b) { return {Set::Subtract8(a.bytes, b.bytes)}; }

    template <int bits> MatteLanes BytesShiftedRight() const {
        const MatteLanes kept = All(0xFF000000U >> bits);
        return MatteLanes{Set::template ShiftRight32<bits>(bytes)} & kept;
    }

    /// 255 where a value is more than the limit, else 0; both are below 128.
    friend MatteLanes MoreThan(MatteLanes a, std::uint32_t limit) {
        return {Set::Greater8(a.bytes, All(limit << 24).bytes)};
    }

    /// The values of both by turns, twice as many as a lane has.
    static void StoreInTurns(TnMattePixel* to, MatteLanes first, MatteLanes second) {
        Set::StoreInTurns8(to, first.bytes, second.bytes);
    }

    friend MatteLanes MinBytes(MatteLanes a, MatteLanes b) { return {Set::MinBytes(a.bytes, b.bytes)}; }
    friend MatteLanes MaxBytes(MatteLanes a, MatteLanes b) { return {Set::MaxBytes(a.bytes, b.bytes)}; }

    /// The value where a and b have the same one, elsewhere that of c.
    friend MatteLanes SameOr(MatteLanes a, MatteLanes b, MatteLanes c) {
        return {Set::Select8(Set::Equal8(a.bytes, b.bytes), a.bytes, c.bytes)};
    }

    Channels Widened() const { return {Set::WidenLow(bytes), Set::WidenHigh(bytes)}; }
    static MatteLanes Narrowed(Channels channels) { return {Set::Narrow(channels.low, channels.high)}; }
    friend MatteLanes Faded(MatteLanes pixels, Opacity opacity) {
        return Narrowed(DividedBy255(pixels.Widened() * Channels::All16(opacity.value)));
    }
};

} // namespace tn
