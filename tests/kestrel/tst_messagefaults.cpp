#include "CFaultWindow.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"

#include <QSignalSpy>
#include <QTreeView>

namespace {

constexpr int nListChanged = 1;
constexpr int nSelectionChanged = 9;
constexpr int nProjectChanged = 10;
constexpr int nSettled = 59;

/// As somebody else does it: not by the panel.
void RenameElsewhere(const QString& strName, const QString& strNew)
{
    g_pPrcBasicControl->RenameProcessor(CListWindow::Id(strName), strNew);
}

void DeleteElsewhere(const QString& strName)
{
    g_pPrcListControl->DeleteProcessor(CListWindow::Id(strName), false);
}

/// Those that the panel reads on, in their order.
QVector<int> Heard(CFaultWindow& scene)
{
    QVector<int> vecMessage = scene.commands.Messages();
    vecMessage.removeAll(nSettled);
    return vecMessage;
}

int Readings(CFaultWindow& scene)
{
    return scene.commands.Pick("GetDiscoveredTree").size();
}

} // namespace

/// What the panel shows when messages of the control library are lost, doubled, out of order or empty.
class CMessageFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void theRowsStayAsTheyWereUntilTheNextMessage()
    {
        CFaultWindow scene;
        const QString strBefore = scene.ShownRows();
        scene.AndSettled([&] {
            scene.Break("'do': 'lose-messages'");
            RenameElsewhere("Door 1", "Gate");
        });
        QCOMPARE(Heard(scene), QVector<int>());
        QCOMPARE(scene.ShownRows(), strBefore);
        QVERIFY(scene.TrueRows() != strBefore);

        RenameElsewhere("Door 2", "Arch");

        QTRY_COMPARE(scene.ShownRows(), scene.TrueRows());
        QVERIFY(scene.Row("Gate").isValid() && scene.Row("Arch").isValid());
    }

    void aDeletionOfWhatHasGoneUnseenHarmsNobody()
    {
        CFaultWindow scene;
        const QUuid idGone = CListWindow::Id("Door 2");
        scene.AndSettled([&] {
            scene.Break("'do': 'lose-messages'");
            DeleteElsewhere("Door 2");
        });
        QCOMPARE(CFaultWindow::Id(scene.Row("Door 2")), idGone);
        scene.commands.Forget();

        scene.Click("Door 2");
        scene.kestrel.Key(Qt::Key_Delete);

        QTRY_COMPARE(scene.FirstIds("DeleteProcessor"), QList<QUuid>{ idGone });
        QTRY_VERIFY(!scene.Row("Door 2").isValid());
        QTRY_COMPARE(scene.ShownRows(), scene.TrueRows());
        QVERIFY(scene.Row("Door 1").isValid() && scene.Row("Door 3").isValid());
    }

    // The old name is in the row, so the editor begins with it; the id is that of the row.
    void aRenameOfARowWithAnOldNameGoesToItsNode()
    {
        CFaultWindow scene;
        const QUuid id = CListWindow::Id("Door 1");
        scene.AndSettled([&] {
            scene.Break("'do': 'lose-messages'");
            RenameElsewhere("Door 1", "Gate");
        });
        scene.commands.Forget();

        scene.Click("Door 1");
        scene.kestrel.Key(Qt::Key_F2);
        scene.kestrel.Type("Exit");
        scene.kestrel.Key(Qt::Key_Return);

        QTRY_COMPARE(scene.FirstIds("RenameProcessor"), QList<QUuid>{ id });
        QTRY_VERIFY(scene.Row("Exit").isValid());
        QTRY_COMPARE(scene.ShownRows(), scene.TrueRows());
    }

    void aSelectionThatNobodyIsToldOfGivesWayToTheUsers()
    {
        CFaultWindow scene;
        const QUuid id = CListWindow::Id("Door 1");
        scene.Click("Door 1");
        scene.Read();
        const QString strBefore = scene.ShownRows();
        scene.AndSettled([&] {
            scene.Break("'do': 'lose-messages'");
            g_pRuntimeControl->SetSelectedNodes({ CListWindow::Id("Door 3") });
        });
        QCOMPARE(scene.ShownRows(), strBefore);
        scene.commands.Forget();

        scene.kestrel.Key(Qt::Key_Delete);

        QTRY_COMPARE(scene.FirstIds("DeleteProcessor"), QList<QUuid>{ id });
        QTRY_VERIFY(!scene.Row("Door 1").isValid());
        QTRY_COMPARE(scene.ShownRows(), scene.TrueRows());
    }

    void aDoubledMessageIsReadTwiceAndShowsTheSame()
    {
        CFaultWindow scene;
        scene.Click("Wall 2");
        scene.AndSettled([&] {
            scene.Break("'do': 'double-messages'");
            RenameElsewhere("Door 1", "Gate");
        });
        QCOMPARE(Heard(scene), (QVector<int>{ nListChanged, nListChanged }));
        QTRY_VERIFY(Readings(scene) >= 2);
        QTRY_COMPARE(scene.ShownRows(), scene.TrueRows());
        QVERIFY(scene.ShownRows().contains("Gate"));
    }

    void messagesOutOfOrderEndInTheSameRows()
    {
        CFaultWindow scene;
        scene.AndSettled([&] {
            scene.Break("'do': 'reorder-messages', 'count': 3");
            RenameElsewhere("Door 1", "Gate");
            g_pRuntimeControl->SetSelectedNodes({ CListWindow::Id("Door 3") });
            scene.kestrel.pHost->OpenProject("Aurora");
        });
        QCOMPARE(Heard(scene), (QVector<int>{ nProjectChanged, nSelectionChanged, nListChanged }));
        QTRY_COMPARE(scene.ShownRows(), scene.TrueRows());
        QVERIFY(scene.ShownRows().contains("Gate"));
        QTRY_VERIFY(scene.kestrel.window.windowTitle().contains("Aurora"));
    }

    void whatWaitsForMoreMessagesThanComeIsShownNevertheless()
    {
        CFaultWindow scene;
        scene.AndSettled([&] {
            scene.Break("'do': 'reorder-messages', 'count': 1000");
            RenameElsewhere("Door 1", "Gate");
        });
        QCOMPARE(Heard(scene), QVector<int>{ nListChanged });
        QTRY_COMPARE(scene.ShownRows(), scene.TrueRows());
    }

    void anEmptyMessageMovesNothing_data()
    {
        QTest::addColumn<QVector<int>>("vecMessage");
        QTest::newRow("which the panel knows") << QVector<int>{ 1, 7, 9, 10, 14, 15, 32, 53, 54, 59 };
        QTest::newRow("which it does not") << QVector<int>{ 0, 2, 33, 58, 60, 64, 2147483647 };
    }

    void anEmptyMessageMovesNothing()
    {
        QFETCH(QVector<int>, vecMessage);
        CFaultWindow scene;
        scene.Click("Wall 2");
        scene.Read();
        const QString strBefore = scene.ShownRows();
        const QSignalSpy rebuilds(scene.kestrel.Tree()->model(), &QAbstractItemModel::rowsInserted);
        for (const int nMessage : std::as_const(vecMessage)) {
            scene.AndSettled([&] { scene.Break("'do': 'empty-message', 'message': " + QString::number(nMessage)); });
            QVERIFY(scene.commands.Messages().contains(nMessage));
        }

        scene.Read(); // of what comes behind it

        QCOMPARE(scene.ShownRows(), strBefore);
        QCOMPARE(scene.ShownRows(), scene.TrueRows());
        QCOMPARE(rebuilds.size(), 0);
    }
};

PTV_TEST_MAIN(CMessageFaultsTest)
#include "tst_messagefaults.moc"
