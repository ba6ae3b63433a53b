// The pixels that peers work on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tn::bench {

/// Words 0xAARRGGBB in rows without gaps, the first one aligned for any vector. Copies share the pixels.
struct Rows {
    std::shared_ptr<std::uint32_t[]> pixels;
    int width;
    int height;

    std::uint8_t* Bytes() const { return reinterpret_cast<std::uint8_t*>(pixels.get()); }
    int RowBytes() const { return width * static_cast<int>(sizeof(std::uint32_t)); }
};

/// The same for bytes.
struct ByteRows {
    std::shared_ptr<std::uint8_t[]> pixels;
    int width;
    int height;

    std::uint8_t* Bytes() const { return pixels.get(); }
    int RowBytes() const { return width; }
};

} // namespace tn::bench
