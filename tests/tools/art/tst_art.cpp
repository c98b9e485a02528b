// Checks the committed pictures: their sizes and formats at 1x, 2x and 3x, the
// mask rule of the masked sheets (drawn with OR then AND), the two lightings of
// the menu, that the labels laid on the window can be read, that the colours of
// game 3 stay apart for every colour vision and have marks of their own, and that
// the pips and the best-times titles stand where they should.

#include "colour_vision.h"

#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QTest>

#include <algorithm>
#include <array>
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

// Bits per pixel as the BMP's own header gives it.
int bmpBitCount(const QString &path)
{
    QFile file(path);
    const QByteArray head = file.open(QIODevice::ReadOnly) ? file.read(30) : QByteArray();
    if (head.size() < 30 || !head.startsWith("BM")) return -1;
    return static_cast<unsigned char>(head[28]) | (static_cast<unsigned char>(head[29]) << 8);
}

constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kBlack = 0xFF000000;

// Two equal-sized regions compared: how many pixels differ, and the mean difference per channel.
struct Likeness {
    int differing = 0;
    double mean = 0;
};
Likeness compare(const QImage &a, QRect ra, const QImage &b, QRect rb)
{
    Likeness l;
    for (int y = 0; y < ra.height(); ++y)
        for (int x = 0; x < ra.width(); ++x) {
            const QRgb p = a.pixel(ra.x() + x, ra.y() + y), q = b.pixel(rb.x() + x, rb.y() + y);
            l.differing += p != q;
            l.mean += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q));
        }
    l.mean /= 3.0 * ra.width() * ra.height();
    return l;
}

double relativeLuminance(QColor c)
{
    const auto linear = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
}

QColor averageColour(const QImage &image, QRect area)
{
    double rgb[3] = {};
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb p = image.pixel(x, y);
            rgb[0] += qRed(p), rgb[1] += qGreen(p), rgb[2] += qBlue(p);
        }
    const double n = static_cast<double>(area.width()) * area.height();
    return QColor(static_cast<int>(rgb[0] / n), static_cast<int>(rgb[1] / n), static_cast<int>(rgb[2] / n));
}

