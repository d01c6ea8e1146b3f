#include "CDialogDriver.h"
#include "CDialogHost.h"
#include "CMapTranslator.h"
#include "TestMain.h"
#include "dialogs/CAddProcessorDlg.h"
#include "interfaces/widgets/CIPEdit.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

namespace {

quint32 Ip(const QString& strAddress)
{
    return QHostAddress(strAddress).toIPv4Address();
}

QPushButton* AcceptButton(const QDialog& dlg)
{
    return dlg.findChild<QPushButton*>(QStringLiteral("DialogAccept"));
}

/// The label that shows strText; null when there is none.
QLabel* FindLabel(const QDialog& dlg, const QString& strText)
{
    const auto listLabel = dlg.findChildren<QLabel*>();
    for (QLabel* pLabel : listLabel) {
        if (pLabel->text() == strText) {
            return pLabel;
        }
    }
    return nullptr;
}

/// Types strPlace over what stands in the last of the four places.
void TypeLastPlace(const QDialog& dlg, const QString& strPlace)
{
    auto* pPlace = dlg.findChild<CIPEdit*>()->findChildren<QLineEdit*>().last();
    QTest::mouseClick(pPlace, Qt::LeftButton);
    pPlace->selectAll();
    QTest::keyClicks(pPlace, strPlace);
}

} // namespace

