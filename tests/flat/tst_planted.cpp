#include "Flatness.h"
#include "TestMain.h"

#include <QFile>
#include <QRegularExpression>
#include <QSemaphore>

#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace {

constexpr int nRounds = 400;
constexpr int nSoonMs = 100;

/// What grows in a test; all of it ends with the test.
struct SPlants
{
    ~SPlants()
    {
        semaphoreEnd.release(int(vecThread.size()));
        for (std::thread& thread : vecThread) {
            thread.join();
        }
    }

    std::vector<std::unique_ptr<qint64>> vecNumber;
    QVector<qint64> listNumber;
    QObject parent;
    std::vector<std::unique_ptr<QFile>> vecFile;
    std::vector<std::thread> vecThread;
    QSemaphore semaphoreEnd;
    int nRound = 0;
};

using Act = std::function<void(SPlants&)>;

void OpenFile(SPlants& plants)
{
    plants.vecFile.push_back(std::make_unique<QFile>(QStringLiteral("/dev/null")));
    QVERIFY(plants.vecFile.back()->open(QIODevice::ReadOnly));
}

void StartThread(SPlants& plants)
{
    plants.vecThread.emplace_back([&plants] { plants.semaphoreEnd.acquire(); });
}

void Start(int nMilliseconds, QObject& object)
{
    QVERIFY(object.startTimer(nMilliseconds) > 0);
}

/// "objects, timers" of "12 objects, 3 timers".
QString Kinds(QString strGrowth)
{
    return strGrowth.remove(QRegularExpression("\\d+ "));
}

} // namespace

Q_DECLARE_METATYPE(Act)

/// The measure itself: what is planted is found, and nothing else is.
class CPlantedTest : public QObject
{
    Q_OBJECT

private slots:
    void whatGrowsIsFound_data()
    {
        QTest::addColumn<Act>("act");
        QTest::addColumn<QString>("strKinds");
        QTest::newRow("a number") << Act([](SPlants& plants) { plants.vecNumber.push_back(std::make_unique<qint64>(1)); })
                                  << "bytes";
        QTest::newRow("ten entries in a list")
            << Act([](SPlants& plants) { plants.listNumber += QVector<qint64>(10); }) << "bytes";
        QTest::newRow("an object") << Act([](SPlants& plants) { new QObject(&plants.parent); }) << "bytes, objects";
        QTest::newRow("a file") << Act(OpenFile) << "bytes, objects, handles";
        QTest::newRow("a thread") << Act(StartThread) << "bytes, threads";
        QTest::newRow("a timer") << Act([](SPlants& plants) { Start(3600 * 1000, plants.parent); }) << "bytes, timers";
    }

    void whatGrowsIsFound()
    {
        QFETCH(Act, act);
        QFETCH(QString, strKinds);
        SPlants plants;
        QCOMPARE(Kinds(Flatness::FindGrowth(nRounds, [&] { act(plants); }, nSoonMs)), strKinds);
    }

    void whatStaysIsNoGrowth_data()
    {
        QTest::addColumn<Act>("act");
        QTest::newRow("nothing") << Act([](SPlants&) { });
        QTest::newRow("what goes at once") << Act([](SPlants&) { const QObject object; });
        QTest::newRow("what goes a little later") << Act([](SPlants&) { (new QObject)->deleteLater(); });
        QTest::newRow("a thread that ends") << Act([](SPlants&) { std::thread([] { }).detach(); });
        QTest::newRow("a cache that fills once") << Act([](SPlants& plants) {
            if (++plants.nRound < nRounds / 6) {
                new QObject(&plants.parent);
            }
        });
    }

    void whatStaysIsNoGrowth()
    {
        QFETCH(Act, act);
        SPlants plants;
        QCOMPARE(Flatness::FindGrowth(nRounds, [&] { act(plants); }), QString());
    }
};

PTV_TEST_MAIN(CPlantedTest)
#include "tst_planted.moc"
