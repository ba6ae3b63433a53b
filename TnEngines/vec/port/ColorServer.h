// Private: the colour of a port.
#pragma once

#include "TnEngines/abi/huex_procedures.h"
#include "TnEngines/vec/paint/Painters.h"

namespace tn::vec {

/// A reference to a client's colour, whose components are copied. Opaque black without one.
class ColorServer {
public:
    ColorServer() = default;
    explicit ColorServer(HuexColor color);
    ColorServer(const ColorServer& other);
    ColorServer(ColorServer&& other) noexcept;
    ColorServer& operator=(ColorServer other) noexcept;
    ~ColorServer();

    /// Null for the colour that a port begins with.
    HuexColor Client() const { return client_; }

    /// What to paint with: gray for mattes and masks.
    const PaintColor& ForImages() const { return forImages_; }
    const PaintColor& ForGray() const { return forGray_; }

private:
    HuexColor client_ = nullptr;
    PaintColor forImages_;
    PaintColor forGray_;
};

} // namespace tn::vec
