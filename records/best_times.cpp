// SPDX-License-Identifier: MIT
#include "best_times.h"

#include "best_times_file.h"
#include "best_times_table.h"
#include "modBase.h"
#include "whole_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

// Makes the folders of a path that are missing, for the user alone; true when the path is a folder now.
bool makeMissingFolders(const QString &path)
{
    const QFileInfo info(QDir::cleanPath(path));
    if (info.isDir()) return true;
    if (info.exists() || info.isRoot()) return false;
    return makeMissingFolders(info.absolutePath())
           && QDir().mkdir(info.absoluteFilePath(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

enum class Folder { Reached, Created, Unreachable };

// A level of the data folder: there already, made now, or out of reach.
Folder reachFolder(const QString &path)
{
    const QFileInfo info(path);
    if (info.isDir()) return info.isExecutable() ? Folder::Reached : Folder::Unreachable;
    if (info.exists()) return Folder::Unreachable;
    return QDir().mkdir(path) ? Folder::Created : Folder::Unreachable;
}

// The best-times file on disk was not read to its end at start-up and is not kept beside it yet.
bool oldFileUnread = false;

// The whole file as the tables stand: nine lines, game after game, row after row.
QByteArray bestFileBytes()
{
    QByteArray bytes;
    for (int32_t jeu = 1; jeu <= 3; ++jeu) {
        const BestTable table = bestTable(jeu);
        for (int row = 1; row <= 3; ++row) bytes += bestLine({table.niveaux[row], table.temps[row], table.noms[row]});
    }
    return bytes;
}

} // namespace

QString dataFolderRoot()
{
#ifdef Q_OS_WIN
    return QStringLiteral("c:/");
#else
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QLatin1Char('/');
#endif
}

BestTable bestTable(int32_t jeu)
{
    if (jeu == 1) return {gBestNiveau1, gBestTemps1, gBestNom1};
    if (jeu == 2) return {gBestNiveau2, gBestTemps2, gBestNom2};
    return {gBestNiveau3, gBestTemps3, gBestNom3};
}

void InitDonnees()
{
    const QString cerscore = dataFolderRoot() + QStringLiteral("cerscore");
    const QString marel32b = cerscore + QStringLiteral("/marel32b");
    if (!makeMissingFolders(dataFolderRoot()) || reachFolder(cerscore) == Folder::Unreachable
        || reachFolder(marel32b) == Folder::Unreachable) {
        gCheminData.clear();
        return;
    }
    gCheminData = QDir::toNativeSeparators(marel32b + QLatin1Char('/'));
    removeLeftovers(gCheminData, [](const QString &name) {
        return name == gFichierBest || (name.size() > 4 && name.endsWith(QLatin1String(".sml")));
    });
    RazBest();
    // A file that cannot be read to its end is written anew from the rows read, its bytes kept beside.
    const bool present = QFileInfo(gCheminData + gFichierBest).isFile();
    oldFileUnread = present && !LitBest();
    if (!present || oldFileUnread) EcritBest();
}

void RazBest()
{
    for (int32_t jeu = 1; jeu <= 3; ++jeu) {
        const BestTable table = bestTable(jeu);
        for (int row = 1; row <= 3; ++row) {
            table.niveaux[row] = 0;
            table.temps[row] = 0;
            table.noms[row] = kEmptyName;
        }
    }
}

bool LitBest()
{
    const RecordFile file = readRecordFile(gCheminData + gFichierBest);
    const QList<BestRow> rows = readBestRows(file.bytes);
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const BestTable table = bestTable(static_cast<int32_t>(i / 3 + 1));
        const qsizetype row = i % 3 + 1;
        table.niveaux[row] = rows[i].niveau;
        table.temps[row] = rows[i].temps;
        table.noms[row] = rows[i].nom;
    }
    // Read to its end when the file is all there and is what the tables write back, line for line.
    return file.whole && file.bytes == bestFileBytes();
}

bool EcritBest()
{
    const QString path = gCheminData + gFichierBest;
    if (oldFileUnread && !keepBeside(path)) return false;
    oldFileUnread = false;
    return writeWholeFile(path, bestFileBytes());
}
