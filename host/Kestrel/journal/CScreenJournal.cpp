#include "Kestrel/journal/CScreenJournal.h"

#include "Kestrel/CLanguage.h"
#include "Kestrel/player/PanelAccess.h"
#include "Kestrel/theme/CTheme.h"
#include "journal/recording/ICallRecorder.h"

#include <QDockWidget>
#include <QEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QStackedLayout>
#include <QTreeView>

#include <utility>

namespace {

constexpr int nMinuteMs = 60000;

// 0 when it is shut.
int GetJournalWidth(const QWidget& window)
{
    const auto* pDock = window.findChild<QDockWidget*>(QStringLiteral("JournalDock"));
    return pDock && !pDock->isHidden() ? pDock->width() : 0;
}

int GetScroll(const QStackedLayout* pStack, int nPane)
{
    const auto* pTree = pStack ? qobject_cast<QTreeView*>(pStack->widget(nPane)) : nullptr;
    return pTree ? pTree->verticalScrollBar()->value() : 0;
}

} // namespace

CScreenJournal::CScreenJournal(ICallRecorder& recorderIn, QWidget& window, QWidget& panel, const CLanguage& languageIn,
                               const CTheme& themeIn)
    : recorder(recorderIn), pWindow(&window), pPanel(&panel), language(languageIn), theme(themeIn)
{
    window.installEventFilter(this);
    connect(&language, &CLanguage::Changed, this, [this] { Change("language"); });
    connect(&theme, &CTheme::Changed, this, [this] { Change("theme"); });
    FollowTrees(panel);
    if (const QLineEdit* pEdit = PanelAccess::FindSearchEdit(&panel)) {
        connect(pEdit, &QLineEdit::textChanged, this, [this] { Change("search"); });
    }
    timer.setInterval(nMinuteMs);
    connect(&timer, &QTimer::timeout, this, &CScreenJournal::WriteAgain);
    timer.start();
    Write("screen");
}

bool CScreenJournal::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == pWindow) {
        Change("size");
    } else if (event->type() == QEvent::Close && watched == pWindow) {
        Write("close");
    }
    return false;
}

void CScreenJournal::FollowTrees(const QWidget& panel)
{
    const auto* pStack = panel.findChild<QStackedLayout*>();
    if (!pStack) {
        return;
    }
    connect(pStack, &QStackedLayout::currentChanged, this, [this] { Change("pane"); });
    for (int n = 0; n < pStack->count(); ++n) {
        if (const auto* pTree = qobject_cast<QTreeView*>(pStack->widget(n))) {
            connect(pTree->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { Change("scroll"); });
        }
    }
}

void CScreenJournal::Change(const char* szWhat)
{
    bChanged = true;
    Write(szWhat);
}

void CScreenJournal::WriteAgain()
{
    if (bChanged) {
        bChanged = false;
        Write("screen");
    }
}

void CScreenJournal::Write(const char* szDo)
{
    if (!pWindow || !pPanel) {
        return;
    }
    SJournalRecord record;
    record.line = LineUser;
    record.bState = true;
    record.szObject = "User";
    record.szOperation = szDo;
    record.vecField = GetFields();
    recorder.Write(std::move(record));
}

std::vector<SJournalField> CScreenJournal::GetFields() const
{
    const auto* pStack = pPanel->findChild<QStackedLayout*>();
    const QLineEdit* pEdit = PanelAccess::FindSearchEdit(pPanel);
    return { { "width", qint64(pWindow->width()) },
             { "height", qint64(pWindow->height()) },
             { "journal", qint64(GetJournalWidth(*pWindow)) },
             { "language", language.GetCode() },
             { "theme", theme.GetName() },
             { "pane", qint64(pStack ? pStack->currentIndex() : 0) },
             { "scrollDiscovered", qint64(GetScroll(pStack, 0)) },
             { "scrollSimulator", qint64(GetScroll(pStack, 1)) },
             { "search", SPrivateText(pEdit ? pEdit->text() : QString(), PrivateText) } };
}
