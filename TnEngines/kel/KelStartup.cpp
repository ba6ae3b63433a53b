#include "TnEngines/abi/kel.h"
#include "TnEngines/kel/GetAddress.h"

// Everything that the runtime keeps is there before it is started, and it takes what memory it needs when it is needed.
KelGetAddressProc KelStartup(uint64_t) { return &tn::kel::GetAddress; }
