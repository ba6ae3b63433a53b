#include "TnGraphics/port/TnBitMapHelper.h"

#include "tests/support/RecordingStorage.h"
#include "tests/support/Slots.h"

#include "TnGraphics/port/WinBitMapHelper.h"

#include <gtest/gtest.h>
#include <memory>
#include <type_traits>

namespace tn::test {
namespace {

static_assert(std::is_abstract_v<TnBitMapHelper>);
static_assert(std::has_virtual_destructor_v<TnBitMapHelper>);
static_assert(!std::is_copy_constructible_v<TnBitMapHelper>);
static_assert(!std::is_copy_assignable_v<TnBitMapHelper>);

// Storage that says no more than it must.
class PlainStorage : public TnBitMapHelper {
public:
    void* BaseAddr() const override { return nullptr; }
    std::uint32_t RowBytes() const override { return 0; }
    std::uint32_t ByteSize() const override { return 0; }
    bool Contains(const void*) const override { return false; }
    void Refresh() override {}
};

TEST(TnBitMapHelper, HasItsContentOriginAtZeroWhenMade) { EXPECT_EQ(PlainStorage().contentOrigin, TnPoint{}); }

TEST(TnBitMapHelper, NeedNotCareAboutLocks) {
    PlainStorage storage;
    TnBitMapHelper& helper = storage;
    helper.Lock();
    helper.Unlock();
}

TEST(TnBitMapHelper, IsDeletedThroughItsVirtualDestructor) {
    StorageProbe probe;
    std::unique_ptr<TnBitMapHelper> helper = std::make_unique<RecordingStorage>(probe, 8U, 1U);
    helper.reset();
    EXPECT_EQ(probe.destructions, 1);
}

#if defined(__GXX_ABI_VERSION)
TEST(TnBitMapHelper, KeepsTheOrderOfItsSlots) {
    EXPECT_EQ(SlotOf(&TnBitMapHelper::BaseAddr), 2);
    EXPECT_EQ(SlotOf(&TnBitMapHelper::RowBytes), 3);
    EXPECT_EQ(SlotOf(&TnBitMapHelper::ByteSize), 4);
    EXPECT_EQ(SlotOf(&TnBitMapHelper::Contains), 5);
    EXPECT_EQ(SlotOf(&TnBitMapHelper::Lock), 6);
    EXPECT_EQ(SlotOf(&TnBitMapHelper::Unlock), 7);
    EXPECT_EQ(SlotOf(&TnBitMapHelper::Refresh), 8);
}

TEST(WinBitMapHelper, AddsItsSlotsAfterTheInheritedOnes) {
    EXPECT_EQ(SlotOf(&WinBitMapHelper::ImageBytes), 9);
    EXPECT_EQ(SlotOf(&WinBitMapHelper::Depth), 10);
    EXPECT_EQ(SlotOf(&WinBitMapHelper::Size), 11);
}
#endif

} // namespace
} // namespace tn::test
