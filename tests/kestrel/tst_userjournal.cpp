#include "CRecorderDouble.h"
#include "Kestrel/CLanguage.h"
#include "Kestrel/journal/CEditJournal.h"
#include "Kestrel/journal/CInputJournal.h"
#include "Kestrel/journal/CPopupJournal.h"
#include "Kestrel/journal/CScreenJournal.h"
#include "Kestrel/journal/WidgetPath.h"
#include "Kestrel/theme/CTheme.h"
#include "TestMain.h"

#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedLayout>
#include <QStandardItemModel>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

const QUuid id("{1c0ffee0-0000-0000-0000-000000000001}");

/// A window with what the panel has: two trees, one of which shows, and a field to search.
class CPanelWindow
{
public:
    CPanelWindow()
    {
        auto* pLayout = new QVBoxLayout(pPanel);
        pLayout->addWidget(pSearch);
        pStack = new QStackedLayout;
        pLayout->addLayout(pStack);
        for (QTreeView*& pTree : listTree) {
            pTree = new QTreeView;
            pTree->setModel(&model);
            pStack->addWidget(pTree);
        }
        pSearch->setObjectName("SearchEdit");
        for (int n = 0; n < 100; ++n) {
            auto* pItem = new QStandardItem(QString("row %1").arg(n));
            pItem->setData(id, Qt::UserRole + 1);
            pItem->setData(3, Qt::UserRole + 2);
            model.appendRow(pItem);
        }
        window.setCentralWidget(pPanel);
        window.resize(400, 300);
        window.show();
        QApplication::setActiveWindow(&window);
        window.activateWindow();
        [[maybe_unused]] const bool bActive = QTest::qWaitForWindowActive(&window); // that is a line of its own
    }

    QStandardItemModel model;
    QMainWindow window;
    QWidget* pPanel = new QWidget;
    QLineEdit* pSearch = new QLineEdit;
    QStackedLayout* pStack = nullptr;
    std::array<QTreeView*, 2> listTree{};
};

} // namespace

/// What the user does, as lines of the recording.
class CUserJournalTest : public QObject
{
    Q_OBJECT

private slots:
    void aKeyIsOneLineWhoeverItIsHandedTo()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        const CInputJournal input(recorder, false);
        scene.listTree[0]->setFocus();
        QTest::keyClick(scene.window.windowHandle(), Qt::Key_F2);

