#include "Kestrel/replay/CReplayWalk.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/SKestrelOptions.h"
#include "Kestrel/replay/CReplayPictures.h"
#include "Kestrel/replay/CReplaySource.h"
#include "Kestrel/replay/PlainDrag.h"
#include "Kestrel/replay/ReplayTime.h"
#include "journal/replay/CReplayLibrary.h"

#include <QMainWindow>

#include <algorithm>
#include <limits>

namespace {

constexpr int nStepMs = 1;
constexpr qint64 nCallPatienceMs = 10000;  ///< for a call that is to come
constexpr qint64 nScreenPatienceMs = 3000; ///< for what stands on the screen
constexpr qint64 nRowPatienceMs = 500;     ///< for a row that a drag may scroll to, or a refresh make current
constexpr qint64 nSettleMs = 15;           ///< from the panel's last call to what it shows
constexpr qint64 nLooseMs = 60;            ///< the same behind a difference, when no call is waited for
constexpr qint64 nLoosePatienceMs = 300;   ///< then, for what stands on the screen
constexpr qint64 nSearchMs = 100;          ///< the same after a change of the search, which makes no call
constexpr qint64 nFirstMs = 100;           ///< the same for the first reading of a run without its beginning
constexpr qint64 nMicrosecondsPerMs = 1000;

bool IsUser(const SRecordedLine& line)
{
    return line.strKind == QLatin1String("user");
}

bool IsMessage(const SRecordedLine& line)
{
    return line.strKind == QLatin1String("message");
}

CScreenFollower::SCircumstances GetCircumstances(const CReplaySource& source, const SKestrelOptions& options)
{
    CScreenFollower::SCircumstances circumstances;
    circumstances.bMasked = source.GetRun().IsMasked();
    circumstances.bOtherLanguage
        = !options.strLanguage.isEmpty() && options.strLanguage != source.GetHeaderText(QStringLiteral("language"));
    return circumstances;
}

} // namespace

CReplayWalk::CReplayWalk(QMainWindow& windowIn, CReplayLibrary& libraryIn, const CReplaySource& sourceIn,
                         CReplayPictures& picturesIn, const SKestrelOptions& options)
    : library(libraryIn), source(sourceIn), pictures(picturesIn), bReal(options.bReplayReal),
      follower(windowIn, GetCircumstances(sourceIn, options)),
      player(windowIn, follower, [this](const QUuid& id) { return library.GetPanelId(id); }),
      nNext(sourceIn.GetRun().GetFirstPlace())
{
    Q_ASSERT(GuiThread::IsCurrent());
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this, &CReplayWalk::Step);
    connect(&player, &CGesturePlayer::Closing, this, [this] { pictures.TakeLast(); });
    connect(&library, &CReplayLibrary::Differed, this, &CReplayWalk::TakeDifference, Qt::QueuedConnection);
    const QVector<SRecordedLine>& vecLine = source.GetRun().GetLines();
    result.nCalls = static_cast<int>(std::count_if(
        vecLine.begin() + nNext, vecLine.end(), [](const SRecordedLine& line) { return line.strKind == QLatin1String("call"); }));
}

void CReplayWalk::Start()
{
    timeStarted.start();
    timeWaited.start();
    timer.start(0);
    if (!source.GetRun().HasBeginning()) {
        BeginInTheMiddle();
    }
}

// Window, search and keys as they were.
void CReplayWalk::BeginInTheMiddle()
{
    follower.Begin(source.GetFirstScreen());
    nSettle = nFirstMs;
    const QVector<SRecordedLine>& vecLine = source.GetRun().GetLines();
    const auto it = std::find_if(vecLine.begin() + nNext, vecLine.end(), &CGesturePlayer::IsFor);
    if (it != vecLine.end()) {
        player.Begin(*it);
    }
}

// What the panel calls while it goes is judged when it has gone.
SReplayResult CReplayWalk::Finish()
{
    timer.stop();
    const quint64 nEnd = std::numeric_limits<quint64>::max();
    if (source.GetRun().HasEnd() && result.strCall.isEmpty() && !library.HasCaughtUp(nEnd)) {
        library.Miss(nEnd);
    }
    QCoreApplication::sendPostedEvents(this); // a difference
    return result;
}

