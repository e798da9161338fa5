#include "output/canvas_spool.h"

#include <QByteArray>
#include <QDir>
#include <vector>

#include "common/errors.h"

namespace zantor {
namespace {

enum Code : std::uint8_t {
    kPageBreak = 1,
    kMoveTo,
    kLineTo,
    kArc,
    kRoundRect,
    kPolygon,
    kText,
};

QByteArray Bytes(std::string_view text) {
    return QByteArray(text.data(), static_cast<qsizetype>(text.size()));
}

std::int32_t Take(QDataStream& in) {
    qint32 value = 0;
    in >> value;
    return value;
}

// The state a call was spooled with, put back on the canvas it is played onto.
void TakeState(QDataStream& in, PlotCanvas& canvas) {
    quint8 penStyle = 0;
    quint8 fillStyle = 0;
    canvas.SetPenColour(Take(in));
    canvas.SetPenWidth(Take(in));
    in >> penStyle;
    canvas.SetPenStyle(static_cast<PenStyle>(penStyle));
    canvas.SetFillColour(Take(in));
    in >> fillStyle;
    canvas.SetFillStyle(static_cast<FillStyle>(fillStyle));
    canvas.SetTextColour(Take(in));
}

}  // namespace

void CanvasSpool::Open() {
    Close();
    auto file = std::make_unique<QTemporaryFile>(QDir::tempPath() + "/zantor-spool-XXXXXX");
    if (!file->open()) {
        throw IoError("Cannot make the print spool: " + file->errorString().toStdString());
    }
    file_ = std::move(file);
    out_.setDevice(file_.get());
}

void CanvasSpool::Close() noexcept {
    out_.setDevice(nullptr);
    file_.reset();
}

void CanvasSpool::Check() {
    if (out_.status() != QDataStream::Ok) {
        throw IoError("Cannot write the print spool: " + file_->errorString().toStdString());
    }
}

void CanvasSpool::Begin(std::uint8_t code) {
    out_ << quint8(code) << qint32(PenColour()) << qint32(PenWidth())
         << quint8(static_cast<std::uint8_t>(PenStyleNow())) << qint32(FillColour())
         << quint8(static_cast<std::uint8_t>(FillStyleNow())) << qint32(TextColour());
}

void CanvasSpool::PageBreak() {
    if (!IsOpen()) {
        return;
    }
    Begin(kPageBreak);
    Check();
}

void CanvasSpool::MoveTo(std::int32_t x, std::int32_t y) {
    if (!IsOpen()) {
        return;
    }
    Begin(kMoveTo);
    out_ << qint32(x) << qint32(y);
    Check();
}

void CanvasSpool::LineTo(std::int32_t x, std::int32_t y) {
    if (!IsOpen()) {
        return;
    }
    Begin(kLineTo);
    out_ << qint32(x) << qint32(y);
    Check();
}

void CanvasSpool::Arc(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                      std::int32_t sx, std::int32_t sy, std::int32_t ex, std::int32_t ey) {
    if (!IsOpen()) {
        return;
    }
    Begin(kArc);
    out_ << qint32(x1) << qint32(y1) << qint32(x2) << qint32(y2) << qint32(sx) << qint32(sy)
         << qint32(ex) << qint32(ey);
    Check();
}

void CanvasSpool::RoundRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                            std::int32_t cornerWidth, std::int32_t cornerHeight) {
    if (!IsOpen()) {
        return;
    }
    Begin(kRoundRect);
    out_ << qint32(x1) << qint32(y1) << qint32(x2) << qint32(y2) << qint32(cornerWidth)
         << qint32(cornerHeight);
    Check();
}

void CanvasSpool::Polygon(std::span<const DevicePoint> points) {
    if (!IsOpen()) {
        return;
    }
    Begin(kPolygon);
    out_ << quint32(points.size());
    for (const DevicePoint& point : points) {
        out_ << qint32(point.x) << qint32(point.y);
    }
    Check();
}

void CanvasSpool::Text(std::int32_t x, std::int32_t y, std::string_view text,
                       std::string_view fontName, std::int32_t height, TextAlign align) {
    if (!IsOpen()) {
        return;
    }
    Begin(kText);
    out_ << qint32(x) << qint32(y) << Bytes(text) << Bytes(fontName) << qint32(height)
         << quint8(static_cast<std::uint8_t>(align));
    Check();
}

void CanvasSpool::Replay(PlotCanvas& canvas, const std::function<void()>& newPage) {
    if (!IsOpen()) {
        return;
    }
    if (!file_->flush() || !file_->seek(0)) {
        throw IoError("Cannot read the print spool: " + file_->errorString().toStdString());
    }
    QDataStream in(file_.get());
    std::vector<DevicePoint> points;
    while (!in.atEnd()) {
        quint8 code = 0;
        in >> code;
        TakeState(in, canvas);
        switch (code) {
            case kPageBreak:
                newPage();
                break;
            case kMoveTo: {
                const std::int32_t x = Take(in);
                canvas.MoveTo(x, Take(in));
                break;
            }
            case kLineTo: {
                const std::int32_t x = Take(in);
                canvas.LineTo(x, Take(in));
                break;
            }
            case kArc: {
                std::int32_t v[8];
                for (std::int32_t& value : v) {
                    value = Take(in);
                }
                canvas.Arc(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]);
                break;
            }
            case kRoundRect: {
                std::int32_t v[6];
                for (std::int32_t& value : v) {
                    value = Take(in);
                }
                canvas.RoundRect(v[0], v[1], v[2], v[3], v[4], v[5]);
                break;
            }
            case kPolygon: {
                quint32 count = 0;
                in >> count;
                points.clear();
                for (quint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
                    const std::int32_t x = Take(in);
                    points.push_back({x, Take(in)});
                }
                canvas.Polygon(points);
                break;
            }
            case kText: {
                QByteArray text;
                QByteArray fontName;
                const std::int32_t x = Take(in);
                const std::int32_t y = Take(in);
                in >> text >> fontName;
                const std::int32_t height = Take(in);
                quint8 align = 0;
                in >> align;
                canvas.Text(x, y, std::string_view(text.constData(), text.size()),
                            std::string_view(fontName.constData(), fontName.size()), height,
                            static_cast<TextAlign>(align));
                break;
            }
            default:
                throw IoError("The print spool is damaged");
        }
        if (in.status() != QDataStream::Ok) {
            throw IoError("Cannot read the print spool: " + file_->errorString().toStdString());
        }
    }
}

}  // namespace zantor
