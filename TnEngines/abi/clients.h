// Private: what clients give to the engines: objects with the procedures by which the engines use them.
//
// Each procedure gets the client's object and gives null or an error, which is the caller's to release. None lets a C++
// exception out.
#pragma once

#include "TnEngines/abi/kel.h"
#include "TnEngines/abi/vec_procedures.h"

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Is told what happens to a port.
typedef struct VecPortClientProcs {
    KelError (*damaged)(void* client, const VecRect* area);
    KelError (*released)(void* client);
} VecPortClientProcs;

/// Is told that a port's graphics state is another one.
typedef struct VecGStatePortClientProcs {
    KelError (*changed)(void* client);
} VecGStatePortClientProcs;

/// Pixels of an image, for as long as they are locked.
typedef struct VecImageTileProcs {
    KelError (*lock)(void* client, VecBitmap* bitmap);
    KelError (*unlock)(void* client);
} VecImageTileProcs;

/// The tiles of an image one after the other; null after the last one.
typedef struct VecImageIteratorProcs {
    KelError (*next)(void* client, void** tile);
    KelError (*restart)(void* client);
} VecImageIteratorProcs;

/// An image that is made where it is needed.
typedef struct VecImageProducerProcs {
    KelError (*bounds)(void* client, VecRect* bounds);
    KelError (*produce)(void* client, const VecRect* area, void** tile);
} VecImageProducerProcs;

/// Plays a page description into a port.
typedef struct VecEpsClientProcs {
    KelError (*playEps)(void* client, VecPort port);
} VecEpsClientProcs;

/// Pages on a printing device.
typedef struct VecPrintDeviceControllerProcs {
    KelError (*beginPage)(void* client, const VecRect* page);
    KelError (*endPage)(void* client);
} VecPrintDeviceControllerProcs;

/// Takes the segments of a path.
typedef struct VecLineSegmentProcs {
    KelError (*segment)(void* client, const VecPoint* from, const VecPoint* to);
} VecLineSegmentProcs;

/// Converts colours, count pixels of four components at a time.
typedef struct HuexConversionSegmentProcs {
    KelError (*convert)(void* client, const float* from, float* to, int32_t count);
} HuexConversionSegmentProcs;

/// Bytes in order.
typedef struct KelStreamProcs {
    KelError (*read)(void* client, void* bytes, uint32_t count, uint32_t* got);
    KelError (*write)(void* client, const void* bytes, uint32_t count);
    KelError (*seek)(void* client, uint64_t position);
} KelStreamProcs;

/// Is told how far work has come, and may stop it by an error.
typedef struct KelProgressProcs {
    KelError (*progress)(void* client, uint32_t done, uint32_t total);
} KelProgressProcs;

#ifdef __cplusplus
}
#endif
