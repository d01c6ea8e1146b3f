#include "Builders.h"
#include "CControlFixture.h"
#include "CNameRegistry.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "TestMain.h"

#include <atomic>
#include <chrono>
#include <deque>
#include <thread>

namespace {

/// Fails the program when it is notified after it was detached, or still then.
class CShortLived : public CObserver
{
public:
    virtual ~CShortLived() = default;

    void Notify(int /*nMessage*/) override
    {
        bHeard = true;
        for (int n = 0; n < 200; ++n) { // others get a turn meanwhile
            if (bDetached) {
                qFatal("notified after its end");
            }
            std::this_thread::yield();
        }
    }

    /// Waits until a Notify has begun.
    void AwaitNotify() const
    {
        const auto timeEnd = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!bHeard && std::chrono::steady_clock::now() < timeEnd) {
            std::this_thread::yield();
        }
    }

    std::atomic<bool> bHeard{ false };
    std::atomic<bool> bDetached{ false };
};

} // namespace

/// The library under everything at once.
class CMessageStormTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        SProcessorAllNode node;
        for (int n = 0; n < 64; ++n) {
            node.listGroup.append(Group(QStringLiteral("g%1").arg(n), { Processor(QStringLiteral("p%1").arg(n)) }));
        }
        pFixture.reset(new CControlFixture);
        pFixture->Start(node);
    }

    void cleanup()
    {
        pFixture.reset();
    }

    void observersComeAndGoWhileMessagesRain()
    {
        std::atomic<bool> bStop{ false };
        std::vector<std::thread> vecThread;
        for (int n = 0; n < 4; ++n) {
            vecThread.emplace_back([&, n] {
                for (int nMessage = n; !bStop; nMessage = (nMessage + 1) % 60) {
                    g_pRuntimeControl->PostMessage(nMessage);
                }
            });
        }
        for (int n = 0; n < 2; ++n) {
            vecThread.emplace_back([] {
                std::deque<CShortLived> listObserver; // they stay, so that a late message finds them
                for (int nRound = 0; nRound < 2000; ++nRound) {
                    CShortLived& observer = listObserver.emplace_back();
                    g_pRuntimeControl->Attach(&observer);
                    g_pPrcListControl->Attach(&observer);
                    if (nRound % 200 == 0) {
                        observer.AwaitNotify();
                    }
                    g_pPrcListControl->Detach(&observer);
                    g_pRuntimeControl->Detach(&observer);
                    observer.bDetached = true;
                }
            });
        }
        vecThread.at(4).join();
        vecThread.at(5).join();
        bStop = true;
        for (int n = 0; n < 4; ++n) {
            vecThread.at(n).join();
        }
        QVERIFY(pFixture->recorder.Await(14));
    }

    void readsAreWholeWhileTheListIsChangedFromAllSides()
    {
        std::atomic<bool> bStop{ false };
        std::vector<std::thread> vecThread;
        vecThread.emplace_back([&] {
            for (int n = 0; !bStop; ++n) {
                g_pPrcListControl->MoveProcessor(ProcessorId(QStringLiteral("p%1").arg(n % 64)),
                                                 n % 3 ? GroupId(QStringLiteral("g%1").arg(n % 7)) : QUuid());
            }
        });
        vecThread.emplace_back([&] {
            for (int n = 0; !bStop; ++n) {
                g_pPrcListControl->SetExpanded(GroupId(QStringLiteral("g%1").arg(n % 64)), n % 2);
            }
        });
        vecThread.emplace_back([&] {
            for (int n = 0; !bStop; ++n) {
                g_pRuntimeControl->SetSelectedNodes({ ProcessorId(QStringLiteral("p%1").arg(n % 64)) });
            }
        });
        for (int n = 0; n < 500; ++n) {
            const SProcessorAllNode node = CControlFixture::GetTree();
            int nProcessors = node.listProcessor.size();
            for (const SProcessorGroupNode& group : node.listGroup) {
                nProcessors += group.listProcessor.size();
            }
            QCOMPARE(nProcessors, 64);
            QCOMPARE(g_pRuntimeControl->GetSelectedNodes(false).size(), size_t(1));
        }
        bStop = true;
        for (std::thread& thread : vecThread) {
            thread.join();
        }
    }

    void deletionsOfTheSameNodesFromManyThreadsAreCalm()
    {
        std::vector<std::thread> vecThread;
        for (int nThread = 0; nThread < 4; ++nThread) {
            vecThread.emplace_back([] {
                for (int n = 0; n < 64; ++n) {
                    g_pPrcListControl->DeleteProcessor(ProcessorId(QStringLiteral("p%1").arg(n)), false);
                    g_pPrcListControl->DeleteGroup(GroupId(QStringLiteral("g%1").arg(n)), true);
                }
            });
        }
        for (std::thread& thread : vecThread) {
            thread.join();
        }
        QCOMPARE(CControlFixture::GetText(), QString("all*"));
        QCOMPARE(pFixture->recorder.GetAllMessages().count(MessageCommandRefused), 0);
    }

private:
    QScopedPointer<CControlFixture> pFixture;
};

PTV_TEST_MAIN_CORE(CMessageStormTest)
#include "tst_messagestorm.moc"
