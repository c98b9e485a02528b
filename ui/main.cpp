#include "frmFond.h"

#include <QApplication>
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
