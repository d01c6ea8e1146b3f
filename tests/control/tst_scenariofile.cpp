#include "CorvidControl/day/CScenario.h"
#include "CorvidControl/day/SScenarioStep.h"
#include "CorvidControl/day/StepVerbs.h"
#include "TestMain.h"

#include <QFile>
#include <QMap>
#include <QTemporaryDir>

#include <array>
#include <cstdio>

namespace {

/// JSON with apostrophes for quotation marks.
QByteArray Json(QByteArray text)
{
    return text.replace('\'', '"');
}

/// "`for` (seconds, from 0 to a day; optional: 2)"; texts, the most of all, go without a word.
QString GetKeyText(const SStepKey& key)
{
    const QString strWhat = QString::fromLatin1(key.pValue->szWhat);
    QStringList listNote;
    if (strWhat != "a text that is not empty") {
        listNote.append(strWhat);
    }
    if (!key.bNeeded) {
        listNote.append(key.szSubstitute ? QStringLiteral("optional: ") + key.szSubstitute : QStringLiteral("optional"));
    }
    const QString strName = QStringLiteral("`%1`").arg(key.szName);
    return listNote.isEmpty() ? strName : QStringLiteral("%1 (%2)").arg(strName, listNote.join("; "));
}

/// The verbs as the document has them.
QString GetVerbTable()
{
    QString strTable = "| `do` | further keys | what happens |\n|---|---|---|\n";
    for (const SStepVerb& verb : StepVerbs::GetAll()) {
        QStringList listKey;
        for (const SStepKey& key : verb.vecKey) {
            listKey.append(GetKeyText(key));
        }
        const QString strEffect = QString::fromLatin1(verb.szEffect) + (verb.bBlocking ? " (blocks)" : "");
        strTable += QStringLiteral("| `%1` | %2 | %3 |\n").arg(verb.szName, listKey.join(", "), strEffect);
    }
    return strTable;
}

/// A good value of a key, as JSON.
QString GetGood(const QString& strKey)
{
    static const QMap<QString, QString> mapGood{ { "node", "\"a\"" },       { "for", "1" },
                                                 { "role", "\"none\"" },    { "with", "\"b\"" },
                                                 { "on", "true" },          { "project", "\"P\"" },
                                                 { "group", "\"g\"" },      { "name", "\"N\"" },
                                                 { "nodes", "[\"a\"]" },    { "ip", "\"10.0.0.1\"" },
                                                 { "count", "1" },          { "pane", "\"simulator\"" },
                                                 { "rate", "5" },           { "ms", "50" },
                                                 { "code", "3" },           { "thrown", "\"other\"" },
                                                 { "command", "\"move\"" }, { "call", "\"PrcListControl.GetDiscoveredTree\"" },
                                                 { "message", "7777" },     { "value", "\"name\"" },
                                                 { "by", "3600" } };
    return mapGood.value(strKey);
}

/// A scenario of one step with all its keys, of which one may have another value.
CScenario ReadStep(const QString& strVerb, const QString& strKey, const QString& strValue)
{
    QStringList listKey{ "\"at\": 0", QStringLiteral("\"do\": \"%1\"").arg(strVerb) };
    for (const SStepKey& key : StepVerbs::Find(strVerb)->vecKey) {
        listKey.append(QStringLiteral("\"%1\": %2").arg(key.szName, strKey == key.szName ? strValue : GetGood(key.szName)));
    }
    return CScenario::Read("{\"steps\": [{" + listKey.join(", ").toUtf8() + "}]}", "x.json");
}

/// A scenario whose second step has these keys.
QByteArray SecondStep(const QByteArray& keys)
{
    return Json("{'steps':[{'at':0,'do':'scan'},{") + keys + "}]}";
}

/// Rows of files whose second step has a fault: the file, and what the line must say.
void AddFaultsOfSteps()
{
    QTest::newRow("no time") << SecondStep(Json("'do':'scan'")) << "step 2: \"at\" must be seconds, from 0 to a day";
    QTest::newRow("a time before the start") << SecondStep(Json("'at':-1,'do':'scan'")) << "step 2: \"at\" must be seconds";
    QTest::newRow("nothing to do") << SecondStep(Json("'at':1")) << "step 2: \"do\" must be a text";
    QTest::newRow("a number to do") << SecondStep(Json("'at':1,'do':7")) << "step 2: \"do\" must be a text";
    QTest::newRow("an empty thing to do") << SecondStep(Json("'at':1,'do':''")) << "step 2: there is no such thing to do: \"\"";
    QTest::newRow("a time as a text") << SecondStep(Json("'at':'3','do':'scan'")) << "step 2: \"at\" must be seconds";
    QTest::newRow("an endless time") << SecondStep(Json("'at':1e300,'do':'scan'")) << "step 2: \"at\" must be seconds";
    QTest::newRow("one and a half simulators")
        << SecondStep(Json("'at':1,'do':'add-simulators','count':1.5")) << "must be 1 or 2";
    QTest::newRow("a list with an empty name")
        << SecondStep(Json("'at':1,'do':'select','nodes':['a','']")) << "must be a list of texts that are not empty";
    QTest::newRow("a key of a step twice") << SecondStep(Json("'at':1,'do':'scan','at':2")) << "step 2: \"at\" is there twice";
    QTest::newRow("a key twice, once disguised")
        << SecondStep(Json("'at':1,'do':'scan','\\u0061t':2")) << "step 2: \"at\" is there twice";
    QTest::newRow("something unknown") << SecondStep(Json("'at':1,'do':'fly'"))
                                       << "step 2: there is no such thing to do: \"fly\"";
    QTest::newRow("a key is missing") << SecondStep(Json("'at':1,'do':'rename','node':'a'"))
                                      << "step 2: \"name\" of \"rename\" must be a text";
    QTest::newRow("a misspelt key") << SecondStep(Json("'at':1,'do':'move','node':'a','grp':'g'"))
                                    << "step 2: unknown key \"grp\" of \"move\"";
    QTest::newRow("no flag") << SecondStep(Json("'at':1,'do':'lock','on':1"))
                             << "step 2: \"on\" of \"lock\" must be true or false";
    QTest::newRow("no role") << SecondStep(Json("'at':1,'do':'role','node':'a','role':'chief'"))
                             << "step 2: \"role\" of \"role\" must be none, primary or backup";
    QTest::newRow("no pane") << SecondStep(Json("'at':1,'do':'pane','pane':'left'")) << "must be discovered or simulator";
    QTest::newRow("no address") << SecondStep(Json("'at':1,'do':'silent','ip':'ten'")) << "must be an IPv4 address";
    QTest::newRow("no texts") << SecondStep(Json("'at':1,'do':'select','nodes':[1]")) << "must be a list of texts";
    QTest::newRow("three simulators") << SecondStep(Json("'at':1,'do':'add-simulators','count':3")) << "must be 1 or 2";
    QTest::newRow("too hard a storm") << SecondStep(Json("'at':1,'do':'storm','rate':1001,'for':1"))
                                      << "must be a number of 1 to 1000";
    QTest::newRow("half a message") << SecondStep(Json("'at':1,'do':'empty-message','message':1.5"))
                                    << "step 2: \"message\" of \"empty-message\" must be a whole number";
    QTest::newRow("a number too large") << SecondStep(Json("'at':1,'do':'empty-message','message':2147483648"))
                                        << "step 2: \"message\" of \"empty-message\" must be a whole number";
    QTest::newRow("no value that flickers") << SecondStep(Json("'at':1,'do':'flicker','node':'a','value':'ip'"))
                                            << "step 2: \"value\" of \"flicker\" must be aux, expanded, name, online or role";
    QTest::newRow("a clock that stands still")
        << SecondStep(Json("'at':1,'do':'clock-back','by':0")) << "must be whole seconds, from 1 to ten years";
    QTest::newRow("a bad name") << SecondStep(Json("'at':1,'do':'appear','ip':'10.0.0.1','name':'a=b'"))
                                << "step 2: \"name\" of \"appear\" must be a good name";
    QTest::newRow("a project of two lines") << SecondStep(Json("'at':1,'do':'project','node':'a','project':'a\\nb'"))
                                            << "step 2: \"project\" of \"project\" must be a text of at most 256 bytes";
    QTest::newRow("a project too long") << SecondStep(Json("'at':1,'do':'project','node':'a','project':'") + QByteArray(257, 'x')
                                                      + '"')
                                        << "step 2: \"project\" of \"project\" must be a text of at most 256 bytes";
}

/// One of each form in the document.
constexpr std::array arrStep{
    "'do':'offline','node':'a'",
    "'do':'online','node':'a'",
    "'do':'boot','node':'a'",
    "'do':'boot','node':'a','for':0.5",
    "'do':'role','node':'a','role':'primary'",
    "'do':'role','node':'a','role':'backup'",
    "'do':'role','node':'a','role':'none'",
    "'do':'fail-over','node':'a'",
    "'do':'fail-over','node':'a','with':'b'",
    "'do':'project','node':'a','project':''",
    "'do':'chief','group':'g'",
    "'do':'chief','group':'g','node':'a'",
    "'do':'chief-mode','on':true",
    "'do':'open-project','project':'Aurora'",
    "'do':'close-project'",
    "'do':'lock','on':false",
    "'do':'block-refresh','on':true",
    "'do':'rename','node':'a','name':'b'",
    "'do':'move','node':'a'",
    "'do':'move','node':'a','group':'g'",
    "'do':'expand','on':false",
    "'do':'expand','node':'g','on':true",
    "'do':'select','nodes':[]",
    "'do':'select','nodes':['a','g']",
    "'do':'pane','pane':'simulator'",
    "'do':'add-group','name':'x'",
    "'do':'add-processor','ip':'10.0.0.1'",
    "'do':'add-simulators','count':2",
    "'do':'delete','node':'a'",
    "'do':'appear','ip':'10.0.0.1','name':'New'",
    "'do':'silent','ip':'10.0.0.1'",
    "'do':'scan'",
    "'do':'storm','rate':20,'for':2",
    "'do':'latency','call':'PrcListControl.GetDiscoveredTree','ms':300,'for':5",
    "'do':'hang','call':'PrcBasicControl.RefreshProcessors','for':5",
    "'do':'throw','call':'RuntimeControl.IsNodeInUse'",
    "'do':'throw','call':'PrcListControl.Attach','count':3,'thrown':'other'",
    "'do':'refuse-selection','count':2",
    "'do':'import-code','code':99",
    "'do':'export-code','code':7",
    "'do':'refuse','command':'add-group','count':2",
    "'do':'lose-messages'",
    "'do':'lose-messages','count':3",
    "'do':'double-messages','count':3",
    "'do':'reorder-messages','count':3",
    "'do':'empty-message','message':1",
    "'do':'empty-message','message':2147483647",
    "'do':'flicker','node':'a'",
    "'do':'flicker','node':'a','value':'role','count':4",
    "'do':'collide','node':'a','with':'g'",
    "'do':'collide','node':'a','with':'b','for':0.5",
    "'do':'clock-back','by':86400",
};

} // namespace

