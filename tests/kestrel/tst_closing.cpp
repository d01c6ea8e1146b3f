#include "CorvidControl/objects/CControlHost.h"
#include "DialogAnswers.h"
#include "Kestrel/CLanguage.h"
#include "Kestrel/CMainWindow.h"
#include "Kestrel/CPanelLoader.h"
#include "Kestrel/CSessionEnd.h"
#include "Kestrel/player/PanelAccess.h"
#include "Kestrel/theme/CTheme.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/host/ICorvidWidget.h"
#include "journal/CCallLog.h"
#include "nodes/SProcessorGroupNode.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QSessionManager>
#include <QTemporaryDir>
#include <QTreeView>
#include <private/qguiapplication_p.h>

#include <thread>

namespace {

constexpr int nLongestMs = 10000;

SControlOptions Options(const QTemporaryDir& folder)
{
    SControlOptions options;
    options.strListFile = folder.filePath("list.kvtl");
    options.bQuietDay = false;
    options.nScanMs = 50;
    return options;
}

/// Where the list belongs: a folder of that name is in its way.
enum EnPlace
{
    PlaceFree,
    PlaceTaken,
};

/// A shown window on a real control library, with a group that is not saved yet.
class CScene
{
public:
    explicit CScene(EnPlace place) : pHost(Start(place))
    {
        window.show();
        QApplication::setActiveWindow(&window);
        AddGroup("Night shift");
    }

    static void AddGroup(const QString& strName)
    {
        SProcessorGroupNode group;
        group.idNode = QUuid::createUuid();
        group.strName = strName;
        g_pPrcListControl->AddGroup(group, true);
    }

    /// The application's main loop, in which what is done is done first. False when it did not end by itself.
    bool Run(const std::function<void()>& action)
    {
        bool bLate = false;
        QTimer::singleShot(0, &window, action);
        QTimer::singleShot(nLongestMs, &window, [&bLate] {
            bLate = true;
            QCoreApplication::exit();
        });
        QApplication::exec();
        return !bLate;
    }

    QByteArray Read(const QString& strName) const
    {
        QFile file(folder.filePath(strName));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// The contents of the dated lists, which are removed.
    QByteArray TakeAside() const
    {
        QByteArray all;
        const QStringList listName = QDir(folder.path()).entryList({ "list.unsaved-*.kvtl" });
        for (const QString& strName : listName) {
            all += Read(strName);
            QFile::remove(folder.filePath(strName));
        }
        return all;
    }

    QTemporaryDir folder;
    std::unique_ptr<CControlHost> pHost;
    CCallLog log{ 64 };
    CLanguage language;
    CTheme theme;
    CMainWindow window{ *pHost, log, language, theme };

private:
    std::unique_ptr<CControlHost> Start(EnPlace place) const
    {
        if (place == PlaceTaken) {
            QDir(folder.path()).mkdir("list.kvtl");
            ExpectWarning("The list was not read.*");
            ExpectWarning("The list is not being saved.*");
        }
        return CControlHost::Start(Options(folder));
    }
};

void Press(QWidget* pDialog, const QString& strText)
{
    const QList<QAbstractButton*> listButton = pDialog->findChildren<QAbstractButton*>();
    for (QAbstractButton* pButton : listButton) {
        if (pButton->text() == strText) {
            QTest::mouseClick(pButton, Qt::LeftButton);
            return;
        }
    }
    QFAIL(qPrintable("no button " + strText));
}

/// Answers the question with Save elsewhere, and the file dialog behind it with a path.
void ChooseElsewhere(QObject* pContext, const QString& strPath, const std::function<void()>& next = {})
{
    AnswerNext(pContext, [=](QWidget* pBox) {
        AnswerNext(pContext, [=](QWidget* pDialog) {
            pDialog->findChild<QLineEdit*>("fileNameEdit")->setText(strPath);
            if (next) {
                next();
            }
            static_cast<QDialog*>(pDialog)->accept();
        });
        Press(pBox, "&Save elsewhere…");
    });
}

} // namespace

/// What happens to the list and to the user when the window is to go.
class CClosingTest : public QObject
{
    Q_OBJECT

private slots:
    void closingSavesBeforeTheWindowGoes()
    {
        CScene scene(PlaceFree);

        QVERIFY(scene.window.close());

        QVERIFY(scene.Read("list.kvtl").contains("Night shift"));
        QCOMPARE(scene.window.GetSaveFault(), QString());
    }

