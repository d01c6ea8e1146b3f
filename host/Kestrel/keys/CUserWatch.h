#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QTimer>

class IControlHost;
class QDrag;
class QDropEvent;

/// Watches what the user is in the middle of, in all windows of the program, and reports it to the control
/// library, which holds its messages back meanwhile. Only looks: no event is kept from anybody. GUI thread.
class CUserWatch : public QObject
{
    Q_OBJECT

public:
    /// controlHost must outlive it.
    explicit CUserWatch(IControlHost& controlHost);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    // What is reported to the library, at the same moment.

    void EditingChanged(bool bOn); ///< an editor of a row has opened or closed
    void ActingChanged(bool bOn);  ///< a mouse button, a drag or a menu
    void InputNoted();             ///< a key, a button, the wheel, a drop

private:
    void WatchEditor(QObject* pWatched, QEvent::Type type);
    void SetEditor(QObject* pNew);
    void LoseEditor(QObject* pLost);
    void CheckFocus();
    void WatchDrag(const QEvent* event);
    void FollowDrag(const QDropEvent* event);
    void UpdateActing();

    QObject* pEditor = nullptr; ///< of the row that is being edited; never looked into
    bool bDragHere = false;     ///< a drag is over one of our windows, whoever began it
    QPointer<QDrag> pDrag;      ///< one that began here, wherever it is
    bool bActing = false;
    QTimer timer; ///< looks again while the user acts
};
