#include "CorvidControl/objects/CControlHost.h"
#include "Kestrel/keys/CUserWatch.h"
#include "TestMain.h"

#include <QDrag>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

using Act = std::function<void(QWindow*)>;

SControlOptions Options(const QTemporaryDir& folder)
{
    SControlOptions options;
    options.strListFile = folder.filePath("list.kvtl");
    options.bQuietDay = false;
    return options;
}

/// A window with a tree as the panel's, whose rows can be edited, a second tree, and a line to type in.
struct SWatchedWindow
{
    SWatchedWindow()
    {
        auto* pLayout = new QVBoxLayout(&window);
        for (QTreeView* pView : { pTree, pOtherTree }) {
            model.setItem(0, 0, new QStandardItem("alpha"));
            model.setItem(1, 0, new QStandardItem("beta"));
            pView->setModel(&model);
            pLayout->addWidget(pView);
        }
        pTree->setObjectName("ProcessorTree");
        pLine->setObjectName("Line");
        pLayout->addWidget(pLine);
        window.setAcceptDrops(true);
        window.show();
        QApplication::setActiveWindow(&window);
        QObject::connect(&watch, &CUserWatch::EditingChanged, &watch, [this](bool bOn) { listEditing.append(bOn); });
        QObject::connect(&watch, &CUserWatch::ActingChanged, &watch, [this](bool bOn) { listActing.append(bOn); });
        QObject::connect(&watch, &CUserWatch::InputNoted, &watch, [this] { ++nInput; });
    }

    QLineEdit* Edit(QTreeView* pView)
    {
        pView->edit(model.index(0, 0));
        return pView->viewport()->findChild<QLineEdit*>();
    }

    QWindow* Handle() const
    {
        return window.windowHandle();
    }

    /// What a drag that another program began does to the window.
    void SendDrag(QEvent::Type type) const
    {
        const QPoint point(5, 5);
        QMimeData data;
        QDragEnterEvent enter(point, Qt::MoveAction, &data, Qt::NoButton, Qt::NoModifier);
        QDropEvent drop(point, Qt::MoveAction, &data, Qt::NoButton, Qt::NoModifier);
        QDragLeaveEvent leave;
        QEvent* pEvent = type == QEvent::DragEnter ? &enter : type == QEvent::Drop ? static_cast<QEvent*>(&drop) : &leave;
        QCoreApplication::sendEvent(Handle(), pEvent);
    }

    QTemporaryDir folder;
    std::unique_ptr<CControlHost> pHost = CControlHost::Start(Options(folder));
    QStandardItemModel model;
    QWidget window;
    QTreeView* pTree = new QTreeView(&window);
    QTreeView* pOtherTree = new QTreeView(&window);
    QLineEdit* pLine = new QLineEdit(&window);
    CUserWatch watch{ *pHost };
    QList<bool> listEditing;
    QList<bool> listActing;
    int nInput = 0;
};

/// Swallows a release, as a running drag does, and all else that might come after it.
class CSwallower : public QObject
{
    Q_OBJECT

public:
    CSwallower()
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* /*event*/) override
    {
        return !qobject_cast<QTimer*>(watched);
    }
};

const QList<bool> listOnce{ true };
const QList<bool> listOnceAndBack{ true, false };

} // namespace

Q_DECLARE_METATYPE(Act)

/// What Kestrel reports to the control library of its user.
class CUserWatchTest : public QObject
{
    Q_OBJECT

private slots:
    void anEditorIsOpenUntilItHasCommitted_data()
    {
        QTest::addColumn<Act>("act");
        QTest::newRow("by Return") << Act([](QWindow* pWindow) { QTest::keyClick(pWindow, Qt::Key_Return); });
        QTest::newRow("by a click elsewhere") << Act([](QWindow* pWindow) {
            QTest::mouseClick(pWindow, Qt::LeftButton, {}, QApplication::activeWindow()->findChild<QLineEdit*>("Line")->pos());
        });
    }

