#include "panel/CSoakPanel.h"

#include "Builders.h"
#include "CParentHost.h"
#include "CorvidControl/file/ListFormat.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "Patience.h"
#include "interfaces/host/ICorvidWidget.h"
#include "interfaces/host/IUIManagement.h"
#include "interfaces/widgets/CSearchBox.h"
#include "live/CWorkerFinder.h"
#include "model/EnItemRole.h"
#include "panel/IdMap.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDeadlineTimer>
#include <QLibrary>
#include <QLineEdit>
#include <QMenu>
#include <QStackedLayout>
#include <QThreadPool>
#include <QTreeView>
#include <QVBoxLayout>
#include <QtTest>

#include <thread>

namespace {

constexpr char szEntryPoint[] = "_Z23CProcessorTreeView_InitPP13ICorvidWidgetP13IUIManagement";
constexpr int nMark = 777;        // a message that means nothing to anybody
constexpr int nWakeUp = 300;      // milliseconds after which the worker may have slept through its message
constexpr int nMostFlushes = 100; // of what goes on and on
using FnInit = int (*)(ICorvidWidget**, IUIManagement*);

SProcessorAllNode Site()
{
    return Root(
        { Group("Stage",
                { Processor("alpha").Ip("10.0.0.1").Type(12, "KX-4").Online().Primary().Project("Show"),
                  Processor("beta").Ip("10.0.0.2").Type(12, "KX-4").Backup().Expanded(false),
                  Processor("gamma").Ip("10.0.0.3").Type(22, "KX-8").Online().Expanded(false) }),
          Group("Hall"), Group("Yard", { Processor("delta").Ip("10.0.1.4").Online().Expanded(false) }).Expanded(false) },
        { Processor("loose").Ip("10.0.1.5").Online().Expanded(false), Processor("other").Ip("10.0.1.6").Expanded(false) });
}

FnInit FindEntryPoint()
{
    QLibrary plugin(QCoreApplication::applicationDirPath() + QStringLiteral("/libProcessorTreeView.so"));
    const auto fnInit = plugin.load() ? reinterpret_cast<FnInit>(plugin.resolve(szEntryPoint)) : nullptr;
    if (!fnInit) {
        qFatal("%s", qPrintable(plugin.errorString()));
    }
    return fnInit;
}

QStringList GetOpen()
{
    QStringList listOpen;
    for (const QWidget* const pWidget : QApplication::topLevelWidgets()) {
        const bool bAsks = qobject_cast<const QDialog*>(pWidget) || qobject_cast<const QMenu*>(pWidget);
        if (pWidget->isVisible() && bAsks) {
            listOpen.append(QString::fromLatin1(pWidget->metaObject()->className()) + QLatin1Char(' ') + pWidget->windowTitle());
        }
    }
    return listOpen;
}

bool IsHidden(const QTreeView* pTree, QModelIndex index)
{
    bool bHidden = false;
    for (; index.isValid(); index = index.parent()) {
        bHidden = bHidden || pTree->isRowHidden(index.row(), index.parent());
    }
    return bHidden;
}

bool IsFolded(const QTreeView* pTree, QModelIndex index)
{
    bool bFolded = false;
    for (index = index.parent(); index.isValid(); index = index.parent()) {
        bFolded = bFolded || !pTree->isExpanded(index);
    }
    return bFolded;
}

template <typename FnTake> void Walk(const QAbstractItemModel* pModel, const QModelIndex& indexParent, int nDepth, FnTake fnTake)
{
    for (int n = 0; n < pModel->rowCount(indexParent); ++n) {
        const QModelIndex index = pModel->index(n, 0, indexParent);
        fnTake(index, nDepth);
        Walk(pModel, index, nDepth + 1, fnTake);
    }
}

} // namespace

CSoakPanel::CSoakPanel() : library(Prepare(), clock)
{
    log.SetRecorder(&record);
    pJournal = std::make_unique<CControlJournal>(SControlPointers::Linked(), log, jobs, [](int) { return QString(); });
    new QVBoxLayout(&window);
    Load();
    watch.AttachAll();
    window.resize(320, 800);
    window.show();
    QApplication::setActiveWindow(&window);
}

CSoakPanel::~CSoakPanel()
{
    watch.DetachAll();
    delete pPanel;
    pJournal.reset();
}

SControlOptions CSoakPanel::Prepare() const
{
    SControlOptions options;
    options.bQuietDay = false;
    options.strListFile = GetListPath();
    options.nScanMs = options.nAnswerMs = options.nTimeoutMs = options.nReleaseMs = 0;
    QFile file(options.strListFile);
    const QByteArray bytes = ListFormat::Write(Site());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("%s", qPrintable(file.errorString()));
    }
    return options;
}

void CSoakPanel::Load()
{
    static const FnInit fnInit = FindEntryPoint();
    CParentHost host(&window);
    const CWorkerFinder finder;
    fnInit(&pPanel, &host);
    watch.SetWorker(finder.GetWorker());
    window.layout()->addWidget(View());
    pStack = View()->findChild<QStackedLayout*>();
    for (int n = 0; n < pStack->count(); ++n) {
        listTree.append(qobject_cast<QTreeView*>(pStack->widget(n)));
        Watch(listTree.last());
    }
}

void CSoakPanel::Watch(QTreeView* pTree)
{
    QAbstractItemModel* const pModel = pTree->model();
    new QAbstractItemModelTester(pModel, QAbstractItemModelTester::FailureReportingMode::Warning, pModel);
    const auto note = [this] { bRebuilt = true; };
    QObject::connect(pModel, &QAbstractItemModel::rowsInserted, pTree, note);
    QObject::connect(pModel, &QAbstractItemModel::rowsRemoved, pTree, note);
}

