#include "Builders.h"
#include "CControlFixture.h"
#include "CDispatcherRig.h"
#include "CNameRegistry.h"
#include "TestMain.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

using namespace std::chrono_literals;

namespace {

using FnReport = std::function<void(CControlHost& host, int n)>;

const QVector<int> vecCommand{ 1, 9, 10, 14, 15, 32, 53, 54 };
const QVector<int> vecRefreshing = vecCommand + QVector<int>{ MessageDevicesChanged };

void AddRows(const QVector<int>& vecMessage)
{
    QTest::addColumn<int>("nMessage");
    for (const int nMessage : vecMessage) {
        QTest::addRow("%d", nMessage) << nMessage;
    }
}

} // namespace

Q_DECLARE_METATYPE(FnReport)

/// Messages that wait while the user is in the middle of something.
class CWaitingMessagesTest : public QObject
{
    Q_OBJECT

private slots:
    void allThatRefreshWaitForAnOpenEditor_data()
    {
        AddRows(vecRefreshing);
    }

    void allThatRefreshWaitForAnOpenEditor()
    {
        QFETCH(int, nMessage);
        CDispatcherRig rig;
        rig.dispatcher.SetUserEditing(true);
        rig.PostCommand(nMessage);
        QCOMPARE(rig.HearAfter(9900ms), QVector<int>());
        rig.dispatcher.SetUserEditing(false);
        QCOMPARE(rig.HearNow(), QVector<int>{ nMessage });
    }

    void whatWaitedGoesInItsOrderWhenTheEditorCloses()
    {
        CDispatcherRig rig;
        rig.dispatcher.SetUserEditing(true);
        for (const int nMessage : { 54, 7, 15, 14, 7, 1 }) {
            rig.PostCommand(nMessage);
        }
        QCOMPARE(rig.HearAfter(200ms), QVector<int>());
        QTRY_VERIFY(rig.IsAsleep());
        rig.dispatcher.SetUserEditing(false);
        QTRY_COMPARE(rig.Hear(), QVector<int>{ 54 });
        QCOMPARE(rig.HearNow(), (QVector<int>{ 54, 7, 15, 14, 1 }));
    }

    void theReturnThatClosesTheEditorHoldsNothingBack()
    {
        CDispatcherRig rig;
        rig.dispatcher.SetUserEditing(true);
        rig.PostDevice();
        rig.dispatcher.NoteUserInput();
        rig.dispatcher.SetUserEditing(false);
        QCOMPARE(rig.HearNow(), QVector<int>{ MessageDevicesChanged });
    }

    void whatWaitsGoesTenSecondsAfterTheFirstOfIt()
    {
        CDispatcherRig rig;
        rig.dispatcher.SetUserEditing(true);
        rig.PostDevice();
        QCOMPARE(rig.HearAfter(6000ms), QVector<int>());
        rig.PostCommand();
        rig.PostDevice();
        QCOMPARE(rig.HearAfter(3900ms), QVector<int>());
        QCOMPARE(rig.HearAfter(100ms), (QVector<int>{ MessageDevicesChanged, MessageListChanged }));
    }

    void afterTenSecondsTheNextMessageWaitsAgain()
    {
        CDispatcherRig rig;
        rig.dispatcher.SetUserEditing(true);
        rig.PostCommand();
        QCOMPARE(rig.HearAfter(10000ms), QVector<int>{ MessageListChanged });
        rig.Forget();
        rig.PostCommand();
        QCOMPARE(rig.HearAfter(9900ms), QVector<int>());
        QCOMPARE(rig.HearAfter(100ms), QVector<int>{ MessageListChanged });
    }

    void aMessageThatHasBeenRaisedAlreadyWaitsToo()
    {
        CDispatcherRig rig;
        rig.PostCommand();
        rig.dispatcher.SetUserEditing(true);
        QCOMPARE(rig.HearAfter(500ms), QVector<int>());
    }

    void theNextEditorHoldsWhatTheOneBeforeLetGo()
    {
        CDispatcherRig rig;
        rig.dispatcher.SetUserEditing(true);
        rig.PostCommand();
        rig.dispatcher.SetUserEditing(false);
        rig.dispatcher.SetUserEditing(true);
        QCOMPARE(rig.HearAfter(500ms), QVector<int>());
        rig.dispatcher.SetUserEditing(false);
        QCOMPARE(rig.HearNow(), QVector<int>{ MessageListChanged });
    }

    void whatMakesNobodyReadWaitsForNothing()
    {
        CDispatcherRig rig;
        rig.dispatcher.SetUserEditing(true);
        rig.dispatcher.SetUserActing(true);
        rig.PostDevice();
        for (const int nMessage : { 0, 60, 2, 55 }) {
            rig.PostCommand(nMessage);
        }
        QCOMPARE(rig.HearNow(), (QVector<int>{ 0, 60, 2, 55 }));
    }

