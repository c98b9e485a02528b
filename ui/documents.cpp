#include "documents.h"

#include "frmFond.h"
#include "modBase.h"

#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QProcess>
#include <QStandardPaths>

namespace {

// The desktop entry registered as the default for a type, asked of the desktop's own tool.
QString defaultDesktopEntry(const QString &mimeType)
{
    QProcess query;
    query.start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"), mimeType});
    if (!query.waitForFinished(5000) || query.exitCode() != 0) return {};
    return QString::fromLocal8Bit(query.readAllStandardOutput()).trimmed();
}

// The Exec line of a desktop entry, found where the desktop keeps them.
QString execLine(const QString &desktopEntry)
{
    QFile file(QStandardPaths::locate(QStandardPaths::ApplicationsLocation, desktopEntry));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
    bool inEntry = false;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.startsWith(QLatin1Char('[')))
            inEntry = line == QLatin1String("[Desktop Entry]");
        else if (inEntry && line.startsWith(QLatin1String("Exec=")))
            return line.mid(5).trimmed();
    }
    return {};
}

// The command line of the viewer registered for a type of document, as program and arguments
// with the document in its place; empty when none is registered.
QStringList registeredViewer(const QString &mimeType, const QString &document)
{
    const QString desktopEntry = defaultDesktopEntry(mimeType);
    if (desktopEntry.isEmpty()) return {};
    const QString exec = execLine(desktopEntry);
    if (exec.isEmpty()) return {};

    QStringList command;
    bool placed = false;
    for (const QString &word : QProcess::splitCommand(exec)) {
        if (word == QLatin1String("%f") || word == QLatin1String("%F") || word == QLatin1String("%u")
            || word == QLatin1String("%U")) {
            command << document;
            placed = true;
        } else if (!(word.size() == 2 && word.startsWith(QLatin1Char('%')))) {
            command << word;
        }
    }
    if (!placed) command << document;
    return command;
}

} // namespace

QStringList &openedDocuments()
{
    static QStringList opened;
    return opened;
}

ViewerOutcome openInViewer(const QString &document, const QString &mimeType)
{
    QStringList command = registeredViewer(mimeType, document);
    if (command.isEmpty()) return ViewerOutcome::NoViewer;
    const QString program = command.takeFirst();
    if (!QProcess::startDetached(program, command)) return ViewerOutcome::Failed;
    openedDocuments().append(document);
    return ViewerOutcome::Opened;
}

void OuvreAide()
{
    const QString aide = gCheminApp + QDir::toNativeSeparators(QStringLiteral("aidemarelle/aide.htm"));
    if (openInViewer(aide, QStringLiteral("text/html")) != ViewerOutcome::Failed) return;
    QMessageBox::warning(mainWindow(), QStringLiteral("Marelle"), QStringLiteral("Impossible d'ouvrir :\r\n") + aide);
}
