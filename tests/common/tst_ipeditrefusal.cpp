#include "IpEditInput.h"
#include "TestMain.h"
#include "interfaces/widgets/CIPEdit.h"

#include <QAccessible>
#include <QClipboard>
#include <QToolTip>

using namespace IpEditInput;

namespace {

constexpr quint32 nAddress = 0xC0A8010A; // 192.168.1.10
constexpr char szHint[] = "Each part is a number from 0 to 255.";

QString Description(QObject* pObject)
{
    return QAccessible::queryAccessibleInterface(pObject)->text(QAccessible::Description);
}

} // namespace

/// What a CIPEdit shows when it takes a key not. Each test has an edit in an active window, the focus in its first place.
class CIPEditRefusalTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pEdit = std::make_unique<CIPEdit>(nullptr);
        pEdit->setStyleSheet("CIPEdit { border: 1px solid gray; background: black; }"
                             "CIPEdit[Refused=\"true\"] { border-color: red; }");
        pEdit->resize(300, 28);
        pEdit->show();
        pEdit->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(pEdit.get()));
        Place(pEdit.get(), 0)->setFocus();
    }

    void cleanup()
    {
        pEdit.reset();
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void aKeyThatIsRefusedIsShown_data()
    {
        QTest::addColumn<QString>("strBefore");
        QTest::addColumn<QString>("strKey");
        QTest::addColumn<bool>("bRefused");
        QTest::newRow("the 6 of 256") << "25" << "6" << true;
        QTest::newRow("the 5 of 255") << "25" << "5" << false;
        QTest::newRow("300") << "30" << "0" << true;
        QTest::newRow("a letter") << "1" << "x" << true;
        QTest::newRow("a letter first") << "" << "x" << true;
        QTest::newRow("a minus") << "" << "-" << true;
        QTest::newRow("a dot too early") << "" << "." << false;
        QTest::newRow("a digit") << "" << "7" << false;
    }

    void aKeyThatIsRefusedIsShown()
    {
        QFETCH(QString, strBefore);
        QFETCH(QString, strKey);
        QFETCH(bool, bRefused);
        QLineEdit* pPlace = Place(pEdit.get(), 0);
        QTest::keyClicks(pPlace, strBefore);
        QVERIFY(!IsRefused());

        QTest::keyClicks(pPlace, strKey);

        QCOMPARE(IsRefused(), bRefused);
        QCOMPARE(QToolTip::isVisible(), bRefused);
        QCOMPARE(Description(pPlace), bRefused ? QString(szHint) : QString());
        QCOMPARE(pPlace->text() == strBefore, bRefused || strKey == ".");
    }

    void theSignMovesNothing()
    {
        pEdit->SetAddress(nAddress);
        PutCaret(pEdit.get(), 0, 3);
        const QImage imageBefore = pEdit->grab().toImage();

        Press(Qt::Key_9);

        QVERIFY(IsRefused());
        QCOMPARE(QToolTip::text(), QString(szHint));
        const QImage imageAfter = pEdit->grab().toImage();
        const QRect rcInner = imageBefore.rect().adjusted(1, 1, -1, -1);
        QVERIFY(imageAfter != imageBefore);
        QCOMPARE(imageAfter.copy(rcInner), imageBefore.copy(rcInner));
    }

    void theSignGoesByItself()
    {
        QTest::keyClicks(Place(pEdit.get(), 0), "x");
        QVERIFY(IsRefused());
        QTRY_VERIFY(!IsRefused());
        QTRY_VERIFY(!QToolTip::isVisible());
        QCOMPARE(Description(Place(pEdit.get(), 0)), QString());
    }

    void theSignLastsFromTheLastRefusal()
    {
        QTest::keyClicks(Place(pEdit.get(), 0), "x");
        QElapsedTimer timerFirst;
        timerFirst.start();
        QTRY_VERIFY(timerFirst.elapsed() > 750);
        QTest::keyClicks(Place(pEdit.get(), 0), "y");
        QTRY_VERIFY(!IsRefused());
        QVERIFY(timerFirst.elapsed() > 2000);
    }

    void theNextGoodKeyEndsTheSign()
    {
        QTest::keyClicks(Place(pEdit.get(), 0), "x");
        QTest::keyClicks(Place(pEdit.get(), 0), "7");
        QVERIFY(!IsRefused());
        QTRY_VERIFY(!QToolTip::isVisible());
        QCOMPARE(Description(Place(pEdit.get(), 0)), QString());
    }

    void theEditMayEndUnderTheSign()
    {
        QTest::keyClicks(Place(pEdit.get(), 0), "x");
        QVERIFY(IsRefused());
        pEdit.reset();
        QTRY_VERIFY(!QToolTip::isVisible());
    }

private:
    bool IsRefused() const
    {
        return pEdit->property("Refused").toBool();
    }

    std::unique_ptr<CIPEdit> pEdit;
};

PTV_TEST_MAIN(CIPEditRefusalTest)
#include "tst_ipeditrefusal.moc"
