#include <windows.h>

// Threads that come and go are none of the library's business. This C runtime knows no hook that would want to hear of
// them.
BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(library);
    }
    return TRUE;
}
