#pragma once

#include "CFreshStore.h"
#include "double/CControlDouble.h"

#include <QWidget>

#include <functional>

class CProcessorTree;
class CProcessorTreeToolBar;
class CProcessorTreeView;
class CSearchBox;
class ICorvidWidget;
class QAction;
class QLineEdit;
class QPushButton;
class QStackedLayout;
class QToolButton;

/// The panel as a host has it: created by the entry point in a window that is shown, with the doubled
/// control library behind it and a store of its own.
class CPanel
{
public:
    using FnAnswers = std::function<void(SControlAnswers&)>;

    /// fnAnswers sets what the control library answers. Nothing is read from it until Refresh().
    explicit CPanel(const FnAnswers& fnAnswers = FnAnswers());
    ~CPanel();
    Q_DISABLE_COPY(CPanel)

    /// Lets the control library raise a message and returns when the snapshot is fresh and shown.
    void Refresh(int nMessage = 1);

    /// As Refresh, with other answers.
    void Refresh(const FnAnswers& fnAnswers);

    /// Lets the worker refresh the store, and holds back what the store told to the panel until the
    /// event loop runs.
    void RefreshStore(int nMessage = 1);

    /// Ends the panel as the host does. The control library stays.
    void Delete();

    CProcessorTreeView* View() const;
    QPushButton* DiscoveredTab() const;
    QPushButton* SimulatorTab() const;
    QToolButton* RefreshButton() const;
    QToolButton* CloseSearchButton() const;
    CProcessorTree* Tree(bool bSimulator = false) const;
    QStackedLayout* Stack() const;
    CProcessorTreeToolBar* ToolBar() const;
    QToolButton* ToolButton(const QString& strToolTip) const;
    QAction* MenuAction(const QString& strText) const;
    CSearchBox* SearchBox() const;
    QLineEdit* SearchEdit() const;

    void Click(QWidget* pWidget) const;

    CFreshStore store;
    CControlDouble control;
    QWidget host;
    ICorvidWidget* pWidget = nullptr;
};
