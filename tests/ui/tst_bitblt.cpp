// SPDX-License-Identifier: MIT
// BitBlt past the edges of either image: only the part both images hold is copied.
#include "bitblt.h"

#include <QTest>

class TestBitBlt : public QObject {
    Q_OBJECT

private slots:
    void copyingPastEitherEdgeIsClipped()
    {
        QImage dest(4, 4, QImage::Format_RGB32), src(4, 4, QImage::Format_RGB32);
        dest.fill(0x111111);
        src.fill(0x222222);
        src.setPixel(1, 1, 0x333333);
        BitBlt(dest, 2, 2, 4, 4, src, 0, 0, SRCCOPY); // past the destination's edge
        BitBlt(dest, 0, 0, 4, 4, src, 3, 3, SRCCOPY); // past the source's edge
        QString rows;                                 // each pixel as the digit its grey repeats, rows apart
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x <= 4; ++x)
                rows += x < 4 ? QString::number(dest.pixel(x, y) & 0xFFFFFF, 16).right(1) : "|";
        QCOMPARE(rows, QStringLiteral("2111|1111|1122|1123|"));
    }
};

QTEST_APPLESS_MAIN(TestBitBlt)
#include "tst_bitblt.moc"
