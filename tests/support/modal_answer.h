// SPDX-License-Identifier: MIT
// Modal dialogs answered as they come up, from a repeating timer: a single shot could fire before the
// dialog is up, and a dialog opened from inside another's answer must still be found.
#pragma once

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <functional>

// Watches for modal dialogs: hands each new one to the handler once it shows, until stopped.
class ModalWatch : public QObject {
public:
    void start(std::function<void(QWidget *)> seen)
    {
        mPoll.setInterval(10);
        QObject::connect(&mPoll, &QTimer::timeout, this, [this, seen] {
            QWidget *dialog = QApplication::activeModalWidget();
            if (!dialog || !dialog->isVisible() || dialog == mLast) return;
            mLast = dialog;
            seen(dialog);
        });
        mPoll.start();
    }
    void stop() { mPoll.stop(); }

private:
    QTimer mPoll;
    QPointer<QWidget> mLast;
};

using ModalAction = std::function<void(QWidget *)>;

// Answers the next dialogs one after the other, each action for the dialog of its turn: for the
// questions that one click asks in a row.
inline void answerInTurn(QList<ModalAction> actions)
{
    auto *watch = new ModalWatch;
    watch->start([watch, actions](QWidget *dialog) mutable {
        const ModalAction action = actions.takeFirst();
        if (actions.isEmpty()) {
            watch->stop();
            watch->deleteLater();
        }
        action(dialog);
    });
}

inline void whenModal(ModalAction action) { answerInTurn({std::move(action)}); }

// Shows the dialog modally and lets the player act on it. True when the player's acts ended the modal
// display; a dialog still up afterwards is hidden here, so that a failed check cannot hang the test.
template <class Dialog>
bool execWith(Dialog *dialog, std::function<void(Dialog *)> player)
{
    bool leftOpen = false;
    whenModal([&leftOpen, player](QWidget *shown) {
        if (auto *ours = qobject_cast<Dialog *>(shown))
            player(ours);
        else
            QTest::qFail("another dialog is up", __FILE__, __LINE__);
        leftOpen = shown->isVisible();
        if (leftOpen) shown->hide();
    });
    dialog->exec();
    return !leftOpen;
}
