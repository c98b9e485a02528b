// SPDX-License-Identifier: MIT
#include "documents.h"

#include "modBase.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPointer>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QTimer>

namespace {

// The documents whose viewer is being looked up: a second request for one of them is dropped.
QSet<QString> &lookUps()
{
    static QSet<QString> documents;
    return documents;
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

// The command line of the viewer of a desktop entry, as program and arguments with the document in
// its place; empty when there is no such viewer.
QStringList viewerCommand(const QString &desktopEntry, const QString &document)
{
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

void startViewer(const QString &desktopEntry, const QString &document, const std::function<void()> &failed)
{
    QStringList command = viewerCommand(desktopEntry, document);
    if (command.isEmpty()) return;
    const QString program = command.takeFirst();
    if (!QProcess::startDetached(program, command)) {
        if (failed) failed();
        return;
    }
    openedDocuments().append(document);
}

} // namespace

QStringList &openedDocuments()
{
    static QStringList opened;
    return opened;
}

qsizetype viewerLookUps() { return lookUps().size(); }

void openInViewer(const QString &document, const QString &mimeType, std::function<void()> failed)
{
    if (lookUps().contains(document)) return;
    lookUps().insert(document);
    // The desktop's own tool names the viewer registered for the type. It may take seconds, so it
    // runs beside the event loop and the viewer starts when it answers.
    auto *query = new QProcess(qApp);
    QObject::connect(query, &QProcess::finished, query, [query, document, failed](int exitCode) {
        query->deleteLater();
        lookUps().remove(document);
        const QString entry = QString::fromLocal8Bit(query->readAllStandardOutput()).trimmed();
        if (query->exitStatus() == QProcess::NormalExit && exitCode == 0) startViewer(entry, document, failed);
    });
    QObject::connect(query, &QProcess::errorOccurred, query, [query, document](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart) return;
        query->deleteLater();
        lookUps().remove(document);
    });
    query->start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"), mimeType});
    // A look-up that never answers counts as no viewer, and the document can be asked for again.
    QTimer::singleShot(10000, query, &QProcess::kill);
}

void OuvreAide(QWidget *owner)
{
    const QString aide = gCheminApp + QDir::toNativeSeparators(QStringLiteral("aidemarelle/aide.htm"));
    openInViewer(aide, QStringLiteral("text/html"), [owner = QPointer<QWidget>(owner), aide] {
        QMessageBox::warning(owner, QStringLiteral("Marelle"),
                             QStringLiteral("Impossible d'ouvrir :\r\n") + aide);
    });
}
