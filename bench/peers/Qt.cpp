#include "Peers.h"

#include <QImage>
#include <QPainter>
#include <QThreadPool>

namespace tn::bench {
namespace {

QImage::Format FormatFor(QtAlpha alpha) {
    return alpha == QtAlpha::kStraight ? QImage::Format_ARGB32 : QImage::Format_ARGB32_Premultiplied;
}

QImage Wrap(const Rows& rows, QImage::Format format) {
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

} // namespace tn::bench
