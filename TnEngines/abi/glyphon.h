// Private: the font engine `Glyphon`: how it is started and stopped.
#pragma once

#include "TnEngines/abi/kel.h"

#include <stddef.h>
#include <stdint.h>
#ifndef __cplusplus
#include <uchar.h>
#endif

#ifdef __cplusplus
extern "C" {
#endif

/// Where fonts are looked for: paths as zero-terminated UTF-16 strings, which live as long as the call they are given
/// to.
typedef struct FontSupportParams {
    uint32_t version; ///< 1
    const char16_t* osFontList;
    const char16_t* commonFontList;
    const char16_t* spare1; ///< Null.
    const char16_t* fontNamesDatabase;
    const char16_t* unicodeFolder;
    const char16_t* spare2; ///< Null.
    const char16_t* cmapsFolder;
    const char16_t* cmapList;
} FontSupportParams;

/// Not 0 when it is started; 0 for a null procedure and for a record of another version.
///
/// \param client   the client's number: 18
/// \param japanese 1 where Japanese fonts come first, else 0
uint32_t GlyphonStartup(KelGetAddressProc getAddress, uint32_t client, uint32_t japanese,
                        const FontSupportParams* params);

/// May be called at any time, any number of times.
void GlyphonShutdown(void);

/// The version, packed: major from bit 16, minor from bit 8, patch. Bit 31 has no meaning.
uint32_t GlyphonVersion(void);

#ifdef __cplusplus
}

static_assert(sizeof(void*) != 8 ||
              (offsetof(FontSupportParams, version) == 0 && offsetof(FontSupportParams, osFontList) == 8 &&
               offsetof(FontSupportParams, commonFontList) == 16 && offsetof(FontSupportParams, spare1) == 24 &&
               offsetof(FontSupportParams, fontNamesDatabase) == 32 &&
               offsetof(FontSupportParams, unicodeFolder) == 40 && offsetof(FontSupportParams, spare2) == 48 &&
               offsetof(FontSupportParams, cmapsFolder) == 56 && offsetof(FontSupportParams, cmapList) == 64 &&
               sizeof(FontSupportParams) == 72));
#endif
