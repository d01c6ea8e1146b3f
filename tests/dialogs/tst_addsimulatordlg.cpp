#include "CDialogDriver.h"
#include "CDialogHost.h"
#include "CMapTranslator.h"
#include "TestMain.h"
#include "dialogs/CAddSimulatorDlg.h"
#include "interfaces/widgets/CComboBox.h"
#include "interfaces/widgets/CDoubleSpinBox.h"
#include "interfaces/widgets/CMenu.h"

#include <QAccessible>
#include <QAction>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

namespace {

/// The dialog's parts, by the order in which they stand in it.
struct SParts
{
    explicit SParts(const QDialog& dlg)
    {
        const QLayout* pContent = dlg.layout()->itemAt(1)->layout();
        pGrid = qobject_cast<QGridLayout*>(pContent->itemAt(0)->layout());
        pType = qobject_cast<CComboBox*>(pGrid->itemAtPosition(1, 0)->widget());
        pCount = qobject_cast<CDoubleSpinBox*>(pGrid->itemAtPosition(1, 1)->widget());
        pOutput = qobject_cast<CComboBox*>(pContent->itemAt(4)->widget());
        const auto listMenu = dlg.findChildren<CMenu*>(QString(), Qt::FindDirectChildrenOnly);
        pTypeMenu = listMenu.value(0);
        pOutputMenu = listMenu.value(1);
    }

    QStringList VisibleOutputs() const
    {
        QStringList listText;
        const auto listAction = pOutputMenu->actions();
        for (const QAction* pAction : listAction) {
            if (pAction->isVisible()) {
                listText.append(pAction->text());
            }
        }
        return listText;
    }

    /// Offers one more type, and lets the user choose it.
    void ChooseType(int nType) const
    {
        auto* pAction = new QAction(pTypeMenu);
        pAction->setData(nType);
        pTypeMenu->addAction(pAction);
        pAction->trigger();
    }

    void ChooseOutput(int nOutput) const
    {
        pOutputMenu->actions().at(nOutput - 1)->trigger();
    }

    QGridLayout* pGrid;
    CComboBox* pType;
    CDoubleSpinBox* pCount;
    CComboBox* pOutput;
    CMenu* pTypeMenu;
    CMenu* pOutputMenu;
};

} // namespace

