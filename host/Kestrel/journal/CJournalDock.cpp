#include "Kestrel/journal/CJournalDock.h"

#include "Kestrel/journal/CJournalFilter.h"
#include "Kestrel/journal/CJournalModel.h"
#include "Kestrel/theme/CTheme.h"
#include "journal/CCallLog.h"

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QToolButton>
#include <QTreeView>

#include <array>

namespace {

constexpr int nMostRows = 2000;
constexpr int nBatchMs = 100;
constexpr std::array<int, CJournalModel::ColumnCall> arrWidth{ 108, 56, 144 }; ///< of the columns before the last, at first
constexpr int nMargin = 8;
constexpr int nFieldHeight = 24;
constexpr int nBarMargin = 4; ///< makes the bar as high as the panel's header
constexpr int nCloseIconSize = 20;

} // namespace

CJournalDock::CJournalDock(CCallLog& journalIn, const CTheme& theme, QWidget* parent)
    : QDockWidget(parent), journal(journalIn), pModel(new CJournalModel(nMostRows, this)), pFilter(new CJournalFilter(this)),
      pView(new QTreeView), pTitle(new QLabel), pSearch(new QLineEdit), pReads(new QCheckBox), pClear(new QToolButton),
      pClose(new QToolButton)
{
    setObjectName(QStringLiteral("JournalDock"));
    setFeatures(DockWidgetClosable);
    setTitleBarWidget(MakeBar());
    MakeView();
    setWidget(pView); // named by now: the sheet is asked when a widget gets its parent
    SetConnection();
    connect(&theme, &CTheme::Changed, this, [this, &theme] { UpdateColours(theme); });
    UpdateColours(theme);
    UpdateText();
}

void CJournalDock::changeEvent(QEvent* event)
{
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        UpdateText();
        FitColumns();
    }
}

void CJournalDock::showEvent(QShowEvent* event)
{
    QDockWidget::showEvent(event);
    FitColumns();
    Read();
}

QMap<int, QColor> CJournalDock::GetKindColours(const CTheme& theme)
{
    return { { RecordCommand, theme.GetColour(QStringLiteral("textStrong")) },
             { RecordRead, theme.GetColour(QStringLiteral("textHint")) },
             { RecordMessage, theme.GetColour(QStringLiteral("textHint")) },
             { RecordNote, theme.GetColour(QStringLiteral("text")) } };
}

QWidget* CJournalDock::MakeBar()
{
    auto* pBar = new QFrame(this);
    pBar->setObjectName(QStringLiteral("JournalBar"));
    pTitle->setObjectName(QStringLiteral("JournalTitle"));
    pClear->setObjectName(QStringLiteral("JournalClear"));
    pSearch->setClearButtonEnabled(true);
    pClose->setObjectName(QStringLiteral("JournalClose"));
    pClose->setIcon(QIcon(QStringLiteral(":/image/control/close/close.svg")));
    pClose->setIconSize(QSize(nCloseIconSize, nCloseIconSize));
    auto* pLayout = new QHBoxLayout(pBar);
    pLayout->setContentsMargins(nMargin, nBarMargin, nMargin, nBarMargin);
    pLayout->setSpacing(nMargin);
    pLayout->addWidget(pTitle);
    pLayout->addWidget(pSearch, 1);
    pLayout->addWidget(pReads);
    pLayout->addWidget(pClear);
    pLayout->addWidget(pClose);
    pSearch->setFixedHeight(nFieldHeight);
    pClear->setFixedHeight(nFieldHeight);
    pClose->setFixedSize(nFieldHeight, nFieldHeight);
    return pBar;
}

void CJournalDock::MakeView()
{
    pView->setObjectName(QStringLiteral("Journal"));
    pFilter->setSourceModel(pModel);
    pView->setModel(pFilter);
    pView->setRootIsDecorated(false);
    pView->setUniformRowHeights(true);
    pView->setSelectionMode(QAbstractItemView::ExtendedSelection);
    pView->header()->setStretchLastSection(true);
    for (int n = 0; n < CJournalModel::ColumnCall; ++n) {
        pView->setColumnWidth(n, arrWidth.at(n));
    }
}

void CJournalDock::SetConnection()
{
    timer.setSingleShot(true);
    timer.setInterval(nBatchMs);
    connect(&timer, &QTimer::timeout, this, &CJournalDock::Read);
    // Queued, since the writer may hold locks and is on any thread.
    connect(&journal, &CCallLog::RecordsWaiting, this, &CJournalDock::ReadSoon, Qt::QueuedConnection);
    connect(pSearch, &QLineEdit::textChanged, pFilter, &CJournalFilter::SetText);
    connect(pReads, &QCheckBox::toggled, pFilter, &CJournalFilter::SetReadsShown);
    connect(pClear, &QToolButton::clicked, pModel, &CJournalModel::Clear);
    connect(pClose, &QToolButton::clicked, this, &QWidget::close);
}

void CJournalDock::UpdateColours(const CTheme& theme)
{
    pModel->SetColours(GetKindColours(theme));
}

void CJournalDock::UpdateText()
{
    setWindowTitle(tr("Journal"));
    pTitle->setText(tr("Journal"));
    pClose->setToolTip(tr("Close"));
    pClose->setAccessibleName(tr("Close"));
    pSearch->setPlaceholderText(tr("Filter"));
    pSearch->setAccessibleName(tr("Filter"));
    pReads->setText(tr("Show reading calls"));
    pClear->setText(tr("Clear"));
    pView->setAccessibleName(tr("Journal"));
    pModel->UpdateText();
}

// The least width has room for the columns as they are at first: one that was drawn wide must not hold the dock wide.
void CJournalDock::FitColumns()
{
    int nWidth = pView->verticalScrollBar()->sizeHint().width() + pView->header()->sectionSizeHint(CJournalModel::ColumnCall);
    for (int n = 0; n < CJournalModel::ColumnCall; ++n) {
        const int nTitle = pView->header()->sectionSizeHint(n);
        pView->setColumnWidth(n, qMax(pView->columnWidth(n), nTitle));
        nWidth += qMax(arrWidth.at(n), nTitle);
    }
    pView->setMinimumWidth(nWidth);
}

// A dock that is shut reads nothing: the log keeps more than the dock can show until it opens.
void CJournalDock::ReadSoon()
{
    if (isVisible() && !timer.isActive()) {
        timer.start();
    }
}

void CJournalDock::Read()
{
    const std::vector<SCallRecord> vecRecord = journal.ReadAfter(nRead);
    if (vecRecord.empty()) {
        return;
    }
    nRead = vecRecord.back().nNumber;
    const QScrollBar* pBar = pView->verticalScrollBar();
    const bool bAtEnd = pBar->value() == pBar->maximum();
    pModel->Append(vecRecord);
    if (bAtEnd) {
        pView->scrollToBottom();
    }
}
