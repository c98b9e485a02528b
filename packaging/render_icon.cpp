// SPDX-License-Identifier: MIT
// Renders an SVG picture into a square PNG of the given size: render_icon <in.svg> <size> <out.png>.
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <cstdio>
#include <cstdlib>

int main(int argc, char *argv[])
{
    if (argc != 4) {
        std::fputs("usage: render_icon <in.svg> <size> <out.png>\n", stderr);
        return EXIT_FAILURE;
    }
    bool sizeOk = false;
    const int size = QString::fromLocal8Bit(argv[2]).toInt(&sizeOk);
    QSvgRenderer renderer(QString::fromLocal8Bit(argv[1]));
    if (!sizeOk || size <= 0 || !renderer.isValid()) {
        std::fprintf(stderr, "render_icon: cannot render %s at size %s\n", argv[1], argv[2]);
        return EXIT_FAILURE;
    }
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        renderer.render(&painter);
    }
    if (!image.convertToFormat(QImage::Format_ARGB32).save(QString::fromLocal8Bit(argv[3]), "PNG")) {
        std::fprintf(stderr, "render_icon: cannot write %s\n", argv[3]);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
