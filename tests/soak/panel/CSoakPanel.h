#pragma once

#include "CHandClock.h"
#include "CorvidControl/objects/CControlLibrary.h"
#include "controlhost/CJobs.h"
#include "journal/CCallLog.h"
#include "journal/CControlJournal.h"
#include "live/CQueueWatch.h"
#include "panel/CCallRecord.h"
#include "panel/CComplaints.h"
#include "panel/CDialogAnswers.h"
#include "panel/SPanelPicture.h"

#include <QTemporaryDir>
#include <QWidget>

#include <memory>

class CSearchBox;
class ICorvidWidget;
class QStackedLayout;
class QTreeView;

/// The shipped plug-in, loaded by its symbol, over the real control library and behind the decorators that a host puts in
/// between: a list of three groups in a window. Messages go by a clock that stands still but while the panel settles. One at a
/// time; GUI thread.
class CSoakPanel
{
public:
    CSoakPanel();
    ~CSoakPanel();
    Q_DISABLE_COPY(CSoakPanel)

    /// Waits until no job runs and all that was raised has been delivered, read and shown, and nothing has come of it. False
    /// when that takes too long.
    bool Settle();

    /// Raises messages that make the panel read until one has come, then settles and has all rows built anew, as a host may.
    /// False when that takes too long.
    bool Reread();

    /// As it stands; what was rebuilt and complained since the picture before.
    SPanelPicture TakePicture(bool bSettled = true);

    /// What is selected on the screen at this moment, see PanelPicture::GetSeen.
    RowKeys GetSeen() const;

    /// The row with that number in a picture that still holds.
    QModelIndex GetRow(int nRow) const;

    /// The key of a row; of the kind 0 for none.
    static SPictureKey GetKey(const QModelIndex& index);

    bool IsSimulatorShown() const; ///< the pane on the screen
    QTreeView* Tree() const;       ///< of that pane
    QWidget* View() const;
    CSearchBox* SearchBox() const;
    QString GetListPath() const;

    /// A file in the folder of the list, which ends with the panel.
    QString GetPath(const QString& strName) const;

    QTemporaryDir folder;
    CHandClock clock;
    CControlLibrary library;
    CCallRecord record;
    CDialogAnswers dialogs;
    QWidget window;

private:
    SControlOptions Prepare() const;
    void Load();
    void Watch(QTreeView* pTree);
    bool AwaitJobs() const;
    bool Flush();
    void TurnToAlarm();
    QVector<SPictureRow> GetRows() const;

    CComplaints complaints;
    CCallLog log{ 64 };
    CJobs jobs;
    std::unique_ptr<CControlJournal> pJournal;
    CQueueWatch watch;
    ICorvidWidget* pPanel = nullptr;
    const QStackedLayout* pStack = nullptr; ///< of the trees
    QList<QTreeView*> listTree;             ///< Discovered first
    bool bRebuilt = false;
};
