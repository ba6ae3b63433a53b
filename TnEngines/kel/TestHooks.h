// Private: what tests do to the runtime.
#pragma once

#include <cstdint>

namespace tn::kel {

/// Lets a procedure be missing, by whomever it is offered, for as long as this lives. The names must live as long.
///
/// It raises the counter of unregistered interfaces at its beginning and at its end, so that tables are filled again.
class HiddenProcedure {
public:
    HiddenProcedure(const char* interfaceName, const char* procedureName);
    ~HiddenProcedure();
    HiddenProcedure(const HiddenProcedure&) = delete;
    HiddenProcedure& operator=(const HiddenProcedure&) = delete;

private:
    friend bool IsHidden(const char* interfaceName, const char* procedureName) noexcept;

    bool Hides(const char* interfaceName, const char* procedureName) const;

    const char* interfaceName_;
    const char* procedureName_;
    HiddenProcedure* previous_;
    HiddenProcedure* next_;
};

bool IsHidden(const char* interfaceName, const char* procedureName) noexcept;

/// Gives the counter of unregistered interfaces another value.
void SetUnregisterCount(std::uint32_t count);

} // namespace tn::kel
