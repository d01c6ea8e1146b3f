#include "ClippingFaults.h"

#include <QAbstractButton>
#include <QAbstractItemDelegate>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QHash>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QStackedLayout>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolButton>
#include <QTreeWidget>

namespace {

constexpr int nRounding = 1;    ///< of a height, where a pixel of the screen is no whole one
constexpr int nCaretMargin = 2; ///< QLineEdit's own, at both sides of its text

QString Describe(const QWidget* pWidget, const QString& strText)
{
    return QStringLiteral("%1 %2 '%3'").arg(QLatin1String(pWidget->metaObject()->className()), pWidget->objectName(), strText);
}

QString Size(const QSize& size)
{
    return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height());
}

void CheckRoom(QStringList& listFault, const QWidget* pWidget, const QString& strText, const QSize& sizeNeeded)
{
    if (sizeNeeded.width() > pWidget->width() || sizeNeeded.height() > pWidget->height() + nRounding) {
        listFault.append(
            QStringLiteral("%1 needs %2, has %3").arg(Describe(pWidget, strText), Size(sizeNeeded), Size(pWidget->size())));
    }
}

void CheckLabel(QStringList& listFault, const QLabel* pLabel)
{
    if (pLabel->text().isEmpty() || pLabel->inherits("CElidedLabel")) {
        return;
    }
    const QSize sizeNeeded = pLabel->wordWrap()
        ? QSize(pLabel->minimumSizeHint().width(), pLabel->heightForWidth(pLabel->width()))
        : pLabel->sizeHint();
    CheckRoom(listFault, pLabel, pLabel->text(), sizeNeeded);
}

void CheckButton(QStringList& listFault, const QAbstractButton* pButton)
{
    const auto* pToolButton = qobject_cast<const QToolButton*>(pButton);
    if (pButton->text().isEmpty()
        || (pToolButton && pToolButton->toolButtonStyle() == Qt::ToolButtonIconOnly && !pButton->icon().isNull())) {
        return;
    }
    // The padding above and below may be less than the style would like.
    CheckRoom(listFault, pButton, pButton->text(), QSize(pButton->sizeHint().width(), pButton->fontMetrics().height()));
}

void CheckEdit(QStringList& listFault, const QLineEdit* pEdit)
{
    QStyleOptionFrame option;
    option.initFrom(pEdit);
    const QRect rcText = pEdit->style()->subElementRect(QStyle::SE_LineEditContents, &option, pEdit);
    const QMargins margins = pEdit->textMargins();
    const int nRoom = rcText.width() - margins.left() - margins.right() - 2 * nCaretMargin;
    const int nNeeded = pEdit->fontMetrics().horizontalAdvance(pEdit->placeholderText());
    if (pEdit->text().isEmpty() && nNeeded > nRoom) {
        listFault.append(QStringLiteral("%1 needs %2, has %3")
                             .arg(Describe(pEdit, pEdit->placeholderText()), QString::number(nNeeded), QString::number(nRoom)));
    }
}

void CheckHeader(QStringList& listFault, const QHeaderView* pHeader)
{
    for (int n = 0; n < pHeader->count(); ++n) {
        if (!pHeader->isSectionHidden(n) && pHeader->sectionSizeHint(n) > pHeader->sectionSize(n)) {
            const QString strText = pHeader->model()->headerData(n, pHeader->orientation()).toString();
            listFault.append(QStringLiteral("%1 needs %2, has %3")
                                 .arg(Describe(pHeader, strText), QString::number(pHeader->sectionSizeHint(n)),
                                      QString::number(pHeader->sectionSize(n))));
        }
    }
}

void CheckTable(QStringList& listFault, const QTreeWidget* pTable)
{
    for (int nRow = 0; nRow < pTable->topLevelItemCount(); ++nRow) {
        for (int nColumn = 0; nColumn < pTable->columnCount(); ++nColumn) {
            const QModelIndex index = pTable->model()->index(nRow, nColumn);
            QStyleOptionViewItem option;
            option.initFrom(pTable);
            const int nNeeded = pTable->itemDelegate()->sizeHint(option, index.sibling(nRow, nColumn)).width();
            const int nRoom = pTable->visualRect(index).width();
            const int nText = pTable->fontMetrics().horizontalAdvance(index.data().toString());
            if (qMax(nNeeded, nText) > nRoom) {
                listFault.append(QStringLiteral("%1 needs %2, has %3")
                                     .arg(Describe(pTable, index.data().toString()), QString::number(qMax(nNeeded, nText)),
                                          QString::number(nRoom)));
            }
        }
    }
}

void CheckMenuBar(QStringList& listFault, const QMenuBar* pBar)
{
    const QList<QAction*> listAction = pBar->actions();
    for (QAction* pAction : listAction) {
        const QRect rc = pBar->actionGeometry(pAction);
        const int nNeeded = pBar->fontMetrics().size(Qt::TextShowMnemonic, pAction->text()).width();
        if (pAction->isVisible() && (!pBar->rect().contains(rc) || rc.width() < nNeeded)) {
            listFault.append(QStringLiteral("%1 does not fit the menu bar").arg(pAction->text()));
        }
    }
}

