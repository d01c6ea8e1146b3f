#pragma once

#include "Kestrel/status/SPanelCounts.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

class QTreeView;

/// Follows what is selected and what a search has found in the panel, and counts it once a turn of the event loop.
/// GUI thread.
class CPanelCounts : public QObject
{
    Q_OBJECT

public:
    /// pPanelIn may end before.
    explicit CPanelCounts(QWidget* pPanelIn);

    /// As last counted.
    const SPanelCounts& GetCounts() const;

signals:
    void Counted();

private:
    void Follow(QTreeView* pTree);
    void CountSoon();
    void Count();

    QPointer<QWidget> pPanel;
    SPanelCounts counts;
    bool bPosted = false;
};
