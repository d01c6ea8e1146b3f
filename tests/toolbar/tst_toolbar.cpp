#include "CMapTranslator.h"
#include "CMenuDriver.h"
#include "IconColour.h"
#include "TestMain.h"
#include "fixtures/CStoreFixture.h"
#include "interfaces/widgets/CIconButton.h"
#include "interfaces/widgets/CMenu.h"
#include "toolbar/CProcessorTreeToolBar.h"

#include <QAction>
#include <QHBoxLayout>
#include <QSignalSpy>

#include <utility>

namespace {

const char szImport[] = ":/image/projectManage/importProject/importProject.svg";
const char szImportDisabled[] = ":/image/projectManage/importProject/importProjectDisable.svg";
const char szExport[] = ":/image/projectManage/exportProject/exportProject.svg";
const char szExportDisabled[] = ":/image/projectManage/exportProject/exportProjectDisable.svg";

QColor CentreColour(const QIcon& icon, QIcon::Mode mode = QIcon::Normal)
{
    const QImage image = icon.pixmap(28, 28, mode).toImage();
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

SProcessorAllNode Processors(int nCount)
{
    SProcessorAllNode tree;
    for (int i = 0; i < nCount; ++i) {
        tree.listProcessor.append(SProcessorNode());
    }
    return tree;
}

/// The root for an empty name.
std::vector<QUuid> ProcessorIds(const QStringList& listName)
{
    std::vector<QUuid> vecId;
    for (const QString& strName : listName) {
        vecId.push_back(strName.isEmpty() ? QUuid() : ProcessorId(strName));
    }
    return vecId;
}

/// Nothing can be done there: against a usual Discovered pane each state changes, and the tip of Add.
void FullSimulatorPane(SControlAnswers& answers)
{
    answers.bSimulatorPane = true;
    answers.nodeSimulator = Processors(2);
    for (int i = 0; i < 256; ++i) {
        answers.nodeSimulator.listGroup.append(SProcessorGroupNode());
    }
    answers.vecSimulatorSelection = { QUuid() };
}

/// Writes down what changes at buttons and menu entries, in its order.
class CChangeLog : public QObject
{
public:
    void Watch(QWidget* pButton, const QString& strName)
    {
        pButton->setObjectName(strName);
        pButton->installEventFilter(this);
    }

    void Watch(QAction* pAction, const QString& strName)
    {
        connect(pAction, &QAction::changed, this, [this, pAction, strName, bEnabled = pAction->isEnabled()]() mutable {
            const bool bState = std::exchange(bEnabled, pAction->isEnabled()) != pAction->isEnabled();
            listChange.append(strName + QStringLiteral(": ") + (bState ? "state" : "icon"));
        });
    }

    QStringList Changes() const
    {
        return listChange;
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ToolTipChange) {
            listChange.append(watched->objectName() + QStringLiteral(": tip"));
        } else if (event->type() == QEvent::EnabledChange) {
            listChange.append(watched->objectName() + QStringLiteral(": state"));
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QStringList listChange;
};

} // namespace

/// The strip of buttons under the trees.
class CToolBarTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CStoreFixture);
        pHost.reset(new QWidget);
        pHost->setStyleSheet(QStringLiteral("QToolButton { border: none }"));
        pToolBar = new CProcessorTreeToolBar(pHost.data());
        (new QVBoxLayout(pHost.data()))->addWidget(pToolBar);
        pHost->show();
        QVERIFY(QTest::qWaitForWindowExposed(pHost.data()));
    }

    void cleanup()
    {
        pHost.reset();
        pFixture.reset();
    }

    void theStripHasItsNameHeightAndStyleSheet()
    {
        QCOMPARE(pToolBar->objectName(), QStringLiteral("ProcessorTreeToolBar"));
        QCOMPARE(pToolBar->minimumHeight(), 32);
        QCOMPARE(pToolBar->maximumHeight(), 32);
        QCOMPARE(pToolBar->styleSheet(), QStringLiteral("QToolButton { border: none }"));
    }

    void theStripShowsNoText()
    {
        QVERIFY(qobject_cast<QLabel*>(pToolBar));
        QCOMPARE(pToolBar->text(), QString());
    }

    void buttonsStandFromLeftToRight()
    {
        const auto* pLayout = qobject_cast<QHBoxLayout*>(pToolBar->layout());
        QVERIFY(pLayout);

        QCOMPARE(pLayout->contentsMargins(), QMargins(2, 2, 2, 2));
        QCOMPARE(pLayout->spacing(), 4);
        QCOMPARE(pLayout->count(), 5);
        QCOMPARE(pLayout->itemAt(0)->widget(), Button(ToolBarMenu));
        QVERIFY(pLayout->itemAt(1)->spacerItem());
        QCOMPARE(pLayout->itemAt(2)->widget(), Button(ToolBarAddGroup));
        QCOMPARE(pLayout->itemAt(3)->widget(), Button(ToolBarAddProcessor));
        QCOMPARE(pLayout->itemAt(4)->widget(), Button(ToolBarDelete));
        QCOMPARE(Button(ToolBarMenu)->x(), 2);
        QCOMPARE(Button(ToolBarDelete)->geometry().right(), pToolBar->width() - 3);
    }

    void buttonsHaveTipAndIcons_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QString>("icon");
        const auto path = [](const char* szFolder) { return QStringLiteral(":/image/%1/").arg(QString::fromLatin1(szFolder)); };
        QTest::newRow("menu") << int(ToolBarMenu) << "Menu" << path("control/hamburgeMenu");
        QTest::newRow("add group") << int(ToolBarAddGroup) << "Add group" << path("treeView/toolBar/addGroup");
        QTest::newRow("add") << int(ToolBarAddProcessor) << "Add a processor" << path("treeView/toolBar/addProc");
        QTest::newRow("delete") << int(ToolBarDelete) << "Delete" << path("treeView/toolBar/delete");
    }

    void buttonsHaveTipAndIcons()
    {
        QFETCH(int, id);
        QFETCH(QString, icon);
        const CIconButton* pButton = Button(id);

        QTEST(pButton->toolTip(), "tip");
        QCOMPARE(pButton->minimumSize(), QSize(28, 28));
        QCOMPARE(pButton->maximumSize(), QSize(28, 28));
        QCOMPARE(pButton->iconSize(), QSize(28, 28));
        QCOMPARE(CentreColour(pButton->icon(), QIcon::Normal), IconColour(icon + QStringLiteral("normal.svg")));
        QCOMPARE(CentreColour(pButton->icon(), QIcon::Disabled), IconColour(icon + QStringLiteral("disable.svg")));
    }

    void theMenuHoldsSearchImportExport()
    {
        const QMenu* pMenu = Button(ToolBarMenu)->menu();
        QVERIFY(qobject_cast<const CMenu*>(pMenu));
        QCOMPARE(pMenu->parent(), pToolBar);

        QCOMPARE(pMenu->actions().size(), 4);
        QCOMPARE(pMenu->actions().at(0), Action(ToolBarSearch));
        QVERIFY(pMenu->actions().at(1)->isSeparator());
        QCOMPARE(pMenu->actions().at(2), Action(ToolBarImport));
        QCOMPARE(pMenu->actions().at(3), Action(ToolBarExport));
        QCOMPARE(Action(ToolBarSearch)->text(), QStringLiteral("Search"));
        QCOMPARE(Action(ToolBarImport)->text(), QStringLiteral("Import"));
        QCOMPARE(Action(ToolBarExport)->text(), QStringLiteral("Export"));
        QCOMPARE(CentreColour(Action(ToolBarSearch)->icon()), IconColour(":/image/control/searchBox/search.svg"));
    }

    void theMenuButtonOpensItsMenuAtOnce()
    {
        CIconButton* pButton = Button(ToolBarMenu);
        QCOMPARE(pButton->popupMode(), QToolButton::InstantPopup);
        QCOMPARE(pButton->property("MenuIndicator"), QVariant(QStringLiteral("None")));
        bool bMarked = false;
        const CMenuDriver menuDriver([&](QMenu* pMenu) {
            bMarked = pButton->property("MenuOpen").toBool();
            pMenu->close();
        });

        QTest::mouseClick(pButton, Qt::LeftButton);

        QVERIFY(menuDriver.HasActed());
        QVERIFY(bMarked);
        QVERIFY(!pButton->menu()->isVisible());
    }

    void aClickSendsTheIdOfItsButton_data()
    {
        QTest::addColumn<int>("id");
        QTest::newRow("add group") << 1;
        QTest::newRow("add") << 2;
        QTest::newRow("delete") << 3;
    }

    void aClickSendsTheIdOfItsButton()
    {
        QFETCH(int, id);
        SelectNodes({ ProcessorId("alpha") });
        QSignalSpy commands(pToolBar, &CProcessorTreeToolBar::SignalToolBar);

        QTest::mouseClick(Button(id), Qt::LeftButton);

        QCOMPARE(commands.count(), 1);
        QCOMPARE(commands.first(), QVariantList({ id }));
    }

    void aMenuEntrySendsItsId_data()
    {
        QTest::addColumn<int>("id");
        QTest::newRow("search") << 5;
        QTest::newRow("import") << 6;
        QTest::newRow("export") << 7;
    }

    void aMenuEntrySendsItsId()
    {
        QFETCH(int, id);
        g_pProcessorTreeData->SetCurrentTree(Processors(1));
        pToolBar->UpdateToolBarState();
        QSignalSpy commands(pToolBar, &CProcessorTreeToolBar::SignalToolBar);
        QMenu* pMenu = Button(ToolBarMenu)->menu();
        pMenu->popup(pToolBar->mapToGlobal(QPoint(0, 0)));

        QTest::mouseClick(pMenu, Qt::LeftButton, Qt::NoModifier, pMenu->actionGeometry(Action(id)).center());

        QCOMPARE(commands.count(), 1);
        QCOMPARE(commands.first(), QVariantList({ id }));
        QVERIFY(!pMenu->isVisible());
    }

    void theMenuButtonSendsNothing()
    {
        QSignalSpy commands(pToolBar, &CProcessorTreeToolBar::SignalToolBar);
        QMenu* pMenu = Button(ToolBarMenu)->menu();
        connect(pMenu, &QMenu::aboutToShow, pMenu, &QMenu::close, Qt::QueuedConnection);

        QTest::mouseClick(Button(ToolBarMenu), Qt::LeftButton);
        emit Button(ToolBarMenu)->clicked();

        QCOMPARE(commands.count(), 0);
    }

    void aDisabledButtonSendsNothing()
    {
        SelectNodes({ QUuid() });
        QVERIFY(!Button(ToolBarDelete)->isEnabled());
        QSignalSpy commands(pToolBar, &CProcessorTreeToolBar::SignalToolBar);

        QTest::mouseClick(Button(ToolBarDelete), Qt::LeftButton);

        QCOMPARE(commands.count(), 0);
    }

    void theStateIsRightFromTheStart()
    {
        g_pProcessorTreeData->SetCurrentTree(Processors(256));
        QWidget host;

        const CProcessorTreeToolBar toolBar(&host);

        QVERIFY(!toolBar.findChildren<CIconButton*>(QString(), Qt::FindDirectChildrenOnly).at(ToolBarAddProcessor)->isEnabled());
    }

    void nothingIsUpdatedUnasked()
    {
        g_pProcessorTreeData->SetCurrentTree(Processors(256));
        emit g_pProcessorTreeData->NotifyButton();
        QCoreApplication::processEvents();
        QVERIFY(Button(ToolBarAddProcessor)->isEnabled());

        pToolBar->UpdateToolBarState();

        QVERIFY(!Button(ToolBarAddProcessor)->isEnabled());
    }

    void addIsNamedAfterThePane()
    {
        g_pProcessorTreeData->SetSimulatorPane(true);
        pToolBar->UpdateToolBarState();
        QCOMPARE(Button(ToolBarAddProcessor)->toolTip(), QStringLiteral("Add simulators"));

        g_pProcessorTreeData->SetSimulatorPane(false);
        pToolBar->UpdateToolBarState();
        QCOMPARE(Button(ToolBarAddProcessor)->toolTip(), QStringLiteral("Add a processor"));
    }

    void buttonsFollowTheCurrentPane_data()
    {
        QTest::addColumn<int>("discovered");
        QTest::addColumn<int>("simulators");
        QTest::addColumn<bool>("simulatorPane");
        QTest::addColumn<bool>("add");
        QTest::addColumn<bool>("import");
        QTest::addColumn<bool>("export_");
        QTest::newRow("Discovered full, Simulator empty") << 256 << 0 << false << false << true << true;
        QTest::newRow("Discovered empty, Simulator full") << 0 << 2 << true << false << false << false;
    }

    void buttonsFollowTheCurrentPane()
    {
        QFETCH(int, discovered);
        QFETCH(int, simulators);
        QFETCH(bool, simulatorPane);
        g_pProcessorTreeData->SetCurrentTree(Processors(discovered));
        g_pProcessorTreeData->SetSimulatorPane(true);
        g_pProcessorTreeData->SetCurrentTree(Processors(simulators));
        g_pProcessorTreeData->SetSimulatorPane(simulatorPane);

        pToolBar->UpdateToolBarState();

        QTEST(Button(ToolBarAddProcessor)->isEnabled(), "add");
        QTEST(Action(ToolBarImport)->isEnabled(), "import");
        QTEST(Action(ToolBarExport)->isEnabled(), "export_");
        QVERIFY(Button(ToolBarAddGroup)->isEnabled());
    }

    void importAndExportShowTheirStateByTheirIcons()
    {
        g_pProcessorTreeData->SetCurrentTree(Processors(1));
        pToolBar->UpdateToolBarState();
        QCOMPARE(CentreColour(Action(ToolBarImport)->icon()), IconColour(QString::fromLatin1(szImport)));
        QCOMPARE(CentreColour(Action(ToolBarExport)->icon()), IconColour(QString::fromLatin1(szExport)));

        g_pProcessorTreeData->SetSimulatorPane(true);
        pToolBar->UpdateToolBarState();
        QCOMPARE(CentreColour(Action(ToolBarImport)->icon()), IconColour(QString::fromLatin1(szImportDisabled)));
        QCOMPARE(CentreColour(Action(ToolBarExport)->icon()), IconColour(QString::fromLatin1(szExportDisabled)));
    }

    void iconsFollowAllStatesAndDeleteComesLast()
    {
        g_pProcessorTreeData->SetCurrentTree(Processors(1));
        SelectNodes({ ProcessorId("alpha") });
        pFixture->Change(FullSimulatorPane);
        CChangeLog log;
        log.Watch(Button(ToolBarAddProcessor), "Add");
        log.Watch(Action(ToolBarImport), "Import");
        log.Watch(Action(ToolBarExport), "Export");
        log.Watch(Button(ToolBarAddGroup), "Add group");
        log.Watch(Button(ToolBarDelete), "Delete");

        pToolBar->UpdateToolBarState();

        QCOMPARE(log.Changes(),
                 QStringList({ "Add: tip", "Add: state", "Import: state", "Export: state", "Add group: state", "Import: icon",
                               "Export: icon", "Delete: state" }));
    }

    void aLockedListDoesNotShowInTheSimulatorPane()
    {
        pFixture->Change([](SControlAnswers& answers) {
            answers.bListLocked = true;
            answers.bSimulatorPane = true;
        });
        pToolBar->UpdateToolBarState();

        QVERIFY(g_pProcessorTreeData->IsListLocked());
        QVERIFY(!Action(ToolBarImport)->isEnabled());
        QVERIFY(!Action(ToolBarExport)->isEnabled());
        QVERIFY(Button(ToolBarAddProcessor)->isEnabled());
        QVERIFY(Button(ToolBarAddGroup)->isEnabled());
    }

    void menuAndSearchAreNeverDisabled()
    {
        pFixture->Change([](SControlAnswers& answers) {
            answers.bListLocked = true;
            answers.bRefreshBlocked = true;
            answers.bSimulatorPane = true;
            answers.nodeSimulator = Processors(2);
        });
        pToolBar->UpdateToolBarState();

        QVERIFY(Button(ToolBarMenu)->isEnabled());
        QVERIFY(Action(ToolBarSearch)->isEnabled());
    }

    void deleteFollowsTheSelection_data()
    {
        QTest::addColumn<QStringList>("selected");
        QTest::addColumn<bool>("locked");
        QTest::addColumn<bool>("enabled");
        const QString strRoot;
        QTest::newRow("nothing") << QStringList() << false << false;
        QTest::newRow("root") << QStringList({ strRoot }) << false << false;
        QTest::newRow("one") << QStringList({ "alpha" }) << false << true;
        QTest::newRow("one, locked") << QStringList({ "alpha" }) << true << false;
        QTest::newRow("one that is blocked") << QStringList({ "blocked" }) << false << false;
        QTest::newRow("one that is in use") << QStringList({ "used" }) << false << true;
        QTest::newRow("two") << QStringList({ "alpha", "beta" }) << false << true;
        QTest::newRow("two, locked") << QStringList({ "alpha", "beta" }) << true << false;
        QTest::newRow("two, one in use") << QStringList({ "alpha", "used" }) << false << false;
        QTest::newRow("two, one blocked") << QStringList({ "alpha", "blocked" }) << false << true;
        QTest::newRow("root and one") << QStringList({ strRoot, "alpha" }) << false << true;
        QTest::newRow("root and one in use") << QStringList({ strRoot, "used" }) << false << false;
    }

    void deleteFollowsTheSelection()
    {
        QFETCH(QStringList, selected);
        QFETCH(bool, locked);
        pFixture->Change([&](SControlAnswers& answers) {
            answers.vecDiscoveredSelection = ProcessorIds(selected);
            answers.bListLocked = locked;
            answers.setDeleteBlocked = { ProcessorId("blocked") };
            answers.setInUse = { ProcessorId("used") };
        });

        pToolBar->UpdateToolBarState();

        QTEST(Button(ToolBarDelete)->isEnabled(), "enabled");
    }

    void deleteAsksTheLibrary_data()
    {
        QTest::addColumn<QStringList>("selected");
        QTest::addColumn<bool>("locked");
        QTest::addColumn<QStringList>("calls");
        const QString strBlocked = QStringLiteral("g_pRuntimeControl.IsDeleteBlocked(%1)");
        const QString strInUse = QStringLiteral("g_pRuntimeControl.IsNodeInUse(%1)");
        QTest::newRow("nothing") << QStringList() << false << QStringList();
        QTest::newRow("root alone") << QStringList({ QString() }) << false << QStringList();
        QTest::newRow("one") << QStringList({ "alpha" }) << false << QStringList({ strBlocked.arg("alpha") });
        QTest::newRow("one, locked") << QStringList({ "alpha" }) << true << QStringList();
        QTest::newRow("two") << QStringList({ "alpha", "beta" }) << false
                             << QStringList({ strInUse.arg("alpha"), strInUse.arg("beta") });
        QTest::newRow("two, locked") << QStringList({ "alpha", "beta" }) << true
                                     << QStringList({ strInUse.arg("alpha"), strInUse.arg("beta") });
        QTest::newRow("stops at the first in use")
            << QStringList({ "alpha", "used", "beta" }) << false << QStringList({ strInUse.arg("alpha"), strInUse.arg("used") });
        QTest::newRow("root in front is asked for too")
            << QStringList({ QString(), "alpha" }) << false << QStringList({ strInUse.arg("{null}"), strInUse.arg("alpha") });
    }

    void deleteAsksTheLibrary()
    {
        QFETCH(QStringList, selected);
        QFETCH(bool, locked);
        pFixture->Change([&](SControlAnswers& answers) {
            answers.vecDiscoveredSelection = ProcessorIds(selected);
            answers.bListLocked = locked;
            answers.setInUse = { ProcessorId("used") };
        });
        pFixture->control.ClearJournal();

        pToolBar->UpdateToolBarState();

        QTEST(pFixture->control.Calls(), "calls");
    }

    void beforeTheFirstRefreshDeleteAsksForAnIdOfNoNode()
    {
        pFixture->control.ClearJournal();

        pToolBar->UpdateToolBarState();

        QCOMPARE(pFixture->control.CallCount(QStringLiteral("IsDeleteBlocked")), 1);
        QVERIFY(Button(ToolBarDelete)->isEnabled());
    }

    void aNewLanguageRetextsButtonsAndEntries()
    {
        const QHash<QString, QString> hashGerman = { { "CProcessorTreeToolBar|Menu", "Menü" },
                                                     { "CProcessorTreeToolBar|Add group", "Neue Gruppe" },
                                                     { "CProcessorTreeToolBar|Add a processor", "Neuer Prozessor" },
                                                     { "CProcessorTreeToolBar|Delete", "Löschen" },
                                                     { "CProcessorTreeToolBar|Search", "Suchen" },
                                                     { "CProcessorTreeToolBar|Import", "Einlesen" },
                                                     { "CProcessorTreeToolBar|Export", "Ausgeben" } };

        const CMapTranslator german(hashGerman);

        QTRY_COMPARE(Button(ToolBarMenu)->toolTip(), QStringLiteral("Menü"));
        QCOMPARE(Button(ToolBarAddGroup)->toolTip(), QStringLiteral("Neue Gruppe"));
        QCOMPARE(Button(ToolBarAddProcessor)->toolTip(), QStringLiteral("Neuer Prozessor"));
        QCOMPARE(Button(ToolBarDelete)->toolTip(), QStringLiteral("Löschen"));
        QCOMPARE(Action(ToolBarSearch)->text(), QStringLiteral("Suchen"));
        QCOMPARE(Action(ToolBarImport)->text(), QStringLiteral("Einlesen"));
        QCOMPARE(Action(ToolBarExport)->text(), QStringLiteral("Ausgeben"));
    }

    void aNewLanguageForgetsThePaneUntilTheNextUpdate()
    {
        g_pProcessorTreeData->SetSimulatorPane(true);
        pToolBar->UpdateToolBarState();

        const CMapTranslator german({ { "CProcessorTreeToolBar|Add a processor", "Neuer Prozessor" },
                                      { "CProcessorTreeToolBar|Add simulators", "Neue Simulatoren" } });
        QTRY_COMPARE(Button(ToolBarAddProcessor)->toolTip(), QStringLiteral("Neuer Prozessor"));

        pToolBar->UpdateToolBarState();
        QCOMPARE(Button(ToolBarAddProcessor)->toolTip(), QStringLiteral("Neue Simulatoren"));
    }

private:
    void SelectNodes(const std::vector<QUuid>& vecId)
    {
        g_pProcessorTreeData->SetSelectedNodes(vecId);
        pToolBar->UpdateToolBarState();
    }

    /// The buttons are direct children of the strip, created in the order of their ids.
    CIconButton* Button(int id) const
    {
        return pToolBar->findChildren<CIconButton*>(QString(), Qt::FindDirectChildrenOnly).at(id);
    }

    QAction* Action(int id) const
    {
        return pToolBar->findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly).at(id - ToolBarSearch);
    }

    QScopedPointer<CStoreFixture> pFixture;
    QScopedPointer<QWidget> pHost;
    CProcessorTreeToolBar* pToolBar = nullptr;
};

PTV_TEST_MAIN(CToolBarTest)
#include "tst_toolbar.moc"
