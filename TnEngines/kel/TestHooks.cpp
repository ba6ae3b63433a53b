#include "TnEngines/kel/TestHooks.h"

#include "TnEngines/kel/Registrations.h"

#include <cstring>

namespace tn::kel {
namespace {

constinit HiddenProcedure* theLastHidden = nullptr;

} // namespace

HiddenProcedure::HiddenProcedure(const char* interfaceName, const char* procedureName)
    : interfaceName_(interfaceName), procedureName_(procedureName), previous_(theLastHidden), next_(nullptr) {
    if (previous_ != nullptr) {
        previous_->next_ = this;
    }
    theLastHidden = this;
    ++UnregisterCount();
}

HiddenProcedure::~HiddenProcedure() {
    if (previous_ != nullptr) {
        previous_->next_ = next_;
    }
    (next_ != nullptr ? next_->previous_ : theLastHidden) = previous_;
    ++UnregisterCount();
}

bool HiddenProcedure::Hides(const char* interfaceName, const char* procedureName) const {
    return std::strcmp(interfaceName_, interfaceName) == 0 && std::strcmp(procedureName_, procedureName) == 0;
}

bool IsHidden(const char* interfaceName, const char* procedureName) noexcept {
    for (const HiddenProcedure* hidden = theLastHidden; hidden != nullptr; hidden = hidden->previous_) {
        if (hidden->Hides(interfaceName, procedureName)) {
            return true;
        }
    }
    return false;
}

void SetUnregisterCount(std::uint32_t count) { UnregisterCount() = count; }

} // namespace tn::kel
