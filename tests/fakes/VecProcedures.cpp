// The procedures of the recording vector engine.
#include "tests/fakes/RecordingEngines.h"

#include "TnEngines/abi/interfaces.h"

#include <array>
#include <cstring>
#include <utility>

namespace tn::test {
namespace {

using abi::Port;

constexpr const char* NameOf(Port place) { return abi::kPortProcedures[static_cast<std::size_t>(place)].procedure; }

CallLine::Word WordFor(const VecRect* rect) {
    return {rect == nullptr ? "null" : CallLine("rect", rect->left, rect->top, rect->right, rect->bottom).Text()};
}

CallLine::Word WordFor(const VecMatrix* matrix) {
    return {matrix == nullptr
                ? "null"
                : CallLine("matrix", matrix->a, matrix->b, matrix->c, matrix->d, matrix->tx, matrix->ty).Text()};
}

/// Notes a call and gives the port, or null where the handle is no living port.
template <class... Arguments> EngineObject* NotedPort(const char* name, VecPort port, const Arguments&... arguments) {
    RecordingEngines* const engines = RecordingEngines::Current(name);
    if (engines == nullptr) {
        return nullptr;
    }
    engines->Note(name, engines->NameOf(port), arguments...);
    return engines->handles.Use(name, port, HandleKind::kPort);
}

// An error that a port gives is borrowed until the next one takes its place.
template <class... Arguments> KelError Failing(const char* name, VecPort port, const Arguments&... arguments) {
    EngineObject* const object = NotedPort(name, port, arguments...);
    if (object == nullptr) {
        return nullptr;
    }
    RecordingEngines& engines = *RecordingEngines::Current(name);
    EngineObject* const last = std::exchange(object->lastError, engines.FaultOf(name));
    engines.handles.Release("the next call of a port", last, HandleKind::kError);
    return AsError(object->lastError);
}

// Each kind of procedure: what it gets, and what it gives where there is nothing to tell.

template <Port place> std::int32_t Query(VecPort port) {
    NotedPort(NameOf(place), port);
    return 0;
}
template <Port place> void Command(VecPort port) { NotedPort(NameOf(place), port); }
template <Port place> KelError Paint(VecPort port) { return Failing(NameOf(place), port); }
template <Port place> void Point(VecPort port, float x, float y) { NotedPort(NameOf(place), port, x, y); }
template <Port place> std::int32_t PointQuery(VecPort port, float x, float y) {
    NotedPort(NameOf(place), port, x, y);
    return 0;
}
template <Port place> void Curve(VecPort port, float x1, float y1, float x2, float y2, float x3, float y3) {
    NotedPort(NameOf(place), port, x1, y1, x2, y2, x3, y3);
}
template <Port place> void RectPath(VecPort port, const VecRect* rect) {
    NotedPort(NameOf(place), port, WordFor(rect));
}
template <Port place> KelError RectPaint(VecPort port, const VecRect* rect) {
    return Failing(NameOf(place), port, WordFor(rect));
}
template <Port place> void Number(VecPort port, float number) { NotedPort(NameOf(place), port, number); }
template <Port place> void Choice(VecPort port, std::int32_t choice) { NotedPort(NameOf(place), port, choice); }
template <Port place> float GetNumber(VecPort port) {
    NotedPort(NameOf(place), port);
    return 0;
}
template <Port place> std::int32_t GetPoint(VecPort port, VecPoint*) {
    NotedPort(NameOf(place), port);
    return 0;
}
template <Port place> std::int32_t ChangePoint(VecPort port, VecPoint* point) {
    NotedPort(NameOf(place), port, point->x, point->y);
    return 1;
}
template <Port place> std::int32_t GetRect(VecPort port, VecRect*) {
    NotedPort(NameOf(place), port);
    return 0;
}

// The procedures that are the only ones of their kind

std::int32_t GetPortType(VecPort port) {
    NotedPort(NameOf(Port::kGetPortType), port);
    return kVecRasterPort;
}

void AddReference(VecPort port) {
    constexpr const char* name = NameOf(Port::kAddReference);
    if (NotedPort(name, port) != nullptr) {
        RecordingEngines::Current(name)->handles.AddReference(name, port, HandleKind::kPort);
    }
}

void Release(VecPort port) {
    constexpr const char* name = NameOf(Port::kRelease);
    if (NotedPort(name, port) != nullptr) {
        RecordingEngines::Current(name)->handles.Release(name, port, HandleKind::kPort);
    }
}

VecPort GetGStatePort(VecPort port) {
    EngineObject* const object = NotedPort(NameOf(Port::kGetGStatePort), port);
    const bool isOffered = object != nullptr && RecordingEngines::Current("a graphics state")->offersGState;
    return isOffered ? AsPort(object->gstate) : nullptr;
}

KelError GetKelError(VecPort port) { return Failing(NameOf(Port::kGetKelError), port); }

void Options(VecPort port, std::int32_t group, std::int32_t value) {
    NotedPort(NameOf(Port::kOptions), port, group, value);
}

std::int32_t GetOptions(VecPort port, std::int32_t group) {
    NotedPort(NameOf(Port::kGetOptions), port, group);
    return 0;
}

void SetColorServer(VecPort port, HuexColor color, std::int32_t reserved1, std::int32_t reserved2) {
    constexpr const char* name = NameOf(Port::kSetColorServer);
    RecordingEngines* const engines = RecordingEngines::Current(name);
    if (engines != nullptr) {
        NotedPort(name, port, engines->NameOf(color), reserved1, reserved2);
        engines->handles.Use(name, color, HandleKind::kColor);
    }
}

HuexColor GetColorServer(VecPort port) {
    NotedPort(NameOf(Port::kGetColorServer), port);
    return nullptr;
}

void ConcatMatrix(VecPort port, const VecMatrix* matrix) {
    NotedPort(NameOf(Port::kConcatMatrix), port, WordFor(matrix));
}

void GetMatrix(VecPort port, VecMatrix* matrix) {
    NotedPort(NameOf(Port::kGetMatrix), port);
    *matrix = {1, 0, 0, 1, 0, 0};
}

void SetMatrix(VecPort gstate, float a, float b, float c, float d, float tx, float ty) {
    NotedPort("VecGStatePortSetMatrixProc", gstate, a, b, c, d, tx, ty);
}

void MakeGState(RecordingEngines& engines, EngineObject& port) {
    EngineObject& gstate = engines.handles.Make(HandleKind::kGState);
    gstate.owner = &port;
    port.gstate = &gstate;
}

KelError NewBitmapPort(const VecBitmap* bitmap, VecPort* port) {
    constexpr const char* name = "VecRasterPortNewBitmapPortV3Proc";
    RecordingEngines* const engines = RecordingEngines::Current(name);
    if (engines == nullptr) {
        return nullptr;
    }
    engines->Note(name, bitmap->rowBytes, bitmap->left, bitmap->top, bitmap->right, bitmap->bottom,
                  bitmap->bitsPerPixel, bitmap->colorKind);
    engines->lastBitmap = *bitmap;
    *port = nullptr;
    if (EngineObject* const fault = engines->FaultOf(name)) {
        return engines->Keep(fault);
    }
    if (engines->makesPorts) {
        EngineObject& made = engines->handles.Make(HandleKind::kPort);
        made.bitmap = *bitmap;
        MakeGState(*engines, made);
        *port = AsPort(&made);
    }
    return nullptr;
}

template <class Type> void* AddressOf(Type procedure) { return reinterpret_cast<void*>(procedure); }

struct Entry {
    Port place;
    void* address;
};

template <Port... places> std::array<Entry, sizeof...(places)> Commands() {
    return {Entry{places, AddressOf<VecPortCommandType>(&Command<places>)}...};
}
template <Port... places> std::array<Entry, sizeof...(places)> Queries() {
    return {Entry{places, AddressOf<VecPortQueryType>(&Query<places>)}...};
}
template <Port... places> std::array<Entry, sizeof...(places)> Paints() {
    return {Entry{places, AddressOf<VecPortPaintType>(&Paint<places>)}...};
}
template <Port... places> std::array<Entry, sizeof...(places)> Points() {
    return {Entry{places, AddressOf<VecPortPointType>(&Point<places>)}...};
}
template <Port... places> std::array<Entry, sizeof...(places)> Curves() {
    return {Entry{places, AddressOf<VecPortCurveType>(&Curve<places>)}...};
}
template <Port... places> std::array<Entry, sizeof...(places)> RectPaths() {
    return {Entry{places, AddressOf<VecPortRectPathType>(&RectPath<places>)}...};
}
template <Port... places> std::array<Entry, sizeof...(places)> RectPaints() {
    return {Entry{places, AddressOf<VecPortRectPaintType>(&RectPaint<places>)}...};
}
template <Port... places> std::array<Entry, sizeof...(places)> Numbers() {
    return {Entry{places, AddressOf<VecPortNumberType>(&Number<places>)}...};
}
template <Port... places> std::array<Entry, sizeof...(places)> Choices() {
    return {Entry{places, AddressOf<VecPortChoiceType>(&Choice<places>)}...};
}
template <Port... places> std::array<Entry, sizeof...(places)> NumberQueries() {
    return {Entry{places, AddressOf<VecPortGetNumberType>(&GetNumber<places>)}...};
}
template <Port... places> std::array<Entry, sizeof...(places)> PointGetters() {
    return {Entry{places, AddressOf<VecPortGetPointType>(&GetPoint<places>)}...};
}
template <Port... places> std::array<Entry, sizeof...(places)> PointChangers() {
    return {Entry{places, AddressOf<VecPortGetPointType>(&ChangePoint<places>)}...};
}
template <Port... places> std::array<Entry, sizeof...(places)> RectGetters() {
    return {Entry{places, AddressOf<VecPortGetRectType>(&GetRect<places>)}...};
}
template <Port... places> std::array<Entry, sizeof...(places)> PointQueries() {
    return {Entry{places, AddressOf(&PointQuery<places>)}...};
}

using PortProcedures = std::array<void*, abi::kPortProcedures.size()>;

template <std::size_t count> void Put(const std::array<Entry, count>& entries, PortProcedures& procedures) {
    for (const Entry& entry : entries) {
        procedures[static_cast<std::size_t>(entry.place)] = entry.address;
    }
}

PortProcedures MakePortProcedures() {
    using enum Port;
    PortProcedures all = {};
    Put(Commands<kFlush, kNewPath, kClosePath, kReversePath, kFlattenPath, kInitClip, kGSave, kGRestore, kGRestoreAll,
                 kInitGraphics, kInitMatrix>(),
        all);
    Put(Queries<kIsPathEmpty, kIsClipEmpty, kGetSaveDepth, kGetLineCap, kGetLineJoin, kIsMatrixInvertible>(), all);
    Put(Paints<kFill, kEOFill, kStroke, kErasePage, kClip, kEOClip>(), all);
    Put(Points<kMoveTo, kLineTo, kMoveBy, kLineBy, kTranslate, kScale, kShear>(), all);
    Put(Curves<kCurveTo, kCurveBy>(), all);
    Put(RectPaths<kAddRect, kAddEllipse>(), all);
    Put(RectPaints<kFillRect, kStrokeRect, kClipRect>(), all);
    Put(Numbers<kSetLineWidth, kSetFlatness>(), all);
    Put(Choices<kSetLineCap, kSetLineJoin>(), all);
    Put(NumberQueries<kGetPathLength, kGetLineWidth, kGetMiterLimit, kGetFlatness>(), all);
    Put(PointGetters<kGetCurrentPoint>(), all);
    Put(PointChangers<kTransformPoint, kInverseTransformPoint, kTransformDistance, kInverseTransformDistance>(), all);
    Put(RectGetters<kGetBounds, kGetPathBounds, kGetClipBounds>(), all);
    Put(PointQueries<kIsPointInFill, kIsPointInEOFill>(), all);
    Put(std::array<Entry, 10>{{{kGetPortType, AddressOf<VecPortQueryType>(&GetPortType)},
                               {kAddReference, AddressOf<VecPortCommandType>(&AddReference)},
                               {kRelease, AddressOf<VecPortCommandType>(&Release)},
                               {kGetGStatePort, AddressOf<VecPortGetGStatePortType>(&GetGStatePort)},
                               {kGetKelError, AddressOf<VecPortGetErrorType>(&GetKelError)},
                               {kOptions, AddressOf<VecPortOptionsV3Type>(&Options)},
                               {kGetOptions, AddressOf<VecPortGetOptionsType>(&GetOptions)},
                               {kSetColorServer, AddressOf<VecPortSetColorServerV4Type>(&SetColorServer)},
                               {kGetColorServer, AddressOf(&GetColorServer)},
                               {kConcatMatrix, AddressOf<VecPortConcatMatrixType>(&ConcatMatrix)}}},
        all);
    Put(std::array<Entry, 1>{{{kGetMatrix, AddressOf<VecPortGetMatrixType>(&GetMatrix)}}}, all);
    return all;
}

void* PortProcedure(const char* procedure) {
    static const PortProcedures procedures = MakePortProcedures();
    for (std::size_t i = 0; i < procedures.size(); ++i) {
        if (std::strcmp(abi::kPortProcedures[i].procedure, procedure) == 0) {
            return procedures[i];
        }
    }
    return nullptr;
}

} // namespace

void* VecProcedure(const char* interfaceName, const char* procedure) {
    const auto isInterface = [=](const char* name) { return std::strcmp(name, interfaceName) == 0; };
    const auto isProcedure = [=](const char* name) { return std::strcmp(name, procedure) == 0; };
    if (isInterface(abi::kNewRasterPortInterface) && isProcedure(abi::kNewRasterPortProcedures[0].procedure)) {
        return AddressOf<VecRasterPortNewBitmapPortV3Type>(&NewBitmapPort);
    }
    if (isInterface(abi::kGStatePortInterface) && isProcedure(abi::kGStatePortProcedures[0].procedure)) {
        return AddressOf<VecGStatePortSetMatrixType>(&SetMatrix);
    }
    return isInterface(abi::kRasterPortInterface) ? PortProcedure(procedure) : nullptr;
}

} // namespace tn::test
