// SPDX-License-Identifier: MIT
// The dialogs' pictures: the message box (300 x 300) with the plate of its first
// button, the plate of the other two buttons (180 x 30), the best-times screen
// (400 x 540) and the saved-game chooser (300 x 300). Texts are labels laid on
// top, except the word on the best-times screen's close plate.

#include "art.h"

#include <QFont>
#include <QPainter>

namespace art {

namespace {

const QRectF kFirstPlate(100, 186, 180, 30);
const QRectF kSecondPlate(100, 220, 180, 30);
const QColor kParchmentTop(248, 240, 220);
const QColor kParchmentBottom(230, 214, 180);

// Light paper with a faint cloud, so black text reads on it.
QImage parchment(QSize size, uint32_t seed)
{
    const Noise noise(seed);
    QImage image = verticalGradient(size, kParchmentTop, kParchmentBottom);
    const double s = scale();
    for (int32_t y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int32_t x = 0; x < image.width(); ++x) {
            const double l = 1.0 + 0.05 * (noise.fractal(x / s * 0.02, y / s * 0.02, 4) - 0.5);
            line[x] = qRgb(std::min(255, static_cast<int32_t>(qRed(line[x]) * l)),
                           std::min(255, static_cast<int32_t>(qGreen(line[x]) * l)),
                           std::min(255, static_cast<int32_t>(qBlue(line[x]) * l)));
        }
    }
    return image;
}

QImage woodFrame(QSize size, uint32_t seed)
{
    return lit(cherryWood(size, seed), roundedBox(QRectF(QPointF(0, 0), size), 0), Relief{.bevel = 3, .depth = 1.0})
        .convertToFormat(QImage::Format_RGB32);
}

// A sheet of paper let into the wood.
void drawPanel(QImage &target, QRectF box, uint32_t seed)
{
    drawOver(target, lit(parchment(logicalSize(target), seed), roundedBox(box, 4), Relief{.bevel = 3, .depth = -0.9}));
    QImage walls = canvas(logicalSize(target));
    walls.fill(Qt::white);
    {
        QPainter painter(&walls);
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.fillRect(box, Qt::transparent);
    }
    QPainter painter(&target);
    painter.setClipRect(box);
    painter.drawImage(0, 0, shadowOf(walls, 2, {2, 2}, 0.35));
}

// The frame shared by the message box and the chooser.
QImage smallDialogBase(uint32_t seed)
{
    const QSize size(300, 300);
    QImage picture = woodFrame(size, seed);
    drawPanel(picture, QRectF(12, 12, 276, 276), seed + 1);
    drawCherries(picture, QRectF(26, 200, 60, 60));
    return picture;
}

QImage messageBase()
{
    QImage picture = smallDialogBase(21);
    // A thin rule under the top edge of the paper.
    drawOver(picture, lit(flatColour(logicalSize(picture), QColor(176, 140, 90)),
                          roundedBox(QRectF(40, 36, 220, 1.4), 0.7), Relief{.bevel = 0}));
    return picture;
}

void drawMedal(QImage &target, QPointF centre, QColor top, QColor bottom)
{
    const QImage medal =
        lit(verticalGradient(logicalSize(target), top, bottom, QRectF(centre - QPointF(10, 10), QSizeF(20, 20))),
            disc(centre, 10), Relief{.bevel = 3, .depth = 1.2, .gloss = 0.6, .shininess = 20});
    drawOver(target, shadowOf(medal, 1, {1, 1}, 0.5));
    drawOver(target, medal);
    drawOver(target,
             lit(verticalGradient(logicalSize(target), bottom, top, QRectF(centre - QPointF(6, 6), QSizeF(12, 12))),
                 disc(centre, 6), Relief{.bevel = 1.5, .depth = -1.0}));
}

// A small picture of each game's piece, so each panel tells its game.
void drawGameMark(QImage &target, int32_t game, QPointF centre)
{
    const QSize size = logicalSize(target);
    if (game == 0) {
        const QRectF tile(centre.x() - 15, centre.y() - 15, 30, 30);
        drawOver(target, shadowOf(lit(flatColour(size, Qt::black), roundedBox(tile, 3), Relief{.bevel = 0}), 1, {1, 1}, 0.5));
        drawOver(target, lit(verticalGradient(size, QColor(78, 138, 226), QColor(34, 82, 172), tile), roundedBox(tile, 3),
                             Relief{.bevel = 3, .depth = 1.1}));
        drawPips(target, tile, pipLayout(3), 3.0, QColor(248, 244, 230));
    } else if (game == 1) {
        const QImage stone = lit(flatColour(size, QColor(214, 176, 124)), disc(centre, 15),
                                 Relief{.bevel = 6, .depth = 1.0, .gloss = 0.3, .dome = true});
        drawOver(target, shadowOf(stone, 1, {1, 1}, 0.5));
        drawOver(target, stone);
        drawOver(target, lit(flatColour(size, QColor(122, 74, 36)), ring(centre, 6.0, 9.5), Relief{.bevel = 1, .depth = -1}));
        drawOver(target, lit(verticalGradient(size, QColor(96, 196, 110), QColor(24, 110, 54), QRectF(centre - QPointF(6, 6), QSizeF(12, 12))), disc(centre, 6.0),
                             Relief{.bevel = 6.0, .depth = 0.8, .gloss = 0.8, .dome = true}));
    } else {
        // A red tile and a green one, as on the sheet of game 3.
        for (int32_t k = 0; k < 2; ++k) {
            const QRectF tile(centre.x() - 20 + 19 * k, centre.y() - 15 + 10 * k, 20, 20);
            const FaceColours face = pairColours(1 + k);
            const QImage piece = lit(verticalGradient(size, face.top, face.bottom, tile), roundedBox(tile, 3),
                                     Relief{.bevel = 2.5, .depth = 1.1});
            drawOver(target, shadowOf(piece, 1, {1, 1}, 0.5));
            drawOver(target, piece);
            drawPips(target, tile, pipLayout(2), 2.2, QColor(248, 244, 230));
        }
    }
}

// "Jeu 1", "Jeu 2" or "Jeu 3" cut into a panel, centred on `centre`.
void drawGameTitle(QImage &target, int32_t game, QPointF centre)
{
    QFont font("Liberation Serif");
    font.setBold(true);
    font.setItalic(true);
    font.setPixelSize(18);
    QPainterPath title;
    title.addText(0, 0, font, QStringLiteral("Jeu %1").arg(game + 1));
    title.translate(centre - title.boundingRect().center());
    const QImage shape = pathImage(logicalSize(target), title);
    drawOver(target, tinted(shape, QColor(255, 252, 240, 220)), {0, 1});
    drawOver(target, tinted(shape, QColor(92, 46, 20)));
}

} // namespace

