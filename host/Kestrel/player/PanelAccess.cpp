#include "Kestrel/player/PanelAccess.h"

#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "journal/SControlPointers.h"
#include "nodes/SProcessorAllNode.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QStackedLayout>
#include <QTreeView>
#include <QWidget>

namespace {

// Of the panel's rows.
constexpr int nRoleNodeId = Qt::UserRole + 1;
constexpr int nRoleNodeType = Qt::UserRole + 2;

constexpr char szTree[] = "ProcessorTree"; ///< the name of both trees

QUuid FindId(const QList<SProcessorNode>& listProcessor, const QString& strName)
{
    for (const SProcessorNode& processor : listProcessor) {
        if (processor.strName == strName) {
            return processor.idNode;
        }
    }
    return {};
}

/// Groups first, then their processors, then the rest.
QUuid FindId(const SProcessorAllNode& node, const QString& strName)
{
    for (const SProcessorGroupNode& group : node.listGroup) {
        if (group.strName == strName) {
            return group.idNode;
        }
    }
    for (const SProcessorGroupNode& group : node.listGroup) {
        const QUuid idFound = FindId(group.listProcessor, strName);
        if (!idFound.isNull()) {
            return idFound;
        }
    }
    return FindId(node.listProcessor, strName);
}

SProcessorAllNode GetCurrentList(const SControlPointers& pointers)
{
    SProcessorAllNode node;
    if ((*pointers.ppRuntime)->IsSimulatorPane()) {
        (*pointers.ppPrcList)->GetSimulatorTree(node);
    } else {
        (*pointers.ppPrcList)->GetDiscoveredTree(node);
    }
    return node;
}

QString Translate(const char* szContext, const QString& strText)
{
    return QCoreApplication::translate(szContext, strText.toUtf8().constData());
}

void SendMouse(QWidget* pTarget, QEvent::Type type, const QPoint& point, Qt::KeyboardModifiers modifiers)
{
    const Qt::MouseButtons buttons = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(type, point, pTarget->mapToGlobal(point), Qt::LeftButton, buttons, modifiers);
    QCoreApplication::sendEvent(pTarget, &event);
}

} // namespace

QTreeView* PanelAccess::FindCurrentTree(QWidget* pPanel)
{
    const QStackedLayout* pLayout = FindPanes(pPanel);
    return pLayout ? qobject_cast<QTreeView*>(pLayout->currentWidget()) : nullptr;
}

QList<QTreeView*> PanelAccess::FindTrees(QWidget* pPanel)
{
    return pPanel->findChildren<QTreeView*>(QLatin1String(szTree));
}

QStackedLayout* PanelAccess::FindPanes(QWidget* pPanel)
{
    return pPanel->findChild<QStackedLayout*>();
}

int PanelAccess::GetNodeType(const QModelIndex& index)
{
    return index.data(nRoleNodeType).toInt();
}

QUuid PanelAccess::GetNodeId(const QModelIndex& index)
{
    return index.data(nRoleNodeId).toUuid();
}

bool PanelAccess::IsRowEditor(const QObject* pObject)
{
    if (!qobject_cast<const QLineEdit*>(pObject) || !pObject->parent()) {
        return false;
    }
    const auto* pTree = qobject_cast<const QAbstractItemView*>(pObject->parent()->parent());
    return pTree && pTree->viewport() == pObject->parent() && pTree->objectName() == QLatin1String(szTree);
}

QModelIndex PanelAccess::FindRow(const SControlPointers& pointers, const QTreeView* pTree, const QString& strName)
{
    const QUuid idNode = FindId(GetCurrentList(pointers), strName);
    if (!pTree || idNode.isNull()) {
        return {};
    }
    // A processor's information row carries the same id and comes behind it.
    const QModelIndexList listFound
        = pTree->model()->match(pTree->model()->index(0, 0), nRoleNodeId, idNode, 1, Qt::MatchExactly | Qt::MatchRecursive);
    return listFound.value(0);
}

QAction* PanelAccess::FindAction(QWidget* pPanel, const char* szContext, const char* szText)
{
    const QString strWanted = QCoreApplication::translate(szContext, szText);
    const QList<QAction*> listAction = pPanel->findChildren<QAction*>();
    for (QAction* pAction : listAction) {
        if (pAction->text() == strWanted) {
            return pAction;
        }
    }
    return nullptr;
}

QAbstractButton* PanelAccess::FindButton(QWidget* pPanel, const QString& strToolTip)
{
    const QStringList listWanted{ strToolTip, Translate("CProcessorTreeToolBar", strToolTip),
                                  Translate("CProcessorTreeView", strToolTip) };
    const QList<QAbstractButton*> listButton = pPanel->findChildren<QAbstractButton*>();
    for (QAbstractButton* pButton : listButton) {
        if (listWanted.contains(pButton->toolTip())) {
            return pButton;
        }
    }
    return nullptr;
}

QAbstractButton* PanelAccess::FindTab(QWidget* pPanel, bool bSimulator)
{
    const QString strPosition = bSimulator ? QStringLiteral("middle") : QStringLiteral("first");
    const QList<QAbstractButton*> listTab = pPanel->findChildren<QAbstractButton*>(QStringLiteral("Tab"));
    for (QAbstractButton* pTab : listTab) {
        if (pTab->property("Position").toString() == strPosition) {
            return pTab;
        }
    }
    return nullptr;
}

QLineEdit* PanelAccess::FindSearchEdit(QWidget* pPanel)
{
    return pPanel->findChild<QLineEdit*>(QStringLiteral("SearchEdit"));
}

void PanelAccess::EndEdit(QWidget* pPanel)
{
    QTreeView* pTree = FindCurrentTree(pPanel);
    const QWidget* pFocus = pPanel->window()->focusWidget();
    if (pTree && pFocus && pTree->viewport()->isAncestorOf(pFocus)) {
        pTree->setFocus();
    }
}

void PanelAccess::TypeText(QLineEdit* pEdit, const QString& strText)
{
    pEdit->selectAll();
    for (const QChar& character : strText) {
        for (const QEvent::Type type : { QEvent::KeyPress, QEvent::KeyRelease }) {
            QKeyEvent event(type, Qt::Key_unknown, Qt::NoModifier, QString(character));
            QCoreApplication::sendEvent(pEdit, &event);
        }
    }
}

void PanelAccess::ReplaceSheet(QWidget* pPanel, const QString& strOld, const QString& strNew)
{
    const QList<QWidget*> listWidget = QList<QWidget*>{ pPanel } + pPanel->findChildren<QWidget*>();
    for (QWidget* pWidget : listWidget) {
        if (pWidget->styleSheet() == strOld) {
            pWidget->setStyleSheet(strNew);
        }
    }
}

void PanelAccess::ClickRow(QTreeView* pTree, const QModelIndex& index, Qt::KeyboardModifiers modifiers)
{
    pTree->scrollTo(index);
    const QPoint point = pTree->visualRect(index).center();
    SendMouse(pTree->viewport(), QEvent::MouseButtonPress, point, modifiers);
    SendMouse(pTree->viewport(), QEvent::MouseButtonRelease, point, modifiers);
}
