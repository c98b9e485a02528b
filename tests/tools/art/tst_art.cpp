// SPDX-License-Identifier: MIT
// Checks the committed pictures: their sizes at 1x, 2x and 3x, the
// mask rule of the masked sheets (drawn with OR then AND), that the labels laid on
// the window can be read, and that the colours of game 3 stay apart for every
// colour vision.

#include "colour_vision.h"

#include <QImage>
#include <QImageReader>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace {

// "pion3.bmp" as drawn at a scale: "pion3@2x.bmp" at 2.
QString artFile(const QString &name, int scale = 1)
{
    const QString file =
        scale == 1 ? name : name.section('.', 0, 0) + QStringLiteral("@%1x.").arg(scale) + name.section('.', 1);
    return QStringLiteral(ART_DIR "/") + file;
}

QImage load(const QString &name, int scale = 1)
{
    return QImage(artFile(name, scale)).convertToFormat(QImage::Format_RGB32);
}

QRect scaled(QRect r, int scale) { return {r.topLeft() * scale, r.size() * scale}; }

constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kBlack = 0xFF000000;

// The contrast ratio between a colour and the mean colour of an area of a picture.
double contrast(const QImage &image, QRect area, QColor text)
{
    double rgb[3] = {};
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb p = image.pixel(x, y);
            rgb[0] += qRed(p), rgb[1] += qGreen(p), rgb[2] += qBlue(p);
        }
    const double n = static_cast<double>(area.width()) * area.height();
    const auto luminance = [](QRgb c) {
        const colour_vision::Rgb l = colour_vision::linear(c);
        return 0.2126 * l[0] + 0.7152 * l[1] + 0.0722 * l[2];
    };
    const double la = luminance(qRgb(int(rgb[0] / n), int(rgb[1] / n), int(rgb[2] / n))), lb = luminance(text.rgb());
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

// ---- colour vision: the colours seen (the simulation of the art's own tool) and their CIEDE2000
// difference ----

using colour_vision::Rgb;

// CIELAB under D65 of a linear sRGB colour.
Rgb lab(const Rgb &c)
{
    const double x = (0.4124564 * c[0] + 0.3575761 * c[1] + 0.1804375 * c[2]) / 0.95047;
    const double y = 0.2126729 * c[0] + 0.7151522 * c[1] + 0.0721750 * c[2];
    const double z = (0.0193339 * c[0] + 0.1191920 * c[1] + 0.9503041 * c[2]) / 1.08883;
    const auto f = [](double t) { return t > 216.0 / 24389 ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116; };
    return {116 * f(y) - 16, 500 * (f(x) - f(y)), 200 * (f(y) - f(z))};
}

double ciede2000(const Rgb &lab1, const Rgb &lab2)
{
    const auto deg = [](double r) { return r * 180 / M_PI; };
    const auto rad = [](double d) { return d * M_PI / 180; };
    const double cBar = (std::hypot(lab1[1], lab1[2]) + std::hypot(lab2[1], lab2[2])) / 2;
    const double g = 0.5 * (1 - std::sqrt(std::pow(cBar, 7) / (std::pow(cBar, 7) + std::pow(25.0, 7))));
    const double a1 = (1 + g) * lab1[1], a2 = (1 + g) * lab2[1];
    const double c1 = std::hypot(a1, lab1[2]), c2 = std::hypot(a2, lab2[2]);
    const auto hue = [&](double a, double b) {
        return a == 0 && b == 0 ? 0.0 : std::fmod(deg(std::atan2(b, a)) + 360, 360);
    };
    const double h1 = hue(a1, lab1[2]), h2 = hue(a2, lab2[2]);
    double dh = c1 * c2 == 0 ? 0 : h2 - h1;
    if (dh > 180) dh -= 360;
    if (dh < -180) dh += 360;
    const double dL = lab2[0] - lab1[0], dC = c2 - c1, dH = 2 * std::sqrt(c1 * c2) * std::sin(rad(dh / 2));
    const double lBar = (lab1[0] + lab2[0]) / 2, cpBar = (c1 + c2) / 2;
    double hBar = h1 + h2;
    if (c1 * c2 != 0) hBar = std::abs(h1 - h2) <= 180 ? hBar / 2 : (hBar < 360 ? (hBar + 360) / 2 : (hBar - 360) / 2);
    const double t = 1 - 0.17 * std::cos(rad(hBar - 30)) + 0.24 * std::cos(rad(2 * hBar))
                     + 0.32 * std::cos(rad(3 * hBar + 6)) - 0.20 * std::cos(rad(4 * hBar - 63));
    const double rc = 2 * std::sqrt(std::pow(cpBar, 7) / (std::pow(cpBar, 7) + std::pow(25.0, 7)));
    const double rt = -std::sin(rad(60 * std::exp(-std::pow((hBar - 275) / 25, 2)))) * rc;
    const double sl = 1 + 0.015 * std::pow(lBar - 50, 2) / std::sqrt(20 + std::pow(lBar - 50, 2));
    const double sc = 1 + 0.045 * cpBar, sh = 1 + 0.015 * cpBar * t;
    return std::sqrt(std::pow(dL / sl, 2) + std::pow(dC / sc, 2) + std::pow(dH / sh, 2) + rt * (dC / sc) * (dH / sh));
}

