#include "CProgram.h"
#include "Kestrel/theme/CTheme.h"
#include "TestMain.h"

#include <QDir>
#include <QFontDatabase>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRawFont>
#include <QRegularExpression>

#include <algorithm>

namespace {

QByteArray ReadFile(const QString& strPath)
{
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// All texts of a value, at any depth.
void Collect(const QJsonValue& value, QString& strTexts)
{
    strTexts += value.toString();
    for (const QJsonValue& inner : value.toArray()) {
        Collect(inner, strTexts);
    }
    for (const QJsonValue& inner : value.toObject()) {
        Collect(inner, strTexts);
    }
}

/// Each character of the list's names, types and projects, once.
QVector<uint> CharactersOf(const QString& strList)
{
    const QByteArray bytes = ReadFile(strList);
    QString strTexts;
    Collect(QJsonDocument::fromJson(bytes.mid(bytes.indexOf('\n'))).object(), strTexts);
    QVector<uint> vecCharacter = strTexts.toUcs4();
    std::sort(vecCharacter.begin(), vecCharacter.end());
    vecCharacter.erase(std::unique(vecCharacter.begin(), vecCharacter.end()), vecCharacter.end());
    return vecCharacter;
}

/// Those that none of the application's own fonts has.
QString Missing(const QVector<uint>& vecCharacter)
{
    QList<QRawFont> listFont;
    const QStringList listFamily = QApplication::font().families();
    for (const QString& strFamily : listFamily) {
        listFont.append(QRawFont::fromFont(QFont(strFamily)));
    }
    QString strMissing;
    for (const uint nCharacter : vecCharacter) {
        const bool bThere = std::any_of(listFont.begin(), listFont.end(),
                                        [nCharacter](const QRawFont& font) { return font.supportsCharacter(nCharacter); });
        strMissing += bThere ? QString() : QString::fromUcs4(&nCharacter, 1);
    }
    return strMissing;
}

} // namespace

/// The fonts in which the window is written.
class CFontsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        CTheme().Apply(*qApp);
    }

    void cleanupTestCase()
    {
        qApp->setStyleSheet(QString());
    }

    void eachFontOfTheThemeIsInstalled()
    {
        const QStringList listFamily = QApplication::font().families();
        QVERIFY(listFamily.size() >= 2);
        for (const QString& strFamily : listFamily) {
            QCOMPARE(QRawFont::fromFont(QFont(strFamily)).familyName(), strFamily);
        }
    }

    void noNameOfAnExampleIsPaintedAsBoxes_data()
    {
        QTest::addColumn<QString>("strList");
        for (const char* szFolder : { SOURCE_FOLDER "/examples", BUILT_FOLDER }) {
            const QFileInfoList listFile = QDir(szFolder).entryInfoList({ "*.kvtl" });
            for (const QFileInfo& info : listFile) {
                QTest::newRow(qPrintable(info.fileName())) << info.filePath();
            }
        }
    }

    void noNameOfAnExampleIsPaintedAsBoxes()
    {
        QFETCH(QString, strList);
        const QVector<uint> vecCharacter = CharactersOf(strList);

        QVERIFY(!vecCharacter.isEmpty());
        QCOMPARE(Missing(vecCharacter), QString());
    }

    void aCharacterThatNoFontHasIsFound()
    {
        QCOMPARE(Missing({ 'A', 0x53F0, 0x1F600 }), QStringLiteral("\U0001F600"));
    }

    void whatBuildsAndWhatInstallsBringTheSameFonts()
    {
        const QString strSetup = ReadFile(SOURCE_FOLDER "/scripts/setup.sh");
        const QString strPackage = ReadFile(SOURCE_FOLDER "/packaging/debian/CMakeLists.txt");
        const QString strFault = ReadFile(SOURCE_FOLDER "/host/Kestrel/Fonts.cpp");
        auto match = QRegularExpression("\\bfonts-[a-z-]+").globalMatch(strSetup);
        QVERIFY(match.hasNext());
        while (match.hasNext()) {
            const QString strName = match.next().captured();
            QVERIFY2(strPackage.section("DEVELOPMENT_PACKAGE_DEPENDS", 1).section('\n', 0, 0).contains(strName),
                     qPrintable(strName));
            QVERIFY2(strFault.contains(strName), qPrintable(strName));
        }
    }

    void withoutAFontTheProgramEndsWithOneSentence()
    {
        CProgram program;
        program.SetVariable("FONTCONFIG_FILE", program.Write("fonts.conf", "<?xml version=\"1.0\"?><fontconfig/>"));
        const QString strList = program.CopyExample("single.kvtl");
        const QByteArray before = CProgram::Read(strList);

        QVERIFY(program.Run({ "--list", strList }));

        QCOMPARE(program.ExitCode(), 5);
        QCOMPARE(program.Errors().size(), 1);
        QVERIFY2(program.Errors().constFirst().startsWith("kestrel: No font is installed"),
                 qPrintable(program.Errors().constFirst()));
        QCOMPARE(CProgram::Read(strList), before);
    }
};

PTV_TEST_MAIN(CFontsTest)
#include "tst_fonts.moc"
