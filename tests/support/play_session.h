// A player at the real window: the program started, pauses shortened, level stores cut down, and
// dialogs answered by clicks on their labels.
#pragma once

#include "frmFond.h"
#include "frmMess.h"
#include "level_store.h"
#include "modBase.h"
#include "modal_answer.h"
#include "pause.h"

#include <QTest>
#include <memory>

struct PlaySession {
    std::unique_ptr<frmFond> fond;

    // Starts the program at the idle window, with pauses a hundred times shorter.
    void start()
    {
        pauseScale() = 0.01;
        fond = std::make_unique<frmFond>();
        QVERIFY(fond->Form_Load());
        fond->show();
        QVERIFY(QTest::qWaitForWindowExposed(fond.get()));
        fond->tambour.played.clear();
    }

    // Keeps only the given levels, in this order, in the store of a game.
    static void keepLevels(int game, std::initializer_list<int> levels)
    {
        QByteArray &store = game == 1 ? gNiveaux1 : game == 2 ? gNiveaux2 : gNiveaux3;
        const int size = bytesPerLevel(game);
        QByteArray kept;
        for (int level : levels) kept += store.mid(level * size, size);
        store = kept;
    }

    // Answers the next message dialog: types into its box if one is given, then clicks the label with
    // that caption. The dialog's message is kept in lastMessage.
    void answer(const QString &caption, const QString &box = QString())
    {
        whenModal([this, caption, box](QWidget *dialog) {
            auto *mess = qobject_cast<frmMess *>(dialog);
            QVERIFY(mess);
            lastMessage = mess->labMess->text();
            if (!mess->txtReponse->isHidden()) {
                mess->txtReponse->clear();
                QTest::keyClicks(mess->txtReponse, box);
            }
            for (ClickLabel *label : mess->reponse) {
                if (!label->isHidden() && label->text() == caption) {
                    QTest::mouseClick(label, Qt::LeftButton);
                    return;
                }
            }
            QFAIL(qPrintable(QStringLiteral("no button ") + caption));
        });
    }

    void clickMenu(int index) { QTest::mouseClick(fond->imgMenu[index], Qt::LeftButton); }

    // Starts a game from its button, as the player given.
    void startGame(int game, const QString &player)
    {
        answer(QStringLiteral("Valider"), player);
        clickMenu(game - 1);
    }

    // A press of a mouse button at a point of a screen, as the window system delivers it.
    static void press(Surface *screen, Qt::MouseButton button, QPoint at)
    {
        QTest::mousePress(screen, button, {}, at);
        QTest::mouseRelease(screen, button, {}, at);
    }

    QString lastMessage; // the message of the last dialog answered, line breaks as the label shows them
};
