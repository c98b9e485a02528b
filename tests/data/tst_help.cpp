// SPDX-License-Identifier: MIT
// The help pages and the compiled catalogue, as the build lays them out beside the program:
// pages present and identical to their sources, self-contained, in UTF-8, covering every command, and a catalogue that
// is a compiled help file holding its pages.
#include "file_bytes.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTest>
#include <QUrl>

namespace {

const QString kBuild = QStringLiteral(BUILD_ROOT);
const QString kHelp = kBuild + QStringLiteral("/aidemarelle");
const QString kHelpSources = QStringLiteral(HELP_SOURCES "/aidemarelle");
const QString kCatalogue = QStringLiteral(HELP_SOURCES "/catalogue");

QString readUtf8(const QString &path) { return QString::fromUtf8(readAll(path)); }

QStringList filesIn(const QString &dir, const QString &pattern)
{
    return QDir(dir).entryList({pattern}, QDir::Files, QDir::Name);
}

// The first group that took part in each match of the pattern.
QStringList captures(const QString &pattern, const QString &text)
{
    QStringList values;
    for (const QRegularExpressionMatch &m :
         QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption).globalMatch(text))
        for (int group = 1; group <= m.lastCapturedIndex(); ++group)
            if (m.capturedStart(group) >= 0) {
                values << m.captured(group);
                break;
            }
    return values;
}

