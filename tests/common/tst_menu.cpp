#include "TestMain.h"
#include "interfaces/widgets/CMenu.h"

#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>

/// Each test has a menu with three entries.
class CMenuTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pWindow = std::make_unique<QWidget>();
        pMenu = new CMenu(pWindow.get());
        for (const char* szText : { "Alpha", "Beta", "Gamma" }) {
            pMenu->addAction(QLatin1String(szText));
        }
        pWindow->show();
        QVERIFY(QTest::qWaitForWindowExposed(pWindow.get()));
    }

    void cleanup()
    {
        pWindow.reset();
    }

    void menuIsAtLeastAsWideAsAskedFor_data()
    {
        QTest::addColumn<int>("nAsked");
        QTest::addColumn<bool>("bExact");
        QTest::newRow("wider than its entries") << 180 << true;
        QTest::newRow("narrower than its entries") << 10 << false;
    }

    void menuIsAtLeastAsWideAsAskedFor()
    {
        QFETCH(int, nAsked);
        QFETCH(bool, bExact);
        pMenu->setMinimumWidth(nAsked);
        pMenu->popup(QPoint(10, 10));
        QCOMPARE(pMenu->minimumWidth(), nAsked);
        QCOMPARE(pMenu->width() == nAsked, bExact);
        QVERIFY(pMenu->width() > pMenu->fontMetrics().horizontalAdvance(QStringLiteral("Gamma")));
        const QRect rcEntry = pMenu->actionGeometry(pMenu->actions().first());
        QVERIFY(rcEntry.width() > pMenu->width() - 10 && rcEntry.width() <= pMenu->width());
    }

    void namesThatAreTooLongForTheScreenAreElided()
    {
        const QString strWide = QStringLiteral("Gallery ") + QString(200, QLatin1Char('W'));
        QAction* pWide = pMenu->addAction(strWide);
        QAction* pTipped = pMenu->addAction(strWide + QStringLiteral(" too"));
        pTipped->setToolTip("Its own");
        const int nScreen = pWindow->screen()->availableGeometry().width();

        pMenu->popup(QPoint(10, 10));

        QVERIFY2(pMenu->sizeHint().width() <= nScreen && pMenu->width() <= nScreen, qPrintable(QString::number(pMenu->width())));
        QVERIFY(pWide->text().startsWith("Gallery W") && pWide->text().contains(QChar(0x2026)) && pWide->text().endsWith('W'));
        QVERIFY(pMenu->fontMetrics().horizontalAdvance(pWide->text()) <= pMenu->actionGeometry(pWide).width());
        QVERIFY(pWide->toolTip().contains(strWide) && pMenu->toolTipsVisible());
        QCOMPARE(pTipped->toolTip(), QString("Its own"));
        QCOMPARE(pMenu->actions().first()->text(), QString("Alpha"));
        QTest::keyClicks(pMenu, strWide); // past what is shown of it
        QCOMPARE(pMenu->activeAction(), pWide);
        QString strChosen;
        connect(pMenu, &QMenu::triggered, this, [&](const QAction* pAction) { strChosen = pAction->text(); });
        QTest::keyClick(pMenu, Qt::Key_Return);
        QCOMPARE(strChosen, strWide);
        QCOMPARE(pWide->toolTip(), strWide);
        QCOMPARE(pTipped->toolTip(), QString("Its own"));
    }

    void minimumWidthCountsAfterTheFirstOpening()
    {
        pMenu->popup(QPoint(10, 10));
        pMenu->close();
        pMenu->setMinimumWidth(222);
        pMenu->popup(QPoint(10, 10));
        QCOMPARE(pMenu->width(), 222);
        QVERIFY(pMenu->actionGeometry(pMenu->actions().first()).width() > 200);
        pMenu->close();
        pMenu->setMinimumWidth(10);
        pMenu->popup(QPoint(10, 10));
        QVERIFY(pMenu->width() < 222);
        QVERIFY(pMenu->actionGeometry(pMenu->actions().first()).width() <= pMenu->width());
    }

    void openMenuMarksItsControlWidget()
    {
        QPushButton button(pWindow.get());
        pMenu->SetControlWidget(&button);
        QVERIFY(!button.property("MenuOpen").toBool());
        pMenu->popup(QPoint(10, 10));
        QVERIFY(button.property("MenuOpen").toBool());
        pMenu->close();
        QVERIFY(!button.property("MenuOpen").toBool());
    }

    void markMovesWithTheControlWidgetAndEndsWithTheMenu()
    {
        QPushButton first(pWindow.get());
        QPushButton second(pWindow.get());
        auto pOwn = std::make_unique<CMenu>(nullptr);
        pOwn->addAction(QStringLiteral("entry"));
        pOwn->SetControlWidget(&first);
        pOwn->popup(QPoint(10, 10));
        pOwn->SetControlWidget(&second);
        QVERIFY(!first.property("MenuOpen").toBool());
        QVERIFY(second.property("MenuOpen").toBool());
        pOwn.reset();
        QVERIFY(!second.property("MenuOpen").toBool());
    }

    void controlWidgetMayDieFirst()
    {
        auto pButton = std::make_unique<QPushButton>();
        pMenu->SetControlWidget(pButton.get());
        pMenu->popup(QPoint(10, 10));
        pButton.reset();
        pMenu->close();
        QVERIFY(!pMenu->isVisible());
    }

    void typingGoesToTheEntryThatBeginsWithIt_data()
    {
        QTest::addColumn<QString>("strTyped");
        QTest::addColumn<QString>("strEntry");
        QTest::newRow("a letter") << "b" << "Beta";
        QTest::newRow("a name") << "hall 2" << "Hall 2";
        QTest::newRow("the first of several") << "H" << "Hall 1";
        QTest::newRow("what does not go on is left out") << "hall 2x" << "Hall 2";
        QTest::newRow("no disabled entry") << "G" << "Gimlet";
        QTest::newRow("again for the next") << "hh" << "Hall 2";
        QTest::newRow("and round") << "hhh" << "Hall 1";
    }
    void typingGoesToTheEntryThatBeginsWithIt()
    {
        QFETCH(QString, strTyped);
        pMenu->addAction("Hall 1");
        pMenu->addAction("Hall 2");
        pMenu->addAction("Gimlet");
        pMenu->actions().at(2)->setEnabled(false);
        pMenu->popup(QPoint(10, 10));
        QTest::keyClicks(pMenu, strTyped);
        QTEST(pMenu->activeAction() ? pMenu->activeAction()->text() : QString(), "strEntry");
    }

    void aLetterThatBeginsNoEntryChoosesNone()
    {
        QAction* pTrap = pMenu->addAction("Gold && &silver");
        QSignalSpy spyChosen(pTrap, &QAction::triggered);
        pMenu->popup(QPoint(10, 10));
        QTest::keyClicks(pMenu, "s");
        QCOMPARE(spyChosen.count(), 0);
        QVERIFY(pMenu->isVisible());
    }

    void aMenuThatOpensAgainHasForgottenWhatWasTyped()
    {
        pMenu->addAction("Hall ba");
        pMenu->popup(QPoint(10, 10));
        QTest::keyClicks(pMenu, "hall ");
        pMenu->close();
        pMenu->popup(QPoint(10, 10));
        QTest::keyClicks(pMenu, "b");
        QCOMPARE(pMenu->activeAction()->text(), QStringLiteral("Beta"));
    }

private:
    std::unique_ptr<QWidget> pWindow;
    CMenu* pMenu = nullptr;
};

PTV_TEST_MAIN(CMenuTest)
#include "tst_menu.moc"
