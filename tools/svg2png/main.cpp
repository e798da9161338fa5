// svg2png SVG SIZE PNG: draws an SVG picture into a square PNG of SIZE pixels (a transparent
// background), for the icon sizes a desktop menu asks for.

#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: svg2png SVG SIZE PNG\n");
        return 2;
    }
    const int size = std::atoi(argv[2]);
    QSvgRenderer renderer(QString::fromLocal8Bit(argv[1]));
    if (!renderer.isValid() || size <= 0) {
        std::fprintf(stderr, "svg2png: cannot draw %s at %s pixels\n", argv[1], argv[2]);
        return 1;
    }
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        renderer.render(&painter);
    }
    if (!image.save(QString::fromLocal8Bit(argv[3]), "PNG")) {
        std::fprintf(stderr, "svg2png: cannot write %s\n", argv[3]);
        return 1;
    }
    return 0;
}
