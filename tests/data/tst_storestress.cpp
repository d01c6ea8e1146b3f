#include "CFilledStore.h"
#include "TestMain.h"
#include "double/CControlDouble.h"

#include <atomic>
#include <thread>

namespace {

constexpr int nRefreshes = 400;

/// A list in which everything carries the number of its generation.
SProcessorAllNode Generation(int n)
{
    QList<SProcessorNode> listProcessor;
    for (int i = 0; i < 20; ++i) {
        listProcessor.append(Processor(QString::number(i)).Project(QString::number(n)));
    }
    return Root({ Group("Stage", listProcessor.mid(0, 7)), Group("Hall", listProcessor.mid(7, 6)) }, listProcessor.mid(13));
}

/// All processors are there, and of one generation.
bool IsWhole(const SProcessorAllNode& node)
{
    QList<SProcessorNode> listProcessor = node.listProcessor;
    for (const SProcessorGroupNode& group : node.listGroup) {
        listProcessor += group.listProcessor;
    }
    const QString strProject = listProcessor.value(0).strProject;
    return listProcessor.size() == 20
        && std::all_of(listProcessor.cbegin(), listProcessor.cend(),
                       [&](const SProcessorNode& processor) { return processor.strProject == strProject; });
}

} // namespace

/// The GUI thread reads and writes while the worker refreshes.
class CStoreStressTest : public QObject
{
    Q_OBJECT

private slots:
    void everyTreeThatIsReadIsWhole()
    {
        CControlDouble control;
        control.Set([](SControlAnswers& answers) { answers.nodeDiscovered = answers.nodeSimulator = Generation(0); });
        g_pProcessorTreeData->Refresh();
        bool bWhole = true;
        RunAgainstRefreshes(control, [&] {
            bWhole = bWhole && IsWhole(CurrentTree(*g_pProcessorTreeData)) && IsWhole(TreeOfPane(*g_pProcessorTreeData, false))
                && IsWhole(TreeOfPane(*g_pProcessorTreeData, true)) && g_pProcessorTreeData->GetProcessorCount() == 20;
        });
        QVERIFY(bWhole);
    }

    void writingBetweenRefreshesLosesNothing()
    {
        CControlDouble control;
        int n = 0;
        RunAgainstRefreshes(control, [&] {
            ++n;
            g_pProcessorTreeData->SetExpanded(ProcessorId(QString::number(n % 20)), n % 3 == 0);
            g_pProcessorTreeData->SetExpanded(GroupId("Stage"), n % 2 == 0);
            g_pProcessorTreeData->SetSelectedNodes({ ProcessorId(QString::number(n % 20)) });
            g_pProcessorTreeData->SetSimulatorPane(n % 2 == 0);
        });
        g_pProcessorTreeData->Refresh();
        QVERIFY(IsSame(TreeOfPane(*g_pProcessorTreeData, false), Generation(nRefreshes)));
        QVERIFY(IsSame(TreeOfPane(*g_pProcessorTreeData, true), Generation(nRefreshes)));
        QCOMPARE(g_pProcessorTreeData->IsSimulatorPane(), false);
        QVERIFY(g_pProcessorTreeData->GetSelectedNodes(false).empty());
        QVERIFY(g_pProcessorTreeData->GetSelectedNodes(true).empty());
    }

    void aDirectSlotReadsWhileOthersRead()
    {
        CControlDouble control;
        QObject context;
        std::atomic<int> nSlots{ 0 };
        const auto fnRead = [&] { nSlots += IsWhole(CurrentTree(*g_pProcessorTreeData)) ? 1 : 0; };
        connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyWindowTitle, &context, fnRead, Qt::DirectConnection);
        RunAgainstRefreshes(control, [&] { g_pProcessorTreeData->GetNodeName(ProcessorId("19")); });
        QCOMPARE(nSlots.load(), nRefreshes);
    }

private:
    /// Changes the library and refreshes the store on a thread of its own, nRefreshes times; runs fnGui on
    /// this thread all the while.
    template <typename Gui> void RunAgainstRefreshes(CControlDouble& control, Gui fnGui)
    {
        std::atomic<bool> bEnd{ false };
        std::thread worker([&] {
            for (int n = 1; n <= nRefreshes; ++n) {
                control.Set([n](SControlAnswers& answers) {
                    answers.nodeDiscovered = Generation(n);
                    answers.nodeSimulator = Generation(n);
                    answers.bSimulatorPane = n % 2 != 0;
                    answers.strProject = QString::number(n);
                    answers.bChiefMode = n % 3 == 0;
                });
                g_pProcessorTreeData->Refresh();
            }
            bEnd = true;
        });
        while (!bEnd) {
            fnGui();
        }
        worker.join();
    }
};

PTV_TEST_MAIN_CORE(CStoreStressTest)

#include "tst_storestress.moc"