// Where a tile of game 3 shows its face: inside the bevel of a one-pip tile, away from the pip.
bool onFace(QPoint p, int s)
{
    const QRect inside(6 * s, 6 * s, 40 * s, 40 * s);
    return inside.contains(p) && std::hypot(p.x() + 0.5 - 26 * s, p.y() + 0.5 - 26 * s) >= 10 * s;
}

// The mean face colour of a row of the game 3 sheet, in linear RGB.
Rgb faceColour(const QImage &sheet, int row, int s)
{
    Rgb sum{};
    int n = 0;
    for (int y = 0; y < 52 * s; ++y)
        for (int x = 0; x < 52 * s; ++x)
            if (onFace({x, y}, s)) {
                const QRgb p = sheet.pixel(x, 52 * s * row + y);
                const Rgb c = colour_vision::linear(p);
                sum = {sum[0] + c[0], sum[1] + c[1], sum[2] + c[2]};
                ++n;
            }
    return {sum[0] / n, sum[1] / n, sum[2] / n};
}

} // namespace

class TestArt : public QObject {
    Q_OBJECT

private slots:
    void picturesHaveTheirSize()
    {
        // Each picture as "name width height" at 1x.
        const QString pictures = QStringLiteral("fond.jpg 600 600|menu.bmp 160 375|pion1.bmp 324 54|pion2.bmp 120 60|"
                                                "pion3.bmp 468 208|catalogue.jpg 90 90|mess.jpg 300 300|"
                                                "bouton.bmp 180 30|best.jpg 400 540|file.jpg 300 300|"
                                                "pointeur.png 32 32|main.png 32 32");
        for (const int scale : {1, 2, 3})
            for (const QString &picture : pictures.split(u'|')) {
                const QStringList f = picture.split(u' ');
                QImageReader reader(artFile(f[0], scale));
                const QImage image = reader.read();
                QVERIFY2(
                    image.size() == QSize(f[1].toInt(), f[2].toInt()) * scale,
                    qPrintable(
                        QStringLiteral("%1 at %2x: %3x%4 ").arg(f[0]).arg(scale).arg(image.width()).arg(image.height())
                        + reader.errorString()));
                // A pointer's hot spot is written into the file in its own pixels, on a drawn pixel.
                const QStringList hot = image.text(QStringLiteral("HotSpot")).split(u',');
                if (f[0].endsWith(QLatin1String(".png")))
                    QVERIFY2(hot.size() == 2 && qAlpha(image.pixel(hot[0].toInt(), hot[1].toInt())) > 0,
                             qPrintable(picture));
            }
    }

