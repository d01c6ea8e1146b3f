#include "IpEditInput.h"
#include "TestMain.h"
#include "interfaces/widgets/CIPEdit.h"

#include <QClipboard>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

using namespace IpEditInput;

namespace {

constexpr quint32 nAddress = 0xC0A8010A; // 192.168.1.10
}

/// Each test has an edit in a window of its own that is active, with the caret in the first place.
class CIPEditTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pWindow = std::make_unique<QWidget>();
        pEdit = new CIPEdit(pWindow.get());
        pNext = new QPushButton(QStringLiteral("next"), pWindow.get());
        auto* pLayout = new QHBoxLayout(pWindow.get());
        pLayout->addWidget(pEdit);
        pLayout->addWidget(pNext);
        pWindow->show();
        pWindow->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(pWindow.get()));
        pEdit->setFocus();
        QTRY_VERIFY(Place(pEdit, 0)->hasFocus());
    }

    void cleanup()
    {
        pWindow.reset();
    }

    void addressInHostOrderShowsInFourPlaces_data()
    {
        QTest::addColumn<quint32>("nAddress");
        QTest::addColumn<QString>("strText");
        QTest::newRow("zero") << 0U << "0.0.0.0";
        QTest::newRow("usual") << nAddress << "192.168.1.10";
        QTest::newRow("all ones") << 0xFFFFFFFFU << "255.255.255.255";
        QTest::newRow("each place its own") << 0x01020304U << "1.2.3.4";
    }

    void addressInHostOrderShowsInFourPlaces()
    {
        QFETCH(quint32, nAddress);
        QFETCH(QString, strText);
        pEdit->SetAddress(nAddress);
        QCOMPARE(Text(), strText);
        quint32 nBack = 77;
        QVERIFY(pEdit->GetAddress(nBack));
        QCOMPARE(nBack, nAddress);
    }

    void emptyPlaceCountsAsZeroAndMakesTheAddressIncomplete()
    {
        pEdit->SetAddress(nAddress);
        Place(pEdit, 2)->clear();
        quint32 nBack = 77;
        QVERIFY(!pEdit->GetAddress(nBack));
        QCOMPARE(nBack, 0xC0A8000AU);
    }

    void typingGivesAnAddress_data()
    {
        QTest::addColumn<QString>("strKeys");
        QTest::addColumn<QString>("strText");
        QTest::newRow("with dots") << "10.0.0.7"
                                   << "10.0.0.7";
        QTest::newRow("three digits go on by themselves") << "192168100200"
                                                          << "192.168.100.200";
        QTest::newRow("dot after three digits is not taken twice") << "192.168.1.1"
                                                                   << "192.168.1.1";
        QTest::newRow("letters are refused") << "1a0.b2.c3.4x"
                                             << "10.2.3.4";
        QTest::newRow("nothing behind the last place") << "1.2.3.4.5"
                                                       << "1.2.3.45";
        QTest::newRow("fourth digit goes to the next place") << "1929.1"
                                                             << "192.9.1.";
    }

    void typingGivesAnAddress()
    {
        QFETCH(QString, strKeys);
        QFETCH(QString, strText);
        Type(strKeys);
        QCOMPARE(Text(), strText);
    }

    void typingOverAnAddressReplacesIt_data()
    {
        QTest::addColumn<QString>("strKeys");
        QTest::newRow("short numbers") << "10.0.0.7";
        QTest::newRow("full numbers") << "172.116.210.177";
        QTest::newRow("mixed") << "192.16.100.2";
    }

    void typingOverAnAddressReplacesIt()
    {
        QFETCH(QString, strKeys);
        pEdit->SetAddress(0xFFFFFFFF);
        Place(pEdit, 0)->selectAll();
        Type(strKeys);
        QCOMPARE(Text(), strKeys);
    }

    void valueOverTheLimitIsRefused_data()
    {
        QTest::addColumn<QString>("strKeys");
        QTest::addColumn<QString>("strPlace");
        QTest::newRow("255") << "255"
                             << "255";
        QTest::newRow("256") << "256"
                             << "25";
        QTest::newRow("260") << "260"
                             << "26";
        QTest::newRow("300") << "300"
                             << "30";
        QTest::newRow("999") << "999"
                             << "99";
        QTest::newRow("199") << "199"
                             << "199";
    }

    void valueOverTheLimitIsRefused()
    {
        QFETCH(QString, strKeys);
        QFETCH(QString, strPlace);
        Type(strKeys);
        QCOMPARE(Place(pEdit, 0)->text(), strPlace);
    }

    void leadingZerosGoWhenThePlaceIsLeft()
    {
        Type(QStringLiteral("192.168.001.010"));
        QTest::mouseClick(pNext, Qt::LeftButton);
        pNext->setFocus();
        QCOMPARE(Text(), QStringLiteral("192.168.1.10"));
    }

    void dotInAnEmptyPlaceStays()
    {
        Type(QStringLiteral("..10"));
        QCOMPARE(Text(), QStringLiteral("10..."));
    }

    void arrowsCrossThePlaces()
    {
        pEdit->SetAddress(nAddress);
        PutCaret(pEdit, 0, 2);
        Press(Qt::Key_Right);
        QVERIFY(Place(pEdit, 0)->hasFocus());
        Press(Qt::Key_Right);
        QVERIFY(Place(pEdit, 1)->hasFocus());
        QCOMPARE(Place(pEdit, 1)->cursorPosition(), 0);
        Press(Qt::Key_Left);
        QVERIFY(Place(pEdit, 0)->hasFocus());
        QCOMPARE(Place(pEdit, 0)->cursorPosition(), 3);
        PutCaret(pEdit, 3, 2);
        Press(Qt::Key_Right);
        QVERIFY(Place(pEdit, 3)->hasFocus());
    }

    void backspaceAtTheLeftEndErasesInThePlaceBefore()
    {
        pEdit->SetAddress(nAddress);
        PutCaret(pEdit, 1, 0);
        Press(Qt::Key_Backspace);
        QCOMPARE(Text(), QStringLiteral("19.168.1.10"));
        QVERIFY(Place(pEdit, 0)->hasFocus());
    }

    void backspaceErasesAWholeAddress()
    {
        pEdit->SetAddress(nAddress);
        PutCaret(pEdit, 3, 2);
        for (int i = 0; i < 9; ++i) {
            Press(Qt::Key_Backspace);
        }
        QCOMPARE(Text(), QStringLiteral("..."));
        QVERIFY(Place(pEdit, 0)->hasFocus());
        Press(Qt::Key_Backspace);
        QVERIFY(Place(pEdit, 0)->hasFocus());
    }

    void deleteAtTheRightEndErasesInThePlaceBehind()
    {
        pEdit->SetAddress(nAddress);
        PutCaret(pEdit, 0, 3);
        Press(Qt::Key_Delete);
        QCOMPARE(Text(), QStringLiteral("192.68.1.10"));
        QVERIFY(Place(pEdit, 1)->hasFocus());
    }

    void pasteOfAWholeAddressFillsAllPlaces_data()
    {
        QTest::addColumn<QString>("strPaste");
        QTest::addColumn<QString>("strText");
        QTest::newRow("address") << "10.20.30.40"
                                 << "10.20.30.40";
        QTest::newRow("blanks around") << "  10.20.30.40\n"
                                       << "10.20.30.40";
        QTest::newRow("leading zeros") << "010.020.030.004"
                                       << "10.20.30.4";
        QTest::newRow("number replaces the selection") << "7"
                                                       << "7.2.3.4";
        QTest::newRow("place over the limit") << "10.20.30.256"
                                              << "1.2.3.4";
        QTest::newRow("three places") << "10.20.30"
                                      << "1.2.3.4";
        QTest::newRow("five places") << "10.20.30.40.50"
                                     << "1.2.3.4";
        QTest::newRow("empty place") << "10..30.40"
                                     << "1.2.3.4";
        QTest::newRow("signs") << "+1.-2.3.4"
                               << "1.2.3.4";
        QTest::newRow("words") << "localhost"
                               << "1.2.3.4";
        QTest::newRow("number over the limit") << "999"
                                               << "1.2.3.4";
    }

    void pasteOfAWholeAddressFillsAllPlaces()
    {
        QFETCH(QString, strPaste);
        QFETCH(QString, strText);
        pEdit->SetAddress(0x01020304);
        Place(pEdit, 0)->selectAll();
        QGuiApplication::clipboard()->setText(strPaste);
        QTest::keySequence(Place(pEdit, 0), QKeySequence(QKeySequence::Paste));
        QCOMPARE(Text(), strText);
    }

    void pasteFromTheContextMenuTakesAWholeAddress()
    {
        QGuiApplication::clipboard()->setText(QStringLiteral("10.20.30.40"));
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), Place(pEdit, 2)->mapToGlobal(QPoint(1, 1)));
        QCoreApplication::sendEvent(Place(pEdit, 2), &event);
        QTRY_VERIFY(QApplication::activePopupWidget());
        auto* pMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(pMenu);
        for (QAction* pAction : pMenu->actions()) {
            if (pAction->text().startsWith(QLatin1String("&Paste"))) {
                pMenu->setActiveAction(pAction);
            }
        }
        QTest::keyClick(pMenu, Qt::Key_Return);
        QCOMPARE(Text(), QStringLiteral("10.20.30.40"));
        QTRY_VERIFY(!QApplication::activePopupWidget());
    }

    void copyWithoutSelectionGivesTheWholeAddress()
    {
        pEdit->SetAddress(nAddress);
        PutCaret(pEdit, 1, 1);
        QTest::keySequence(Place(pEdit, 1), QKeySequence(QKeySequence::Copy));
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("192.168.1.10"));
        Place(pEdit, 1)->selectAll();
        QTest::keySequence(Place(pEdit, 1), QKeySequence(QKeySequence::Copy));
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("168"));
    }

    void tabWalksThePlacesAndLeaves()
    {
        for (int i = 1; i < 4; ++i) {
            Press(Qt::Key_Tab);
            QVERIFY(Place(pEdit, i)->hasFocus());
        }
        Press(Qt::Key_Tab);
        QVERIFY(pNext->hasFocus());
        for (int i = 3; i >= 0; --i) {
            Press(Qt::Key_Backtab);
            QVERIFY(Place(pEdit, i)->hasFocus());
        }
        Press(Qt::Key_Backtab);
        QVERIFY(pNext->hasFocus());
    }

    void labelGivesItsFocusToTheFirstPlace()
    {
        auto* pLabel = new QLabel(QStringLiteral("&Address"), pWindow.get());
        pLabel->setBuddy(pEdit);
        pWindow->layout()->addWidget(pLabel);
        QTRY_VERIFY(pLabel->isVisible());
        pNext->setFocus();
        QTest::keyClick(pWindow.get(), Qt::Key_A, Qt::AltModifier);
        QTRY_VERIFY(Place(pEdit, 0)->hasFocus());
    }

    void focusShowsAsAProperty()
    {
        QVERIFY(pEdit->property("Focus").toBool());
        Press(Qt::Key_Tab);
        QVERIFY(pEdit->property("Focus").toBool());
        pNext->setFocus();
        QVERIFY(!pEdit->property("Focus").toBool());
    }

    void placesHaveAccessibleNames()
    {
        QVERIFY(!pEdit->accessibleName().isEmpty());
        QSet<QString> setName;
        for (int i = 0; i < 4; ++i) {
            setName.insert(Place(pEdit, i)->accessibleName());
        }
        QCOMPARE(setName.size(), 4);
        QVERIFY(!setName.contains(QString()));
    }

private:
    QString Text() const
    {
        QStringList listText;
        for (int i = 0; i < 4; ++i) {
            listText.append(Place(pEdit, i)->text());
        }
        return listText.join(QLatin1Char('.'));
    }

    void Type(const QString& strKeys)
    {
        for (const QChar& c : strKeys) {
            QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
        }
    }

    std::unique_ptr<QWidget> pWindow;
    CIPEdit* pEdit = nullptr;
    QPushButton* pNext = nullptr;
};

PTV_TEST_MAIN(CIPEditTest)
#include "tst_ipedit.moc"
