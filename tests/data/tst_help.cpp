// The help pages and the compiled catalogue, as the build lays them out beside the program:
// pages present and identical to their sources, self-contained, in UTF-8, all reachable,
// covering every command, and a catalogue that is a compiled help file holding its pages.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QStringDecoder>
#include <QTest>
#include <QUrl>

namespace {

QString buildRoot() { return QStringLiteral(BUILD_ROOT); }
QString helpDir() { return buildRoot() + QStringLiteral("/aidemarelle"); }
QString helpSourceDir() { return QStringLiteral(HELP_SOURCES "/aidemarelle"); }
QString catalogueSourceDir() { return QStringLiteral(HELP_SOURCES "/catalogue"); }

QByteArray readBytes(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

QString readUtf8(const QString &path) { return QString::fromUtf8(readBytes(path)); }

QStringList filesIn(const QString &dir, const QString &pattern)
{
    return QDir(dir).entryList({pattern}, QDir::Files, QDir::Name);
}

// Values of every href and src attribute, in any quoting.
QStringList references(const QString &html)
{
    static const QRegularExpression attribute(
        QStringLiteral("\\b(?:href|src)\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)'|([^\\s>]+))"),
        QRegularExpression::CaseInsensitiveOption);
    QStringList values;
    for (const QRegularExpressionMatch &m : attribute.globalMatch(html)) {
        for (int group = 1; group <= 3; ++group) {
            if (m.capturedStart(group) >= 0) {
                values << m.captured(group);
                break;
            }
        }
    }
    return values;
}

// Targets of url(...) and @import in a style sheet.
QStringList styleReferences(const QString &css)
{
    static const QRegularExpression target(
        QStringLiteral("(?:url\\(\\s*['\"]?([^'\")\\s]+)|@import\\s+['\"]([^'\"]+))"),
        QRegularExpression::CaseInsensitiveOption);
    QStringList values;
    for (const QRegularExpressionMatch &m : target.globalMatch(css))
        values << (m.capturedStart(1) >= 0 ? m.captured(1) : m.captured(2));
    return values;
}

bool isRemote(const QString &reference)
{
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*:"));
    return reference.startsWith(QLatin1String("//")) || scheme.match(reference).hasMatch();
}

QSet<QString> anchorsOf(const QString &html)
{
    static const QRegularExpression anchor(QStringLiteral("\\b(?:id|name)\\s*=\\s*\"([^\"]*)\""),
                                           QRegularExpression::CaseInsensitiveOption);
    QSet<QString> names;
    for (const QRegularExpressionMatch &m : anchor.globalMatch(html))
        names.insert(m.captured(1));
    return names;
}

// The text a reader sees: tags dropped, common entities decoded, blanks collapsed.
QString plainText(QString html)
{
    html.remove(QRegularExpression(QStringLiteral("<[^>]*>")));
    static const QList<QPair<QString, QString>> entities = {
        {QStringLiteral("&nbsp;"), QStringLiteral(" ")},  {QStringLiteral("&lt;"), QStringLiteral("<")},
        {QStringLiteral("&gt;"), QStringLiteral(">")},    {QStringLiteral("&quot;"), QStringLiteral("\"")},
        {QStringLiteral("&middot;"), QStringLiteral("·")}, {QStringLiteral("&amp;"), QStringLiteral("&")},
    };
    for (const auto &[entity, text] : entities)
        html.replace(entity, text);
    html.replace(QChar(0x00A0), QLatin1Char(' '));
    return html.simplified();
}

QString allHelpText()
{
    QString text;
    for (const QString &page : filesIn(helpDir(), QStringLiteral("*.htm")))
        text += plainText(readUtf8(helpDir() + u'/' + page)) + u'\n';
    return text;
}

// Rows: every page of the help beside the program and of the catalogue's sources.
void addPageRows()
{
    QTest::addColumn<QString>("path");
    const QList<QPair<QString, QString>> folders = {
        {QStringLiteral("aidemarelle"), helpDir()},
        {QStringLiteral("catalogue"), catalogueSourceDir()},
    };
    for (const auto &[label, dir] : folders)
        for (const QString &page : filesIn(dir, QStringLiteral("*.htm")))
            QTest::newRow(qPrintable(label + u'/' + page)) << dir + u'/' + page;
}

} // namespace

class TestHelp : public QObject {
    Q_OBJECT

private slots:
    void buildPlacesTheHelpBesideTheProgram()
    {
        QVERIFY(QFileInfo(buildRoot() + QStringLiteral("/aidemarelle/aide.htm")).isFile());
        const QStringList sources = filesIn(helpSourceDir(), QStringLiteral("*"));
        QVERIFY(sources.contains(QStringLiteral("aide.htm")));
        for (const QString &name : sources) {
            const QString copy = helpDir() + u'/' + name;
            QVERIFY2(QFileInfo(copy).isFile(), qPrintable(name + QStringLiteral(" is not copied")));
            QVERIFY2(readBytes(copy) == readBytes(helpSourceDir() + u'/' + name),
                     qPrintable(name + QStringLiteral(" is stale in the build folder")));
        }
    }

