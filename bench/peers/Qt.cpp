#include "DrawPeers.h"
#include "Peers.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QThreadPool>

namespace tn::bench {
namespace {

QImage::Format FormatFor(QtAlpha alpha) {
    return alpha == QtAlpha::kStraight ? QImage::Format_ARGB32 : QImage::Format_ARGB32_Premultiplied;
}

template <class PixelRows> QImage Wrap(const PixelRows& rows, QImage::Format format) {
    return {rows.Bytes(), rows.width, rows.height, rows.RowBytes(), format};
}

/// A painter that stands on its picture.
class Canvas {
public:
    Canvas(const Rows& from, const Rows& to, QImage::Format format)
        : from_(from), to_(to), source_(Wrap(from, format)), destination_(Wrap(to, format)), painter_(&destination_) {}

    QPainter& Painter() { return painter_; }
    void Draw() { painter_.drawImage(0, 0, source_); }

private:
    Rows from_;
    Rows to_;
    QImage source_;
    QImage destination_;
    QPainter painter_;
};

std::shared_ptr<Canvas> MakeCanvas(const Rows& from, const Rows& to, QtAlpha alpha) {
    return std::make_shared<Canvas>(from, to, FormatFor(alpha));
}

/// What belongs to a kind of pixels.
template <class PixelRows> struct Kind;
template <> struct Kind<Rows> {
    static constexpr QImage::Format kFormat = QImage::Format_ARGB32_Premultiplied;
    static QColor Color() { return {kPaint.red, kPaint.green, kPaint.blue}; }
};
template <> struct Kind<ByteRows> {
    static constexpr QImage::Format kFormat = QImage::Format_Alpha8;
    static QColor Color() { return {255, 255, 255}; }
};

struct PathPen {
    QPainterPath& path;

    void Move(const Spot& to) { path.moveTo(to.x, to.y); }
    void Line(const Spot& to) { path.lineTo(to.x, to.y); }
    void Curve(const Spot& a, const Spot& b, const Spot& to) { path.cubicTo(a.x, a.y, b.x, b.y, to.x, to.y); }
    void Close() { path.closeSubpath(); }
};

/// A painter that draws paths.
template <class PixelRows> class Sheet {
public:
    Sheet(const PixelRows& to, const SharedDrawing& drawing)
        : to_(to), drawing_(drawing), image_(Wrap(to, Kind<PixelRows>::kFormat)), painter_(&image_),
          pen_(brush_, drawing->lineWidth, Qt::SolidLine, Qt::FlatCap, Qt::SvgMiterJoin) {
        pen_.setMiterLimit(kMiterLimit);
        painter_.setRenderHint(QPainter::Antialiasing);
    }

    void Draw() {
        for (const Outline& outline : drawing_->outlines) {
            path_.clear();
            path_.setFillRule(Qt::WindingFill);
            PathPen pathPen = {path_};
            Trace(outline, pathPen);
            DrawPath();
        }
    }

    void DrawRectangles() {
        for (const Outline& outline : drawing_->outlines) {
            const Spot& first = outline.spots[0];
            const Spot& last = outline.spots[2];
            painter_.fillRect(QRectF(QPointF(first.x, first.y), QPointF(last.x, last.y)), brush_);
        }
    }

private:
    void DrawPath() {
        if (drawing_->IsFilled()) {
            painter_.fillPath(path_, brush_);
        } else {
            painter_.strokePath(path_, pen_);
        }
    }

    PixelRows to_;
    SharedDrawing drawing_;
    QImage image_;
    QPainter painter_;
    QBrush brush_{Kind<PixelRows>::Color()};
    QPen pen_;
    QPainterPath path_;
};

template <class PixelRows> Work DrawInto(const PixelRows& to, const SharedDrawing& drawing) {
    return [sheet = std::make_shared<Sheet<PixelRows>>(to, drawing)] { sheet->Draw(); };
}

template <class PixelRows> Work DrawRectanglesInto(const PixelRows& to, const SharedDrawing& drawing) {
    return [sheet = std::make_shared<Sheet<PixelRows>>(to, drawing)] { sheet->DrawRectangles(); };
}

} // namespace

void RunOnOneThread(const Work& work) {
    QThreadPool& threads = *QThreadPool::globalInstance();
    threads.start(work);
    threads.waitForDone();
}

Work QtOver(const Rows& from, const Rows& to, QtAlpha alpha) {
    return [canvas = MakeCanvas(from, to, alpha)] { canvas->Draw(); };
}

Work QtOverAt(const Rows& from, const Rows& to, QtAlpha alpha, const Offset& offset) {
    // Qt moves pictures by whole pixels unless the transform does more than move.
    constexpr double kNearlyOne = 1.00002;
    const auto canvas = MakeCanvas(from, to, alpha);
    canvas->Painter().setRenderHint(QPainter::SmoothPixmapTransform);
    canvas->Painter().setTransform({kNearlyOne, 0.0, 0.0, kNearlyOne, offset.x, offset.y});
    return [canvas] { canvas->Draw(); };
}

Work QtMap(const Rows& from, const Rows& to, QtAlpha alpha, QtDrawing drawing, const Mapping& mapping,
           Reading reading) {
    const auto canvas = MakeCanvas(from, to, alpha);
    const auto& [x, y, w] = mapping;
    const QTransform toSource(x[0], y[0], w[0], x[1], y[1], w[1], x[2], y[2], w[2]);
    canvas->Painter().setRenderHint(QPainter::SmoothPixmapTransform, reading == Reading::kSmooth);
    canvas->Painter().setCompositionMode(drawing == QtDrawing::kReplace ? QPainter::CompositionMode_Source
                                                                        : QPainter::CompositionMode_SourceOver);
    canvas->Painter().setTransform(toSource.inverted());
    return [canvas] { canvas->Draw(); };
}

Work QtReduce(const Rows& from, const Rows& to, QtAlpha alpha) {
    return [from, source = Wrap(from, FormatFor(alpha)), width = to.width, height = to.height] {
        static_cast<void>(source.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    };
}

Work QtDraw(const Rows& to, const SharedDrawing& drawing) { return DrawInto(to, drawing); }
Work QtDraw(const ByteRows& to, const SharedDrawing& drawing) { return DrawInto(to, drawing); }

Work QtRectangles(const Rows& to, const SharedDrawing& drawing) { return DrawRectanglesInto(to, drawing); }
Work QtRectangles(const ByteRows& to, const SharedDrawing& drawing) { return DrawRectanglesInto(to, drawing); }

} // namespace tn::bench
