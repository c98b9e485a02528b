// Presses that wait in the window system's queue while the program is busy, so that the program
// finds them all at once the next time it looks: a quick player's clicks on a busy window.
// Only a real X server queues events that way; under the offscreen platform the tests are skipped.
#pragma once

#include <QGuiApplication>
#include <QProcess>
#include <QTest>
#include <QThread>
#include <QWidget>

inline bool underX() { return QGuiApplication::platformName() == QLatin1String("xcb"); }

struct QueuedPress {
    Qt::MouseButton button;
    QPoint at; // in the widget
};

// Real X input made by xdotool while this thread sleeps: its events reach this process meanwhile,
// and wait there to be handled.
inline void xdotool(const QStringList &arguments)
{
    QCOMPARE(QProcess::execute(QStringLiteral("xdotool"), arguments), 0);
    QThread::msleep(300);
}

inline QStringList pointerTo(QWidget *widget, QPoint at)
{
    const QPoint global = widget->mapToGlobal(at);
    return {QStringLiteral("mousemove"), QString::number(global.x()), QString::number(global.y())};
}

// Presses and releases, in order, left waiting.
inline void queuePresses(QWidget *widget, const QList<QueuedPress> &presses)
{
    QStringList arguments;
    for (const QueuedPress &p : presses) {
        const QString button = QString::number(p.button == Qt::LeftButton ? 1 : p.button == Qt::MiddleButton ? 2 : 3);
        arguments << pointerTo(widget, p.at) << QStringLiteral("mousedown") << button << QStringLiteral("mouseup")
                  << button;
    }
    xdotool(arguments);
}
