// SPDX-License-Identifier: MIT
// Writes the program's pictures: generate_art <output folder>.
// Everything is drawn here, lit from the top left, with fixed seeds for the
// textures, so every run gives the same files. Each picture is drawn at 1x, 2x
// and 3x, for screens of those device pixel ratios ("fond.jpg", "fond@2x.jpg",
// "fond@3x.jpg").

#include "art.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>
#include <functional>

namespace {

struct Picture {
    const char *name;
    std::function<QImage()> draw;
    const char *format;
    int32_t quality;
};

// "fond.jpg" at scale 1, "fond@2x.jpg" at scale 2.
QString fileName(const char *name, int32_t scale)
{
    const QString file = QString::fromLatin1(name);
    if (scale == 1) return file;
    return file.section('.', 0, 0) + QStringLiteral("@%1x.").arg(scale) + file.section('.', 1);
}

bool save(const QDir &folder, const Picture &picture)
{
    QImage image = picture.draw();
    // The sheets and the plate are 24-bit bitmaps; the pointers keep their alpha.
    if (QByteArray(picture.format) != "PNG")
        image = image.convertToFormat(QImage::Format_RGB32);
    const QString path = folder.filePath(fileName(picture.name, art::scale()));
    if (!image.save(path, picture.format, picture.quality)) {
        std::fprintf(stderr, "generate_art: cannot write %s\n", qPrintable(path));
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: generate_art <output folder>\n");
        return 2;
    }
    // Text needs the font database, which needs an application; no window opens.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);

    const QDir folder(QString::fromLocal8Bit(argv[1]));
    if (!folder.exists() && !QDir().mkpath(folder.path())) {
        std::fprintf(stderr, "generate_art: cannot create %s\n", argv[1]);
        return 1;
    }
    const Picture pictures[] = {
        {"fond.jpg", art::windowBackground, "JPG", 92},
        {"menu.bmp", art::menuSheet, "BMP", -1},
        {"pion1.bmp", art::tileSheet, "BMP", -1},
        {"pion2.bmp", art::stoneSheet, "BMP", -1},
        {"pion3.bmp", art::pairSheet, "BMP", -1},
        {"catalogue.jpg", art::catalogueEmblem, "JPG", 92},
        {"mess.jpg", art::messageDialog, "JPG", 92},
        {"bouton.bmp", art::messageButton, "BMP", -1},
        {"best.jpg", art::bestTimesDialog, "JPG", 92},
        {"file.jpg", art::savedGamesDialog, "JPG", 92},
        {"pointeur.png", art::pointer, "PNG", -1},
        {"main.png", art::handPointer, "PNG", -1},
    };
    for (const int32_t scale : {1, 2, 3}) {
        art::setScale(scale);
        for (const Picture &picture : pictures)
            if (!save(folder, picture)) return 1;
    }
    return 0;
}
