// Random surfaces whose every byte can be read back.
#pragma once

#include "tests/models/ModelPicture.h"
#include "tests/support/CancelAtPoll.h"
#include "tests/support/GuardedStorage.h"
#include "tests/support/Random.h"

#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tn::test {

/// What lies behind a surface, and what lies around its rows.
enum class Backing {
    kOwnStorage,  ///< The library's own storage, with its spare bytes after each row.
    kGuardAfter,  ///< A page that faults after each row, spare bytes before it.
    kGuardBefore, ///< A page that faults before each row, spare bytes after it.
};

/// The model's value for a pixel of a surface.
template <class SurfaceType> using ValueOf = decltype(SurfaceType::Pixel::value);

/// A surface of random size with random pixels and content rectangle.
template <class SurfaceType> class Picture {
public:
    using Value = ValueOf<SurfaceType>;
    using Model = ModelPicture<Value>;

    explicit Picture(Random& random) : Picture(random, random.Size(), random.OneOf(kBackings)) {}

    /// On storage of any backing. In half of the cases it is the library's own, since pages take their time.
    Picture(Random& random, const TnPoint& size, TnCancelProc cancelProc)
        : Picture(random, size, random.OneIn(2) ? Backing::kOwnStorage : random.OneOf(kBackings), cancelProc) {}

    Picture(Random& random, const TnPoint& size, Backing backing, TnCancelProc cancelProc = &PollWatch::Proc)
        : backing_(backing), surface_(MakeSurface(size, backing, cancelProc)) {
        Model model = Snapshot();
        std::generate(model.values.begin(), model.values.end(), [&] { return RandomValue(random); });
        Restore(model);
        if (surface_.Storage() != nullptr) {
            surface_.Content(random.RectWithin(size));
        }
    }

    SurfaceType& Surface() { return surface_; }
    const SurfaceType& Surface() const { return surface_; }

    /// Everything that can be read in the rows: the spare bytes beside the pixels too, up to some dozens.
    Model Snapshot() const {
        const std::int32_t columns = SpareBefore() + surface_.StorageSize().x + SpareAfter();
        Model model = UniformPicture<Value>(columns, surface_.StorageSize().y, 0);
        model.content = surface_.Content();
        model.content.left += SpareBefore();
        ForEachRow(model, [](Value* row, std::uint8_t* stored, std::size_t bytes) { std::memcpy(row, stored, bytes); });
        return model;
    }

    /// Puts back what a snapshot holds.
    void Restore(const Model& model) {
        ForEachRow(model,
                   [](const Value* row, std::uint8_t* stored, std::size_t bytes) { std::memcpy(stored, row, bytes); });
    }

private:
    static constexpr std::array<Backing, 3> kBackings = {Backing::kOwnStorage, Backing::kGuardAfter,
                                                         Backing::kGuardBefore};

    static SurfaceType MakeSurface(const TnPoint& size, Backing backing, TnCancelProc cancelProc) {
        if (backing == Backing::kOwnStorage) {
            return SurfaceType(size, false, cancelProc);
        }
        const Guard guard = backing == Backing::kGuardAfter ? Guard::kAfterRows : Guard::kBeforeRows;
        return SurfaceType(new GuardedStorage(size, sizeof(Value), guard), size, cancelProc);
    }

    static Value RandomValue(Random& random) {
        if constexpr (sizeof(Value) == 1) {
            return random.Alpha();
        } else {
            return random.Pixel();
        }
    }

    // Pixels that can be read beside each row. A row of no pixels has no pages, so nothing lies beside it.
    std::int32_t SpareBefore() const { return backing_ == Backing::kGuardAfter ? SpareInPages() : 0; }
    std::int32_t SpareAfter() const {
        constexpr std::int32_t kSpareBytesInOwnStorage = 8;
        const std::int32_t inPages = backing_ == Backing::kGuardBefore ? SpareInPages() : 0;
        return backing_ == Backing::kOwnStorage ? kSpareBytesInOwnStorage / kValueBytes : inPages;
    }
    std::int32_t SpareInPages() const {
        constexpr std::int32_t kShownBytes = 64; // the widest vector; the rest of the page is far away
        const auto pageBytes = static_cast<std::int32_t>(AddressSpace::PageBytes());
        const std::int32_t beyondWholePages = surface_.StorageSize().x * kValueBytes % pageBytes;
        const std::int32_t spareBytes = beyondWholePages == 0 ? 0 : pageBytes - beyondWholePages;
        return std::min(spareBytes, kShownBytes) / kValueBytes;
    }

    template <class ModelType, class Work> void ForEachRow(ModelType& model, const Work& work) const {
        const auto columns = static_cast<std::size_t>(model.storageSize.x);
        if (columns == 0 || model.storageSize.y == 0 || surface_.Storage() == nullptr) {
            return;
        }
        auto* stored = static_cast<std::uint8_t*>(surface_.Storage()->BaseAddr()) - SpareBefore() * kValueBytes;
        for (std::int32_t y = 0; y < model.storageSize.y; ++y) {
            work(model.values.data() + static_cast<std::size_t>(y) * columns, stored, columns * sizeof(Value));
            stored += surface_.RowBytes();
        }
    }

    static constexpr auto kValueBytes = static_cast<std::int32_t>(sizeof(Value));

    Backing backing_;
    SurfaceType surface_;
};

} // namespace tn::test
