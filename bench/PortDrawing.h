// Ours drawing paths, as the peers in peers/DrawPeers.h do.
#pragma once

#include "TnGraphics/port/TnImage.h"
#include "TnGraphics/port/TnMatte.h"
#include "peers/DrawPeers.h"

namespace tn::bench {

/// Draws through a port on which drawing has begun before.
Work PortDraw(const std::shared_ptr<TnImage>& to, const SharedDrawing& drawing);
Work PortDraw(const std::shared_ptr<TnMatte>& to, const SharedDrawing& drawing);

/// For each path begins to draw, fills the path in the first colour and ends drawing.
Work PortBeginDrawEnd(const std::shared_ptr<TnImage>& to, const SharedDrawing& drawing);
Work PortBeginDrawEnd(const std::shared_ptr<TnMatte>& to, const SharedDrawing& drawing);

} // namespace tn::bench