void CheckText(QStringList& listFault, const QWidget* pWidget)
{
    if (const auto* pLabel = qobject_cast<const QLabel*>(pWidget)) {
        CheckLabel(listFault, pLabel);
    } else if (const auto* pButton = qobject_cast<const QAbstractButton*>(pWidget)) {
        CheckButton(listFault, pButton);
    } else if (const auto* pEdit = qobject_cast<const QLineEdit*>(pWidget)) {
        CheckEdit(listFault, pEdit);
    } else if (const auto* pHeader = qobject_cast<const QHeaderView*>(pWidget)) {
        CheckHeader(listFault, pHeader);
    } else if (const auto* pTable = qobject_cast<const QTreeWidget*>(pWidget)) {
        CheckTable(listFault, pTable);
    } else if (const auto* pBar = qobject_cast<const QMenuBar*>(pWidget)) {
        CheckMenuBar(listFault, pBar);
    } else if (pWidget->inherits("CComboBox") || qobject_cast<const QComboBox*>(pWidget)
               || qobject_cast<const QAbstractSpinBox*>(pWidget)) {
        CheckRoom(listFault, pWidget, QString(), QSize(pWidget->sizeHint().width(), pWidget->fontMetrics().height()));
    }
}

bool IsViewport(const QWidget* pWidget)
{
    const auto* pArea = qobject_cast<const QAbstractScrollArea*>(pWidget->parentWidget());
    return pArea && pArea->viewport() == pWidget;
}

void CheckPlace(QStringList& listFault, const QWidget* pWidget)
{
    const QWidget* pParent = pWidget->parentWidget();
    const QRect rcParent = pParent->rect().adjusted(0, 0, 0, nRounding);
    if (!IsViewport(pParent) && !rcParent.contains(pWidget->geometry()) && !pWidget->size().isEmpty()) {
        listFault.append(Describe(pWidget, QString()) + QStringLiteral(" reaches out of ") + Describe(pParent, QString()));
    }
}

void CollectWidgets(QList<const QWidget*>& listWidget, const QLayout* pLayout)
{
    // One over the other is what a stack is for.
    for (int n = 0; n < pLayout->count() && !qobject_cast<const QStackedLayout*>(pLayout); ++n) {
        QLayoutItem* pItem = pLayout->itemAt(n);
        if (pItem->widget() && pItem->widget()->isVisible()) {
            listWidget.append(pItem->widget());
        } else if (pItem->layout()) {
            CollectWidgets(listWidget, pItem->layout());
        }
    }
}

void CheckOverlaps(QStringList& listFault, const QWidget* pParent)
{
    QList<const QWidget*> listWidget;
    if (pParent->layout() && !qobject_cast<const QMainWindow*>(pParent)) {
        CollectWidgets(listWidget, pParent->layout());
    }
    for (int n = 0; n < listWidget.size(); ++n) {
        for (int nOther = 0; nOther < n; ++nOther) {
            if (listWidget.at(n)->geometry().intersects(listWidget.at(nOther)->geometry())) {
                listFault.append(Describe(listWidget.at(n), QString()) + QStringLiteral(" lies over ")
                                 + Describe(listWidget.at(nOther), QString()));
            }
        }
    }
}

void CheckMnemonics(QStringList& listFault, const QStringList& listText)
{
    QHash<QString, QString> mapText;
    for (const QString& strText : listText) {
        const QString strKey = QKeySequence::mnemonic(strText).toString();
        if (!strKey.isEmpty() && mapText.contains(strKey)) {
            listFault.append(QStringLiteral("'%1' and '%2' have the same mnemonic").arg(mapText.value(strKey), strText));
        }
        mapText.insert(strKey, strText);
    }
}

QStringList ActionTexts(const QWidget* pMenu)
{
    QStringList listText;
    const QList<QAction*> listAction = pMenu->actions();
    for (const QAction* pAction : listAction) {
        if (pAction->isVisible()) {
            listText.append(pAction->text());
        }
    }
    return listText;
}

/// What of the window answers to Alt and a letter.
QStringList MnemonicTexts(const QWidget* pWindow)
{
    QStringList listText;
    const QList<QWidget*> listWidget = pWindow->findChildren<QWidget*>();
    for (const QWidget* pWidget : listWidget) {
        const auto* pButton = qobject_cast<const QAbstractButton*>(pWidget);
        const auto* pLabel = qobject_cast<const QLabel*>(pWidget);
        if (pWidget->isVisible() && pButton) {
            listText.append(pButton->text());
        } else if (pWidget->isVisible() && pLabel && pLabel->buddy()) {
            listText.append(pLabel->text());
        } else if (pWidget->isVisible() && qobject_cast<const QMenuBar*>(pWidget)) {
            listText.append(ActionTexts(pWidget));
        }
    }
    return listText;
}

} // namespace

QStringList ClippingFaults::FindInWindow(const QWidget* pWindow)
{
    QStringList listFault;
    CheckMnemonics(listFault, MnemonicTexts(pWindow));
    CheckText(listFault, pWindow);
    CheckOverlaps(listFault, pWindow);
    const QList<QWidget*> listWidget = pWindow->findChildren<QWidget*>();
    for (const QWidget* pWidget : listWidget) {
        if (pWidget->isVisible() && pWidget->window() == pWindow) {
            CheckText(listFault, pWidget);
            CheckPlace(listFault, pWidget);
            CheckOverlaps(listFault, pWidget);
        }
    }
    return listFault;
}

QStringList ClippingFaults::FindInMenu(const QMenu* pMenu)
{
    QStringList listFault;
    CheckMnemonics(listFault, ActionTexts(pMenu));
    CheckRoom(listFault, pMenu, pMenu->title(), pMenu->sizeHint());
    const QList<QAction*> listAction = pMenu->actions();
    for (QAction* pAction : listAction) {
        const QRect rc = pMenu->actionGeometry(pAction);
        const int nNeeded = pMenu->fontMetrics().size(Qt::TextShowMnemonic, pAction->text()).width();
        if (pAction->isVisible() && !pAction->isSeparator() && (!pMenu->rect().contains(rc) || rc.width() < nNeeded)) {
            listFault.append(QStringLiteral("'%1' does not fit its menu").arg(pAction->text()));
        }
    }
    return listFault;
}
