// SPDX-License-Identifier: MIT
// Checks a screenshot of the whole X screen against what the window must show, built here from the
// artwork alone: a game's board for a given expected position, the level label, or a message dialog.
//
//   screen_check --art DIR --shot FILE --origin X,Y --game 1 --upper ROWS --lower ROWS [--level TEXT]
//   screen_check --art DIR --shot FILE --origin X,Y --game 2 --board ROWS [--level TEXT]
//   screen_check --art DIR --shot FILE --origin X,Y --game 3 --board ROWS [--selected X,Y] [--level TEXT]
//   screen_check --art DIR --shot FILE --origin X,Y --dialog --box none|empty|filled --buttons 1|2|3
//
// ROWS are board rows from the top, separated by '/'. Jeu 1, one character a cell: '.' nothing,
// 'S' an empty socket, '1' to '4' a tile, 'W' a target of a won level. Jeu 2: '.' or 'o' (a stone).
// Jeu 3, two characters a cell: ".." or colour (0 to 3) then pips (1 to 4).
// Exit status: 0 the screen matches, 1 it does not (the differences go to standard output), 2 misuse.
#include "pair_tiles_drawn.h"

#include <QFont>
#include <QGuiApplication>
#include <QHash>
#include <QPainter>
#include <cstdio>

