// pagecompare OLD_DIR NEW_DIR [SVG_SCALE]: compares the files two builds of the program wrote into
// two folders, file by file (names relative to the folder, subfolders included):
//   - PNG: the decoded pixels (as 32-bit ARGB, whatever the stored format), the size and the
//     resolution; a palette image and an RGB image of the same pixels are equal,
//   - SVG: drawn with Qt SVG on white at SVG_SCALE times the size the file gives (default 0.4),
//     compared pixel by pixel; the size and view box must match too,
//   - PDF: skipped (render them to PNG first, e.g. with pdftoppm),
//   - anything else: byte for byte.
// Prints one line per difference and a summary; the status is 0 when everything is equal, 1 when
// anything differs or is missing on one side, 2 on wrong use.

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSet>
#include <QStringList>
#include <QSvgRenderer>
#include <cmath>
#include <cstdio>
#include <optional>

namespace {

QStringList FilesBelow(const QString& root) {
    QStringList names;
    QDirIterator it(root, QDir::Files, QDirIterator::Subdirectories);
    const QDir base(root);
    while (it.hasNext()) {
        names.append(base.relativeFilePath(it.next()));
    }
    names.sort();
    return names;
}

// The number of pixels that differ, or nothing when the images cannot be compared.
std::optional<long long> DifferentPixels(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) {
        return std::nullopt;
    }
    const QImage left = a.convertToFormat(QImage::Format_ARGB32);
    const QImage right = b.convertToFormat(QImage::Format_ARGB32);
    long long count = 0;
    for (int y = 0; y < left.height(); ++y) {
        const auto* l = reinterpret_cast<const QRgb*>(left.constScanLine(y));
        const auto* r = reinterpret_cast<const QRgb*>(right.constScanLine(y));
        for (int x = 0; x < left.width(); ++x) {
            count += l[x] != r[x] ? 1 : 0;
        }
    }
    return count;
}

QImage DrawSvg(QSvgRenderer& renderer, double scale) {
    const QSize size(static_cast<int>(std::lround(renderer.defaultSize().width() * scale)),
                     static_cast<int>(std::lround(renderer.defaultSize().height() * scale)));
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    return image;
}

// An empty text when the two files are equal, else what differs.
QString Compare(const QString& oldFile, const QString& newFile, double svgScale) {
    if (oldFile.endsWith(QLatin1String(".png"), Qt::CaseInsensitive)) {
        const QImage a(oldFile);
        const QImage b(newFile);
        if (a.isNull() || b.isNull()) {
            return QStringLiteral("cannot be read as PNG");
        }
        if (a.dotsPerMeterX() != b.dotsPerMeterX() || a.dotsPerMeterY() != b.dotsPerMeterY()) {
            return QStringLiteral("resolution %1 x %2 dots/m, was %3 x %4")
                .arg(b.dotsPerMeterX())
                .arg(b.dotsPerMeterY())
                .arg(a.dotsPerMeterX())
                .arg(a.dotsPerMeterY());
        }
        const std::optional<long long> pixels = DifferentPixels(a, b);
        if (!pixels) {
            return QStringLiteral("size %1 x %2, was %3 x %4")
                .arg(b.width())
                .arg(b.height())
                .arg(a.width())
                .arg(a.height());
        }
        return *pixels == 0 ? QString() : QStringLiteral("%1 pixels differ").arg(*pixels);
    }
    if (oldFile.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)) {
        QSvgRenderer a(oldFile);
        QSvgRenderer b(newFile);
        if (!a.isValid() || !b.isValid()) {
            return QStringLiteral("cannot be read as SVG");
        }
        if (a.defaultSize() != b.defaultSize() || a.viewBoxF() != b.viewBoxF()) {
            return QStringLiteral("size or view box changed");
        }
        const std::optional<long long> pixels =
            DifferentPixels(DrawSvg(a, svgScale), DrawSvg(b, svgScale));
        return pixels && *pixels == 0 ? QString()
                                      : QStringLiteral("%1 pixels differ").arg(pixels.value_or(-1));
    }
    QFile a(oldFile);
    QFile b(newFile);
    if (!a.open(QIODevice::ReadOnly) || !b.open(QIODevice::ReadOnly)) {
        return QStringLiteral("cannot be read");
    }
    return a.readAll() == b.readAll() ? QString() : QStringLiteral("contents differ");
}

}  // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() != 3 && args.size() != 4) {
        std::fprintf(stderr, "usage: pagecompare OLD_DIR NEW_DIR [SVG_SCALE]\n");
        return 2;
    }
    bool scaleOk = true;
    const double svgScale = args.size() == 4 ? args[3].toDouble(&scaleOk) : 0.4;
    if (!scaleOk || svgScale <= 0) {
        std::fprintf(stderr, "pagecompare: SVG_SCALE must be a positive number\n");
        return 2;
    }
    const QString oldRoot = args[1];
    const QString newRoot = args[2];
    const QStringList oldNames = FilesBelow(oldRoot);
    const QStringList newNames = FilesBelow(newRoot);
    const QSet<QString> oldSet(oldNames.begin(), oldNames.end());
    const QSet<QString> newSet(newNames.begin(), newNames.end());

    int compared = 0;
    int differing = 0;
    for (const QString& name : oldNames) {
        if (name.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) {
            continue;
        }
        if (!newSet.contains(name)) {
            std::printf("%s: only in the old output\n", qPrintable(name));
            ++differing;
            continue;
        }
        ++compared;
        const QString problem =
            Compare(oldRoot + QLatin1Char('/') + name, newRoot + QLatin1Char('/') + name, svgScale);
        if (!problem.isEmpty()) {
            std::printf("%s: %s\n", qPrintable(name), qPrintable(problem));
            ++differing;
        }
    }
    for (const QString& name : newNames) {
        if (!oldSet.contains(name) && !name.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) {
            std::printf("%s: only in the new output\n", qPrintable(name));
            ++differing;
        }
    }
    std::printf("%d files compared, %d differences\n", compared, differing);
    return differing == 0 ? 0 : 1;
}
