#include "CRecorderDouble.h"
#include "Kestrel/journal/CInputJournal.h"
#include "Kestrel/journal/CPopupJournal.h"
#include "Kestrel/journal/WidgetPath.h"
#include "Kestrel/replay/CGesturePlayer.h"
#include "Kestrel/replay/CScreenFollower.h"
#include "Kestrel/replay/PlainDrag.h"
#include "TestMain.h"
#include "journal/replay/SRecordedLine.h"

#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimer>
#include <QVBoxLayout>

namespace {

const QUuid idFirst("{1c0ffee0-0000-0000-0000-000000000001}");
const QUuid idSecond("{1c0ffee0-0000-0000-0000-000000000002}");

SRecordedLine Line(const QString& strOperation, QJsonObject fields)
{
    SRecordedLine line;
    line.strKind = "user";
    line.strOperation = strOperation;
    line.fields = std::move(fields);
    return line;
}

/// A window to do something in: a list of two rows, a field, a menu.
class CScene
{
public:
    CScene()
    {
        auto* pCentral = new QWidget;
        auto* pLayout = new QVBoxLayout(pCentral);
        pLayout->addWidget(pList);
        pLayout->addWidget(pEdit);
        for (const QUuid& id : { idFirst, idSecond }) {
            auto* pItem = new QListWidgetItem(id.toString(), pList);
            pItem->setData(Qt::UserRole + 1, id);
            pItem->setData(Qt::UserRole + 2, 3);
        }
        window.setCentralWidget(pCentral);
        pEntry->setShortcut(QKeySequence("Ctrl+K"));
        window.resize(400, 300);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    QPoint PosOf(int nRow) const
    {
        return pList->viewport()->mapTo(&window, pList->visualItemRect(pList->item(nRow)).center());
    }

    QMainWindow window;
    QListWidget* pList = new QListWidget;
    QLineEdit* pEdit = new QLineEdit;
    QMenu* pMenu = window.menuBar()->addMenu("List");
    QAction* pEntry = pMenu->addAction("Renew");
};

/// Plays lines into a window.
class CPlaying
{
public:
    explicit CPlaying(QMainWindow& window)
        : follower(window, {}), player(window, follower, [this](const QUuid& id) { return mapNode.value(id, id); })
    { }

    QString Obstacle(const SRecordedLine& line)
    {
        return CGesturePlayer::IsFor(line) ? player.FindObstacle(line) : follower.FindObstacle(line);
    }

    bool Do(const SRecordedLine& line, bool bDouble = false)
    {
        const bool bDone = CGesturePlayer::IsFor(line) ? player.Play(line, bDouble) : follower.Follow(line);
        return bDone && QTest::qWaitFor([] { return WindowInput::IsTaken(); });
    }

    QMap<QUuid, QUuid> mapNode;
    CScreenFollower follower;
    CGesturePlayer player;
};

/// What a user does to a window, recorded, and played into another one.
template <typename FnDo> QVector<SRecordedLine> Record(const FnDo& fnDo)
{
    CScene scene;
    CRecorderDouble recorder;
    const CInputJournal input(recorder, false);
    const CPopupJournal popups(recorder);
    fnDo(scene);
    QVector<SRecordedLine> vecLine;
    for (const QJsonObject& line : recorder.All()) {
        vecLine.append(Line(line.value("operation").toString(), line));
    }
    return vecLine;
}

SRecordedLine MouseLine(const CScene& scene, const char* szDo, const QPoint& pos, int nButtons)
{
    return Line(szDo,
                { { "window", "QMainWindow[0]" },
                  { "target", WidgetPath::Get(scene.pList->viewport()) },
                  { "x", pos.x() },
                  { "y", pos.y() },
                  { "button", nButtons == 0 ? 1 : nButtons },
                  { "buttons", nButtons } });
}

void PlayAll(CPlaying& playing, const QVector<SRecordedLine>& vecLine)
{
    for (int n = 0; n < vecLine.size(); ++n) {
        playing.player.Prepare();
        QVERIFY2(QTest::qWaitFor([&] { return playing.Obstacle(vecLine[n]).isEmpty(); }),
                 qPrintable(playing.Obstacle(vecLine[n])));
        const bool bDouble = n + 1 < vecLine.size() && vecLine[n + 1].strOperation == "double click";
        QVERIFY(playing.Do(vecLine[n], bDouble));
    }
}

} // namespace

/// Gestures that were recorded, played into a window.
class CGesturePlayerTest : public QObject
{
    Q_OBJECT

private slots:
    void aClickSelectsTheRowThatItSelected()
    {
        const auto vecLine
            = Record([](CScene& scene) { QTest::mouseClick(scene.window.windowHandle(), Qt::LeftButton, {}, scene.PosOf(1)); });
        CScene scene;
        CPlaying playing(scene.window);
        PlayAll(playing, vecLine);
        QCOMPARE(scene.pList->currentRow(), 1);
    }