    void pageDeclaresAndIsUtf8_data() { addPageRows(); }
    void pageDeclaresAndIsUtf8()
    {
        QFETCH(QString, path);
        const QByteArray bytes = readBytes(path);
        QVERIFY(!bytes.isEmpty());
        static const QRegularExpression declaration(QStringLiteral("<meta\\b[^>]*\\bcharset\\s*=\\s*[\"']?utf-8\\b"),
                                                    QRegularExpression::CaseInsensitiveOption);
        QVERIFY2(declaration.match(QString::fromLatin1(bytes)).hasMatch(), "no UTF-8 charset declaration");
        QStringDecoder decoder(QStringDecoder::Utf8);
        const QString text = decoder(bytes);
        QVERIFY2(!decoder.hasError(), "not valid UTF-8");
        QVERIFY2(!text.contains(QChar::ReplacementCharacter), "holds a replacement character");
    }

    void pageReferencesOnlyLocalFilesThatExist_data() { addPageRows(); }
    void pageReferencesOnlyLocalFilesThatExist()
    {
        QFETCH(QString, path);
        const QString html = readUtf8(path);
        const QDir dir = QFileInfo(path).dir();
        QVERIFY2(!html.contains(QLatin1String("<script"), Qt::CaseInsensitive), "holds a script");
        QVERIFY2(!html.contains(QLatin1String("http:"), Qt::CaseInsensitive)
                     && !html.contains(QLatin1String("https:"), Qt::CaseInsensitive),
                 "holds a web address");
        const QStringList refs = references(html);
        QVERIFY(!refs.isEmpty());
        for (const QString &ref : refs) {
            QVERIFY2(!ref.isEmpty(), "empty reference");
            QVERIFY2(!isRemote(ref), qPrintable(QStringLiteral("remote reference ") + ref));
            const qsizetype hash = ref.indexOf(u'#');
            const QString file = QUrl::fromPercentEncoding(ref.left(hash).toUtf8());
            const QString target = file.isEmpty() ? path : dir.absoluteFilePath(file);
            QVERIFY2(QFileInfo(target).isFile(), qPrintable(QStringLiteral("missing ") + ref));
            QVERIFY2(QFileInfo(target).dir() == dir, qPrintable(QStringLiteral("outside its folder: ") + ref));
            if (hash >= 0) {
                const QString anchor = ref.mid(hash + 1);
                QVERIFY2(anchorsOf(readUtf8(target)).contains(anchor),
                         qPrintable(QStringLiteral("no anchor for ") + ref));
            }
        }
    }