    void settledComesWhileOthersWait()
    {
        CDispatcherRig rig;
        rig.dispatcher.SetUserEditing(true);
        rig.PostCommand();
        rig.PostCommand(60);
        rig.clock.Turn(CMessageDispatcher::timeQuiet);
        QTRY_COMPARE(rig.Hear(), QVector<int>{ 60 });
        std::atomic<bool> bSettled{ false };
        CMessageRecorder settled;
        settled.onNotify = [&](int nMessage) { bSettled = nMessage == MessageSettled; };
        rig.dispatcher.Attach(SenderProtocal, &settled);
        QTRY_VERIFY((rig.clock.Turn(CMessageDispatcher::timeSettle), bSettled.load()));
        QCOMPARE(rig.Hear(), QVector<int>{ 60 });
        rig.dispatcher.Detach(SenderProtocal, &settled);
    }

    void aNewObserversOwnMessageWaitsForTheEditorToo()
    {
        CDispatcherRig rig;
        CMessageRecorder late;
        rig.dispatcher.SetUserEditing(true);
        rig.dispatcher.Attach(SenderPrcList, &late);
        rig.HearAfter(500ms);
        QCOMPARE(late.GetMessages(), QVector<int>());
        rig.dispatcher.SetUserEditing(false);
        rig.HearNow();
        QCOMPARE(late.GetMessages(), QVector<int>{ MessageListChanged });
        rig.dispatcher.Detach(SenderPrcList, &late);
    }

    void aNewObserversOwnMessageTakesNoOtherAlong()
    {
        CDispatcherRig rig;
        CMessageRecorder late;
        rig.dispatcher.SetUserActing(true);
        rig.PostDevice();
        rig.dispatcher.Attach(SenderPrcList, &late);
        QCOMPARE(rig.HearNow(), QVector<int>());
        QCOMPARE(late.GetMessages(), QVector<int>{ MessageListChanged });
        rig.dispatcher.Detach(SenderPrcList, &late);
    }

    void devicesWaitTwoSecondsWhileTheUserActs()
    {
        CDispatcherRig rig;
        rig.dispatcher.SetUserActing(true);
        rig.PostDevice();
        QCOMPARE(rig.HearAfter(1000ms), QVector<int>());
        rig.PostDevice();
        QCOMPARE(rig.HearAfter(900ms), QVector<int>());
        QCOMPARE(rig.HearAfter(100ms), QVector<int>{ MessageDevicesChanged });
    }

    void devicesGoWhenTheUserHasActed()
    {
        CDispatcherRig rig;
        rig.dispatcher.SetUserActing(true);
        rig.PostDevice();
        QCOMPARE(rig.HearAfter(500ms), QVector<int>());
        QTRY_VERIFY(rig.IsAsleep());
        rig.dispatcher.SetUserActing(false);
        QTRY_COMPARE(rig.Hear(), QVector<int>{ MessageDevicesChanged });
    }

    void devicesWaitUntilInputIsOld()
    {
        CDispatcherRig rig;
        rig.dispatcher.NoteUserInput();
        rig.PostDevice();
        QCOMPARE(rig.HearAfter(300ms), QVector<int>());
        rig.dispatcher.NoteUserInput();
        QCOMPARE(rig.HearAfter(380ms), QVector<int>());
        QCOMPARE(rig.HearAfter(20ms), QVector<int>{ MessageDevicesChanged });
    }

    void steadyInputHoldsDevicesBackForTwoSeconds()
    {
        CDispatcherRig rig;
        rig.PostDevice();
        for (int nKey = 0; nKey < 9; ++nKey) {
            rig.dispatcher.NoteUserInput();
            QCOMPARE(rig.HearAfter(195ms), QVector<int>()); // 210 with the burst of the mark
        }
        rig.dispatcher.NoteUserInput();
        QCOMPARE(rig.HearAfter(150ms), QVector<int>{ MessageDevicesChanged });
    }

    void commandsDoNotWaitWhileTheUserActs_data()
    {
        AddRows(vecCommand);
    }

    void commandsDoNotWaitWhileTheUserActs()
    {
        QFETCH(int, nMessage);
        CDispatcherRig rig;
        rig.dispatcher.SetUserActing(true);
        rig.dispatcher.NoteUserInput();
        rig.PostCommand(nMessage);
        QCOMPARE(rig.HearNow(), QVector<int>{ nMessage });
    }

    void waitingDevicesGoAlongWithACommandBeforeIt()
    {
        CDispatcherRig rig;
        rig.dispatcher.SetUserActing(true);
        rig.PostDevice();
        QCOMPARE(rig.HearAfter(100ms), QVector<int>());
        rig.PostCommand();
        QCOMPARE(rig.HearNow(), (QVector<int>{ MessageDevicesChanged, MessageListChanged }));
    }

