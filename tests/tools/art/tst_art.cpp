// Checks the committed pictures: their sizes and formats, the mask rule of the
// masked sheets (drawn with OR then AND), the two lightings of the menu, and that
// the labels laid on the window can be read.

#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QTest>

#include <array>
#include <cmath>

namespace {

QString artFile(const QString &name)
{
    return QStringLiteral(ART_DIR "/") + name;
}

QImage load(const QString &name)
{
    return QImage(artFile(name)).convertToFormat(QImage::Format_RGB32);
}

// Bits per pixel as the BMP's own header gives it.
int bmpBitCount(const QString &name)
{
    QFile file(artFile(name));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray head = file.read(30);
    if (head.size() < 30 || !head.startsWith("BM"))
        return -1;
    return static_cast<unsigned char>(head[28]) | (static_cast<unsigned char>(head[29]) << 8);
}

constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kBlack = 0xFF000000;

// How many pixels differ between two equal-sized regions.
int differingPixels(const QImage &a, QRect ra, const QImage &b, QRect rb)
{
    int count = 0;
    for (int y = 0; y < ra.height(); ++y)
        for (int x = 0; x < ra.width(); ++x)
            if (a.pixel(ra.x() + x, ra.y() + y) != b.pixel(rb.x() + x, rb.y() + y))
                ++count;
    return count;
}

double meanDifference(const QImage &a, QRect ra, const QImage &b, QRect rb)
{
    double sum = 0;
    for (int y = 0; y < ra.height(); ++y)
        for (int x = 0; x < ra.width(); ++x) {
            const QRgb p = a.pixel(ra.x() + x, ra.y() + y);
            const QRgb q = b.pixel(rb.x() + x, rb.y() + y);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q));
        }
    return sum / (3.0 * ra.width() * ra.height());
}

double relativeLuminance(QColor c)
{
    const auto linear = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
}

QColor averageColour(const QImage &image, QRect area)
{
    double r = 0, g = 0, b = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x) {
            r += qRed(image.pixel(x, y));
            g += qGreen(image.pixel(x, y));
            b += qBlue(image.pixel(x, y));
        }
    const double n = static_cast<double>(area.width()) * area.height();
    return QColor(static_cast<int>(r / n), static_cast<int>(g / n), static_cast<int>(b / n));
}

double contrast(QColor a, QColor b)
{
    const double la = relativeLuminance(a);
    const double lb = relativeLuminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

// The menu's hot spots in the sheet's coordinates (the window's, less (0, 130)).
constexpr std::array<QPoint, 7> kSpots = {{{38, 1}, {38, 56}, {36, 111}, {37, 166}, {32, 221}, {20, 277}, {9, 331}}};

} // namespace

