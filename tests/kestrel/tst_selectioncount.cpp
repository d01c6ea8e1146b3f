#include "CListWindow.h"
#include "Kestrel/player/PanelAccess.h"
#include "Kestrel/status/CPanelCounts.h"
#include "Kestrel/status/CountText.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTreeView>

Q_DECLARE_METATYPE(SPanelCounts)

namespace {

const QString strCount = QStringLiteral("CountBadge");

/// Opens the panel's search and types.
void Search(const CListWindow& kestrel, const QString& strText)
{
    QWidget* pPanel = kestrel.pPanel->GetWidget();
    QLineEdit* pEdit = PanelAccess::FindSearchEdit(pPanel);
    if (!pEdit->isVisible()) {
        PanelAccess::FindAction(pPanel, "CProcessorTreeToolBar", "Search")->trigger();
    }
    PanelAccess::TypeText(pEdit, strText);
}

} // namespace

/// How many rows the status bar counts.
class CSelectionCountTest : public QObject
{
    Q_OBJECT

private slots:
    void theRootCountsAsNothing()
    {
        CListWindow kestrel;
        kestrel.Select({ "Wall 1" });
        QTRY_VERIFY(kestrel.Label(strCount, "1 processor selected"));

        PanelAccess::ClickRow(kestrel.Tree(), kestrel.Tree()->model()->index(0, 0), Qt::NoModifier);
        QTRY_VERIFY(!kestrel.Label(strCount, ""));
    }

    void processorsAndGroupsAreCounted()
    {
        CListWindow kestrel;
        kestrel.Select({ "Wall 1", "Door 1", "Door 2" });
        QTRY_VERIFY(kestrel.Label(strCount, "3 processors selected"));

        kestrel.Select({ "Main stage", "Wall 1" });
        QTRY_VERIFY(kestrel.Label(strCount, "1 group and 1 processor selected"));

        kestrel.Select({ "Empty" });
        QTRY_VERIFY(kestrel.Label(strCount, "1 group selected"));
    }

    void aFullPaneIsCounted()
    {
        CListWindow kestrel;
        kestrel.AndShown([] { QCOMPARE(g_pPrcListControl->ImportList(BUILT_FOLDER "/limits.kvtl"), 0); });

        kestrel.Action("Select all")->trigger();

        // The other 64 of the 256 are simulators, in the pane behind.
        QTRY_VERIFY(kestrel.Label(strCount, "256 groups and 192 processors selected"));
    }

    void informationRowsAreNoProcessors()
    {
        CListWindow kestrel;
        kestrel.Tree()->expand(kestrel.Row("Door 1"));
        kestrel.Select({ "Door 1" });
        PanelAccess::ClickRow(kestrel.Tree(), kestrel.Row("Door 2"), Qt::ShiftModifier);
        QCOMPARE(kestrel.Tree()->selectionModel()->selectedIndexes().size(), 3);
        QTRY_VERIFY(kestrel.Label(strCount, "2 processors selected"));
    }

    void aSearchSaysWhatItFoundAndHides()
    {
        CListWindow kestrel;
        kestrel.Select({ "Wall 1", "Door 1", "Door 2" });

        Search(kestrel, "Door");
        QTRY_VERIFY(kestrel.Label(strCount, "3 of 7 processors found"));
        QTRY_VERIFY(kestrel.Label(strCount, "3 processors selected, 1 of them hidden by the search"));

        Search(kestrel, "Door 3");
        QTRY_VERIFY(kestrel.Label(strCount, "1 of 7 processors found"));
        QTRY_VERIFY(kestrel.Label(strCount, "3 processors selected, 3 of them hidden by the search"));

        PanelAccess::FindSearchEdit(kestrel.pPanel->GetWidget())->clear();
        QTRY_VERIFY(!kestrel.Label(strCount, "1 of"));
        QTRY_VERIFY(kestrel.Label(strCount, "3 processors selected"));
    }

    void aGroupThatIsFoundForItselfCounts()
    {
        CListWindow kestrel;
        Search(kestrel, "Empty");
        QTRY_VERIFY(kestrel.Label(strCount, "0 of 7 processors and 1 group found"));
        Search(kestrel, "Wall 1"); // its group is shown for its sake
        QTRY_VERIFY(kestrel.Label(strCount, "1 of 7 processors found"));
    }

    void theCountFollowsTheList()
    {
        CListWindow kestrel;
        Search(kestrel, "Door");
        QTRY_VERIFY(kestrel.Label(strCount, "3 of 7 processors found"));
        kestrel.Select({ "Door 3" });
        kestrel.Tree()->setFocus();
        kestrel.Key(Qt::Key_Delete);
        QTRY_VERIFY(kestrel.Label(strCount, "2 of 6 processors found"));
    }

    void theOtherPaneHasItsOwnCount()
    {
        CListWindow kestrel;
        kestrel.Select({ "Door 1", "Door 2" });
        QTRY_VERIFY(kestrel.Label(strCount, "2 processors selected"));
        PanelAccess::FindTab(kestrel.pPanel->GetWidget(), true)->click();
        QTRY_VERIFY(!kestrel.Label(strCount, ""));
        PanelAccess::FindTab(kestrel.pPanel->GetWidget(), false)->click();
        QTRY_VERIFY(kestrel.Label(strCount, "2 processors selected"));
    }

    void manySignalsOfATurnAreOneCount()
    {
        CListWindow kestrel;
        CPanelCounts counts(kestrel.pPanel->GetWidget());
        QSignalSpy spyCounted(&counts, &CPanelCounts::Counted);
        QTRY_COMPARE(spyCounted.size(), 1);
        kestrel.Select({ "Wall 1", "Door 1", "Door 2", "Wall 2" });
        QCOMPARE(spyCounted.size(), 1);
        QCoreApplication::processEvents();
        QCOMPARE(spyCounted.size(), 2);
        QCOMPARE(counts.GetCounts().nProcessorsSelected, 4);
    }

    void theCountFollowsTheLanguage()
    {
        CListWindow kestrel;
        kestrel.Select({ "Door 1", "Door 2" });
        QTRY_VERIFY(kestrel.Label(strCount, "2 processors selected"));
        kestrel.language.Set("de");
        QTRY_VERIFY(kestrel.Label(strCount, "2 Prozessoren ausgewählt"));
        kestrel.language.Set("zh_CN");
        QTRY_VERIFY(kestrel.Label(strCount, QStringLiteral("已选 2 台处理器")));
    }

    void theWordsFitTheNumbers_data()
    {
        QTest::addColumn<SPanelCounts>("counts");
        QTest::addColumn<QString>("strSelected");
        QTest::addColumn<QString>("strFound");
        QTest::newRow("nothing") << SPanelCounts() << "" << "";
        QTest::newRow("one hidden") << SPanelCounts{ 0, 1, 1, true, 0, 1 } << "1 processor selected, hidden by the search"
                                    << "0 of 1 processor found";
        QTest::newRow("a hidden group") << SPanelCounts{ 2, 0, 1, true, 12, 256 }
                                        << "2 groups selected, 1 of them hidden by the search" << "12 of 256 processors found";
    }

    void theWordsFitTheNumbers()
    {
        QFETCH(SPanelCounts, counts);
        QFETCH(QString, strSelected);
        QFETCH(QString, strFound);
        CLanguage language;
        language.Set("en");
        QCOMPARE(CountText::GetSelected(counts), strSelected);
        QCOMPARE(CountText::GetFound(counts), strFound);
    }
};

PTV_TEST_MAIN(CSelectionCountTest)
#include "tst_selectioncount.moc"