    void anEditorIsOpenUntilItHasCommitted()
    {
        QFETCH(Act, act);
        SWatchedWindow kestrel;
        QTest::keyClicks(kestrel.Edit(kestrel.pTree), "gamma");
        QCOMPARE(kestrel.listEditing, listOnce);
        QString strAtClose;
        connect(&kestrel.watch, &CUserWatch::EditingChanged, this,
                [&] { strAtClose = kestrel.model.index(0, 0).data().toString(); });
        act(kestrel.Handle());
        QTRY_COMPARE(kestrel.listEditing, listOnceAndBack);
        QCOMPARE(strAtClose, QString("gamma"));
    }

    void anEditorThatIsHiddenCountsAsClosed()
    {
        SWatchedWindow kestrel;
        QLineEdit stray(kestrel.pTree->viewport());
        stray.show();
        QCOMPARE(kestrel.listEditing, listOnce);
        stray.hide();
        QCOMPARE(kestrel.listEditing, listOnceAndBack);
    }

    void anEditorThatStaysWithoutTheFocusCountsAsClosed()
    {
        SWatchedWindow kestrel;
        QLineEdit stray(kestrel.pTree->viewport()); // nobody hides this one
        stray.show();
        stray.setFocus();
        QCOMPARE(kestrel.listEditing, listOnce);
        kestrel.pLine->setFocus();
        QTRY_COMPARE(kestrel.listEditing, listOnceAndBack);
        stray.setFocus();
        QCOMPARE(kestrel.listEditing, (QList<bool>{ true, false, true }));
    }

    void anEditorIsClosedWhenItsRowGoes()
    {
        SWatchedWindow kestrel;
        kestrel.Edit(kestrel.pTree);
        kestrel.model.removeRow(0);
        QTRY_COMPARE(kestrel.listEditing, listOnceAndBack);
    }

    void anEditorIsClosedWhenItIsDestroyed()
    {
        SWatchedWindow kestrel;
        auto* pStray = new QLineEdit(kestrel.pTree->viewport());
        pStray->show();
        QCOMPARE(kestrel.listEditing, listOnce);
        delete pStray;
        QCOMPARE(kestrel.listEditing, listOnceAndBack);
    }

    void otherFieldsAreNoEditors()
    {
        SWatchedWindow kestrel;
        kestrel.pLine->setFocus();
        QVERIFY(kestrel.Edit(kestrel.pOtherTree));
        QLineEdit besideTheRows(kestrel.pTree);
        besideTheRows.show();
        QCoreApplication::processEvents();
        QCOMPARE(kestrel.listEditing, QList<bool>());
    }

    void aPressedButtonIsReportedUntilItIsReleased()
    {
        SWatchedWindow kestrel;
        QTest::mousePress(kestrel.Handle(), Qt::LeftButton, {}, { 5, 5 });
        QTest::mousePress(kestrel.Handle(), Qt::RightButton, {}, { 5, 5 });
        QTest::mouseRelease(kestrel.Handle(), Qt::RightButton, {}, { 5, 5 });
        QCOMPARE(kestrel.listActing, listOnce);
        QTest::mouseRelease(kestrel.Handle(), Qt::LeftButton, {}, { 5, 5 });
        QTRY_COMPARE(kestrel.listActing, listOnceAndBack);
    }

    void aReleaseThatIsSwallowedLeavesNothingPressed()
    {
        SWatchedWindow kestrel;
        QTest::mousePress(kestrel.Handle(), Qt::LeftButton, {}, { 5, 5 });
        QCOMPARE(kestrel.listActing, listOnce);
        const CSwallower swallower;
        QTest::mouseRelease(kestrel.Handle(), Qt::LeftButton, {}, { 5, 5 });
        QTRY_COMPARE(kestrel.listActing, listOnceAndBack);
    }

