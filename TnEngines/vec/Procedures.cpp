#include "TnEngines/vec/port/Procedures.h"
#include "TnEngines/abi/procedure_table.h"

#include <algorithm>
#include <array>

namespace tn::vec {
namespace {

using abi::AddressOf;

constexpr auto kPorts = abi::MakeProcedureTable(
    abi::kRasterPortInterface, abi::kPortProcedures,
    {&AddressOf<VecPortQueryType, &GetPortType>, &AddressOf<VecPortCommandType, &AddReference>,
     &AddressOf<VecPortCommandType, &Release>, &AddressOf<VecPortGetGStatePortType, &GetGStatePort>,
     &AddressOf<VecPortGetErrorType, &GetKelError>, &AddressOf<VecPortGetRectType, &GetBounds>,
     &AddressOf<VecPortOptionsV3Type, &SetOption>, &AddressOf<VecPortGetOptionsType, &GetOption>,
     &AddressOf<VecPortCommandType, &Flush>,
     // Paths
     &AddressOf<VecPortCommandType, &NewPath>, &AddressOf<VecPortPointType, &MoveTo>,
     &AddressOf<VecPortPointType, &LineTo>, &AddressOf<VecPortCurveType, &CurveTo>,
     &AddressOf<VecPortCommandType, &ClosePath>, &AddressOf<VecPortPointType, &MoveBy>,
     &AddressOf<VecPortPointType, &LineBy>, &AddressOf<VecPortCurveType, &CurveBy>,
     &AddressOf<VecPortRectPathType, &AddRect>, &AddressOf<VecPortRectPathType, &AddEllipse>,
     &AddressOf<VecPortGetPointType, &GetCurrentPoint>, &AddressOf<VecPortGetRectType, &GetPathBounds>,
     &AddressOf<VecPortQueryType, &IsPathEmpty>, &AddressOf<VecPortGetNumberType, &GetPathLength>,
     &AddressOf<VecPortCommandType, &ReversePath>, &AddressOf<VecPortCommandType, &FlattenPath>,
     // Painting
     &AddressOf<VecPortPaintType, &Fill>, &AddressOf<VecPortPaintType, &EOFill>, &AddressOf<VecPortPaintType, &Stroke>,
     &AddressOf<VecPortRectPaintType, &FillRect>, &AddressOf<VecPortRectPaintType, &StrokeRect>,
     &AddressOf<VecPortPaintType, &ErasePage>, &AddressOf<VecPortPointQueryType, &IsPointInFill>,
     &AddressOf<VecPortPointQueryType, &IsPointInEOFill>,
     // Clips
     &AddressOf<VecPortPaintType, &ClipPath>, &AddressOf<VecPortPaintType, &EOClipPath>,
     &AddressOf<VecPortRectPaintType, &ClipRect>, &AddressOf<VecPortCommandType, &InitClip>,
     &AddressOf<VecPortGetRectType, &GetClipBounds>, &AddressOf<VecPortQueryType, &IsClipEmpty>,
     // Graphics state
     &AddressOf<VecPortCommandType, &GSave>, &AddressOf<VecPortCommandType, &GRestore>,
     &AddressOf<VecPortCommandType, &GRestoreAll>, &AddressOf<VecPortCommandType, &InitGraphics>,
     &AddressOf<VecPortQueryType, &GetSaveDepth>, &AddressOf<VecPortNumberType, &SetLineWidth>,
     &AddressOf<VecPortGetNumberType, &GetLineWidth>, &AddressOf<VecPortChoiceType, &SetLineCap>,
     &AddressOf<VecPortQueryType, &GetLineCap>, &AddressOf<VecPortChoiceType, &SetLineJoin>,
     &AddressOf<VecPortQueryType, &GetLineJoin>, &AddressOf<VecPortGetNumberType, &GetMiterLimit>,
     &AddressOf<VecPortNumberType, &SetFlatness>, &AddressOf<VecPortGetNumberType, &GetFlatness>,
     &AddressOf<VecPortSetColorServerV4Type, &SetColorServer>, &AddressOf<VecPortGetColorServerType, &GetColorServer>,
     // Transformation
     &AddressOf<VecPortPointType, &Translate>, &AddressOf<VecPortPointType, &Scale>,
     &AddressOf<VecPortPointType, &Shear>, &AddressOf<VecPortConcatMatrixType, &ConcatMatrix>,
     &AddressOf<VecPortCommandType, &InitMatrix>, &AddressOf<VecPortGetMatrixType, &GetMatrix>,
     &AddressOf<VecPortQueryType, &IsMatrixInvertible>, &AddressOf<VecPortGetPointType, &TransformPoint>,
     &AddressOf<VecPortGetPointType, &InverseTransformPoint>, &AddressOf<VecPortGetPointType, &TransformDistance>,
     &AddressOf<VecPortGetPointType, &InverseTransformDistance>});

constexpr auto kNewPorts = abi::MakeProcedureTable(abi::kNewRasterPortInterface, abi::kNewRasterPortProcedures,
                                                   {&AddressOf<VecRasterPortNewBitmapPortV3Type, &NewBitmapPort>});

constexpr auto kGStatePorts = abi::MakeProcedureTable(abi::kGStatePortInterface, abi::kGStatePortProcedures,
                                                      {&AddressOf<VecGStatePortSetMatrixType, &SetMatrix>});

consteval auto Joined() {
    std::array<EngineProcedure, kNewPorts.size() + kGStatePorts.size() + kPorts.size()> all{};
    auto end = std::ranges::copy(kNewPorts, all.begin()).out;
    end = std::ranges::copy(kGStatePorts, end).out;
    std::ranges::copy(kPorts, end);
    return all;
}

constexpr auto kTable = Joined();

} // namespace
} // namespace tn::vec

const EngineProcedure* VecProcedures(size_t* count) {
    *count = tn::vec::kTable.size();
    return tn::vec::kTable.data();
}
