#include "CEditedRecording.h"
#include "CReplayedSession.h"
#include "SessionSteps.h"
#include "TestMain.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "journal/SControlPointers.h"
#include "nodes/SProcessorAllNode.h"

#include <QJsonArray>

#include <algorithm>
#include <limits>
#include <memory>
#include <thread>

namespace {

template <typename FnIs> void Remove(CEditedRecording& recording, FnIs fnIs)
{
    recording.listLine.erase(std::remove_if(recording.listLine.begin(), recording.listLine.end(), fnIs),
                             recording.listLine.end());
}

/// The library never came back from the call, and the program ended so.
void LetHang(CEditedRecording& recording, const QString& strOperation)
{
    const QJsonObject begun = recording.listLine[recording.Find(strOperation)];
    Remove(recording, [&](const QJsonObject& line) {
        return line["thread"] == begun["thread"] && line["n"].toDouble() >= begun["n"].toDouble() && line["kind"] == "call";
    });
}

/// A line on the GUI thread.
QJsonObject MakeLine(double dNumber, const QString& strKind, const QString& strOperation, const QJsonObject& fields)
{
    QJsonObject line = fields;
    line["n"] = dNumber;
    line["kind"] = strKind;
    line["operation"] = strOperation;
    line["object"] = strKind == "user" ? "User" : strOperation == "ExportList" ? "PrcListControl" : "ConfigControl";
    line["thread"] = "gui";
    line["args"] = strOperation == "ExportList" ? QJsonArray{ "/list.kvtl", 0 } : QJsonArray();
    return line;
}

/// Of the tool bar.
QJsonObject MakeQuestion(double dNumber, const QUuid& id)
{
    QJsonObject line = MakeLine(dNumber, "call", "IsDeleteBlocked", { { "result", false } });
    line["object"] = "RuntimeControl";
    line["args"] = QJsonArray{ id.toString(QUuid::WithoutBraces) };
    return line;
}

/// The worker has read at first what the last step selects, and the tool bar asks something before, which it does not do again.
/// Returns the place of that step's command.
int LetReadBefore(CEditedRecording& recording)
{
    const int nAt = recording.Find("SetSelectedNodes", recording.FindLast("step"));
    recording.listLine[recording.Find("GetSelectedNodes")]["result"] = recording.listLine[nAt]["args"].toArray().at(0);
    recording.listLine.insert(nAt, MakeQuestion(recording.listLine[nAt]["n"].toDouble() - 1, QUuid()));
    return nAt + 1;
}

/// As it is before it is edited, without gaps.
void NumberAsBefore(CEditedRecording& recording)
{
    for (QJsonObject& line : recording.listLine) {
        if (line.contains("n")) {
            line["n"] = line["n"].toDouble() / 10;
        }
    }
}

} // namespace