QString CReplayWalk::GetSaveReason() const
{
    if (!timer.isActive()) {
        return {}; // it has stopped before it came there, and nobody would answer
    }
    const QVector<SRecordedLine>& vecLine = source.GetRun().GetLines();
    const auto isSave = [](const SRecordedLine& line) { return IsUser(line) && line.strOperation == QLatin1String("save"); };
    const auto it = std::find_if(vecLine.begin() + nNext, vecLine.end(), isSave);
    const bool bAsked = it != vecLine.end() && it->fields.value(QLatin1String("asked")).toBool();
    return bAsked ? it->fields.value(QLatin1String("reason")).toString() : QString();
}

// One line a step, from whichever event loop runs: that of a menu, a dialog, a drag.
void CReplayWalk::Step()
{
    timer.start(nStepMs);
    if (!WindowInput::IsTaken()) {
        return;
    }
    const SRecordedLine* pLine = FindLine();
    if (!IsDue(pLine) || !HasCaughtUp(pLine ? pLine->nNumber : GetLastNumber())) {
        return;
    }
    if (pLine ? pictures.IsDue(pLine->date) : pictures.IsDueAtEnd()) {
        pictures.Take();
        timeWaited.restart();
    } else if (!pLine || (IsLoose() && !pictures.IsDueAtEnd())) {
        End();
    } else if (IsClear(*pLine)) {
        Do(*pLine);
    }
}

// The next line that is not a call; null at the end.
const SRecordedLine* CReplayWalk::FindLine()
{
    const QVector<SRecordedLine>& vecLine = source.GetRun().GetLines();
    while (nNext < vecLine.size() && !IsUser(vecLine[nNext]) && !IsMessage(vecLine[nNext])) {
        nSettle = std::max(nSettle, nSettleMs);
        ++nNext;
    }
    return nNext < vecLine.size() ? &vecLine[nNext] : nullptr;
}

// The entry by which the menu that closes next is left; null for none.
const SRecordedLine* CReplayWalk::FindEntry() const
{
    const QVector<SRecordedLine>& vecLine = source.GetRun().GetLines();
    const auto isOther
        = [](const SRecordedLine& line) { return IsUser(line) && line.strOperation != QLatin1String("menu closed"); };
    const auto it = std::find_if(vecLine.begin() + nNext, vecLine.end(), isOther);
    return it != vecLine.end() && it->strOperation == QLatin1String("entry") ? &*it : nullptr;
}

bool CReplayWalk::IsDue(const SRecordedLine* pLine) const
{
    const CRecordedRun& run = source.GetRun();
    const qint64 nFirst = run.GetLines().at(run.GetFirstPlace()).nMicroseconds;
    return !bReal || !pLine || timeStarted.elapsed() >= (pLine->nMicroseconds - nFirst) / nMicrosecondsPerMs;
}

// And has had the time to show what it has read.
bool CReplayWalk::HasCaughtUp(quint64 nNumber)
{
    if (!library.HasCaughtUp(nNumber)) {
        timeReady.invalidate();
        if (timeWaited.hasExpired(nCallPatienceMs)) {
            library.Miss(nNumber);
            timeWaited.restart();
        }
        return false;
    }
    if (!timeReady.isValid()) {
        timeReady.start();
    }
    return IsLoose() ? timeReady.hasExpired(nLooseMs) : IsMessageNext() || timeReady.hasExpired(nSettle);
}

// Whether nothing stands in the way of a gesture, or it has stood there for too long.
bool CReplayWalk::IsClear(const SRecordedLine& line)
{
    player.Prepare();
    follower.ExpectEntry(FindEntry());
    strObstacle = CGesturePlayer::IsFor(line) ? player.FindObstacle(line)
        : CScreenFollower::IsFor(line)        ? follower.FindObstacle(line)
                                              : QString();
    if (strObstacle.isEmpty() && CGesturePlayer::IsFor(line) && player.IsRowAwaited(line)) {
        return timeReady.hasExpired(nRowPatienceMs);
    }
    return strObstacle.isEmpty() || timeReady.hasExpired(GetPatience(line));
}

