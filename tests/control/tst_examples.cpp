#include "CorvidControl/day/CScenario.h"
#include "CorvidControl/day/StepVerbs.h"
#include "CorvidControl/file/ListFormat.h"
#include "TestMain.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include <algorithm>

namespace {

constexpr char szStored[] = PTV_EXAMPLES "/";
constexpr char szBuilt[] = PTV_BUILT_EXAMPLES "/";

QByteArray ReadExample(const QString& strName, const char* szFolder = szStored)
{
    QFile file(szFolder + strName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QList<SProcessorNode> GetAll(const SProcessorAllNode& node)
{
    QList<SProcessorNode> listProcessor = node.listProcessor;
    for (const SProcessorGroupNode& group : node.listGroup) {
        listProcessor += group.listProcessor;
    }
    return listProcessor;
}

template <typename Test> bool Any(const QList<SProcessorNode>& listProcessor, Test test)
{
    return std::any_of(listProcessor.cbegin(), listProcessor.cend(), test);
}

QStringList GetScenarios()
{
    return QDir(QString::fromLatin1(szStored)).entryList({ QStringLiteral("*.json") });
}

void AddScenarios()
{
    QTest::addColumn<int>("nNone");
    for (const QString& strFile : GetScenarios()) {
        QTest::newRow(qPrintable(strFile)) << 0;
    }
}

/// Of all groups and processors.
QStringList GetStudioNames()
{
    const SProcessorAllNode node = ListFormat::Read(ReadExample(QStringLiteral("studio.kvtl")), {}).node;
    QStringList listName;
    for (const SProcessorNode& processor : GetAll(node)) {
        listName.append(processor.strName);
    }
    for (const SProcessorGroupNode& group : node.listGroup) {
        listName.append(group.strName);
    }
    return listName;
}

} // namespace

/// The lists and scenarios in examples/, and the list that is built with the tests.
class CExamplesTest : public QObject
{
    Q_OBJECT

private slots:
    void eachListIsSoundAndExportsToTheSameBytes_data()
    {
        QTest::addColumn<QByteArray>("folder");
        QTest::addColumn<int>("nProcessors");
        QTest::addColumn<int>("nGroups");
        QTest::newRow("studio.kvtl") << QByteArray(szStored) << 64 << 10;
        QTest::newRow("limits.kvtl") << QByteArray(szBuilt) << 256 << 256;
        QTest::newRow("single.kvtl") << QByteArray(szStored) << 1 << 0;
        QTest::newRow("empty.kvtl") << QByteArray(szStored) << 0 << 0;
    }

    void eachListIsSoundAndExportsToTheSameBytes()
    {
        QFETCH(QByteArray, folder);
        const QByteArray bytes = ReadExample(QString::fromLatin1(QTest::currentDataTag()), folder);
        const SListReading reading = ListFormat::Read(bytes, {});
        QCOMPARE(reading.strReason, QString());
        QCOMPARE(ListFormat::Write(reading.node), bytes);
        QTEST(GetAll(reading.node).size(), "nProcessors");
        QTEST(reading.node.listGroup.size(), "nGroups");
    }

    void theStudioHasEverythingThatCanOccur()
    {
        const SProcessorAllNode node = ListFormat::Read(ReadExample("studio.kvtl"), {}).node;
        const QList<SProcessorNode> listAll = GetAll(node);
        QVERIFY(!node.listProcessor.isEmpty());
        QVERIFY(std::any_of(node.listGroup.cbegin(), node.listGroup.cend(),
                            [](const SProcessorGroupNode& group) { return group.listProcessor.isEmpty(); }));
        QVERIFY(std::any_of(node.listGroup.cbegin(), node.listGroup.cend(),
                            [](const SProcessorGroupNode& group) { return !group.idChief.isNull(); }));
        QVERIFY(Any(listAll, [](const SProcessorNode& p) { return !p.bOnline; }));
        QVERIFY(Any(listAll, [](const SProcessorNode& p) { return p.nFailover == 1; }));
        QVERIFY(Any(listAll, [](const SProcessorNode& p) { return p.nFailover == 2; }));
        QVERIFY(Any(listAll, [](const SProcessorNode& p) { return p.nChief == 1; }));
        QVERIFY(Any(listAll, [](const SProcessorNode& p) { return p.strProject.isEmpty(); }));
        QVERIFY(Any(listAll, [](const SProcessorNode& p) { return p.strName.size() == 64; }));
        QVERIFY(Any(listAll, [](const SProcessorNode& p) { return p.strName.size() < 25 && p.strName.toUtf8().size() == 64; }));
    }

    void theDayIsSoundAndTakesTwentySeconds()
    {
        const CScenario day = CScenario::ReadFile(QStringLiteral(PTV_EXAMPLES "/day.json"));
        QCOMPARE(day.GetFault(), QString());
        QVERIFY(!day.GetMarks().isEmpty());
        QVERIFY(day.GetSteps().last().nAt <= 20000 && day.GetSteps().last().nAt >= 15000);
    }

    void thereAreTenScenariosAndMore()
    {
        QVERIFY2(GetScenarios().size() >= 10, qPrintable(GetScenarios().join(' ')));
    }

    void eachScenarioIsSoundAndOfTheStudio_data()
    {
        AddScenarios();
    }

    void eachScenarioIsSoundAndOfTheStudio()
    {
        const CScenario scenario = CScenario::ReadFile(szStored + QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(scenario.GetFault(), QString());
        QVERIFY(QString::fromUtf8(ReadExample(QString::fromLatin1(QTest::currentDataTag()))).contains("\"title\": \""));
        QVERIFY(QString::fromUtf8(QJsonDocument(scenario.GetMarks()).toJson()).contains("\"shot\""));
        QStringList listName = GetStudioNames();
        for (const SScenarioStep& step : scenario.GetSteps()) {
            listName.append(step.GetText("name"));
            for (const char* pKey : { "node", "group", "with" }) {
                if (!step.GetText(pKey).isEmpty()) {
                    QVERIFY2(listName.contains(step.GetText(pKey)), qPrintable(step.GetText(pKey)));
                }
            }
        }
    }

    void eachThatIsNotTheDayIsShortAndMakesSomethingGoWrong_data()
    {
        AddScenarios();
    }

    void eachThatIsNotTheDayIsShortAndMakesSomethingGoWrong()
    {
        const QString strFile = QString::fromLatin1(QTest::currentDataTag());
        const CScenario scenario = CScenario::ReadFile(szStored + strFile);
        const bool bDay = strFile == "day.json";
        const auto isFault = [](const SScenarioStep& step) { return StepVerbs::Find(step.strDo)->bFault; };
        QCOMPARE(std::any_of(scenario.GetSteps().cbegin(), scenario.GetSteps().cend(), isFault), !bDay);
        QVERIFY(bDay || scenario.GetSteps().last().nAt <= 5000);
    }

    // The panel removes the list file for a 1 at its end, also that of a user who tries an example on it.
    void noScenarioSaysThatAGoodListIsWorthless_data()
    {
        AddScenarios();
    }

    void noScenarioSaysThatAGoodListIsWorthless()
    {
        const CScenario scenario = CScenario::ReadFile(szStored + QString::fromLatin1(QTest::currentDataTag()));
        for (const SScenarioStep& step : scenario.GetSteps()) {
            QVERIFY(step.strDo != "export-code" || step.GetNumber("code", 0) != 1);
        }
    }

    void theDocumentHasEachScenario()
    {
        QFile file(QStringLiteral(PTV_DOCS "/scenarios.md"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        for (const QString& strFile : GetScenarios()) {
            QVERIFY2(bytes.contains('`' + strFile.toUtf8() + '`'), qPrintable(strFile));
        }
    }
};

PTV_TEST_MAIN_CORE(CExamplesTest)
#include "tst_examples.moc"
