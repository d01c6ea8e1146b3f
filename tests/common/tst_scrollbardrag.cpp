#include "TestMain.h"
#include "interfaces/widgets/CScrollBar.h"

#include <QMimeData>
#include <QTreeWidget>
#include <QWindow>

namespace {

constexpr QSize sizeView(200, 300);
constexpr QRect rcBar(194, 1, 5, 299);
constexpr QPoint ptBar(196, 150);
constexpr QPoint ptBesideBar(150, 150);

/// A view that writes down what a drag does over its rows, with the place in the viewport.
class CDropView : public QTreeWidget
{
    Q_OBJECT

public:
    CDropView()
    {
        setFrameStyle(NoFrame);
        setAcceptDrops(true);
        resize(sizeView);
    }

    QStringList TakeLog()
    {
        return std::exchange(listLog, {});
    }

    bool bAccept = true;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override
    {
        Answer("enter", event);
    }

    void dragMoveEvent(QDragMoveEvent* event) override
    {
        Answer("move", event);
    }

    void dragLeaveEvent(QDragLeaveEvent* event) override
    {
        Q_UNUSED(event)
        listLog.append("leave");
    }

    void dropEvent(QDropEvent* event) override
    {
        Answer("drop " + event->mimeData()->text(), event);
    }

private:
    void Answer(const QString& strWhat, QDropEvent* event)
    {
        listLog.append(QStringLiteral("%1 %2,%3").arg(strWhat).arg(event->pos().x()).arg(event->pos().y()));
        event->setDropAction(Qt::LinkAction);
        event->setAccepted(bAccept);
    }

    QStringList listLog;
};

/// A drag over a window, as the platform reports it.
class CDragHand
{
public:
    explicit CDragHand(const QWidget& widget) : pWindow(widget.windowHandle())
    {
        data.setText("rows");
    }

    bool Enter(const QPoint& pt)
    {
        return Send(QDragEnterEvent(pt, Qt::MoveAction | Qt::LinkAction, &data, Qt::LeftButton, Qt::NoModifier));
    }

    bool Move(const QPoint& pt)
    {
        return Send(QDragMoveEvent(pt, Qt::MoveAction | Qt::LinkAction, &data, Qt::LeftButton, Qt::NoModifier));
    }

    bool Drop(const QPoint& pt)
    {
        return Send(QDropEvent(pt, Qt::MoveAction | Qt::LinkAction, &data, Qt::LeftButton, Qt::NoModifier));
    }

    void Leave()
    {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(pWindow, &event);
    }

    Qt::DropAction action = Qt::IgnoreAction; ///< the answer to the last event that had one

private:
    bool Send(QDropEvent&& event)
    {
        QCoreApplication::sendEvent(pWindow, &event);
        action = event.dropAction();
        return event.isAccepted();
    }

    QWindow* pWindow;
    QMimeData data;
};

} // namespace

/// A drag that comes over a bar which lies over a view.
class CScrollBarDragTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pView = std::make_unique<CDropView>();
        pBar = new CScrollBar(Qt::Vertical, pView.get());
        pBar->ConnectSystem(pView->verticalScrollBar());
        pBar->setGeometry(rcBar);
        pBar->show();
        pView->show();
        QVERIFY(QTest::qWaitForWindowExposed(pView.get()));
        QCOMPARE(pView->childAt(ptBar), pBar);
        nHeader = pView->viewport()->y();
        QVERIFY(nHeader > 0);
    }

    void cleanup()
    {
        pView.reset();
    }

    void viewIsAskedAboutADragThatEntersByTheBar()
    {
        CDragHand hand(*pView);
        QVERIFY(hand.Enter(ptBar));
        QCOMPARE(pView->TakeLog(), QStringList{ At("enter", ptBar) });
        hand.Leave();
    }

    void viewIsAskedAboutEachMoveOverTheBar()
    {
        CDragHand hand(*pView);
        hand.Enter(ptBar);
        pView->TakeLog();
        QVERIFY(hand.Move(ptBar));
        QVERIFY(hand.Move(ptBar + QPoint(1, 7)));
        QCOMPARE(pView->TakeLog(), QStringList({ At("move", ptBar), At("move", ptBar + QPoint(1, 7)) }));
        hand.Leave();
    }

    void dropOnTheBarIsADropOnTheRowUnderIt()
    {
        CDragHand hand(*pView);
        hand.Enter(ptBar);
        pView->TakeLog();
        QVERIFY(hand.Drop(ptBar));
        QCOMPARE(pView->TakeLog(), QStringList{ At("drop rows", ptBar) });
    }

    void viewsActionIsTheAnswer()
    {
        CDragHand hand(*pView);
        hand.Enter(ptBar);
        QCOMPARE(hand.action, Qt::LinkAction);
        hand.Move(ptBar);
        QCOMPARE(hand.action, Qt::LinkAction);
        hand.Drop(ptBar);
        QCOMPARE(hand.action, Qt::LinkAction);
    }

    void eachEnterHasItsLeave()
    {
        CDragHand hand(*pView);
        hand.Enter(ptBesideBar);
        for (const QPoint& pt : { ptBar, ptBesideBar, ptBar }) {
            hand.Move(pt);
        }
        hand.Leave();
        QCOMPARE(pView->TakeLog().filter(QRegularExpression("enter|leave")),
                 QStringList({ At("enter", ptBesideBar), "leave", At("enter", ptBar), "leave", At("enter", ptBesideBar), "leave",
                               At("enter", ptBar), "leave" }));
    }

    void barThatGoesUnderADragLeavesTheView()
    {
        CDragHand hand(*pView);
        hand.Enter(ptBar);
        pBar->hide();
        hand.Move(ptBar);
        hand.Leave();
        QCOMPARE(pView->TakeLog().filter(QRegularExpression("enter|leave")),
                 QStringList({ At("enter", ptBar), "leave", At("enter", ptBar), "leave" }));
    }

    void viewMayRefuseADragOverTheBar()
    {
        pView->bAccept = false;
        CDragHand hand(*pView);
        QVERIFY(!hand.Enter(ptBar));
        QVERIFY(!hand.Move(ptBar));
        hand.Leave();
        QCOMPARE(pView->TakeLog(), QStringList{ At("enter", ptBar) });
    }

    void viewWithoutDropsIsNotAsked()
    {
        pView->setAcceptDrops(false);
        CDragHand hand(*pView);
        QVERIFY(!hand.Enter(ptBar));
        hand.Leave();
        QCOMPARE(pView->TakeLog(), QStringList());
    }

    void barOfNoViewTakesNoDrag()
    {
        CScrollBar bar(Qt::Vertical, nullptr);
        bar.show();
        QVERIFY(QTest::qWaitForWindowExposed(&bar));
        CDragHand hand(bar);
        QVERIFY(!hand.Enter(QPoint(2, 20)));
        hand.Leave();
    }

private:
    QString At(const QString& strWhat, const QPoint& pt) const
    {
        return QStringLiteral("%1 %2,%3").arg(strWhat).arg(pt.x()).arg(pt.y() - nHeader);
    }

    std::unique_ptr<CDropView> pView;
    CScrollBar* pBar = nullptr;
    int nHeader = 0; ///< how far the viewport lies below the top of the view
};

PTV_TEST_MAIN(CScrollBarDragTest)
#include "tst_scrollbardrag.moc"