QImage messageDialog()
{
    QImage picture = messageBase();
    drawPlate(picture, kFirstPlate);
    return picture;
}

QImage messageButton()
{
    QImage picture = messageBase();
    drawPlate(picture, kSecondPlate);
    return picture.copy(devicePixels(kSecondPlate.toRect()));
}

QImage bestTimesDialog()
{
    QImage picture = woodFrame(QSize(400, 540), 31);
    const QColor medals[3][2] = {{QColor(255, 226, 110), QColor(196, 142, 28)},
                                 {QColor(240, 242, 246), QColor(150, 154, 164)},
                                 {QColor(230, 160, 100), QColor(146, 82, 38)}};
    for (int32_t game = 0; game < 3; ++game) {
        const double top = 18 + 160 * game;
        drawPanel(picture, QRectF(14, top, 372, 154), 32 + game);
        // Rows start 6, 60 and 109 pixels into the panel: a name over its score.
        const double rows[3] = {top + 6, top + 60, top + 109};
        for (int32_t row = 0; row < 3; ++row)
            drawMedal(picture, QPointF(40, rows[row] + 20), medals[row][0], medals[row][1]);
        for (const double y : {top + 53.0, top + 104.0})
            drawOver(picture, lit(flatColour(logicalSize(picture), QColor(190, 160, 116)),
                                  roundedBox(QRectF(60, y, 280, 1.2), 0.6), Relief{.bevel = 0}));
        // The title stands right of the first score and above the game's piece, clear of every label.
        drawGameTitle(picture, game, QPointF(350, top + 40));
        drawGameMark(picture, game, QPointF(356, top + 77));
    }
    const QRectF close(110, 505, 179, 30);
    drawPlate(picture, close);
    QFont font("Liberation Sans");
    font.setBold(true);
    font.setPixelSize(19);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(font);
    painter.setPen(QColor(0, 0, 0));
    painter.drawText(close.adjusted(0, 1, 0, 1), Qt::AlignCenter, QStringLiteral("Fermer"));
    return picture;
}

QImage savedGamesDialog()
{
    QImage picture = smallDialogBase(41);
    const QSize size = logicalSize(picture);
    // The list, a lighter sheet sunk into the paper, with the scroll arrows beside it.
    const QRectF list(18, 55, 235, 112);
    drawOver(picture, lit(verticalGradient(size, QColor(252, 250, 244), QColor(242, 236, 222), list), roundedBox(list, 3),
                          Relief{.bevel = 2.5, .depth = -1.0}));
    for (const int32_t index : {0, 1}) {
        const QRectF arrow(255, 59 + 52 * index, 20, 51);
        drawOver(picture, lit(verticalGradient(size, QColor(236, 204, 128), QColor(150, 106, 46), arrow), roundedBox(arrow, 4),
                              Relief{.bevel = 2.5, .depth = 1.0, .gloss = 0.3}));
        QPainterPath head;
        const QPointF c = arrow.center();
        const double tip = index == 0 ? -6.0 : 6.0;
        head.moveTo(c.x() - 6, c.y() - tip / 2);
        head.lineTo(c.x() + 6, c.y() - tip / 2);
        head.lineTo(c.x(), c.y() + tip);
        head.closeSubpath();
        const QImage shape = pathImage(size, head);
        drawOver(picture, tinted(shape, QColor(255, 240, 200, 160)), {1, 1});
        drawOver(picture, tinted(shape, QColor(70, 40, 14)));
    }
    drawPlate(picture, kFirstPlate);
    drawPlate(picture, kSecondPlate);
    return picture;
}

} // namespace art
