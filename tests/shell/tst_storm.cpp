#include "TestMain.h"
#include "fixtures/CStoreFixture.h"
#include "interfaces/host/ICorvidWidget.h"
#include "interfaces/host/IUIManagement.h"
#include "interfaces/host/ProcessorTreeViewInit.h"

#include <QWidget>

#include <atomic>
#include <thread>
#include <vector>

namespace {

constexpr int nRainThreads = 4;

/// How often the panel is created and ended; PTV_STORM_CYCLES sets another number.
int Cycles()
{
    bool bOk = false;
    const int nCycles = qEnvironmentVariableIntValue("PTV_STORM_CYCLES", &bOk);
    return bOk ? nCycles : 2000;
}

SProcessorAllNode Site(bool bOnline)
{
    return Root({ Group("Stage", { Processor("alpha").Online(bOnline), Processor("beta") }) }, { Processor("loose") });
}

class CHost final : public IUIManagement
{
public:
    QWidget* GetParentWidget() override
    {
        return &parent;
    }

    QWidget parent;
};

/// Four threads of a control library that raise messages, refreshing ones and others, without an end,
/// and let the list live: each message comes with some change.
class CRain
{
public:
    explicit CRain(CControlDouble& controlIn) : control(controlIn)
    {
        for (int i = 0; i < nRainThreads; ++i) {
            vecThread.emplace_back([this, i] { Run(i); });
        }
    }

    ~CRain()
    {
        bEnd = true;
        for (std::thread& thread : vecThread) {
            thread.join();
        }
    }
    Q_DISABLE_COPY(CRain)

    int Drops() const
    {
        return nDrops;
    }

private:
    void Run(int nThread)
    {
        static const int arrMessage[] = { 1, 7, 9, 10, 14, 15, 32, 53, 54, 59, 0, 2, 60 };
        for (int i = nThread; !bEnd; ++i) {
            if (i % 16 == 0) {
                ChangeSomething(i);
            }
            control.RaiseHere(arrMessage[i % std::size(arrMessage)]);
            ++nDrops;
            std::this_thread::yield();
        }
    }

    void ChangeSomething(int i)
    {
        control.Set([i](SControlAnswers& answers) {
            answers.bListLocked = i % 3 == 0;
            answers.bChiefMode = i % 5 == 0;
            answers.strProject = QString::number(i % 7);
            answers.vecDiscoveredSelection = { ProcessorId(i % 2 == 0 ? "alpha" : "beta") };
            // Anew, since what was handed out is shared with the worker and must not be written again.
            answers.nodeDiscovered = Site(i % 2 == 0);
        });
    }

    CControlDouble& control;
    std::atomic<bool> bEnd{ false };
    std::atomic<int> nDrops{ 0 };
    std::vector<std::thread> vecThread;
};

} // namespace

/// The panel's life under a rain of messages.
class CStormTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        control.ClearJournal();
        control.Set([](SControlAnswers& answers) {
            answers.nodeDiscovered = Site(false);
            answers.nodeSimulator = Root({}, { Processor("sim") });
        });
    }

    void noStopHangsAndNoMessageReachesADeadPanel()
    {
        RunCycles(Cycles() / 2, true);
    }

    void aPanelThatIsShownBearsTheRain()
    {
        CHost host;
        ICorvidWidget* pPanel = nullptr;
        CProcessorTreeView_Init(&pPanel, &host);
        host.parent.resize(320, 600);
        pPanel->GetWidget()->resize(320, 600);
        host.parent.show();
        {
            const CRain rain(control);
            QTRY_VERIFY(control.CallCount(QStringLiteral("GetDiscoveredTree")) >= 50);
        }

        delete pPanel;

        QCOMPARE(control.Attached(), QStringList());
    }

    void aStopDirectlyAfterTheStartBearsTheRain()
    {
        RunCycles(Cycles() - Cycles() / 2, false);
    }

private:
    void RunCycles(int nCycles, bool bProcessEvents)
    {
        CHost host;
        const CRain rain(control);
        for (int nCycle = 0; nCycle < nCycles; ++nCycle) {
            ICorvidWidget* pPanel = nullptr;
            QCOMPARE(CProcessorTreeView_Init(&pPanel, &host), 1);
            if (bProcessEvents) {
                QCoreApplication::processEvents();
            }
            delete pPanel;
            QCOMPARE(control.Attached(), QStringList());
            QCOMPARE(control.CallCount(QStringLiteral("ExportList")), 1);
            control.ClearJournal();
        }
        QVERIFY(rain.Drops() > 0);
        QVERIFY(host.parent.children().isEmpty());
    }

    CStoreFixture fixture;
    CControlDouble& control = fixture.control;
};

PTV_TEST_MAIN(CStormTest)
#include "tst_storm.moc"
