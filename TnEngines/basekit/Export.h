// Private: marks the entries that hosts reach through the inline code of the public header. On Windows module
// definition files name them: by name in the library, by ordinal in a library of their own.
#pragma once

#if defined(_WIN32)
#define BASEKIT_EXPORT
#else
#define BASEKIT_EXPORT __attribute__((visibility("default")))
#endif
