#pragma once

#include "Kestrel/replay/CGesturePlayer.h"
#include "Kestrel/replay/CScreenFollower.h"
#include "Kestrel/replay/SReplayResult.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class CReplayLibrary;
class CReplayPictures;
class CReplaySource;
class QMainWindow;
struct SKestrelOptions;
struct SReplayDifference;

/// Goes through a recorded run in the order in which things began: it delivers the messages, plays the gestures and takes the
/// pictures, each when the panel has made the calls that were made before it. GUI thread.
class CReplayWalk : public QObject
{
    Q_OBJECT

public:
    /// All but the options must outlive it.
    CReplayWalk(QMainWindow& windowIn, CReplayLibrary& libraryIn, const CReplaySource& sourceIn, CReplayPictures& picturesIn,
                const SKestrelOptions& options);

    /// The window is shown.
    void Start();

    /// The window with its panel has gone.
    SReplayResult Finish();

    /// Why the list could not be saved where the user was asked about it next; empty when he was not, or the walk is over.
    QString GetSaveReason() const;

signals:
    /// The last line is done, or a call differs and no picture is to come: the window may go.
    void Done();

private:
    void BeginInTheMiddle();
    void Step();
    const SRecordedLine* FindLine();
    const SRecordedLine* FindEntry() const;
    bool IsDue(const SRecordedLine* pLine) const;
    bool HasCaughtUp(quint64 nNumber);
    bool IsClear(const SRecordedLine& line);
    void Do(const SRecordedLine& line);
    void DoUser(const SRecordedLine& line, bool bDouble);
    void SetSettle(const SRecordedLine& line);
    void End();
    void TakeDifference(const SReplayDifference& difference);
    bool IsDouble() const;
    bool IsMessageNext() const;
    bool IsLoose() const;
    qint64 GetPatience(const SRecordedLine& line) const;
    quint64 GetLastNumber() const;
    QString GetTime(const SRecordedLine& line) const;

    CReplayLibrary& library;
    const CReplaySource& source;
    CReplayPictures& pictures;
    const bool bReal;
    CScreenFollower follower;
    CGesturePlayer player;
    SReplayResult result;
    QTimer timer;
    QElapsedTimer timeStarted; ///< of the walk
    QElapsedTimer timeWaited;  ///< for the panel to come to this line
    QElapsedTimer timeReady;   ///< since it has; invalid before
    QString strObstacle;       ///< what stands in the way of this line
    int nNext;                 ///< the line to do
    qint64 nSettle = 0;        ///< milliseconds that the panel takes to show what came since the last gesture
};
