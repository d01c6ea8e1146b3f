#include "Kestrel/CBareControlHost.h"
#include "Kestrel/CLanguage.h"
#include "Kestrel/CMainWindow.h"
#include "Kestrel/status/CElidedLabel.h"
#include "Kestrel/theme/CTheme.h"
#include "TestMain.h"
#include "controlhost/CJobs.h"
#include "double/CControlDouble.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "journal/CControlJournal.h"

#include <QAction>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>

#include <thread>

namespace {

/// Kestrel's window on a control library that has the eight objects and no more.
class CBareWindow
{
public:
    CBareWindow()
    {
        window.show();
    }

    /// The texts of the badges that are shown.
    QStringList Badges() const
    {
        QStringList listText;
        const QList<QLabel*> listLabel = window.statusBar()->findChildren<QLabel*>(QStringLiteral("Badge"));
        for (const QLabel* pLabel : listLabel) {
            if (pLabel->isVisible()) {
                listText.append(pLabel->text());
            }
        }
        listText.sort();
        return listText;
    }

    /// The entries that the menus show, without their sub-menus.
    QStringList Entries() const
    {
        QStringList listText;
        const QList<QMenu*> listMenu = window.menuBar()->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
        for (const QMenu* pMenu : listMenu) {
            const QList<QAction*> listAction = pMenu->actions();
            for (const QAction* pAction : listAction) {
                if (pAction->isVisible() && !pAction->isSeparator() && !pAction->menu()) {
                    listText.append(pAction->text().remove('&'));
                }
            }
        }
        return listText;
    }

    CControlDouble control;
    CJobs jobs;
    const SControlPointers pointers = SControlPointers::Linked();
    CBareControlHost host{ pointers, jobs };
    CCallLog log{ 64 };
    CControlJournal journal{ pointers, log, jobs, [](int) { return QString(); } };
    CLanguage language;
    CTheme theme;
    CMainWindow window{ host, pointers, log, language, theme };
};

} // namespace

/// What the window offers when nothing is known of the control library but the contract.
class CBareHostTest : public QObject
{
    Q_OBJECT

private slots:
    void whatTheLibraryCannotBeToldIsLeftOutOfTheMenus()
    {
        const CBareWindow kestrel;

        QCOMPARE(kestrel.Entries(),
                 (QStringList{ "Save report…", "Quit", "Select all", "Journal", "Search the list", "Next part of the window",
                               "Previous part of the window" }));
    }

    void theBadgesFollowTheLibrary_data()
    {
        QTest::addColumn<QString>("strObject");
        QTest::addColumn<int>("nMessage");

        QTest::newRow("project") << "g_pProjectManageControl" << 10;
        QTest::newRow("preference") << "g_pPreferenceControl" << 32;
        QTest::newRow("processors") << "g_pPrcBasicControl" << 53;
        QTest::newRow("list") << "g_pPrcListControl" << 1;
        QTest::newRow("processors at run time") << "g_pPrcRuntimeControl" << 7;
        QTest::newRow("protocol") << "g_pProtocalControl" << 59;
        QTest::newRow("runtime") << "g_pRuntimeControl" << 14;
    }

    void theBadgesFollowTheLibrary()
    {
        QFETCH(QString, strObject);
        QFETCH(int, nMessage);
        CBareWindow kestrel;
        QCOMPARE(kestrel.Badges(), QStringList{ "No project" });

        kestrel.control.Set([](SControlAnswers& answers) {
            answers.strProject = QStringLiteral("Aurora");
            answers.bChiefMode = answers.bListLocked = answers.bRefreshBlocked = true;
        });
        kestrel.control.Raise(nMessage, strObject);

        QTRY_COMPARE(kestrel.Badges(), (QStringList{ "Chief-Member mode", "List locked", "Project Aurora", "Refresh blocked" }));
    }

    void quittingWaitsForAJobOfThePanel()
    {
        CBareWindow kestrel;
        kestrel.control.Hold("RefreshProcessors");
        g_pRuntimeControl->SetBusy(true);
        std::thread job([] {
            g_pPrcBasicControl->RefreshProcessors();
            g_pRuntimeControl->SetBusy(false);
        });
        QVERIFY(kestrel.control.WaitForHeld("RefreshProcessors"));
        QCOMPARE(kestrel.host.GetRunningJobs(), QStringList{ "Scanning the network" });

        QVERIFY(!kestrel.window.close());
        kestrel.control.Release("RefreshProcessors");

        QTRY_VERIFY(!kestrel.window.isVisible());
        QVERIFY(!kestrel.host.IsBusy());
        job.join();
    }

    void theListIsSavedBeforeTheWindowGoes()
    {
        CBareWindow kestrel;
        kestrel.control.Set([](SControlAnswers& answers) { answers.strListFilePath = QStringLiteral("/lists/own.kvtl"); });
        kestrel.control.ClearJournal();

        QVERIFY(kestrel.window.close());

        QCOMPARE(kestrel.control.Commands(), QStringList{ "g_pPrcListControl.ExportList(\"/lists/own.kvtl\", 0)" });
        QCOMPARE(kestrel.window.GetSaveFault(), QString());
    }

    void aListThatIsNotSavedIsReportedWhereNobodyCanBeAsked()
    {
        CBareWindow kestrel;
        kestrel.control.Set([](SControlAnswers& answers) {
            answers.strListFilePath = QStringLiteral("/lists/own.kvtl");
            answers.nExportResult = 1;
        });

        kestrel.window.EndUnattended();

        QTRY_VERIFY(!kestrel.window.isVisible());
        QVERIFY2(kestrel.window.GetSaveFault().contains("/lists/own.kvtl: the control library answers 1"),
                 qPrintable(kestrel.window.GetSaveFault()));
    }

    void aLibraryThatNamesNoFileHasNothingToSave()
    {
        CBareWindow kestrel;
        kestrel.control.ClearJournal();

        QVERIFY(kestrel.window.close());

        QCOMPARE(kestrel.control.Commands(), QStringList());
    }

    void aLibraryThatIsSlowToReadHoldsNobodyUp()
    {
        CBareWindow kestrel;
        kestrel.control.Hold("IsChiefMode");
        kestrel.control.Raise(32);
        QVERIFY(kestrel.control.WaitForHeld("IsChiefMode"));

        QVERIFY(!kestrel.host.IsChiefMode());

        kestrel.control.Release("IsChiefMode");
    }
};

PTV_TEST_MAIN(CBareHostTest)
#include "tst_barehost.moc"
