#include "CModelFixture.h"
#include "TestMain.h"
#include "model/EnItemRole.h"

#include <atomic>
#include <thread>

namespace {

/// A fraction where a sanitizer makes each of them slow.
const int nRefreshes = qEnvironmentVariableIsEmpty("PTV_SANITIZE") ? 20000 : 2000;

/// A list whose shape changes with its number: processors wander between groups that come and go.
SProcessorAllNode Shape(int n)
{
    QList<SProcessorGroupNode> listGroup;
    QList<SProcessorNode> listProcessor;
    for (int i = 0; i < 6; ++i) {
        const SProcessorNode node = Processor(QString::number(i)).Expanded((n + i) % 3 == 0);
        if ((n + i) % 4 == 0) {
            listProcessor.append(node);
        } else {
            listGroup.append(Group("G" + QString::number((n + i) % 5), { node }).Id("G" + QString::number(i)));
        }
    }
    return Root(listGroup.mid(0, 1 + n % 5), listProcessor);
}

/// A worker that refreshes the store as fast as it can, each time with another shape.
class CBusyWorker
{
public:
    explicit CBusyWorker(CControlDouble& control) : thread([this, &control] { Run(control); }) { }

    ~CBusyWorker()
    {
        thread.join();
    }
    Q_DISABLE_COPY(CBusyWorker)

    bool IsBusy() const
    {
        return !bEnd;
    }

private:
    void Run(CControlDouble& control)
    {
        for (int n = 0; n < nRefreshes; ++n) {
            control.Set([n](SControlAnswers& answers) { answers.nodeDiscovered = Shape(n); });
            g_pProcessorTreeData->Refresh();
        }
        bEnd = true;
    }

    std::atomic<bool> bEnd{ false };
    std::thread thread;
};

QList<QUuid> AllIds()
{
    QList<QUuid> listId{ QUuid() };
    for (int i = 0; i < 6; ++i) {
        listId << ProcessorId(QString::number(i)) << GroupId("G" + QString::number(i));
    }
    return listId;
}

} // namespace

/// Rebuilds and gestures on the GUI thread while refreshes fall between any two of their reads.
class CRebuildStressTest : public QObject
{
    Q_OBJECT

private slots:
    void theRootStaysInSightWhileRefreshesFallIntoRebuilds()
    {
        CModelFixture fixture(Shape(0));
        fixture.Unwatch();
        const CBusyWorker worker(fixture.control);
        while (worker.IsBusy()) {
            fixture.Rebuild();
            QVERIFY(fixture.pTree->isExpanded(fixture.pModel->GetRootIndex()));
            fixture.pModel->SetSearchText("violin");
            QVERIFY(!fixture.pTree->isRowHidden(0, QModelIndex()));
        }
    }

    void everyIdHasAValidRowWhileRefreshesFallIntoRebuilds()
    {
        CModelFixture fixture(Shape(0));
        fixture.Unwatch();
        const QList<QUuid> listId = AllIds();
        const CBusyWorker worker(fixture.control);
        while (worker.IsBusy()) {
            fixture.Rebuild();
            for (const QUuid& id : listId) {
                QVERIFY(fixture.Index(id).isValid());
                QCOMPARE(fixture.Index(id).model(), fixture.pModel);
            }
        }
    }

    void openingRowsWhileRefreshesRunEndsInTheLibrarysState()
    {
        CModelFixture fixture(Shape(0));
        fixture.Unwatch();
        const QList<QUuid> listId = AllIds();
        {
            const CBusyWorker worker(fixture.control);
            for (int n = 0; worker.IsBusy(); ++n) {
                fixture.Rebuild();
                const QUuid id = listId.at(n % listId.size());
                fixture.pTree->setExpanded(fixture.Index(id), n % 2 == 0);
                g_pProcessorTreeData->SetSelectedNodes({ id });
                g_pProcessorTreeData->GetProcessor(id);
            }
        }
        g_pProcessorTreeData->Refresh();
        SProcessorAllNode node;
        g_pProcessorTreeData->GetCurrentTree(node);
        const SControlAnswers answers = fixture.control.Answers();
        QVERIFY(node.listGroup == answers.nodeDiscovered.listGroup);
        QVERIFY(node.listProcessor == answers.nodeDiscovered.listProcessor);
        QCOMPARE(g_pProcessorTreeData->GetSelectedNodes(), answers.vecDiscoveredSelection);
    }
};

PTV_TEST_MAIN(CRebuildStressTest)

#include "tst_rebuildstress.moc"
