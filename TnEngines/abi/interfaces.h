// Private: the names of every interface and procedure that crosses between the library and the engines.
//
// Both sides and their tests share these lists. A table's entries are in the order of its list, and the enumerations
// give them names.
#pragma once

#include <array>
#include <cstddef>

namespace tn::abi {

/// A procedure by its place in an interface's table and by its own name, which carries its version.
struct ProcedureName {
    const char* method;
    const char* procedure;
};

// The runtime

inline constexpr const char* kKel = "Kel";
inline constexpr std::array<ProcedureName, 5> kCoreProcedures = {{
    {"KelRegisterProcAddress", "KelRegisterProcAddress"},
    {"KelReportError", "KelReportError"},
    {"KelUnregisterInterface", "KelUnregisterInterface"},
    {"KelGetUnregisterCountAddr", "KelGetUnregisterCountAddr"},
    {"KelIsMultiThreaded", "KelIsMultiThreaded"},
}};
enum class Core { kRegisterProcAddress, kReportError, kUnregisterInterface, kGetUnregisterCountAddr, kIsMultiThreaded };

/// The version of the interfaces that the lists below are of.
inline constexpr int kInterfaceVersion = 13;

inline constexpr const char* kBaseInterface = "KelBaseInterface";
inline constexpr std::array<ProcedureName, 1> kBaseProcedures = {{
    {"GetInterfaceVersion", "KelGetInterfaceVersionProc"},
}};
enum class Base { kGetInterfaceVersion };

inline constexpr const char* kErrorInterface = "KelErrorInterface";
inline constexpr std::array<ProcedureName, 7> kErrorProcedures = {{
    {"NewError", "KelNewErrorProc"},
    {"GetCoreError", "KelGetCoreErrorProc"},
    {"AddReference", "KelErrorAddReferenceProc"},
    {"Release", "KelErrorReleaseProc"},
    {"GetComponent", "KelErrorGetComponentProc"},
    {"GetNumber", "KelErrorGetNumberProc"},
    {"GetMessage", "KelErrorGetMessageProc"},
}};
enum class Error { kNewError, kGetCoreError, kAddReference, kRelease, kGetComponent, kGetNumber, kGetMessage };

/// The component of core errors.
inline constexpr const char* kCoreComponent = "QMZ";
inline constexpr int kOutOfMemory = 1;

inline constexpr const char* kMemoryInterface = "KelMemoryInterface";
inline constexpr std::array<ProcedureName, 3> kMemoryProcedures = {{
    {"Allocate", "KelAllocateProc"},
    {"Reallocate", "KelReallocateProc"},
    {"Free", "KelFreeProc"},
}};
enum class Memory { kAllocate, kReallocate, kFree };

inline constexpr const char* kContainerInterface = "KelContainerInterface";
inline constexpr std::array<ProcedureName, 2> kContainerProcedures = {{
    {"RegisterCallback", "KelRegisterContainerCallbackProc"},
    {"UnregisterCallback", "KelUnregisterContainerCallbackProc"},
}};
enum class Container { kRegisterCallback, kUnregisterCallback };

// Colours

inline constexpr const char* kColorInterface = "HuexColorInterface";
inline constexpr std::array<ProcedureName, 7> kColorProcedures = {{
    {"NewColor", "HuexNewColorProc"},
    {"AddReference", "HuexColorAddReferenceProc"},
    {"Release", "HuexColorReleaseProc"},
    {"GetSpace", "HuexColorGetSpaceProc"},
    {"GetComponents", "HuexColorGetComponentsProc"},
    {"GetAlphaRgbBytes", "HuexColorGetAlphaRgbBytesProc"},
    {"GetGrayAlphaBytes", "HuexColorGetGrayAlphaBytesProc"},
}};
enum class Color {
    kNewColor,
    kAddReference,
    kRelease,
    kGetSpace,
    kGetComponents,
    kGetAlphaRgbBytes,
    kGetGrayAlphaBytes
};

// Drawing

inline constexpr const char* kNewRasterPortInterface = "VecNewRasterPortInterface";
inline constexpr std::array<ProcedureName, 1> kNewRasterPortProcedures = {{
    {"NewBitmapPort", "VecRasterPortNewBitmapPortV3Proc"},
}};
enum class NewRasterPort { kNewBitmapPort };

inline constexpr const char* kGStatePortInterface = "VecGStatePortInterface";
inline constexpr std::array<ProcedureName, 1> kGStatePortProcedures = {{
    {"SetMatrix", "VecGStatePortSetMatrixProc"},
}};
enum class GStatePort { kSetMatrix };

/// The interface of raster ports, which offers what every kind of port does.
inline constexpr const char* kRasterPortInterface = "VecRasterPortInterface";
inline constexpr std::array<ProcedureName, 66> kPortProcedures = {{
    {"GetPortType", "VecPortGetPortTypeProc"},
    {"AddReference", "VecPortAddReferenceProc"},
    {"Release", "VecPortReleaseProc"},
    {"GetGStatePort", "VecPortGetGStatePortProc"},
    {"GetKelError", "VecPortGetKelErrorProc"},
    {"GetBounds", "VecPortGetBoundsProc"},
    {"Options", "VecPortOptionsProcV3"},
    {"GetOptions", "VecPortGetOptionsProc"},
    {"Flush", "VecPortFlushProc"},
    // Paths
    {"NewPath", "VecPortNewPathProc"},
    {"MoveTo", "VecPortMoveToProc"},
    {"LineTo", "VecPortLineToProc"},
    {"CurveTo", "VecPortCurveToProc"},
    {"ClosePath", "VecPortClosePathProc"},
    {"MoveBy", "VecPortMoveByProc"},
    {"LineBy", "VecPortLineByProc"},
    {"CurveBy", "VecPortCurveByProc"},
    {"AddRect", "VecPortAddRectProc"},
    {"AddEllipse", "VecPortAddEllipseProc"},
    {"GetCurrentPoint", "VecPortGetCurrentPointProc"},
    {"GetPathBounds", "VecPortGetPathBoundsProc"},
    {"IsPathEmpty", "VecPortIsPathEmptyProc"},
    {"GetPathLength", "VecPortGetPathLengthProc"},
    {"ReversePath", "VecPortReversePathProc"},
    {"FlattenPath", "VecPortFlattenPathProc"},
    // Painting
    {"Fill", "VecPortFillProcV2"},
    {"EOFill", "VecPortEOFillProcV2"},
    {"Stroke", "VecPortStrokeProcV2"},
    {"FillRect", "VecPortFillRectProc"},
    {"StrokeRect", "VecPortStrokeRectProc"},
    {"ErasePage", "VecPortErasePageProc"},
    {"IsPointInFill", "VecPortIsPointInFillProc"},
    {"IsPointInEOFill", "VecPortIsPointInEOFillProc"},
    // Clips
    {"Clip", "VecPortClipProcV2"},
    {"EOClip", "VecPortEOClipProcV2"},
    {"ClipRect", "VecPortClipRectProc"},
    {"InitClip", "VecPortInitClipProc"},
    {"GetClipBounds", "VecPortGetClipBoundsProc"},
    {"IsClipEmpty", "VecPortIsClipEmptyProc"},
    // Graphics state
    {"GSave", "VecPortGSaveProc"},
    {"GRestore", "VecPortGRestoreProc"},
    {"GRestoreAll", "VecPortGRestoreAllProc"},
    {"InitGraphics", "VecPortInitGraphicsProc"},
    {"GetSaveDepth", "VecPortGetSaveDepthProc"},
    {"SetLineWidth", "VecPortSetLineWidthProc"},
    {"GetLineWidth", "VecPortGetLineWidthProc"},
    {"SetLineCap", "VecPortSetLineCapProc"},
    {"GetLineCap", "VecPortGetLineCapProc"},
    {"SetLineJoin", "VecPortSetLineJoinProc"},
    {"GetLineJoin", "VecPortGetLineJoinProc"},
    {"GetMiterLimit", "VecPortGetMiterLimitProc"},
    {"SetFlatness", "VecPortSetFlatnessProc"},
    {"GetFlatness", "VecPortGetFlatnessProc"},
    {"SetColorServer", "VecPortSetColorServerProcV4"},
    {"GetColorServer", "VecPortGetColorServerProc"},
    // Transformation
    {"Translate", "VecPortTranslateProc"},
    {"Scale", "VecPortScaleProc"},
    {"Shear", "VecPortShearProc"},
    {"ConcatMatrix", "VecPortConcatMatrixProc"},
    {"InitMatrix", "VecPortInitMatrixProc"},
    {"GetMatrix", "VecPortGetMatrixProc"},
    {"IsMatrixInvertible", "VecPortIsMatrixInvertibleProc"},
    {"TransformPoint", "VecPortTransformPointProc"},
    {"InverseTransformPoint", "VecPortInverseTransformPointProc"},
    {"TransformDistance", "VecPortTransformDistanceProc"},
    {"InverseTransformDistance", "VecPortInverseTransformDistanceProc"},
}};
/// The places of a port's procedures.
enum class Port {
    kGetPortType,
    kAddReference,
    kRelease,
    kGetGStatePort,
    kGetKelError,
    kGetBounds,
    kOptions,
    kGetOptions,
    kFlush,
    kNewPath,
    kMoveTo,
    kLineTo,
    kCurveTo,
    kClosePath,
    kMoveBy,
    kLineBy,
    kCurveBy,
    kAddRect,
    kAddEllipse,
    kGetCurrentPoint,
    kGetPathBounds,
    kIsPathEmpty,
    kGetPathLength,
    kReversePath,
    kFlattenPath,
    kFill,
    kEOFill,
    kStroke,
    kFillRect,
    kStrokeRect,
    kErasePage,
    kIsPointInFill,
    kIsPointInEOFill,
    kClip,
    kEOClip,
    kClipRect,
    kInitClip,
    kGetClipBounds,
    kIsClipEmpty,
    kGSave,
    kGRestore,
    kGRestoreAll,
    kInitGraphics,
    kGetSaveDepth,
    kSetLineWidth,
    kGetLineWidth,
    kSetLineCap,
    kGetLineCap,
    kSetLineJoin,
    kGetLineJoin,
    kGetMiterLimit,
    kSetFlatness,
    kGetFlatness,
    kSetColorServer,
    kGetColorServer,
    kTranslate,
    kScale,
    kShear,
    kConcatMatrix,
    kInitMatrix,
    kGetMatrix,
    kIsMatrixInvertible,
    kTransformPoint,
    kInverseTransformPoint,
    kTransformDistance,
    kInverseTransformDistance,
};
static_assert(static_cast<std::size_t>(Port::kInverseTransformDistance) + 1 == kPortProcedures.size());

} // namespace tn::abi
