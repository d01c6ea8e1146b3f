#include "Builders.h"
#include "CControlFixture.h"
#include "CNameRegistry.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "TestMain.h"
#include "interfaces/control/IProtocalControl.h"

#include <atomic>
#include <chrono>
#include <thread>

/// How messages reach the observers.
class CMessagesTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
        pFixture->Start(Root({ Group("Stage") }, { Processor("alpha"), Processor("beta") }));
    }

    void cleanup()
    {
        pFixture.reset();
    }

    void aNewObserverIsToldToReadTheList()
    {
        CMessageRecorder late;
        late.AttachAll();
        QVERIFY(late.Await(MessageListChanged));
        QCOMPARE(late.GetAllMessages(), QVector<int>{ MessageListChanged });
        late.DetachAll();
    }

    void onlyTheNewObserverIsToldToRead()
    {
        CMessageRecorder late;
        late.AttachAll();
        QVERIFY(late.Await(MessageListChanged));
        late.DetachAll();
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>());
    }

    void messagesComeOnAThreadOfTheLibrary()
    {
        g_pRuntimeControl->PostMessage(14);
        QVERIFY(pFixture->recorder.Await(14));
        QVERIFY(pFixture->recorder.GetThread() != std::this_thread::get_id());
    }

    void aPostedMessageReachesTheObserversInOrder()
    {
        for (const int nMessage : { 15, 14, 0, 60, -3 }) {
            g_pRuntimeControl->PostMessage(nMessage);
        }
        QCOMPARE(pFixture->recorder.GetAllMessages(), (QVector<int>{ 15, 14, 0, 60, -3 }));
    }

    void anObserverHearsOnlyWhatItIsAttachedTo()
    {
        CMessageRecorder partial;
        g_pRuntimeControl->Attach(&partial);
        g_pPrcListControl->AddGroup(Group("Hall"), true);
        g_pRuntimeControl->SetSelectedNodes({ GroupId("Hall") });
        QCOMPARE(partial.GetAllMessages(), QVector<int>{ MessageSelectionChanged });
        g_pRuntimeControl->Detach(&partial);
    }

    void anObserverThatIsAttachedTwiceHearsOnce()
    {
        g_pRuntimeControl->Attach(&pFixture->recorder);
        g_pRuntimeControl->PostMessage(14);
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ 14 });
    }

    void aBurstOfReportsEndsInOneMessage()
    {
        for (int n = 0; n < 200; ++n) {
            g_pRuntimeControl->SetSelectedNodes({ n % 2 ? ProcessorId("alpha") : ProcessorId("beta") });
        }
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ MessageSelectionChanged });
    }

    void aBurstIsFollowedBySettled()
    {
        CMessageRecorder settled;
        g_pProtocalControl->Attach(&settled);
        g_pRuntimeControl->PostMessage(14);
        QVERIFY(settled.Await(MessageSettled));
        QVERIFY(pFixture->recorder.GetMessages().contains(14));
        g_pProtocalControl->Detach(&settled);
    }

    void anObserverMayCallTheLibraryWithinNotify()
    {
        CMessageRecorder caller;
        caller.onNotify = [](int nMessage) {
            if (nMessage == 14) {
                g_pPrcListControl->AddGroup(Group("Hall"), true);
            }
        };
        caller.AttachAll();
        g_pRuntimeControl->PostMessage(14);
        QVERIFY(pFixture->recorder.Await(MessageListChanged));
        QCOMPARE(CControlFixture::GetTree().listGroup.size(), 2);
        caller.DetachAll();
    }

    void anObserverMayDetachItselfWithinNotify()
    {
        CMessageRecorder once;
        once.onNotify = [&](int) { g_pRuntimeControl->Detach(&once); };
        g_pRuntimeControl->Attach(&once);
        g_pRuntimeControl->PostMessage(14);
        g_pRuntimeControl->PostMessage(15);
        QVERIFY(pFixture->recorder.Await(15));
        QCOMPARE(once.GetMessages(), QVector<int>{ 14 });
    }

    void detachWaitsForARunningNotify()
    {
        std::atomic<bool> bInside{ false };
        std::atomic<bool> bDetached{ false };
        std::atomic<bool> bDetachedTooEarly{ false };
        CMessageRecorder slow;
        slow.onNotify = [&](int) {
            bInside = true;
            const auto timeEnd = std::chrono::steady_clock::now() + std::chrono::milliseconds(200);
            while (!bDetached && std::chrono::steady_clock::now() < timeEnd) {
                std::this_thread::yield();
            }
            bDetachedTooEarly = bDetached.load();
        };
        g_pRuntimeControl->Attach(&slow);
        g_pRuntimeControl->PostMessage(14);
        QTRY_VERIFY(bInside);
        g_pRuntimeControl->Detach(&slow);
        bDetached = true;
        QCOMPARE(slow.GetMessages(), QVector<int>{ 14 });
        QVERIFY(!bDetachedTooEarly);
    }

    void aDetachedObserverHearsNothingMore()
    {
        CMessageRecorder gone;
        gone.AttachAll();
        gone.Clear();
        g_pRuntimeControl->PostMessage(14);
        gone.DetachAll();
        g_pRuntimeControl->PostMessage(15);
        QVERIFY(pFixture->recorder.Await(15));
        QVERIFY(!gone.GetMessages().contains(15));
    }

    void aMessageIsNotHeldUpByALongLastingStorm()
    {
        std::atomic<bool> bStop{ false };
        std::thread storm([&] {
            while (!bStop) {
                g_pRuntimeControl->PostMessage(7);
            }
        });
        QVERIFY(pFixture->recorder.Await(7));
        bStop = true;
        storm.join();
    }

private:
    QScopedPointer<CControlFixture> pFixture;
};

PTV_TEST_MAIN_CORE(CMessagesTest)
#include "tst_messages.moc"
