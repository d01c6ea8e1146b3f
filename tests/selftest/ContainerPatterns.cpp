#include "ContainerPatterns.h"

#include <QMap>
#include <QMutex>
#include <QStringList>
#include <QThread>

#include <atomic>
#include <thread>

using RacePattern::nRounds;
using RacePattern::Repeat;
using RacePattern::Twice;

namespace {

std::atomic_int s_nElements{ 0 };

/// Runs fnWrite again and again under a lock, on a thread of its own, and fnRead without it.
void ReadBesideLock(const std::function<void()>& fnWrite, const std::function<void()>& fnRead)
{
    QMutex mutex;
    std::thread writer([&] {
        Repeat([&] {
            const QMutexLocker locker(&mutex);
            fnWrite();
        });
    });
    Repeat(fnRead);
    writer.join();
}

void RaceOnGrowingList()
{
    QList<int> list;
    list.reserve(2 * nRounds); // the elements stay where they are
    ReadBesideLock([&list] { list.append(1); }, [&list] { s_nElements += list.size(); });
}

void RaceOnShrinkingList()
{
    QList<int> list;
    Repeat([&list] { list.append(1); });
    ReadBesideLock([&list] { list.removeFirst(); }, [&list] { s_nElements += list.size(); });
}

void RaceOnString()
{
    const QString strNew = QStringLiteral("new");
    QString strShared;
    ReadBesideLock([&] { strShared = strNew; }, [&] { s_nElements += QString(strShared).size(); });
}

void RaceOnMap()
{
    QMap<int, int> map{ { -1, 0 } };
    int nNext = 0;
    ReadBesideLock([&] { map.insert(++nNext, 0); }, [&] { s_nElements += map.value(-1); });
}

void CleanList()
{
    QMutex mutex;
    QList<int> list;
    Twice([&] {
        Repeat([&] {
            const QMutexLocker locker(&mutex);
            list.append(1);
            list.append(list);
            list.erase(list.begin() + 1, list.end());
            list.prepend(2);
            list.removeFirst();
        });
    });
}

/// One thread lets go of its copy, the other then changes the elements in place.
void CleanSharedList()
{
    for (int i = 0; i < nRounds; ++i) {
        QList<QString> list{ "a", "b" };
        std::atomic_bool bLetGo{ false };
        std::thread other([list, &bLetGo]() mutable {
            s_nElements += list.size();
            list.clear();
            bLetGo.store(true, std::memory_order_relaxed);
        });
        while (!bLetGo.load(std::memory_order_relaxed)) {
            QThread::yieldCurrentThread();
        }
        list.removeFirst();
        other.join();
    }
}

} // namespace

RacePatterns ContainerPatterns::All()
{
    return {
        { "raceOnGrowingList", &RaceOnGrowingList },
        { "raceOnShrinkingList", &RaceOnShrinkingList },
        { "raceOnString", &RaceOnString },
        { "raceOnMap", &RaceOnMap },
        { "cleanList", &CleanList },
        { "cleanSharedList", &CleanSharedList },
    };
}
