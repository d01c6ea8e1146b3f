#include "Kestrel/keys/CKeyWays.h"
#include "TestMain.h"
#include "nodes/EnNodeType.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QStackedLayout>
#include <QStandardItemModel>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr int nRoleNodeType = Qt::UserRole + 2;

/// What the window knows of a panel: names and actions, and rows of which one is an information row.
class CPanelDouble : public QWidget
{
public:
    CPanelDouble()
        : pTree(new QTreeView), pSearchRow(new QWidget), pSearchEdit(new QLineEdit(pSearchRow)), pToolBar(new QWidget),
          pButton(new QToolButton(pToolBar))
    {
        auto* const pLayout = new QVBoxLayout(this);
        auto* const pStack = new QStackedLayout;
        pStack->addWidget(pTree);
        pLayout->addLayout(pStack);
        pLayout->addWidget(pSearchRow);
        pLayout->addWidget(pToolBar);
        pTree->setObjectName("ProcessorTree");
        pTree->setHeaderHidden(true);
        pTree->setFocusPolicy(Qt::ClickFocus);
        pTree->setSelectionMode(QAbstractItemView::ExtendedSelection);
        pTree->setModel(&model);
        pSearchEdit->setObjectName("SearchEdit");
        pSearchRow->hide();
        pToolBar->setObjectName("ProcessorTreeToolBar");
        auto* const pSearch = new QAction("Search", this);
        connect(pSearch, &QAction::triggered, pSearchRow, &QWidget::show);
        connect(pButton, &QToolButton::clicked, this, [this] { ++nPressed; });
        for (const char* const szRow : { "one", "two", "three", "four" }) {
            model.appendRow(new QStandardItem(szRow));
            model.item(model.rowCount() - 1)->setData(NodeProcessor, nRoleNodeType);
        }
        model.item(1)->setData(4, nRoleNodeType); // the information row of a processor
    }

    void Select(int nRow)
    {
        pTree->selectionModel()->setCurrentIndex(model.index(nRow, 0), QItemSelectionModel::ClearAndSelect);
    }

    QStringList Selected() const
    {
        QStringList listRow;
        for (const QModelIndex& index : pTree->selectionModel()->selectedIndexes()) {
            listRow.append(index.data().toString());
        }
        return listRow;
    }

    QStandardItemModel model;
    QTreeView* pTree;
    QWidget* pSearchRow;
    QLineEdit* pSearchEdit;
    QWidget* pToolBar;
    QToolButton* pButton;
    int nPressed = 0;
};

/// Takes the key that an arrow of a panel with several selected rows leaves to its parents.
class CArrowStopper : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Down) {
            return QObject::eventFilter(watched, event);
        }
        QCoreApplication::sendEvent(static_cast<QWidget*>(watched)->window(), event);
        return true;
    }
};

/// Notes where a context menu was asked for.
class CMenuWatch : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::ContextMenu) {
            pos = static_cast<QContextMenuEvent*>(event)->pos();
            ++nAsked;
        }
        return event->type() == QEvent::ContextMenu;
    }
    QPoint pos;
    int nAsked = 0;
};

} // namespace

class CKeyWaysTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pWindow = std::make_unique<QMainWindow>();
        auto* const pDock = new QDockWidget(pWindow.get());
        pJournal = new QTreeView;
        pDock->setWidget(pJournal);
        pWindow->addDockWidget(Qt::RightDockWidgetArea, pDock);
        pKeyWays = new CKeyWays(*pWindow, *pWindow->menuBar()->addMenu("View"));
        pPanel = new CPanelDouble;
        pWindow->setCentralWidget(pPanel);
        pKeyWays->SetPanel(pPanel);
        pWindow->show();
        QApplication::setActiveWindow(pWindow.get());
        QVERIFY(QTest::qWaitForWindowActive(pWindow.get()));
        pPanel->pTree->setFocus();
    }

    void cleanup()
    {
        pWindow.reset();
    }

    void f6GoesRoundWhatIsShown_data()
    {
        QTest::addColumn<bool>("bSearch");
        QTest::addColumn<bool>("bJournal");
        QTest::addColumn<QStringList>("listParts");
        QTest::newRow("all") << true << true << QStringList{ "search", "bar", "journal", "list" };
        QTest::newRow("no search") << false << true << QStringList{ "bar", "journal", "list" };
        QTest::newRow("no journal") << true << false << QStringList{ "search", "bar", "list" };
        QTest::newRow("neither") << false << false << QStringList{ "bar", "list" };
    }
    void f6GoesRoundWhatIsShown()
    {
        QFETCH(bool, bSearch);
        QFETCH(bool, bJournal);
        QFETCH(QStringList, listParts);
        pPanel->pSearchRow->setVisible(bSearch);
        pWindow->findChild<QDockWidget*>()->setVisible(bJournal);
        QCOMPARE(Walk(Qt::NoModifier, listParts.size()), listParts);
        QStringList listBack = listParts;
        std::reverse(listBack.begin(), listBack.end() - 1);
        QCOMPARE(Walk(Qt::ShiftModifier, listParts.size()), listBack);
    }

    void fromOutsideTheRoundF6LeadsToItsFirstOrLastPart()
    {
        auto* const pElsewhere = new QToolButton(pPanel);
        pElsewhere->show();
        pElsewhere->setFocus();
        QCOMPARE(Walk(Qt::NoModifier, 1), QStringList{ "list" });
        pElsewhere->setFocus();
        QCOMPARE(Walk(Qt::ShiftModifier, 1), QStringList{ "journal" });
    }

    void theKeysAreFoundInTheMenu()
    {
        QStringList listEntry;
        for (const QAction* const pAction : pWindow->menuBar()->actions().first()->menu()->actions()) {
            if (!pAction->isSeparator()) {
                listEntry.append(pAction->shortcut().toString() + ' ' + pAction->text());
            }
        }
        QCOMPARE(
            listEntry,
            QStringList({ "Ctrl+F &Search the list", "F6 &Next part of the window", "Shift+F6 &Previous part of the window" }));
    }

    void ctrlFOpensTheSearchWithItsTextSelected()
    {
        pPanel->pSearchEdit->setText("wall");
        Press(Qt::Key_F, Qt::ControlModifier);
        QVERIFY(pPanel->pSearchRow->isVisible());
        QCOMPARE(Where(), QStringLiteral("search"));
        QCOMPARE(pPanel->pSearchEdit->selectedText(), QStringLiteral("wall"));
        pPanel->pSearchEdit->deselect();
        Press(Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(pPanel->pSearchEdit->selectedText(), QStringLiteral("wall"));
    }

    void aPanelThatIsSwitchedOffIsNotSearched()
    {
        pPanel->setEnabled(false);
        Press(Qt::Key_F, Qt::ControlModifier);
        QVERIFY(!pPanel->pSearchRow->isVisible());
    }

    void withoutAPanelTheKeysReachTheJournal()
    {
        delete pPanel;
        Press(Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(Walk(Qt::NoModifier, 2), QStringList({ "journal", "journal" }));
        Press(Qt::Key_Escape);
        QCOMPARE(Where(), QStringLiteral("journal"));
    }

    void escapeLeadsBackToTheList()
    {
        for (QWidget* const pFrom : { static_cast<QWidget*>(pPanel->pButton), static_cast<QWidget*>(pJournal) }) {
            pFrom->setFocus();
            Press(Qt::Key_Escape);
            QCOMPARE(Where(), QStringLiteral("list"));
        }
    }

    void returnLeadsFromTheSearchToTheList()
    {
        Press(Qt::Key_F, Qt::ControlModifier);
        Press(Qt::Key_Return);
        QCOMPARE(Where(), QStringLiteral("list"));
    }

    void anEditorInTheListKeepsItsEscape()
    {
        auto* const pEditor = new QLineEdit(pPanel->pTree->viewport());
        pEditor->show();
        pEditor->setFocus();
        Press(Qt::Key_Escape);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(pEditor));
    }

    void returnPressesAButtonOnce()
    {
        pPanel->pButton->setFocus();
        Press(Qt::Key_Return);
        QCOMPARE(pPanel->nPressed, 1);
        Press(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(pPanel->nPressed, 1);
        QKeyEvent eventRepeat(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
        QCoreApplication::sendEvent(pPanel->pButton, &eventRepeat);
        QCOMPARE(pPanel->nPressed, 1);
    }

    void ctrlDownSelectsOneRowMoreAndNoInformationRow()
    {
        CArrowStopper stopper;
        pPanel->pTree->installEventFilter(&stopper);
        pPanel->Select(0);
        Press(Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(pPanel->Selected(), QStringList({ "one", "three" }));
        Press(Qt::Key_Down, Qt::ControlModifier);
        Press(Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(pPanel->Selected(), QStringList({ "one", "three", "four" }));
        pPanel->Select(0);
        Press(Qt::Key_Down);
        QCOMPARE(pPanel->Selected(), QStringList({ "one" }));
    }

    void ctrlDownSelectsNoGroup()
    {
        CArrowStopper stopper;
        pPanel->pTree->installEventFilter(&stopper);
        pPanel->model.item(2)->setData(NodeGroup, nRoleNodeType);
        pPanel->Select(0);
        Press(Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(pPanel->Selected(), QStringList({ "one", "four" }));
    }

    void shiftF10AsksForTheMenuOfTheCurrentRow()
    {
        CMenuWatch watch;
        pPanel->pTree->installEventFilter(&watch);
        pPanel->Select(2);
        Press(Qt::Key_F10, Qt::ShiftModifier);
        QCOMPARE(watch.nAsked, 1);
        QCOMPARE(pPanel->pTree->indexAt(watch.pos), pPanel->model.index(2, 0));
        Press(Qt::Key_F10);
        QCOMPARE(watch.nAsked, 1);
    }

private:
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(pWindow->windowHandle(), key, modifiers);
    }

    QString Where() const
    {
        const QWidget* const pFocus = QApplication::focusWidget();
        if (pFocus == pJournal) {
            return QStringLiteral("journal");
        }
        return pFocus == pPanel->pTree      ? QStringLiteral("list")
            : pFocus == pPanel->pSearchEdit ? QStringLiteral("search")
            : pFocus == pPanel->pButton     ? QStringLiteral("bar")
                                            : QStringLiteral("elsewhere");
    }

    QStringList Walk(Qt::KeyboardModifiers modifiers, int nSteps) const
    {
        QStringList listPart;
        for (int i = 0; i < nSteps; ++i) {
            Press(Qt::Key_F6, modifiers);
            listPart.append(Where());
        }
        return listPart;
    }

    std::unique_ptr<QMainWindow> pWindow;
    CKeyWays* pKeyWays = nullptr;
    CPanelDouble* pPanel = nullptr;
    QTreeView* pJournal = nullptr;
};

PTV_TEST_MAIN(CKeyWaysTest)
#include "tst_keyways.moc"
