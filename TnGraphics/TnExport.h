/// \file
/// The export macro: marks what hosts of the library can link against.
#pragma once

/// \def TN_EXPORT
/// Exported by the library that is being built, and imported by everyone else.
#if defined(_WIN32)
#if defined(TNGRAPHICS_BUILDING)
#define TN_EXPORT __declspec(dllexport)
#elif defined(TNGRAPHICS_STATIC)
#define TN_EXPORT
#else
#define TN_EXPORT __declspec(dllimport)
#endif
#else
#define TN_EXPORT __attribute__((visibility("default")))
#endif