/// Scenario files as text: what is taken, and what is said of a fault.
class CScenarioFileTest : public QObject
{
    Q_OBJECT

private slots:
    void eachStepOfTheDocumentIsTaken_data()
    {
        QTest::addColumn<QByteArray>("step");
        for (const char* szStep : arrStep) {
            QTest::newRow(szStep) << Json(szStep);
        }
    }

    void eachStepOfTheDocumentIsTaken()
    {
        QFETCH(QByteArray, step);
        const CScenario scenario = CScenario::Read(Json("{'steps':[{'at':1.25,") + step + "}]}", "x.json");
        QCOMPARE(scenario.GetFault(), QString());
        QCOMPARE(scenario.GetSteps().size(), 1);
        QCOMPARE(scenario.GetSteps().at(0).nAt, qint64(1250));
    }

    void theTableOfTheDocumentIsThatOfTheVerbs()
    {
        QFile file(QStringLiteral(PTV_DOCS "/scenarios.md"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString strBegin = "<!-- verbs -->\n";
        const QString strDocument = QString::fromUtf8(file.readAll());
        const int nBegin = strDocument.indexOf(strBegin) + strBegin.size();
        const QString strTable = strDocument.mid(nBegin, strDocument.indexOf("<!-- end of verbs -->") - nBegin);
        if (strTable != GetVerbTable()) {
            std::fputs(qPrintable(GetVerbTable()), stdout); // longer than Qt Test's messages may be
        }
        QVERIFY2(strTable == GetVerbTable(), "put the table above between the marks of docs/scenarios.md");
    }

    void eachVerbIsFoundByItsName()
    {
        for (const SStepVerb& verb : StepVerbs::GetAll()) {
            QCOMPARE(StepVerbs::Find(verb.szName), &verb);
        }
        QVERIFY(!StepVerbs::Find("fly"));
    }

    void stepsComeInTheOrderOfTheirTimes()
    {
        const CScenario scenario = CScenario::Read(
            Json("{'steps':[{'at':2,'do':'scan'},{'at':1,'do':'offline','node':'a'},{'at':2,'do':'close-project'}]}"), "x.json");
        QStringList listDo;
        for (const SScenarioStep& step : scenario.GetSteps()) {
            listDo.append(step.strDo);
        }
        QCOMPARE(listDo, (QStringList{ "offline", "scan", "close-project" }));
    }

    void marksForTheApplicationAreCarriedAsTheyAre()
    {
        const CScenario scenario
            = CScenario::Read(Json("{'steps':[],'ui':[{'at':3.0,'shot':'primary-falls'},{'at':1,'whatever':[1]}]}"), "x.json");
        QCOMPARE(scenario.GetFault(), QString());
        QCOMPARE(scenario.GetMarks().size(), 2);
        QCOMPARE(scenario.GetMarks().at(0).toObject().value("shot").toString(), QString("primary-falls"));
    }

    void aFaultIsToldInOneLineWithTheFile_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("strFault");
        QTest::newRow("no JSON") << QByteArray("steps:") << "its text is no JSON object (";
        QTest::newRow("an array") << QByteArray("[]") << "its text is no JSON object (";
        QTest::newRow("no steps") << QByteArray("{}") << "\"steps\" must be a list";
        QTest::newRow("a stray key") << Json("{'steps':[],'speed':2}") << "unknown key \"speed\"";
        QTest::newRow("a step that is no object") << Json("{'steps':[3]}") << "step 1: must be an object";
        QTest::newRow("a title of a number") << Json("{'title':7,'steps':[]}") << "\"title\" must be a text";
        QTest::newRow("a key twice") << Json("{'steps':[],'steps':[]}") << "\"steps\" is there twice";
        QTest::newRow("a key of a mark twice") << Json("{'steps':[{'at':1,'do':'scan'}],'ui':[{'at':1,'at':1,'shot':'x'}]}")
                                               << "mark 1 of \"ui\": \"at\" is there twice";
        QTest::newRow("a mark without a time") << Json("{'steps':[],'ui':[{'shot':'x'}]}") << "mark 1 of \"ui\": \"at\"";
        QTest::newRow("a mark that is no object") << Json("{'steps':[],'ui':[3]}") << "mark 1 of \"ui\": must be an object";
        QTest::newRow("marks that are no list") << Json("{'steps':[],'ui':{}}") << "\"ui\" must be a list";
        AddFaultsOfSteps();
    }

    void aFaultIsToldInOneLineWithTheFile()
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

    void textsThatLookLikeKeysAreNone()
    {
        const QByteArray text = Json("{'title':'at','steps':["
                                     "{'at':1,'do':'rename','node':'at','name':'x\\', \\'at\\': {[\\\\'},"
                                     "{'at':1,'do':'select','nodes':['at','at']}]}");
        QCOMPARE(CScenario::Read(text, "x.json").GetFault(), QString());
    }

    void eachKeyOfEachVerbRefusesWhatItMayNotBe_data()
    {
        QTest::addColumn<QString>("strVerb");
        QTest::addColumn<QString>("strKey");
        for (const SStepVerb& verb : StepVerbs::GetAll()) {
            for (const SStepKey& key : verb.vecKey) {
                QTest::addRow("%s of %s", key.szName, verb.szName) << QString(verb.szName) << QString(key.szName);
            }
        }
    }

    void eachKeyOfEachVerbRefusesWhatItMayNotBe()
    {
        QFETCH(QString, strVerb);
        QFETCH(QString, strKey);
        const QString strPlace = QStringLiteral("x.json: step 1: \"%1\" of \"%2\" must be ").arg(strKey, strVerb);
        QCOMPARE(ReadStep(strVerb, {}, {}).GetFault(), QString());
        const QString strGood = GetGood(strKey);
        QStringList listBad{ "null", "{}", "-1", "1e300", "[7]", "[[]]", strGood.startsWith('"') ? "7" : "\"x\"" };
        if (strKey != "project" || strVerb == "open-project") {
            listBad.append("\"\"");
        }
        for (const QString& strBad : std::as_const(listBad)) {
            const QString strFault = ReadStep(strVerb, strKey, strBad).GetFault();
            QVERIFY2(strFault.startsWith(strPlace), qPrintable(strBad + ": " + strFault));
        }
    }

    void aFileThatIsNotThereIsNamed()
    {
        const QTemporaryDir folder;
        QVERIFY(CScenario::ReadFile(folder.filePath("no.json")).GetFault().startsWith(folder.filePath("no.json") + ": "));
        QCOMPARE(CScenario::ReadFile(folder.path()).GetFault(), folder.path() + ": it is a folder");
    }
};

PTV_TEST_MAIN_CORE(CScenarioFileTest)
#include "tst_scenariofile.moc"
