#include "IpEditInput.h"
#include "TestMain.h"
#include "interfaces/widgets/CIPEdit.h"

#include <QLabel>
#include <QLineEdit>

using namespace IpEditInput;

namespace {

constexpr quint32 nAddress = 0xC0A8010A; // 192.168.1.10
}

/// When and how a CIPEdit says that its address cannot be taken. Each test has an edit in an active window.
class CIPEditErrorTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pEdit = std::make_unique<CIPEdit>(nullptr);
        pEdit->show();
        pEdit->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(pEdit.get()));
    }

    void cleanup()
    {
        pEdit.reset();
    }

    void forbiddenAddressIsTold()
    {
        pEdit->SetAddress(0xC0A80101); // 192.168.1.1
        pEdit->SetLimitIP({ nAddress, 0xC0A8010B });
        QSignalSpy spy(pEdit.get(), &CIPEdit::ExistError);
        PutCaret(pEdit.get(), 3, 1);
        Press(Qt::Key_0);
        QCOMPARE(spy.takeFirst().at(0).toBool(), true);
        Press(Qt::Key_0);
        QCOMPARE(spy.takeFirst().at(0).toBool(), false);
        QVERIFY(spy.isEmpty());
    }

    void incompleteAddressIsTold()
    {
        pEdit->SetAddress(nAddress);
        QSignalSpy spy(pEdit.get(), &CIPEdit::ExistError);
        PutCaret(pEdit.get(), 2, 1);
        Press(Qt::Key_Backspace);
        QCOMPARE(spy.takeFirst().at(0).toBool(), true);
        Press(Qt::Key_5);
        QCOMPARE(spy.takeFirst().at(0).toBool(), false);
    }

    void errorIsToldOncePerChange()
    {
        pEdit->SetAddress(nAddress);
        QSignalSpy spy(pEdit.get(), &CIPEdit::ExistError);
        pEdit->SetLimitIP({ nAddress, 0x01020304 });
        pEdit->SetLimitIP({ nAddress });
        PutCaret(pEdit.get(), 3, 2);
        Press(Qt::Key_Backspace);
        Press(Qt::Key_Backspace);
        Press(Qt::Key_1);
        Press(Qt::Key_0);
        pEdit->SetAddress(nAddress);
        // forbidden, free (.1), empty, free (.1), forbidden (.10)
        const QList<QVariantList> listExpected{ { true }, { false }, { true }, { false }, { true } };
        QCOMPARE(QList<QVariantList>(spy), listExpected);
    }

    void startInErrorIsNotTold()
    {
        CIPEdit edit(nullptr);
        QSignalSpy spy(&edit, &CIPEdit::ExistError);
        edit.SetLimitIP({ nAddress });
        edit.SetAddress(nAddress);
        QVERIFY(spy.isEmpty());
        edit.SetAddress(nAddress + 1);
        QCOMPARE(QList<QVariantList>(spy), QList<QVariantList>{ { false } });
    }

    void anotherRefusedAddressIsToldAgain()
    {
        pEdit->SetAddress(nAddress);
        pEdit->SetLimitIP({ nAddress, nAddress + 5 });
        QSignalSpy spy(pEdit.get(), &CIPEdit::ExistError);
        Place(pEdit.get(), 3)->setFocus();
        Place(pEdit.get(), 3)->selectAll();
        Press(Qt::Key_Delete);
        QCOMPARE(QList<QVariantList>(spy), QList<QVariantList>{ { true } });
        pEdit->SetAddress(nAddress + 5);
        QCOMPARE(spy.count(), 1);
    }

    void markAndTipSayWhatIsWrong_data()
    {
        QTest::addColumn<quint32>("nForbidden");
        QTest::addColumn<bool>("bIncomplete");
        QTest::addColumn<QString>("strTip");
        QTest::newRow("fine") << 1U << false << "";
        QTest::newRow("forbidden") << nAddress << false << "This address is in use or reserved.";
        QTest::newRow("incomplete") << 1U << true << "The address is incomplete.";
        QTest::newRow("incomplete counts first") << 0xC0A8000AU << true << "The address is incomplete.";
    }

    void markAndTipSayWhatIsWrong()
    {
        QFETCH(quint32, nForbidden);
        QFETCH(bool, bIncomplete);
        QFETCH(QString, strTip);
        pEdit->SetLimitIP({ nForbidden });
        pEdit->SetAddress(nAddress);
        if (bIncomplete) {
            Place(pEdit.get(), 2)->clear();
        }
        QCOMPARE(pEdit->toolTip(), strTip);
        QCOMPARE(pEdit->accessibleDescription(), strTip);
        QCOMPARE(pEdit->property("Error").toBool(), !strTip.isEmpty());
        const auto* pMark = pEdit->findChild<QLabel*>(QStringLiteral("IPErrorMark"));
        QCOMPARE(pMark->isVisible(), !strTip.isEmpty());
        QVERIFY(!pMark->pixmap(Qt::ReturnByValue).isNull());
    }

private:
    std::unique_ptr<CIPEdit> pEdit;
};

PTV_TEST_MAIN(CIPEditErrorTest)
#include "tst_ipediterror.moc"
