#include "TestMain.h"
#include "interfaces/widgets/CToolTip.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QScreen>
#include <QWindow>

namespace {

constexpr int nLongDelay = 600000; // milliseconds; never comes

/// The window of the tip; null while there is none.
QLabel* Tip()
{
    const QWidgetList listWidget = QApplication::allWidgets();
    const auto it = std::find_if(listWidget.begin(), listWidget.end(),
                                 [](const QWidget* pWidget) { return pWidget->objectName() == QLatin1String("ToolTip"); });
    return it == listWidget.end() ? nullptr : qobject_cast<QLabel*>(*it);
}

} // namespace

/// Each test has the mouse over a label in an active window.
class CToolTipTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pWindow = std::make_unique<QWidget>();
        pWindow->setGeometry(200, 200, 300, 200);
        pLabel = new QLabel(pWindow.get());
        pLabel->setGeometry(0, 0, 200, 200);
        pWindow->show();
        pWindow->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(pWindow.get()));
        QCursor::setPos(QPoint(1, 1)); // the next move enters the window, also when the mouse rested there before
        QCursor::setPos(pLabel->mapToGlobal(QPoint(100, 100)));
        QTRY_VERIFY(pLabel->underMouse());
    }

    void cleanup()
    {
        CToolTip::HideText();
        pWindow.reset();
    }

    void tipShowsAtOnceBelowTheMouse()
    {
        QVERIFY(!CToolTip::IsVisible());
        CToolTip::ShowText(QStringLiteral("Text"));
        QVERIFY(CToolTip::IsVisible());
        QCOMPARE(Tip()->text(), QStringLiteral("Text"));
        QVERIFY(Tip()->geometry().top() > QCursor::pos().y());
        QVERIFY(!Tip()->geometry().contains(QCursor::pos()));
        QVERIFY(Tip()->width() >= Tip()->fontMetrics().horizontalAdvance(QStringLiteral("Text")));
    }

    void tipStaysWithinTheScreen_data()
    {
        QTest::addColumn<double>("dX");
        QTest::addColumn<double>("dY");
        QTest::newRow("middle") << 0.5 << 0.5;
        QTest::newRow("top left") << 0.0 << 0.0;
        QTest::newRow("top right") << 1.0 << 0.0;
        QTest::newRow("bottom left") << 0.0 << 1.0;
        QTest::newRow("bottom right") << 1.0 << 1.0;
    }

    void tipStaysWithinTheScreen()
    {
        QFETCH(double, dX);
        QFETCH(double, dY);
        const QRect rcScreen = QGuiApplication::primaryScreen()->availableGeometry();
        const QPoint ptMouse(rcScreen.left() + int(dX * (rcScreen.width() - 1)),
                             rcScreen.top() + int(dY * (rcScreen.height() - 1)));
        QCursor::setPos(ptMouse);
        CToolTip::ShowText(QStringLiteral("A text of some length, so that it has to give way"));
        QVERIFY2(rcScreen.contains(Tip()->geometry()), "the tip leaves the screen");
        QVERIFY2(!Tip()->geometry().contains(ptMouse), "the tip lies under the mouse");
    }

    void delayedTipComesAfterItsDelay()
    {
        QElapsedTimer timer;
        timer.start();
        CToolTip::ShowTextDelay(QStringLiteral("Text"), 40);
        QVERIFY(!CToolTip::IsVisible());
        QTRY_VERIFY(CToolTip::IsVisible());
        QVERIFY(timer.elapsed() >= 38); // a coarse timer may be 5 % early
        QCOMPARE(Tip()->text(), QStringLiteral("Text"));
    }

    void waitingTextIsNotVisible()
    {
        CToolTip::ShowTextDelay(QStringLiteral("Text"), nLongDelay);
        QVERIFY(!CToolTip::IsVisible());
        QVERIFY(!Tip());
    }

    void laterCallTakesThePlaceOfAWaitingText_data()
    {
        QTest::addColumn<QString>("strCall");
        QTest::addColumn<QString>("strShown");
        QTest::newRow("hide") << "hide"
                              << "";
        QTest::newRow("show at once") << "show"
                                      << "second";
        QTest::newRow("another delayed text") << "delay"
                                              << "second";
    }

    void laterCallTakesThePlaceOfAWaitingText()
    {
        QFETCH(QString, strCall);
        QFETCH(QString, strShown);
        CToolTip::ShowTextDelay(QStringLiteral("first"), 20);
        if (strCall == QLatin1String("hide")) {
            CToolTip::HideText();
        } else if (strCall == QLatin1String("show")) {
            CToolTip::ShowText(QStringLiteral("second"));
        } else {
            CToolTip::ShowTextDelay(QStringLiteral("second"), 20);
            QTRY_VERIFY(CToolTip::IsVisible());
        }
        // A timer that was started later than the first text's and is longer shows that the first one is gone.
        QTimer timer;
        timer.setSingleShot(true);
        timer.start(60);
        QTRY_VERIFY(!timer.isActive());
        QCOMPARE(Tip() ? Tip()->text() : QString(), strShown);
    }

    void oldTipStaysUntilTheDelayedOneComes()
    {
        CToolTip::ShowText(QStringLiteral("old"));
        CToolTip::ShowTextDelay(QStringLiteral("new"), 40);
        QVERIFY(CToolTip::IsVisible());
        QCOMPARE(Tip()->text(), QStringLiteral("old"));
        QTRY_COMPARE(Tip()->text(), QStringLiteral("new"));
        QVERIFY(CToolTip::IsVisible());
    }

    void hiddenTipLeavesNoWindow()
    {
        const int nBefore = QApplication::allWidgets().size();
        for (int i = 0; i < 20; ++i) {
            CToolTip::ShowText(QString::number(i));
        }
        QCOMPARE(QApplication::allWidgets().size(), nBefore + 1);
        CToolTip::HideText();
        QVERIFY(!CToolTip::IsVisible());
        QCOMPARE(QApplication::allWidgets().size(), nBefore);
        CToolTip::HideText();
    }

    void emptyTextHides()
    {
        CToolTip::ShowText(QStringLiteral("Text"));
        CToolTip::ShowText(QString());
        QVERIFY(!CToolTip::IsVisible());
    }

    void userGoingOnHidesTheTip_data()
    {
        QTest::addColumn<QString>("strWhat");
        for (const char* szWhat : { "press", "key", "wheel", "window deactivated" }) {
            QTest::newRow(szWhat) << szWhat;
        }
    }

    void userGoingOnHidesTheTip()
    {
        QFETCH(QString, strWhat);
        CToolTip::ShowText(QStringLiteral("Text"));
        if (strWhat == QLatin1String("press")) {
            QTest::mouseClick(pLabel, Qt::LeftButton);
        } else if (strWhat == QLatin1String("key")) {
            QTest::keyClick(pWindow.get(), Qt::Key_Down);
        } else if (strWhat == QLatin1String("wheel")) {
            QWheelEvent event(QPointF(5, 5), QCursor::pos(), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(pLabel, &event);
        } else {
            QEvent event(QEvent::WindowDeactivate);
            QCoreApplication::sendEvent(pWindow.get(), &event);
        }
        QVERIFY(!CToolTip::IsVisible());
    }

    void leavingTheWidgetHidesTheTipAndDropsAWaitingOne()
    {
        CToolTip::ShowText(QStringLiteral("old"));
        CToolTip::ShowTextDelay(QStringLiteral("new"), nLongDelay);
        QCursor::setPos(pWindow->mapToGlobal(QPoint(250, 100)));
        QTRY_VERIFY(!CToolTip::IsVisible());
    }

    void mouseMovesWithinTheWidgetKeepTheTip()
    {
        CToolTip::ShowText(QStringLiteral("Text"));
        QCursor::setPos(pLabel->mapToGlobal(QPoint(120, 110)));
        QCoreApplication::processEvents();
        QVERIFY(CToolTip::IsVisible());
    }

    void leaveWithoutAMoveKeepsTheTip()
    {
        CToolTip::ShowText(QStringLiteral("Text"));
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(pLabel, &event);
        QVERIFY(CToolTip::IsVisible());
    }

    void tipTakesNoMouseAndNoFocus()
    {
        CToolTip::ShowText(QStringLiteral("Text"));
        QVERIFY(Tip()->windowFlags() & Qt::WindowTransparentForInput);
        QVERIFY(Tip()->windowHandle()->flags() & Qt::WindowTransparentForInput);
        QVERIFY(Tip()->windowFlags() & Qt::WindowDoesNotAcceptFocus);
        QCOMPARE(Tip()->windowType(), Qt::ToolTip);
        QVERIFY(pWindow->isActiveWindow());
    }

    void longTextsWrap()
    {
        CToolTip::ShowText(QStringLiteral("word ").repeated(60));
        QVERIFY(Tip()->width() <= 480);
        QVERIFY(Tip()->height() > 3 * Tip()->fontMetrics().lineSpacing());
        CToolTip::ShowText(QStringLiteral("short"));
        QVERIFY(Tip()->width() < 100);
        QVERIFY(Tip()->height() < 2 * Tip()->fontMetrics().lineSpacing() + 10);
    }

    void markupIsShownAsItIs()
    {
        CToolTip::ShowText(QStringLiteral("<b>Stage</b>"));
        QCOMPARE(Tip()->textFormat(), Qt::PlainText);
        QVERIFY(Tip()->width() > Tip()->fontMetrics().horizontalAdvance(QStringLiteral("<b>Stage</b>")));
    }

    void windowsStyleSheetReachesTheTip()
    {
        pWindow->setStyleSheet(QStringLiteral("#ToolTip{background:rgb(1,2,3);border:none}"));
        CToolTip::ShowText(QStringLiteral("Text"));
        QCOMPARE(Tip()->grab().toImage().pixelColor(1, 1), QColor(1, 2, 3));
    }

    void tipGoesWithItsWindow()
    {
        CToolTip::ShowText(QStringLiteral("Text"));
        pWindow.reset();
        QVERIFY(!CToolTip::IsVisible());
        QVERIFY(!Tip());
    }

private:
    std::unique_ptr<QWidget> pWindow;
    QLabel* pLabel = nullptr;
};

PTV_TEST_MAIN(CToolTipTest)
#include "tst_tooltip.moc"