/// The dialog that asks for the address of a processor.
class CAddProcessorDlgTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pHost.reset(new CDialogHost);
    }

    void cleanup()
    {
        pHost.reset();
    }

    void theDialogHasItsTitleWidthAndButtons()
    {
        CAddProcessorDlg dlg(&pHost->window);
        dlg.show();

        QCOMPARE(dlg.parentWidget(), &pHost->window);
        QCOMPARE(dlg.windowTitle(), QStringLiteral("Add a processor"));
        QCOMPARE(dlg.width(), 247);
        QCOMPARE(dlg.minimumSize(), dlg.maximumSize());
        QVERIFY(!(dlg.windowFlags() & Qt::WindowStaysOnTopHint));
        QVERIFY(AcceptButton(dlg)->isDefault());
        QVERIFY(dlg.findChild<QPushButton*>(QStringLiteral("DialogReject")));
    }

    void theWindowBehindIsDimmedWhileTheDialogIsOpen()
    {
        CAddProcessorDlg dlg(&pHost->window);
        QVERIFY(!pHost->window.findChild<QWidget*>(QStringLiteral("DialogMask")));

        dlg.show();
        QVERIFY(pHost->window.findChild<QWidget*>(QStringLiteral("DialogMask")));

        dlg.reject();
        QVERIFY(!pHost->window.findChild<QWidget*>(QStringLiteral("DialogMask")));
    }

    void theTitleIsTranslatedTheLabelIsNot()
    {
        const CMapTranslator german(
            { { "CAddProcessorDlg|Add a processor", "Neuer Prozessor" }, { "CAddProcessorDlg|IP", "Adresse" } });

        const CAddProcessorDlg dlg(&pHost->window);

        QCOMPARE(dlg.windowTitle(), QStringLiteral("Neuer Prozessor"));
        QVERIFY(FindLabel(dlg, QStringLiteral("IP")));
        QVERIFY(!FindLabel(dlg, QStringLiteral("Adresse")));
    }

    void theFieldStandsBesideItsLabel()
    {
        CAddProcessorDlg dlg(&pHost->window);
        dlg.show();
        const auto* pEdit = dlg.findChild<CIPEdit*>();
        const QLayout* pContent = dlg.layout()->itemAt(1)->layout();
        const auto* pRow = qobject_cast<QHBoxLayout*>(pContent->itemAt(0)->layout());
        QVERIFY(pRow);

        QCOMPARE(pContent->contentsMargins(), QMargins(16, 16, 16, 16));
        QCOMPARE(pRow->contentsMargins(), QMargins(0, 0, 0, 0));
        QCOMPARE(pRow->spacing(), 8);
        QCOMPARE(pRow->count(), 2);
        QCOMPARE(qobject_cast<QLabel*>(pRow->itemAt(0)->widget())->text(), QStringLiteral("IP"));
        QCOMPARE(pRow->itemAt(1)->widget(), pEdit);
        QCOMPARE(pRow->stretch(0), 0);
        QCOMPARE(pRow->stretch(1), 1);
        QCOMPARE(pRow->itemAt(0)->widget()->height(), 24);
        QCOMPARE(pEdit->height(), 24);
    }

    void theLabelLeadsToTheField()
    {
        const CAddProcessorDlg dlg(&pHost->window);
        const QLabel* pLabel = FindLabel(dlg, QStringLiteral("IP"));
        QVERIFY(pLabel);

        QCOMPARE(pLabel->buddy(), dlg.findChild<CIPEdit*>());
    }

    void theFieldOpensWithTheFirstFreeAddress_data()
    {
        QTest::addColumn<QStringList>("reserved");
        QTest::addColumn<QStringList>("inUse");
        QTest::addColumn<QString>("local");
        QTest::addColumn<QString>("proposed");
        QTest::newRow("none taken") << QStringList() << QStringList() << "10.0.0.1"
                                    << "192.168.1.10";
        QTest::newRow("reserved") << QStringList({ "192.168.1.10" }) << QStringList() << "10.0.0.1"
                                  << "192.168.1.11";
        QTest::newRow("in use") << QStringList() << QStringList({ "192.168.1.10" }) << "10.0.0.1"
                                << "192.168.1.11";
        QTest::newRow("both") << QStringList({ "192.168.1.11" }) << QStringList({ "192.168.1.10", "192.168.1.12" }) << "10.0.0.1"
                              << "192.168.1.13";
        QTest::newRow("the same twice") << QStringList({ "192.168.1.10" }) << QStringList({ "192.168.1.10" }) << "10.0.0.1"
                                        << "192.168.1.11";
        QTest::newRow("local is not passed over") << QStringList() << QStringList() << "192.168.1.10"
                                                  << "192.168.1.10";
    }

    void theFieldOpensWithTheFirstFreeAddress()
    {
        QFETCH(QStringList, reserved);
        QFETCH(QStringList, inUse);
        QFETCH(QString, local);
        pHost->control.Set([&](SControlAnswers& answers) {
            for (const QString& strIP : std::as_const(reserved)) {
                answers.listReservedIP.append(Ip(strIP));
            }
            for (const QString& strIP : std::as_const(inUse)) {
                answers.nodeDiscovered.listProcessor.append(Processor(strIP).Ip(strIP));
            }
            answers.addressLocal.nIP = Ip(local);
        });

        const CAddProcessorDlg dlg(&pHost->window);

        QTEST(dlg.GetIP().toString(), "proposed");
        QVERIFY(AcceptButton(dlg)->isEnabled());
    }

    void theAddressesAreFetchedInOrder()
    {
        const CAddProcessorDlg dlg(&pHost->window);

        QCOMPARE(pHost->control.CallsWithThread(),
                 QStringList({ "gui: g_pConfigControl.GetReservedIPs()", "gui: g_pPrcListControl.GetProcessorIPs()",
                               "gui: g_pPrcBasicControl.GetLocalAddress()", "gui: g_pConfigControl.GetReservedIPs()",
                               "gui: g_pPrcListControl.GetProcessorIPs()" }));
    }

    void anAddressThatIsTakenCannotBeAccepted_data()
    {
        QTest::addColumn<QString>("place");
        QTest::addColumn<bool>("enabled");
        QTest::newRow("reserved") << "20" << false;
        QTest::newRow("in use") << "30" << false;
        QTest::newRow("local") << "40" << false;
        QTest::newRow("free") << "50" << true;
    }

    void anAddressThatIsTakenCannotBeAccepted()
    {
        QFETCH(QString, place);
        pHost->control.Set([](SControlAnswers& answers) {
            answers.listReservedIP = { Ip("192.168.1.20") };
            answers.nodeDiscovered = Root({}, { Processor("alpha").Ip("192.168.1.30") });
            answers.addressLocal.nIP = Ip("192.168.1.40");
        });
        CAddProcessorDlg dlg(&pHost->window);
        dlg.show();

        TypeLastPlace(dlg, place);

        QCOMPARE(dlg.GetIP().toString(), QStringLiteral("192.168.1.") + place);
        QTEST(AcceptButton(dlg)->isEnabled(), "enabled");
        QTest::keyClick(&dlg, Qt::Key_Return);
        QTEST(dlg.result() == QDialog::Accepted, "enabled");
    }

    void aDefectThatIsMendedEnablesTheButton()
    {
        pHost->control.Set([](SControlAnswers& answers) { answers.listReservedIP = { Ip("192.168.1.20") }; });
        CAddProcessorDlg dlg(&pHost->window);
        dlg.show();

        TypeLastPlace(dlg, QStringLiteral("20"));
        QVERIFY(!AcceptButton(dlg)->isEnabled());

        TypeLastPlace(dlg, QStringLiteral("21"));
        QVERIFY(AcceptButton(dlg)->isEnabled());
    }

    void theLocalAddressIsProposedAndAcceptedUntilItIsLeft()
    {
        pHost->control.Set([](SControlAnswers& answers) { answers.addressLocal.nIP = Ip("192.168.1.10"); });
        CAddProcessorDlg dlg(&pHost->window);
        dlg.show();
        QCOMPARE(dlg.GetIP().toString(), QStringLiteral("192.168.1.10"));
        QVERIFY(AcceptButton(dlg)->isEnabled());

        TypeLastPlace(dlg, QStringLiteral("77"));
        QVERIFY(AcceptButton(dlg)->isEnabled());
        TypeLastPlace(dlg, QStringLiteral("10"));

        QCOMPARE(dlg.GetIP().toString(), QStringLiteral("192.168.1.10"));
        QVERIFY(!AcceptButton(dlg)->isEnabled());
    }

    void fromTheLocalAddressNoTakenOneIsReached()
    {
        pHost->control.Set([](SControlAnswers& answers) {
            answers.addressLocal.nIP = Ip("192.168.1.10");
            answers.listReservedIP = { Ip("192.168.1.7") };
        });
        CAddProcessorDlg dlg(&pHost->window);
        dlg.show();
        QVERIFY(AcceptButton(dlg)->isEnabled());

        // One key: from an address that is refused, but proposed, to one that is taken.
        TypeLastPlace(dlg, QStringLiteral("7"));

        QCOMPARE(dlg.GetIP().toString(), QStringLiteral("192.168.1.7"));
        QVERIFY(!AcceptButton(dlg)->isEnabled());
    }

    void theAddressIsReadInHostOrder()
    {
        CAddProcessorDlg dlg(&pHost->window);

        dlg.findChild<CIPEdit*>()->SetAddress(0x0A00FF01);

        QCOMPARE(dlg.GetIP(), QHostAddress(QStringLiteral("10.0.255.1")));
        QCOMPARE(dlg.GetIP().toIPv4Address(), 0x0A00FF01u);
    }

    void acceptedByButtonAndReturn_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("button") << "DialogAccept";
        QTest::newRow("Return") << "key Return";
    }

    void acceptedByButtonAndReturn()
    {
        QFETCH(QString, how);
        CAddProcessorDlg dlg(&pHost->window);
        dlg.show();
        QSignalSpy ends(&dlg, &QDialog::finished);

        CDialogDriver::Press(&dlg, how);

        QCOMPARE(ends.count(), 1);
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QCOMPARE(dlg.GetIP().toString(), QStringLiteral("192.168.1.10"));
    }

    void rejectedByButtonCrossAndEscape_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("button") << "DialogReject";
        QTest::newRow("cross") << "DialogClose";
        QTest::newRow("Escape") << "key Escape";
    }

    void rejectedByButtonCrossAndEscape()
    {
        QFETCH(QString, how);
        CAddProcessorDlg dlg(&pHost->window);
        dlg.show();
        QSignalSpy ends(&dlg, &QDialog::finished);

        CDialogDriver::Press(&dlg, how);

        QCOMPARE(ends.count(), 1);
        QCOMPARE(dlg.result(), int(QDialog::Rejected));
    }

    void aCancelledDialogLeavesNoTrace()
    {
        const int nWidgets = QApplication::allWidgets().size();
        {
            CAddProcessorDlg dlg(&pHost->window);
            dlg.show();
            QTest::keyClick(&dlg, Qt::Key_Escape);
        }

        QCOMPARE(pHost->control.Commands(), QStringList());
        QCOMPARE(QApplication::allWidgets().size(), nWidgets);
    }

private:
    QScopedPointer<CDialogHost> pHost;
};

PTV_TEST_MAIN(CAddProcessorDlgTest)
#include "tst_addprocessordlg.moc"
