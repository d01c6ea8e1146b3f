#include "CMapTranslator.h"
#include "CScreenReader.h"
#include "TestMain.h"
#include "fixtures/CPanelFixture.h"
#include "interfaces/widgets/CSearchBox.h"
#include "toolbar/CProcessorTreeToolBar.h"
#include "tree/CProcessorTree.h"

#include <QApplication>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QThreadPool>
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

/// Two buttons of which one is chosen, on a window of their own.
class CChoice
{
public:
    CChoice()
    {
        window.setLayout(new QHBoxLayout);
        auto* pGroup = new QButtonGroup(&window);
        for (QPushButton* const pButton : { pFirst, pSecond }) {
            pButton->setCheckable(true);
            pGroup->addButton(pButton);
            window.layout()->addWidget(pButton);
        }
        window.show();
    }

    QWidget window;
    QPushButton* pFirst = new QPushButton(&window);
    QPushButton* pSecond = new QPushButton(&window);
};

/// Which of two buttons is chosen, and which has the focus, after a key on one that was chosen and had it.
QString After(Qt::Key key, bool bFirst, QPushButton* pFirst, QPushButton* pSecond)
{
    QPushButton* const pStart = bFirst ? pFirst : pSecond;
    QApplication::setActiveWindow(pStart->window());
    pStart->setChecked(true);
    pStart->setFocus();
    QTest::keyClick(pStart, key);
    const QWidget* const pFocus = QApplication::focusWidget();
    return QStringLiteral("%1 on the %2: chosen %3, focus %4")
        .arg(key)
        .arg(bFirst ? 1 : 2)
        .arg(pFirst->isChecked() ? 1 : 2)
        .arg(pFocus == pFirst        ? 1
                 : pFocus == pSecond ? 2
                                     : 0);
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
        QCOMPARE(Name(panel.DiscoveredTab()->parentWidget()), QStringLiteral("Panes"));
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

    // As a pair of buttons of one group that are no radio buttons to a screen reader.
    void theTabsTakeClicksAndKeysAsAnyButtonsOfWhichOneIsChosen()
    {
        CPanelFixture panel(Site);
        panel.Refresh();
        QApplication::setActiveWindow(&panel.host);
        QVERIFY(QTest::qWaitForWindowActive(&panel.host));
        const CChoice choice;
        for (const Qt::Key key : { Qt::Key_Right, Qt::Key_Left, Qt::Key_Down, Qt::Key_Up, Qt::Key_Space }) {
            for (const bool bFirst : { true, false }) {
                const QString strTabs = After(key, bFirst, panel.DiscoveredTab(), panel.SimulatorTab());
                QCOMPARE(strTabs, After(key, bFirst, choice.pFirst, choice.pSecond));
            }
        }
    }

    void namesFollowTheLanguage()
    {
        const CPanelFixture panel(Site);
        const CMapTranslator translator({ { "CProcessorTree|Discovered processors", "Gefundene" },
                                          { "CProcessorTree|Simulators", "Simulatoren" },
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
        const CMapTranslator translatorRefresh({ { "CProcessorTreeView|Refresh", "Auffrischen" } });
        QCoreApplication::sendPostedEvents();
        QCOMPARE(reader.Heard().filter("name: "), QStringList({ "name: Auffrischen" }));
    }

    void whatChangesDuringAScanIsSaidAtItsEnd()
    {
        CPanelFixture panel(Site);
        panel.Refresh();
        QApplication::setActiveWindow(&panel.host);
        panel.Tree()->setFocus();
        QCoreApplication::processEvents();
        panel.control.Hold(QStringLiteral("RefreshProcessors"));
        panel.Click(panel.RefreshButton());
        QVERIFY(panel.control.WaitForHeld(QStringLiteral("RefreshProcessors")));
        CScreenReader reader;
        panel.Refresh([](SControlAnswers& answers) { answers.nodeDiscovered.listProcessor.first().bOnline = true; });
        QCoreApplication::processEvents();
        QCOMPARE(reader.Heard().filter("alpha"), QStringList());
        panel.control.Release(QStringLiteral("RefreshProcessors"));
        QTRY_COMPARE(reader.Heard().filter("alpha"), QStringList({ "focus: alpha, online / 127.0.0.1" }));
        QVERIFY(QThreadPool::globalInstance()->waitForDone(nPatience));
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
