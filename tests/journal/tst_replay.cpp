#include "Builders.h"
#include "CEditedRecording.h"
#include "CReplayedSession.h"
#include "CorvidControl/file/ListFormat.h"
#include "Replays.h"
#include "SessionSteps.h"
#include "TestMain.h"
#include "nodes/SProcessorAllNode.h"

#include <memory>

namespace {

constexpr int nShortWait = 1000; ///< for what does not come

/// A list to import.
class CImportFile
{
public:
    CImportFile()
    {
        QFile file(GetPath());
        file.open(QIODevice::WriteOnly);
        file.write(ListFormat::Write(Root({ Group("Attic", { Processor("imported").Ip("10.0.0.9") }) })));
    }

    QString GetPath() const
    {
        return folder.filePath("in.kvtl");
    }

    QTemporaryDir folder;
};

/// By the pseudonyms of the rows: alpha is clicked, or beta, and a group added.
std::vector<SSessionStep> MaskedSession(const CRecordedRun& run, bool bAlpha)
{
    const auto it
        = std::find_if(run.GetLines().begin(), run.GetLines().end(), [](const SRecordedLine& line) { return line.pTree; });
    const QList<SProcessorNode> listProcessor = it->pTree->listGroup.first().listProcessor;
    const QString strRow = listProcessor.at(bAlpha ? 0 : 1).strName;
    return { { strRow, [strRow](CPanelSession& session) { session.Click(strRow); } },
             { {}, [](CPanelSession& session) { session.PressButton("Add group"); } } };
}

/// What another panel would have called, and what the replay says of this one.
struct SPlanted
{
    const char* szName;
    std::function<void(CEditedRecording&)> fnPlant;
    const char* szRecorded; ///< operation; empty for none
    const char* szMade;     ///< the same
    const char* szSentence; ///< a part of it
};

int FindStep(const CEditedRecording& recording, int nStep)
{
    int nAt = recording.Find("step");
    while (recording.listLine[nAt]["step"].toInt() != nStep) {
        nAt = recording.Find("step", nAt + 1);
    }
    return nAt;
}

void ShiftBefore(CEditedRecording& recording, const QString& strLater, const QString& strEarlier)
{
    const double dNumber = recording.listLine[recording.Find(strEarlier)]["n"].toDouble();
    recording.listLine[recording.Find(strLater)]["n"] = dNumber - 1;
}

/// The panel is not told of the last step, although it refreshed in the recording.
void RemoveLastMessages(CEditedRecording& recording)
{
    const double dLast = recording.listLine[recording.FindLast("AddGroup")]["n"].toDouble();
    const auto isLast = [&](const QJsonObject& line) { return line["kind"] == "message" && line["n"].toDouble() > dLast; };
    recording.listLine.erase(std::remove_if(recording.listLine.begin(), recording.listLine.end(), isLast),
                             recording.listLine.end());
}

QList<SPlanted> PlantedCommands()
{
    return {
        { "another argument",
          [](CEditedRecording& recording) {
              QJsonObject& line = recording.listLine[recording.Find("AddGroup")];
              line["args"] = QJsonArray{ line["args"].toArray()[0], false };
          },
          "AddGroup", "AddGroup", "where the recording has" },
        { "a command is missing",
          [](CEditedRecording& recording) {
              QJsonObject line = recording.listLine[recording.Find("AddGroup")];
              line["n"] = line["n"].toDouble() - 1;
              line["operation"] = "RenameGroup";
              recording.listLine.append(line);
          },
          "RenameGroup", "AddGroup", "without, or before, RenameGroup" },
        { "an additional command", [](CEditedRecording& recording) { recording.listLine.removeAt(recording.Find("AddGroup")); },
          "SetSelectedNodes", "AddGroup", "where the recording has" },
        { "another order", [](CEditedRecording& recording) { ShiftBefore(recording, "AddGroup", "GetNextGroupIndex"); },
          "AddGroup", "GetNextGroupIndex", "without, or before, AddGroup" },
        { "another thread",
          [](CEditedRecording& recording) { recording.listLine[recording.Find("AddGroup")]["thread"] = "pool-9"; }, "AddGroup",
          "AddGroup", "has it on the thread pool" },
        { "a command of a job",
          [](CEditedRecording& recording) {
              QJsonObject line = recording.listLine[recording.Find("PostMessage")];
              line["n"] = line["n"].toDouble() - 1;
              recording.listLine.append(line);
          },
          "PostMessage", "SetBusy", "where the recording has" },
    };
}

QList<SPlanted> PlantedSelections()
{
    return {
        { "a selection with another id",
          [](CEditedRecording& recording) {
              QJsonObject& line = recording.listLine[recording.Find("SetSelectedNodes", FindStep(recording, 1))];
              QJsonArray ids = line["args"].toArray()[0].toArray();
              ids.append(ids[0]);
              line["args"] = QJsonArray{ ids };
          },
          "SetSelectedNodes", "SetSelectedNodes", "where the recording has" },
        { "a selection in another order",
          [](CEditedRecording& recording) {
              QJsonObject& line = recording.listLine[recording.Find("SetSelectedNodes", FindStep(recording, 1))];
              const QJsonArray ids = line["args"].toArray()[0].toArray();
              line["args"] = QJsonArray{ QJsonArray{ ids[1], ids[0] } };
          },
          "SetSelectedNodes", "SetSelectedNodes", "where the recording has" },
    };
}

QList<SPlanted> PlantedRefreshes()
{
    return {
        { "a refresh that reads in another order",
          [](CEditedRecording& recording) {
              QJsonObject& line = recording.listLine[recording.FindLast("GetSimulatorTree")];
              QJsonObject& lineNext = recording.listLine[recording.FindLast("IsListLocked")];
              const QJsonValue number = line["n"];
              line["n"] = lineNext["n"];
              lineNext["n"] = number;
          },
          "IsListLocked", "GetSimulatorTree", "where the recording has" },
        { "a refresh that reads more",
          [](CEditedRecording& recording) {
              QJsonObject line = recording.listLine[recording.FindLast("IsChiefMode")];
              line["n"] = line["n"].toDouble() + 1;
              recording.listLine.append(line);
          },
          "IsChiefMode", "IsSimulatorPane", "where the recording has" },
        { "the last refresh is missing", RemoveLastMessages, "GetDiscoveredTree", "", "did not call GetDiscoveredTree()" },
    };
}

QList<SPlanted> Planted()
{
    return PlantedCommands() + PlantedSelections() + PlantedRefreshes();
}

} // namespace