/// What a recording seldom has, played to a panel.
class CReplayLinesTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        pRecorded = std::make_unique<CRecordedSession>(SSessionPlan{ vecStep });
    }

    void aCallThatNeverCameBackIsHeldToTheEnd()
    {
        CEditedRecording edited(pRecorded->GetFolder());
        LetHang(edited, "DeleteProcessor");
        const CRecordedRun run = edited.Read();
        const quint64 nEnd = run.GetTeardownNumber();

        CReplayedSession replayed;
        replayed.Play(run, vecStep);

        QVERIFY(nEnd != std::numeric_limits<quint64>::max());
        QCOMPARE(replayed.GetFault(), QString());
    }

    void whatThePanelHasBegunIsWaitedForAtTheEnd()
    {
        const CRecordedRun run = CEditedRecording(pRecorded->GetFolder()).Read();
        CReplayLibrary library(run);
        IRuntimeControl* pRuntime = *library.GetPointers().ppRuntime;
        library.Release();
        QVERIFY(library.AwaitJobs(std::chrono::milliseconds(0)));

        pRuntime->SetBusy(true);
        pRuntime->SetBusy(true);
        pRuntime->SetBusy(false);
        QVERIFY(!library.AwaitJobs(std::chrono::milliseconds(1)));
        std::thread job([pRuntime] { pRuntime->SetBusy(false); });
        QVERIFY(library.AwaitJobs(std::chrono::milliseconds(nPatience)));
        job.join();
    }

    void whatWouldComeBehindAHeldCallDoesNot()
    {
        CEditedRecording edited(pRecorded->GetFolder());
        Remove(edited, [](const QJsonObject& line) { return line["operation"] == "DeleteProcessor" && line["kind"] == "call"; });

        CReplayedSession replayed;
        replayed.nMostWait = 1000;
        replayed.Play(edited.Read(), vecStep);

        QVERIFY2(replayed.GetFault().startsWith("The panel did not call SetSelectedNodes"), qPrintable(replayed.GetFault()));
    }

    void aCallThatThrewIsAnsweredAsThePanelWas()
    {
        CEditedRecording edited(pRecorded->GetFolder());
        QJsonObject& line = edited.listLine[edited.Find("GetNextGroupIndex")];
        line["threw"] = true;
        line["result"] = 0;

        CReplayedSession replayed;
        replayed.Play(edited.Read(), vecStep);

        QVERIFY2(replayed.GetFault().startsWith("The panel called AddGroup"), qPrintable(replayed.GetFault()));
        QVERIFY2(replayed.GetFault().contains("Group 0"), qPrintable(replayed.GetFault()));
    }

    void aMessageOnTheGuiThreadComesThere()
    {
        CEditedRecording edited(pRecorded->GetFolder());
        for (QJsonObject& line : edited.listLine) {
            line["thread"] = line["kind"] == "message" ? QJsonValue("gui") : line["thread"];
        }

        CReplayedSession replayed;
        replayed.Play(edited.Read(), vecStep);

        QCOMPARE(replayed.GetFault(), QString());
        QCOMPARE(replayed.GetText(), pRecorded->GetText());
    }

    void behindLostLinesNothingIsCompared_data()
    {
        QTest::addColumn<bool>("bLost");
        QTest::newRow("lost") << true;
        QTest::newRow("not lost") << false;
    }

    void behindLostLinesNothingIsCompared()
    {
        QFETCH(bool, bLost);
        CEditedRecording edited(pRecorded->GetFolder());
        NumberAsBefore(edited);
        const int nAt = edited.Find("AddGroup");
        edited.listLine.removeAt(nAt);
        edited.listLine.insert(nAt, { { "kind", bLost ? "lost" : "weather" }, { "count", 1 } });

        CReplayedSession replayed;
        replayed.Play(edited.Read(), vecStep);

        QCOMPARE(replayed.GetFault().isEmpty(), bLost);
    }

    void theHostReadsWhatStandsThereAndIsNotCompared()
    {
        CEditedRecording edited(pRecorded->GetFolder());
        QStringList listGroups;
        CReplayedSession replayed;
        replayed.fnBefore = [&](CReplayLibrary& library, const SRecordedLine& line) {
            SProcessorAllNode node;
            (*library.GetHostPointers().ppPrcList)->GetDiscoveredTree(node);
            if (line.strKind == "user") {
                listGroups.append(QString::number(node.listGroup.size()));
            }
        };
        replayed.Play(edited.Read(), vecStep);

        QCOMPARE(replayed.GetFault(), QString());
        QCOMPARE(listGroups.first(), QString("2"));
        QCOMPARE(listGroups.last(), QString("3"));
    }

    void whatTheHostCallsWhileItAsksAboutTheListIsNoCallOfThePanel_data()
    {
        QTest::addColumn<bool>("bAsked");
        QTest::newRow("asked") << true;
        QTest::newRow("not asked") << false;
    }

    void whatTheHostCallsWhileItAsksAboutTheListIsNoCallOfThePanel()
    {
        QFETCH(bool, bAsked);
        CEditedRecording edited(pRecorded->GetFolder());
        const int nAt = edited.Find("AddGroup");
        const double dNumber = edited.listLine[nAt]["n"].toDouble();
        edited.listLine.insert(nAt, MakeLine(dNumber - 4, "user", "save", { { "asked", bAsked } }));
        edited.listLine.insert(nAt + 1, MakeLine(dNumber - 3, "call", "GetListFilePath", { { "result", "/list.kvtl" } }));
        edited.listLine.insert(nAt + 2, MakeLine(dNumber - 2, "call", "ExportList", { { "result", 0 } }));
        edited.listLine.insert(nAt + 3, MakeLine(dNumber - 1, "user", "save answered", {}));

        CReplayedSession replayed;
        replayed.nMostWait = 1000;
        replayed.Play(edited.Read(), vecStep);

        QCOMPARE(replayed.GetFault().isEmpty(), bAsked);
    }

    void aCommandThatSelectsWhatWasReadBeforeIsTheUsersOwn_data()
    {
        QTest::addColumn<bool>("bHandedBack");
        QTest::newRow("alone") << false;
        QTest::newRow("and handed back") << true;
    }

    // It looks like one that is handed back to the library.
    void aCommandThatSelectsWhatWasReadBeforeIsTheUsersOwn()
    {
        QFETCH(bool, bHandedBack);
        const CRecordedSession recorded(SSessionPlan{ vecClick });
        CEditedRecording edited(recorded.GetFolder());
        const int nAt = LetReadBefore(edited);
        if (bHandedBack) { // which does not come
            const int nLock = edited.Find("IsSimulatorPane", nAt);
            QJsonObject again = edited.listLine[nAt];
            again["n"] = edited.listLine[nLock]["n"].toDouble() + 1;
            edited.listLine.insert(nLock + 1, again);
        }

        CReplayedSession replayed;
        replayed.nMostWait = 1000;
        replayed.Play(edited.Read(), vecClick);

        QCOMPARE(replayed.GetFault(), QString());
        QCOMPARE(replayed.GetText(), recorded.GetText());
    }

    void whatIsHandedBackBeforeAStepIsNotItsCommand()
    {
        const CRecordedSession recorded(SSessionPlan{ vecClick });
        CEditedRecording edited(recorded.GetFolder());
        const int nAt = LetReadBefore(edited);
        const QUuid idSelected(edited.listLine[nAt]["args"].toArray().at(0).toArray().at(0).toString());

        CReplayedSession replayed;
        replayed.nMostWait = 1000;
        replayed.fnBefore = [&](CReplayLibrary& library, const SRecordedLine& line) {
            if (line.fields.value("step") == 1) {
                (*library.GetPointers().ppRuntime)->SetSelectedNodes({ idSelected });
            }
        };
        replayed.Play(edited.Read(), { vecClick.front(), { {}, [](CPanelSession&) { } } });

        QVERIFY2(replayed.GetFault().startsWith("The panel did not call SetSelectedNodes"), qPrintable(replayed.GetFault()));
    }

private:
    const std::vector<SSessionStep> vecStep = SessionSteps::Short();
    const std::vector<SSessionStep> vecClick{ SessionSteps::Click("loose"), SessionSteps::Click("alpha") };
    std::unique_ptr<CRecordedSession> pRecorded;
};

PTV_TEST_MAIN(CReplayLinesTest)
#include "tst_replaylines.moc"