    // OR the mask, then AND the image: every pixel of the image must be white
    // where the mask is black, and the mask must be pure black or pure white.
    void maskedSpritesFollowTheRule_data()
    {
        QTest::addColumn<QImage>("picture");
        QTest::addColumn<QRect>("image");
        QTest::addColumn<QRect>("mask");
        for (const int s : {1, 2, 3}) {
            const QImage stones = load("pion2.bmp", s), pairs = load("pion3.bmp", s);
            QTest::addRow("stone %dx", s) << stones << scaled({0, 0, 60, 60}, s) << scaled({60, 0, 60, 60}, s);
            for (int cell = 0; cell < 32; ++cell)
                QTest::addRow("pair row %d column %d %dx", cell / 8, cell % 8, s)
                    << pairs << scaled({52 * (cell % 8), 52 * (cell / 8), 52, 52}, s)
                    << scaled({416, cell % 8 < 4 ? 0 : 52, 52, 52}, s);
        }
    }
    void maskedSpritesFollowTheRule()
    {
        QFETCH(QImage, picture);
        QFETCH(QRect, image);
        QFETCH(QRect, mask);
        int opaque = 0, whiteInside = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QRgb m = picture.pixel(mask.x() + x, mask.y() + y),
                           p = picture.pixel(image.x() + x, image.y() + y);
                const QString at = QStringLiteral(" at %1,%2").arg(x).arg(y);
                QVERIFY2(m == kWhite || (m == kBlack && p == kWhite),
                         qPrintable("a grey mask pixel, or the image not white outside the mask" + at));
                opaque += m == kWhite;
                whiteInside += m == kWhite && p == kWhite;
            }
        // The sprite covers most of its cell, the corners stay clear, and inside, the sprite is drawn: white
        // shows there only as a glint.
        QVERIFY(opaque > image.width() * image.height() / 2 && picture.pixel(mask.topLeft()) == kBlack
                && picture.pixel(mask.bottomRight()) == kBlack && whiteInside < opaque / 20);
    }

    // Each label laid on the window's pictures stands out from the mean colour behind it.
    void labelsCanBeRead()
    {
        // Each label as "picture x y width height colour of its text": the level, the clock, the message,
        // the dialog's first and other buttons, the file list, the three tables of best times.
        const QString labels = QStringLiteral("fond.jpg 38 33 40 26 404040|fond.jpg 36 65 40 24 e0e0e0|"
                                              "mess.jpg 32 54 238 108 000000|mess.jpg 100 189 180 27 000000|"
                                              "bouton.bmp 0 3 180 27 000000|file.jpg 22 58 230 108 000000|"
                                              "best.jpg 100 24 200 140 000000|best.jpg 100 184 200 140 000000|"
                                              "best.jpg 100 344 200 140 000000");
        for (const QString &label : labels.split(u'|')) {
            const QStringList f = label.split(u' ');
            const QRect area(f[1].toInt(), f[2].toInt(), f[3].toInt(), f[4].toInt());
            QVERIFY2(contrast(load(f[0]), area, QColor(u'#' + f[5])) >= 4.5, qPrintable(label));
        }
    }

    // The four faces of game 3, as the sheet shows them, stay well apart for every colour vision.
    void pairColoursStayApartForEveryColourVision()
    {
        const char *colours[4] = {"blue", "red", "green", "yellow"};
        for (const int s : {1, 2, 3}) {
            const QImage sheet = load("pion3.bmp", s);
            for (const colour_vision::Vision &vision : colour_vision::kVisions)
                for (int a = 0; a < 4; ++a)
                    for (int b = a + 1; b < 4; ++b) {
                        const double d = ciede2000(lab(colour_vision::seenBy(vision, faceColour(sheet, a, s))),
                                                   lab(colour_vision::seenBy(vision, faceColour(sheet, b, s))));
                        QVERIFY2(d >= 20, qPrintable(QStringLiteral("%1 and %2 only %3 apart in %4 at %5x")
                                                         .arg(colours[a], colours[b])
                                                         .arg(d, 0, 'f', 1)
                                                         .arg(vision.name)
                                                         .arg(s)));
                    }
        }
    }
};

QTEST_APPLESS_MAIN(TestArt)
#include "tst_art.moc"
