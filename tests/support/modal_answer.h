// Answers the next modal dialog from a repeating timer: a single shot could fire before the dialog is up.
#pragma once

#include <QApplication>
#include <QTimer>
#include <functional>

inline void whenModal(std::function<void(QWidget *)> answer)
{
    auto *poll = new QTimer;
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, [poll, answer] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog || !dialog->isVisible()) return;
        poll->stop();
        poll->deleteLater();
        answer(dialog);
    });
    poll->start();
}
