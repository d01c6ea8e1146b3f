#include "CPanelSession.h"

#include "CMenuDriver.h"
#include "CParentHost.h"
#include "ProcessThreads.h"
#include "TestMain.h"
#include "interfaces/host/ICorvidWidget.h"
#include "interfaces/host/ProcessorTreeViewInit.h"
#include "nodes/SProcessorAllNode.h"
#include "shell/CProcessorTreeView.h"
#include "toolbar/CProcessorTreeToolBar.h"
#include "tree/CProcessorTree.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedLayout>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

#include <linux/futex.h>

namespace {

template <typename Part, typename FnIs> Part* Find(const QWidget* pParent, FnIs fnIs)
{
    const QList<Part*> listPart = pParent->findChildren<Part*>();
    const auto it = std::find_if(listPart.begin(), listPart.end(), fnIs);
    return it == listPart.end() ? nullptr : *it;
}

QUuid FindId(const SProcessorAllNode& node, const QString& strName)
{
    QList<SProcessorNode> listProcessor = node.listProcessor;
    for (const SProcessorGroupNode& group : node.listGroup) {
        if (group.strName == strName) {
            return group.idNode;
        }
        listProcessor += group.listProcessor;
    }
    for (const SProcessorNode& processor : std::as_const(listProcessor)) {
        if (processor.strName == strName) {
            return processor.idNode;
        }
    }
    return {};
}

QString GetNames(const QList<SProcessorNode>& listProcessor, const std::function<QString(const SNode&, const QUuid&)>& fnName)
{
    QStringList listName;
    for (const SProcessorNode& processor : listProcessor) {
        listName.append(fnName(processor, processor.idNode) + (processor.bOnline ? "+" : ""));
    }
    return listName.join(QStringLiteral(", "));
}

// Neither for a lock nor for time to pass; see futex(2).
bool IsInCondition(const QString& strThread)
{
    const int nOperation = ProcessThreads::Read(strThread, "syscall").split(' ').value(2).toInt(nullptr, 16);
    return (nOperation & FUTEX_CMD_MASK) == FUTEX_WAIT_BITSET;
}

// A worker that has handed on what it has read waits for the next message.
bool AreWorkersAsleep()
{
    const QStringList listThread = ProcessThreads::GetIds();
    return std::all_of(listThread.begin(), listThread.end(), [](const QString& strThread) {
        return !ProcessThreads::Read(strThread, "stat").contains("(QThread) ") || IsInCondition(strThread);
    });
}

} // namespace

CPanelSession::CPanelSession()
{
    CParentHost management(&window);
    CProcessorTreeView_Init(&pWidget, &management);
    auto* pLayout = new QVBoxLayout(&window);
    pLayout->addWidget(View());
    window.resize(320, 800);
    window.show();
    QApplication::setActiveWindow(&window);
}

CPanelSession::~CPanelSession()
{
    Delete();
}

void CPanelSession::Delete()
{
    delete pWidget;
    pWidget = nullptr;
}

void CPanelSession::Settle()
{
    static_cast<void>(QTest::qWaitFor([] { return AreWorkersAsleep(); }, nPatience));
    QCoreApplication::processEvents();
}

bool CPanelSession::Has(const QString& strName) const
{
    return Row(strName).isValid();
}

QString CPanelSession::GetText() const
{
    QString strText;
    for (const bool bSimulator : { false, true }) {
        SProcessorAllNode node;
        bSimulator ? store.GetSimulatorTree(node) : store.GetDiscoveredTree(node);
        const std::vector<QUuid> vecSelected = g_pProcessorTreeData->GetSelectedNodes(bSimulator);
        const auto fnName = [&](const SNode& named, const QUuid& id) {
            const bool bSelected = std::find(vecSelected.begin(), vecSelected.end(), id) != vecSelected.end();
            return named.strName + (bSelected ? "*" : "") + (named.bExpanded ? "" : "-");
        };
        for (const SProcessorGroupNode& group : std::as_const(node.listGroup)) {
            strText += fnName(group, group.idNode) + " (" + GetNames(group.listProcessor, fnName) + ")\n";
        }
        strText += GetNames(node.listProcessor, fnName) + "\n";
    }
    return strText;
}

