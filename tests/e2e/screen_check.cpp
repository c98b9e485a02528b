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
#include <QColor>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QStringList>
#include <cstdio>
#include <optional>

namespace {

struct Options {
    QString art;
    QString shot;
    QPoint origin;
    int game = 0;
    bool dialog = false;
    QString upper;
    QString lower;
    QString board;
    std::optional<QPoint> selected;
    QString level;
    QString box;
    int buttons = 0;
};

[[noreturn]] void misuse(const QString &why)
{
    std::fprintf(stderr, "screen_check: %s\n", qPrintable(why));
    std::exit(2);
}

QPoint pointArg(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    bool okX = false;
    bool okY = false;
    if (parts.size() != 2) misuse(QStringLiteral("expected X,Y: ") + text);
    const QPoint p(parts[0].toInt(&okX), parts[1].toInt(&okY));
    if (!okX || !okY) misuse(QStringLiteral("expected X,Y: ") + text);
    return p;
}

Options parse(const QStringList &args)
{
    Options o;
    for (qsizetype i = 1; i < args.size(); ++i) {
        const QString &a = args[i];
        if (a == QLatin1String("--dialog")) {
            o.dialog = true;
            continue;
        }
        if (i + 1 >= args.size()) misuse(QStringLiteral("no value after ") + a);
        const QString v = args[++i];
        if (a == QLatin1String("--art")) o.art = v;
        else if (a == QLatin1String("--shot")) o.shot = v;
        else if (a == QLatin1String("--origin")) o.origin = pointArg(v);
        else if (a == QLatin1String("--game")) o.game = v.toInt();
        else if (a == QLatin1String("--upper")) o.upper = v;
        else if (a == QLatin1String("--lower")) o.lower = v;
        else if (a == QLatin1String("--board")) o.board = v;
        else if (a == QLatin1String("--selected")) o.selected = pointArg(v);
        else if (a == QLatin1String("--level")) o.level = v;
        else if (a == QLatin1String("--box")) o.box = v;
        else if (a == QLatin1String("--buttons")) o.buttons = v.toInt();
        else misuse(QStringLiteral("unknown option ") + a);
    }
    if (o.art.isEmpty() || o.shot.isEmpty()) misuse(QStringLiteral("--art and --shot are needed"));
    return o;
}

QImage picture(const Options &o, const char *name)
{
    QImage image(o.art + QLatin1Char('/') + QLatin1String(name));
    if (image.isNull()) misuse(QStringLiteral("cannot read ") + QLatin1String(name));
    return image.convertToFormat(QImage::Format_RGB32);
}

// The rows of a board, each split into cells of `width` characters; exact dimensions or misuse.
QList<QStringList> cells(const QString &rows, int columns, int lines, int width)
{
    QList<QStringList> out;
    const QStringList split = rows.split(QLatin1Char('/'));
    if (split.size() != lines) misuse(QStringLiteral("expected %1 rows: %2").arg(lines).arg(rows));
    for (const QString &row : split) {
        if (row.size() != columns * width) misuse(QStringLiteral("expected %1 cells: %2").arg(columns).arg(row));
        QStringList line;
        for (int x = 0; x < columns; ++x) line.append(row.mid(x * width, width));
        out.append(line);
    }
    return out;
}

void copyCell(QImage &dest, QPoint at, const QImage &src, QRect from)
{
    for (int y = 0; y < from.height(); ++y)
        for (int x = 0; x < from.width(); ++x) dest.setPixel(at.x() + x, at.y() + y, src.pixel(from.x() + x, from.y() + y));
}

// A masked sprite as the window shows it: each pixel is (background OR mask) AND picture.
void maskedCell(QImage &dest, QPoint at, const QImage &sheet, QPoint mask, QPoint sprite, int side)
{
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const QRgb bg = dest.pixel(at.x() + x, at.y() + y);
            const QRgb m = sheet.pixel(mask.x() + x, mask.y() + y);
            const QRgb p = sheet.pixel(sprite.x() + x, sprite.y() + y);
            dest.setPixel(at.x() + x, at.y() + y, 0xff000000u | ((bg | m) & p));
        }
    }
}

