// SPDX-License-Identifier: MIT
// Opening documents beside the program in the viewers the user has registered for them.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QWidget;

// Opens the help pages in the registered viewer. No viewer: nothing happens. A viewer that
// cannot be started: a warning box over `owner` names the page.
void OuvreAide(QWidget *owner);

// Starts the viewer registered for a type of document on that document, without waiting for it:
// the viewer is looked up beside the event loop, and a request for a document whose viewer is still
// being looked up is dropped. No viewer: nothing happens; a viewer that cannot start: `failed` runs.
void openInViewer(const QString &document, const QString &mimeType, std::function<void()> failed = {});

// The look-ups under way, and the documents that viewers were started on, in order: what a test reads.
qsizetype viewerLookUps();
QStringList &openedDocuments();
