#include "CMapTranslator.h"
#include "CScreenReader.h"
#include "TestMain.h"
#include "fixtures/CPanelFixture.h"
#include "interfaces/widgets/CSearchBox.h"
#include "toolbar/CProcessorTreeToolBar.h"
#include "tree/CProcessorTree.h"

#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace {

void Site(SControlAnswers& answers)
{
    answers.nodeDiscovered = Root({}, { Processor("alpha"), Processor("beta") });
    answers.vecDiscoveredSelection = { ProcessorId("alpha") };
}

QAccessibleInterface* Interface(QWidget* pWidget)
{
    return QAccessible::queryAccessibleInterface(pWidget);
}

QString Name(QWidget* pWidget)
{
    return Interface(pWidget)->text(QAccessible::Name);
}

} // namespace

/// What a screen reader finds of the parts of the panel.
class CNamesTest : public QObject
{
    Q_OBJECT

private slots:
    void everyPartHasAName()
    {
        const CPanelFixture panel(Site);
        QCOMPARE(Name(panel.Tree()), QStringLiteral("Discovered processors"));
        QCOMPARE(Name(panel.Tree(true)), QStringLiteral("Simulators"));
        QCOMPARE(Name(panel.DiscoveredTab()), QStringLiteral("Discovered"));
        QCOMPARE(Name(panel.SimulatorTab()), QStringLiteral("Simulator"));
        QCOMPARE(Name(panel.RefreshButton()), QStringLiteral("Refresh"));
        QCOMPARE(Name(panel.CloseSearchButton()), QStringLiteral("Close search box"));
        QCOMPARE(Name(panel.SearchEdit()), QStringLiteral("Search"));
        for (const char* const szButton : { "Menu", "Add group", "Add a processor", "Delete" }) {
            QCOMPARE(Name(panel.ToolButton(szButton)), QString(szButton));
        }
    }

    void theTabsAreAChoiceOfWhichOneIsMade()
    {
        CPanelFixture panel(Site);
        panel.Refresh();
        panel.Click(panel.SimulatorTab());
        for (QPushButton* const pTab : { panel.DiscoveredTab(), panel.SimulatorTab() }) {
            QCOMPARE(Interface(pTab)->role(), QAccessible::RadioButton);
            QVERIFY(Interface(pTab)->state().checkable);
            QCOMPARE(bool(Interface(pTab)->state().checked), pTab == panel.SimulatorTab());
        }
    }

    void namesFollowTheLanguage()
    {
        const CPanelFixture panel(Site);
        const CMapTranslator translator({ { "RowSpeech|Discovered processors", "Gefundene" },
                                          { "RowSpeech|Simulators", "Simulatoren" },
                                          { "CProcessorTreeView|Refresh", "Auffrischen" } });
        QTRY_COMPARE(Name(panel.Tree()), QStringLiteral("Gefundene"));
        QTRY_COMPARE(Name(panel.Tree(true)), QStringLiteral("Simulatoren"));
        QTRY_COMPARE(Name(panel.RefreshButton()), QStringLiteral("Auffrischen"));
    }

    void noNameIsAnnouncedAgainByARefreshOrALanguageWithoutIt()
    {
        CPanelFixture panel(Site);
        panel.Refresh();
        CScreenReader reader;
        panel.Refresh([](SControlAnswers& answers) { answers.bListLocked = true; });
        panel.Refresh([](SControlAnswers& answers) { answers.nodeDiscovered.listProcessor.removeLast(); });
        const CMapTranslator translator({ { "other|text", "anders" } });
        QCoreApplication::sendPostedEvents();
        QCOMPARE(reader.Heard().filter("name: ").join('\n'), QString());
    }

    void aNewNameIsAnnouncedOnce()
    {
        CPanelFixture panel(Site);
        panel.Refresh();
        CScreenReader reader;
        panel.Click(panel.SimulatorTab());
        QCOMPARE(reader.Heard().filter("name: "), QStringList({ "name: Add simulators" }));
    }
};

PTV_TEST_MAIN(CNamesTest)
#include "tst_names.moc"
