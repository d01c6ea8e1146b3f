#pragma once

#include "interfaces/host/ICorvidWidget.h"

#include <QVariant>
#include <QWidget>

#include <atomic>

class CAddCommands;
class CListFileCommands;
class CProcessorTree;
class CProcessorTreeThread;
class CProcessorTreeToolBar;
class CSearchBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QStackedLayout;
class QThread;
class QToolButton;

/// The panel: the header with the tabs of the two panes, their trees, the search row and the tool bar.
/// Holds no data: it passes what the store announces to its children, and what the user commands to the
/// control library. The store knows which pane is current and is asked each time.
///
/// The tree that is raised, that of the pane which the user has chosen last, is the panel's focus proxy: it has the
/// keys after a click on a part of the panel that takes no focus itself, such as a button of the tool bar. A pane
/// that the library changes raises no tree and leaves the keys where they are.
///
/// GUI thread, except for the signals where they say so. Slow operations run on other threads, between
/// SetBusy(true) and SetBusy(false) of the control library, and nothing waits for them: the owner must not
/// delete the panel while one runs. The destructor waits only for a refresh of the store, without a limit,
/// and then saves the list.
class CProcessorTreeView : public QWidget, public ICorvidWidget
{
    Q_OBJECT
    Q_INTERFACES(ICorvidWidget)

public:
    /// parent must not be null: its style sheet is copied.
    explicit CProcessorTreeView(QWidget* parent);
    ~CProcessorTreeView() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

public:
    // In the order of their slots behind those of QWidget, which is part of the contract with the host and
    // differs from that of the interface.
    QWidget* GetWidgetAlias1() override;
    QWidget* GetWidgetAlias2() override;
    void UpdateWidget() override;
    QWidget* GetWidget() override;

    /// Carries out a command of the tool bar, an EnToolBarButton, whether or not it is enabled there;
    /// every other number does nothing.
    void DealToolBarButton(int id);

public slots:
    /// Asks for a repaint.
    void Update();

    /// Updates which commands of the tool bar are enabled.
    void UpdateTreeToolbar();

    /// A command of the host's menu bar, for the tree of the current pane.
    void DealMenuBar(int id, QVariant value);

signals:
    /// For the host: a command may have moved the selection. GUI thread, but after adding a processor
    /// the thread of that job.
    void NodeSelectChanged();

    /// The scan for processors is done. Emitted on a thread of the pool.
    void RefreshEnable();

    /// The scan behind an import is done. Emitted on a thread of the pool, while still busy.
    void ImportFinished();

private:
    void InitMember();
    void InitWidget();
    void InitLayout();
    void SetConnection();
    void ConnectStore();
    void ConnectWidgets();
    void UpdateText();
    void StartWorker();
    void StopWorker();

    CProcessorTree* GetCurrentTree() const;
    void DealButtonChanged();
    void DealNodeSelectChanged();
    void UpdateWindowTitle();
    void SwitchPane(int nPane);
    void CloseSearch();
    void StartRefresh();
    void FinishRefresh();
    CAddCommands AddCommands();
    CListFileCommands ListFileCommands();
    void Add();
    void DeleteNodes();
    void ShowSearch();

    QLabel* pHeader = nullptr;
    QPushButton* pDiscoveredTab = nullptr;
    QPushButton* pSimulatorTab = nullptr;
    QToolButton* pRefreshButton = nullptr;
    CProcessorTree* pDiscoveredTree = nullptr;
    CProcessorTree* pSimulatorTree = nullptr;
    CProcessorTreeToolBar* pToolBar = nullptr;
    CSearchBox* pSearchBox = nullptr;
    QToolButton* pCloseSearchButton = nullptr;
    QHBoxLayout* pSearchLayout = nullptr;
    QStackedLayout* pStackedLayout = nullptr; ///< the trees; shows both, the current one above
    QThread* pThread = nullptr;
    CProcessorTreeThread* pWorker = nullptr; ///< lives in pThread and dies with it
    std::atomic<bool> bRefreshing{ false };  ///< a scan for processors runs
};
