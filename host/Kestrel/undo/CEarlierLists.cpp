#include "Kestrel/undo/CEarlierLists.h"

#include "Kestrel/GuiThread.h"
#include "Kestrel/status/CElidedLabel.h"
#include "Kestrel/status/RefusalText.h"
#include "Kestrel/undo/CDiskWork.h"
#include "controlhost/IControlHost.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>

namespace {

constexpr int nMargin = 16;
constexpr int nSpacing = 8;
constexpr QSize sizeLeast(440, 320);
constexpr int nRowHeight = 24;
constexpr int nRolePath = Qt::UserRole + 1;

enum EnColumn
{
    ColumnDate,
    ColumnGroups,
    ColumnProcessors,
};

// Earlier lists may be seconds apart, which the short form of a locale leaves out.
QString GetDateText(const QLocale& locale, const QDateTime& date)
{
    const QString strTime = date.time().toString(QStringLiteral("HH:mm:ss"));
    return locale.toString(date.date(), QLocale::ShortFormat) + QLatin1Char(' ') + strTime;
}

} // namespace

CEarlierLists::CEarlierLists(IControlHost& hostIn, CDiskWork& workIn, const QLocale& localeIn, QWidget* parent)
    : CBaseDialog(parent, tr("Earlier lists"), false, ButtonsOkCancel), host(hostIn), work(workIn), locale(localeIn),
      pTable(new QTreeWidget(this)), pNote(new CElidedLabel(this))
{
    Q_ASSERT(GuiThread::IsCurrent());
    InitWidget();
    // Queued, since the work is done on another thread; it comes before its result.
    connect(&host, &IControlHost::CommandRefused, this, &CEarlierLists::SayRefusal, Qt::QueuedConnection);
    connect(pTable, &QTreeWidget::itemSelectionChanged, this, &CEarlierLists::UpdateState);
    connect(pTable, &QTreeWidget::itemDoubleClicked, this, &CEarlierLists::accept);
    SetNote(tr("Reading…"));
    UpdateState();
    work.Run(
        this, [&library = hostIn] { return library.GetEarlierLists(); },
        [this](const QList<SEarlierList>& listEarlier) { Show(listEarlier); });
}

void CEarlierLists::accept()
{
    const QTreeWidgetItem* pItem = pTable->currentItem();
    if (bTaking || !pItem || !pItem->isSelected()) {
        return;
    }
    bTaking = true;
    SetNote(tr("Restoring…"));
    UpdateState();
    const QString strPath = pItem->data(ColumnDate, nRolePath).toString();
    IControlHost& library = host; // the dialog may end before
    work.Run(this, [&library, strPath] { return library.TakeEarlierList(strPath); }, [this](bool bTaken) { Finish(bTaken); });
}

void CEarlierLists::InitWidget()
{
    setObjectName(QStringLiteral("EarlierLists"));
    SetTransparentMask();
    setMinimumSize(sizeLeast);
    pNote->setObjectName(QStringLiteral("EarlierNote"));
    pTable->setObjectName(QStringLiteral("EarlierTable"));
    pTable->setHeaderLabels({ tr("Date and time"), tr("Groups"), tr("Processors") });
    pTable->setRootIsDecorated(false);
    pTable->setUniformRowHeights(true);
    pTable->setAllColumnsShowFocus(true);
    pTable->header()->setSectionsMovable(false);
    pTable->header()->setStretchLastSection(false);
    pTable->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    pTable->header()->setSectionResizeMode(ColumnDate, QHeaderView::Stretch);
    pTable->setAccessibleName(tr("Earlier lists"));
    pNote->setTextFormat(Qt::PlainText);
    GetContentLayout()->setContentsMargins(nMargin, nMargin, nMargin, nMargin);
    GetContentLayout()->setSpacing(nSpacing);
    GetContentLayout()->addWidget(pTable, 1);
    GetContentLayout()->addWidget(pNote);
    mapButton.value(KeyAccept)->setText(tr("&Restore"));
    mapButton.value(KeyReject)->setText(tr("&Close"));
}

void CEarlierLists::Show(const QList<SEarlierList>& listEarlier)
{
    for (const SEarlierList& earlier : listEarlier) {
        Add(earlier);
    }
    SetNote(listEarlier.isEmpty() ? tr("There is no earlier list.") : QString());
    for (int n = 0; n < pTable->topLevelItemCount() && !pTable->currentItem(); ++n) {
        if (pTable->topLevelItem(n)->flags() & Qt::ItemIsSelectable) {
            pTable->setCurrentItem(pTable->topLevelItem(n));
        }
    }
    UpdateState();
}

void CEarlierLists::Add(const SEarlierList& earlier)
{
    auto* pItem = new QTreeWidgetItem(pTable);
    pItem->setSizeHint(ColumnDate, QSize(0, nRowHeight));
    pItem->setText(ColumnDate, GetDateText(locale, earlier.date));
    pItem->setData(ColumnDate, nRolePath, earlier.strPath);
    pItem->setTextAlignment(ColumnGroups, Qt::AlignRight | Qt::AlignVCenter);
    pItem->setTextAlignment(ColumnProcessors, Qt::AlignRight | Qt::AlignVCenter);
    if (earlier.strFault.isEmpty()) {
        pItem->setText(ColumnGroups, locale.toString(earlier.nGroups));
        pItem->setText(ColumnProcessors, locale.toString(earlier.nProcessors));
        return;
    }
    pItem->setFlags(Qt::NoItemFlags);
    pItem->setText(ColumnGroups, QStringLiteral("–"));
    pItem->setText(ColumnProcessors, QStringLiteral("–"));
    pItem->setToolTip(ColumnDate, tr("It cannot be read as a list."));
}

void CEarlierLists::Finish(bool bTaken)
{
    bTaking = false;
    UpdateState();
    if (bTaken) {
        CBaseDialog::accept();
    } else {
        pTable->setFocus(); // it was disabled meanwhile
    }
}

void CEarlierLists::SetNote(const QString& strText)
{
    pNote->setText(strText);
    pNote->setToolTip(strText);
}

void CEarlierLists::SayRefusal(const SRefusal& refusal)
{
    if (refusal.command == CommandTakeEarlier) {
        SetNote(RefusalText::Get(refusal));
    }
}

void CEarlierLists::UpdateState()
{
    mapButton.value(KeyAccept)->setEnabled(!bTaking && !pTable->selectedItems().isEmpty());
    pTable->setEnabled(!bTaking);
}