double contrast(QColor a, QColor b)
{
    const double la = relativeLuminance(a), lb = relativeLuminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

// The menu's hot spots in the sheet's coordinates (the window's, less (0, 130)).
constexpr std::array<QPoint, 7> kSpots = {{{38, 1}, {38, 56}, {36, 111}, {37, 166}, {32, 221}, {20, 277}, {9, 331}}};

QRect spot(int button, int column = 0)
{
    return (QRect(kSpots[button], QSize(43, 43)) & QRect(0, 0, 80, 375)).translated(column, 0);
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

// The light and shade of a tile's face with its colour taken away: each pixel's luminance less the
// mean of its line across the face, so that neither the colour nor the top-to-bottom shading counts.
std::vector<double> faceShape(const QImage &sheet, int row, int s)
{
    std::vector<double> shape;
    for (int y = 0; y < 52 * s; ++y) {
        std::vector<double> line;
        for (int x = 0; x < 52 * s; ++x)
            if (onFace({x, y}, s)) line.push_back(qGray(sheet.pixel(x, 52 * s * row + y)));
        double mean = 0;
        for (const double v : line) mean += v / line.size();
        for (const double v : line) shape.push_back(v - mean);
    }
    return shape;
}

// Which of the nine places of a pip (3 x 3 around the centre, 0.24 of the tile's side apart) hold
// one, on a tile of the given side whose top left corner is at `corner`.
QString pipPlaces(const QImage &sheet, QPointF corner, double side)
{
    QString places;
    for (int row = -1; row <= 1; ++row)
        for (int column = -1; column <= 1; ++column) {
            const QPointF at = corner + QPointF(side / 2 + column * 0.24 * side, side / 2 + row * 0.24 * side);
            const QColor c = averageColour(sheet, QRect(at.toPoint() - QPoint(1, 1), QSize(3, 3)));
            places += std::min({c.red(), c.green(), c.blue()}) > 170 ? QLatin1Char('o') : QLatin1Char('.');
        }
    return places;
}
} // namespace

class TestArt : public QObject {
    Q_OBJECT

private slots:
    void picturesHaveTheirSizeAndFormat_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("scale");
        QTest::addColumn<QSize>("size");
        for (const int scale : {1, 2, 3})
            for (const auto &[name, w, h] : {std::tuple{"fond.jpg", 600, 600},
                                             {"menu.bmp", 160, 375},
                                             {"pion1.bmp", 324, 54},
                                             {"pion2.bmp", 120, 60},
                                             {"pion3.bmp", 468, 208},
                                             {"catalogue.jpg", 90, 90},
                                             {"mess.jpg", 300, 300},
                                             {"bouton.bmp", 180, 30},
                                             {"best.jpg", 400, 540},
                                             {"file.jpg", 300, 300},
                                             {"pointeur.png", 32, 32},
                                             {"main.png", 32, 32}})
                QTest::newRow(qPrintable(QStringLiteral("%1 %2x").arg(name).arg(scale)))
                    << QString::fromLatin1(name) << scale << QSize(w, h) * scale;
    }
    void picturesHaveTheirSizeAndFormat()
    {
        QFETCH(QString, name);
        QFETCH(int, scale);
        QFETCH(QSize, size);
        QImageReader reader(artFile(name, scale));
        const QByteArray format = reader.format();
        const QImage image = reader.read();
        QVERIFY2(!image.isNull(), qPrintable(name + ": " + reader.errorString()));
        QCOMPARE(image.size(), size);
        const QString extension = name.section('.', -1);
        QCOMPARE(format, extension == "jpg" ? QByteArray("jpeg") : extension.toLatin1());
        if (extension == "bmp") QCOMPARE(bmpBitCount(artFile(name, scale)), 24);
        if (extension == "png") {
            QVERIFY(image.hasAlphaChannel());
            // The hot spot is written into the file in its own pixels, lies on a drawn pixel, and
            // scales with the picture.
            const auto hotSpot = [](const QImage &picture) {
                const QStringList hot = picture.text(QStringLiteral("HotSpot")).split(',');
                return hot.size() == 2 ? QPoint(hot[0].toInt(), hot[1].toInt()) : QPoint(-1, -1);
            };
            const QPoint at = hotSpot(image);
            QVERIFY(image.rect().contains(at) && qAlpha(image.pixel(at)) > 0);
            QCOMPARE(at, hotSpot(QImage(artFile(name))) * scale);
        }
    }

    // OR the mask, then AND the image: every pixel of the image must be white
    // where the mask is black, and the mask must be pure black or pure white.
    void maskedSpritesFollowTheRule_data()
    {
        QTest::addColumn<QString>("sheet");
        QTest::addColumn<int>("scale");
        QTest::addColumn<QRect>("image");
        QTest::addColumn<QRect>("mask");
        for (const int s : {1, 2, 3}) {
            QTest::addRow("stone %dx", s)
                << "pion2.bmp" << s << scaled({0, 0, 60, 60}, s) << scaled({60, 0, 60, 60}, s);
            for (int cell = 0; cell < 32; ++cell)
                QTest::addRow("pair row %d column %d %dx", cell / 8, cell % 8, s)
                    << "pion3.bmp" << s << scaled({52 * (cell % 8), 52 * (cell / 8), 52, 52}, s)
                    << scaled({416, cell % 8 < 4 ? 0 : 52, 52, 52}, s);
        }
    }
    void maskedSpritesFollowTheRule()
    {
        QFETCH(QString, sheet);
        QFETCH(int, scale);
        QFETCH(QRect, image);
        QFETCH(QRect, mask);
        const QImage picture = load(sheet, scale);
        int opaque = 0, whiteInside = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QRgb m = picture.pixel(mask.x() + x, mask.y() + y),
                           p = picture.pixel(image.x() + x, image.y() + y);
                const QString at = QStringLiteral(" at %1,%2").arg(x).arg(y);
                QVERIFY2(m == kWhite || m == kBlack, qPrintable("grey mask pixel" + at));
                QVERIFY2(m == kWhite || p == kWhite, qPrintable("image not white outside the mask" + at));
                opaque += m == kWhite;
                whiteInside += m == kWhite && p == kWhite;
            }
        // The sprite covers most of its cell, and the corners stay clear.
        QVERIFY(opaque > image.width() * image.height() / 2);
        QCOMPARE(picture.pixel(mask.topLeft()), kBlack);
        QCOMPARE(picture.pixel(mask.bottomRight()), kBlack);
        // Inside, the sprite is drawn: white shows there only as a glint.
        QVERIFY(whiteInside < opaque / 20);
    }

    void pairMasksHaveTheirShapes_data()
    {
        QTest::addColumn<int>("s");
        for (const int s : {1, 2, 3}) QTest::addRow("%dx", s) << s;
    }
    void pairMasksHaveTheirShapes()
    {
        QFETCH(int, s);
        const QImage sheet = load("pion3.bmp", s);
        const int side = 52 * s, last = side - 1, ring = 2 * s;
        const auto normal = [&](int x, int y) { return sheet.pixel(8 * side + x, y); };
        const auto selected = [&](int x, int y) { return sheet.pixel(8 * side + x, side + y); };
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x) {
                // A selected tile leaves a ring of 2 pixels all round, and its shape lies within the normal one.
                if (std::min({x, y, last - x, last - y}) < ring) QCOMPARE(selected(x, y), kBlack);
                if (selected(x, y) == kWhite) QCOMPARE(normal(x, y), kWhite);
            }
        // A normal tile reaches the middle of each side, a selected one the ring; only corners are cut.
        for (const auto &[x, y] : {std::pair{side / 2, 0}, {0, side / 2}, {last, side / 2}, {side / 2, last}}) {
            QCOMPARE(normal(x, y), kWhite);
            QCOMPARE(selected(std::clamp(x, ring, last - ring), std::clamp(y, ring, last - ring)), kWhite);
        }
        // Column 8 of rows 2 and 3 is never read and left white.
        for (int y = 2 * side; y < 4 * side; ++y)
            for (int x = 8 * side; x < 9 * side; ++x) QCOMPARE(sheet.pixel(x, y), kWhite);
    }

    // Tiles differ by colour, pips and selection; every cell of a sheet from every other.
    void cellsAreDistinct_data()
    {
        QTest::addColumn<QString>("sheet");
        QTest::addColumn<int>("side");
        QTest::addColumn<int>("cells");
        QTest::newRow("tiles") << "pion1.bmp" << 54 << 6;
        QTest::newRow("pairs") << "pion3.bmp" << 52 << 32;
    }
    void cellsAreDistinct()
    {
        QFETCH(QString, sheet);
        QFETCH(int, side);
        QFETCH(int, cells);
        const QImage picture = load(sheet);
        const auto cell = [side](int c) { return QRect(side * (c % 8), side * (c / 8), side, side); };
        for (int a = 0; a < cells; ++a)
            for (int b = a + 1; b < cells; ++b)
                QVERIFY2(compare(picture, cell(a), picture, cell(b)).differing > 60,
                         qPrintable(QStringLiteral("cells %1 and %2 look alike").arg(a).arg(b)));
    }

    void menuLightingChangesOnlyTheRightButtons()
    {
        const QImage sheet = load("menu.bmp");
        for (int button = 0; button < 7; ++button) {
            const int changed = compare(sheet, spot(button), sheet, spot(button, 80)).differing;
            QVERIFY2(button == 4 || button == 5 ? changed == 0 : changed > 300, qPrintable(QString::number(button)));
        }
        // Away from the buttons, both columns are the same wood.
        for (int y = 0; y < 375; ++y)
            for (int x = 0; x < 80; ++x)
                if (std::none_of(kSpots.begin(), kSpots.end(),
                                 [&](QPoint s) { return QRect(s, QSize(43, 43)).contains(x, y); }))
                    QCOMPARE(sheet.pixel(x, y), sheet.pixel(x + 80, y));
    }

    void idleButtonsAreBrighterThanDimOnes()
    {
        const QImage sheet = load("menu.bmp");
        const auto brightness = [&](int button, int column) {
            return relativeLuminance(
                averageColour(sheet, QRect(kSpots[button] + QPoint(12 + column, 12), QSize(19, 19))));
        };
        for (const int button : {0, 1, 2, 6}) QVERIFY(brightness(button, 0) > 1.5 * brightness(button, 80));
        QVERIFY(brightness(3, 80) > 1.5 * brightness(3, 0));
    }

    // The window at rest shows the idle column of the menu where the sheet is
    // copied, and the emblem's corner and the dialog plates match their places.
    void piecesMatchWhereTheyAreShown()
    {
        const QImage window = load("fond.jpg"), menu = load("menu.bmp");
        QVERIFY(compare(window, QRect(0, 130, 80, 375), menu, QRect(0, 0, 80, 375)).mean < 5.0);
        for (const int button : {0, 1, 2, 3, 6}) {
            const QRect shown = spot(button).translated(0, 130);
            QVERIFY(3 * compare(window, shown, menu, spot(button)).mean
                    < compare(window, shown, menu, spot(button, 80)).mean);
        }
        QVERIFY(compare(window, QRect(0, 510, 4, 90), load("catalogue.jpg"), QRect(0, 0, 4, 90)).mean < 6.0);
        // The face of every button plate looks the same.
        const QImage button = load("bouton.bmp");
        const QRect face(4, 4, 172, 22);
        for (const auto &[picture, top] : {std::pair{"mess.jpg", 186}, {"file.jpg", 186}, {"file.jpg", 220}})
            QVERIFY(compare(load(picture), face.translated(100, top), button, face).mean < 4.0);
    }

    void labelsCanBeRead_data()
    {
        QTest::addColumn<QString>("picture");
        QTest::addColumn<QRect>("area");
        QTest::addColumn<QColor>("text");
        QTest::newRow("level") << "fond.jpg" << QRect(38, 33, 40, 26) << QColor(0x40, 0x40, 0x40);
        QTest::newRow("clock") << "fond.jpg" << QRect(36, 65, 40, 24) << QColor(0xE0, 0xE0, 0xE0);
        QTest::newRow("message") << "mess.jpg" << QRect(32, 54, 238, 108) << QColor(Qt::black);
        QTest::newRow("first button") << "mess.jpg" << QRect(100, 189, 180, 27) << QColor(Qt::black);
        QTest::newRow("other buttons") << "bouton.bmp" << QRect(0, 3, 180, 27) << QColor(Qt::black);
        QTest::newRow("file list") << "file.jpg" << QRect(22, 58, 230, 108) << QColor(Qt::black);
        for (const int top : {24, 184, 344})
            QTest::newRow(qPrintable(QStringLiteral("best times from %1").arg(top)))
                << "best.jpg" << QRect(100, top, 200, 140) << QColor(Qt::black);
    }
    void labelsCanBeRead()
    {
        QFETCH(QString, picture);
        QFETCH(QRect, area);
        QFETCH(QColor, text);
        QVERIFY(contrast(averageColour(load(picture), area), text) >= 4.5);
    }

    // The four faces of game 3, as the sheet shows them, stay well apart for every colour vision.
    void pairColoursStayApartForEveryColourVision_data()
    {
        QTest::addColumn<int>("s");
        for (const int s : {1, 2, 3}) QTest::addRow("%dx", s) << s;
    }
    void pairColoursStayApartForEveryColourVision()
    {
        QFETCH(int, s);
        const QImage sheet = load("pion3.bmp", s);
        const char *colours[4] = {"blue", "red", "green", "yellow"};
        for (const colour_vision::Vision &vision : colour_vision::kVisions)
            for (int a = 0; a < 4; ++a)
                for (int b = a + 1; b < 4; ++b) {
                    const double d = ciede2000(lab(colour_vision::seenBy(vision, faceColour(sheet, a, s))),
                                               lab(colour_vision::seenBy(vision, faceColour(sheet, b, s))));
                    QVERIFY2(d >= 20, qPrintable(QStringLiteral("%1 and %2 only %3 apart in %4")
                                                     .arg(colours[a], colours[b])
                                                     .arg(d, 0, 'f', 1)
                                                     .arg(vision.name)));
                }
    }

    // With the colour taken away, the faces of the four rows still differ: each colour has its mark.
    void pairMarksTellColoursWithoutColour()
    {
        const QImage sheet = load("pion3.bmp");
        for (int a = 0; a < 4; ++a)
            for (int b = a + 1; b < 4; ++b) {
                const std::vector<double> shapeA = faceShape(sheet, a, 1), shapeB = faceShape(sheet, b, 1);
                double difference = 0;
                for (size_t i = 0; i < shapeA.size(); ++i)
                    difference += std::abs(shapeA[i] - shapeB[i]) / shapeA.size();
                QVERIFY2(difference > 6, qPrintable(QStringLiteral("rows %1 and %2 differ by %3 without colour")
                                                        .arg(a)
                                                        .arg(b)
                                                        .arg(difference, 0, 'f', 1)));
            }
    }

    // A tile of n pips shows them at the same places in both games.
    void pipsLieAlikeInBothGames()
    {
        const QImage tiles = load("pion1.bmp"), pairs = load("pion3.bmp");
        const char *wanted[4] = {"....o....", "..o...o..", "o.o...o..", "o.o...o.o"};
        for (int n = 1; n <= 4; ++n) {
            QCOMPARE(pipPlaces(tiles, QPointF(54 * (n - 1) + 1, 1), 52), QString::fromLatin1(wanted[n - 1]));
            QCOMPARE(pipPlaces(pairs, QPointF(52 * (n - 1), 0), 52), QString::fromLatin1(wanted[n - 1]));
        }
    }

    // Each panel of the best-times screen carries its game's title where no label lies: right of the
    // first score and between the first two names.
    void bestTimesPanelsHaveTheirTitles()
    {
        const QImage best = load("best.jpg");
        QList<QRect> labels;
        for (const int top : {24, 78, 127, 184, 238, 287, 344, 398, 447}) labels << QRect(26, top, 348, 20);
        for (const int top : {44, 97, 147, 204, 257, 307, 364, 417, 467}) labels << QRect(100, top, 200, 20);
        QList<QRect> titles;
        for (int game = 0; game < 3; ++game) {
            const QRect title(300, 18 + 160 * game + 26, 86, 34);
            for (const QRect &label : labels) QVERIFY(!title.intersects(label));
            QColor darkest = Qt::white;
            for (int y = title.top(); y <= title.bottom(); ++y)
                for (int x = title.left(); x <= title.right(); ++x)
                    if (qGray(best.pixel(x, y)) < qGray(darkest.rgb())) darkest = best.pixel(x, y);
            QVERIFY2(contrast(darkest, averageColour(best, title)) >= 4.5, qPrintable(QString::number(game + 1)));
            for (const QRect &other : titles) QVERIFY(compare(best, title, best, other).differing > 50);
            titles << title;
        }
    }
};

QTEST_APPLESS_MAIN(TestArt)
#include "tst_art.moc"