    void styleSheetsAreSelfContained_data()
    {
        QTest::addColumn<QString>("path");
        for (const QString &dir : {helpDir(), catalogueSourceDir()})
            for (const QString &sheet : filesIn(dir, QStringLiteral("*.css")))
                QTest::newRow(qPrintable(QFileInfo(dir).fileName() + u'/' + sheet)) << dir + u'/' + sheet;
    }
    void styleSheetsAreSelfContained()
    {
        QFETCH(QString, path);
        const QDir dir = QFileInfo(path).dir();
        for (const QString &ref : styleReferences(readUtf8(path))) {
            QVERIFY2(!isRemote(ref), qPrintable(QStringLiteral("remote reference ") + ref));
            QVERIFY2(QFileInfo(dir.absoluteFilePath(ref)).isFile(), qPrintable(QStringLiteral("missing ") + ref));
        }
    }

    void everyPageIsReachableFromTheStartPage_data()
    {
        QTest::addColumn<QString>("dir");
        QTest::addColumn<QString>("start");
        QTest::newRow("help") << helpDir() << QStringLiteral("aide.htm");
        QTest::newRow("catalogue") << catalogueSourceDir() << QStringLiteral("index.htm");
    }
    void everyPageIsReachableFromTheStartPage()
    {
        QFETCH(QString, dir);
        QFETCH(QString, start);
        QSet<QString> seen{start};
        QStringList queue{start};
        while (!queue.isEmpty()) {
            const QString page = queue.takeFirst();
            for (const QString &ref : references(readUtf8(dir + u'/' + page))) {
                const QString file = QUrl::fromPercentEncoding(ref.section(u'#', 0, 0).toUtf8());
                if (file.endsWith(QLatin1String(".htm")) && !isRemote(file) && !seen.contains(file)) {
                    seen.insert(file);
                    queue << file;
                }
            }
        }
        for (const QString &page : filesIn(dir, QStringLiteral("*.htm")))
            QVERIFY2(seen.contains(page), qPrintable(page + QStringLiteral(" cannot be reached")));
    }

    // What each of the seven buttons does, and each game, has its place in the help.
    void helpCoversEveryCommandAndGame_data()
    {
        QTest::addColumn<QString>("subject");
        QTest::newRow("button 1") << QStringLiteral("lancer le jeu 1");
        QTest::newRow("button 2") << QStringLiteral("lancer le jeu 2");
        QTest::newRow("button 3") << QStringLiteral("lancer le jeu 3");
        QTest::newRow("button 4, abandon") << QStringLiteral("abandonner");
        QTest::newRow("button 4, replay") << QStringLiteral("rejouer");
        QTest::newRow("button 4, skip a level") << QStringLiteral("ctrl");
        QTest::newRow("button 5") << QStringLiteral("tableau des scores");
        QTest::newRow("button 6") << QStringLiteral("accéder à l'aide");
        QTest::newRow("button 7") << QStringLiteral("quitter le programme");
        QTest::newRow("clock cap") << QStringLiteral("99 heures");
        QTest::newRow("catalogue") << QStringLiteral("le catalogue Cerisaie Logiciels");
    }
    void helpCoversEveryCommandAndGame()
    {
        QFETCH(QString, subject);
        QVERIFY2(allHelpText().contains(subject, Qt::CaseInsensitive), qPrintable(subject));
    }

    void eachGameHasItsOwnPage_data()
    {
        QTest::addColumn<QString>("game");
        QTest::newRow("Jeu 1") << QStringLiteral("Jeu 1");
        QTest::newRow("Jeu 2") << QStringLiteral("Jeu 2");
        QTest::newRow("Jeu 3") << QStringLiteral("Jeu 3");
    }
    void eachGameHasItsOwnPage()
    {
        QFETCH(QString, game);
        static const QRegularExpression title(QStringLiteral("<title>([^<]*)</title>"),
                                              QRegularExpression::CaseInsensitiveOption);
        const QString start = readUtf8(helpDir() + QStringLiteral("/aide.htm"));
        bool found = false;
        for (const QString &page : filesIn(helpDir(), QStringLiteral("*.htm"))) {
            const QString html = readUtf8(helpDir() + u'/' + page);
            if (title.match(html).captured(1).startsWith(game)) {
                found = true;
                QVERIFY2(references(start).contains(page), qPrintable(page + QStringLiteral(" is not on the start page")));
            }
        }
        QVERIFY(found);
    }

