#include "CWindowFixture.h"
#include "Kestrel/player/WindowPicture.h"
#include "Kestrel/status/CBusyIndicator.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IRuntimeControl.h"

#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QPixmap>
#include <QRegularExpression>

#include <future>
#include <thread>

namespace {

/// Stands in for the panel: has the slot that the window calls by its name.
class CPanelDouble : public QWidget
{
    Q_OBJECT

public:
    QList<int> listId;

public slots:
    void DealMenuBar(int id, QVariant value)
    {
        if (value.toBool()) {
            listId.append(id);
        }
    }
};

/// A window with what a test asks of its status bar.
class CBadgedWindow : public CWindowFixture
{
public:
    using CWindowFixture::CWindowFixture;

    QLabel* Badge(const QString& strText) const
    {
        const QList<QLabel*> listBadge = window.findChildren<QLabel*>("Badge");
        for (QLabel* pBadge : listBadge) {
            if (pBadge->text() == strText && pBadge->isVisible()) {
                return pBadge;
            }
        }
        return nullptr;
    }

    QString BusyText() const
    {
        return window.findChild<CBusyIndicator*>()->GetText();
    }
};

/// A job that scans the network, as the panel's own does.
std::thread StartScan()
{
    return std::thread([] {
        g_pPrcBasicControl->RefreshProcessors();
        g_pRuntimeControl->SetBusy(false);
    });
}

int Seconds(const CBusyIndicator& indicator)
{
    return QRegularExpression("\\((-?\\d+) s\\)$").match(indicator.GetText()).captured(1).toInt();
}

} // namespace

class CWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void shortcutsWorkWithoutTheirMenu_data()
    {
        QTest::addColumn<int>("nKey");
        QTest::addColumn<QString>("strBadge");
        QTest::newRow("Chief-Member mode") << int(Qt::Key_M) << "Chief-Member mode";
        QTest::newRow("lock the list") << int(Qt::Key_L) << "List locked";
        QTest::newRow("block refresh") << int(Qt::Key_B) << "Refresh blocked";
    }

    void shortcutsWorkWithoutTheirMenu()
    {
        QFETCH(int, nKey);
        QFETCH(QString, strBadge);
        CBadgedWindow kestrel;
        QVERIFY(!kestrel.Badge(strBadge));

        QTest::keyClick(&kestrel.window, Qt::Key(nKey), Qt::ControlModifier);
        QTRY_VERIFY(kestrel.Badge(strBadge));

        QTest::keyClick(&kestrel.window, Qt::Key(nKey), Qt::ControlModifier);
        QTRY_VERIFY(!kestrel.Badge(strBadge));
    }

    void selectAllReachesThePanelByItsNumber()
    {
        CBadgedWindow kestrel;
        CPanelDouble panel;
        kestrel.window.SetPanel(&panel);
        QTest::keyClick(&kestrel.window, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(panel.listId, QList<int>{ 18 });
    }

    void theJournalComesAndHidesByItsShortcut()
    {
        CBadgedWindow kestrel;
        const auto* pDock = kestrel.window.findChild<QDockWidget*>();
        QVERIFY(!pDock->isVisible());
        QTest::keyClick(&kestrel.window, Qt::Key_J, Qt::ControlModifier);
        QVERIFY(pDock->isVisible());
        QTRY_COMPARE(pDock->width(), 680);
        QTest::keyClick(&kestrel.window, Qt::Key_J, Qt::ControlModifier);
        QVERIFY(!pDock->isVisible());
    }

    void aPictureShowsThePlacesAsTheyAreAboutToBe()
    {
        CBadgedWindow kestrel;
        auto* pPanel = new QWidget;
        kestrel.window.SetPanel(pPanel);
        auto* pJournal = kestrel.window.findChild<QDockWidget*>("JournalDock");
        QTRY_VERIFY(pPanel->isVisible());
        WindowPicture::Take(kestrel.window);
        const int nWidth = pPanel->width();
        pJournal->show();
        WindowPicture::Take(kestrel.window);
        QVERIFY(pPanel->width() < nWidth);

        pJournal->hide();
        WindowPicture::Take(kestrel.window);

        QCOMPARE(pPanel->width(), nWidth);
    }

    void theMenuFollowsWhatChangesElsewhere()
    {
        CBadgedWindow kestrel;
        kestrel.pHost->SetListLocked(true);
        QTRY_VERIFY(kestrel.Badge("List locked"));
        // The check mark follows too: the next press takes the lock away.
        QTest::keyClick(&kestrel.window, Qt::Key_L, Qt::ControlModifier);
        QTRY_VERIFY(!kestrel.pHost->IsListLocked());
    }

    void closeProjectIsOfferedOnlyWithAProject()
    {
        CBadgedWindow kestrel;
        kestrel.pHost->OpenProject("Aurora");
        QTRY_VERIFY(kestrel.Badge("Project Aurora"));
        QTest::keyClick(&kestrel.window, Qt::Key_W, Qt::ControlModifier);
        QTRY_VERIFY(kestrel.Badge("No project"));
        QVERIFY(kestrel.pHost->GetProjectName().isEmpty());
    }

    void theStatusBarSaysWhatIsBusyAndSinceWhen()
    {
        CBadgedWindow kestrel({}, 1000); // long enough to be seen on a busy machine
        QCOMPARE(kestrel.BusyText(), QStringLiteral("Ready"));
        const QString strBefore = QTime::currentTime().toString("HH:mm");

        g_pRuntimeControl->SetBusy(true);
        QTRY_VERIFY(kestrel.BusyText().startsWith("Busy"));
        const QString strAfter = QTime::currentTime().toString("HH:mm");
        QVERIFY(kestrel.BusyText().contains(strBefore) || kestrel.BusyText().contains(strAfter));

        std::thread job = StartScan();
        QTRY_VERIFY(kestrel.BusyText().startsWith("Scanning the network"));
        QTRY_COMPARE(kestrel.BusyText(), QStringLiteral("Ready"));
        job.join();
    }

    void theSecondsOfAJobCountOnWhenTheClockIsSetBack()
    {
        const CTheme theme;
        CBusyIndicator indicator(theme, nullptr);
        const QDateTime timeBeforeSetBack = QDateTime::currentDateTime().addSecs(3600);
        indicator.SetState(true, timeBeforeSetBack, {});
        QVERIFY2(indicator.GetText().endsWith("(0 s)"), qPrintable(indicator.GetText()));
        QTRY_VERIFY(Seconds(indicator) > 0);
    }

    void quittingWaitsForTheRunningJob()
    {
        CBadgedWindow kestrel;
        g_pRuntimeControl->SetBusy(true);
        std::promise<void> refused;
        std::thread job([&refused] {
            g_pPrcBasicControl->RefreshProcessors();
            refused.get_future().wait();
            g_pRuntimeControl->SetBusy(false);
        });

        const bool bClosed = kestrel.window.close();
        refused.set_value();

        QVERIFY(!bClosed);
        QTRY_VERIFY(!kestrel.window.isVisible());
        QVERIFY(!kestrel.pHost->IsBusy());
        job.join();
    }

    void aBusyFlagThatNoJobStandsBehindDoesNotKeepTheWindow()
    {
        CBadgedWindow kestrel;
        g_pRuntimeControl->SetBusy(true);
        QVERIFY(!kestrel.window.close());
        QTRY_VERIFY(!kestrel.window.isVisible());
    }

    void theLanguageMenuChangesEveryText()
    {
        CBadgedWindow kestrel;
        const auto Choose = [&](const QString& strCode) {
            const QList<QAction*> listAction = kestrel.window.findChildren<QAction*>();
            for (QAction* pAction : listAction) {
                if (pAction->data().toString() == strCode) {
                    pAction->trigger();
                }
            }
        };

        Choose("de");
        QTRY_COMPARE(kestrel.BusyText(), QStringLiteral("Bereit"));
        QVERIFY(kestrel.Badge("Kein Projekt"));
        QCOMPARE(kestrel.window.menuBar()->actions().constFirst()->text(), QStringLiteral("&Projekt"));
        QCOMPARE(kestrel.window.findChild<QLabel*>("JournalTitle")->text(), QStringLiteral("Journal"));

        Choose("en");
        QTRY_COMPARE(kestrel.BusyText(), QStringLiteral("Ready"));
    }
};

PTV_TEST_MAIN(CWindowTest)
#include "tst_window.moc"
