#include "CorvidControl/day/CScenario.h"
#include "CorvidControl/file/ListFormat.h"
#include "TestMain.h"

#include <QFile>

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

    void eachNodeOfTheDayIsInTheStudio()
    {
        const SProcessorAllNode node = ListFormat::Read(ReadExample("studio.kvtl"), {}).node;
        QStringList listName;
        for (const SProcessorNode& processor : GetAll(node)) {
            listName.append(processor.strName);
        }
        for (const SProcessorGroupNode& group : node.listGroup) {
            listName.append(group.strName);
        }
        const CScenario day = CScenario::ReadFile(QStringLiteral(PTV_EXAMPLES "/day.json"));
        for (const SScenarioStep& step : day.GetSteps()) {
            if (step.strDo == QLatin1String("add-group")) {
                listName.append(step.GetText("name"));
            }
            for (const char* pKey : { "node", "group" }) {
                if (!step.GetText(pKey).isEmpty()) {
                    QVERIFY2(listName.contains(step.GetText(pKey)), qPrintable(step.GetText(pKey)));
                }
            }
        }
    }
};

PTV_TEST_MAIN_CORE(CExamplesTest)
#include "tst_examples.moc"