// Differing pixels of `expected` against the shot at `at` in window coordinates, by cell of `cell`
// pixels; each differing cell is reported. Returns the number of differing pixels.
qint64 compare(const QImage &shot, QPoint origin, QPoint at, const QImage &expected, int cell, const char *what)
{
    qint64 total = 0;
    const int columns = (expected.width() + cell - 1) / cell;
    const int lines = (expected.height() + cell - 1) / cell;
    for (int cy = 0; cy < lines; ++cy) {
        for (int cx = 0; cx < columns; ++cx) {
            qint64 differing = 0;
            for (int y = cy * cell; y < qMin(expected.height(), (cy + 1) * cell); ++y)
                for (int x = cx * cell; x < qMin(expected.width(), (cx + 1) * cell); ++x) {
                    const QPoint s = origin + at + QPoint(x, y);
                    const QRgb got = shot.rect().contains(s) ? shot.pixel(s) : 0;
                    if ((got & 0xffffffu) != (expected.pixel(x, y) & 0xffffffu)) ++differing;
                }
            if (differing > 0)
                std::printf("%s: cell (%d,%d) differs in %lld pixels\n", what, cx, cy, static_cast<long long>(differing));
            total += differing;
        }
    }
    return total;
}

qint64 checkGame1(const Options &o, const QImage &fond, const QImage &shot)
{
    constexpr int kCell = 54;
    const QPoint screen(128, 26);
    const QImage sheet = picture(o, "pion1.bmp");
    QImage expected = fond.copy(QRect(screen, QSize(432, 548)));
    const auto upper = cells(o.upper, 8, 5, 1);
    const auto lower = cells(o.lower, 8, 5, 1);
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 8; ++x) {
            const QChar u = upper[y][x][0];
            if (u == QLatin1Char('W'))
                copyCell(expected, {kCell * x, kCell * y}, sheet, {270, 0, kCell, kCell});
            else if (u >= QLatin1Char('1') && u <= QLatin1Char('4'))
                copyCell(expected, {kCell * x, kCell * y}, sheet, {(u.digitValue() - 1) * kCell, 0, kCell, kCell});
            else if (u != QLatin1Char('.'))
                misuse(QStringLiteral("bad upper cell ") + u);
            const QChar l = lower[y][x][0];
            const QPoint at(kCell * x, 278 + kCell * y);
            if (l == QLatin1Char('S'))
                copyCell(expected, at, sheet, {216, 0, kCell, kCell});
            else if (l >= QLatin1Char('1') && l <= QLatin1Char('4'))
                copyCell(expected, at, sheet, {(l.digitValue() - 1) * kCell, 0, kCell, kCell});
            else if (l != QLatin1Char('.'))
                misuse(QStringLiteral("bad lower cell ") + l);
        }
    }
    // The upper board's cells, the gap, then the lower board's cells, each checked as drawn.
    qint64 total = compare(shot, o.origin, screen, expected.copy(0, 0, 432, 270), kCell, "upper board");
    total += compare(shot, o.origin, screen + QPoint(0, 270), expected.copy(0, 270, 432, 8), 432, "gap");
    total += compare(shot, o.origin, screen + QPoint(0, 278), expected.copy(0, 278, 432, 270), kCell, "lower board");
    return total;
}

qint64 checkGame2(const Options &o, const QImage &fond, const QImage &shot)
{
    constexpr int kCell = 60;
    const QPoint screen(104, 30);
    const QImage sheet = picture(o, "pion2.bmp");
    QImage expected = fond.copy(QRect(screen, QSize(480, 540)));
    const auto board = cells(o.board, 8, 9, 1);
    for (int y = 0; y < 9; ++y)
        for (int x = 0; x < 8; ++x) {
            if (board[y][x] == QLatin1String("o"))
                maskedCell(expected, {kCell * x, kCell * y}, sheet, {kCell, 0}, {0, 0}, kCell);
            else if (board[y][x] != QLatin1String("."))
                misuse(QStringLiteral("bad stone cell ") + board[y][x]);
        }
    return compare(shot, o.origin, screen, expected, kCell, "stones");
}

