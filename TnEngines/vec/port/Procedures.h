// Private: the procedures of ports, by what they are about. Each does nothing for what is no port.
#pragma once

#include "TnEngines/abi/vec_procedures.h"

#include <cstdint>

namespace tn::vec {

// Life
KelError NewBitmapPort(const VecBitmap* bitmap, VecPort* port) noexcept;
std::int32_t GetPortType(VecPort port) noexcept;
void AddReference(VecPort port) noexcept;
void Release(VecPort port) noexcept;
VecPort GetGStatePort(VecPort port) noexcept;
KelError GetKelError(VecPort port) noexcept;
std::int32_t GetBounds(VecPort port, VecRect* bounds) noexcept;
void SetOption(VecPort port, std::int32_t group, std::int32_t value) noexcept;
std::int32_t GetOption(VecPort port, std::int32_t group) noexcept;
void Flush(VecPort port) noexcept;

// Paths
void NewPath(VecPort port) noexcept;
void MoveTo(VecPort port, float x, float y) noexcept;
void LineTo(VecPort port, float x, float y) noexcept;
void CurveTo(VecPort port, float x1, float y1, float x2, float y2, float x3, float y3) noexcept;
void ClosePath(VecPort port) noexcept;
void MoveBy(VecPort port, float x, float y) noexcept;
void LineBy(VecPort port, float x, float y) noexcept;
void CurveBy(VecPort port, float x1, float y1, float x2, float y2, float x3, float y3) noexcept;
void AddRect(VecPort port, const VecRect* rect) noexcept;
void AddEllipse(VecPort port, const VecRect* rect) noexcept;
std::int32_t GetCurrentPoint(VecPort port, VecPoint* point) noexcept;
std::int32_t GetPathBounds(VecPort port, VecRect* bounds) noexcept;
std::int32_t IsPathEmpty(VecPort port) noexcept;
float GetPathLength(VecPort port) noexcept;
void ReversePath(VecPort port) noexcept;
void FlattenPath(VecPort port) noexcept;

// Painting and clips
KelError Fill(VecPort port) noexcept;
KelError EOFill(VecPort port) noexcept;
KelError Stroke(VecPort port) noexcept;
KelError FillRect(VecPort port, const VecRect* rect) noexcept;
KelError StrokeRect(VecPort port, const VecRect* rect) noexcept;
KelError ErasePage(VecPort port) noexcept;
std::int32_t IsPointInFill(VecPort port, float x, float y) noexcept;
std::int32_t IsPointInEOFill(VecPort port, float x, float y) noexcept;
KelError ClipPath(VecPort port) noexcept;
KelError EOClipPath(VecPort port) noexcept;
KelError ClipRect(VecPort port, const VecRect* rect) noexcept;
void InitClip(VecPort port) noexcept;
std::int32_t GetClipBounds(VecPort port, VecRect* bounds) noexcept;
std::int32_t IsClipEmpty(VecPort port) noexcept;

// Graphics state
void GSave(VecPort port) noexcept;
void GRestore(VecPort port) noexcept;
void GRestoreAll(VecPort port) noexcept;
void InitGraphics(VecPort port) noexcept;
std::int32_t GetSaveDepth(VecPort port) noexcept;
void SetLineWidth(VecPort port, float width) noexcept;
float GetLineWidth(VecPort port) noexcept;
void SetLineCap(VecPort port, std::int32_t cap) noexcept;
std::int32_t GetLineCap(VecPort port) noexcept;
void SetLineJoin(VecPort port, std::int32_t join) noexcept;
std::int32_t GetLineJoin(VecPort port) noexcept;
float GetMiterLimit(VecPort port) noexcept;
void SetFlatness(VecPort port, float flatness) noexcept;
float GetFlatness(VecPort port) noexcept;
void SetColorServer(VecPort port, HuexColor color, std::int32_t reserved1, std::int32_t reserved2) noexcept;
HuexColor GetColorServer(VecPort port) noexcept;

// Transformation
void Translate(VecPort port, float x, float y) noexcept;
void Scale(VecPort port, float x, float y) noexcept;
void Shear(VecPort port, float x, float y) noexcept;
void ConcatMatrix(VecPort port, const VecMatrix* matrix) noexcept;
void InitMatrix(VecPort port) noexcept;
void GetMatrix(VecPort port, VecMatrix* matrix) noexcept;
std::int32_t IsMatrixInvertible(VecPort port) noexcept;
std::int32_t TransformPoint(VecPort port, VecPoint* point) noexcept;
std::int32_t InverseTransformPoint(VecPort port, VecPoint* point) noexcept;
std::int32_t TransformDistance(VecPort port, VecPoint* distance) noexcept;
std::int32_t InverseTransformDistance(VecPort port, VecPoint* distance) noexcept;
void SetMatrix(VecPort gstate, float a, float b, float c, float d, float tx, float ty) noexcept;

} // namespace tn::vec
