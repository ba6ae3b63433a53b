// Private: the colour engine's life.
#pragma once

namespace tn::huex {

bool IsStarted();

} // namespace tn::huex