class TestArt : public QObject {
    Q_OBJECT

private slots:
    void picturesHaveTheirSizeAndFormat_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("size");
        QTest::newRow("window") << "fond.jpg" << QSize(600, 600);
        QTest::newRow("menu") << "menu.bmp" << QSize(160, 375);
        QTest::newRow("game 1 sheet") << "pion1.bmp" << QSize(324, 54);
        QTest::newRow("game 2 sheet") << "pion2.bmp" << QSize(120, 60);
        QTest::newRow("game 3 sheet") << "pion3.bmp" << QSize(468, 208);
        QTest::newRow("catalogue") << "catalogue.jpg" << QSize(90, 90);
        QTest::newRow("message") << "mess.jpg" << QSize(300, 300);
        QTest::newRow("message button") << "bouton.bmp" << QSize(180, 30);
        QTest::newRow("best times") << "best.jpg" << QSize(400, 540);
        QTest::newRow("saved games") << "file.jpg" << QSize(300, 300);
        QTest::newRow("pointer") << "pointeur.png" << QSize(32, 32);
        QTest::newRow("hand") << "main.png" << QSize(32, 32);
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
        const QByteArray extension = name.section('.', -1).toLatin1();
        if (extension == "bmp") {
            QCOMPARE(format, QByteArray("bmp"));
            QCOMPARE(bmpBitCount(name), 24);
        } else if (extension == "jpg") {
            QCOMPARE(format, QByteArray("jpeg"));
        } else {
            QCOMPARE(format, QByteArray("png"));
            QVERIFY(image.hasAlphaChannel());
            // The hot spot is written into the file and lies on a drawn pixel.
            const QStringList spot = image.text(QStringLiteral("HotSpot")).split(',');
            QCOMPARE(spot.size(), 2);
            const QPoint hot(spot[0].toInt(), spot[1].toInt());
            QVERIFY(image.rect().contains(hot));
            QVERIFY(qAlpha(image.pixel(hot)) > 0);
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
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 8; ++column) {
                const QByteArray name = QByteArray("pair row ") + QByteArray::number(row) + " column "
                    + QByteArray::number(column);
                QTest::newRow(name.constData()) << "pion3.bmp" << QRect(52 * column, 52 * row, 52, 52)
                                                << QRect(416, column < 4 ? 0 : 52, 52, 52);
            }
    }

    void maskedSpritesFollowTheRule()
    {
        QFETCH(QString, sheet);
        QFETCH(QRect, image);
        QFETCH(QRect, mask);
        const QImage picture = load(sheet);
        int opaque = 0;
        int whiteInside = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QRgb m = picture.pixel(mask.x() + x, mask.y() + y);
                const QRgb p = picture.pixel(image.x() + x, image.y() + y);
                QVERIFY2(m == kWhite || m == kBlack, qPrintable(QStringLiteral("grey mask pixel at %1,%2").arg(x).arg(y)));
                if (m == kBlack)
                    QVERIFY2(p == kWhite, qPrintable(QStringLiteral("image not white outside the mask at %1,%2").arg(x).arg(y)));
                else {
                    ++opaque;
                    whiteInside += p == kWhite;
                }
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
        const QRect normal(416, 0, 52, 52);
        const QRect selected(416, 52, 52, 52);
        // A normal tile reaches the middle of each side; only its corners are cut.
        for (const QPoint p : {QPoint(26, 0), QPoint(0, 26), QPoint(51, 26), QPoint(26, 51)})
            QCOMPARE(sheet.pixel(normal.topLeft() + p), kWhite);
        // A selected tile leaves a ring of 2 pixels all round.
        for (int i = 0; i < 52; ++i)
            for (const QPoint p : {QPoint(i, 0), QPoint(i, 1), QPoint(i, 50), QPoint(i, 51), QPoint(0, i), QPoint(1, i),
                                   QPoint(50, i), QPoint(51, i)})
                QCOMPARE(sheet.pixel(selected.topLeft() + p), kBlack);
        for (const QPoint p : {QPoint(26, 2), QPoint(2, 26), QPoint(49, 26), QPoint(26, 49)})
            QCOMPARE(sheet.pixel(selected.topLeft() + p), kWhite);
        // The selected shape lies within the normal one.
        for (int y = 0; y < 52; ++y)
            for (int x = 0; x < 52; ++x)
                if (sheet.pixel(selected.x() + x, selected.y() + y) == kWhite)
                    QCOMPARE(sheet.pixel(normal.x() + x, normal.y() + y), kWhite);
        // Column 8 of rows 2 and 3 is never read and left white.
        for (int y = 104; y < 208; ++y)
            for (int x = 416; x < 468; ++x)
                QCOMPARE(sheet.pixel(x, y), kWhite);
    }

    void pairTilesDifferByColourPipsAndSelection()
    {
        const QImage sheet = load("pion3.bmp");
        for (int a = 0; a < 32; ++a)
            for (int b = a + 1; b < 32; ++b) {
                const QRect ra(52 * (a % 8), 52 * (a / 8), 52, 52);
                const QRect rb(52 * (b % 8), 52 * (b / 8), 52, 52);
                QVERIFY2(differingPixels(sheet, ra, sheet, rb) > 60,
                         qPrintable(QStringLiteral("cells %1 and %2 look alike").arg(a).arg(b)));
            }
    }

    void tileCellsAreDistinct()
    {
        const QImage sheet = load("pion1.bmp");
        for (int a = 0; a < 6; ++a)
            for (int b = a + 1; b < 6; ++b)
                QVERIFY2(differingPixels(sheet, QRect(54 * a, 0, 54, 54), sheet, QRect(54 * b, 0, 54, 54)) > 60,
                         qPrintable(QStringLiteral("cells %1 and %2 look alike").arg(a).arg(b)));
    }

    void menuLightingChangesOnlyTheRightButtons()
    {
        const QImage sheet = load("menu.bmp");
        for (int button = 0; button < 7; ++button) {
            const QRect idle = QRect(kSpots[button], QSize(43, 43)) & QRect(0, 0, 80, 375);
            const int changed = differingPixels(sheet, idle, sheet, idle.translated(80, 0));
            if (button == 4 || button == 5)
                QVERIFY2(changed == 0, qPrintable(QStringLiteral("button %1 changes").arg(button)));
            else
                QVERIFY2(changed > 300, qPrintable(QStringLiteral("button %1 does not change").arg(button)));
        }
        // Away from the buttons, both columns are the same wood.
        for (int y = 0; y < 375; ++y)
            for (int x = 0; x < 80; ++x) {
                bool onButton = false;
                for (const QPoint spot : kSpots)
                    onButton = onButton || QRect(spot, QSize(43, 43)).contains(x, y);
                if (!onButton)
                    QCOMPARE(sheet.pixel(x, y), sheet.pixel(x + 80, y));
            }
    }

    void idleButtonsAreBrighterThanDimOnes()
    {
        const QImage sheet = load("menu.bmp");
        const auto brightness = [&](int button, int column) {
            const QRect gem(kSpots[button] + QPoint(12 + column, 12), QSize(19, 19));
            return relativeLuminance(averageColour(sheet, gem));
        };
        for (const int button : {0, 1, 2, 6})
            QVERIFY(brightness(button, 0) > 1.5 * brightness(button, 80));
        QVERIFY(brightness(3, 80) > 1.5 * brightness(3, 0));
    }

    // The window at rest shows the idle column of the menu where the sheet is
    // copied, and the emblem's corner and the dialog plates match their places.
    void piecesMatchWhereTheyAreShown()
    {
        const QImage window = load("fond.jpg");
        const QImage menu = load("menu.bmp");
        QVERIFY(meanDifference(window, QRect(0, 130, 80, 375), menu, QRect(0, 0, 80, 375)) < 5.0);
        for (const int button : {0, 1, 2, 3, 6}) {
            const QRect spot = QRect(kSpots[button], QSize(43, 43)) & QRect(0, 0, 80, 375);
            const QRect shown = spot.translated(0, 130);
            QVERIFY(3 * meanDifference(window, shown, menu, spot) < meanDifference(window, shown, menu, spot.translated(80, 0)));
        }
        QVERIFY(meanDifference(window, QRect(0, 510, 4, 90), load("catalogue.jpg"), QRect(0, 0, 4, 90)) < 6.0);
        // The face of every button plate looks the same.
        const QImage button = load("bouton.bmp");
        const QRect face(4, 4, 172, 22);
        QVERIFY(meanDifference(load("mess.jpg"), face.translated(100, 186), button, face) < 4.0);
        QVERIFY(meanDifference(load("file.jpg"), face.translated(100, 186), button, face) < 4.0);
        QVERIFY(meanDifference(load("file.jpg"), face.translated(100, 220), button, face) < 4.0);
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
