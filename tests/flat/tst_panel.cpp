#include "CFlatPanel.h"
#include "CMapTranslator.h"
#include "CMenuDriver.h"
#include "Flatness.h"
#include "TestMain.h"
#include "shell/CProcessorTreeView.h"
#include "tree/CProcessorTree.h"

#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>

namespace {

/// Something that a user or a host does again and again, and how often it is done here: for years, and in a quick run.
struct SHabit
{
    const char* szName;
    int nYears;
    int nDay;
    std::function<void(CFlatPanel&)> fnDo;
};

QList<SHabit> Messages()
{
    return {
        { "a message", 100000, 1500, [](CFlatPanel& user) { user.ReadNews(); } },
        { "a refresh by its button", 10000, 400,
          [](CFlatPanel& user) {
              user.panel.Click(user.panel.RefreshButton());
              user.AwaitJob();
          } },
        { "the host updates", 10000, 400,
          [](CFlatPanel& user) {
              user.panel.View()->UpdateTreeToolbar();
              user.panel.pWidget->UpdateWidget();
          } },
    };
}

QList<SHabit> Menus()
{
    return {
        { "a menu that is closed", 10000, 200,
          [](CFlatPanel& user) { user.OpenMenu({ "loose" }, [](QMenu* pMenu) { pMenu->close(); }); } },
        { "a menu of which an entry of the sub-menu is chosen", 10000, 200,
          [](CFlatPanel& user) { user.Choose({ "loose" }, { "Move to group", "Hall" }); } },
        { "members that leave their group", 10000, 200,
          [](CFlatPanel& user) { user.Choose({ "alpha", "loose" }, { "Remove from group" }); } },
        { "the menu of the tool bar", 10000, 200,
          [](CFlatPanel& user) {
              const CMenuDriver driver([](QMenu* pMenu) { pMenu->close(); });
              user.ClickButton("Menu");
              QVERIFY(driver.HasActed());
          } },
    };
}

QList<SHabit> Editors()
{
    return {
        { "an editor that commits", 10000, 200,
          [](CFlatPanel& user) {
              user.Click("Stage");
              user.Press(Qt::Key_F2);
              user.Type("Roof");
          } },
        { "an editor that is left", 10000, 200,
          [](CFlatPanel& user) {
              user.Click("Stage");
              user.Press(Qt::Key_F2);
              user.Click("Hall");
          } },
        { "an editor whose row is built anew", 10000, 200,
          [](CFlatPanel& user) {
              user.Click("Stage");
              user.Press(Qt::Key_F2);
              user.panel.Tree()->RefreshTree();
          } },
        { "a search", 10000, 200,
          [](CFlatPanel& user) {
              user.Trigger("Search");
              QTest::keyClicks(user.panel.SearchEdit(), "al");
              user.panel.Click(user.panel.CloseSearchButton());
          } },
    };
}

QList<SHabit> Dialogs()
{
    return {
        { "a processor that is added", 1000, 50,
          [](CFlatPanel& user) {
              user.Answer({ "DialogAccept" }, [&] { user.ClickButton("Add a processor"); });
              user.AwaitJob();
          } },
        { "a dialog that is closed", 1000, 50,
          [](CFlatPanel& user) { user.Answer({ "key Escape" }, [&] { user.ClickButton("Add a processor"); }); } },
        { "simulators that are added", 1000, 50,
          [](CFlatPanel& user) {
              user.panel.Click(user.panel.SimulatorTab());
              user.panel.Refresh();
              user.Answer({ "DialogAccept" }, [&] { user.ClickButton("Add simulators"); });
              user.panel.Click(user.panel.DiscoveredTab());
              user.panel.Refresh();
          } },
        { "a deletion", 1000, 50,
          [](CFlatPanel& user) {
              user.Click("loose");
              user.Answer({ "Yes" }, [&] { user.ClickButton("Delete"); });
              user.AwaitJob();
          } },
        { "an import", 1000, 50,
          [](CFlatPanel& user) {
              user.Answer({ "ButtonYes", user.strFile, "ButtonOk" }, [&] {
                  user.Trigger("Import");
                  user.AwaitJob();
              });
          } },
        { "an export", 1000, 50,
          [](CFlatPanel& user) { user.Answer({ user.strFile, "Yes", "OK" }, [&] { user.Trigger("Export"); }); } },
    };
}

QList<SHabit> Hands()
{
    return {
        { "a selection", 10000, 400,
          [](CFlatPanel& user) {
              user.Click("alpha");
              user.Click("loose", Qt::ControlModifier);
              user.Press(Qt::Key_A, Qt::ControlModifier);
              user.Press(Qt::Key_Down);
          } },
        { "rows that are folded", 10000, 400,
          [](CFlatPanel& user) {
              user.panel.Tree()->collapse(user.Row("Stage"));
              user.panel.Tree()->expand(user.Row("Stage"));
              user.panel.Refresh();
          } },
        { "the other pane", 10000, 200,
          [](CFlatPanel& user) {
              user.panel.Click(user.Round() % 2 == 1 ? user.panel.SimulatorTab() : user.panel.DiscoveredTab());
              user.panel.Refresh();
          } },
        { "a drop", 1000, 200, [](CFlatPanel& user) { user.Drop("loose", "Hall"); } },
        { "a tip", 1000, 50, [](CFlatPanel& user) { user.ShowTip(CFlatPanel::szLongName); } },
        { "another size, and a look", 1000, 200,
          [](CFlatPanel& user) {
              user.panel.host.resize(300 + user.Round() % 2 * 50, 100 + user.Round() % 2 * 400);
              user.panel.Tree()->verticalScrollBar()->setValue(user.Round() % 2 * 40);
              QVERIFY(!user.panel.host.grab().isNull());
          } },
        { "another language", 1000, 50,
          [](CFlatPanel& user) {
              const CMapTranslator translator({ { "CProcessorTreeToolBar|Delete", "Weg" } });
              QCoreApplication::processEvents();
              QVERIFY(user.panel.ToolButton("Weg"));
          } },
    };
}

} // namespace

/// What the panel holds after years of use: a growth with each message, menu, editor, dialog or drop would show.
class CPanelTest : public QObject
{
    Q_OBJECT

private slots:
    void nothingGrows_data()
    {
        QTest::addColumn<int>("nHabit");
        for (int n = 0; n < listHabit.size(); ++n) {
            QTest::newRow(listHabit[n].szName) << n;
        }
    }

    void nothingGrows()
    {
        QFETCH(int, nHabit);
        const SHabit& habit = listHabit[nHabit];
        CFlatPanel user;
        const int nRounds = Flatness::CountRounds(habit.nYears, habit.nDay);
        QCOMPARE(Flatness::FindGrowth(nRounds, [&] { user.Do(habit.fnDo); }), QString());
    }

    void nothingGrowsWithPanelsThatComeAndGo()
    {
        const auto live = [] {
            CFlatPanel user;
            user.Click("loose");
            QVERIFY(!user.panel.host.grab().isNull());
        };
        QCOMPARE(Flatness::FindGrowth(Flatness::CountRounds(1000, 50), live), QString());
    }

private:
    const QList<SHabit> listHabit = Messages() + Menus() + Editors() + Dialogs() + Hands();
};

PTV_TEST_MAIN(CPanelTest)
#include "tst_panel.moc"
