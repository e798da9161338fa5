#include "plot/system_text_width.h"

#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QString>

namespace zantor {
namespace {

constexpr int kMeasuringPixels = 1000;

}  // namespace

double SystemTextWidth(std::string_view text, std::string_view fontName, double size) {
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr) {
        return 0;
    }
    QFont font(QString::fromLatin1(fontName.data(), static_cast<qsizetype>(fontName.size())));
    font.setPixelSize(kMeasuringPixels);
    const QFontMetricsF metrics(font);
    const QString line = QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
    return metrics.horizontalAdvance(line) * size / kMeasuringPixels;
}

}  // namespace zantor
