#include "CDialogDriver.h"
#include "CWindowFixture.h"
#include "Kestrel/CPanelLoader.h"
#include "Kestrel/CSessionEnd.h"
#include "Kestrel/SKestrelOptions.h"
#include "Kestrel/journal/CRunJournal.h"
#include "Kestrel/player/PanelAccess.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/host/ICorvidWidget.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QSessionManager>
#include <QTreeView>
#include <private/qguiapplication_p.h>

#include <thread>

namespace {

constexpr int nLongestMs = nPatience / 2;

/// Where the list belongs: a folder of that name is in its way.
enum EnPlace
{
    PlaceFree,
    PlaceTaken,
};

void TakePlace(const QString& strList)
{
    QDir().mkdir(strList);
    ExpectWarning("The list was not read.*");
    ExpectWarning("The list is not being saved.*");
}

/// A window with a group that is not saved yet.
class CScene : public CWindowFixture
{
public:
    explicit CScene(EnPlace place) : CWindowFixture(place == PlaceTaken ? FnPrepare(&TakePlace) : FnPrepare())
    {
        AddGroup("Night shift");
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

    /// The lines of the journal that is kept while something is done to the window.
    QList<QJsonObject> Record(const std::function<void()>& action)
    {
        QWidget panel;
        window.SetPanel(&panel);
        const SKestrelOptions options;
        auto pJournal = std::make_unique<CRunJournal>(options);
        pJournal->Listen(log);
        pJournal->Open(pointers, language, theme);
        pJournal->Follow(window, language, theme);
        action();
        pJournal->Leave();
        log.SetRecorder(nullptr);
        pJournal.reset(); // has written all
        QList<QJsonObject> listLine;
        const QList<QByteArray> listBytes = Read("list.kvtl.journal/000001.jsonl").split('\n');
        for (const QByteArray& bytes : listBytes) {
            listLine.append(QJsonDocument::fromJson(bytes).object());
        }
        return listLine;
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
};

/// Answers the question with Save elsewhere, and the file dialog behind it with a path.
void ChooseElsewhere(CDialogDriver& driver, const QString& strPath)
{
    driver.Answer("Save elsewhere…");
    driver.Answer([strPath](QDialog* pDialog) {
        pDialog->findChild<QLineEdit*>("fileNameEdit")->setText(strPath);
        pDialog->accept();
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
        CDialogDriver driver;
        driver.Answer("Cancel");

        QVERIFY(!scene.window.close());

        QVERIFY(scene.window.isVisible());
        driver.Answer("key Escape");
        QVERIFY(!scene.window.close());
    }

    void quitWithoutSavingQuits()
    {
        CScene scene(PlaceTaken);
        CDialogDriver driver;
        driver.Answer("Quit without saving");

        QVERIFY(scene.window.close());

        QCOMPARE(scene.window.GetSaveFault(), QString());
    }

    void theJournalHoldsTheQuestionAndItsAnswer_data()
    {
        QTest::addColumn<QString>("strButton");
        QTest::addColumn<bool>("bGoes");
        QTest::newRow("stays") << "Cancel" << false;
        QTest::newRow("goes") << "Quit without saving" << true;
    }

    void theJournalHoldsTheQuestionAndItsAnswer()
    {
        QFETCH(QString, strButton);
        QFETCH(bool, bGoes);
        CScene scene(PlaceTaken);
        CDialogDriver driver;
        driver.Answer(strButton);

        const QList<QJsonObject> listLine = scene.Record([&] { QCOMPARE(scene.window.close(), bGoes); });

        QStringList listSave;
        for (const QJsonObject& line : listLine) {
            const QString strOperation = line.value("operation").toString();
            if (strOperation == "save") {
                QVERIFY(!line.value("saved").toBool() && line.value("asked").toBool());
                QVERIFY2(line.value("reason").toString().contains("list.kvtl"), qPrintable(line.value("reason").toString()));
                listSave.append(strOperation);
            } else if (strOperation == "save answered") {
                listSave.append(strOperation + (line.value("goes").toBool() ? ": goes" : ": stays"));
            }
        }
        QCOMPARE(listSave, QStringList({ "save", QString("save answered: ") + QTest::currentDataTag() }));
    }

    void savedElsewhereItQuits()
    {
        CScene scene(PlaceTaken);
        CDialogDriver driver;
        ChooseElsewhere(driver, scene.folder.filePath("mine.kvtl"));

        QVERIFY(scene.window.close());

        QVERIFY(scene.Read("mine.kvtl").contains("Night shift"));
        QCOMPARE(scene.window.GetSaveFault(), QString());
    }

    void anotherPlaceThatFailsIsToldAndAskedAboutAgain()
    {
        CScene scene(PlaceTaken);
        QString strTold;
        ExpectWarning("The list was not exported.*");
        CDialogDriver driver;
        ChooseElsewhere(driver, "/proc/mine.kvtl");
        driver.Answer([&strTold](QDialog* pDialog) {
            strTold = static_cast<QMessageBox*>(pDialog)->text();
            CDialogDriver::Press(pDialog, "Cancel");
        });

        QVERIFY(!scene.window.close());

        QVERIFY2(strTold.contains("/proc/mine.kvtl"), qPrintable(strTold));
    }

    void endingUnderTheQuestionAnswersItAndSavesAside()
    {
        CScene scene(PlaceTaken);
        CDialogDriver driver;
        driver.Answer([&scene](QDialog*) { scene.window.EndUnattended(); });

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
        CDialogDriver driver;
        driver.Answer([&](QDialog*) {
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
        QTRY_VERIFY(PanelAccess::FindRow(SControlPointers::Linked(), pTree, "Night shift").isValid());
        PanelAccess::ClickRow(pTree, PanelAccess::FindRow(SControlPointers::Linked(), pTree, "Night shift"), Qt::NoModifier);
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
        CDialogDriver driver;
        driver.Answer([](QDialog*) {
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