    void commandsAreStillMergedWhileDevicesWait()
    {
        CDispatcherRig rig;
        rig.dispatcher.SetUserActing(true);
        rig.PostDevice();
        QCOMPARE(rig.HearAfter(1000ms), QVector<int>());
        rig.PostCommand(MessageSelectionChanged);
        QTRY_VERIFY(rig.clock.GetAlarm() == rig.clock.GetNow() + CMessageDispatcher::timeQuiet);
        rig.clock.Turn(10ms);
        rig.PostCommand(MessageSelectionChanged);
        QCOMPARE(rig.HearNow(), (QVector<int>{ MessageDevicesChanged, MessageSelectionChanged }));
    }

    void aStormOfDevicesThatWaitDelaysNoCommand()
    {
        CDispatcherRig rig;
        rig.dispatcher.SetUserActing(true);
        rig.PostCommand();
        for (int n = 0; n < 15; ++n) {
            rig.PostDevice();
            rig.clock.Turn(1ms);
        }
        QTRY_COMPARE(rig.Hear(), QVector<int>{ MessageListChanged });
        QCOMPARE(rig.HearNow(), (QVector<int>{ MessageListChanged, MessageDevicesChanged }));
    }

    void theEndDoesNotWaitForTheUser()
    {
        CDispatcherRig rig;
        rig.dispatcher.SetUserEditing(true);
        rig.PostCommand();
        rig.dispatcher.Stop();
        QCOMPARE(rig.Hear(), QVector<int>());
    }

    void aDetachedObserverHearsNothingOfWhatWaited()
    {
        CDispatcherRig rig;
        rig.dispatcher.SetUserEditing(true);
        rig.PostCommand();
        rig.dispatcher.Detach(SenderPrcList, &rig.recorder);
        rig.dispatcher.SetUserEditing(false);
        QCOMPARE(rig.HearNow(), QVector<int>());
    }

    void theApplicationHoldsACommandBackWhileItsUserEdits()
    {
        CControlFixture fixture;
        fixture.Start();
        fixture.pHost->SetUserEditing(true);
        g_pPrcListControl->AddGroup(Group("Hall"), true);
        QCOMPARE(fixture.recorder.GetAllMessages(), QVector<int>());
        fixture.pHost->SetUserEditing(false);
        QVERIFY(fixture.recorder.Await(MessageListChanged));
    }

    void theApplicationHoldsDevicesBackWhileItsUserActs()
    {
        CControlFixture fixture;
        fixture.Start();
        fixture.pHost->SetUserActing(true);
        QElapsedTimer timer;
        timer.start();
        g_pRuntimeControl->PostMessage(MessageDevicesChanged);
        QVERIFY(fixture.recorder.Await(MessageDevicesChanged));
        QVERIFY(timer.elapsed() >= 2000);
    }

    void theApplicationHoldsDevicesBackAfterInput()
    {
        CControlFixture fixture;
        fixture.Start();
        QElapsedTimer timer;
        timer.start();
        fixture.pHost->NoteUserInput();
        g_pRuntimeControl->PostMessage(MessageDevicesChanged);
        QVERIFY(fixture.recorder.Await(MessageDevicesChanged));
        QVERIFY(timer.elapsed() >= 400);
    }

    void whatTheUserDoesMayBeReportedWhileMessagesRain_data()
    {
        QTest::addColumn<FnReport>("fnReport");
        QTest::newRow("editing") << FnReport([](CControlHost& host, int n) { host.SetUserEditing(n % 2); });
        QTest::newRow("acting") << FnReport([](CControlHost& host, int n) { host.SetUserActing(n % 2); });
        QTest::newRow("input") << FnReport([](CControlHost& host, int) { host.NoteUserInput(); });
    }

    void whatTheUserDoesMayBeReportedWhileMessagesRain()
    {
        QFETCH(FnReport, fnReport);
        CControlFixture fixture;
        fixture.Start();
        // Fewer where a turn for the thread that delivers takes milliseconds.
        const QDeadlineTimer enough(3000);
        std::atomic<bool> bRains{ true };
        std::thread user([&] {
            for (int n = 0; bRains; ++n) {
                fnReport(*fixture.pHost, n);
                std::this_thread::yield();
            }
        });
        for (int n = 0; n < 500 || (n < 5000 && !enough.hasExpired()); ++n) {
            g_pRuntimeControl->PostMessage(vecRefreshing.at(n % vecRefreshing.size()));
            std::this_thread::yield();
        }
        bRains = false;
        user.join();
        fixture.pHost->SetUserEditing(false);
        QVERIFY(fixture.recorder.Await(MessageListChanged));
    }
};

PTV_TEST_MAIN_CORE(CWaitingMessagesTest)
#include "tst_waitingmessages.moc"