// The text a reader sees: tags dropped, common entities decoded, blanks collapsed.
QString plainText(QString html)
{
    html.remove(QRegularExpression(QStringLiteral("<[^>]*>")));
    for (const auto &[entity, text] :
         {std::pair{"&nbsp;", " "}, {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&middot;", "·"}, {"&amp;", "&"}})
        html.replace(QString::fromUtf8(entity), QString::fromUtf8(text));
    return html.replace(QChar(0x00A0), QLatin1Char(' ')).simplified();
}

} // namespace

class TestHelp : public QObject {
    Q_OBJECT

private slots:
    void buildPlacesTheHelpBesideTheProgram()
    {
        const QStringList sources = filesIn(kHelpSources, QStringLiteral("*"));
        QVERIFY(sources.contains(QStringLiteral("aide.htm")));
        for (const QString &name : sources)
            QVERIFY2(QFileInfo(kHelp + u'/' + name).isFile()
                         && readAll(kHelp + u'/' + name) == readAll(kHelpSources + u'/' + name),
                     qPrintable(name + QStringLiteral(" is missing or stale in the build folder")));
    }

    // Every page of the help and of the catalogue is UTF-8 and says so, runs no script and refers only
    // to files of its own folder and to anchors they hold. Every picture of the help is shown, with
    // words for those who do not see it, at 1x and at 2x (the 2x file at twice the size given). What
    // each of the seven buttons does and the clock's cap are told (in any case), and the captions and
    // messages are quoted exactly as the program shows them.
    void pagesAreSelfContainedAndTellThePlayersWords()
    {
        QStringList shown;
        QString told;
        for (const QString &dir : {kHelp, kCatalogue})
            for (const QString &page : filesIn(dir, QStringLiteral("*.htm"))) {
                const QString path = dir + u'/' + page;
                QStringDecoder decoder(QStringDecoder::Utf8);
                const QString html = decoder(readAll(path));
                QVERIFY2(!decoder.hasError() && !html.contains(QChar::ReplacementCharacter)
                             && html.contains(
                                 QRegularExpression(QStringLiteral("<meta\\b[^>]*\\bcharset\\s*=\\s*[\"']?utf-8\\b"),
                                                    QRegularExpression::CaseInsensitiveOption))
                             && !html.contains(QLatin1String("<script"), Qt::CaseInsensitive),
                         qPrintable(path + QStringLiteral(": not declared and valid UTF-8, or runs a script")));
                const QStringList refs =
                    captures(QStringLiteral("\\b(?:href|src)\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)'|([^\\s>]+))"), html);
                QVERIFY(!refs.isEmpty());
                for (const QString &ref : refs) {
                    const QString file = QUrl::fromPercentEncoding(ref.section(u'#', 0, 0).toUtf8());
                    const QFileInfo target(file.isEmpty() ? path : dir + u'/' + file);
                    QVERIFY2(
                        !ref.contains(u':') && !ref.startsWith(QLatin1String("//")) && target.isFile()
                            && target.dir() == QFileInfo(path).dir(),
                        qPrintable(path + QStringLiteral(": a reference outside its folder or to no file: ") + ref));
                    if (ref.contains(u'#'))
                        QVERIFY2(
                            captures(QStringLiteral("\\b(?:id|name)\\s*=\\s*\"([^\"]*)\""), readUtf8(target.filePath()))
                                .contains(ref.section(u'#', 1)),
                            qPrintable(QStringLiteral("no anchor for ") + ref));
                }
                if (dir == kCatalogue) continue;
                told += plainText(html) + u'\n';
                for (const QString &tag : captures(QStringLiteral("(<img\\b[^>]*>)"), html)) {
                    const auto attribute = [&](const char *name) {
                        return captures(QStringLiteral("\\b%1\\s*=\\s*\"([^\"]*)\"").arg(QLatin1String(name)), tag)
                            .value(0);
                    };
                    const QString src = attribute("src"), twice = src.section(u'.', 0, 0) + QStringLiteral("@2x.png");
                    QVERIFY2(!attribute("alt").trimmed().isEmpty(),
                             qPrintable(page + QStringLiteral(": no words for ") + src));
                    QCOMPARE(attribute("srcset"), src + QStringLiteral(" 1x, ") + twice + QStringLiteral(" 2x"));
                    const QSize size(attribute("width").toInt(), attribute("height").toInt());
                    QCOMPARE(QImageReader(dir + u'/' + src, "png").size(), size);
                    QCOMPARE(QImageReader(dir + u'/' + twice, "png").size(), size * 2);
                    shown << src << twice;
                }
            }
        for (const QString &picture : filesIn(kHelpSources, QStringLiteral("*.png")))
            QVERIFY2(shown.contains(picture), qPrintable(picture + QStringLiteral(" is shown on no page")));
        for (const char *subject : {"lancer le jeu 1", "lancer le jeu 2", "lancer le jeu 3", "abandonner", "rejouer",
                                    "ctrl", "tableau des scores", "accéder à l'aide", "quitter le programme",
                                    "99 heures", "le catalogue Cerisaie Logiciels"})
            QVERIFY2(told.contains(QString::fromUtf8(subject), Qt::CaseInsensitive), subject);
        const QString quoted =
            QStringLiteral("Lancer|Charger|Annuler|Valider|Abandonner|Rejouer|Fermer|Oui|Non|Scores|"
                           "Entrez votre nom de joueur|Que désirez-vous ?|"
                           "Voulez-vous vraiment quitter le programme ?|"
                           "Vous pouvez lancer une nouvelle partie ou charger une partie enregistrée.|"
                           "Vous pouvez sauver votre partie,|donnez-lui un nom.|"
                           "Ce nom existe déjà ou ne convient pas.|Voulez-vous sauver la partie :|"
                           "Choisissez votre fichier :|Vous avez terminé le jeu 1 dans cette partie...|"
                           "Félicitations");
        for (const QString &words : quoted.split(u'|')) QVERIFY2(told.contains(words), qPrintable(words));
    }

    void catalogueIsACompiledHelpFileWithItsPages()
    {
        const QByteArray chm = readAll(kBuild + QStringLiteral("/catalogue.chm"));
        QVERIFY(chm.startsWith("ITSF"));
        const QStringList names = readUtf8(kCatalogue + QStringLiteral("/catalogue.hhp"))
                                      .section(QStringLiteral("[FILES]"), 1)
                                      .split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
        QVERIFY(names.contains(QStringLiteral("index.htm")));
        for (const QString &page : filesIn(kCatalogue, QStringLiteral("*.htm")))
            QVERIFY2(names.contains(page), qPrintable(page + QStringLiteral(" is left out of the project")));
        for (const QString &name : names)
            QVERIFY2(chm.contains("/" + name.toUtf8()), qPrintable(name + QStringLiteral(" is not compiled in")));
    }
};

QTEST_GUILESS_MAIN(TestHelp)
#include "tst_help.moc"
