// Ports of the vector engine over pixels of a test's own.
#pragma once

#include "tests/engines/Runtime.h"
#include "tests/support/AllocationFailure.h"

#include "TnEngines/abi/huex.h"
#include "TnEngines/abi/vec.h"
#include "TnEngines/abi/vec_procedures.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace tn::test {

/// The engines that drawing needs, started for as long as this lives.
struct StartedEngines {
    StartedEngines() {
        HuexStartup(KelStartup(0), 0);
        VecStartup(KelStartup(0), 0x41A11, 0, 0);
    }
    ~StartedEngines() {
        VecShutdown();
        HuexShutdown();
    }
    StartedEngines(const StartedEngines&) = delete;
    StartedEngines& operator=(const StartedEngines&) = delete;
};

/// Expects all memory that was allocated in its life to be free again at its end.
class MemoryBalance {
public:
    MemoryBalance() = default;
    ~MemoryBalance() {
        if (!testing::Test::HasFailure()) { // which takes memory for its record
            EXPECT_EQ(LiveAllocations(), before_) << "the engine keeps memory";
        }
    }
    MemoryBalance(const MemoryBalance&) = delete;
    MemoryBalance& operator=(const MemoryBalance&) = delete;

    /// Allows for blocks that others keep.
    void Allow(std::int64_t blocks) { before_ += blocks; }

private:
    // The first trace of a thread makes room for all that follow.
    static std::int64_t AllocationsNow() {
        SCOPED_TRACE("");
        return LiveAllocations();
    }

    std::int64_t before_ = AllocationsNow();
};

/// A test that draws, and after which nothing that the engines made is alive.
class Drawing : public testing::Test {
    MemoryBalance balance_;
    StartedEngines engines_;

protected:
    /// Leaves a number in the test's results, which take memory for it.
    void Record(const char* name, double number) {
        const std::int64_t live = LiveAllocations();
        RecordProperty(name, std::to_string(number));
        balance_.Allow(LiveAllocations() - live);
    }
};

/// A procedure of raster ports by its place.
template <class Type> Type PortProcedure(abi::Port place) {
    static const auto procedures = [] {
        std::array<void*, abi::kPortProcedures.size()> found{};
        for (std::size_t i = 0; i < found.size(); ++i) {
            found.at(i) = Lookup(abi::kRasterPortInterface, abi::kPortProcedures.at(i).procedure);
        }
        return found;
    }();
    void* const procedure = procedures.at(static_cast<std::size_t>(place));
    if (procedure == nullptr) {
        throw std::logic_error(std::string("no procedure ") +
                               abi::kPortProcedures.at(static_cast<std::size_t>(place)).procedure);
    }
    return reinterpret_cast<Type>(procedure);
}

/// Calls a procedure of any port.
template <class Type, class... Arguments> auto CallOn(VecPort port, abi::Port place, Arguments... arguments) {
    return PortProcedure<Type>(place)(port, arguments...);
}

/// Makes a port: null where there is none, with the error, if any, in the last argument.
inline VecPort NewPort(const VecBitmap* bitmap, KelError* error = nullptr) {
    const auto make = Procedure<VecRasterPortNewBitmapPortV3Type>(
        abi::kNewRasterPortInterface, abi::kNewRasterPortProcedures, abi::NewRasterPort::kNewBitmapPort);
    if (make == nullptr) {
        throw std::logic_error("no procedure that makes ports");
    }
    VecPort port = nullptr;
    const KelError result = make(bitmap, &port);
    if (error != nullptr) {
        *error = result;
    }
    return port;
}

/// Where a canvas's pixels lie.
struct CanvasLayout {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t bitsPerPixel = 8;
    std::int32_t left = 0; ///< The position of the first pixel in device space.
    std::int32_t top = 0;
    std::uint32_t spareBytes = 5; ///< Behind each row's last byte.

    std::uint32_t RowBytes() const {
        const std::int64_t bits = std::int64_t{width} * bitsPerPixel;
        return static_cast<std::uint32_t>((bits + 7) / 8) + spareBytes;
    }
};

/// A block of pixels with a port over it. The bytes around its rows, and the bits behind a row's last pixel, are
/// filled with a pattern that nobody may change. Its pixels begin as zeros.
///
/// Positions are in device space. What paints gives back the engine's error, null for none.
class Canvas {
public:
    Canvas(std::int32_t width, std::int32_t height, std::int32_t bitsPerPixel = 8)
        : Canvas(CanvasLayout{width, height, bitsPerPixel}) {}

    explicit Canvas(const CanvasLayout& layout)
        : layout_(layout), bytes_(2 * kGuardBytes + std::size_t{layout.RowBytes()} * Rows(layout), kPattern) {
        Clear(0);
        bitmap_ = {FirstRow(),
                   layout.RowBytes(),
                   layout.left,
                   layout.top,
                   layout.left + layout.width,
                   layout.top + layout.height,
                   layout.bitsPerPixel,
                   layout.bitsPerPixel == 32 ? kHuexAlphaRgb : kHuexGray};
        port_ = NewPort(&bitmap_);
        if (port_ == nullptr) {
            throw std::logic_error("no port");
        }
        White();
    }