namespace {

QHash<QString, QString> o; // the options, by name without the dashes

[[noreturn]] void misuse(const QString &why)
{
    std::fprintf(stderr, "screen_check: %s\n", qPrintable(why));
    std::exit(2);
}

void parse(QStringList args)
{
    static const QStringList names =
        QStringLiteral("art shot origin game upper lower board selected level box buttons").split(QLatin1Char(' '));
    for (args.removeFirst(); !args.isEmpty();) {
        const QString name = args.takeFirst().mid(2);
        const bool flag = name == QLatin1String("dialog");
        if (!flag && (!names.contains(name) || args.isEmpty()))
            misuse(QStringLiteral("unknown option, or no value after it: --") + name);
        o[name] = flag ? name : args.takeFirst();
    }
    if (o.value(QStringLiteral("art")).isEmpty() || o.value(QStringLiteral("shot")).isEmpty())
        misuse(QStringLiteral("--art and --shot are needed"));
}

QPoint point(const QString &name)
{
    const QStringList parts = o.value(name).split(QLatin1Char(','));
    bool okX = false, okY = false;
    const QPoint p = parts.size() == 2 ? QPoint(parts[0].toInt(&okX), parts[1].toInt(&okY)) : QPoint();
    if (!okX || !okY) misuse(QStringLiteral("expected X,Y after --") + name);
    return p;
}

QImage picture(const char *name)
{
    QImage image(o[QStringLiteral("art")] + QLatin1Char('/') + QLatin1String(name));
    if (image.isNull()) misuse(QStringLiteral("cannot read ") + QLatin1String(name));
    return image.convertToFormat(QImage::Format_RGB32);
}

// Calls f(x, y, cell) for each cell of a board option, rows from the top, cells of `width`
// characters; exact dimensions or misuse.
void eachCell(const char *name, int columns, int lines, int width,
              const std::function<void(int, int, const QString &)> &f)
{
    const QStringList rows = o.value(QLatin1String(name)).split(QLatin1Char('/'));
    if (rows.size() != lines) misuse(QStringLiteral("expected %1 rows after --%2").arg(lines).arg(name));
    for (int y = 0; y < lines; ++y) {
        if (rows[y].size() != columns * width)
            misuse(QStringLiteral("expected %1 cells: %2").arg(columns).arg(rows[y]));
        for (int x = 0; x < columns; ++x) f(x, y, rows[y].mid(x * width, width));
    }
}

// 0 when the shot holds `expected` at `at` in window coordinates, else 1 and the first wrong pixel.
int compare(const QImage &shot, QPoint at, const QImage &expected, const QString &what)
{
    const QString fault =
        firstWrongPixel(shot.copy(QRect(point(QStringLiteral("origin")) + at, expected.size())), expected);
    if (!fault.isEmpty()) std::printf("%s: %s\n", qPrintable(what), qPrintable(fault));
    return fault.isEmpty() ? 0 : 1;
}

// A game's board: its screen's place, cell and sheet; each cell drawn from its text, or misuse.
int checkBoard(const QImage &fond, const QImage &shot, int game)
{
    const QRect place = QList<QRect>{{128, 26, 432, 548}, {104, 30, 480, 540}, {110, 66, 468, 468}}[game - 1];
    const int side = QList<int>{54, 60, 52}[game - 1];
    const QImage sheet = picture(game == 1 ? "pion1.bmp" : game == 2 ? "pion2.bmp" : "pion3.bmp");
    QImage expected = fond.copy(place);
    const auto bad = [](const QString &cell) { misuse(QStringLiteral("bad cell ") + cell); };
    if (game == 1) {
        // The upper board, then the lower one 278 pixels down; '1' to '4', 'S' and 'W' are sheet cells 0 to 5.
        for (int b = 0; b < 2; ++b)
            eachCell(b == 0 ? "upper" : "lower", 8, 5, 1, [&](int x, int y, const QString &c) {
                const int index = QString::fromLatin1(b == 0 ? "1234.W" : "1234S.").indexOf(c);
                if (index < 0) bad(c);
                if (c != QLatin1String("."))
                    putSprite(expected, {side * x, 278 * b + side * y}, sheet, {side * index, 0, side, side});
            });
    } else if (game == 2) {
        eachCell("board", 8, 9, 1, [&](int x, int y, const QString &c) {
            if (c == QLatin1String("o"))
                putMaskedSprite(expected, {side * x, side * y}, sheet, {0, 0, side, side}, {side, 0});
            else if (c != QLatin1String("."))
                bad(c);
        });
    } else {
        // Level bytes: colour then pips, 48 + 16 * colour + pips.
        int values[9][9] = {};
        eachCell("board", 9, 9, 2, [&](int x, int y, const QString &c) {
            const int colour = c[0].digitValue(), pips = c[1].digitValue();
            if (c != QLatin1String("..") && (colour < 0 || colour > 3 || pips < 1 || pips > 4)) bad(c);
            values[x][y] = c == QLatin1String("..") ? 0 : 48 + 16 * colour + pips;
        });
        const QPoint at = o.contains(QStringLiteral("selected")) ? point(QStringLiteral("selected")) : QPoint(-1, 0);
        drawPairTiles(
            expected, sheet, [&values](int x, int y) { return values[x][y]; }, at.x() < 0 ? -1 : 9 * at.y() + at.x());
    }
    return compare(shot, place.topLeft(), expected, QStringLiteral("board"));
}

// The level label: bold 19-pixel Arial in dark grey, centred at the top of its box, over the background.
int checkLevel(const QImage &fond, const QImage &shot)
{
    const QRect box(38, 33, 40, 26);
    QImage expected = fond.copy(box);
    QPainter painter(&expected);
    QFont font(QStringLiteral("Arial"));
    font.setBold(true);
    font.setPixelSize(19);
    painter.setFont(font);
    painter.setPen(QColor(0x40, 0x40, 0x40));
    painter.drawText(expected.rect(), Qt::AlignHCenter | Qt::AlignTop, o[QStringLiteral("level")]);
    painter.end();
    return compare(shot, box.topLeft(), expected, QStringLiteral("level label"));
}

int checkDialog(const QImage &shot)
{
    int faults = 0;
    const QImage mess = picture("mess.jpg");
    const QImage button = picture("bouton.bmp");
    const int buttons = o.value(QStringLiteral("buttons")).toInt();
    // The second and third buttons' pictures: their top rows lie above the captions.
    for (int i = 1; i <= 2; ++i) {
        const QPoint at(100, 186 + 34 * i);
        const QImage strip = i < buttons ? button.copy(0, 0, 180, 3) : mess.copy(QRect(at, QSize(180, 3)));
        faults +=
            compare(shot, at, strip, QStringLiteral("button %1 (%2)").arg(i + 1).arg(i < buttons ? "shown" : "hidden"));
    }
    // The answer box: its inside is light grey, all of it when empty, not all of it when filled.
    const QRect inside(30, 138, 238, 19);
    const QImage box = shot.copy(inside.translated(point(QStringLiteral("origin"))));
    qint64 grey = 0;
    for (int y = 0; y < box.height(); ++y)
        for (int x = 0; x < box.width(); ++x) grey += (box.pixel(x, y) & 0xffffffu) == 0xe0e0e0u;
    const qint64 area = qint64(inside.width()) * inside.height();
    // A text cursor may blink in an empty box: one pixel column at most.
    const bool empty = grey >= area - inside.height();
    const QString wanted = o.value(QStringLiteral("box"));
    const bool ok = wanted == QLatin1String("empty")    ? empty
                    : wanted == QLatin1String("filled") ? grey >= area / 2 && !empty
                                                        : grey < area / 10;
    if (!ok) std::printf("answer box: %lld of %lld pixels light grey, expected %s\n", grey, area, qPrintable(wanted));
    return faults + (ok ? 0 : 1);
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication app(argc, argv);
    parse(app.arguments());
    const QImage shot = QImage(o[QStringLiteral("shot")]).convertToFormat(QImage::Format_RGB32);
    if (shot.isNull()) misuse(QStringLiteral("cannot read the screenshot ") + o[QStringLiteral("shot")]);
    if (o.contains(QStringLiteral("dialog"))) return checkDialog(shot) == 0 ? 0 : 1;
    const int game = o.value(QStringLiteral("game")).toInt();
    if (game < 1 || game > 3) misuse(QStringLiteral("--game 1, 2 or 3, or --dialog"));
    const QImage fond = picture("fond.jpg");
    const int faults =
        checkBoard(fond, shot, game) + (o.contains(QStringLiteral("level")) ? checkLevel(fond, shot) : 0);
    return faults == 0 ? 0 : 1;
}