qint64 checkGame3(const Options &o, const QImage &fond, const QImage &shot)
{
    constexpr int kCell = 52;
    const QPoint screen(110, 66);
    const QImage sheet = picture(o, "pion3.bmp");
    QImage expected = fond.copy(QRect(screen, QSize(468, 468)));
    const auto board = cells(o.board, 9, 9, 2);
    for (int y = 0; y < 9; ++y)
        for (int x = 0; x < 9; ++x) {
            const QString &c = board[y][x];
            if (c == QLatin1String("..")) continue;
            const int colour = c[0].digitValue();
            const int pips = c[1].digitValue();
            if (colour < 0 || colour > 3 || pips < 1 || pips > 4) misuse(QStringLiteral("bad tile ") + c);
            const bool chosen = o.selected == QPoint(x, y);
            maskedCell(expected, {kCell * x, kCell * y}, sheet, {416, chosen ? kCell : 0},
                       {kCell * (pips - 1) + (chosen ? 208 : 0), kCell * colour}, kCell);
        }
    return compare(shot, o.origin, screen, expected, kCell, "tiles");
}

// The level label: bold 19-pixel Arial in dark grey, centred at the top of its box, over the background.
qint64 checkLevel(const Options &o, const QImage &fond, const QImage &shot)
{
    const QRect box(38, 33, 40, 26);
    QImage expected = fond.copy(box);
    QPainter painter(&expected);
    QFont font(QStringLiteral("Arial"));
    font.setBold(true);
    font.setPixelSize(19);
    painter.setFont(font);
    painter.setPen(QColor(0x40, 0x40, 0x40));
    painter.drawText(expected.rect(), Qt::AlignHCenter | Qt::AlignTop, o.level);
    painter.end();
    return compare(shot, o.origin, box.topLeft(), expected, box.width(), "level label");
}

qint64 checkDialog(const Options &o, const QImage &shot)
{
    qint64 total = 0;
    const QImage mess = picture(o, "mess.jpg");
    const QImage button = picture(o, "bouton.bmp");
    // The second and third buttons' pictures: their top rows lie above the captions.
    for (int i = 1; i <= 2; ++i) {
        const QPoint at(100, 186 + 34 * i);
        const QImage strip = i < o.buttons ? button.copy(0, 0, 180, 3) : mess.copy(QRect(at, QSize(180, 3)));
        const QByteArray what = QStringLiteral("button %1 (%2)").arg(i + 1).arg(i < o.buttons ? "shown" : "hidden").toUtf8();
        total += compare(shot, o.origin, at, strip, 180, what.constData());
    }
    // The answer box: its inside is light grey, all of it when empty, not all of it when filled.
    const QRect inside(30, 138, 238, 19);
    qint64 grey = 0;
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            if ((shot.pixel(o.origin + QPoint(x, y)) & 0xffffffu) == 0xe0e0e0u) ++grey;
    const qint64 area = qint64(inside.width()) * inside.height();
    // A text cursor may blink in an empty box: one pixel column at most.
    const bool empty = grey >= area - inside.height();
    const bool filled = grey >= area / 2 && !empty;
    const bool none = grey < area / 10;
    const bool ok = o.box == QLatin1String("empty") ? empty : o.box == QLatin1String("filled") ? filled : none;
    if (!ok) {
        std::printf("answer box: %lld of %lld pixels light grey, expected %s\n", static_cast<long long>(grey),
                    static_cast<long long>(area), qPrintable(o.box));
        ++total;
    }
    return total;
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication app(argc, argv);
    const Options o = parse(app.arguments());
    const QImage shot = QImage(o.shot).convertToFormat(QImage::Format_RGB32);
    if (shot.isNull()) misuse(QStringLiteral("cannot read the screenshot ") + o.shot);
    const QImage fond = picture(o, "fond.jpg");

    qint64 differing = 0;
    if (o.dialog) {
        differing = checkDialog(o, shot);
    } else {
        switch (o.game) {
        case 1: differing = checkGame1(o, fond, shot); break;
        case 2: differing = checkGame2(o, fond, shot); break;
        case 3: differing = checkGame3(o, fond, shot); break;
        default: misuse(QStringLiteral("--game 1, 2 or 3, or --dialog"));
        }
        if (!o.level.isEmpty()) differing += checkLevel(o, fond, shot);
    }
    return differing == 0 ? 0 : 1;
}
