#include "CorvidControl/CScenario.h"
#include "TestMain.h"

#include <QTemporaryDir>

/// Scenario files as text: what is taken, and what is said of a fault.
class CScenarioFileTest : public QObject
{
    Q_OBJECT

private slots:
    void eachStepOfTheDocumentIsTaken_data();
    void eachStepOfTheDocumentIsTaken();
    void stepsComeInTheOrderOfTheirTimes();
    void marksForTheApplicationAreCarriedAsTheyAre();
    void aFaultIsToldInOneLineWithTheFile_data();
    void aFaultIsToldInOneLineWithTheFile();
    void aFileThatIsNotThereIsNamed();
};

void CScenarioFileTest::eachStepOfTheDocumentIsTaken_data()
{
    QTest::addColumn<QByteArray>("step");
    const QVector<QByteArray> vecStep{
        R"("do":"offline","node":"a")",
        R"("do":"online","node":"a")",
        R"("do":"boot","node":"a")",
        R"("do":"boot","node":"a","for":0.5)",
        R"("do":"role","node":"a","role":"primary")",
        R"("do":"role","node":"a","role":"backup")",
        R"("do":"role","node":"a","role":"none")",
        R"("do":"fail-over","node":"a")",
        R"("do":"fail-over","node":"a","with":"b")",
        R"("do":"project","node":"a","project":"")",
        R"("do":"chief","group":"g")",
        R"("do":"chief","group":"g","node":"a")",
        R"("do":"chief-mode","on":true)",
        R"("do":"open-project","project":"Aurora")",
        R"("do":"close-project")",
        R"("do":"lock","on":false)",
        R"("do":"block-refresh","on":true)",
        R"("do":"rename","node":"a","name":"b")",
        R"("do":"move","node":"a")",
        R"("do":"move","node":"a","group":"g")",
        R"("do":"expand","on":false)",
        R"("do":"expand","node":"g","on":true)",
        R"("do":"select","nodes":[])",
        R"("do":"select","nodes":["a","g"])",
        R"("do":"pane","pane":"simulator")",
        R"("do":"add-group","name":"x")",
        R"("do":"add-processor","ip":"10.0.0.1")",
        R"("do":"add-simulators","count":2)",
        R"("do":"delete","node":"a")",
        R"("do":"appear","ip":"10.0.0.1","name":"New")",
        R"("do":"silent","ip":"10.0.0.1")",
        R"("do":"scan")",
        R"("do":"storm","rate":20,"for":2)",
    };
    for (const QByteArray& step : vecStep)
        QTest::newRow(step.constData()) << step;
}

void CScenarioFileTest::eachStepOfTheDocumentIsTaken()
{
    QFETCH(QByteArray, step);
    const CScenario scenario = CScenario::Read(R"({"steps":[{"at":1.25,)" + step + "}]}", "x.json");
    QCOMPARE(scenario.GetFault(), QString());
    QCOMPARE(scenario.GetSteps().size(), 1);
    QCOMPARE(scenario.GetSteps().at(0).nAt, qint64(1250));
}

void CScenarioFileTest::stepsComeInTheOrderOfTheirTimes()
{
    const CScenario scenario = CScenario::Read(
        R"({"steps":[{"at":2,"do":"scan"},{"at":1,"do":"offline","node":"a"},{"at":2,"do":"close-project"}]})", "x.json");
    QStringList listDo;
    for (const SScenarioStep& step : scenario.GetSteps())
        listDo.append(step.strDo);
    QCOMPARE(listDo, (QStringList{ "offline", "scan", "close-project" }));
}

void CScenarioFileTest::marksForTheApplicationAreCarriedAsTheyAre()
{
    const CScenario scenario
        = CScenario::Read(R"({"steps":[],"ui":[{"at":3.0,"shot":"primary-falls"},{"at":1,"whatever":[1]}]})", "x.json");
    QCOMPARE(scenario.GetFault(), QString());
    QCOMPARE(scenario.GetMarks().size(), 2);
    QCOMPARE(scenario.GetMarks().at(0).toObject().value("shot").toString(), QString("primary-falls"));
}

