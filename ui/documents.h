// Opening documents beside the program in the viewers the user has registered for them.
#pragma once

#include <QString>
#include <QStringList>

// Opens the help pages in the registered viewer. No viewer: nothing happens. A viewer that
// cannot be started: a warning box names the page.
void OuvreAide();

enum class ViewerOutcome { Opened, NoViewer, Failed };

// Starts the viewer registered for a type of document on that document, without waiting for it.
ViewerOutcome openInViewer(const QString &document, const QString &mimeType);

// The documents that viewers were started on, in order: what a test reads.
QStringList &openedDocuments();
