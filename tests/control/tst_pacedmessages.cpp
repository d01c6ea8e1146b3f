#include "CDispatcherRig.h"
#include "TestMain.h"
#include "live/CQueueWatch.h"

#include <deque>
#include <mutex>

using namespace std::chrono_literals;

namespace {

using Time = CControlClock::Time;

constexpr int nGap = CMessageDispatcher::timeGap.count();

const QVector<int> vecRefreshing{ 1, 7, 9, 10, 14, 15, 32, 53, 54 };

/// A rig that knows when each message came, by its clock.
class CPacedRig : public CDispatcherRig
{
public:
    CPacedRig()
    {
        times.onNotify = [this](int nMessage) { Note(nMessage); };
        for (int nSender = SenderPrcBasic; nSender <= SenderPreference; ++nSender) {
            dispatcher.Attach(EnMessageSender(nSender), &times);
        }
        HearNow();
        clock.Turn(100ms);
        recorder.Await(MessageSettled);
        Forget();
        const std::lock_guard<std::mutex> lock(mutex);
        vecTime.clear();
    }

    ~CPacedRig()
    {
        dispatcher.Stop();
    }
    Q_DISABLE_COPY(CPacedRig)

    /// Lets one after another of the milliseconds pass; before each, its number's events come.
    template <typename Event> void Live(int nMilliseconds, Event fnEvent)
    {
        for (int n = 0; n < nMilliseconds; ++n) {
            fnEvent(n);
            Step();
        }
    }

    /// Of those that make observers read.
    QVector<Time> GetTimes()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return QVector<Time>(vecTime.cbegin(), vecTime.cend()); // not shared with who writes on
    }

    CMessageRecorder times;

private:
    void Note(int nMessage)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (CUserActivity::MakesRead(nMessage)) {
            vecTime.append(clock.GetNow());
        }
    }

    std::mutex mutex; ///< guards vecTime
    QVector<Time> vecTime;
};

/// The most that a reader has in its queue, with the one that it works on, when each takes it time.
int FindLongestQueue(const QVector<Time>& vecTime, std::chrono::milliseconds time)
{
    std::deque<Time> listEnd; // of those in the queue
    size_t nLongest = 0;
    for (const Time& timeCame : vecTime) {
        while (!listEnd.empty() && listEnd.front() <= timeCame) {
            listEnd.pop_front();
        }
        listEnd.push_back((listEnd.empty() ? timeCame : listEnd.back()) + time);
        nLongest = std::max(nLongest, listEnd.size());
    }
    return int(nLongest);
}

} // namespace

/// How far apart the messages come that make observers read.
class CPacedMessagesTest : public QObject
{
    Q_OBJECT

private slots:
    void aSingleMessageAfterAPauseComesAfterTheQuietTime_data()
    {
        QTest::addColumn<int>("nMessage");
        for (const int nMessage : vecRefreshing) {
            QTest::addRow("%d", nMessage) << nMessage;
        }
    }

    void aSingleMessageAfterAPauseComesAfterTheQuietTime()
    {
        QFETCH(int, nMessage);
        CPacedRig rig;
        const Time timePosted = rig.clock.GetNow();
        rig.PostCommand(nMessage);
        rig.Live(14, [](int) { });
        QCOMPARE(rig.Hear(), QVector<int>());
        rig.Live(1, [](int) { });
        QCOMPARE(rig.Hear(), QVector<int>{ nMessage });
        QVERIFY(rig.GetTimes() == QVector<Time>{ timePosted + CMessageDispatcher::timeQuiet });
    }

    void theMessagesOfABurstKeepTheirOrderAndTheirDistance()
    {
        CPacedRig rig;
        for (const int nMessage : vecRefreshing) {
            rig.PostCommand(nMessage);
        }
        QCOMPARE(rig.HearNow(), vecRefreshing);
        const QVector<Time> vecTime = rig.GetTimes();
        for (int n = 1; n < vecTime.size(); ++n) {
            QVERIFY(vecTime.at(n) - vecTime.at(n - 1) == CMessageDispatcher::timeGap);
        }
    }

    void whatMakesNobodyReadKeepsItsPlace()
    {
        CPacedRig rig;
        for (const int nMessage : { 60, 1, 61, 7, 62 }) {
            rig.PostCommand(nMessage);
        }
        rig.Live(15, [](int) { });
        QCOMPARE(rig.Hear(), (QVector<int>{ 60, 1, 61 }));
        rig.Live(nGap, [](int) { });
        QCOMPARE(rig.Hear(), (QVector<int>{ 60, 1, 61, 7, 62 }));
    }

    void whatMakesNobodyReadKeepsNoDistance()
    {
        CPacedRig rig;
        rig.PostCommand();
        rig.Live(15, [](int) { });
        rig.PostCommand(60);
        rig.PostCommand();
        rig.Live(15, [](int) { });
        QCOMPARE(rig.Hear(), (QVector<int>{ 1, 60 }));
        rig.Live(nGap - 15, [](int) { });
        QCOMPARE(rig.Hear(), (QVector<int>{ 1, 60, 1 }));
    }

    void noSecondOfAStormHasMoreThanFiftyAndNoQueueMoreThanThree_data()
    {
        QTest::addColumn<QVector<int>>("vecStorm");
        QTest::addColumn<int>("nPeriod");
        QTest::newRow("all kinds") << vecRefreshing << 1;
        QTest::newRow("two kinds") << QVector<int>{ 1, 7 } << 1;
        QTest::newRow("devices") << QVector<int>{ 7 } << 1;
        QTest::newRow("devices, just apart") << QVector<int>{ 7 } << 16;
        QTest::newRow("all kinds, just apart") << vecRefreshing << 16;
    }

