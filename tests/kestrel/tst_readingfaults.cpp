#include "CFaultWindow.h"
#include "CMenuDriver.h"
#include "Kestrel/player/PanelAccess.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IRuntimeControl.h"

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <functional>

namespace {

constexpr int nRainMs = 5; // between two messages

/// A library that raises messages without an end: the panel reads it all the time.
class CRain
{
public:
    CRain()
    {
        QObject::connect(&timer, &QTimer::timeout, [] { g_pRuntimeControl->PostMessage(1); });
        timer.start(nRainMs);
    }

private:
    QTimer timer;
};

/// What the user does with a row, and the commands one of which comes of it.
struct SGesture
{
    const char* szName;
    std::function<void(CFaultWindow& scene, const QUuid& id, int nWhich)> fnDo;
    QStringList listOperation;
};

/// The ids of the rows that are shown as selected.
QSet<QUuid> SelectedIds(const CFaultWindow& scene)
{
    QSet<QUuid> setId;
    const QModelIndexList listSelected = scene.kestrel.Tree()->selectionModel()->selectedIndexes();
    for (const QModelIndex& index : listSelected) {
        setId.insert(CFaultWindow::Id(index));
    }
    return setId;
}

/// One click. A reading that was under way brings the older selection back, which is reported; false then, and where the row was
/// missed. Two readings later none that is older than the click is left.
bool IsRowTaken(CFaultWindow& scene, const QUuid& id, int nWhich)
{
    scene.commands.Forget();
    PanelAccess::ClickRow(scene.kestrel.Tree(), scene.RowOf(id, nWhich), Qt::NoModifier);
    scene.AwaitReadings();
    return SelectedIds(scene) == QSet<QUuid>{ id } && (scene.ReportedIds() - QSet<QUuid>{ id }).isEmpty();
}

// The user looks, and clicks again. From then on the row with that id, and no other, is what a command means.
void ClickRow(CFaultWindow& scene, const QUuid& id, int nWhich)
{
    QVERIFY(scene.RowOf(id, nWhich).isValid());
    QVERIFY2(QTest::qWaitFor([&] { return IsRowTaken(scene, id, nWhich); }, nPatience), qPrintable(scene.ShownRows()));
    QCOMPARE(scene.CommandedIds(), QSet<QUuid>());
    scene.commands.Forget();
}

void Delete(CFaultWindow& scene, const QUuid& id, int nWhich)
{
    ClickRow(scene, id, nWhich);
    scene.kestrel.Key(Qt::Key_Delete);
}

/// The user presses F2 just after the rows were rebuilt, or when they have not been for a while, and types between two readings:
/// unlike keys to the window, those to a widget come without a look at other events. False when no command has come of it.
bool IsRenamed(CFaultWindow& scene, const QUuid& id, int nWhich)
{
    constexpr int nWhile = 300; // ms, several messages long
    ClickRow(scene, id, nWhich);
    QSignalSpy rebuilds(scene.kestrel.Tree()->model(), &QAbstractItemModel::rowsInserted);
    rebuilds.wait(nWhile);
    QTest::keyClick(scene.kestrel.Tree(), Qt::Key_F2);
    auto* const pEditor = scene.kestrel.Tree()->viewport()->findChild<QLineEdit*>();
    if (!pEditor) {
        return false;
    }
    QTest::keyClicks(pEditor, "Named");
    QTest::keyClick(pEditor, Qt::Key_Return);
    return !scene.CommandedIds().isEmpty();
}

void Rename(CFaultWindow& scene, const QUuid& id, int nWhich)
{
    QVERIFY(QTest::qWaitFor([&] { return IsRenamed(scene, id, nWhich); }, nPatience));
}

void Remove(CFaultWindow& scene, const QUuid& id, int nWhich)
{
    ClickRow(scene, id, nWhich);
    scene.kestrel.Tree()->scrollTo(scene.RowOf(id, nWhich)); // rows above it may have opened
    scene.kestrel.OpenMenu(scene.RowOf(id, nWhich), [&](QMenu* pMenu) {
        scene.AwaitReadings();
        CMenuDriver::Choose(pMenu, { "Remove from group" });
    });
}

void Drop(CFaultWindow& scene, const QUuid& id, int nWhich)
{
    ClickRow(scene, id, nWhich);
    scene.kestrel.DropOnto(scene.RowOf(CListWindow::Id("Empty")));
}

// As the sign of the branch, which the host's style places.
void Fold(CFaultWindow& scene, const QUuid& id, int nWhich)
{
    ClickRow(scene, id, nWhich);
    const QModelIndex index = scene.RowOf(id, nWhich);
    scene.kestrel.Tree()->setExpanded(index, !scene.kestrel.Tree()->isExpanded(index));
}

const QList<SGesture>& Gestures()
{
    static const QList<SGesture> listGesture{
        { "fold", Fold, { "SetExpanded" } },
        { "rename", Rename, { "RenameProcessor", "RenameGroup" } },
        { "remove", Remove, { "MoveProcessor" } },
        { "drop", Drop, { "MoveProcessor" } },
        { "delete", Delete, { "DeleteProcessor", "DeleteGroup" } },
    };
    return listGesture;
}

bool HasCome(CFaultWindow& scene, const SGesture& gesture)
{
    return std::any_of(gesture.listOperation.cbegin(), gesture.listOperation.cend(),
                       [&](const QString& strOperation) { return !scene.commands.Pick(strOperation).isEmpty(); });
}

} // namespace