/// The dialog that asks which simulators to add.
class CAddSimulatorDlgTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pHost.reset(new CDialogHost);
        pHost->control.Set([](SControlAnswers& answers) { answers.mapTypeName = { { 12, QStringLiteral("KX-4") } }; });
    }

    void cleanup()
    {
        pHost.reset();
    }

    void theDialogHasItsTitleWidthAndButtons()
    {
        CAddSimulatorDlg dlg(&pHost->window);
        dlg.show();

        QCOMPARE(dlg.parentWidget(), &pHost->window);
        QCOMPARE(dlg.windowTitle(), QStringLiteral("Add simulators"));
        QCOMPARE(dlg.width(), 248);
        QCOMPARE(dlg.minimumSize(), dlg.maximumSize());
        QVERIFY(!(dlg.windowFlags() & Qt::WindowStaysOnTopHint));
        QVERIFY(pHost->window.findChild<QWidget*>(QStringLiteral("DialogMask")));
        QVERIFY(dlg.findChild<QPushButton*>(QStringLiteral("DialogAccept"))->isDefault());
        QVERIFY(dlg.findChild<QPushButton*>(QStringLiteral("DialogReject")));
    }

    void thePartsStandInTheirPlaces()
    {
        CAddSimulatorDlg dlg(&pHost->window);
        const SParts parts(dlg);
        const QLayout* pContent = dlg.layout()->itemAt(1)->layout();
        const auto label = [](QLayoutItem* pItem) { return qobject_cast<QLabel*>(pItem->widget())->text(); };

        QCOMPARE(pContent->contentsMargins(), QMargins(16, 16, 16, 16));
        QCOMPARE(parts.pGrid->contentsMargins(), QMargins(0, 0, 0, 0));
        QCOMPARE(parts.pGrid->verticalSpacing(), 8);
        QCOMPARE(parts.pGrid->horizontalSpacing(), 10);
        QCOMPARE(label(parts.pGrid->itemAtPosition(0, 0)), QStringLiteral("Type"));
        QCOMPARE(label(parts.pGrid->itemAtPosition(0, 1)), QStringLiteral("Count"));
        QVERIFY(parts.pType);
        QVERIFY(parts.pCount);
        QCOMPARE(pContent->itemAt(1)->spacerItem()->sizeHint(), QSize(0, 12));
        QCOMPARE(label(pContent->itemAt(2)), QStringLiteral("Output"));
        QCOMPARE(pContent->itemAt(3)->spacerItem()->sizeHint(), QSize(0, 8));
        QVERIFY(parts.pOutput);
        QCOMPARE(pContent->count(), 5);
    }

    void textsAreTranslated()
    {
        const CMapTranslator german({ { "CAddSimulatorDlg|Add simulators", "Neue Simulatoren" },
                                      { "CAddSimulatorDlg|Type", "Typ" },
                                      { "CAddSimulatorDlg|Count", "Anzahl" },
                                      { "CAddSimulatorDlg|Output", "Ausgang" },
                                      { "CAddSimulatorDlg|5G port", "5G-Anschluss" },
                                      { "CAddSimulatorDlg|10G fiber", "10G-Faser" } });

        const CAddSimulatorDlg dlg(&pHost->window);

        QCOMPARE(dlg.windowTitle(), QStringLiteral("Neue Simulatoren"));
        QStringList listText;
        const auto listLabel = dlg.findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
        for (const QLabel* pLabel : listLabel) {
            listText.append(pLabel->text());
        }
        QCOMPARE(listText, QStringList({ "Typ", "Anzahl", "Ausgang" }));
        QCOMPARE(SParts(dlg).VisibleOutputs(), QStringList({ "5G-Anschluss", "10G-Faser" }));
    }

    void aScreenReaderHearsTheLabelOfEachField()
    {
        const CMapTranslator german({ { "CAddSimulatorDlg|Count", "Anzahl" } });
        const CAddSimulatorDlg dlg(&pHost->window);
        const SParts parts(dlg);
        const auto name = [](QWidget* pField) { return QAccessible::queryAccessibleInterface(pField)->text(QAccessible::Name); };

        QCOMPARE(name(parts.pType), QStringLiteral("Type"));
        QCOMPARE(name(parts.pCount), QStringLiteral("Anzahl"));
        QCOMPARE(name(parts.pOutput), QStringLiteral("Output"));
        QCOMPARE(QAccessible::queryAccessibleInterface(parts.pType)->text(QAccessible::Value), QStringLiteral("KX-4"));
    }

    void oneTypeIsOfferedUnderTheLibrarysName()
    {
        const CAddSimulatorDlg dlg(&pHost->window);
        const SParts parts(dlg);

        QCOMPARE(parts.pTypeMenu->actions().size(), 1);
        QCOMPARE(parts.pTypeMenu->actions().first()->text(), QStringLiteral("KX-4"));
        QCOMPARE(parts.pTypeMenu->actions().first()->data(), QVariant(12));
        QCOMPARE(parts.pTypeMenu->actions().first()->parent(), &dlg);
        QCOMPARE(parts.pType->GetCurSelData(), QVariant(12));
        QCOMPARE(dlg.GetType(), 12);
    }

    void theTypeMenuHasNoShadow()
    {
        const CAddSimulatorDlg dlg(&pHost->window);
        const SParts parts(dlg);

        QVERIFY(parts.pTypeMenu->windowFlags() & Qt::NoDropShadowWindowHint);
        QVERIFY(!(parts.pOutputMenu->windowFlags() & Qt::NoDropShadowWindowHint));
    }

    void theLibraryIsAskedForTheSimulatorsAndTheName()
    {
        const CAddSimulatorDlg dlg(&pHost->window);

        QCOMPARE(pHost->control.CallsWithThread(),
                 QStringList({ "gui: g_pPrcListControl.GetSimulatorCount()", "gui: g_pPrcBasicControl.GetTypeName(12)" }));
    }

    void theCountEndsAtTwoSimulators_data()
    {
        QTest::addColumn<int>("present");
        QTest::addColumn<double>("maximum");
        QTest::newRow("none present") << 0 << 2.0;
        QTest::newRow("one present") << 1 << 1.0;
    }

    void theCountEndsAtTwoSimulators()
    {
        QFETCH(int, present);
        QFETCH(double, maximum);
        pHost->control.Set([&](SControlAnswers& answers) { answers.nSimulatorCount = present; });
        CAddSimulatorDlg dlg(&pHost->window);
        dlg.show();
        const SParts parts(dlg);

        QCOMPARE(parts.pCount->minimum(), 1.0);
        QCOMPARE(parts.pCount->maximum(), maximum);
        QCOMPARE(dlg.GetCount(), 1);
        QTest::keyClick(parts.pCount, Qt::Key_Up);
        QTest::keyClick(parts.pCount, Qt::Key_Up);
        QCOMPARE(dlg.GetCount(), int(maximum));
    }

    void theCountIsAWholeNumberAtTheLeft()
    {
        const CAddSimulatorDlg dlg(&pHost->window);
        const SParts parts(dlg);

        QCOMPARE(parts.pCount->decimals(), 0);
        QCOMPARE(parts.pCount->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
        QCOMPARE(parts.pCount->text(), QStringLiteral("1"));
    }

    void theOutputOpensOnFibre()
    {
        const CAddSimulatorDlg dlg(&pHost->window);
        const SParts parts(dlg);

        QCOMPARE(dlg.GetOutput(), 3);
        QCOMPARE(parts.VisibleOutputs(), QStringList({ "5G port", "10G fiber" }));
        QCOMPARE(parts.pOutputMenu->actions().size(), 3);
        QCOMPARE(parts.pOutputMenu->actions().first()->text(), QStringLiteral("1G port"));
        QVERIFY(parts.pOutput->isEnabled());
    }

    void outputsAreChosenFromTheMenu()
    {
        CAddSimulatorDlg dlg(&pHost->window);
        dlg.show();
        const SParts parts(dlg);

        QTest::mouseClick(parts.pOutput, Qt::LeftButton);
        QTRY_VERIFY(parts.pOutputMenu->isVisible());
        const QAction* p5G = parts.pOutputMenu->actions().at(1);
        QTest::mouseClick(parts.pOutputMenu, Qt::LeftButton, Qt::NoModifier,
                          parts.pOutputMenu->actionGeometry(const_cast<QAction*>(p5G)).center());

        QCOMPARE(dlg.GetOutput(), 2);
    }

    void aTypeWithOneOutputForcesIt_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("before");
        QTest::newRow("41 from fibre") << 41 << 3;
        QTest::newRow("22 from fibre") << 22 << 3;
        QTest::newRow("41 from 5G") << 41 << 2;
    }

    void aTypeWithOneOutputForcesIt()
    {
        QFETCH(int, type);
        QFETCH(int, before);
        const CAddSimulatorDlg dlg(&pHost->window);
        const SParts parts(dlg);
        parts.ChooseOutput(before);
        QCOMPARE(dlg.GetOutput(), before);

        parts.ChooseType(type);

        QCOMPARE(dlg.GetType(), type);
        QCOMPARE(dlg.GetOutput(), 1);
        QVERIFY(!parts.pOutput->isEnabled());
        QVERIFY(parts.VisibleOutputs().contains(QStringLiteral("1G port")));
    }

    void leavingATypeWithOneOutputOffersTheOthersAgain()
    {
        const CAddSimulatorDlg dlg(&pHost->window);
        const SParts parts(dlg);
        parts.ChooseType(41);

        parts.ChooseType(13);

        QCOMPARE(dlg.GetOutput(), 3);
        QVERIFY(parts.pOutput->isEnabled());
        QCOMPARE(parts.VisibleOutputs(), QStringList({ "5G port", "10G fiber" }));
    }

    void anOutputThatFollowsItsTypeIsNobodysChoice()
    {
        const CAddSimulatorDlg dlg(&pHost->window);
        const SParts parts(dlg);
        const QSignalSpy chosen(parts.pOutput, &CComboBox::SelectChanged);
        parts.ChooseType(41);
        QCOMPARE(dlg.GetOutput(), 1);
        parts.ChooseType(13);
        QCOMPARE(dlg.GetOutput(), 3);
        QCOMPARE(chosen.count(), 0);
    }

    void anyOtherTypeKeepsTheOutput()
    {
        const CAddSimulatorDlg dlg(&pHost->window);
        const SParts parts(dlg);
        parts.ChooseOutput(2);

        parts.ChooseType(13);
        parts.ChooseType(14);

        QCOMPARE(dlg.GetOutput(), 2);
        QVERIFY(parts.pOutput->isEnabled());
    }

    void theAnswersAreReadAfterAccepting()
    {
        CAddSimulatorDlg dlg(&pHost->window);
        dlg.show();
        const SParts parts(dlg);
        parts.ChooseOutput(2);
        QTest::keyClick(parts.pCount, Qt::Key_Up);

        QTest::mouseClick(dlg.findChild<QPushButton*>(QStringLiteral("DialogAccept")), Qt::LeftButton);

        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QCOMPARE(dlg.GetType(), 12);
        QCOMPARE(dlg.GetCount(), 2);
        QCOMPARE(dlg.GetOutput(), 2);
        QCOMPARE(pHost->control.Commands(), QStringList());
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
        CAddSimulatorDlg dlg(&pHost->window);
        dlg.show();

        CDialogDriver::Press(&dlg, how);

        QVERIFY(!dlg.isVisible());
        QCOMPARE(dlg.result(), int(QDialog::Rejected));
        QCOMPARE(pHost->control.Commands(), QStringList());
    }

private:
    QScopedPointer<CDialogHost> pHost;
};

PTV_TEST_MAIN(CAddSimulatorDlgTest)
#include "tst_addsimulatordlg.moc"