    // Captions and messages quoted in the help, spelled exactly as the program shows them.
    void helpQuotesTheProgramsWords_data()
    {
        QTest::addColumn<QString>("words");
        for (const char *words : {"Lancer", "Charger", "Annuler", "Valider", "Abandonner", "Rejouer", "Fermer",
                                  "Oui", "Non", "Scores", "Entrez votre nom de joueur", "Que désirez-vous ?",
                                  "Voulez-vous vraiment quitter le programme ?",
                                  "Vous pouvez lancer une nouvelle partie ou charger une partie enregistrée.",
                                  "Vous pouvez sauver votre partie,", "donnez-lui un nom.",
                                  "Ce nom existe déjà ou ne convient pas.", "Voulez-vous sauver la partie :",
                                  "Choisissez votre fichier :", "Vous avez terminé le jeu 1 dans cette partie...",
                                  "Félicitations"})
            QTest::newRow(words) << QString::fromUtf8(words);
    }
    void helpQuotesTheProgramsWords()
    {
        QFETCH(QString, words);
        QVERIFY2(allHelpText().contains(words, Qt::CaseSensitive), qPrintable(words));
    }

    void catalogueIsACompiledHelpFileWithItsPages()
    {
        const QByteArray chm = readBytes(buildRoot() + QStringLiteral("/catalogue.chm"));
        QVERIFY(chm.startsWith("ITSF"));

        const QString project = readUtf8(catalogueSourceDir() + QStringLiteral("/catalogue.hhp"));
        const QStringList files =
            project.section(QStringLiteral("[FILES]"), 1).split(u'\n', Qt::SkipEmptyParts);
        QStringList names;
        for (const QString &line : files)
            if (!line.trimmed().isEmpty())
                names << line.trimmed();
        QVERIFY(names.contains(QStringLiteral("index.htm")));
        for (const QString &page : filesIn(catalogueSourceDir(), QStringLiteral("*.htm")))
            QVERIFY2(names.contains(page), qPrintable(page + QStringLiteral(" is left out of the project")));
        for (const QString &name : names)
            QVERIFY2(chm.contains("/" + name.toUtf8()), qPrintable(name + QStringLiteral(" is not compiled in")));
    }

    // The contents and the index name only compiled pages, and keep to ASCII (accents as
    // entities), which every viewer reads alike whatever code page it assumes.
    void catalogueContentsAndIndexNameCompiledPages_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("contents") << QStringLiteral("catalogue.hhc");
        QTest::newRow("index") << QStringLiteral("catalogue.hhk");
    }
    void catalogueContentsAndIndexNameCompiledPages()
    {
        QFETCH(QString, file);
        const QByteArray bytes = readBytes(catalogueSourceDir() + u'/' + file);
        QVERIFY(!bytes.isEmpty());
        for (const char byte : bytes)
            QVERIFY2(static_cast<unsigned char>(byte) < 0x80, "not ASCII");
        const QByteArray chm = readBytes(buildRoot() + QStringLiteral("/catalogue.chm"));
        static const QRegularExpression local(QStringLiteral("name=\"Local\"\\s+value=\"([^\"]+)\""),
                                              QRegularExpression::CaseInsensitiveOption);
        int entries = 0;
        for (const QRegularExpressionMatch &m : local.globalMatch(QString::fromLatin1(bytes))) {
            ++entries;
            QVERIFY2(chm.contains("/" + m.captured(1).toUtf8()), qPrintable(m.captured(1)));
        }
        QVERIFY(entries > 0);
    }
};

QTEST_GUILESS_MAIN(TestHelp)
#include "tst_help.moc"
