// All procedures of a port, called with arguments that do no harm.
#pragma once

#include "tests/engines/vec/PortQuestions.h"

#include <string>
#include <vector>

namespace tn::test {

/// What a port's procedures gave, errors apart.
struct Answers {
    std::vector<std::string> notNull; ///< The procedures that gave something else than 0.
    std::vector<std::string> written; ///< Those that wrote to where their result goes.
    int calls = 0;
};

/// Calls procedures by their kind on one handle.
class EveryProcedure {
    template <class Type, class... Arguments> auto Use(abi::Port place, Arguments... arguments) {
        ++answers_.calls;
        return CallOn<Type>(port_, place, arguments...);
    }
    void Command(abi::Port place) { Use<VecPortCommandType>(place); }

public:
    explicit EveryProcedure(VecPort port) : port_(port) {}

    /// All of them, each once. As many references are given up as are taken.
    Answers Call() {
        using enum abi::Port;
        for (const abi::Port place : {kFlush, kNewPath, kClosePath, kReversePath, kFlattenPath, kInitClip, kGSave,
                                      kGRestore, kGRestoreAll, kInitGraphics, kInitMatrix, kAddReference}) {
            Command(place);
        }
        for (const abi::Port place : {kGetPortType, kIsPathEmpty, kIsClipEmpty, kGetSaveDepth, kGetLineCap,
                                      kGetLineJoin, kIsMatrixInvertible}) {
            Note(place, Use<VecPortQueryType>(place) != 0);
        }
        for (const abi::Port place : {kMoveTo, kLineTo, kMoveBy, kLineBy, kTranslate, kScale, kShear}) {
            Use<VecPortPointType>(place, 1.0F, 1.0F);
        }
        for (const abi::Port place : {kCurveTo, kCurveBy}) {
            Use<VecPortCurveType>(place, 1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F);
        }
        for (const abi::Port place : {kAddRect, kAddEllipse}) {
            Use<VecPortRectPathType>(place, &rect_);
        }
        for (const abi::Port place : {kFill, kEOFill, kStroke, kErasePage, kClip, kEOClip}) {
            Use<VecPortPaintType>(place);
        }
        for (const abi::Port place : {kFillRect, kStrokeRect, kClipRect}) {
            Use<VecPortRectPaintType>(place, &rect_);
        }
        CallSetters();
        CallGetters();
        Use<VecPortGetErrorType>(kGetKelError);
        Command(kRelease);
        return answers_;
    }

private:
    static std::string NameOf(abi::Port place) { return abi::kPortProcedures[static_cast<std::size_t>(place)].method; }

    void Note(abi::Port place, bool isNotNull) {
        if (isNotNull) {
            answers_.notNull.push_back(NameOf(place));
        }
    }

    void CallSetters() {
        using enum abi::Port;
        for (const abi::Port place : {kSetLineWidth, kSetFlatness}) {
            Use<VecPortNumberType>(place, 1.0F);
        }
        for (const abi::Port place : {kSetLineCap, kSetLineJoin}) {
            Use<VecPortChoiceType>(place, std::int32_t{1});
        }
        Use<VecPortOptionsV3Type>(kOptions, std::int32_t{1}, std::int32_t{3});
        const float gray = 0.5F;
        const HuexColor color = NewColor(kHuexGray, &gray, 1);
        Use<VecPortSetColorServerV4Type>(kSetColorServer, color, std::int32_t{0}, std::int32_t{0});
        Release(color);
        const VecMatrix matrix = {1, 0, 0, 1, 0, 0};
        Use<VecPortConcatMatrixType>(kConcatMatrix, &matrix);
    }

    void CallGetters() {
        using enum abi::Port;
        for (const abi::Port place : {kGetPathLength, kGetLineWidth, kGetMiterLimit, kGetFlatness}) {
            Note(place, Use<VecPortGetNumberType>(place) != 0);
        }
        for (const abi::Port place : {kGetCurrentPoint, kTransformPoint, kInverseTransformPoint, kTransformDistance,
                                      kInverseTransformDistance}) {
            VecPoint point = {7, 7};
            Note(place, Use<VecPortGetPointType>(place, &point) != 0);
            NoteWritten(place, point.x != 7 || point.y != 7);
        }
        for (const abi::Port place : {kGetBounds, kGetPathBounds, kGetClipBounds}) {
            VecRect rect = {7, 7, 7, 7};
            Note(place, Use<VecPortGetRectType>(place, &rect) != 0);
            NoteWritten(place, rect.left != 7 || rect.top != 7 || rect.right != 7 || rect.bottom != 7);
        }
        for (const abi::Port place : {kIsPointInFill, kIsPointInEOFill}) {
            Note(place, Use<VecPortPointQueryType>(place, 1.0F, 1.0F) != 0);
        }
        Note(kGetOptions, Use<VecPortGetOptionsType>(kGetOptions, std::int32_t{1}) != 0);
        Note(kGetGStatePort, Use<VecPortGetGStatePortType>(kGetGStatePort) != nullptr);
        Note(kGetColorServer, Use<VecPortGetColorServerType>(kGetColorServer) != nullptr);
        VecMatrix matrix{};
        Use<VecPortGetMatrixType>(kGetMatrix, &matrix);
    }

    void NoteWritten(abi::Port place, bool isWritten) {
        if (isWritten) {
            answers_.written.push_back(NameOf(place));
        }
    }

    VecPort port_;
    VecRect rect_ = {1, 1, 3, 3};
    Answers answers_;
};

} // namespace tn::test