/// What the panel shows, and whom its commands reach, while the control library is read wrong.
class CReadingFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void whatFlickersIsShownAsItIsReadAndEndsTrue_data()
    {
        QTest::addColumn<QString>("strNode");
        QTest::addColumn<QString>("strValue");
        for (const char* szValue : { "expanded", "name", "online" }) {
            QTest::addRow("%s of a processor", szValue) << "Wall 2" << szValue;
        }
        for (const char* szValue : { "expanded", "name" }) {
            QTest::addRow("%s of a group", szValue) << "Main stage" << szValue;
        }
    }

    void whatFlickersIsShownAsItIsReadAndEndsTrue()
    {
        QFETCH(QString, strNode);
        QFETCH(QString, strValue);
        CFaultWindow scene;
        scene.Click("Door 2");
        scene.Read();
        QTRY_COMPARE(scene.ShownRows(), scene.TrueRows());
        const QString strTruth = scene.ShownRows();
        scene.Break(QString("'do': 'flicker', 'node': '%1', 'value': '%2', 'count': 3").arg(strNode, strValue));
        for (const bool bWrong : { true, false, true, false, false }) {
            scene.Read();
            QTRY_COMPARE(scene.ShownRows() != strTruth, bWrong);
            QVERIFY(scene.ShownRows().contains("Door 2, online [+]*") || scene.ShownRows().contains("Door 2, online*"));
        }
        QCOMPARE(scene.ShownRows(), scene.TrueRows());
    }

    void whatIsOnlyCarriedMovesNoSelection_data()
    {
        QTest::addColumn<QString>("strNode");
        for (const char* szNode : { "Wall 2", "Main stage" }) {
            QTest::newRow(szNode) << szNode;
        }
    }

    void whatIsOnlyCarriedMovesNoSelection()
    {
        QFETCH(QString, strNode);
        CFaultWindow scene;
        scene.Click(strNode);
        scene.Read();
        const QString strTruth = scene.ShownRows();
        scene.Break(QString("'do': 'flicker', 'node': '%1', 'value': 'aux', 'count': 5").arg(strNode));
        for (int n = 0; n < 6; ++n) {
            scene.Read();
            QTRY_COMPARE(scene.ShownRows(), strTruth);
        }
    }

    void commandsReachTheirRowsThoughTheseFlicker_data()
    {
        QTest::addColumn<QString>("strValue");
        for (const char* szValue : { "aux", "expanded", "name", "online", "role", "" }) {
            QTest::addRow("%s", *szValue ? szValue : "all") << szValue;
        }
    }

    void commandsReachTheirRowsThoughTheseFlicker()
    {
        QFETCH(QString, strValue);
        CFaultWindow scene;
        const QStringList listNode{ "Wall 1", "Wall 2", "Wall 3", "Door 1", "Door 2" };
        const QString strKey = strValue.isEmpty() ? "" : QStringLiteral("'value': '%1', ").arg(strValue);
        for (int n = 0; n < Gestures().size(); ++n) {
            const QUuid id = CListWindow::Id(listNode[n]);
            const QString strStep = QStringLiteral("'do': 'flicker', 'node': '%1', %2'count': %3").arg(id.toString(), strKey);
            scene.Break(strStep.arg(1000));
            GiveCommand(scene, Gestures()[n], id, 0, { CListWindow::Id("Empty") });
            EndFault(scene, strStep);
        }
    }

    void commandsReachTheSelectedIdThoughTwoNodesHaveIt_data()
    {
        QTest::addColumn<QString>("strNode");
        QTest::addColumn<QString>("strWith");
        QTest::addColumn<int>("nWhich");
        const QList<QStringList> listPair{ { "Door 1", "Door 2" },    { "Wall 1", "Wall 2" },     { "Wall 1", "Door 3" },
                                           { "Door 1", "Wall 3" },    { "Door 1", "Main stage" }, { "Wall 2", "Main stage" },
                                           { "Main stage", "Door 1" } };
        for (const QStringList& pair : listPair) {
            for (const int nWhich : { 0, 1 }) {
                QTest::addRow("%s as %s, row %d", qPrintable(pair[0]), qPrintable(pair[1]), nWhich)
                    << pair[0] << pair[1] << nWhich;
            }
        }
    }

    void commandsReachTheSelectedIdThoughTwoNodesHaveIt()
    {
        QFETCH(QString, strNode);
        QFETCH(QString, strWith);
        QFETCH(int, nWhich);
        CFaultWindow scene;
        const QUuid id = CListWindow::Id(strWith);
        const QUuid idNode = CListWindow::Id(strNode);
        const QString strStep
            = QStringLiteral("'do': 'collide', 'node': '%1', 'with': '%2', 'for': %3").arg(idNode.toString(), id.toString());
        for (const char* szGesture : { "fold", "rename", "delete" }) {
            const auto it = std::find_if(Gestures().cbegin(), Gestures().cend(),
                                         [&](const SGesture& gesture) { return qstrcmp(gesture.szName, szGesture) == 0; });
            scene.Break(strStep.arg(86400));
            scene.Read();
            QTRY_VERIFY(scene.RowOf(id, 1).isValid());
            QVERIFY(!scene.RowOf(idNode).isValid());
            GiveCommand(scene, *it, id, nWhich, {});
            EndFault(scene, strStep);
        }
    }

    void aSearchFindsItsRowsThoughIdsCollide()
    {
        CFaultWindow scene;
        QWidget* pPanel = scene.kestrel.pPanel->GetWidget();
        PanelAccess::FindAction(pPanel, "CProcessorTreeToolBar", "Search")->trigger();
        scene.Break("'do': 'collide', 'node': 'Wall 1', 'with': 'Main stage', 'for': 86400");
        scene.Break("'do': 'collide', 'node': 'Door 1', 'with': 'Door 2', 'for': 86400");
        scene.Read();
        for (const char* szText : { "Wall", "Door 1", "Main", "nobody" }) {
            PanelAccess::TypeText(PanelAccess::FindSearchEdit(pPanel), szText);
            scene.Read();
        }
        pPanel->findChild<QAbstractButton*>("CloseSearchBox")->click();
        scene.Break("'do': 'collide', 'node': 'Wall 1', 'with': 'Main stage', 'for': 0");
        scene.Break("'do': 'collide', 'node': 'Door 1', 'with': 'Door 2', 'for': 0");
        scene.Read();
        QTRY_COMPARE(scene.ShownRows(), scene.TrueRows());
    }