    void aClickThatWouldHitAnotherRowSaysSo()
    {
        const auto vecLine
            = Record([](CScene& scene) { QTest::mouseClick(scene.window.windowHandle(), Qt::LeftButton, {}, scene.PosOf(1)); });
        const auto it
            = std::find_if(vecLine.begin(), vecLine.end(), [](const auto& line) { return line.strOperation == "press"; });
        QVERIFY(it != vecLine.end());
        CScene scene;
        CPlaying playing(scene.window);
        QCOMPARE(playing.Obstacle(*it), QString());

        playing.mapNode[idSecond] = idFirst; // the same node, by its id of today
        QVERIFY(playing.Obstacle(*it).contains(QString("hit the row %1").arg(idFirst.toString(QUuid::WithoutBraces))));
        playing.mapNode.clear();
        delete scene.pList->takeItem(0);
        QVERIFY(playing.Obstacle(*it).contains("hit the row " + idSecond.toString(QUuid::WithoutBraces)));
    }

    void twoPressesAreADoubleClickOnlyWhereTheyWere_data()
    {
        QTest::addColumn<bool>("bDouble");
        QTest::newRow("two clicks") << false;
        QTest::newRow("a double click") << true;
    }

    void twoPressesAreADoubleClickOnlyWhereTheyWere()
    {
        QFETCH(bool, bDouble);
        CScene scene;
        CPlaying playing(scene.window);
        QSignalSpy spyDouble(scene.pList, &QAbstractItemView::doubleClicked);
        const QPoint pos = scene.PosOf(0);
        const QJsonObject at{ { "window", "QMainWindow[0]" },
                              { "target", WidgetPath::Get(scene.pList->viewport()) },
                              { "x", pos.x() },
                              { "y", pos.y() },
                              { "button", 1 },
                              { "buttons", 1 } };
        QJsonObject up = at;
        up.insert("buttons", 0);
        for (const bool bSecond : { false, true }) {
            QVERIFY(playing.Do(Line("press", at), bSecond && bDouble));
            QVERIFY(playing.Do(Line("release", up)));
        }
        QCOMPARE(spyDouble.count(), bDouble ? 1 : 0);
    }

    void keysReachTheField()
    {
        const auto vecLine = Record([](CScene& scene) {
            scene.pEdit->setFocus();
            for (const char szKey : { 'a', 'l', 'p', 'h', 'a' }) {
                QTest::keyClick(scene.window.windowHandle(), szKey);
            }
        });
        CScene scene;
        scene.pEdit->setFocus();
        CPlaying playing(scene.window);
        PlayAll(playing, vecLine);
        QCOMPARE(scene.pEdit->text(), QString("alpha"));
    }

    void aKeyThatWouldGoElsewhereSaysSo()
    {
        CScene scene;
        CPlaying playing(scene.window);
        const SRecordedLine line
            = Line("key press", { { "window", "QMainWindow[0]" }, { "target", WidgetPath::Get(scene.pEdit) }, { "key", 'A' } });
        scene.pList->setFocus();
        QVERIFY(playing.Obstacle(line).contains("now goes to"));
        scene.pEdit->setFocus();
        QCOMPARE(playing.Obstacle(line), QString());
    }

    void aKeyOfTheListWaitsForItsRow()
    {
        CScene scene;
        CPlaying playing(scene.window);
        scene.pList->setFocus();
        const SRecordedLine line = Line("key press",
                                        { { "window", "QMainWindow[0]" },
                                          { "target", WidgetPath::Get(scene.pList) },
                                          { "key", Qt::Key_F2 },
                                          { "row", idSecond.toString(QUuid::WithoutBraces) } });
        scene.pList->setCurrentRow(0);
        QVERIFY(playing.player.IsRowAwaited(line));
        scene.pList->setCurrentRow(1);
        QVERIFY(!playing.player.IsRowAwaited(line));
        scene.pList->selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
        QVERIFY(!playing.player.IsRowAwaited(line));
    }

    void aMaskedKeyTypesADigitAndPastedTextIsPasted()
    {
        CScene scene;
        scene.pEdit->setFocus();
        CPlaying playing(scene.window);
        QJsonObject at{ { "window", "QMainWindow[0]" }, { "target", WidgetPath::Get(scene.pEdit) }, { "key", Qt::Key_unknown } };
        QVERIFY(playing.Do(Line("key press", at)));
        QCOMPARE(scene.pEdit->text(), QString("1"));

        at.insert("key", Qt::Key_V);
        at.insert("modifiers", int(Qt::ControlModifier));
        at.insert("pasted", "beta");
        QVERIFY(playing.Do(Line("key press", at)));
        QCOMPARE(scene.pEdit->text(), QString("1beta"));
    }

