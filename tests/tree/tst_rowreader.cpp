#include "CEventCounter.h"
#include "CMapTranslator.h"
#include "CNameRegistry.h"
#include "CScreenReader.h"
#include "TestMain.h"
#include "TreeText.h"
#include "data/CProcessorTreeData.h"
#include "fixtures/CTreeFixture.h"

#include <QLineEdit>
#include <QTranslator>
#include <QWindow>

namespace {

SProcessorAllNode Site(const SProcessorNode& alpha)
{
    return Root({ Group("Stage", { alpha, Processor("beta").Ip("10.0.0.2").Expanded(false) }).Chief("beta") },
                { Processor("loose").Ip("10.0.0.3").Expanded(true) });
}

CProcessorBuilder Alpha()
{
    return Processor("alpha").Ip("10.0.0.1").Project("Aurora").Online().Expanded(false);
}

QString Words(const QModelIndex& index)
{
    return QStringList({ index.data(Qt::AccessibleTextRole).toString(), index.data(Qt::AccessibleDescriptionRole).toString() })
        .join(" / ");
}

bool HasWords(const QModelIndex& index)
{
    return index.data(Qt::AccessibleTextRole).isValid() || index.data(Qt::AccessibleDescriptionRole).isValid();
}

/// What the interface of the tree gives of its rows as they are shown, as a screen reader asks for it.
QStringList Spoken(CProcessorTree* pTree)
{
    QAccessibleInterface* const pInterface = QAccessible::queryAccessibleInterface(pTree);
    QStringList listName;
    for (int i = 1; i < pInterface->childCount(); ++i) { // behind the header
        listName.append(pInterface->child(i)->text(QAccessible::Name));
    }
    return listName;
}

/// Counts how often a text is asked for.
class CTextCounter : public QTranslator
{
public:
    QString translate(const char*, const char*, const char*, int) const override
    {
        ++nAsked;
        return QString();
    }
    bool isEmpty() const override
    {
        return false;
    }
    mutable int nAsked = 0;
};

/// The number that Qt gives to the next object after a widget has got the focus.
class CNextNumber : public QObject
{
public:
    explicit CNextNumber(QWidget* pWidget)
    {
        pWidget->installEventFilter(this); // runs before the filters that are there
    }
    QAccessible::Id nId = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn) {
            QWidget widget; // gives its number back when it ends
            nId = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(&widget));
        }
        return false;
    }
};

/// Runs the event loop until it has nothing to do, timers of no delay among it.
void Settle()
{
    bool bDone = false;
    for (int nRound = 0; nRound < 4; ++nRound) {
        bDone = false;
        QTimer::singleShot(0, qApp, [&bDone] { bDone = true; });
        QTRY_VERIFY(bDone);
    }
}

} // namespace

class CRowReaderTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CTreeFixture(Site(Alpha()), { ProcessorId("alpha") }));
        pFixture->ConnectLikeTheView();
    }

    void cleanup()
    {
        pFixture.reset();
    }

    // Out of sight, since painting asks for texts as well.
    void nobodyListensNothingIsWrittenOrAskedFor()
    {
        pFixture->pTree->hide();
        CTextCounter counter;
        QCoreApplication::installTranslator(&counter);
        Settle(); // the names of the trees follow the language
        counter.nAsked = 0;
        pFixture->Show(Site(Alpha().Online(false)));
        pFixture->SetChiefMode(true);
        Settle();
        QCOMPARE(counter.nAsked, 0);
        for (const QModelIndex& index : { pFixture->Root(), pFixture->Row("Stage"), Row(), pFixture->Info("loose") }) {
            QVERIFY(!HasWords(index));
        }
        QCoreApplication::removeTranslator(&counter);
    }

    void nobodyListensTheEditorHasNoName()
    {
        pFixture->Click(Row());
        CTextCounter counter;
        QCoreApplication::installTranslator(&counter);
        Settle();
        counter.nAsked = 0;
        pFixture->Press(Qt::Key_F2);
        QVERIFY(qobject_cast<QLineEdit*>(QApplication::focusWidget()));
        QCOMPARE(counter.nAsked, 0);
        QCOMPARE(QApplication::focusWidget()->accessibleName(), QString());
        QCoreApplication::removeTranslator(&counter);
    }

    void aScreenReaderThatComesLaterFindsAllRows()
    {
        QVERIFY(!HasWords(Row()));
        const CScreenReader reader;
        const QStringList listExpected{ "All processors(3)", "Stage, group, 2 processors",
                                        "alpha, online",     "beta, offline",
                                        "loose, offline",    "Type: --\nIP: 10.0.0.3\nProject: --\nUID: --" };
        QCOMPARE(Spoken(pFixture->pTree.data()), listExpected);
        QCOMPARE(Words(Row()), QStringLiteral("alpha, online / project Aurora, group Stage, 10.0.0.1"));
    }

    void withoutListenersTheRowsAreNotWrittenAnyMore()
    {
        {
            const CScreenReader reader;
        }
        pFixture->SetChiefMode(true);
        QCOMPARE(Words(pFixture->Row("Stage")), QStringLiteral("Stage, group, 2 processors / "));
        pFixture->Show(Site(Alpha().Online(false)));
        QVERIFY(!HasWords(Row()));
        const CScreenReader readerAgain;
        QCOMPARE(Words(pFixture->Row("Stage")), QStringLiteral("Stage, group, 2 processors / Chief beta"));
    }

    void rowsSayTheNewStateAfterARebuild()
    {
        const CScreenReader reader;
        pFixture->Show(Site(Alpha().Online(false)));
        QCOMPARE(Words(Row()), QStringLiteral("alpha, offline / group Stage, 10.0.0.1"));
    }

    void rowsFollowChiefModeWithoutARebuild()
    {
        const CScreenReader reader;
        const QPersistentModelIndex indexGroup = pFixture->Row("Stage");
        pFixture->SetChiefMode(true);
        QCOMPARE(Words(indexGroup), QStringLiteral("Stage, group, 2 processors / Chief beta"));
        pFixture->SetChiefMode(false);
        QCOMPARE(Words(indexGroup), QStringLiteral("Stage, group, 2 processors / "));
    }

    void theRowsOfACoveredPaneAreWrittenAsThoseOfTheOther()
    {
        CTestTree simulators(nullptr, false);
        CoverWithDiscovered(simulators);
        const CScreenReader reader;
        const QModelIndex indexRack = RackOf(simulators);
        QCOMPARE(Words(indexRack.parent()), QStringLiteral("All processors(1) / "));
        QCOMPARE(Words(indexRack), QStringLiteral("Rack, group, 1 processor / "));
        pFixture->SetChiefMode(true);
        QCOMPARE(Words(indexRack), QStringLiteral("Rack, group, 1 processor / Chief sim"));
        const CMapTranslator translator({ { "CProcessorTree|Chief %1", "Leitung %1" } });
        QTRY_COMPARE(Words(indexRack), QStringLiteral("Rack, group, 1 processor / Leitung sim"));
        QCOMPARE(Words(Row()), QStringLiteral("alpha, online / project Aurora, group Stage, 10.0.0.1"));
    }

    void aTreeThatWasNeverBuiltAnewHasNames()
    {
        const CTestTree tree(nullptr, true);
        const CScreenReader reader;
        const QModelIndex indexRoot = tree.model()->index(0, 0);
        QCOMPARE(Words(indexRoot), QStringLiteral("All processors(3) / "));
        const QModelIndex indexStage = tree.model()->index(0, 0, indexRoot);
        QCOMPARE(Words(indexStage), QStringLiteral("Stage, group, 2 processors / "));
        QCOMPARE(Words(tree.model()->index(0, 0, indexStage)),
                 QStringLiteral("alpha, online / project Aurora, group Stage, 10.0.0.1"));
    }

    void rowsWithOneIdAllSayWhatIsPaintedOnThem()
    {
        const CScreenReader reader;
        pFixture->Load(Root({ Group("Stage", { Alpha() }) }, { Alpha().Online(false), Processor("null").NodeId(QUuid()) }), {});
        const QModelIndex indexRoot = pFixture->Root();
        const QAbstractItemModel* const pModel = pFixture->pTree->model();
        QCOMPARE(Words(pModel->index(0, 0, pModel->index(0, 0, indexRoot))),
                 QStringLiteral("alpha, online / project Aurora, group Stage, 10.0.0.1"));
        QCOMPARE(Words(pModel->index(1, 0, indexRoot)), QStringLiteral("alpha, online / project Aurora, 10.0.0.1"));
        QVERIFY(Words(pModel->index(2, 0, indexRoot)).startsWith("null, offline"));
        QCOMPARE(Words(indexRoot), QStringLiteral("All processors(3) / "));
    }

    void rowsFollowTheLanguage()
    {
        const CScreenReader reader;
        const CMapTranslator translator({ { "CProcessorTree|online", "antwortet" }, { "CProcessorTree|group %1", "in %1" } });
        QTRY_COMPARE(Words(Row()), QStringLiteral("alpha, antwortet / project Aurora, in Stage, 10.0.0.1"));
    }

    void theModelSaysNothingOfWhatIsWritten()
    {
        const CScreenReader reader;
        const QAbstractItemModel* const pModel = pFixture->pTree->model();
        const QSignalSpy spy(pModel, &QAbstractItemModel::dataChanged);
        pFixture->SetChiefMode(true);
        QCOMPARE(Words(pFixture->Row("Stage")), QStringLiteral("Stage, group, 2 processors / Chief beta"));
        QCOMPARE(spy.count(), 0);
        QVERIFY(!pModel->signalsBlocked());
    }

    void aRebuildIsPaintedOnceWithAReaderToo()
    {
        const CScreenReader reader;
        Settle();
        const CEventCounter counter(pFixture->pTree->viewport(), QEvent::Paint);
        pFixture->Show(Site(Alpha().Online(false)));
        Settle();
        QCOMPARE(counter.nCount, 1);
    }

    void whatIsSaidOfRowsIsNotPaintedFor()
    {
        const CScreenReader reader;
        pFixture->Click(pFixture->Row("Stage"));
        Settle();
        const CEventCounter counter(pFixture->pTree->viewport(), QEvent::Paint);
        pFixture->SetChiefMode(true);
        Settle();
        QCOMPARE(Words(pFixture->Row("Stage")), QStringLiteral("Stage, group, 2 processors / Chief beta"));
        QCOMPARE(counter.nCount, 0);
    }

    void theLibraryHearsNothingOfIt()
    {
        pFixture->Clear();
        const CScreenReader reader;
        pFixture->SetChiefMode(true);
        Settle();
        QCOMPARE(pFixture->control.Commands(), QStringList());
    }

    void aChangeOfTheFocusedRowIsAnnounced_data()
    {
        QTest::addColumn<bool>("bOnline");
        QTest::addColumn<QString>("strIp");
        QTest::addColumn<QStringList>("listHeard");
        QTest::newRow("nothing") << true << "10.0.0.1" << QStringList();
        QTest::newRow("its state") << false << "10.0.0.1" << QStringList({ "focus: alpha, offline / group Stage, 10.0.0.1" });
        QTest::newRow("its address") << true << "10.0.0.9"
                                     << QStringList({ "focus: alpha, online / project Aurora, group Stage, 10.0.0.9" });
    }
    void aChangeOfTheFocusedRowIsAnnounced()
    {
        QFETCH(bool, bOnline);
        QFETCH(QString, strIp);
        pFixture->Click(Row());
        CScreenReader reader;
        SProcessorAllNode node = Site(Alpha().Online(bOnline).Ip(strIp));
        node.listProcessor.first().bOnline = true; // another row changes as well
        pFixture->Show(node);
        Settle();
        QTEST(reader.Heard(), "listHeard");
    }

    void aChangeElsewhereIsNotAnnounced_data()
    {
        QTest::addColumn<bool>("bFocus");
        QTest::newRow("another row has the focus") << true;
        QTest::newRow("the tree has no focus") << false;
    }
    void aChangeElsewhereIsNotAnnounced()
    {
        QFETCH(bool, bFocus);
        pFixture->Click(bFocus ? pFixture->Row("beta") : Row());
        if (!bFocus) {
            pFixture->pTree->clearFocus();
        }
        CScreenReader reader;
        pFixture->Show(Site(Alpha().Online(false)));
        Settle();
        QCOMPARE(reader.Heard(), QStringList());
    }

    void aTreeThatGetsTheFocusSaysItsNameAndThenItsRow()
    {
        pFixture->Click(Row());
        pFixture->pTree->clearFocus();
        CScreenReader reader;
        pFixture->Show(Site(Alpha().Online(false)));
        pFixture->pTree->setFocus();
        Settle();
        QCOMPARE(reader.Heard(),
                 QStringList({ "focus: Discovered processors", "focus: alpha, offline / group Stage, 10.0.0.1" }));
    }

    void aClickThatGivesTheFocusSaysTheRowOnce()
    {
        pFixture->Click(Row());
        pFixture->pTree->clearFocus();
        CScreenReader reader;
        QTest::mouseClick(pFixture->pTree->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          pFixture->pTree->viewport()->mapTo(pFixture->pTree.data(), pFixture->At(pFixture->Row("beta"))));
        Settle();
        QCOMPARE(reader.Heard(), QStringList({ "focus: Discovered processors", "focus: beta, offline / group Stage, 10.0.0.2" }));
    }

    void afterTheEditorTheRowIsSaidAgain()
    {
        CScreenReader reader;
        pFixture->Click(Row());
        pFixture->Press(Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), "Door");
        Settle();
        reader.Forget();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        Settle();
        QCOMPARE(reader.Heard().join('\n'),
                 QStringList({ "focus: Discovered processors", "focus: alpha, online / project Aurora, group Stage, 10.0.0.1" })
                     .join('\n'));
    }

    // Clients keep what they know of a number.
    void theRowAfterTheEditorDoesNotGetTheNumberOfTheEditor()
    {
        CScreenReader reader;
        pFixture->Click(Row());
        pFixture->Press(Qt::Key_F2);
        const QPointer<QWidget> pEditor = QApplication::focusWidget();
        const QAccessible::Id id = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(pEditor));
        reader.Forget();
        QTest::keyClick(pEditor, Qt::Key_Return);
        QTRY_VERIFY(!pEditor);
        Settle();
        pFixture->Press(Qt::Key_Down);
        QCOMPARE(reader.Heard().last(), QStringLiteral("focus: beta, offline / group Stage, 10.0.0.2"));
        QVERIFY(!QAccessible::accessibleInterface(id));
    }

    void aNumberIsTakenForNobodyBeforeTheEditorEnds()
    {
        const CScreenReader reader;
        pFixture->Click(Row());
        pFixture->Press(Qt::Key_F2);
        const CNextNumber next(pFixture->pTree.data());
        bool bTaken = false;
        const auto connection
            = QObject::connect(qApp, &QApplication::focusChanged, [&] { bTaken = QAccessible::accessibleInterface(next.nId); });
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QObject::disconnect(connection);
        QVERIFY(next.nId != 0);
        QVERIFY(bTaken);
    }

    void chiefModeIsAnnouncedForTheFocusedGroup()
    {
        pFixture->Click(pFixture->Row("Stage"));
        CScreenReader reader;
        pFixture->SetChiefMode(true);
        Settle();
        QCOMPARE(reader.Heard(), QStringList({ "focus: Stage, group, 2 processors / Chief beta" }));
    }

    void theRightRowIsAnnouncedBehindOpenAndHiddenOnes()
    {
        pFixture->Load(Root({ Group("Stage", { Processor("beta").Expanded(true), Processor("gamma") }) }, { Alpha() }), {});
        pFixture->Click(Row());
        CScreenReader reader;
        pFixture->Show(Root({ Group("Stage", { Processor("beta").Expanded(true), Processor("gamma") }) }, { Alpha().Primary() }));
        pFixture->pTree->SetSearchText("a"); // hides nothing of alpha, beta and gamma
        pFixture->pTree->SetSearchText("alpha");
        Settle();
        QCOMPARE(reader.Heard(), QStringList({ "focus: alpha, online, Primary / project Aurora, 10.0.0.1" }));
    }

    void aHiddenRowIsNotAnnounced()
    {
        pFixture->Click(Row());
        CScreenReader reader;
        pFixture->Show(Site(Alpha().Online(false)));
        pFixture->pTree->SetSearchText("loose");
        Settle();
        QCOMPARE(reader.Heard(), QStringList());
    }

    void changesInARowAreAnnouncedOnceAndAChangeBackNever()
    {
        pFixture->Click(Row());
        CScreenReader reader;
        pFixture->Show(Site(Alpha().Online(false)));
        pFixture->Show(Site(Alpha()));
        Settle();
        QCOMPARE(reader.Heard(), QStringList());
        pFixture->Show(Site(Alpha().Online(false)));
        pFixture->Show(Site(Alpha().Primary()));
        Settle();
        QCOMPARE(reader.Heard(), QStringList({ "focus: alpha, online, Primary / project Aurora, group Stage, 10.0.0.1" }));
    }

    void theRowThatTakesThePlaceOfTheFocusedOneIsAnnounced()
    {
        pFixture->Click(Row());
        CScreenReader reader;
        pFixture->Load(Root({ Group("Stage", { Processor("beta") }) }), { GroupId("Stage") });
        Settle();
        QCOMPARE(reader.Heard(), QStringList({ "focus: Stage, group, 1 processor" }));
    }

    void aRowToWhichTheUserHasMovedIsAnnouncedByTheMoveAlone()
    {
        pFixture->Click(Row());
        CScreenReader reader;
        pFixture->Show(Site(Alpha().Online(false)));
        pFixture->Press(Qt::Key_Down);
        Settle();
        QCOMPARE(reader.Heard(), QStringList({ "focus: beta, offline / group Stage, 10.0.0.2" }));
    }

    void whatChangesInARowRightAfterTheMoveToItIsAnnounced()
    {
        pFixture->Click(Row());
        CScreenReader reader;
        pFixture->Show(Site(Alpha().Online(false)));
        pFixture->Press(Qt::Key_Down);
        pFixture->Show(Root({ Group("Stage", { Alpha(), Processor("beta").Ip("10.0.0.2").Online() }) }));
        Settle();
        QCOMPARE(reader.Heard(),
                 QStringList({ "focus: beta, offline / group Stage, 10.0.0.2", "focus: beta, online / group Stage, 10.0.0.2" }));
    }

    void aMoveBetweenTwoChangesSaysItsRowOnce()
    {
        pFixture->Click(Row());
        CScreenReader reader;
        pFixture->Show(Site(Alpha().Online(false)));
        pFixture->Press(Qt::Key_Down);
        pFixture->Show(Site(Alpha()));
        Settle();
        QCOMPARE(reader.Heard(), QStringList({ "focus: beta, offline / group Stage, 10.0.0.2" }));
    }

    void aRowThatTheLibrarySelectsIsAnnounced()
    {
        pFixture->Click(Row());
        CScreenReader reader;
        pFixture->Change([](SControlAnswers& answers) { answers.vecDiscoveredSelection = { ProcessorId("loose") }; });
        Settle();
        QCOMPARE(pFixture->pTree->currentIndex(), pFixture->Row("loose"));
        QCOMPARE(reader.Heard(), QStringList({ "focus: loose, offline / 10.0.0.3" }));
    }

    void aDeletionInTwoRefreshesSaysTheRowThatIsSelectedThen()
    {
        pFixture->Click(Row());
        CScreenReader reader;
        pFixture->Show(Root({ Group("Stage", { Processor("beta").Ip("10.0.0.2") }) }));
        Settle();
        QVERIFY(!pFixture->pTree->currentIndex().isValid());
        QCOMPARE(reader.Heard(), QStringList());
        pFixture->Change([](SControlAnswers& answers) { answers.vecDiscoveredSelection = { ProcessorId("beta") }; });
        Settle();
        QCOMPARE(reader.Heard(), QStringList({ "focus: beta, offline / group Stage, 10.0.0.2" }));
    }

    void theLibraryHearsOfASelectionBeforeTheReader()
    {
        const CScreenReader reader;
        static QStringList listHeard;
        listHeard.clear();
        const auto handlerBefore = QAccessible::installUpdateHandler([](QAccessibleEvent* pEvent) {
            if (pEvent->type() == QAccessible::SelectionAdd) {
                listHeard.append(QStringLiteral("reader"));
            }
        });
        QObject::connect(g_pProcessorTreeData, &CProcessorTreeData::NotifyButton, pFixture->pTree.data(),
                         [] { listHeard.append(QStringLiteral("library")); });
        pFixture->Click(pFixture->Row("beta"));
        QAccessible::installUpdateHandler(handlerBefore);
        QCOMPARE(listHeard, QStringList({ "library", "reader" }));
    }

    void aSelectionThatChangesNothingIsNotAnnounced()
    {
        pFixture->Click(Row());
        CScreenReader reader;
        pFixture->pTree->RestoreSelection();
        Settle();
        QCOMPARE(reader.Heard(), QStringList());
    }

    void aRowInAGroupThatIsFoldedIsNotAnnounced()
    {
        pFixture->Click(Row());
        CScreenReader reader;
        pFixture->pTree->collapse(pFixture->Row("Stage"));
        SProcessorAllNode node = Site(Alpha().Online(false));
        node.listGroup.first().bExpanded = false;
        pFixture->Show(node);
        Settle();
        QCOMPARE(pFixture->pTree->currentIndex(), Row());
        QCOMPARE(reader.Heard(), QStringList());
    }

    void aPaneThatIsNoLongerCurrentAnnouncesItsFocusedRowAllTheSame()
    {
        pFixture->Click(Row());
        CScreenReader reader;
        pFixture->Show(Site(Alpha().Online(false)));
        pFixture->SetSimulatorPane(true);
        pFixture->SetChiefMode(true);
        Settle();
        QCOMPARE(reader.Heard(), QStringList({ "focus: alpha, offline / group Stage, 10.0.0.1" }));
        QCOMPARE(Words(pFixture->Row("Stage")), QStringLiteral("Stage, group, 2 processors / Chief beta"));
    }

    void aReaderThatLeavesAndComesBackHearsNothingOld()
    {
        pFixture->Click(Row());
        {
            const CScreenReader reader;
            pFixture->Show(Site(Alpha().Online(false)));
        }
        CScreenReader reader;
        Settle();
        QCOMPARE(reader.Heard(), QStringList());
        QCOMPARE(Words(Row()), QStringLiteral("alpha, offline / group Stage, 10.0.0.1"));
        pFixture->Show(Site(Alpha()));
        Settle();
        QCOMPARE(reader.Heard(), QStringList({ "focus: alpha, online / project Aurora, group Stage, 10.0.0.1" }));
    }

    void aLanguageAnnouncesNoRow()
    {
        pFixture->Click(Row());
        CScreenReader reader;
        pFixture->Show(Site(Alpha().Online(false)));
        const CMapTranslator translator({ { "CProcessorTree|offline", "stumm" } });
        QCoreApplication::sendPostedEvents();
        QCOMPARE(Words(Row()), QStringLiteral("alpha, stumm / group Stage, 10.0.0.1"));
        Settle();
        QCOMPARE(reader.Heard(), QStringList());
        pFixture->Show(Site(Alpha()));
        Settle();
        QCOMPARE(reader.Heard(), QStringList({ "focus: alpha, online / project Aurora, group Stage, 10.0.0.1" }));
    }

    void theEditorHasTheNameOfItsRowBeforeItHasTheFocus()
    {
        CScreenReader reader;
        pFixture->Click(Row());
        Settle();
        reader.Forget();
        pFixture->Press(Qt::Key_F2);
        QCOMPARE(QApplication::focusWidget()->accessibleName(), QStringLiteral("Name of alpha"));
        const QString strFocus = QStringLiteral("focus: Name of alpha");
        QCOMPARE(reader.Heard(), QStringList({ "name: Name of alpha", strFocus, strFocus })); // the delegate's, the view's
    }

    void aTreeMayEndWithAnAnnouncementPending()
    {
        CScreenReader reader;
        pFixture->Click(Row());
        pFixture->Show(Site(Alpha().Online(false)));
        reader.Forget();
        pFixture->pTree.reset();
        pFixture->SetChiefMode(true);
        QCOMPARE(reader.Heard(), QStringList());
    }

    // Under a checker of memory a tree that is still told of it is a fault, without one it may go unnoticed.
    void readersMayComeAndGoAfterATreeHasEnded()
    {
        CTestTree tree(nullptr, true);
        {
            const CScreenReader reader;
            pFixture->Click(Row());
            pFixture->Show(Site(Alpha().Online(false)));
            pFixture->pTree.reset();
        }
        const CScreenReader readerAgain;
        Settle();
        QCOMPARE(Words(tree.model()->index(0, 0)), QStringLiteral("All processors(3) / "));
    }

private:
    /// Fills the tree of the Simulator pane with the group Rack of one, then the other pane is current again.
    void CoverWithDiscovered(CTestTree& simulators)
    {
        pFixture->ShowSimulators(Root({ Group("Rack", { Processor("sim") }).Chief("sim") }));
        pFixture->SetSimulatorPane(true);
        simulators.RefreshTree();
        pFixture->SetSimulatorPane(false);
    }

    static QModelIndex RackOf(const CTestTree& simulators)
    {
        return simulators.model()->index(0, 0, simulators.model()->index(0, 0));
    }

    QModelIndex Row() const
    {
        return pFixture->Row("alpha");
    }

    QScopedPointer<CTreeFixture> pFixture;
};

PTV_TEST_MAIN(CRowReaderTest)
#include "tst_rowreader.moc"