void CScenarioFileTest::aFaultIsToldInOneLineWithTheFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("strFault");
    const auto step = [](const QByteArray& keys) { return R"({"steps":[{"at":0,"do":"scan"},{)" + keys + "}]}"; };
    QTest::newRow("no JSON") << QByteArray("steps:") << "its text is no JSON object (";
    QTest::newRow("an array") << QByteArray("[]") << "its text is no JSON object (";
    QTest::newRow("no steps") << QByteArray("{}") << "\"steps\" must be a list";
    QTest::newRow("a stray key") << QByteArray(R"({"steps":[],"speed":2})") << "unknown key \"speed\"";
    QTest::newRow("no time") << step(R"("do":"scan")") << "step 2: \"at\" must be seconds, from 0 to a day";
    QTest::newRow("a time before the start") << step(R"("at":-1,"do":"scan")") << "step 2: \"at\" must be seconds";
    QTest::newRow("nothing to do") << step(R"("at":1)") << "step 2: there is no such thing to do: \"\"";
    QTest::newRow("something unknown") << step(R"("at":1,"do":"fly")") << "step 2: there is no such thing to do: \"fly\"";
    QTest::newRow("a key is missing") << step(R"("at":1,"do":"rename","node":"a")")
                                      << "step 2: \"name\" of \"rename\" must be a text";
    QTest::newRow("a misspelt key") << step(R"("at":1,"do":"move","node":"a","grp":"g")")
                                    << "step 2: unknown key \"grp\" of \"move\"";
    QTest::newRow("no flag") << step(R"("at":1,"do":"lock","on":1)") << "step 2: \"on\" of \"lock\" must be true or false";
    QTest::newRow("no role") << step(R"("at":1,"do":"role","node":"a","role":"chief")")
                             << "step 2: \"role\" of \"role\" must be none, primary or backup";
    QTest::newRow("no pane") << step(R"("at":1,"do":"pane","pane":"left")") << "must be discovered or simulator";
    QTest::newRow("no address") << step(R"("at":1,"do":"silent","ip":"ten")") << "must be an IPv4 address";
    QTest::newRow("no texts") << step(R"("at":1,"do":"select","nodes":[1])") << "must be a list of texts";
    QTest::newRow("three simulators") << step(R"("at":1,"do":"add-simulators","count":3)") << "must be 1 or 2";
    QTest::newRow("too hard a storm") << step(R"("at":1,"do":"storm","rate":1001,"for":1)") << "must be a number of 1 to 1000";
    QTest::newRow("a bad name") << step(R"("at":1,"do":"appear","ip":"10.0.0.1","name":"a=b"})") << "";
    QTest::newRow("a project of two lines") << step(R"("at":1,"do":"project","node":"a","project":"a\nb")")
                                            << "step 2: \"project\" of \"project\" must be a text of at most 256 bytes";
    QTest::newRow("a project too long") << step(R"("at":1,"do":"project","node":"a","project":")" + QByteArray(257, 'x') + '"')
                                        << "step 2: \"project\" of \"project\" must be a text of at most 256 bytes";
    QTest::newRow("a mark without a time") << QByteArray(R"({"steps":[],"ui":[{"shot":"x"}]})") << "mark 1 of \"ui\": \"at\"";
    QTest::newRow("a mark that is no object") << QByteArray(R"({"steps":[],"ui":[3]})") << "mark 1 of \"ui\": must be an object";
    QTest::newRow("marks that are no list") << QByteArray(R"({"steps":[],"ui":{}})") << "\"ui\" must be a list";
}

void CScenarioFileTest::aFaultIsToldInOneLineWithTheFile()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, strFault);
    const CScenario scenario = CScenario::Read(bytes, "x.json");
    QVERIFY2(scenario.GetFault().startsWith("x.json: " + strFault) || scenario.GetFault().contains(strFault),
             qPrintable(scenario.GetFault()));
    QVERIFY(scenario.GetFault().startsWith("x.json: "));
    QVERIFY(!scenario.GetFault().contains('\n'));
    QVERIFY(scenario.GetSteps().isEmpty());
}

void CScenarioFileTest::aFileThatIsNotThereIsNamed()
{
    const QTemporaryDir folder;
    QVERIFY(CScenario::ReadFile(folder.filePath("no.json")).GetFault().startsWith(folder.filePath("no.json") + ": "));
    QCOMPARE(CScenario::ReadFile(folder.path()).GetFault(), folder.path() + ": it is a folder");
}

PTV_TEST_MAIN_CORE(CScenarioFileTest)
#include "tst_scenariofile.moc"