void CPanelSession::Click(const QString& strName, Qt::KeyboardModifiers modifiers)
{
    Tree()->scrollTo(Row(strName));
    QTest::mouseClick(Tree()->viewport(), Qt::LeftButton, modifiers, Tree()->visualRect(Row(strName)).center());
}

void CPanelSession::Press(Qt::Key key)
{
    QTest::keyClick(Tree(), key);
}

void CPanelSession::Type(const QString& strText)
{
    auto* pEditor = Tree()->viewport()->findChild<QLineEdit*>();
    QVERIFY(pEditor);
    QTest::keyClicks(pEditor, strText);
    QTest::keyClick(pEditor, Qt::Key_Return);
}

void CPanelSession::PressButton(const QString& strToolTip)
{
    QVERIFY2(CanPress(strToolTip), qPrintable(strToolTip));
    QTest::mouseClick(Button(strToolTip), Qt::LeftButton);
}

bool CPanelSession::CanPress(const QString& strToolTip) const
{
    const QToolButton* pButton = Button(strToolTip);
    return pButton && pButton->isEnabled();
}

void CPanelSession::Refresh()
{
    QTest::mouseClick(View()->findChild<QToolButton*>("IconButtonTitle"), Qt::LeftButton);
}

bool CPanelSession::CanRefresh() const
{
    return View()->findChild<QToolButton*>("IconButtonTitle")->isEnabled();
}

void CPanelSession::ChoosePane(bool bSimulator)
{
    QTest::mouseClick(Tab(bSimulator), Qt::LeftButton);
}

bool CPanelSession::HasPane(bool bSimulator) const
{
    return Tab(bSimulator)->isChecked();
}

void CPanelSession::ChooseInMenu(const QString& strName, const QStringList& listPath)
{
    const CMenuDriver menuDriver([&](QMenu* pMenu) { CMenuDriver::Choose(pMenu, listPath); });
    const QPoint pos = Tree()->visualRect(Row(strName)).center();
    QTest::mouseClick(window.windowHandle(), Qt::RightButton, {}, Tree()->viewport()->mapTo(&window, pos));
    QVERIFY(menuDriver.HasActed());
}

void CPanelSession::TriggerEntry(const QString& strText)
{
    Find<QAction>(View(), [&](QAction* pThis) { return pThis->text() == strText; })->trigger();
}

void CPanelSession::Fold(const QString& strName)
{
    Tree()->collapse(Row(strName));
}

void CPanelSession::Answer(const QString& strHow)
{
    driver.Answer([this, strHow](QDialog* pDialog) {
        fnBeforeAnswer();
        CDialogDriver::Press(pDialog, strHow);
    });
}

void CPanelSession::AnswerByFile(const QString& strPath)
{
    driver.Answer([this, strPath](QDialog* pDialog) {
        fnBeforeAnswer();
        auto* pName = pDialog->findChild<QLineEdit*>("fileNameEdit");
        pName->setText(strPath);
        QTest::keyClick(pName, Qt::Key_Return);
    });
}

CProcessorTreeView* CPanelSession::View() const
{
    return static_cast<CProcessorTreeView*>(pWidget->GetWidget());
}

CProcessorTree* CPanelSession::Tree() const
{
    return static_cast<CProcessorTree*>(View()->findChild<QStackedLayout*>()->currentWidget());
}

QPushButton* CPanelSession::Tab(bool bSimulator) const
{
    const QString strPosition = bSimulator ? "middle" : "first";
    return Find<QPushButton>(
        View(), [&](QPushButton* pThis) { return pThis->objectName() == "Tab" && pThis->property("Position") == strPosition; });
}

QToolButton* CPanelSession::Button(const QString& strToolTip) const
{
    return Find<QToolButton>(View(), [&](QToolButton* pThis) { return pThis->toolTip() == strToolTip; });
}

QModelIndex CPanelSession::Row(const QString& strName) const
{
    SProcessorAllNode node;
    g_pProcessorTreeData->GetCurrentTree(node);
    const QUuid id = FindId(node, strName);
    const QAbstractItemModel* pModel = Tree()->model();
    return id.isNull()
        ? QModelIndex()
        : pModel->match(pModel->index(0, 0), Qt::UserRole + 1, id, 1, Qt::MatchExactly | Qt::MatchRecursive).value(0);
}
