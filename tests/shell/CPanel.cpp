#include "CPanel.h"

#include "interfaces/host/IUIManagement.h"
#include "interfaces/host/ProcessorTreeViewInit.h"
#include "interfaces/widgets/CSearchBox.h"
#include "shell/CProcessorTreeView.h"
#include "toolbar/CProcessorTreeToolBar.h"
#include "tree/CProcessorTree.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedLayout>
#include <QToolButton>
#include <QtTest>

namespace {

constexpr int nRepeatMilliseconds = 250;

class CHost final : public IUIManagement
{
public:
    explicit CHost(QWidget* pParentIn) : pParent(pParentIn) { }

    QWidget* GetParentWidget() override
    {
        return pParent;
    }

private:
    QWidget* pParent;
};

QPushButton* FindTab(const QWidget* pView, const QString& strPosition)
{
    const auto listTab = pView->findChildren<QPushButton*>(QStringLiteral("Tab"));
    const auto it = std::find_if(listTab.cbegin(), listTab.cend(),
                                 [&](const QPushButton* pTab) { return pTab->property("Position").toString() == strPosition; });
    return it == listTab.cend() ? nullptr : *it;
}

} // namespace

CPanel::CPanel(const FnAnswers& fnAnswers)
{
    if (fnAnswers) {
        control.Set(fnAnswers);
    }
    CHost management(&host);
    CProcessorTreeView_Init(&pWidget, &management);
    auto* pLayout = new QVBoxLayout(&host);
    pLayout->addWidget(View());
    host.resize(320, 600);
    host.show();
    QCoreApplication::processEvents();
}

CPanel::~CPanel()
{
    Delete();
}

void CPanel::Refresh(int nMessage)
{
    RefreshStore(nMessage);
    QCoreApplication::processEvents();
}

void CPanel::Refresh(const FnAnswers& fnAnswers)
{
    control.Set(fnAnswers);
    Refresh();
}

void CPanel::RefreshStore(int nMessage)
{
    // The last thing that a refresh reads; it holds the store's lock from there to its end. A message
    // may come to lie in the worker's queue until the next one, hence the repetition.
    const QString strLastRead = QStringLiteral("g_pRuntimeControl.IsSimulatorPane");
    const int nBefore = control.CallCount(strLastRead);
    QDeadlineTimer deadline(10000);
    do {
        control.Raise(nMessage);
    } while (!control.WaitForCall(strLastRead, nBefore + 1, nRepeatMilliseconds) && !deadline.hasExpired());
    g_pProcessorTreeData->IsSimulatorPane();
}

void CPanel::Delete()
{
    delete pWidget;
    pWidget = nullptr;
}

CProcessorTreeView* CPanel::View() const
{
    return static_cast<CProcessorTreeView*>(pWidget->GetWidget());
}

QPushButton* CPanel::DiscoveredTab() const
{
    return FindTab(View(), QStringLiteral("first"));
}

QPushButton* CPanel::SimulatorTab() const
{
    return FindTab(View(), QStringLiteral("middle"));
}

QToolButton* CPanel::RefreshButton() const
{
    return View()->findChild<QToolButton*>(QStringLiteral("IconButtonTitle"));
}

QToolButton* CPanel::CloseSearchButton() const
{
    return View()->findChild<QToolButton*>(QStringLiteral("CloseSearchBox"));
}

CProcessorTree* CPanel::Tree(bool bSimulator) const
{
    return static_cast<CProcessorTree*>(Stack()->widget(bSimulator ? 1 : 0));
}

QStackedLayout* CPanel::Stack() const
{
    return View()->findChild<QStackedLayout*>();
}

CProcessorTreeToolBar* CPanel::ToolBar() const
{
    return View()->findChild<CProcessorTreeToolBar*>();
}

QToolButton* CPanel::ToolButton(const QString& strToolTip) const
{
    const auto listButton = ToolBar()->findChildren<QToolButton*>();
    for (QToolButton* pButton : listButton) {
        if (pButton->toolTip() == strToolTip) {
            return pButton;
        }
    }
    return nullptr;
}

QAction* CPanel::MenuAction(const QString& strText) const
{
    const auto listAction = ToolBar()->findChildren<QAction*>();
    for (QAction* pAction : listAction) {
        if (pAction->text() == strText) {
            return pAction;
        }
    }
    return nullptr;
}

CSearchBox* CPanel::SearchBox() const
{
    return View()->findChild<CSearchBox*>();
}

QLineEdit* CPanel::SearchEdit() const
{
    return SearchBox()->findChild<QLineEdit*>();
}

void CPanel::Click(QWidget* pTarget) const
{
    QTest::mouseClick(pTarget, Qt::LeftButton);
}