    ~Canvas() {
        ReleasePort();
        EXPECT_TRUE(GuardsAreIntact()) << "written beside the pixels";
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    VecPort Port() const { return port_; }
    const CanvasLayout& Layout() const { return layout_; }

    /// Any of the procedures.
    template <class Type, class... Arguments> auto Call(abi::Port place, Arguments... arguments) const {
        return CallOn<Type>(port_, place, arguments...);
    }

    /// Gives up the reference to the port, whose procedures are called no more.
    void ReleasePort() {
        if (port_ != nullptr) {
            Call<VecPortCommandType>(abi::Port::kRelease);
            port_ = nullptr;
        }
    }

    /// What the port was made of.
    const VecBitmap& Bitmap() const { return bitmap_; }

    // Pixels

    /// A pixel: 0xAARRGGBB, a byte, or a bit.
    std::uint32_t Get(std::int32_t x, std::int32_t y) const {
        const std::uint8_t* const row = RowOf(y);
        const std::int32_t column = x - layout_.left;
        if (layout_.bitsPerPixel == 32) {
            std::uint32_t word = 0;
            std::memcpy(&word, row + std::int64_t{column} * 4, sizeof word);
            return word;
        }
        if (layout_.bitsPerPixel == 8) {
            return row[column];
        }
        return std::uint32_t{row[column / 8]} >> (7 - column % 8) & 1;
    }

    void Set(std::int32_t x, std::int32_t y, std::uint32_t value) {
        std::uint8_t* const row = FirstRow() + RowOffset(y);
        const std::int32_t column = x - layout_.left;
        if (layout_.bitsPerPixel == 32) {
            std::memcpy(row + std::int64_t{column} * 4, &value, sizeof value);
        } else if (layout_.bitsPerPixel == 8) {
            row[column] = static_cast<std::uint8_t>(value);
        } else {
            const std::uint32_t mask = 0x80U >> (column % 8);
            const std::uint32_t others = row[column / 8] & ~mask;
            row[column / 8] = static_cast<std::uint8_t>(others | (value != 0 ? mask : 0));
        }
    }

    void Clear(std::uint32_t value) {
        for (std::int32_t y = layout_.top; y < layout_.top + layout_.height; ++y) {
            if (layout_.bitsPerPixel == 8) {
                std::memset(FirstRow() + RowOffset(y), static_cast<int>(value),
                            static_cast<std::size_t>(layout_.width));
                continue;
            }
            for (std::int32_t x = layout_.left; x < layout_.left + layout_.width; ++x) {
                Set(x, y, value);
            }
        }
    }

    /// All pixels row by row.
    std::vector<std::uint32_t> Pixels() const {
        std::vector<std::uint32_t> pixels;
        for (std::int32_t y = layout_.top; y < layout_.top + layout_.height; ++y) {
            for (std::int32_t x = layout_.left; x < layout_.left + layout_.width; ++x) {
                pixels.push_back(Get(x, y));
            }
        }
        return pixels;
    }

    /// The bytes of a row's pixels.
    const std::uint8_t* RowOf(std::int32_t y) const { return bytes_.data() + kGuardBytes + RowOffset(y); }

    bool GuardsAreIntact() const {
        const auto isGuard = [](std::uint8_t byte) { return byte == kPattern; };
        const auto guard = static_cast<std::ptrdiff_t>(kGuardBytes);
        bool areIntact = std::all_of(bytes_.begin(), bytes_.begin() + guard, isGuard) &&
                         std::all_of(bytes_.end() - guard, bytes_.end(), isGuard);
        for (std::int32_t y = layout_.top; y < layout_.top + layout_.height; ++y) {
            const std::uint8_t* const end = RowOf(y) + layout_.RowBytes();
            areIntact = areIntact && std::all_of(end - layout_.spareBytes, end, isGuard) && SpareBitsAreIntact(y);
        }
        return areIntact;
    }

    // Colours and options

    void Gray(float gray) { SetColor(kHuexGray, &gray, 1); }
    void White() { layout_.bitsPerPixel == 32 ? AlphaRgb(1, 1, 1, 1) : Gray(1); }
    void AlphaRgb(float alpha, float red, float green, float blue) {
        const float components[4] = {alpha, red, green, blue};
        SetColor(kHuexAlphaRgb, components, 4);
    }
    void Options(std::int32_t value) {
        Call<VecPortOptionsV3Type>(abi::Port::kOptions, std::int32_t{kVecAntiAliasOptions}, value);
    }
    void Smooth() { Options(kVecSmoothPaint | kVecSmoothClips); }
    void Hard() { Options(0); }

    // Paths

    void NewPath() { Call<VecPortCommandType>(abi::Port::kNewPath); }
    void MoveTo(float x, float y) { Call<VecPortPointType>(abi::Port::kMoveTo, x, y); }
    void LineTo(float x, float y) { Call<VecPortPointType>(abi::Port::kLineTo, x, y); }
    void CurveTo(float x1, float y1, float x2, float y2, float x3, float y3) {
        Call<VecPortCurveType>(abi::Port::kCurveTo, x1, y1, x2, y2, x3, y3);
    }
    void ClosePath() { Call<VecPortCommandType>(abi::Port::kClosePath); }

    /// A closed part of the path.
    template <class Points> void Polygon(const Points& points) {
        Lines(points);
        ClosePath();
    }

    /// An open part of the path.
    template <class Points> void Lines(const Points& points) {
        bool isFirst = true;
        for (const auto& point : points) {
            const auto x = static_cast<float>(point.x);
            const auto y = static_cast<float>(point.y);
            isFirst ? MoveTo(x, y) : LineTo(x, y);
            isFirst = false;
        }
    }

    /// A closed rectangle, clockwise from its top-left corner.
    void Rect(float left, float top, float right, float bottom) {
        MoveTo(left, top);
        LineTo(right, top);
        LineTo(right, bottom);
        LineTo(left, bottom);
        ClosePath();
    }

    // Painting and clips

    KelError Fill() { return Paint(abi::Port::kFill); }
    KelError EOFill() { return Paint(abi::Port::kEOFill); }
    KelError Stroke() { return Paint(abi::Port::kStroke); }
    KelError Clip() { return Paint(abi::Port::kClip); }
    KelError EOClip() { return Paint(abi::Port::kEOClip); }
    KelError Paint(abi::Port place) { return Call<VecPortPaintType>(place); }
    KelError PaintRect(abi::Port place, const VecRect& rect) { return Call<VecPortRectPaintType>(place, &rect); }

    /// The error that the port keeps.
    KelError Error() const { return Call<VecPortGetErrorType>(abi::Port::kGetKelError); }

    // Graphics state

    void GSave() { Call<VecPortCommandType>(abi::Port::kGSave); }
    void GRestore() { Call<VecPortCommandType>(abi::Port::kGRestore); }
    void LineWidth(float width) { Call<VecPortNumberType>(abi::Port::kSetLineWidth, width); }
    void LineCap(std::int32_t cap) { Call<VecPortChoiceType>(abi::Port::kSetLineCap, cap); }
    void LineJoin(std::int32_t join) { Call<VecPortChoiceType>(abi::Port::kSetLineJoin, join); }
    void Translate(float x, float y) { Call<VecPortPointType>(abi::Port::kTranslate, x, y); }
    void Scale(float x, float y) { Call<VecPortPointType>(abi::Port::kScale, x, y); }
    void SetMatrix(const VecMatrix& m) {
        const VecPort gstate = Call<VecPortGetGStatePortType>(abi::Port::kGetGStatePort);
        const auto set = Procedure<VecGStatePortSetMatrixType>(abi::kGStatePortInterface, abi::kGStatePortProcedures,
                                                               abi::GStatePort::kSetMatrix);
        if (gstate == nullptr || set == nullptr) {
            throw std::logic_error("no graphics state");
        }
        set(gstate, m.a, m.b, m.c, m.d, m.tx, m.ty);
    }
    VecMatrix GetMatrix() const {
        VecMatrix matrix{};
        Call<VecPortGetMatrixType>(abi::Port::kGetMatrix, &matrix);
        return matrix;
    }

private:
    static constexpr std::uint8_t kPattern = 0xA5;
    static constexpr std::size_t kGuardBytes = 64;

    static std::size_t Rows(const CanvasLayout& layout) { return static_cast<std::size_t>(layout.height); }

    std::uint8_t* FirstRow() { return bytes_.data() + kGuardBytes; }
    std::ptrdiff_t RowOffset(std::int32_t y) const {
        return static_cast<std::ptrdiff_t>(std::int64_t{y - layout_.top} * layout_.RowBytes());
    }

    bool SpareBitsAreIntact(std::int32_t y) const {
        const std::int32_t used = layout_.width % 8;
        if (layout_.bitsPerPixel != 1 || used == 0) {
            return true;
        }
        const unsigned spareMask = 0xFFU >> used;
        return ((RowOf(y)[layout_.width / 8] ^ kPattern) & spareMask) == 0;
    }

    void SetColor(HuexColorSpace space, const float* components, std::int32_t count) {
        static const auto make =
            Procedure<HuexNewColorType>(abi::kColorInterface, abi::kColorProcedures, abi::Color::kNewColor);
        static const auto release =
            Procedure<HuexColorReleaseType>(abi::kColorInterface, abi::kColorProcedures, abi::Color::kRelease);
        const HuexColor color = make(space, components, count);
        Call<VecPortSetColorServerV4Type>(abi::Port::kSetColorServer, color, std::int32_t{0}, std::int32_t{0});
        release(color);
    }

    CanvasLayout layout_;
    std::vector<std::uint8_t> bytes_;
    VecBitmap bitmap_{};
    VecPort port_ = nullptr;
};

} // namespace tn::test
