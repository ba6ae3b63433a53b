#include "TnGraphics/runtime/RuntimeState.h"

namespace tn {
namespace {

constinit RuntimeState theState;

} // namespace

RuntimeState& TheRuntimeState() { return theState; }

} // namespace tn