    void noSecondOfAStormHasMoreThanFiftyAndNoQueueMoreThanThree()
    {
        QFETCH(QVector<int>, vecStorm);
        QFETCH(int, nPeriod);
        CPacedRig rig;
        rig.Live(3000, [&](int n) {
            for (int nEvent = 0; n % nPeriod == 0 && nEvent < 10; ++nEvent) {
                rig.PostCommand(vecStorm.at((n + nEvent) % vecStorm.size()));
            }
        });
        const QVector<Time> vecTime = rig.GetTimes();
        QVERIFY(vecTime.size() >= 3000ms / CMessageDispatcher::timeLongest - 1);
        QVERIFY2(CQueueWatch::CountMostInASecond(vecTime) <= 50, QByteArray::number(CQueueWatch::CountMostInASecond(vecTime)));
        QVERIFY(FindLongestQueue(vecTime, CMessageDispatcher::timeGap) <= 3);
    }

    void aStormOfFewKindsComesNoMoreOftenThanItMust()
    {
        CPacedRig rig;
        rig.Live(1200, [&](int) {
            rig.PostDevice();
            rig.PostCommand();
        });
        QVERIFY(rig.GetTimes().size() <= 20);
    }

    void eachKindOfAStormComesInGoodTime()
    {
        CPacedRig rig;
        rig.Live(1200, [&](int) {
            for (const int nMessage : vecRefreshing) {
                rig.PostCommand(nMessage);
            }
        });
        const QVector<int> vecHeard = rig.Hear();
        for (const int nMessage : vecRefreshing) {
            QVERIFY2(vecHeard.count(nMessage) >= 2, QByteArray::number(nMessage));
        }
    }

    void theLastEventIsFollowedByAMessageInGoodTime_data()
    {
        QTest::addColumn<int>("nLast");
        for (const int nLast : { 0, 7, 14, 15, 16, 39, 41, 104, 119, 120, 121, 134, 160, 401 }) {
            QTest::addRow("after %d ms", nLast) << nLast;
        }
    }

    void theLastEventIsFollowedByAMessageInGoodTime()
    {
        QFETCH(int, nLast);
        CPacedRig rig;
        rig.Live(nLast, [&](int n) { rig.PostCommand(vecRefreshing.at(n % vecRefreshing.size())); });
        const Time timeLast = rig.clock.GetNow();
        rig.PostDevice();
        rig.HearNow();
        rig.HearNow(); // also where that message came at once, with one for a device before the last
        const QVector<Time> vecTime = rig.GetTimes();
        const auto itNext = std::find_if(vecTime.cbegin(), vecTime.cend(), [&](const Time& time) { return time >= timeLast; });
        QVERIFY(itNext != vecTime.cend());
        QVERIFY(*itNext <= timeLast + CMessageDispatcher::timeQuiet + CMessageDispatcher::timeGap);
        QCOMPARE(rig.Hear().last(), int(MessageDevicesChanged));
    }

    void aCommandInAStormOfDevicesComesInGoodTime()
    {
        CPacedRig rig;
        rig.Live(500, [&](int) { rig.PostDevice(); });
        rig.PostCommand();
        rig.Live(120 + nGap, [&](int) { rig.PostDevice(); });
        QVERIFY(rig.Hear().contains(MessageListChanged));
    }

    void anEqualOfTheRestIsMergedIntoIt()
    {
        CPacedRig rig;
        rig.PostCommand();
        rig.PostDevice();
        rig.Live(15, [](int) { });
        rig.PostDevice();
        rig.Live(nGap, [](int) { });
        QCOMPARE(rig.Hear(), (QVector<int>{ 1, 7 }));
        QCOMPARE(rig.HearAfter(200ms), (QVector<int>{ 1, 7 }));
    }

    void anEditorThatOpensHoldsTheRestOfABurst()
    {
        CPacedRig rig;
        rig.PostCommand();
        rig.PostDevice();
        rig.Live(15, [](int) { });
        rig.dispatcher.SetUserEditing(true);
        QCOMPARE(rig.HearAfter(500ms), QVector<int>{ 1 });
        rig.dispatcher.SetUserEditing(false);
        QCOMPARE(rig.HearNow(), (QVector<int>{ 1, 7 }));
    }

    void aUserWhoActsDoesNotHoldTheRestOfABurst()
    {
        CPacedRig rig;
        rig.PostCommand();
        rig.PostDevice();
        rig.Live(15, [](int) { });
        rig.dispatcher.SetUserActing(true);
        rig.Live(nGap, [](int) { });
        QCOMPARE(rig.Hear(), (QVector<int>{ 1, 7 }));
    }

    void settledComesBehindTheRestOfABurst()
    {
        CPacedRig rig;
        QVector<int> vecAll;
        std::mutex mutexAll;
        rig.recorder.onNotify = [&](int nMessage) {
            const std::lock_guard<std::mutex> lock(mutexAll);
            vecAll.append(nMessage);
        };
        const auto getAll = [&] {
            const std::lock_guard<std::mutex> lock(mutexAll);
            return QVector<int>(vecAll.cbegin(), vecAll.cend()); // not shared with who writes on
        };
        for (const int nMessage : { 1, 7, 9, 10 }) {
            rig.PostCommand(nMessage);
        }
        rig.Live(15 + 3 * nGap + 59, [](int) { });
        QCOMPARE(getAll(), (QVector<int>{ 1, 7, 9, 10 }));
        rig.clock.Turn(1ms);
        QTRY_COMPARE(getAll(), (QVector<int>{ 1, 7, 9, 10, MessageSettled }));
        rig.dispatcher.Stop();
    }
};

PTV_TEST_MAIN_CORE(CPacedMessagesTest)
#include "tst_pacedmessages.moc"
