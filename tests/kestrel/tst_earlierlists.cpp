#include "CDialogDriver.h"
#include "CDoubledWindow.h"
#include "Kestrel/undo/CEarlierLists.h"
#include "TestMain.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QSemaphore>
#include <QTreeWidget>

namespace {

/// A window whose host keeps two earlier lists and one that cannot be read.
class CScene : public CDoubledWindow
{
public:
    CScene() : CDoubledWindow(&Prepare) { }

    /// Opens the dialog by its entry; returns when it was closed.
    void Open() const
    {
        for (QAction* pAction : pWindow->findChildren<QAction*>()) {
            if (pAction->text() == "&Earlier lists…") {
                pAction->trigger();
            }
        }
    }

    static void Prepare(CHostDouble& host)
    {
        const QDateTime time(QDate(2026, 3, 4), QTime(14, 3, 12));
        host.listEarlier = { { "/lists/new", time, 3, 12, {} },
                             { "/lists/torn", time.addDays(-1), 0, 0, "not a list file" },
                             { "/lists/old", time.addDays(-2), 1, 256, {} } };
    }
};

QAction* Entry(const CScene& scene)
{
    const QList<QAction*> listAction = scene.pWindow->findChildren<QAction*>();
    const auto isIt = [](const QAction* pAction) { return pAction->text() == "&Earlier lists…"; };
    return *std::find_if(listAction.begin(), listAction.end(), isIt);
}

QTreeWidget* Table(const QDialog* pDialog)
{
    return pDialog->findChild<QTreeWidget*>();
}

QPushButton* TakeBack(const QDialog* pDialog)
{
    return pDialog->findChild<QPushButton*>("DialogAccept");
}

bool AwaitRows(const QDialog* pDialog)
{
    return QTest::qWaitFor([&] { return Table(pDialog)->topLevelItemCount() == 3; }, nPatience);
}

QString RowText(const QDialog* pDialog, int nRow)
{
    const QTreeWidgetItem* pItem = Table(pDialog)->topLevelItem(nRow);
    return QStringList{ pItem->text(0), pItem->text(1), pItem->text(2) }.join(" | ");
}

} // namespace

