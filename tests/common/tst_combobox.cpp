#include "TestMain.h"
#include "interfaces/widgets/CComboBox.h"
#include "interfaces/widgets/CMenu.h"

#include <QAccessible>
#include <QHBoxLayout>

/// Each test has a box with the entries Alpha (1), Beta (2) and
/// Gamma (3) in an active window of its own.
class CComboBoxTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pWindow = std::make_unique<QWidget>();
        pBox = new CComboBox(pWindow.get());
        auto* pLayout = new QHBoxLayout(pWindow.get());
        pLayout->addWidget(pBox);
        pMenu = MakeMenu();
        pBox->SetMenu(pMenu, false);
        pWindow->show();
        pWindow->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(pWindow.get()));
        pBox->setFocus();
        QTRY_VERIFY(pBox->hasFocus());
    }

    void cleanup()
    {
        pWindow.reset();
    }

    void newBoxHasNothingSelected()
    {
        QVERIFY(!pBox->GetCurSelData().isValid());
        QVERIFY(pBox->GetCurSelText().isEmpty());
    }

    void selectionByIdIsSilentUnlessAskedFor_data()
    {
        QTest::addColumn<QVariant>("id");
        QTest::addColumn<bool>("bNotify");
        QTest::addColumn<int>("nSelected");
        QTest::addColumn<int>("nTold");
        QTest::newRow("silent") << QVariant(2) << false << 2 << 0;
        QTest::newRow("told") << QVariant(2) << true << 2 << 1;
        QTest::newRow("the same again") << QVariant(3) << true << 3 << 0;
        QTest::newRow("unknown") << QVariant(9) << true << 3 << 0;
        QTest::newRow("invalid") << QVariant() << true << 3 << 0;
    }

    void selectionByIdIsSilentUnlessAskedFor()
    {
        QFETCH(QVariant, id);
        QFETCH(bool, bNotify);
        pBox->SetCurrentByID(3, false);
        QSignalSpy spy(pBox, &CComboBox::SelectChanged);
        pBox->SetCurrentByID(id, bNotify);
        QTEST(pBox->GetCurSelData().toInt(), "nSelected");
        QTEST(spy.size(), "nTold");
    }

    void hiddenEntryStaysSelected()
    {
        pBox->SetCurrentByID(1, false);
        pBox->SetActionVisible(1, false);
        QCOMPARE(pBox->GetCurSelData(), QVariant(1));
        QVERIFY(!pMenu->actions().first()->isVisible());
        pBox->SetActionVisible(1, true);
        QVERIFY(pMenu->actions().first()->isVisible());
        pBox->SetActionVisible(9, false);
        QCOMPARE(pBox->GetCurSelText(), QStringLiteral("Alpha"));
    }

    void boxWithoutAMenuBearsEverything()
    {
        CComboBox box(nullptr);
        box.SetCurrentByID(1, true);
        box.SetActionVisible(1, false);
        QTest::keyClick(&box, Qt::Key_Down);
        QTest::keyClick(&box, Qt::Key_F4);
        QTest::mouseClick(&box, Qt::LeftButton);
        QVERIFY(!OpenMenu());
        QVERIFY(!box.GetCurSelData().isValid());
        QVERIFY(!box.grab().isNull());
    }

    void clickOpensTheMenuBelowTheBox()
    {
        QTest::mouseClick(pBox, Qt::LeftButton);
        QTRY_COMPARE(OpenMenu(), pMenu);
        QCOMPARE(pMenu->pos(), pBox->mapToGlobal(QPoint(0, pBox->height())));
        QVERIFY(pBox->property("MenuOpen").toBool());
        pMenu->close();
        QVERIFY(!pBox->property("MenuOpen").toBool());
        QTest::mouseClick(pBox, Qt::RightButton);
        QVERIFY(!OpenMenu());
    }

    void pressOnTheBoxClosesItsOpenMenu()
    {
        // Through the windows, where a press beside the popup closes it and is then given to what lies below.
        const QPoint ptBox = pBox->mapTo(pWindow.get(), pBox->rect().center());
        QSignalSpy spy(pMenu, &QMenu::aboutToShow);
        QCursor::setPos(pWindow->mapToGlobal(ptBox));
        QTest::mouseClick(pWindow->windowHandle(), Qt::LeftButton, Qt::NoModifier, ptBox);
        QTRY_COMPARE(OpenMenu(), pMenu);
        QTest::mouseClick(pMenu->windowHandle(), Qt::LeftButton, Qt::NoModifier, pMenu->mapFromGlobal(QCursor::pos()));
        QTRY_VERIFY(!OpenMenu());
        QTest::mouseClick(pWindow->windowHandle(), Qt::LeftButton, Qt::NoModifier, ptBox);
        QTRY_COMPARE(OpenMenu(), pMenu);
        QCOMPARE(spy.size(), 2);
        pMenu->close();
    }

    void menuIsAsWideAsTheBoxWhenAskedFor_data()
    {
        QTest::addColumn<bool>("bMatch");
        QTest::newRow("as wide as the box") << true;
        QTest::newRow("as wide as its entries") << false;
    }

    void menuIsAsWideAsTheBoxWhenAskedFor()
    {
        QFETCH(bool, bMatch);
        pBox->SetMenu(pMenu, bMatch);
        pBox->setFixedWidth(300);
        QTRY_COMPARE(pBox->width(), 300);
        QTest::keyClick(pBox, Qt::Key_F4);
        QTRY_VERIFY(OpenMenu());
        QCOMPARE(pMenu->width() == 300, bMatch);
        pMenu->close();
    }

    void keysOpenTheMenu_data()
    {
        QTest::addColumn<int>("nKey");
        QTest::addColumn<bool>("bAlt");
        QTest::newRow("space") << int(Qt::Key_Space) << false;
        QTest::newRow("F4") << int(Qt::Key_F4) << false;
        QTest::newRow("Alt+Down") << int(Qt::Key_Down) << true;
        QTest::newRow("Alt+Up") << int(Qt::Key_Up) << true;
    }

    void keysOpenTheMenu()
    {
        QFETCH(int, nKey);
        QFETCH(bool, bAlt);
        QTest::keyClick(pBox, Qt::Key(nKey), bAlt ? Qt::AltModifier : Qt::NoModifier);
        QTRY_COMPARE(OpenMenu(), pMenu);
        QVERIFY(!pBox->GetCurSelData().isValid());
        pMenu->close();
    }

    void menuOpensOnTheSelectedEntry()
    {
        pBox->SetCurrentByID(2, false);
        QTest::keyClick(pBox, Qt::Key_Space);
        QTRY_VERIFY(OpenMenu());
        QCOMPARE(pMenu->activeAction()->data(), QVariant(2));
        pMenu->close();
    }

    void choiceInTheMenuIsToldOnce()
    {
        pBox->SetCurrentByID(1, false);
        QSignalSpy spy(pBox, &CComboBox::SelectChanged);
        QTest::mouseClick(pBox, Qt::LeftButton);
        QTRY_VERIFY(OpenMenu());
        QTest::mouseClick(pMenu, Qt::LeftButton, Qt::NoModifier, pMenu->actionGeometry(pMenu->actions().at(2)).center());
        QCOMPARE(QList<QVariantList>(spy), QList<QVariantList>{ { QVariant(3) } });
        QCOMPARE(pBox->GetCurSelText(), QStringLiteral("Gamma"));
    }

    void sameChoiceAgainIsNotTold()
    {
        pBox->SetCurrentByID(2, false);
        QSignalSpy spy(pBox, &CComboBox::SelectChanged);
        QTest::keyClick(pBox, Qt::Key_Space);
        QTRY_VERIFY(OpenMenu());
        QTest::keyClick(pMenu, Qt::Key_Return);
        QVERIFY(!OpenMenu());
        QVERIFY(spy.isEmpty());
    }

    void escapeInTheMenuChangesNothing()
    {
        pBox->SetCurrentByID(1, false);
        QSignalSpy spy(pBox, &CComboBox::SelectChanged);
        QTest::keyClick(pBox, Qt::Key_Space);
        QTRY_VERIFY(OpenMenu());
        QTest::keyClick(pMenu, Qt::Key_Down);
        QTest::keyClick(pMenu, Qt::Key_Escape);
        QVERIFY(!OpenMenu());
        QVERIFY(spy.isEmpty());
        QCOMPARE(pBox->GetCurSelData(), QVariant(1));
    }

    void keysChooseWithoutTheMenu_data()
    {
        QTest::addColumn<int>("nFrom");
        QTest::addColumn<int>("nKey");
        QTest::addColumn<int>("nTo");
        QTest::newRow("down") << 1 << int(Qt::Key_Down) << 2;
        QTest::newRow("down at the end") << 3 << int(Qt::Key_Down) << 3;
        QTest::newRow("down from nothing") << 0 << int(Qt::Key_Down) << 1;
        QTest::newRow("up") << 3 << int(Qt::Key_Up) << 2;
        QTest::newRow("up at the start") << 1 << int(Qt::Key_Up) << 1;
        QTest::newRow("home") << 3 << int(Qt::Key_Home) << 1;
        QTest::newRow("end") << 1 << int(Qt::Key_End) << 3;
        QTest::newRow("first letter") << 1 << int(Qt::Key_G) << 3;
        QTest::newRow("letter of none") << 1 << int(Qt::Key_X) << 1;
    }

    void keysChooseWithoutTheMenu()
    {
        QFETCH(int, nFrom);
        QFETCH(int, nKey);
        QFETCH(int, nTo);
        pBox->SetCurrentByID(nFrom, false);
        QSignalSpy spy(pBox, &CComboBox::SelectChanged);
        QTest::keyClick(pBox, Qt::Key(nKey));
        QCOMPARE(pBox->GetCurSelData().toInt(), nTo);
        QCOMPARE(spy.size(), nFrom == nTo ? 0 : 1);
    }

    void hiddenAndDisabledEntriesAreSkipped()
    {
        pMenu->addSeparator();
        pMenu->addAction(QStringLiteral("Delta"))->setData(4);
        pBox->SetActionVisible(2, false);
        pMenu->actions().at(2)->setEnabled(false);
        pBox->SetCurrentByID(1, false);
        QTest::keyClick(pBox, Qt::Key_Down);
        QCOMPARE(pBox->GetCurSelData(), QVariant(4));
    }

    void disabledBoxTakesNoInput()
    {
        pBox->SetCurrentByID(1, false);
        pBox->setEnabled(false);
        QTest::keyClick(pBox, Qt::Key_Down);
        QTest::mouseClick(pBox, Qt::LeftButton);
        QVERIFY(!OpenMenu());
        QCOMPARE(pBox->GetCurSelData(), QVariant(1));
    }

    void returnIsLeftToTheDialog()
    {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(pBox, &event);
        QVERIFY(!event.isAccepted());
    }

    void changedTextOfTheEntryShows()
    {
        pBox->SetCurrentByID(1, false);
        const QImage before = pBox->grab().toImage();
        pMenu->actions().first()->setText(QStringLiteral("A&nother"));
        QCOMPARE(pBox->GetCurSelText(), QStringLiteral("Another"));
        QVERIFY(pBox->grab().toImage() != before);
    }

    void hintHasRoomForTheLongestEntry()
    {
        const QString strLong = QStringLiteral("an entry that is longer than all the others");
        pMenu->addAction(strLong);
        QVERIFY(pBox->sizeHint().width() > pBox->fontMetrics().horizontalAdvance(strLong));
    }

    void assistiveProgramsSeeAComboBox()
    {
        pBox->SetCurrentByID(2, false);
        pBox->setAccessibleName(QStringLiteral("Output"));
        QAccessibleInterface* pAccess = QAccessible::queryAccessibleInterface(pBox);
        QVERIFY(pAccess);
        QCOMPARE(pAccess->role(), QAccessible::ComboBox);
        QCOMPARE(pAccess->text(QAccessible::Name), QStringLiteral("Output"));
        QCOMPARE(pAccess->text(QAccessible::Value), QStringLiteral("Beta"));
        QVERIFY(pAccess->state().hasPopup);
        pAccess->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
        QTRY_COMPARE(OpenMenu(), pMenu);
        QVERIFY(pAccess->state().expanded);
        pMenu->close();
    }

    void otherMenuForgetsTheSelection()
    {
        pBox->SetCurrentByID(2, false);
        CMenu* pOther = MakeMenu();
        pBox->SetMenu(pOther, false);
        QVERIFY(!pBox->GetCurSelData().isValid());
        QSignalSpy spy(pBox, &CComboBox::SelectChanged);
        pMenu->actions().first()->trigger();
        QVERIFY(spy.isEmpty());
        pOther->actions().first()->trigger();
        QCOMPARE(spy.size(), 1);
    }

private:
    CMenu* MakeMenu()
    {
        auto* pNew = new CMenu(pWindow.get());
        int nId = 0;
        for (const char* szText : { "Alpha", "Beta", "Gamma" }) {
            pNew->addAction(QLatin1String(szText))->setData(++nId);
        }
        return pNew;
    }

    CMenu* OpenMenu() const
    {
        return qobject_cast<CMenu*>(QApplication::activePopupWidget());
    }

    std::unique_ptr<QWidget> pWindow;
    CComboBox* pBox = nullptr;
    CMenu* pMenu = nullptr;
};

PTV_TEST_MAIN(CComboBoxTest)
#include "tst_combobox.moc"
