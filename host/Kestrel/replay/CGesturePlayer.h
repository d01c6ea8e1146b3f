#pragma once

#include "Kestrel/replay/SGesturePlace.h"
#include "Kestrel/replay/WindowInput.h"

#include <QObject>

#include <functional>

class CScreenFollower;
class QAction;
class QMainWindow;
struct SRecordedLine;

/// Does once more what a user did, in the windows of this program: keys, mouse, drags, shortcuts are put in where a window
/// system would. GUI thread.
class CGesturePlayer : public QObject
{
    Q_OBJECT

public:
    /// The node of today for one of the recording.
    using FnNode = std::function<QUuid(const QUuid&)>;

    /// Both must outlive it. Nothing may have been dragged yet.
    CGesturePlayer(QMainWindow& windowIn, CScreenFollower& followerIn, const FnNode& fnNodeIn);

    /// Whether lines of that operation are gestures; what else a user's line says is for a CScreenFollower.
    static bool IsFor(const SRecordedLine& line);

    /// line is the first gesture of a run without its beginning: its window and target have the keys.
    void Begin(const SRecordedLine& line);

    /// Gives the keys back to the window that had them in the recording: not every platform does when a drag or a menu ends.
    void Prepare() const;

    /// What stands in the way of playing it just now, as a sentence: its window has not come, it would hit another row, ...
    /// Empty when nothing does.
    QString FindObstacle(const SRecordedLine& line) const;

    /// Whether it is a key of a list in which the recorded row is neither current nor selected yet. It may stay so: what a key
    /// acts on is in the calls.
    bool IsRowAwaited(const SRecordedLine& line) const;

    /// Plays it, whatever stands in the way; it is handled by the event loop. bDouble: a press that makes a double click with the
    /// one before. False when it asks for a part of the host that a replay does not have, and was not played.
    bool Play(const SRecordedLine& line, bool bDouble);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void Closing(); ///< the window is about to close, and stands as it did

private:
    /// What is done with the lines of one operation.
    struct SOperation
    {
        QLatin1String strName;
        QString (CGesturePlayer::*fnFind)(const SRecordedLine& line) const;
        void (CGesturePlayer::*fnPlay)(const SRecordedLine& line);
    };
    static const SOperation* FindOperation(const SRecordedLine& line);

    QString FindNothing(const SRecordedLine& line) const;
    QString FindKeyFault(const SRecordedLine& line) const;
    QString FindMouseFault(const SRecordedLine& line) const;
    QString FindDragFault(const SRecordedLine& line) const;
    QString FindShortcutFault(const SRecordedLine& line) const;
    QUuid GetNode(const SRecordedLine& line) const;
    QString GetRowFault(const SRecordedLine& line, const QUuid& idNow) const;

    void PlayKey(const SRecordedLine& line);
    void PlayPress(const SRecordedLine& line);
    void PlayRelease(const SRecordedLine& line);
    void PlayMove(const SRecordedLine& line);
    void PlayNothing(const SRecordedLine& line);
    void PlayWheel(const SRecordedLine& line);
    void PlayDrag(const SRecordedLine& line);
    void PlayDrop(const SRecordedLine& line);
    void PlayShortcut(const SRecordedLine& line);
    void PlayContextMenu(const SRecordedLine& line);
    void PlayComposed(const SRecordedLine& line);
    void PlayActive(const SRecordedLine& line);
    void PlayClose(const SRecordedLine& line);

    QAction* FindAction(const SRecordedLine& line) const;
    void PutMouse(const SRecordedLine& line, const SGesturePlace& place, QEvent::Type type);

    QMainWindow& window;
    CScreenFollower& follower;
    const FnNode fnNode;
    QString strActive;         ///< path of the window that has the keys in the recording
    QPoint posShift;           ///< of the last press: from the recorded position to the played one
    ulong nTime = 0;           ///< of the last event whose own is not recorded
    bool bDoubleClick = false; ///< the press that is played makes a double click
    int nRecordedCloses = 0;   ///< times that the window was to close in the recording
    int nCloses = 0;           ///< the same here
};