/// The dialog about earlier lists.
class CEarlierListsTest : public QObject
{
    Q_OBJECT

private slots:
    void theListsAreShownNewestFirst()
    {
        const CScene scene;
        QStringList listRow;
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            QVERIFY(AwaitRows(pDialog));
            for (int n = 0; n < 3; ++n) {
                listRow.append(RowText(pDialog, n));
            }
            CDialogDriver::Press(pDialog, "DialogReject");
        });
        scene.Open();

        QVERIFY(driver.IsDone());
        QCOMPARE(driver.Shown(), QStringList{ "Earlier lists" });
        QCOMPARE(listRow.at(0), QStringLiteral("4 Mar 2026 14:03:12 | 3 | 12"));
        QCOMPARE(listRow.at(1), QStringLiteral("3 Mar 2026 14:03:12 | – | –"));
        QCOMPARE(listRow.at(2), QStringLiteral("2 Mar 2026 14:03:12 | 1 | 256"));
        QCOMPARE(scene.host.Calls(), QStringList());
    }

    void datesAndFaultsAreInTheLanguageOfTheProgram_data()
    {
        QTest::addColumn<QString>("strLanguage");
        QTest::addColumn<QString>("strDate");
        QTest::addColumn<QString>("strFault");
        QTest::newRow("English") << "en" << "4 Mar 2026 14:03:12" << "It cannot be read as a list.";
        QTest::newRow("German") << "de" << "04.03.26 14:03:12" << "Sie ist nicht als Liste lesbar.";
        QTest::newRow("Chinese") << "zh_CN" << "2026/3/4 14:03:12" << QStringLiteral("无法作为列表读取。");
    }

    void datesAndFaultsAreInTheLanguageOfTheProgram()
    {
        QFETCH(QString, strLanguage);
        CScene scene;
        QAction* pEntry = Entry(scene);
        scene.language.Set(strLanguage);
        QString strDate;
        QString strFault;
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            QVERIFY(AwaitRows(pDialog));
            strDate = Table(pDialog)->topLevelItem(0)->text(0);
            strFault = Table(pDialog)->topLevelItem(1)->toolTip(0);
            CDialogDriver::Press(pDialog, "DialogReject");
        });
        pEntry->trigger();
        scene.language.Set("en");

        QVERIFY(driver.IsDone());
        QTEST(strDate, "strDate");
        QTEST(strFault, "strFault");
    }

    void theWindowLivesWhileTheDiskIsRead()
    {
        CScene scene;
        QSemaphore disk;
        scene.host.fnBlock = [&] { disk.acquire(); };
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            int nTurns = 0;
            QTimer timer;
            connect(&timer, &QTimer::timeout, this, [&] { ++nTurns; });
            timer.start(0);
            QTRY_VERIFY(nTurns > 10);
            QCOMPARE(Table(pDialog)->topLevelItemCount(), 0);
            QVERIFY(!TakeBack(pDialog)->isEnabled());
            disk.release();
            QVERIFY(AwaitRows(pDialog));
            QVERIFY(TakeBack(pDialog)->isEnabled());
            CDialogDriver::Press(pDialog, "key Escape");
        });
        scene.Open();
        QVERIFY(driver.IsDone());
    }

    void returnTakesTheNewestBack()
    {
        const CScene scene;
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            QVERIFY(AwaitRows(pDialog));
            CDialogDriver::Press(pDialog, "key Return");
        });
        scene.Open();
        QVERIFY(driver.IsDone());
        QCOMPARE(scene.host.Calls(), QStringList{ "earlier /lists/new" });
    }

    void aListIsChosenByTheKeyboard()
    {
        const CScene scene;
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            QVERIFY(AwaitRows(pDialog));
            QVERIFY(Table(pDialog)->hasFocus());
            QTest::keyClick(Table(pDialog), Qt::Key_Down); // passes over the one that cannot be read
            CDialogDriver::Press(pDialog, "DialogAccept");
        });
        scene.Open();
        QVERIFY(driver.IsDone());
        QCOMPARE(scene.host.Calls(), QStringList{ "earlier /lists/old" });
    }

    void aRefusalStaysInTheDialogWithItsReason()
    {
        CScene scene;
        scene.host.reason = ReasonListLocked;
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            QVERIFY(AwaitRows(pDialog));
            TakeBack(pDialog)->click();
            QTRY_VERIFY(TakeBack(pDialog)->isEnabled());
            const QList<QLabel*> listLabel = pDialog->findChildren<QLabel*>();
            QVERIFY(std::any_of(listLabel.begin(), listLabel.end(), [](const QLabel* pLabel) {
                return pLabel->text() == "Restore an earlier list: the list is locked";
            }));
            QVERIFY(Table(pDialog)->hasFocus());
            CDialogDriver::Press(pDialog, "DialogReject");
        });
        scene.Open();
        QVERIFY(driver.IsDone());
        QCOMPARE(scene.host.Calls(), QStringList());
    }

    void withoutAnEarlierListItSaysSo()
    {
        CScene scene;
        scene.host.listEarlier.clear();
        CDialogDriver driver;
        driver.Answer([&](QDialog* pDialog) {
            const auto saysSo = [&] {
                const QList<QLabel*> listLabel = pDialog->findChildren<QLabel*>();
                return std::any_of(listLabel.begin(), listLabel.end(),
                                   [](const QLabel* pLabel) { return pLabel->text() == "There is no earlier list."; });
            };
            QTRY_VERIFY(saysSo());
            QVERIFY(!TakeBack(pDialog)->isEnabled());
            CDialogDriver::Press(pDialog, "DialogReject");
        });
        scene.Open();
        QVERIFY(driver.IsDone());
    }

    void closingDoesNotWaitForTheDisk()
    {
        QSemaphore disk;
        CScene scene;
        scene.host.fnBlock = [&] { disk.acquire(); };
        CDialogDriver driver;
        driver.Answer("key Escape");
        scene.Open();
        QVERIFY(driver.IsDone());
        disk.release();
    }
};

PTV_TEST_MAIN(CEarlierListsTest)
#include "tst_earlierlists.moc"