/// What was recorded of a panel, played to another one.
class CReplayTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        pShort = std::make_unique<CRecordedSession>(SSessionPlan{ SessionSteps::Short() });
    }

    void selectionsPlayAsRecorded()
    {
        const std::vector<SSessionStep> vecStep = SessionSteps::Selections();
        const CRecordedSession recorded({ vecStep });
        const CRecordedRun run = Replays::Read(recorded);
        QVERIFY2(run.IsWhole() && run.HasEnd(), qPrintable(run.GetReason()));

        CReplayedSession replayed;
        replayed.Play(run, vecStep);

        QCOMPARE(replayed.GetFault(), QString());
        QCOMPARE(replayed.GetText(), recorded.GetText());
    }

    void aWholeSessionPlaysAsRecorded()
    {
        const CImportFile file;
        const std::vector<SSessionStep> vecStep = SessionSteps::All(file.GetPath());
        const auto play = [&] {
            const CRecordedSession recorded({ vecStep, SessionSteps::Storm() });
            return Replays::Play(Replays::Read(recorded), vecStep, recorded);
        };

        QCOMPARE(Replays::FindFault(play), QString());
    }

    void whatAnotherPanelCalledIsFound_data()
    {
        QTest::addColumn<int>("nPlanted");
        for (int n = 0; n < listPlanted.size(); ++n) {
            QTest::newRow(listPlanted[n].szName) << n;
        }
    }

    void whatAnotherPanelCalledIsFound()
    {
        QFETCH(int, nPlanted);
        const SPlanted& planted = listPlanted[nPlanted];
        const std::vector<SSessionStep> vecStep = SessionSteps::Short();
        CEditedRecording edited(pShort->GetFolder());
        planted.fnPlant(edited);

        CReplayedSession replayed;
        replayed.nMostWait = *planted.szMade ? replayed.nMostWait : nShortWait;
        replayed.Play(edited.Read(), vecStep);

        QCOMPARE(replayed.GetDifferences().size(), size_t(1));
        const SReplayDifference difference = replayed.GetDifferences().front();
        QCOMPARE(difference.recorded ? difference.recorded->strOperation : QString(), QString(planted.szRecorded));
        QCOMPARE(difference.made ? difference.made->strOperation : QString(), QString(planted.szMade));
        QVERIFY2(difference.strText.contains(planted.szSentence), qPrintable(difference.strText));
        QVERIFY(replayed.GetText().contains("alpha")); // and it goes on
    }

    // What was read before may be handed back unasked, which is excused; what the user selects is not.
    void aClickThatSelectsNothingIsFound()
    {
        const auto click = [](Qt::KeyboardModifiers modifiers, const QString& strName) {
            return SSessionStep{ strName, [=](CPanelSession& session) { session.Click(strName, modifiers); } };
        };
        std::vector<SSessionStep> vecStep{ click({}, "alpha"), click(Qt::ControlModifier, "beta"), click({}, "loose") };
        const CRecordedSession recorded({ vecStep });
        const CRecordedRun run = Replays::Read(recorded);
        vecStep.back().fnDo = [](CPanelSession&) { };

        CReplayedSession replayed;
        replayed.nMostWait = nShortWait;
        replayed.Play(run, vecStep);

        QVERIFY2(replayed.GetFault().startsWith("The panel did not call SetSelectedNodes"), qPrintable(replayed.GetFault()));
    }

    void anUnchangedRecordingHasNoDifference()
    {
        CReplayedSession replayed;
        replayed.Play(CEditedRecording(pShort->GetFolder()).Read(), SessionSteps::Short());

        QCOMPARE(replayed.GetFault(), QString());
        QVERIFY(replayed.GetText().contains("Group 1"));
    }

    void aRunWithoutItsFirstFilesPlays()
    {
        const CImportFile file;
        const std::vector<SSessionStep> vecStep = SessionSteps::All(file.GetPath());
        const CRecordedSession recorded({ vecStep, {}, false, 8192 });
        for (const int nGone : { 1, 3, 1 }) { // up to the middle of a dialog
            recorded.RemoveFirstFiles(nGone);
            const CRecordedRun run = Replays::Read(recorded);
            QVERIFY(!run.HasBeginning() && run.HasEnd());

            CReplayedSession replayed;
            replayed.Play(run, vecStep);

            QCOMPARE(replayed.GetFault(), QString());
            QCOMPARE(replayed.GetText(), recorded.GetText());
        }
    }

    void aRunThatBeginsInTheOtherPanePlays()
    {
        const std::vector<SSessionStep> vecStep = SessionSteps::InTheOtherPane();
        const CRecordedSession recorded({ vecStep, {}, false, 4096 });
        int nSimulators = 0;
        const auto count = [&](const CRecordedRun& run) { nSimulators += CReplayedSession::BeginsWithSimulators(run) ? 1 : 0; };

        QCOMPARE(Replays::PlayWithoutFirstFiles(recorded, vecStep, count), QString());
        QVERIFY(nSimulators > 0);
    }

    void aMaskedRecordingPlays()
    {
        const CRecordedSession recorded(
            { { SessionSteps::Click("alpha"), { "loose", [](CPanelSession& session) { session.PressButton("Add group"); } } },
              {},
              true });
        const CRecordedRun run = Replays::Read(recorded);
        QVERIFY(run.IsMasked());

        CReplayedSession replayed;
        replayed.Play(run, MaskedSession(run, true));
        QCOMPARE(replayed.GetFault(), QString());

        CReplayedSession other;
        other.Play(run, MaskedSession(run, false));
        QVERIFY2(other.GetFault().contains("SetSelectedNodes"), qPrintable(other.GetFault()));
    }

private:
    const QList<SPlanted> listPlanted = Planted();
    std::unique_ptr<CRecordedSession> pShort;
};

PTV_TEST_MAIN(CReplayTest)
#include "tst_replay.moc"
