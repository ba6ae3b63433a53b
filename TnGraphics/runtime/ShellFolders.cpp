#include "TnGraphics/runtime/ShellFolders.h"

#include <utility>

namespace tn {
namespace {

constinit const Shell* theShell = &kPlatformShell;

} // namespace

const Shell& TheShell() { return *theShell; }

const Shell* ExchangeShell(const Shell* shell) { return std::exchange(theShell, shell); }

} // namespace tn
