// BitBlt on small images, pixel by pixel: the three raster operations and the masked sprite.
#include "bitblt.h"

#include <QTest>

namespace {

QImage filled(int w, int h, QRgb colour)
{
    QImage image(w, h, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

QRgb at(const QImage &image, int x, int y) { return image.pixel(x, y) & 0xFFFFFF; }

} // namespace

class TestBitBlt : public QObject {
    Q_OBJECT

private slots:
    void copyReplacesExactlyTheRectangle()
    {
        QImage dest = filled(6, 6, 0x102030);
        QImage src = filled(4, 4, 0x000000);
        src.setPixel(2, 1, 0xABCDEF);
        BitBlt(dest, 3, 2, 2, 2, src, 1, 0, SRCCOPY);
        QCOMPARE(at(dest, 3, 2), QRgb(0x000000));
        QCOMPARE(at(dest, 4, 3), QRgb(0xABCDEF)); // src (2, 1) lands at (3 + 1, 2 + 1)
        QCOMPARE(at(dest, 2, 2), QRgb(0x102030));
        QCOMPARE(at(dest, 5, 2), QRgb(0x102030));
        QCOMPARE(at(dest, 3, 4), QRgb(0x102030));
    }

    void paintOrsAndAndAndsEachChannel()
    {
        QImage dest = filled(2, 1, 0x0F3C55);
        const QImage src = filled(2, 1, 0xF03C0A);
        BitBlt(dest, 0, 0, 1, 1, src, 0, 0, SRCPAINT);
        BitBlt(dest, 1, 0, 1, 1, src, 0, 0, SRCAND);
        QCOMPARE(at(dest, 0, 0), QRgb(0xFF3C5F));
        QCOMPARE(at(dest, 1, 0), QRgb(0x003C00));
    }

    void maskedSpriteKeepsTheBackgroundAroundIt()
    {
        // A 3 x 1 sprite whose middle pixel is opaque: the image is white around it, the mask black.
        QImage sheet(6, 1, QImage::Format_RGB32);
        const QRgb row[6] = {0xFFFFFF, 0x3366CC, 0xFFFFFF, 0x000000, 0xFFFFFF, 0x000000};
        for (int x = 0; x < 6; ++x) sheet.setPixel(x, 0, row[x]);
        QImage dest = filled(3, 1, 0x8A7B6C);
        BitBlt(dest, 0, 0, 3, 1, sheet, 3, 0, SRCPAINT); // mask first
        BitBlt(dest, 0, 0, 3, 1, sheet, 0, 0, SRCAND);   // then the image
        QCOMPARE(at(dest, 0, 0), QRgb(0x8A7B6C));
        QCOMPARE(at(dest, 1, 0), QRgb(0x3366CC));
        QCOMPARE(at(dest, 2, 0), QRgb(0x8A7B6C));
    }

    void copyingPastTheEdgeIsClipped()
    {
        QImage dest = filled(4, 4, 0x111111);
        const QImage src = filled(4, 4, 0x222222);
        BitBlt(dest, 2, 2, 4, 4, src, 0, 0, SRCCOPY);
        QCOMPARE(at(dest, 3, 3), QRgb(0x222222));
        QCOMPARE(at(dest, 1, 1), QRgb(0x111111));
    }
};

QTEST_APPLESS_MAIN(TestBitBlt)
#include "tst_bitblt.moc"
