#include "TnGraphics/port/Exceptions.h"

#include "TnGraphics/port/Raise.h"

namespace tn {
namespace {

constexpr const char* kBadAllocationText = "bad allocation";

// The text of a plain std::bad_alloc differs from platform to platform; hosts show it.
class BadAllocation : public std::bad_alloc {
public:
    const char* what() const noexcept override { return kBadAllocationText; }
};

} // namespace

void RaiseBitmapExhausted() { throw bad_alloc_bitmap(); }

void RaiseBadAllocation() { throw BadAllocation(); }

} // namespace tn

bad_alloc_bitmap::~bad_alloc_bitmap() = default;

const char* bad_alloc_bitmap::what() const noexcept { return tn::kBadAllocationText; }