    void cancelKeepsTheWindowAndTheWork()
    {
        CScene scene(PlaceTaken);
        AnswerNext(&scene.window, [](QWidget* pBox) { Press(pBox, "&Cancel"); });

        QVERIFY(!scene.window.close());

        QVERIFY(scene.window.isVisible());
        AnswerNext(&scene.window, [](QWidget* pBox) { Answer(pBox, "key Escape"); });
        QVERIFY(!scene.window.close());
    }

    void quitWithoutSavingQuits()
    {
        CScene scene(PlaceTaken);
        AnswerNext(&scene.window, [](QWidget* pBox) { Press(pBox, "&Quit without saving"); });

        QVERIFY(scene.window.close());

        QCOMPARE(scene.window.GetSaveFault(), QString());
    }

    void savedElsewhereItQuits()
    {
        CScene scene(PlaceTaken);
        ChooseElsewhere(&scene.window, scene.folder.filePath("mine.kvtl"));

        QVERIFY(scene.window.close());

        QVERIFY(scene.Read("mine.kvtl").contains("Night shift"));
        QCOMPARE(scene.window.GetSaveFault(), QString());
    }

    void anotherPlaceThatFailsIsToldAndAskedAboutAgain()
    {
        CScene scene(PlaceTaken);
        QString strTold;
        ExpectWarning("The list was not exported.*");
        ChooseElsewhere(&scene.window, "/proc/mine.kvtl", [&] {
            AnswerNext(&scene.window, [&strTold](QWidget* pBox) {
                strTold = static_cast<QMessageBox*>(pBox)->text();
                Press(pBox, "&Cancel");
            });
        });

        QVERIFY(!scene.window.close());

        QVERIFY2(strTold.contains("/proc/mine.kvtl"), qPrintable(strTold));
    }

    void endingUnderTheQuestionAnswersItAndSavesAside()
    {
        CScene scene(PlaceTaken);
        AnswerNext(&scene.window, [&scene](QWidget*) { scene.window.EndUnattended(); });

        QVERIFY(scene.Run([&scene] { scene.window.close(); }));

        QVERIFY(!scene.window.isVisible());
        QVERIFY(scene.window.GetSaveFault().contains("list.unsaved-"));
        QVERIFY(scene.TakeAside().contains("Night shift"));
    }

    void whatIsOpenIsCancelledFromTheTopAndThenTheWindowGoes()
    {
        CScene scene(PlaceFree);
        QStringList listEnd;
        QDialog dialog(&scene.window);
        QMenu menu(&dialog);
        menu.addAction("Entry");
        AnswerNext(&scene.window, [&](QWidget*) {
            QTimer::singleShot(0, &menu, [&scene] { scene.window.EndUnattended(); });
            listEnd << (menu.exec(QPoint()) ? "entry chosen" : "menu closed");
        });

        const bool bEnded = scene.Run([&] {
            listEnd << (dialog.exec() == QDialog::Rejected ? "dialog rejected" : "dialog accepted");
            listEnd << (scene.window.isVisible() ? "window stands" : "window has gone");
        });

        QVERIFY(bEnded);
        QCOMPARE(listEnd, QStringList({ "menu closed", "dialog rejected", "window stands" }));
        QVERIFY(!scene.window.isVisible());
    }

    void aLoopThatNoWindowStandsForIsLeftBeforeTheWindowGoes()
    {
        CScene scene(PlaceFree);
        QEventLoop loop; // as that of a drag, which this platform cannot cancel
        ExpectWarning("Unimplemented code\\.");

        const bool bEnded = scene.Run([&] {
            scene.window.EndUnattended();
            QTimer::singleShot(0, &loop, &QEventLoop::quit);
            loop.exec();
            QVERIFY(scene.window.isVisible());
        });

        QVERIFY(bEnded);
        QVERIFY(!scene.window.isVisible());
    }

    void endingWaitsForTheRunningJobHoweverOftenItIsAsked()
    {
        CScene scene(PlaceFree);
        g_pRuntimeControl->SetBusy(true);
        std::thread job([] {
            g_pPrcBasicControl->RefreshProcessors();
            g_pRuntimeControl->SetBusy(false);
        });

        const bool bEnded = scene.Run([&scene] {
            scene.window.EndUnattended();
            scene.window.EndUnattended();
        });

        QVERIFY(bEnded);
        QVERIFY(!scene.pHost->IsBusy());
        job.join();
    }