// What the end of a job has asked for while the last messages were shown is still to come.
bool CSoakPanel::Settle()
{
    for (int n = 0; n < nMostFlushes; ++n) {
        const int nCalls = record.GetCount();
        if (!AwaitJobs() || !Flush()) {
            return false;
        }
        if (watch.GetCount() == 0 && !jobs.IsBusy() && record.GetCount() == nCalls) {
            return true;
        }
    }
    return false;
}

// What was lost or waits for others goes first.
bool CSoakPanel::Reread()
{
    bool bCome = false;
    for (int n = 0; n < nMostFlushes && !bCome; ++n) {
        library.dispatcher.Post(SenderPrcList, MessageListChanged);
        if (!Flush()) {
            return false;
        }
        bCome = watch.HasCome(MessageListChanged);
    }
    const bool bSettled = Settle();
    pPanel->UpdateWidget();
    return bCome && bSettled && Settle();
}

bool CSoakPanel::AwaitJobs() const
{
    return QTest::qWaitFor(
        [this] {
            return !jobs.IsBusy() && library.jobs.GetRunning().isEmpty()
                && QThreadPool::globalInstance()->activeThreadCount() == 0;
        },
        nPatience);
}

// What was raised before the mark comes before it, and the end of the burst behind both. Message faults do not touch that.
bool CSoakPanel::Flush()
{
    watch.Clear();
    g_pRuntimeControl->PostMessage(nMark);
    const QDeadlineTimer deadline(nPatience);
    QDeadlineTimer deadlineWakeUp(nWakeUp);
    while (!watch.HasCome(MessageSettled) || watch.GetQueued() != 0) {
        TurnToAlarm();
        if (deadlineWakeUp.hasExpired()) { // a worker that slept through its message wakes at the next
            g_pRuntimeControl->PostMessage(nMark);
            deadlineWakeUp.setRemainingTime(nWakeUp);
        }
        if (deadline.hasExpired()) {
            return false;
        }
        std::this_thread::yield();
    }
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // nothing else does without an event loop
    return true;
}

void CSoakPanel::TurnToAlarm()
{
    const auto timeLeft = clock.GetAlarm() - clock.GetNow();
    if (timeLeft > CControlClock::Time::duration::zero()) {
        clock.Turn(std::chrono::ceil<std::chrono::milliseconds>(timeLeft));
    }
}

SPanelPicture CSoakPanel::TakePicture(bool bSettled)
{
    SPanelPicture picture;
    picture.bSettled = bSettled;
    picture.bSimulator = IsSimulatorShown();
    picture.bLibrarySimulator = library.processors.IsSimulatorPane();
    picture.vecRow = GetRows();
    picture.keyCurrent = GetKey(Tree()->currentIndex());
    picture.nMapped = IdMap::Get(Tree()).size();
    picture.bRebuilt = std::exchange(bRebuilt, false);
    picture.strSearch = SearchBox()->GetText();
    picture.nBusy = record.GetBusy();
    picture.listOpen = GetOpen();
    picture.listComplaint = complaints.Take();
    for (const bool bSimulator : { false, true }) {
        picture.arrTree[bSimulator ? 1 : 0] = library.processors.GetTree(bSimulator);
        picture.arrSelected[bSimulator ? 1 : 0] = library.processors.GetSelection(bSimulator);
    }
    return picture;
}

QVector<SPictureRow> CSoakPanel::GetRows() const
{
    QVector<SPictureRow> vecRow;
    const QTreeView* const pTree = Tree();
    const QMap<QUuid, QModelIndex> mapIndex = IdMap::Get(pTree);
    Walk(pTree->model(), {}, 0, [&](const QModelIndex& index, int nDepth) {
        const bool bHidden = IsHidden(pTree, index);
        SPictureRow row;
        row.key = GetKey(index);
        row.nDepth = nDepth;
        row.bExpanded = pTree->isExpanded(index);
        row.bHidden = bHidden;
        row.bLaidOut = !bHidden && !IsFolded(pTree, index);
        row.bSelected = pTree->selectionModel()->isSelected(index);
        row.bMapped = mapIndex.value(row.key.id) == index;
        vecRow.append(row);
    });
    return vecRow;
}

RowKeys CSoakPanel::GetSeen() const
{
    SPanelPicture picture;
    picture.vecRow = GetRows();
    return PanelPicture::GetSeen(picture);
}

QModelIndex CSoakPanel::GetRow(int nRow) const
{
    QModelIndexList listIndex;
    Walk(Tree()->model(), {}, 0, [&](const QModelIndex& index, int) { listIndex.append(index); });
    return listIndex.value(nRow);
}

SPictureKey CSoakPanel::GetKey(const QModelIndex& index)
{
    return { index.data(RoleNodeType).toInt(), index.data(RoleNodeId).value<QUuid>() };
}

bool CSoakPanel::IsSimulatorShown() const
{
    return pStack->currentIndex() == 1;
}

QTreeView* CSoakPanel::Tree() const
{
    return listTree.at(pStack->currentIndex());
}

QWidget* CSoakPanel::View() const
{
    return pPanel->GetWidget();
}

CSearchBox* CSoakPanel::SearchBox() const
{
    return View()->findChild<CSearchBox*>();
}

QString CSoakPanel::GetListPath() const
{
    return GetPath(QStringLiteral("list.kvtl"));
}

QString CSoakPanel::GetPath(const QString& strName) const
{
    return folder.filePath(strName);
}
