#include "CMapTranslator.h"
#include "CNameRegistry.h"
#include "CScreenReader.h"
#include "TestMain.h"
#include "TreeText.h"
#include "fixtures/CTreeFixture.h"

#include <QTranslator>

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

/// Counts how often a text of the rows' speech is asked for.
class CSpeechCounter : public QTranslator
{
public:
    QString translate(const char* context, const char*, const char*, int) const override
    {
        nAsked += qstrcmp(context, "RowSpeech") == 0;
        return QString();
    }
    bool isEmpty() const override
    {
        return false;
    }
    mutable int nAsked = 0;
};

/// Counts the paints of a widget.
class CPaintCounter : public QObject
{
public:
    explicit CPaintCounter(QWidget* pWidget)
    {
        pWidget->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        nPaints += event->type() == QEvent::Paint;
        return false;
    }
    int nPaints = 0;
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

    void nobodyListensNothingIsWrittenOrAskedFor()
    {
        CSpeechCounter counter;
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

    void aPaneThatIsNotCurrentIsWrittenWhenItIsShown()
    {
        CTestTree simulators(nullptr, false);
        const CScreenReader reader;
        pFixture->SetChiefMode(true);
        QVERIFY(!HasWords(simulators.model()->index(0, 0)));
        pFixture->ShowSimulators(Root({ Group("Rack", { Processor("sim") }).Chief("sim") }));
        pFixture->SetSimulatorPane(true);
        pFixture->SetChiefMode(false);
        pFixture->SetChiefMode(true);
        QCOMPARE(Words(pFixture->Root()), QStringLiteral("All processors(3) / "));
        simulators.RefreshTree();
        const QModelIndex indexRoot = simulators.model()->index(0, 0);
        QCOMPARE(Words(indexRoot), QStringLiteral("All processors(1) / "));
        QCOMPARE(Words(simulators.model()->index(0, 0, indexRoot)), QStringLiteral("Rack, group, 1 processor / Chief sim"));
    }

    void rowsFollowTheLanguage()
    {
        const CScreenReader reader;
        const CMapTranslator translator({ { "RowSpeech|online", "antwortet" }, { "RowSpeech|group %1", "in %1" } });
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

    void aRebuildIsPaintedTwiceAndNotAThirdTime()
    {
        const CScreenReader reader;
        Settle();
        const CPaintCounter counter(pFixture->pTree->viewport());
        pFixture->Show(Site(Alpha().Online(false)));
        QTRY_VERIFY(counter.nPaints >= 2);
        Settle();
        QCOMPARE(counter.nPaints, 2);
    }

    void whatIsSaidOfRowsIsNotPaintedFor()
    {
        const CScreenReader reader;
        pFixture->Click(pFixture->Row("Stage"));
        Settle();
        const CPaintCounter counter(pFixture->pTree->viewport());
        pFixture->SetChiefMode(true);
        Settle();
        QCOMPARE(Words(pFixture->Row("Stage")), QStringLiteral("Stage, group, 2 processors / Chief beta"));
        QCOMPARE(counter.nPaints, 0);
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
        QTest::newRow("its state") << false << "10.0.0.1"
                                   << QStringList({ "name: alpha, offline", "description: group Stage, 10.0.0.1" });
        QTest::newRow("its address") << true << "10.0.0.9"
                                     << QStringList({ "description: project Aurora, group Stage, 10.0.0.9" });
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

    void aTreeThatGetsTheFocusAfterAChangeDoesNotAnnounceIt()
    {
        pFixture->Click(Row());
        pFixture->pTree->clearFocus();
        CScreenReader reader;
        pFixture->Show(Site(Alpha().Online(false)));
        pFixture->pTree->setFocus();
        Settle();
        QCOMPARE(reader.Heard(), QStringList({ "focus: Discovered processors" }));
    }

    void chiefModeIsAnnouncedForTheFocusedGroup()
    {
        pFixture->Click(pFixture->Row("Stage"));
        CScreenReader reader;
        pFixture->SetChiefMode(true);
        Settle();
        QCOMPARE(reader.Heard(), QStringList({ "description: Chief beta" }));
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
        QCOMPARE(reader.Heard(), QStringList({ "name: alpha, online, Primary" }));
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
        QCOMPARE(reader.Heard(), QStringList({ "name: alpha, online, Primary" }));
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
        QCOMPARE(reader.Heard(), QStringList({ "focus: beta, offline" }));
    }

    void theEditorSaysWhoseNameItHolds()
    {
        CScreenReader reader;
        pFixture->Click(Row());
        reader.Forget();
        pFixture->Press(Qt::Key_F2);
        QCOMPARE(QApplication::focusWidget()->accessibleName(), QStringLiteral("Name of alpha"));
        QCOMPARE(reader.Heard().last(), QStringLiteral("name: Name of alpha"));
    }

    void aTreeMayEndWhileSomebodyListens()
    {
        CScreenReader reader;
        pFixture->Click(Row());
        pFixture->Show(Site(Alpha().Online(false)));
        pFixture->pTree.reset();
        pFixture->SetChiefMode(true);
        Settle();
        QVERIFY(!reader.Heard().contains("name: alpha, offline"));
    }

private:
    QModelIndex Row() const
    {
        return pFixture->Row("alpha");
    }

    QScopedPointer<CTreeFixture> pFixture;
};

PTV_TEST_MAIN(CRowReaderTest)
#include "tst_rowreader.moc"