    void aBoxThatAJobOpensAtItsEndDoesNotKeepTheWindow()
    {
        CScene scene(PlaceFree);
        g_pRuntimeControl->SetBusy(true);
        QDialog box(&scene.window);

        const bool bEnded = scene.Run([&] {
            scene.window.EndUnattended();
            QTRY_VERIFY(!scene.window.GetParentWidget()->isEnabled()); // it waits
            QTimer::singleShot(0, &box, [] { g_pRuntimeControl->SetBusy(false); });
            box.exec();
            QVERIFY(scene.window.isVisible());
        });

        QVERIFY(bEnded);
        QVERIFY(!scene.window.isVisible());
    }

    void whatIsBeingTypedIntoARowIsSaved()
    {
        CScene scene(PlaceFree);
        CPanelLoader loader;
        const std::unique_ptr<ICorvidWidget> pPanel = loader.Load({}, scene.window);
        QVERIFY2(pPanel, qPrintable(loader.GetError()));
        scene.window.SetPanel(pPanel->GetWidget());
        pPanel->UpdateWidget();
        QTreeView* pTree = PanelAccess::FindCurrentTree(scene.window.GetPanel());
        QTRY_VERIFY(PanelAccess::FindRow(pTree, "Night shift").isValid());
        PanelAccess::ClickRow(pTree, PanelAccess::FindRow(pTree, "Night shift"), Qt::NoModifier);
        QTest::keyClick(pTree, Qt::Key_F2);
        QTRY_VERIFY(qobject_cast<QLineEdit*>(QApplication::focusWidget()));
        QTest::keyClicks(QApplication::focusWidget(), "Early shift");

        QVERIFY(scene.Run([&scene] { scene.window.EndUnattended(); }));

        QVERIFY(scene.Read("list.kvtl").contains("Early shift"));
    }

    void theSessionsEndSavesAtOnceAndTheWindowStays()
    {
        CScene scene(PlaceFree);
        const CSessionEnd sessionEnd(scene.window, {});

        const bool bEnded = scene.Run([&scene] {
            QGuiApplicationPrivate::instance()->commitData();
            QVERIFY(scene.Read("list.kvtl").contains("Night shift"));
            QVERIFY(scene.window.isVisible());
            QCoreApplication::exit();
        });

        QVERIFY(bEnded);
        QVERIFY(!QGuiApplication::isFallbackSessionManagementEnabled()); // which closes windows that may still be needed
    }

    void theSessionsEndSavesAsideWhereNobodyMayBeAsked()
    {
        CScene scene(PlaceTaken);
        const CSessionEnd sessionEnd(scene.window, {});

        QGuiApplicationPrivate::instance()->commitData();

        QVERIFY(scene.TakeAside().contains("Night shift"));
        QVERIFY(scene.window.isVisible());
    }

    void theSessionsManagerEndsItInOrder()
    {
        CScene scene(PlaceFree);
        const CSessionEnd sessionEnd(scene.window, {});
        QDialog dialog(&scene.window);
        int nResult = -1;
        AnswerNext(&scene.window, [](QWidget*) {
            QEvent event(QEvent::Quit);
            QCoreApplication::sendEvent(qApp, &event);
        });

        const bool bEnded = scene.Run([&] {
            nResult = dialog.exec();
            QVERIFY(scene.window.isVisible());
        });

        QVERIFY(bEnded);
        QCOMPARE(nResult, int(QDialog::Rejected));
        QVERIFY(!scene.window.isVisible());
        QVERIFY(scene.Read("list.kvtl").contains("Night shift"));
    }

    void theNextSessionStartsItAsThisOneDid()
    {
        CScene scene(PlaceFree);
        const QStringList listCommand{ "/usr/bin/kestrel", "--list", "mine.kvtl" };
        const CSessionEnd sessionEnd(scene.window, listCommand);

        QGuiApplicationPrivate::instance()->saveState();

        QCOMPARE(QGuiApplicationPrivate::instance()->session_manager->restartCommand(), listCommand);
    }
};

PTV_TEST_MAIN(CClosingTest)
#include "tst_closing.moc"
