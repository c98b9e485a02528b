#include "frmFond.h"

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

} // namespace

int main(int argc, char *argv[])
{
    // A write past the file-size limit then fails like one on a full disk, instead of ending the program.
    std::signal(SIGXFSZ, SIG_IGN);
    if (!hasDisplay()) {
        std::fputs("marelle: no display found (neither DISPLAY nor WAYLAND_DISPLAY is set)\n", stderr);
        return EXIT_FAILURE;
    }
    QApplication app(argc, argv);
    frmFond fond;
    if (!fond.Form_Load()) return EXIT_SUCCESS;
    fond.show();
    return app.exec();
}
