#include <windows.h>

// The C runtime's place for work on thread-local variables, of which there are none. Without it the library has no
// thread-local storage of the loader's, to which Windows would have to tell of every thread.
extern "C" const PIMAGE_TLS_CALLBACK __dyn_tls_init_callback = nullptr;

// Threads that come and go are none of the library's business. This C runtime knows no hook that would want to hear of
// them.
BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(library);
    }
    return TRUE;
}
