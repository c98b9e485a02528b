// SPDX-License-Identifier: MIT
// Input as the window system brings it: presses that wait in its queue while the program is busy,
// so that the program finds them all at once the next time it looks, and a close request.
// Only a real X server queues presses that way; tests of them are skipped under offscreen.
#pragma once

#include <QGuiApplication>
#include <QProcess>
#include <QTest>
#include <QThread>
#include <QWidget>
#include <xcb/xcb.h>

inline bool underX() { return QGuiApplication::platformName() == QLatin1String("xcb"); }

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

struct QueuedPress {
    Qt::MouseButton button;
    QPoint at; // in the widget
};

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

// The request to close a window that a desktop sends for a key, a task bar or a session ending: under
// X the client message of a window manager, handled as it comes; elsewhere the platform's own close.
inline void askToClose(QWidget *window)
{
    if (!underX()) {
        window->close();
        return;
    }
    xcb_connection_t *x = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    const auto atom = [x](const char *name) {
        xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(x, xcb_intern_atom(x, 0, qstrlen(name), name), nullptr);
        const xcb_atom_t found = reply->atom;
        free(reply);
        return found;
    };
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window->winId();
    message.type = atom("WM_PROTOCOLS");
    message.data.data32[0] = atom("WM_DELETE_WINDOW");
    message.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(x, 0, message.window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char *>(&message));
    xcb_flush(x);
    QTest::qWait(200);
}
