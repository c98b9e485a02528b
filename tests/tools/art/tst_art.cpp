// Checks the committed pictures: their sizes and formats, the mask rule of the
// masked sheets (drawn with OR then AND), the two lightings of the menu, and that
// the labels laid on the window can be read.

#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QTest>

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

namespace {

QString artFile(const QString &name) { return QStringLiteral(ART_DIR "/") + name; }

QImage load(const QString &name) { return QImage(artFile(name)).convertToFormat(QImage::Format_RGB32); }

// Bits per pixel as the BMP's own header gives it.
int bmpBitCount(const QString &name)
{
    QFile file(artFile(name));
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

} // namespace

class TestArt : public QObject {
    Q_OBJECT

private slots:
    void picturesHaveTheirSizeAndFormat_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("size");
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
            QTest::newRow(name) << QString::fromLatin1(name) << QSize(w, h);
    }
    void picturesHaveTheirSizeAndFormat()
    {
        QFETCH(QString, name);
        QFETCH(QSize, size);
        QImageReader reader(artFile(name));
        const QByteArray format = reader.format();
        const QImage image = reader.read();
        QVERIFY2(!image.isNull(), qPrintable(name + ": " + reader.errorString()));
        QCOMPARE(image.size(), size);
        const QString extension = name.section('.', -1);
        QCOMPARE(format, extension == "jpg" ? QByteArray("jpeg") : extension.toLatin1());
        if (extension == "bmp") QCOMPARE(bmpBitCount(name), 24);
        if (extension == "png") {
            QVERIFY(image.hasAlphaChannel());
            // The hot spot is written into the file and lies on a drawn pixel.
            const QStringList hot = image.text(QStringLiteral("HotSpot")).split(',');
            QCOMPARE(hot.size(), 2);
            const QPoint at(hot[0].toInt(), hot[1].toInt());
            QVERIFY(image.rect().contains(at) && qAlpha(image.pixel(at)) > 0);
        }
    }

    // OR the mask, then AND the image: every pixel of the image must be white
    // where the mask is black, and the mask must be pure black or pure white.
    void maskedSpritesFollowTheRule_data()
    {
        QTest::addColumn<QString>("sheet");
        QTest::addColumn<QRect>("image");
        QTest::addColumn<QRect>("mask");
        QTest::newRow("stone") << "pion2.bmp" << QRect(0, 0, 60, 60) << QRect(60, 0, 60, 60);
        for (int cell = 0; cell < 32; ++cell)
            QTest::newRow(qPrintable(QStringLiteral("pair row %1 column %2").arg(cell / 8).arg(cell % 8)))
                << "pion3.bmp" << QRect(52 * (cell % 8), 52 * (cell / 8), 52, 52)
                << QRect(416, cell % 8 < 4 ? 0 : 52, 52, 52);
    }
    void maskedSpritesFollowTheRule()
    {
        QFETCH(QString, sheet);
        QFETCH(QRect, image);
        QFETCH(QRect, mask);
        const QImage picture = load(sheet);
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

    void pairMasksHaveTheirShapes()
    {
        const QImage sheet = load("pion3.bmp");
        const auto normal = [&](int x, int y) { return sheet.pixel(416 + x, y); };
        const auto selected = [&](int x, int y) { return sheet.pixel(416 + x, 52 + y); };
        for (int y = 0; y < 52; ++y)
            for (int x = 0; x < 52; ++x) {
                // A selected tile leaves a ring of 2 pixels all round, and its shape lies within the normal one.
                if (std::min({x, y, 51 - x, 51 - y}) < 2) QCOMPARE(selected(x, y), kBlack);
                if (selected(x, y) == kWhite) QCOMPARE(normal(x, y), kWhite);
            }
        // A normal tile reaches the middle of each side, a selected one the ring; only corners are cut.
        for (const auto &[x, y] : {std::pair{26, 0}, {0, 26}, {51, 26}, {26, 51}}) {
            QCOMPARE(normal(x, y), kWhite);
            QCOMPARE(selected(std::clamp(x, 2, 49), std::clamp(y, 2, 49)), kWhite);
        }
        // Column 8 of rows 2 and 3 is never read and left white.
        for (int y = 104; y < 208; ++y)
            for (int x = 416; x < 468; ++x) QCOMPARE(sheet.pixel(x, y), kWhite);
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
};

QTEST_APPLESS_MAIN(TestArt)
#include "tst_art.moc"
