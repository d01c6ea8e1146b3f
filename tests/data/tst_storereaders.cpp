#include "CFilledStore.h"
#include "CRefreshFixture.h"
#include "SStoreCall.h"
#include "TestMain.h"

#include <QReadWriteLock>

#include <algorithm>
#include <future>

namespace {

using namespace std::chrono_literals;

/// Far longer than any call takes that does not wait for a lock.
constexpr auto timeLong = 30ms;
constexpr std::chrono::milliseconds timeDeadline{ nPatience };

/// Reaches the lock, which is private: the arguments of an explicit instantiation are exempt from that.
template <QReadWriteLock* CProcessorTreeData::* pField> struct SLockAccess
{
    friend QReadWriteLock& LockOf(const CProcessorTreeData& store)
    {
        return *(store.*pField);
    }
};
QReadWriteLock& LockOf(const CProcessorTreeData& store);
template struct SLockAccess<&CProcessorTreeData::pLock>;

bool EndsWithin(const std::future<void>& future, std::chrono::milliseconds nTime)
{
    return future.wait_for(nTime) == std::future_status::ready;
}

/// The calls that write into the store, or all others.
std::vector<SStoreCall> Calls(bool bWriting)
{
    static const QStringList listWriter{ "SetSimulatorPane", "SetSelectedNodes", "SetExpanded", "AppendGroup" };
    std::vector<SStoreCall> vecCall = SStoreCall::All();
    const auto fnOther = [&](const SStoreCall& call) { return listWriter.contains(call.pName) != bWriting; };
    vecCall.erase(std::remove_if(vecCall.begin(), vecCall.end(), fnOther), vecCall.end());
    return vecCall;
}

void ReadAll(CProcessorTreeData& store)
{
    for (const SStoreCall& call : Calls(false)) {
        call.fnCall(store);
    }
}

/// True when fnCall ends on a thread of its own within nTime while this thread reads.
template <typename Call> bool PassesAReader(const CProcessorTreeData& store, std::chrono::milliseconds nTime, Call fnCall)
{
    LockOf(store).lockForRead();
    const auto future = std::async(std::launch::async, fnCall);
    const bool bPassed = EndsWithin(future, nTime);
    LockOf(store).unlock();
    return bPassed;
}

} // namespace

/// Readers of the store do not wait for each other, and writers wait for them.
class CStoreReadersTest : public QObject
{
    Q_OBJECT

private slots:
    void aQueryRunsBesideAReader()
    {
        CFilledStore store;
        for (const SStoreCall& call : Calls(false)) {
            QVERIFY2(PassesAReader(store, timeDeadline, [&] { call.fnCall(store); }), call.pName);
        }
    }

    void aWriterWaitsForAReader()
    {
        CFilledStore store;
        for (const SStoreCall& call : Calls(true)) {
            QVERIFY2(!PassesAReader(store, timeLong, [&] { call.fnCall(store); }), call.pName);
        }
    }

    void aRefreshWaitsForAReader()
    {
        CRefreshFixture fixture;
        QVERIFY(!PassesAReader(fixture.store, timeLong, [&] { fixture.store.Refresh(); }));
    }

    void aThreadThatHasRefreshedRunsBesideAReader()
    {
        CRefreshFixture fixture;
        std::promise<void> refreshed;
        std::promise<void> goOn;
        const auto queries = std::async(std::launch::async, [&] {
            fixture.store.Refresh();
            refreshed.set_value();
            goOn.get_future().wait();
            ReadAll(fixture.store);
        });
        refreshed.get_future().wait();
        LockOf(fixture.store).lockForRead();
        goOn.set_value();
        const bool bPassed = EndsWithin(queries, timeDeadline);
        LockOf(fixture.store).unlock();
        QVERIFY(bPassed);
    }

    void aDirectSlotReadsWhileASecondRefreshWaits()
    {
        CRefreshFixture fixture;
        fixture.control.Set([](SControlAnswers& answers) { answers.strProject = "Ballet"; });
        std::future<void> second;
        bool bSecondWaited = false;
        const auto fnRead = [&] {
            second = std::async(std::launch::async, [&] { fixture.store.Refresh(); });
            bSecondWaited = !EndsWithin(second, timeLong);
            ReadAll(fixture.store);
        };
        connect(&fixture.store, &CProcessorTreeData::NotifyWindowTitle, &fixture.log, fnRead, Qt::DirectConnection);
        const auto first = std::async(std::launch::async, [&] { fixture.store.Refresh(); });
        if (!EndsWithin(first, timeDeadline)) {
            qFatal("a slot waits for the lock that its own thread holds");
        }
        QVERIFY(bSecondWaited);
        QVERIFY(EndsWithin(second, timeDeadline));
    }
};

PTV_TEST_MAIN_CORE(CStoreReadersTest)

#include "tst_storereaders.moc"