private:
    /// From the next message on the panel shows the truth; a node that is no more needs no end of its fault.
    static void EndFault(CFaultWindow& scene, const QString& strStep)
    {
        scene.TryBreak(strStep.arg(0));
        scene.Read();
        QTRY_COMPARE(scene.ShownRows(), scene.TrueRows());
    }

    /// The gesture under a rain of messages, and no node but that of the row and those of setMore in its commands.
    static void GiveCommand(CFaultWindow& scene, const SGesture& gesture, const QUuid& id, int nWhich, QSet<QUuid> setMore)
    {
        const CRain rain;
        scene.AwaitReadings();
        scene.commands.Forget();
        gesture.fnDo(scene, id, nWhich);
        QTRY_VERIFY2(HasCome(scene, gesture), gesture.szName);
        setMore.insert(id);
        QVERIFY2((scene.CommandedIds() - setMore).isEmpty(), gesture.szName);
        if (gesture.listOperation.contains("SetExpanded")) {
            QCOMPARE(scene.FirstIds("SetExpanded"), QList<QUuid>{ id });
        } else {
            QVERIFY2(scene.CommandedIds().contains(id), gesture.szName);
        }
    }
};

PTV_TEST_MAIN(CReadingFaultsTest)
#include "tst_readingfaults.moc"