void CReplayWalk::Do(const SRecordedLine& line)
{
    library.Deliver(line);
    const bool bDouble = IsDouble();
    ++nNext; // before what may run an event loop
    timeWaited.restart();
    timeReady.invalidate();
    if (IsMessage(line)) {
        ++result.nMessages;
        nSettle = std::max(nSettle, nSettleMs);
    } else {
        DoUser(line, bDouble);
        SetSettle(line);
    }
}

// A key that goes up changes nothing.
void CReplayWalk::SetSettle(const SRecordedLine& line)
{
    if (line.strOperation == QLatin1String("search")) {
        nSettle = nSearchMs;
    } else if (!line.strOperation.endsWith(QLatin1String("release"))) {
        nSettle = 0;
    }
}

void CReplayWalk::DoUser(const SRecordedLine& line, bool bDouble)
{
    const bool bGesture = CGesturePlayer::IsFor(line);
    if (!strObstacle.isEmpty()) {
        follower.Scroll();
    }
    const bool bScreen = CScreenFollower::IsFor(line);
    const bool bDone = bGesture ? player.Play(line, bDouble) : bScreen && follower.Follow(line);
    if (!bDone) {
        ++result.nPassedOver;
    } else if (!strObstacle.isEmpty() && line.strOperation != QLatin1String("drag") && !IsLoose()) {
        result.listScreen.append(QStringLiteral("at %1 %2").arg(GetTime(line), strObstacle));
    }
    result.nGestures += bGesture && bDone ? 1 : 0;
}

void CReplayWalk::End()
{
    timer.stop();
    PlainDrag::Cancel(); // the window's own way would ask the platform for it
    emit Done();
}

void CReplayWalk::TakeDifference(const SReplayDifference& difference)
{
    const QVector<SRecordedLine>& vecLine = source.GetRun().GetLines();
    const SRecordedLine& lineNow = vecLine[std::max(nNext - 1, 0)]; // what was done last
    result.strCall = QStringLiteral("at %1 on thread %2: %3")
                         .arg(GetTime(difference.recorded.value_or(lineNow)), difference.strThread, difference.strText);
    result.nCall = difference.recorded.value_or(lineNow).nNumber;
    if (!pictures.IsDueAtEnd()) {
        End();
    }
}

// Behind the first difference lines are played for the pictures alone.
bool CReplayWalk::IsLoose() const
{
    return !result.strCall.isEmpty();
}

qint64 CReplayWalk::GetPatience(const SRecordedLine& line) const
{
    const qint64 nPatienceMs = line.strOperation == QLatin1String("drag") ? nRowPatienceMs : nScreenPatienceMs;
    return IsLoose() ? std::min(nPatienceMs, nLoosePatienceMs) : nPatienceMs;
}

// Whether Qt made a double click of the press that is next.
bool CReplayWalk::IsDouble() const
{
    const QVector<SRecordedLine>& vecLine = source.GetRun().GetLines();
    for (int n = nNext + 1; n < vecLine.size(); ++n) {
        const QString& strDo = vecLine[n].strOperation;
        if (strDo == QLatin1String("press") || strDo == QLatin1String("release") || strDo == QLatin1String("double click")) {
            return strDo == QLatin1String("double click");
        }
    }
    return false;
}

bool CReplayWalk::IsMessageNext() const
{
    const QVector<SRecordedLine>& vecLine = source.GetRun().GetLines();
    return nNext < vecLine.size() && IsMessage(vecLine[nNext]);
}

// Up to it everything is compared before the panel goes.
quint64 CReplayWalk::GetLastNumber() const
{
    const CRecordedRun& run = source.GetRun();
    return std::min(run.GetTeardownNumber(), run.GetLines().constLast().nNumber + 1);
}

QString CReplayWalk::GetTime(const SRecordedLine& line) const
{
    return ReplayTime::GetText(source.GetStart(), line.date);
}