    void whatTheProgramHasSentIsNotSentTwice()
    {
        CScene scene;
        scene.pEdit->setFocus();
        CPlaying playing(scene.window);
        QVERIFY(playing.Do(Line("key press",
                                { { "window", "QMainWindow[0]" },
                                  { "target", WidgetPath::Get(scene.pEdit) },
                                  { "key", 'A' },
                                  { "text", "a" },
                                  { "sent", true } })));
        QCOMPARE(scene.pEdit->text(), QString());
    }

    void aShortcutTriggersItsEntry()
    {
        const auto vecLine
            = Record([](CScene& scene) { QTest::keyClick(scene.window.windowHandle(), 'K', Qt::ControlModifier); });
        CScene scene;
        CPlaying playing(scene.window);
        const QSignalSpy spy(scene.pEntry, &QAction::triggered);
        PlayAll(playing, vecLine);
        QCOMPARE(spy.count(), 1);
    }

    void anEntryThatTheHostHasNotHereIsPassedOver()
    {
        CScene scene;
        CPlaying playing(scene.window);
        scene.pEntry->setEnabled(false);
        const SRecordedLine line = Line("shortcut", { { "keys", "Ctrl+K" }, { "entry", "Renew" } });
        QVERIFY(playing.Obstacle(line).contains("Renew"));
        QVERIFY(!playing.Do(line));
        QVERIFY(!playing.Do(Line("dialog", { { "dialog", "QMainWindow[0]/Renewing[0]" }, { "title", "Renewing" } })));
        // And what was done in its dialog.
        QCOMPARE(playing.Obstacle(Line("key press", { { "window", "QMainWindow[0]/Renewing[0]" } })), QString());
    }

    void aMenuIsOpenedAndItsEntryChosen()
    {
        const auto vecLine = Record([](CScene& scene) {
            QTest::mouseClick(scene.window.windowHandle(), Qt::LeftButton, {},
                              scene.window.menuBar()->actionGeometry(scene.pMenu->menuAction()).center());
            QTest::mouseClick(scene.pMenu->windowHandle(), Qt::LeftButton, {},
                              scene.pMenu->actionGeometry(scene.pEntry).center());
        });
        CScene scene;
        CPlaying playing(scene.window);
        const QSignalSpy spy(scene.pEntry, &QAction::triggered);
        scene.pMenu->insertSeparator(scene.pEntry); // the entry is elsewhere
        scene.pMenu->removeAction(scene.pMenu->actions().constFirst());
        PlayAll(playing, vecLine);
        QCOMPARE(spy.count(), 1);
        QVERIFY(!scene.pMenu->isVisible());
    }

    // On X11 keys still go to the menu for a moment.
    void aKeyToAMenuThatHasClosedReachesNobody()
    {
        CScene scene;
        CPlaying playing(scene.window);
        scene.pEdit->setFocus();
        const QJsonObject menu{ { "menu", "QMainWindow[0]/CMenu[0]" } };
        const SRecordedLine line = Line("key press",
                                        { { "window", "QMainWindow[0]/CMenu[0]" },
                                          { "target", WidgetPath::Get(scene.pEdit) },
                                          { "key", 'A' },
                                          { "text", "a" } });
        QVERIFY(playing.Do(Line("menu", menu)));
        QVERIFY(playing.Obstacle(line).contains("is not there"));

        QVERIFY(playing.Do(Line("menu closed", menu)));
        QCOMPARE(playing.Obstacle(line), QString());
        QVERIFY(playing.Do(line));
        QCOMPARE(scene.pEdit->text(), QString());

        QVERIFY(playing.Do(Line("menu", menu))); // the next one
        QVERIFY(playing.Obstacle(line).contains("is not there"));
    }