    void aMenuIsReportedUntilItCloses()
    {
        SWatchedWindow kestrel;
        QMenu menu;
        menu.addAction("Rename");
        menu.popup(kestrel.window.mapToGlobal({ 5, 5 }));
        QTRY_COMPARE(kestrel.listActing, listOnce);
        menu.close();
        QTRY_COMPARE(kestrel.listActing, listOnceAndBack);
    }

    void aDragIsReportedUntilItLeavesOrDrops_data()
    {
        QTest::addColumn<int>("nEnd");
        QTest::newRow("leaves") << int(QEvent::DragLeave);
        QTest::newRow("drops") << int(QEvent::Drop);
    }

    void aDragIsReportedUntilItLeavesOrDrops()
    {
        QFETCH(int, nEnd);
        SWatchedWindow kestrel;
        kestrel.SendDrag(QEvent::DragEnter);
        QCOMPARE(kestrel.listActing, listOnce);
        const int nInputBefore = kestrel.nInput;
        kestrel.SendDrag(QEvent::Type(nEnd));
        QTRY_COMPARE(kestrel.listActing, listOnceAndBack);
        QCOMPARE(kestrel.nInput > nInputBefore, nEnd == QEvent::Drop);
    }

    void aDragThatBeganHereIsReportedWhereverItIs()
    {
        SWatchedWindow kestrel;
        auto* pDrag = new QDrag(kestrel.pTree);
        pDrag->setMimeData(new QMimeData);
        QList<bool> listOutside;
        QTimer::singleShot(0, pDrag, [&] {
            QTest::mouseMove(kestrel.Handle(), { 9, 9 });
            kestrel.SendDrag(QEvent::DragLeave);
            listOutside = kestrel.listActing;
            QDrag::cancel();
        });
        pDrag->exec();
        QCOMPARE(listOutside, listOnce);
        QTRY_COMPARE(kestrel.listActing, listOnceAndBack);
    }

    void aDragWhoseProgramDiedEndsAtTheNextMove()
    {
        SWatchedWindow kestrel;
        QTest::mouseMove(kestrel.Handle(), { 20, 20 });
        kestrel.SendDrag(QEvent::DragEnter);
        QTest::mouseMove(kestrel.Handle(), { 30, 30 });
        QTRY_COMPARE(kestrel.listActing, listOnceAndBack);
    }

    void keysButtonsAndTheWheelAreInput_data()
    {
        QTest::addColumn<Act>("act");
        QTest::newRow("key") << Act([](QWindow* pWindow) { QTest::keyPress(pWindow, Qt::Key_Down); });
        QTest::newRow("release of a key") << Act([](QWindow* pWindow) { QTest::keyRelease(pWindow, Qt::Key_Down); });
        QTest::newRow("button") << Act([](QWindow* pWindow) { QTest::mouseClick(pWindow, Qt::LeftButton, {}, { 5, 5 }); });
        QTest::newRow("wheel") << Act([](QWindow* pWindow) {
            QWheelEvent event({ 5, 5 }, pWindow->mapToGlobal({ 5, 5 }), {}, { 0, 120 }, {}, {}, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(pWindow, &event);
        });
    }

    void keysButtonsAndTheWheelAreInput()
    {
        QFETCH(Act, act);
        SWatchedWindow kestrel;
        QCOMPARE(kestrel.nInput, 0);
        act(kestrel.Handle());
        QTRY_VERIFY(kestrel.nInput > 0);
    }

    void aMouseThatOnlyMovesIsNoInput()
    {
        SWatchedWindow kestrel;
        for (int n = 10; n < 20; ++n) {
            QTest::mouseMove(kestrel.Handle(), { n, n });
        }
        QCoreApplication::processEvents();
        QCOMPARE(kestrel.nInput, 0);
        QCOMPARE(kestrel.listActing, QList<bool>());
    }
};

PTV_TEST_MAIN(CUserWatchTest)
#include "tst_userwatch.moc"
