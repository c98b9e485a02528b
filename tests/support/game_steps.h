// SPDX-License-Identifier: MIT
// The steps that close a level and a game, the same in the three games and checked the same way:
// the pause after a won level that is not the last, and the close of a finished game with its save.
#pragma once

#include "cue_names.h"
#include "dialog_log.h"
#include "first_moment.h"
#include "play_session.h"
#include "window_states.h"

#include <QElapsedTimer>

// A board's bytes as they lie in memory, to tell whether anything in it changed.
template <class Board>
QByteArray bytesOf(const Board &board)
{
    return QByteArray(reinterpret_cast<const char *>(&board), sizeof board);
}

// A saved game as the close of a finished game writes it: the player, then each game's level and
// seconds, the finished one at level 999.
inline QByteArray savedGame(const char *player, int game, int seconds)
{
    QByteArray bytes = '"' + QByteArray(player) + "\"\r\n";
    for (int g = 1; g <= 3; ++g) bytes += g == game ? "999\r\n" + QByteArray::number(seconds) + "\r\n" : "0\r\n0\r\n";
    return bytes;
}

// The winning left click at a point of the screen, on a level that is not the last, and the pause
// after it, caught once the cues given are heard and the screen shows the won board (wonFault
// empty): the window as verifyPaused has it, the cues and the best times as given; then a right
// and a left click at the same point are refused: no cue, and neither the level, the board nor the
// screen changes. The pause lasts its two seconds, scaled.
inline void winThroughThePause(PlaySession &s, Surface *screen, QPoint at, const QString &seconds, double total,
                               const QStringList &heard, const QByteArray &best,
                               const std::function<QByteArray()> &board, const std::function<QString()> &wonFault)
{
    const int32_t won = gNiveau;
    Probe pause(
        [&] {
            return !s.fond->isEnabled() && gNiveau == won && s.played().size() >= heard.size() && wonFault().isEmpty();
        },
        [&] {
            verifyPaused(*s.fond, won, seconds, total);
            QCOMPARE(s.played(), heard);
            QCOMPARE(s.bestTimes(), best);
            const QByteArray model = board();
            const QImage image = screen->image;
            expectRefusedClicks(2);
            PlaySession::press(screen, Qt::RightButton, at);
            PlaySession::press(screen, Qt::LeftButton, at);
            QVERIFY2(s.played() == heard && board() == model && screen->image == image && gNiveau == won,
                     "a click made during the pause was handled");
        });
    QElapsedTimer clock;
    clock.start();
    PlaySession::press(screen, Qt::LeftButton, at);
    QVERIFY(clock.nsecsElapsed() > qint64(2.0 * pauseScale() * 1e9));
    QVERIFY2(pause.fired, "the pause after the won level was not caught");
}

// The winning click of the last level and the close of the game: at the closing cue, with the cues
// heard as given, the screens gone and input off (verifyClosing); three seconds on, scaled, the
// congratulations, the game still closing, the best times already as they stay; then the offer to save, nothing saved
// yet, answered with the name given (blanks decline); a cue at each dialog's opening and closing; the idle window at
// last, the game saved under the name without its blanks, at the total given.
inline void winTheGame(PlaySession &s, const std::function<void()> &win, const QStringList &heard, const char *player,
                       int game, int levels, int total, const QString &gameName)
{
    const QStringList filesBefore = s.dataFiles();
    QStringList heardAtMessage, filesAtOffer;
    QByteArray bestAtMessage;
    Probe closing([&] { return gNiveau == 999 && s.played().size() >= heard.size(); },
                  [&] {
                      verifyClosing(*s.fond, total);
                      QCOMPARE(s.played(), heard);
                  });
    QElapsedTimer clock;
    qint64 dialogAt = -1;
    Probe dialog([] { return QApplication::activeModalWidget() != nullptr; }, [&] { dialogAt = clock.nsecsElapsed(); });
    DialogLog log(s, {{QStringLiteral("Fermer"), QString(),
                       [&] {
                           heardAtMessage = s.played();
                           bestAtMessage = s.bestTimes();
                           QVERIFY(gJeu == game && gNiveau == 999 && !s.fond->isEnabled());
                           verifyScreensShown(*s.fond, 0);
                       }},
                      {QStringLiteral("Valider"), gameName, [&] { filesAtOffer = s.dataFiles(); }}});
    clock.start();
    win();

    QVERIFY(closing.fired);
    QVERIFY(dialogAt > qint64(3.0 * pauseScale() * 1e9));
    QCOMPARE(log.seen, (QStringList{congratulations(player, levels, game), kSaveOffer}));
    QCOMPARE(heardAtMessage, heard + cues("008"));
    QCOMPARE(s.played(), heard + cues("008 009 008 009"));
    QCOMPARE(s.bestTimes(), bestAtMessage);
    QCOMPARE(filesAtOffer, filesBefore);
    QStringList files = filesBefore;
    if (const QString name = gameName.trimmed(); !name.isEmpty()) {
        files << name + QStringLiteral(".sml");
        files.sort();
        QCOMPARE(s.dataFile(name + QStringLiteral(".sml")), savedGame(player, game, total));
    }
    QCOMPARE(s.dataFiles(), files);
    verifyIdle(*s.fond);
    QCOMPARE(gTempsTotal, double(total));
    QCOMPARE(gTempsNiveau, 0.0);
}

// A click that no rule takes: no cue, and neither the board nor the screen changes.
inline void verifyIgnored(PlaySession &s, Surface *screen, Qt::MouseButton button, QPoint at,
                          const std::function<QByteArray()> &board)
{
    const QStringList heard = s.played();
    const QByteArray model = board();
    const QImage image = screen->image;
    PlaySession::press(screen, button, at);
    QVERIFY2(s.played() == heard && board() == model && screen->image == image,
             qPrintable(QStringLiteral("a click at (%1, %2) was taken").arg(at.x()).arg(at.y())));
    QVERIFY(s.fond->isEnabled());
}