    void aDialogThatStaysOpenIsAnsweredAsItWas()
    {
        CScene scene;
        CPlaying playing(scene.window);
        QDialog dialog(&scene.window);
        dialog.setObjectName("Question");
        dialog.show();
        const SRecordedLine line = Line("answer", { { "dialog", "QMainWindow[0]/Question[0]" }, { "result", 7 } });
        QVERIFY(playing.Obstacle(line).contains("stays open"));
        QVERIFY(playing.Do(line));
        QTRY_VERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), 7);
        QCOMPARE(playing.Obstacle(line), QString());
    }

    void aFileDialogChoosesTheRecordedFile()
    {
        CScene scene;
        CPlaying playing(scene.window);
        QFileDialog dialog(&scene.window);
        dialog.setObjectName("Files");
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.show();
        const QString strPath = "QMainWindow[0]/Files[0]";
        QVERIFY(playing.Do(Line("dialog", { { "dialog", strPath } })));
        // Gestures in it wait for nothing and do nothing.
        const SRecordedLine key
            = Line("key press", { { "window", strPath }, { "target", "gone" }, { "key", 'A' }, { "text", "a" } });
        QCOMPARE(playing.Obstacle(key), QString());
        QVERIFY(playing.Do(key));

        QVERIFY(playing.Do(
            Line("answer", { { "dialog", strPath }, { "result", 1 }, { "files", QJsonArray{ "/no/such/list.kvtl" } } })));
        QTRY_VERIFY(!dialog.isVisible());
        QCOMPARE(dialog.selectedFiles(), QStringList{ "/no/such/list.kvtl" });
    }

    void aDragIsDroppedWhereItWas()
    {
        CScene scene;
        scene.pList->setDragDropMode(QAbstractItemView::InternalMove);
        CPlaying playing(scene.window);
        const QPoint posEnd = scene.PosOf(1) + QPoint(0, 40);
        QVERIFY(playing.Do(MouseLine(scene, "press", scene.PosOf(0), 1)));
        QVERIFY(playing.Obstacle(MouseLine(scene, "drop", posEnd, 0)).contains("dragged"));
        // What comes next is done from within the event loop of the drag.
        QVector<SRecordedLine> vecLine{ MouseLine(scene, "drag", posEnd, 1), MouseLine(scene, "drop", posEnd, 0) };
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            if (PlainDrag::IsRunning() && WindowInput::IsTaken() && !vecLine.isEmpty()) {
                QCOMPARE(playing.Obstacle(vecLine.constFirst()), QString());
                playing.player.Play(vecLine.takeFirst(), false);
            }
        });
        timer.start();
        for (const int nDown : { 15, 30 }) {
            playing.player.Play(MouseLine(scene, "move", scene.PosOf(0) + QPoint(0, nDown), 1), false);
        }
        QTRY_VERIFY(vecLine.isEmpty() && !PlainDrag::IsRunning());
        QCOMPARE(scene.pList->item(1)->data(Qt::UserRole + 1).toUuid(), idFirst);
    }

    void anEndFromOutsideCancelsADrag()
    {
        CScene scene;
        scene.pList->setDragDropMode(QAbstractItemView::InternalMove);
        CPlaying playing(scene.window);
        const QSignalSpy moved(scene.pList->model(), &QAbstractItemModel::rowsInserted);
        QVERIFY(playing.Do(MouseLine(scene, "press", scene.PosOf(0), 1)));
        bool bRan = false;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] { // from within the event loop of the drag
            if (PlainDrag::IsRunning() && WindowInput::IsTaken() && !bRan) {
                bRan = true;
                QVERIFY(playing.follower.Follow(Line("unattended end", {})));
            }
        });
        timer.start();
        for (const int nDown : { 15, 30 }) {
            playing.player.Play(MouseLine(scene, "move", scene.PosOf(0) + QPoint(0, nDown), 1), false);
        }
        QTRY_VERIFY(bRan && !PlainDrag::IsRunning());
        QCOMPARE(moved.count(), 0);
    }

    void theWheelScrolls()
    {
        CScene scene;
        for (int n = 0; n < 100; ++n) {
            scene.pList->addItem(QString::number(n));
        }
        CPlaying playing(scene.window);
        const QPoint pos = scene.PosOf(1);
        QVERIFY(playing.Do(Line("wheel",
                                { { "window", "QMainWindow[0]" },
                                  { "target", WidgetPath::Get(scene.pList->viewport()) },
                                  { "x", pos.x() },
                                  { "y", pos.y() },
                                  { "dy", -120 } })));
        QVERIFY(scene.pList->verticalScrollBar()->value() > 0);
    }

    void composedTextArrivesAsAWhole()
    {
        CScene scene;
        CPlaying playing(scene.window);
        QVERIFY(playing.Do(Line("composed", { { "target", WidgetPath::Get(scene.pEdit) }, { "text", "编组" } })));
        QCOMPARE(scene.pEdit->text(), QString("编组"));
    }

    void theWindowGetsItsSizeAndIsClosedOnce()
    {
        CScene scene;
        CPlaying playing(scene.window);
        const QSignalSpy spy(&playing.player, &CGesturePlayer::Closing);
        QVERIFY(playing.Do(Line("size", { { "width", 500 }, { "height", 350 } })));
        QCOMPARE(scene.window.size(), QSize(500, 350));

        scene.window.close(); // by a gesture
        QVERIFY(playing.Do(Line("close", {})));
        QCoreApplication::processEvents();
        QCOMPARE(spy.count(), 1);
    }
};

PTV_TEST_MAIN(CGesturePlayerTest)
#include "tst_gestureplayer.moc"