        QCOMPARE(recorder.Operations(), (QStringList{ "key press", "key release" }));
        QCOMPARE(recorder.Last("key press").value("key").toInt(), int(Qt::Key_F2));
        QCOMPARE(WidgetPath::Find(recorder.Last("key press").value("target").toString()), scene.listTree[0]);
    }

    void aClickSaysWhereAndOnWhichRow()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        const CInputJournal input(recorder, false);
        QWidget* pViewport = scene.listTree[0]->viewport();
        const QPoint pos = scene.listTree[0]->visualRect(scene.model.index(1, 0)).center();
        QTest::mouseClick(scene.window.windowHandle(), Qt::LeftButton, {}, pViewport->mapTo(&scene.window, pos));

        QCOMPARE(recorder.Operations(), (QStringList{ "press", "release" }));
        const QJsonObject line = recorder.Last("press");
        QCOMPARE(WidgetPath::Find(line.value("target").toString()), pViewport);
        QCOMPARE(QPoint(line.value("x").toInt(), line.value("y").toInt()), pViewport->mapTo(&scene.window, pos));
        QCOMPARE(line.value("row").toString(), id.toString(QUuid::WithoutBraces));
        QCOMPARE(line.value("rowType").toInt(), 3);
        QCOMPARE(line.value("button").toInt(), int(Qt::LeftButton));
    }

    void whatIsSentStraightToAWidgetIsALineToo()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        const CInputJournal input(recorder, false);
        for (int n = 0; n < 2; ++n) {
            QMouseEvent event(QEvent::MouseButtonPress, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(scene.listTree[0]->viewport(), &event);
        }
        QCOMPARE(recorder.Pick("press").size(), 2);
    }

    void whatTheProgramSendsIsMarked()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        const CInputJournal input(recorder, false);
        QTest::keyClick(scene.window.windowHandle(), Qt::Key_F2);
        QVERIFY(!recorder.Last("key press").contains("sent"));

        QKeyEvent event(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ");
        QCoreApplication::sendEvent(scene.listTree[0], &event);
        QCOMPARE(recorder.Last("key press").value("sent").toBool(), true);
    }

    // Qt holds it back until a screen reader has been asked, and sends it to the window then.
    void aKeyThatAScreenReaderLetsPassIsTheUsers()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        const CInputJournal input(recorder, false);

        QKeyEvent event(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QCoreApplication::sendEvent(scene.window.windowHandle(), &event);

        QCOMPARE(recorder.Pick("key press").size(), 1);
        QVERIFY(!recorder.Last("key press").contains("sent"));
    }

    void aKeyOfTheListIsOnItsCurrentRow()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        const CInputJournal input(recorder, false);
        scene.listTree[0]->setFocus();
        scene.listTree[0]->setCurrentIndex(scene.model.index(3, 0));
        QTest::keyClick(scene.window.windowHandle(), Qt::Key_F2);
        QCOMPARE(recorder.Last("key press").value("row").toString(), id.toString(QUuid::WithoutBraces));
    }

    void pastedAndComposedTextIsInIt()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        const CInputJournal input(recorder, false);
        scene.pSearch->setFocus();
        QGuiApplication::clipboard()->setText("from elsewhere");
        QTest::keyClick(scene.window.windowHandle(), 'V', Qt::ControlModifier);
        QCOMPARE(recorder.Last("key press").value("pasted").toString(), QString("from elsewhere"));

        QInputMethodEvent event;
        event.setCommitString("composed");
        QCoreApplication::sendEvent(scene.pSearch, &event);
        QCOMPARE(recorder.Last("composed").value("text").toString(), QString("composed"));
        QCOMPARE(WidgetPath::Find(recorder.Last("composed").value("target").toString()), scene.pSearch);
    }

    void overAnOpenMenuTheMouseIsFollowedWithTheEntry()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        const CInputJournal input(recorder, false);
        QMenu menu(&scene.window);
        menu.addAction("Rename");
        QAction* pDelete = menu.addAction("Delete");
        menu.popup(QPoint(10, 10));
        QTest::mouseMove(menu.windowHandle(), menu.actionGeometry(pDelete).center());
        QTRY_COMPARE(recorder.Last("move").value("number").toInt(), 1);
    }

    void theActiveWindowAndClosingAreInIt()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        const CInputJournal input(recorder, false);
        const CLanguage language;
        const CTheme theme;
        const CScreenJournal screen(recorder, scene.window, *scene.pPanel, language, theme);
        QDialog dialog(&scene.window);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTRY_COMPARE(recorder.Last("active").value("window").toString(), WidgetPath::Get(&dialog));
        dialog.close();
        scene.window.close();
        QCOMPARE(recorder.Pick("close").size(), 1);
    }

    void theMouseIsFollowedOnlyWhileAButtonIsDown()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        const CInputJournal input(recorder, false);
        QTest::mouseMove(scene.window.windowHandle(), QPoint(50, 100));
        QTest::mousePress(scene.window.windowHandle(), Qt::LeftButton, {}, QPoint(50, 100));
        QTest::mouseMove(scene.window.windowHandle(), QPoint(60, 120));
        QTest::mouseRelease(scene.window.windowHandle(), Qt::LeftButton, {}, QPoint(60, 120));
        QCOMPARE(recorder.Operations(), (QStringList{ "press", "move", "release" }));
    }

    void withTheMaskKeysDoNotGiveAwayWhatIsTyped()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        const CInputJournal input(recorder, true);
        scene.pSearch->setFocus();
        QTest::keyClick(scene.window.windowHandle(), 'q');
        QCOMPARE(scene.pSearch->text(), QString("q"));
        QCOMPARE(recorder.Last("key press").value("text").toString(), QString());
        QCOMPARE(recorder.Last("key press").value("key").toInt(), int(Qt::Key_unknown));
        QTest::keyClick(scene.window.windowHandle(), Qt::Key_Left);
        QCOMPARE(recorder.Last("key press").value("key").toInt(), int(Qt::Key_Left));
    }

    void withTheMaskKeysWithoutATextDoNotEither()
    {
        CPanelWindow scene;
        CRecorderDouble recorder(true);
        const CInputJournal input(recorder, true);
        QKeyEvent event(QEvent::KeyRelease, Qt::Key_Q, Qt::NoModifier);
        QCoreApplication::sendEvent(&scene.window, &event);
        QCOMPARE(recorder.Last("key release").value("key").toInt(), int(Qt::Key_unknown));
        QKeyEvent eventUndo(QEvent::KeyPress, Qt::Key_Z, Qt::ControlModifier);
        QCoreApplication::sendEvent(&scene.window, &eventUndo);
        QCOMPARE(recorder.Last("key press").value("key").toInt(), int(Qt::Key_Z));
    }

    void withTheMaskNoEntryGivesAwayWhatItUndoes()
    {
        CPanelWindow scene;
        CRecorderDouble recorder(true);
        const CInputJournal input(recorder, true);
        const CPopupJournal popups(recorder);
        QMenu menu(&scene.window);
        QAction* pUndo = menu.addAction("Undo: Delete Secret");
        pUndo->setShortcut(QKeySequence("Ctrl+Z"));
        scene.window.addAction(pUndo);
        scene.listTree[0]->setFocus();
        const QSignalSpy undone(pUndo, &QAction::triggered);
        QTest::keyClick(scene.window.windowHandle(), Qt::Key_Z, Qt::ControlModifier);
        menu.popup(QPoint(10, 10));
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Return);

        QCOMPARE(undone.size(), 2);
        QCOMPARE(recorder.Last("shortcut").value("keys").toString(), QString("Ctrl+Z"));
        QVERIFY(recorder.Last("entry").value("entry") == recorder.Last("shortcut").value("entry"));
        QVERIFY2(!recorder.Text().contains("Secret"), qPrintable(recorder.Text()));
    }

    void aDragThatLeavesTheWindowIsSaid()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        const CInputJournal input(recorder, false);
        QMimeData data;
        data.setText("alpha");
        QDragEnterEvent eventEnter(QPoint(50, 60), Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(scene.window.windowHandle(), &eventEnter);
        QDragLeaveEvent eventLeave;
        QCoreApplication::sendEvent(scene.window.windowHandle(), &eventLeave);
        QCOMPARE(recorder.Operations(), (QStringList{ "drag", "drag left" }));
        QCOMPARE(recorder.Last("drag").value("formats").toArray(), QJsonArray{ "text/plain" });
        QCOMPARE(recorder.Last("drag").value("x").toInt(), 50);
    }

    void whatIsEditedIsALineHoweverItGotThere()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        const CEditJournal edits(recorder);
        scene.pSearch->setFocus();
        scene.pSearch->setText("not by the user");
        scene.pSearch->clear();
        QInputMethodEvent event;
        event.setCommitString(QString(QChar(0x540D)));
        QCoreApplication::sendEvent(scene.pSearch, &event);
        QCOMPARE(recorder.Last("edit").value("text").toString(), QString(QChar(0x540D)));
        QGuiApplication::clipboard()->setText("beta");
        scene.pSearch->paste();
        QCOMPARE(recorder.Last("edit").value("text").toString(), QChar(0x540D) + QString("beta"));
        QCOMPARE(WidgetPath::Find(recorder.Last("edit").value("target").toString()), static_cast<QWidget*>(scene.pSearch));
        QCOMPARE(recorder.Pick("edit").size(), 2);
    }

    void anEntryOfASubMenuIsOneLine()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        const CPopupJournal popups(recorder);
        QMenu menu(&scene.window);
        menu.addAction("Rename");
        QMenu* pSubMenu = menu.addMenu("Move to");
        QAction* pStage = pSubMenu->addAction("Stage");
        menu.popup(QPoint(10, 10));
        QTest::keyClick(&menu, Qt::Key_Up);
        QTest::keyClick(&menu, Qt::Key_Right); // by a menu above it, which then reports the choice too
        QTRY_VERIFY(pSubMenu->isVisible());
        const QSignalSpy above(&menu, &QMenu::triggered);
        QTest::keyClick(pSubMenu, Qt::Key_Return);
        QCOMPARE(above.size(), 1);

        QCOMPARE(recorder.Pick("menu").size(), 2);
        QCOMPARE(recorder.Pick("menu")[0].value("entries").toArray(), (QJsonArray{ "Rename", "Move to" }));
        QCOMPARE(recorder.Pick("entry").size(), 1);
        QCOMPARE(recorder.Last("entry").value("entry").toString(), pStage->text());
        QCOMPARE(recorder.Last("entry").value("number").toInt(), 0);
        QVERIFY(!recorder.Pick("menu closed").isEmpty());
    }

    void aDialogIsWrittenWithItsTextsAndItsAnswers()
    {
        CRecorderDouble recorder;
        const CPopupJournal popups(recorder);
        QDialog dialog;
        dialog.setWindowTitle("Add");
        auto* pLayout = new QVBoxLayout(&dialog);
        pLayout->addWidget(new QLabel("How many?"));
        auto* pEdit = new QLineEdit;
        pLayout->addWidget(pEdit);
        dialog.show();
        pEdit->setText("2");
        dialog.accept();

        QCOMPARE(recorder.Last("dialog").value("title").toString(), QString("Add"));
        QCOMPARE(recorder.Last("dialog").value("texts").toArray(), QJsonArray{ "How many?" });
        QCOMPARE(recorder.Last("answer").value("values").toArray(), QJsonArray{ "2" });
        QCOMPARE(recorder.Last("answer").value("result").toInt(), int(QDialog::Accepted));
        QCOMPARE(recorder.Last("answer").value("dialog"), recorder.Last("dialog").value("dialog")); // it is hidden by now
        QCOMPARE(recorder.Last("dialog").value("dialog").toString(), QString("QDialog[0]"));
    }

    void theScreenIsWrittenAtTheStartAndAtEachChange()
    {
        CPanelWindow scene;
        CRecorderDouble recorder;
        CLanguage language;
        CTheme theme;
        const CScreenJournal screen(recorder, scene.window, *scene.pPanel, language, theme);
        QCOMPARE(recorder.Last("screen").value("width").toInt(), 400);

        scene.listTree[0]->verticalScrollBar()->setValue(7);
        QCOMPARE(recorder.Last("scroll").value("scrollDiscovered").toInt(), 7);
        scene.pSearch->setText("alpha");
        QCOMPARE(recorder.Last("search").value("search").toString(), QString("alpha"));
        scene.pStack->setCurrentIndex(1);
        QCOMPARE(recorder.Last("pane").value("pane").toInt(), 1);
        scene.window.resize(500, 320);
        QCOMPARE(recorder.Last("size").value("width").toInt(), 500);
        QCOMPARE(recorder.Last("size").value("scrollDiscovered").toInt(), 7);
        language.Set("de");
        QCOMPARE(recorder.Last("language").value("language").toString(), QString("de"));
        theme.Set("contrast");
        QCOMPARE(recorder.Last("theme").value("theme").toString(), QString("contrast"));
        language.Set("en");
    }

    void aPathFindsEachWidgetAgain()
    {
        const CPanelWindow scene;
        for (const QWidget* pWidget : scene.window.findChildren<QWidget*>()) {
            const QString strPath = WidgetPath::Get(pWidget);
            QVERIFY2(WidgetPath::Find(strPath) == pWidget, qPrintable(strPath));
        }
        QVERIFY(!WidgetPath::Find("QMainWindow[0]/Nothing[0]"));
        QVERIFY(!WidgetPath::Find(""));
    }
};

PTV_TEST_MAIN(CUserJournalTest)
#include "tst_userjournal.moc"
