#include "CDialogDriver.h"
#include "CFaultWindow.h"
#include "CHeartbeat.h"
#include "CorvidControl/faults/ControlCalls.h"
#include "Kestrel/player/PanelAccess.h"
#include "TestMain.h"

#include <QAbstractButton>
#include <QTreeView>

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace {

constexpr std::chrono::seconds timeLate{ 5 };
constexpr std::chrono::milliseconds timeStall{ 100 };
constexpr int nClickMs = 20;
constexpr int nPatienceOfAll = 5 * nPatience; // the worker's seven readings come one after the other

void SetLate(const CFaultWindow& scene, int nMilliseconds, int nSeconds)
{
    for (const QString& strCall : ControlCalls::GetHeld()) {
        scene.Break(QStringLiteral("'do':'latency','call':'%1','ms':%2,'for':%3").arg(strCall).arg(nMilliseconds).arg(nSeconds));
    }
}

QAbstractButton* Button(const CFaultWindow& scene, const QString& strToolTip)
{
    return PanelAccess::FindButton(scene.kestrel.pPanel->GetWidget(), strToolTip);
}

/// All that the panel does off the GUI thread, at the same time: the worker's reading, a job of the pool and three threads.
void StartEverything(const CFaultWindow& scene, const CHeartbeat& heart)
{
    scene.kestrel.pHost->OpenProject(QStringLiteral("Aurora"));
    scene.kestrel.pPanel->GetWidget()->findChild<QAbstractButton*>(QStringLiteral("IconButtonTitle"))->click();
    for (const char* szNode : { "Door 1", "Main stage" }) {
        scene.kestrel.Select({ szNode });
        scene.kestrel.Key(Qt::Key_Delete);
        const int nBeats = heart.GetBeats(); // a key that goes up and down in one millisecond is taken for a held one
        QTRY_VERIFY(heart.GetBeats() > nBeats + 1);
    }
    CDialogDriver driver;
    driver.Answer("DialogAccept");
    Button(scene, QStringLiteral("Add a processor"))->click();
    QTRY_VERIFY(driver.IsDone());
}

/// The calls that have not been as late as they should yet.
QStringList FindMissing(CFaultWindow& scene)
{
    QStringList listCall = ControlCalls::GetHeld();
    const auto wasLate = [&](const QString& strCall) { return scene.commands.GetLongest(strCall) >= timeLate; };
    listCall.erase(std::remove_if(listCall.begin(), listCall.end(), wasLate), listCall.end());
    return listCall;
}

} // namespace

/// The window while the library takes its time.
class CResponsiveTest : public QObject
{
    Q_OBJECT

private slots:
    void noCallOffTheGuiThreadHoldsTheWindow()
    {
        CFaultWindow scene;
        SetLate(scene, std::chrono::milliseconds(timeLate).count(), 3600);
        const CHeartbeat heart;
        QTimer user; // walks through the rows, which asks for the snapshot at each step
        connect(&user, &QTimer::timeout, &user, [&] { scene.kestrel.Key(heart.GetBeats() % 2 ? Qt::Key_Up : Qt::Key_Down); });

        StartEverything(scene, heart);
        user.start(nClickMs);
        QTRY_VERIFY2_WITH_TIMEOUT(FindMissing(scene).isEmpty(), qPrintable(FindMissing(scene).join(' ')), nPatienceOfAll);
        user.stop();

        qInfo("longest gap: %d ms", int(heart.GetLongestGap().count()));
        QVERIFY2(heart.GetLongestGap() < timeStall, qPrintable(QString::number(heart.GetLongestGap().count())));
        SetLate(scene, 0, 0);
        QVERIFY(scene.Settle());
        QVERIFY2(scene.IsTrueAfterTheNextMessage(), qPrintable(scene.Shown() + "\n" + scene.Truth()));
    }

    void aHandlerThatWaitsIsFound()
    {
        const CHeartbeat heart;
        QTRY_VERIFY(heart.GetBeats() > 0);
        std::this_thread::sleep_for(timeStall); // paced: the handler that waits
        const int nBefore = heart.GetBeats();
        QTRY_VERIFY(heart.GetBeats() > nBefore);
        QVERIFY(heart.GetLongestGap() >= timeStall);
    }

    void aMachineThatRunsOthersIsNotTakenForAStall()
    {
        std::atomic<bool> bEnd{ false };
        const auto work = [&] {
            while (!bEnd) { }
        };
        std::vector<std::thread> vecThread;
        for (unsigned n = 0; n < 8 * std::thread::hardware_concurrency(); ++n) {
            vecThread.emplace_back(work);
        }
        const CHeartbeat heart;
        QTRY_VERIFY(heart.GetBeats() >= 100);
        bEnd = true;
        for (std::thread& thread : vecThread) {
            thread.join();
        }
        QVERIFY2(heart.GetLongestGap() < timeStall, qPrintable(QString::number(heart.GetLongestGap().count())));
    }
};

PTV_TEST_MAIN(CResponsiveTest)
#include "tst_responsive.moc"
