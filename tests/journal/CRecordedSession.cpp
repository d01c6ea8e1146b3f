#include "CRecordedSession.h"

#include "Builders.h"
#include "CQuiet.h"
#include "CorvidControl/file/ListFormat.h"
#include "CorvidControl/objects/CControlHost.h"
#include "TestMain.h"
#include "controlhost/CJobs.h"
#include "journal/CControlJournal.h"
#include "journal/guard/CGuiGuard.h"
#include "journal/recording/CJournalRecorder.h"
#include "journal/recording/CJournalRing.h"

#include <QThreadPool>

namespace {

SProcessorAllNode Site()
{
    return Root(
        { Group("Stage", { Processor("alpha").Ip("10.0.0.1").Expanded(false), Processor("beta").Ip("10.0.0.2").Expanded(false) }),
          Group("Hall") },
        { Processor("loose").Ip("10.0.0.3").Expanded(false), Processor("other").Ip("10.0.0.4").Expanded(false) });
}

void WriteFile(const QString& strPath, const QByteArray& bytes)
{
    QFile file(strPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

std::unique_ptr<CControlHost> StartLibrary(const QTemporaryDir& folder, const QByteArray& scenario)
{
    SControlOptions options;
    options.strListFile = folder.filePath("list.kvtl");
    options.bQuietDay = false;
    options.nScanMs = 20;
    options.nAnswerMs = 10;
    options.nReleaseMs = 5;
    WriteFile(options.strListFile, ListFormat::Write(Site()));
    if (!scenario.isEmpty()) {
        options.strScenarioFile = folder.filePath("day.json");
        WriteFile(options.strScenarioFile, scenario);
    }
    return CControlHost::Start(options);
}

// An answer to a dialog is the step -1.
void NoteStep(ICallRecorder& recorder, int nStep)
{
    SJournalRecord record;
    record.line = LineUser;
    record.szObject = "User";
    record.szOperation = nStep < 0 ? "answer" : "step";
    record.vecField = { { "step", qint64(nStep) } };
    recorder.Write(std::move(record));
}

/// The journal of a run, put together as Kestrel does.
struct SRunJournal
{
    explicit SRunJournal(const SSessionPlan& plan) : writer(SRecordingLimits{ 16, plan.nFileBytes, 16384 }) { }

    CJournalWriter writer;
    CJournalRecorder recorder{ writer };
    CGuiGuard guard{ recorder };
    CCallLog log{ 64 };
    CJobs jobs;
};

// What the worker has read may take from a step what it needs.
bool IsReadyAtRest(const SSessionStep& step, const CPanelSession& session)
{
    if (!step.IsReady(session)) {
        return false;
    }
    CPanelSession::Settle();
    return step.IsReady(session);
}

} // namespace

bool SSessionStep::IsReady(const CPanelSession& session) const
{
    return (strRow.isEmpty() || session.Has(strRow)) && (!fnReady || fnReady(session));
}

CRecordedSession::CRecordedSession(const SSessionPlan& plan)
{
    Record(plan);
}

QString CRecordedSession::GetFolder() const
{
    return folder.filePath("list.kvtl.journal");
}

void CRecordedSession::RemoveFirstFiles(int nCount) const
{
    const QStringList listFile = CJournalRing::GetFiles(GetFolder());
    for (const QString& strFile : listFile.mid(0, nCount)) {
        QVERIFY2(QFile::remove(strFile), qPrintable(strFile));
    }
}

QString CRecordedSession::GetText() const
{
    return strText;
}

void CRecordedSession::Record(const SSessionPlan& plan)
{
    SRunJournal run(plan);
    run.log.SetRecorder(&run.guard);
    const std::unique_ptr<CControlHost> pHost = StartLibrary(folder, plan.scenario);
    bool bFinished = plan.scenario.isEmpty();
    QObject::connect(pHost.get(), &CControlHost::ScenarioFinished, pHost.get(), [&] { bFinished = true; }, Qt::QueuedConnection);
    run.writer.Open(GetFolder(), { { "format", qint64(1) }, { "run", QUuid::createUuid() } }, plan.bMask);
    const CControlJournal journal(SControlPointers::Linked(), run.log, run.jobs, [](int) { return QString(); });
    CPanelSession session;
    session.fnBeforeAnswer = [&] { NoteStep(run.guard, -1); };
    pHost->StartLife();
    CQuiet quiet([&] { return run.log.GetLastNumber(); });
    for (std::size_t n = 0; n < plan.vecStep.size(); ++n) {
        const SSessionStep& step = plan.vecStep[n];
        // Without a scenario no refresh is on its way, either, that would undo the step.
        const auto isReady = [&] { return IsReadyAtRest(step, session) && (!plan.scenario.isEmpty() || quiet.Is()); };
        QVERIFY2(QTest::qWaitFor(isReady, nPatience), qPrintable(step.strRow));
        NoteStep(run.guard, static_cast<int>(n));
        step.fnDo(session);
        QTRY_VERIFY(!run.jobs.IsBusy());
    }
    QTRY_VERIFY(session.driver.IsDone() && bFinished && QThreadPool::globalInstance()->activeThreadCount() == 0);
    QTRY_VERIFY(quiet.Is());
    strText = session.GetText();
    session.Delete();
}
