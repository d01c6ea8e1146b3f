#pragma once

#include "live/CQueueWatch.h"

#include <QObject>
#include <QWidget>

#include <vector>

class CBaseThread;
class ICorvidWidget;
class QTreeView;

/// The panel in a window of its own, over the control objects that are published as it is made and must outlive it. GUI thread.
class CLivePanel : public QObject
{
public:
    CLivePanel();
    ~CLivePanel() override;

    /// Whether rows, snapshot and selection are those that the library has now, and the rows have been painted since they
    /// changed.
    bool ShowsLibrary() const;

    /// Waits until all that was raised has been delivered, read and shown, and nothing has come of it. False when that takes too
    /// long.
    bool Settle();

    /// Whether tree, snapshot and library all have just these nodes selected in the current pane, in any order.
    bool HasSelected(const std::vector<QUuid>& vecId) const;

    /// The tree of the current pane.
    QTreeView* GetTree() const;

    CQueueWatch watch; ///< of the panel's worker

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Create();
    bool Flush();

    QWidget window;
    ICorvidWidget* pPanel = nullptr;
    int nMark = 1000;       ///< a number that means nothing to anybody
    bool bUnpainted = true; ///< the rows have changed and were not painted yet
};
