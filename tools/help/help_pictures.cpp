// SPDX-License-Identifier: MIT
// Takes the pictures of the help pages from the real window, at 1x and 2x: each game's level 000 as
// it comes up and after a first move, cut to the part of the board in use. Also the pictures of the
// README: Jeu 3 in play at 1x and 2x, and its board as eyes without one kind of cone see it.
//
//   help_pictures <help folder> <docs folder>
//
// The window is moved between two screens of device pixel ratios 1 and 2, and drawn anew on each.
#include "colour_vision.h"
#include "frmFond.h"
#include "modBase.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QTemporaryDir>
#include <cstdio>

namespace {

struct Game {
    int jeu;
    const char *name; // of its pictures
    QRect part;       // of the screen: the cells of level 000 in use, with half a cell around them
    // The clicks of the first move on the screen, each followed by a picture with its name.
    std::vector<std::pair<QPoint, const char *>> move;
};

// Jeu 1: the lowest socket first, which no later tile will turn. Jeu 2: the first of the two
// clicks that clear the level. Jeu 3: a pair of equal tiles, the first one selected, then the second.
const Game kGames[] = {
    {1, "jeu1", QRect(135, 0, 108, 548), {{{3 * 54 + 27, 278 + 4 * 54 + 27}, "apres"}}},
    {2, "jeu2", QRect(90, 150, 300, 240), {{{3 * 60 + 30, 4 * 60 + 30}, "apres"}}},
    {3,
     "jeu3",
     QRect(130, 78, 260, 208),
     {{{5 * 52 + 26, 3 * 52 + 26}, "choix"}, {{3 * 52 + 26, 3 * 52 + 26}, "apres"}}},
};

bool save(const QImage &picture, const QString &path)
{
    if (picture.save(path)) return true;
    std::fprintf(stderr, "help_pictures: cannot write %s\n", qPrintable(path));
    return false;
}

// "jeu1-avant.png" at 1x, "jeu1-avant@2x.png" at 2x.
QString fileName(const Game &game, const char *moment, int scale)
{
    return QStringLiteral("%1-%2%3.png").arg(game.name, moment, scale == 1 ? QString() : QStringLiteral("@2x"));
}

// The part of the board in use, from the screen's image.
QImage boardPart(frmFond &fond, const Game &game)
{
    const Surface *screen = fond.screenOf(game.jeu);
    const int s = screen->scale();
    return screen->image.copy(QRect(game.part.topLeft() * s, game.part.size() * s));
}

void setUpLevelZero(frmFond &fond, int jeu)
{
    gJeu = jeu;
    gNiveau = 0;
    fond.AfficheMenu(1);
    fond.prepareScreenOf(jeu);
    fond.setUpLevelOf(jeu);
}

void click(frmFond &fond, int jeu, QPoint at)
{
    if (jeu == 1) fond.pctEcran1_MouseDown(Qt::LeftButton, {}, at.x(), at.y());
    if (jeu == 2) fond.pctEcran2_MouseDown(Qt::LeftButton, {}, at.x(), at.y());
    if (jeu == 3) fond.pctEcran3_MouseDown(Qt::LeftButton, {}, at.x(), at.y());
}

bool takeGamePictures(frmFond &fond, const QDir &help)
{
    for (const Game &game : kGames) {
        setUpLevelZero(fond, game.jeu);
        if (!save(boardPart(fond, game), help.filePath(fileName(game, "avant", fond.scale())))) return false;
        for (const auto &[at, moment] : game.move) {
            click(fond, game.jeu, at);
            if (!save(boardPart(fond, game), help.filePath(fileName(game, moment, fond.scale())))) return false;
        }
    }
    return true;
}

// Jeu 3 as the README shows it: level 000 with a tile selected, two seconds on the clock.
QImage jeu3InPlay(frmFond &fond)
{
    setUpLevelZero(fond, 3);
    click(fond, 3, kGames[2].move[0].first);
    fond.labTemps->setText(QStringLiteral(" 2"));
    fond.labTemps->show();
    return fond.grab().toImage();
}

// The board of Jeu 3 four times, as seen with normal vision, protanopia, deuteranopia and
// tritanopia, each with its name below it.
QImage colourVisions(frmFond &fond)
{
    setUpLevelZero(fond, 3);
    const QImage board = boardPart(fond, kGames[2]).convertToFormat(QImage::Format_RGB32);
    const QSize cell = board.deviceIndependentSize().toSize() + QSize(0, 28);
    QImage sheet(QSize(2 * cell.width(), 2 * cell.height()) * fond.scale(), QImage::Format_RGB32);
    sheet.setDevicePixelRatio(fond.scale());
    sheet.fill(QColor(40, 42, 46));
    QPainter painter(&sheet);
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(16);
    painter.setFont(font);
    painter.setPen(QColor(236, 236, 236));
    for (int i = 0; i < 4; ++i) {
        const colour_vision::Vision &vision = colour_vision::kVisions[i];
        QImage seen = board;
        for (int y = 0; y < seen.height(); ++y) {
            auto *line = reinterpret_cast<QRgb *>(seen.scanLine(y));
            for (int x = 0; x < seen.width(); ++x) line[x] = colour_vision::seenBy(vision, line[x]);
        }
        const QPoint at((i % 2) * cell.width(), (i / 2) * cell.height());
        painter.drawImage(at, seen);
        painter.drawText(QRect(at + QPoint(0, cell.height() - 28), QSize(cell.width(), 28)), Qt::AlignCenter,
                         QString::fromLatin1(vision.name));
    }
    return sheet;
}

// Moves the window onto the screen of the given ratio and waits until it is drawn there.
bool showAt(frmFond &fond, int ratio)
{
    for (QScreen *screen : QGuiApplication::screens())
        if (screen->devicePixelRatio() == ratio) fond.move(screen->geometry().topLeft() + QPoint(40, 40));
    QElapsedTimer waited;
    waited.start();
    while (fond.scale() != ratio && waited.elapsed() < 5000) {
        fond.repaint();
        QCoreApplication::processEvents();
    }
    return fond.scale() == ratio;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: help_pictures <help folder> <docs folder>\n");
        return 2;
    }
    // A data folder, a runtime folder and two screens of its own, side by side.
    QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.filePath(QStringLiteral("data")).toUtf8());
    qputenv("XDG_RUNTIME_DIR", home.path().toUtf8());
    QFile screens(home.filePath(QStringLiteral("screens.json")));
    if (!screens.open(QIODevice::WriteOnly)
        || screens.write(R"({"screens": [
            {"name": "1x", "x": 0, "y": 0, "width": 1600, "height": 1200, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
            {"name": "2x", "x": 1600, "y": 0, "width": 3200, "height": 2400, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 2}]})")
               < 0)
        return 1;
    screens.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toUtf8());
    QApplication application(argc, argv);

    const QDir help(QString::fromLocal8Bit(argv[1])), docs(QString::fromLocal8Bit(argv[2]));
    frmFond fond;
    if (!fond.Form_Load()) return 1;
    fond.show();
    for (const int scale : {1, 2}) {
        if (!showAt(fond, scale) || !takeGamePictures(fond, help)) return 1;
        const QString shot =
            scale == 1 ? QStringLiteral("screenshot-jeu3.png") : QStringLiteral("screenshot-jeu3@2x.png");
        if (!save(jeu3InPlay(fond), docs.filePath(shot))) return 1;
    }
    return save(colourVisions(fond), docs.filePath(QStringLiteral("jeu3-colour-vision.png"))) ? 0 : 1;
}
