/// \file
/// The core utility library `basekit`, as far as the library needs it.
#pragma once

extern "C" {

/// Reports a failed debug assertion in the assertion dialog.
///
/// \param expression the asserted expression
/// \param function   the function that asserts
/// \param file       its source file
/// \param line       its line there
/// \param disabled   the site's own flag: while it is set nothing is reported; the dialog sets it when the reader wants
/// to
///                   hear no more of this site for the rest of the run
void BasekitAssertionFailed(const char* expression, const char* function, const char* file, int line, bool* disabled);
}
