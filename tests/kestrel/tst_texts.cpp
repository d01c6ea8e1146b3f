#include "Kestrel/CLanguage.h"
#include "Kestrel/translations/tools/PseudoText.h"
#include "TestMain.h"

#include <QLabel>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

namespace {

struct SText
{
    QString strContext;
    QString strSource;
    QString strTranslation;
    bool bFinished = false;
};

QList<SText> ReadTexts(const QString& strFile)
{
    QFile file(strFile);
    QXmlStreamReader xml(&file);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QList<SText> listText;
    SText text;
    bool bForms = false; // a text with a number has a translation of several forms
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (xml.name() == QLatin1String("name")) {
            text.strContext = xml.readElementText();
        } else if (xml.name() == QLatin1String("source")) {
            text.strSource = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            text.bFinished = !xml.attributes().hasAttribute(QLatin1String("type"));
        } else if (xml.name() == QLatin1String("message")) {
            bForms = xml.attributes().hasAttribute(QLatin1String("numerus"));
        }
        if (xml.name() == (bForms ? QLatin1String("numerusform") : QLatin1String("translation"))) {
            text.strTranslation = xml.readElementText();
            listText.append(text);
        }
    }
    return listText;
}

QString FileOf(const QString& strLanguage)
{
    const bool bMade = strLanguage == CLanguage::GetPseudoCode();
    return QStringLiteral("%1/kestrel_%2.ts")
        .arg(bMade ? QStringLiteral(MADE_FOLDER) : QStringLiteral(TEXTS_FOLDER), strLanguage);
}

/// A copy of the language's file, brought up to date with the sources.
QString UpdatedFile(const QTemporaryDir& folder, const QString& strLanguage)
{
    const QString strCopy = folder.filePath(QStringLiteral("kestrel_%1.ts").arg(strLanguage));
    QFile::copy(FileOf(strLanguage), strCopy);
    QProcess lupdate;
    lupdate.start(
        QStringLiteral(LUPDATE),
        { "-silent", "-no-obsolete", "-locations", "none", SOURCE_FOLDER "/src", SOURCE_FOLDER "/host", "-ts", strCopy });
    return lupdate.waitForFinished(nPatience) && lupdate.exitCode() == 0 ? strCopy : QString();
}

QStringList Placeholders(const QString& strText)
{
    static const QRegularExpression expression(QStringLiteral("%(?:\\d|n)"));
    QStringList listFound;
    auto match = expression.globalMatch(strText);
    while (match.hasNext()) {
        listFound.append(match.next().captured());
    }
    listFound.sort();
    return listFound;
}

/// Notes how often it was told that the language changed.
class CListener : public QLabel
{
public:
    int nHeard = 0;

protected:
    void changeEvent(QEvent* event) override
    {
        nHeard += event->type() == QEvent::LanguageChange;
        QLabel::changeEvent(event);
    }
};

} // namespace

class CTextsTest : public QObject
{
    Q_OBJECT

private slots:
    void everyTextOfTheSourcesIsTranslated_data()
    {
        QTest::addColumn<QString>("strLanguage");
        QTest::newRow("German") << "de";
        QTest::newRow("Chinese") << "zh_CN";
        QTest::newRow("pseudo-language") << "en_XA";
    }

    void everyTextOfTheSourcesIsTranslated()
    {
        QFETCH(QString, strLanguage);
        const QTemporaryDir folder;

        const QList<SText> listText = ReadTexts(UpdatedFile(folder, strLanguage));

        QVERIFY(listText.size() > 90);
        for (const SText& text : listText) {
            QVERIFY2(text.bFinished && !text.strTranslation.isEmpty(), qPrintable(text.strContext + ": " + text.strSource));
        }
    }

    void everyContextOfThePanelIsThere_data()
    {
        QTest::addColumn<QString>("strContext");
        for (const char* szContext : { "CProcessorTreeView", "CProcessorTree", "CProcessorTreeToolBar", "CProcessorTreeDelegate",
                                       "CAddProcessorDlg", "CAddSimulatorDlg" }) {
            QTest::newRow(szContext) << szContext;
        }
    }

    void everyContextOfThePanelIsThere()
    {
        QFETCH(QString, strContext);
        for (const char* szLanguage : { "de", "zh_CN" }) {
            const QList<SText> listText = ReadTexts(FileOf(szLanguage));
            QVERIFY(
                std::any_of(listText.begin(), listText.end(), [&](const SText& text) { return text.strContext == strContext; }));
        }
    }

    void translationsKeepPlaceholdersAndLines_data()
    {
        everyTextOfTheSourcesIsTranslated_data();
    }

    void translationsKeepPlaceholdersAndLines()
    {
        QFETCH(QString, strLanguage);
        const QList<SText> listText = ReadTexts(FileOf(strLanguage));
        for (const SText& text : listText) {
            QCOMPARE(Placeholders(text.strTranslation), Placeholders(text.strSource));
            QCOMPARE(text.strTranslation.count('\n'), text.strSource.count('\n'));
            QCOMPARE(text.strTranslation.contains('&'), text.strSource.contains('&'));
        }
    }

    void eachLineOfThePseudoLanguageHasItsBrackets()
    {
        const QList<SText> listText = ReadTexts(FileOf(CLanguage::GetPseudoCode()));
        for (const SText& text : listText) {
            const QStringList listLine = text.strTranslation.split('\n');
            for (const QString& strLine : listLine) {
                QVERIFY2(strLine.trimmed().startsWith('[') && strLine.trimmed().endsWith(']'), qPrintable(strLine));
            }
        }
    }

    void thePseudoLanguageIsLongAndAccented_data()
    {
        QTest::addColumn<QString>("strSource");
        QTest::addColumn<QString>("strExpected");
        QTest::newRow("a word") << "Delete"
                                << "[Đéļéţé]";
        QTest::newRow("a sentence") << "Do you want to delete all?"
                                    << "[Đö ýöû ŵåñţ ţö đéļéţé åļļ? öñé ţŵö]";
        QTest::newRow("a mnemonic") << "Select &all"
                                    << "[Šéļéçţ &aļļ ö]";
        QTest::newRow("placeholders") << "%1 of %n in %L2%"
                                      << "[%1 öf %n îñ %L2% öñé]";
        QTest::newRow("two lines") << "One\nTwo\n"
                                   << "[Öñé]\n[Ţŵö]\n";
        QTest::newRow("blanks at the end") << "Type: "
                                           << "[Ţýpé:] ";
        QTest::newRow("nothing") << ""
                                 << "";
    }

    void thePseudoLanguageIsLongAndAccented()
    {
        QFETCH(QString, strSource);
        QTEST(PseudoText::Make("CProcessorTree", strSource), "strExpected");
    }

    void theLanguageChangesAtRunTimeAndBack()
    {
        CListener listener;
        CLanguage language;
        const auto GetText = [] { return QCoreApplication::translate("CProcessorTreeDelegate", "All processors(%1)"); };

        language.Set("de");
        QCoreApplication::processEvents();
        QCOMPARE(GetText(), QStringLiteral("Alle Prozessoren(%1)"));
        QVERIFY(listener.nHeard > 0);

        language.Set("zh_CN");
        QCOMPARE(GetText(), QStringLiteral("全部处理器(%1)"));

        language.Set("en_XA");
        QCOMPARE(GetText(), QStringLiteral("[Åļļ pŕöçéššöŕš(%1) öñé_]"));

        language.Set("en");
        QCOMPARE(GetText(), QStringLiteral("All processors(%1)"));
    }
};

PTV_TEST_MAIN(CTextsTest)
#include "tst_texts.moc"
