#include "CReplayedSession.h"

#include "TestMain.h"

#include <QThreadPool>

#include <algorithm>
#include <limits>

namespace {

constexpr quint64 nAll = std::numeric_limits<quint64>::max();
constexpr int nAnswer = -1; ///< the step that answers a dialog
constexpr int nNoStep = -2;

/// The eight globals point to the replay while it lives.
class CInstalled
{
public:
    explicit CInstalled(const SControlPointers& pointers)
    {
        g_pConfigControl = *pointers.ppConfig;
        g_pPrcBasicControl = *pointers.ppPrcBasic;
        g_pPrcListControl = *pointers.ppPrcList;
        g_pPrcRuntimeControl = *pointers.ppPrcRuntime;
        g_pPreferenceControl = *pointers.ppPreference;
        g_pProjectManageControl = *pointers.ppProjectManage;
        g_pProtocalControl = *pointers.ppProtocal;
        g_pRuntimeControl = *pointers.ppRuntime;
    }

    ~CInstalled()
    {
        g_pConfigControl = nullptr;
        g_pPrcBasicControl = nullptr;
        g_pPrcListControl = nullptr;
        g_pPrcRuntimeControl = nullptr;
        g_pPreferenceControl = nullptr;
        g_pProjectManageControl = nullptr;
        g_pProtocalControl = nullptr;
        g_pRuntimeControl = nullptr;
    }
    Q_DISABLE_COPY(CInstalled)
};

} // namespace

// It starts behind the last read of a refresh, which asks for the pane.
bool CReplayedSession::BeginsWithSimulators(const CRecordedRun& run)
{
    return !run.HasBeginning() && run.GetLines().at(run.GetFirstPlace() - 1).fields.value("result").toBool();
}

void CReplayedSession::Play(const CRecordedRun& run, const std::vector<SSessionStep>& vecStep)
{
    CReplayLibrary library(run);
    QMutex mutex;
    QObject::connect(
        &library, &CReplayLibrary::Differed, &library,
        [&](const SReplayDifference& difference) {
            const QMutexLocker locker(&mutex);
            vecDifference.push_back(difference);
        },
        Qt::DirectConnection);
    const CInstalled installed(library.GetPointers());
    {
        CPanelSession session;
        SPlay play{ run.GetLines(), vecStep, library, session, run.GetTeardownNumber(), run.GetFirstPlace() };
        session.fnBeforeAnswer = [&] { PlayLines(play, true); };
        if (!run.HasBeginning()) {
            session.ChoosePane(BeginsWithSimulators(run));
            library.ShowFirstState();
        }
        PlayLines(play, false);
        Await(library, run.GetTeardownNumber());
        strText = session.GetText();
        library.Release();
        session.Delete();
    }
    Await(library, nAll);
    QThreadPool::globalInstance()->waitForDone();
    QVERIFY(library.AwaitJobs(std::chrono::milliseconds(nPatience)));
}

// A message may still have come while the panel went. bToAnswer: no further than the answer to the dialog that is open.
void CReplayedSession::PlayLines(SPlay& play, bool bToAnswer)
{
    while (play.nNext < play.vecLine.size() && play.vecLine[play.nNext].nNumber < play.nTeardown) {
        const int nStep = PlayLine(play);
        if (nStep == nAnswer && bToAnswer) {
            return;
        }
        if (nStep >= 0) {
            TakeStep(play, nStep);
        }
    }
}

// Returns the step of the user that is due, or none.
int CReplayedSession::PlayLine(SPlay& play)
{
    const int nAt = play.nNext;
    const SRecordedLine& line = play.vecLine[nAt];
    const bool bUser = line.strKind == "user";
    if (bUser || line.strKind == "message") {
        Await(play.library, line.nNumber);
        if (bUser) {
            CPanelSession::Settle();
        }
        if (play.nNext != nAt) { // a dialog was answered meanwhile
            return nNoStep;
        }
        if (fnBefore) {
            fnBefore(play.library, line);
        }
        play.library.Deliver(line);
    }
    ++play.nNext;
    return bUser ? line.fields.value("step").toInt(nNoStep) : nNoStep;
}

void CReplayedSession::TakeStep(SPlay& play, int nStep)
{
    const SSessionStep& step = play.vecStep[static_cast<std::size_t>(nStep)];
    if (!QTest::qWaitFor([&] { return step.IsReady(play.session) || play.library.HasDiffered(); }, nMostWait)) {
        strUnready = QStringLiteral("step %1 cannot be taken, at %2").arg(nStep).arg(step.strRow);
    } else if (step.IsReady(play.session)) {
        step.fnDo(play.session);
    }
}

// At the user's patience's end what is missing is the difference.
void CReplayedSession::Await(CReplayLibrary& library, quint64 nNumber) const
{
    if (!QTest::qWaitFor([&] { return library.HasCaughtUp(nNumber); }, nMostWait)) {
        library.Miss(nNumber);
    }
}

QString CReplayedSession::GetFault() const
{
    return vecDifference.empty() ? strUnready : vecDifference.front().strText;
}

const std::vector<SReplayDifference>& CReplayedSession::GetDifferences() const
{
    return vecDifference;
}

QString CReplayedSession::GetText() const
{
    return strText;
}
