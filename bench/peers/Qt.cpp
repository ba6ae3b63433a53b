#include "Peers.h"

#include <QImage>
#include <QPainter>
#include <QThreadPool>

namespace tn::bench {
namespace {

/// A painter that stands on its picture.
class Canvas {
public:
    Canvas(const Rows& from, const Rows& to, QImage::Format format)
        : from_(from), to_(to), source_(Wrap(from, format)), destination_(Wrap(to, format)), painter_(&destination_) {}

    QPainter& Painter() { return painter_; }
    void Draw() { painter_.drawImage(0, 0, source_); }

private:
    static QImage Wrap(const Rows& rows, QImage::Format format) {
        return {rows.Bytes(), rows.width, rows.height, rows.RowBytes(), format};
    }

    Rows from_;
    Rows to_;
    QImage source_;
    QImage destination_;
    QPainter painter_;
};

std::shared_ptr<Canvas> MakeCanvas(const Rows& from, const Rows& to, QtAlpha alpha) {
    const bool straight = alpha == QtAlpha::kStraight;
    return std::make_shared<Canvas>(from, to, straight ? QImage::Format_ARGB32 : QImage::Format_ARGB32_Premultiplied);
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

} // namespace tn::bench
