// SPDX-License-Identifier: MIT
#include "frmFond.h"
#include "running_instance.h"

#include <QApplication>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

// True when Qt has a platform to show a window on.
bool hasDisplay()
{
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || qEnvironmentVariableIsSet("DISPLAY")
           || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

// The program prints nothing: Qt's own notes (no sound device, a platform's remarks) are dropped,
// unless MARELLE_DEBUG is set. Only a fatal error, which ends the program, is said.
void quietMessages(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtFatalMsg) std::fprintf(stderr, "marelle: %s\n", qPrintable(message));
}

} // namespace

int main(int argc, char *argv[])
{
    // A write past the file-size limit then fails like one on a full disk, instead of ending the program.
    std::signal(SIGXFSZ, SIG_IGN);
    if (!hasDisplay()) {
        std::fputs("marelle: no display found (neither DISPLAY nor WAYLAND_DISPLAY is set)\n", stderr);
        return EXIT_FAILURE;
    }
    if (!qEnvironmentVariableIsSet("MARELLE_DEBUG")) qInstallMessageHandler(quietMessages);

    // Another instance runs: end before the window system or any picture is touched.
    std::unique_ptr<QLockFile> instance = lockSingleInstance();
    if (!instance) return EXIT_SUCCESS;

    // Only an X server lets the window and its dialogs place themselves, so where one is at hand
    // (XWayland too) it is preferred, unless the user chose a platform. The programs started from
    // here, the help viewers, make their own choice.
    const bool preferX = qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY");
    if (preferX) qputenv("QT_QPA_PLATFORM", "xcb;wayland");
    QApplication app(argc, argv);
    if (preferX) qunsetenv("QT_QPA_PLATFORM");

    frmFond fond(std::move(instance));
    if (!fond.Form_Load()) return EXIT_SUCCESS;
    fond.show();
    return app.exec();
}
