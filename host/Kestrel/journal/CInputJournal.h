#pragma once

#include "journal/recording/SJournalRecord.h"

#include <QEvent>
#include <QObject>
#include <QPoint>

class ICallRecorder;
class QInputEvent;
class QKeyEvent;
class QWidget;
class QWindow;

/// Records the user's keys, mouse and drags in all windows of the program: each once, at the window that it reached, with
/// the widget and the row of the panel or entry of the menu that it was meant for. Only looks. GUI thread.
class CInputJournal : public QObject
{
    Q_OBJECT

public:
    /// recorderIn must outlive it. bMaskIn: what is typed is not given away by the keys.
    CInputJournal(ICallRecorder& recorderIn, bool bMaskIn);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Where an event came in, for its lines.
    struct STarget
    {
        QWidget* pWindow = nullptr; ///< that the position counts from
        QPoint pos;
        QWidget* pWidget = nullptr; ///< that it is meant for
    };

    bool IsNew(const QObject* pWatched, const QInputEvent& event);
    void WriteKey(const char* szDo, QObject* pWatched, const QKeyEvent& event);
    void WriteMouse(const char* szDo, QObject* pWatched, QEvent* event);
    void WriteWheel(QObject* pWatched, QEvent* event);
    void WriteDrag(const char* szDo, QObject* pWatched, QEvent* event);
    void WriteDragLeft(QObject* pWatched);
    void WriteShortcut(QObject* pWatched, QEvent* event);
    void WriteContextMenu(QObject* pWatched, QEvent* event);
    void WriteComposed(QObject* pWatched, QEvent* event);
    void WriteActive(QWindow* pActive);
    void HandleInput(QObject* pWatched, QEvent* event);
    static STarget FindTarget(QObject* pWatched, const QPoint& pos);
    static std::vector<SJournalField> GetFields(const STarget& target);
    static std::vector<SJournalField> GetKeyFields(const STarget& target);

    ICallRecorder& recorder;
    const bool bMask;
    QEvent::Type lastType = QEvent::None; ///< of the last input that was recorded
    ulong nLastTime = 0;                  ///< of it
    bool bLastAtWindow = false;           ///< it was recorded at its window, which hands it on
};
