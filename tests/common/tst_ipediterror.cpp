#include "TestMain.h"
#include "interfaces/widgets/CIPEdit.h"

#include <QLabel>
#include <QLineEdit>

namespace
{
constexpr quint32 ADDRESS = 0xC0A8010A; // 192.168.1.10
}

/// When and how a CIPEdit says that its address cannot be taken. Each test has an edit in an active window.
class CIPEditErrorTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void forbiddenAddressIsTold();
    void incompleteAddressIsTold();
    void errorIsToldOncePerChange();
    void startInErrorIsNotTold();
    void anotherRefusedAddressIsToldAgain();
    void markAndTipSayWhatIsWrong_data();
    void markAndTipSayWhatIsWrong();

private:
    QLineEdit* Place(int n) const;
    void Type(Qt::Key key);
    void PutCaret(int nPlace, int nPosition);

    std::unique_ptr<CIPEdit> pEdit;
};

void CIPEditErrorTest::init()
{
    pEdit = std::make_unique<CIPEdit>(nullptr);
    pEdit->show();
    pEdit->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(pEdit.get()));
}

void CIPEditErrorTest::cleanup()
{
    pEdit.reset();
}

QLineEdit* CIPEditErrorTest::Place(int n) const
{
    return pEdit->findChildren<QLineEdit*>(QStringLiteral("IPField")).at(n);
}

void CIPEditErrorTest::Type(Qt::Key key)
{
    QTest::keyClick(QApplication::focusWidget(), key);
}

void CIPEditErrorTest::PutCaret(int nPlace, int nPosition)
{
    Place(nPlace)->setFocus();
    Place(nPlace)->deselect();
    Place(nPlace)->setCursorPosition(nPosition);
}

void CIPEditErrorTest::forbiddenAddressIsTold()
{
    pEdit->SetAddress(0xC0A80101); // 192.168.1.1
    pEdit->SetLimitIP({ ADDRESS, 0xC0A8010B });
    QSignalSpy spy(pEdit.get(), &CIPEdit::ExistError);
    PutCaret(3, 1);
    Type(Qt::Key_0);
    QCOMPARE(spy.takeFirst().at(0).toBool(), true);
    Type(Qt::Key_0);
    QCOMPARE(spy.takeFirst().at(0).toBool(), false);
    QVERIFY(spy.isEmpty());
}

void CIPEditErrorTest::incompleteAddressIsTold()
{
    pEdit->SetAddress(ADDRESS);
    QSignalSpy spy(pEdit.get(), &CIPEdit::ExistError);
    PutCaret(2, 1);
    Type(Qt::Key_Backspace);
    QCOMPARE(spy.takeFirst().at(0).toBool(), true);
    Type(Qt::Key_5);
    QCOMPARE(spy.takeFirst().at(0).toBool(), false);
}

void CIPEditErrorTest::errorIsToldOncePerChange()
{
    pEdit->SetAddress(ADDRESS);
    QSignalSpy spy(pEdit.get(), &CIPEdit::ExistError);
    pEdit->SetLimitIP({ ADDRESS, 0x01020304 });
    pEdit->SetLimitIP({ ADDRESS });
    PutCaret(3, 2);
    Type(Qt::Key_Backspace);
    Type(Qt::Key_Backspace);
    Type(Qt::Key_1);
    Type(Qt::Key_0);
    pEdit->SetAddress(ADDRESS);
    // forbidden, free (.1), empty, free (.1), forbidden (.10)
    const QList<QVariantList> listExpected{ { true }, { false }, { true }, { false }, { true } };
    QCOMPARE(QList<QVariantList>(spy), listExpected);
}

void CIPEditErrorTest::startInErrorIsNotTold()
{
    CIPEdit edit(nullptr);
    QSignalSpy spy(&edit, &CIPEdit::ExistError);
    edit.SetLimitIP({ ADDRESS });
    edit.SetAddress(ADDRESS);
    QVERIFY(spy.isEmpty());
    edit.SetAddress(ADDRESS + 1);
    QCOMPARE(QList<QVariantList>(spy), QList<QVariantList>{ { false } });
}

void CIPEditErrorTest::anotherRefusedAddressIsToldAgain()
{
    pEdit->SetAddress(ADDRESS);
    pEdit->SetLimitIP({ ADDRESS, ADDRESS + 5 });
    QSignalSpy spy(pEdit.get(), &CIPEdit::ExistError);
    Place(3)->setFocus();
    Place(3)->selectAll();
    Type(Qt::Key_Delete);
    QCOMPARE(QList<QVariantList>(spy), QList<QVariantList>{ { true } });
    pEdit->SetAddress(ADDRESS + 5);
    QCOMPARE(spy.count(), 1);
}

void CIPEditErrorTest::markAndTipSayWhatIsWrong_data()
{
    QTest::addColumn<quint32>("nForbidden");
    QTest::addColumn<bool>("bIncomplete");
    QTest::addColumn<QString>("strTip");
    QTest::newRow("fine") << 1U << false << "";
    QTest::newRow("forbidden") << ADDRESS << false << "This address is in use or reserved.";
    QTest::newRow("incomplete") << 1U << true << "The address is incomplete.";
    QTest::newRow("incomplete counts first") << 0xC0A8000AU << true << "The address is incomplete.";
}

void CIPEditErrorTest::markAndTipSayWhatIsWrong()
{
    QFETCH(quint32, nForbidden);
    QFETCH(bool, bIncomplete);
    QFETCH(QString, strTip);
    pEdit->SetLimitIP({ nForbidden });
    pEdit->SetAddress(ADDRESS);
    if (bIncomplete) {
        Place(2)->clear();
    }
    QCOMPARE(pEdit->toolTip(), strTip);
    QCOMPARE(pEdit->accessibleDescription(), strTip);
    QCOMPARE(pEdit->property("Error").toBool(), !strTip.isEmpty());
    const auto* pMark = pEdit->findChild<QLabel*>(QStringLiteral("IPErrorMark"));
    QCOMPARE(pMark->isVisible(), !strTip.isEmpty());
    QVERIFY(!pMark->pixmap(Qt::ReturnByValue).isNull());
}

PTV_TEST_MAIN(CIPEditErrorTest)
#include "tst_ipediterror.moc"
