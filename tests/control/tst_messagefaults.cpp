#include "CHandClock.h"
#include "CMessageRecorder.h"
#include "CorvidControl/faults/CMessageFaults.h"
#include "CorvidControl/messages/CMessageDispatcher.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "TestMain.h"

using namespace std::chrono_literals;

namespace {

constexpr CMessageFaults::Time timeBegin{ 1h };

std::vector<SMessageOnItsWay> Messages(const QVector<int>& vecNumber, CObserver* pOnly = nullptr)
{
    std::vector<SMessageOnItsWay> vecMessage;
    for (const int nMessage : vecNumber) {
        vecMessage.push_back({ SenderPrcList, nMessage, pOnly });
    }
    return vecMessage;
}

/// What comes out for these messages.
QVector<int> Pass(CMessageFaults& faults, const QVector<int>& vecNumber, CMessageFaults::Time timeNow = timeBegin)
{
    QVector<int> vecOut;
    for (const SMessageOnItsWay& message : faults.Pass(Messages(vecNumber), timeNow)) {
        vecOut.append(message.nMessage);
    }
    return vecOut;
}

using Numbers = QVector<int>;

} // namespace

/// Messages that are lost, doubled and reordered on their way.
class CMessageFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void withoutAFaultAllComeAsTheyAre()
    {
        CMessageFaults faults;
        QCOMPARE(Pass(faults, { 1, 9, 7 }), (Numbers{ 1, 9, 7 }));
        QCOMPARE(Pass(faults, {}), Numbers());
        QVERIFY(faults.GetDue() == CMessageFaults::Time::max());
    }

    void theNextOnesAreLostAndNoMore()
    {
        CMessageFaults faults;
        faults.Lose(3);
        QCOMPARE(Pass(faults, { 1, 9 }), Numbers());
        QCOMPARE(Pass(faults, { 7, 10, 1 }), (Numbers{ 10, 1 }));
        QCOMPARE(Pass(faults, { 1 }), Numbers{ 1 });
    }

    void theNextOnesComeTwiceAndNoMore()
    {
        CMessageFaults faults;
        faults.Double(2);
        QCOMPARE(Pass(faults, { 1, 9, 7 }), (Numbers{ 1, 1, 9, 9, 7 }));
        QCOMPARE(Pass(faults, { 1 }), Numbers{ 1 });
    }

    void thoseThatChangePlacesWaitForTheLastAndComeBackwards()
    {
        CMessageFaults faults;
        faults.Reorder(3);
        QCOMPARE(Pass(faults, { 1, 9 }), Numbers());
        QCOMPARE(Pass(faults, { 7, 10 }), (Numbers{ 7, 9, 1, 10 }));
        QCOMPARE(Pass(faults, { 1, 9 }), (Numbers{ 1, 9 }));
        QVERIFY(faults.GetDue() == CMessageFaults::Time::max());
    }

    void whatWaitsForMoreGoesAfterASecondAndTheFaultIsOver()
    {
        CMessageFaults faults;
        faults.Reorder(5);
        QCOMPARE(Pass(faults, { 1 }), Numbers());
        QCOMPARE(Pass(faults, { 9 }, timeBegin + 900ms), Numbers());
        QVERIFY(faults.GetDue() == timeBegin + 1s);
        QCOMPARE(Pass(faults, {}, timeBegin + 999ms), Numbers());
        QCOMPARE(Pass(faults, {}, timeBegin + 1s), (Numbers{ 9, 1 }));
        QCOMPARE(Pass(faults, { 1, 9 }, timeBegin + 2s), (Numbers{ 1, 9 }));
    }

    void oneThatIsLostIsNeitherDoubledNorWaitedFor()
    {
        CMessageFaults faults;
        faults.Lose(1);
        faults.Double(1);
        faults.Reorder(2);
        QCOMPARE(Pass(faults, { 1, 9, 7, 10 }), (Numbers{ 7, 9, 9, 10 }));
    }

    void whatANewObserverReadsByIsLeftAlone()
    {
        CMessageFaults faults;
        CMessageRecorder observer;
        faults.Lose(1);
        QCOMPARE(faults.Pass(Messages({ 1 }, &observer), timeBegin).size(), size_t(1));
        QCOMPARE(Pass(faults, { 1 }), Numbers());
    }

    // The dispatcher sleeps until a message comes; those that wait here must wake it.
    void theDispatcherDeliversWhatHasWaitedInVain()
    {
        CHandClock clock;
        CMessageFaults faults;
        CMessageRecorder recorder;
        CMessageDispatcher dispatcher(clock, &faults);
        dispatcher.Attach(SenderRuntime, &recorder);
        faults.Reorder(3);
        dispatcher.Post(SenderRuntime, MessageListChanged);
        dispatcher.Post(SenderRuntime, MessageSelectionChanged);
        const CControlClock::Time timeDue = clock.GetNow() + CMessageDispatcher::timeQuiet + CMessageFaults::timeGather;
        QTRY_VERIFY(clock.GetAlarm() == clock.GetNow() + CMessageDispatcher::timeQuiet);
        clock.Turn(CMessageDispatcher::timeQuiet);
        QTRY_VERIFY(clock.GetAlarm() == timeDue);
        QCOMPARE(recorder.GetMessages(), Numbers());
        clock.Turn(CMessageFaults::timeGather);
        QVERIFY(recorder.Await(MessageListChanged));
        QCOMPARE(recorder.GetMessages(), (Numbers{ MessageSelectionChanged, MessageListChanged }));
    }

    void theEndOfABurstIsToldAlsoWhenAllOfItWasLost()
    {
        CHandClock clock;
        CMessageFaults faults;
        CMessageRecorder recorder;
        CMessageDispatcher dispatcher(clock, &faults);
        dispatcher.Attach(SenderRuntime, &recorder);
        dispatcher.Attach(SenderProtocal, &recorder);
        faults.Lose(1);
        dispatcher.Post(SenderRuntime, MessageListChanged);
        QTRY_VERIFY(clock.GetAlarm() == clock.GetNow() + CMessageDispatcher::timeQuiet);
        clock.Turn(CMessageDispatcher::timeQuiet);
        QTRY_VERIFY(clock.GetAlarm() == clock.GetNow() + CMessageDispatcher::timeSettle);
        clock.Turn(CMessageDispatcher::timeSettle);
        QVERIFY(recorder.Await(MessageSettled));
        QCOMPARE(recorder.GetMessages(), Numbers());
    }
};

PTV_TEST_MAIN_CORE(CMessageFaultsTest)
#include "tst_messagefaults.moc"
