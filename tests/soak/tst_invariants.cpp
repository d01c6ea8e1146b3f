#include "CNameRegistry.h"
#include "CStoryRun.h"
#include "CorvidControl/day/StepVerbs.h"
#include "TestMain.h"
#include "check/Invariants.h"
#include "check/KeptExceptions.h"
#include "story/StoryMaker.h"

namespace {

/// What is made out of a picture that is right, and who has to notice.
struct SLie
{
    const char* szName;
    QString (*fnCheck)(const SPanelPicture& picture);
    void (*fnLie)(SPanelPicture& picture);
};

const SLie arrLie[] = {
    { "a row too many", &Invariants::CheckRows, [](SPanelPicture& picture) { picture.vecRow.append(picture.vecRow.last()); } },
    { "a row that is missing", &Invariants::CheckRows, [](SPanelPicture& picture) { picture.vecRow.removeLast(); } },
    { "two rows in another order", &Invariants::CheckRows,
      [](SPanelPicture& picture) { std::swap(picture.vecRow[2], picture.vecRow[4]); } },
    { "a row of another kind", &Invariants::CheckRows, [](SPanelPicture& picture) { picture.vecRow[2].key.nType = NodeGroup; } },
    { "a member beside its group", &Invariants::CheckRows, [](SPanelPicture& picture) { picture.vecRow[2].nDepth = 1; } },
    { "a group that is folded here alone", &Invariants::CheckRows,
      [](SPanelPicture& picture) { picture.vecRow[1].bExpanded = false; } },
    { "an id that leads nowhere", &Invariants::CheckIdMap, [](SPanelPicture& picture) { picture.vecRow[2].bMapped = false; } },
    { "an id without a row", &Invariants::CheckIdMap, [](SPanelPicture& picture) { ++picture.nMapped; } },
    { "a row that hides without a filter", &Invariants::CheckFilter,
      [](SPanelPicture& picture) { picture.vecRow[2].bHidden = true; } },
    { "a filter that hides nothing", &Invariants::CheckFilter, [](SPanelPicture& picture) { picture.strSearch = "zzz"; } },
    { "busy without an end", &Invariants::CheckBusy, [](SPanelPicture& picture) { picture.nBusy = 1; } },
    { "an end without a beginning", &Invariants::CheckBusy, [](SPanelPicture& picture) { picture.nBusy = -1; } },
    { "a box that stays open", &Invariants::CheckNothingOpen, [](SPanelPicture& picture) { picture.listOpen.append("Delete"); } },
    { "two panes at once", &Invariants::CheckPane, [](SPanelPicture& picture) { picture.bLibrarySimulator = true; } },
    { "the model tester complains", &Invariants::CheckComplaints,
      [](SPanelPicture& picture) { picture.listComplaint.append("FAIL! model->hasIndex(0, 0) () returned FALSE"); } },
    { "Qt complains", &Invariants::CheckComplaints,
      [](SPanelPicture& picture) { picture.listComplaint.append("QObject: Cannot create children"); } },
    { "no rest", &Invariants::CheckSettled, [](SPanelPicture& picture) { picture.bSettled = false; } },
};

NodeIds Ids(const QStringList& listName)
{
    NodeIds setId;
    for (const QString& strName : listName) {
        setId.insert(ProcessorId(strName));
    }
    return setId;
}

SPictureKey Row(const QString& strName)
{
    return { NodeProcessor, ProcessorId(strName) };
}

StorySteps Read(const QString& strStory)
{
    StorySteps vecStep;
    Story::Read(strStory, vecStep);
    return vecStep;
}

} // namespace

/// Whether the checks of the soak notice what they are for, and what it has found.
class CInvariantsTest : public QObject
{
    Q_OBJECT

private slots:
    void aLieIsCaught_data()
    {
        QTest::addColumn<int>("nLie");
        for (int n = 0; n < int(sizeof(arrLie) / sizeof(arrLie[0])); ++n) {
            QTest::newRow(arrLie[n].szName) << n;
        }
    }

    void aLieIsCaught()
    {
        QFETCH(int, nLie);
        const SLie& lie = arrLie[nLie];
        SPanelPicture picture = TakePicture();
        QCOMPARE(Invariants::CheckAll(picture), QString());

        lie.fnLie(picture);

        QVERIFY(!lie.fnCheck(picture).isEmpty());
        QVERIFY(!Invariants::CheckAll(picture).isEmpty());
    }

    void aLieAboutTheSelectionIsCaught_data()
    {
        QTest::addColumn<bool>("bInLibrary");
        QTest::newRow("on the screen") << false;
        QTest::newRow("in the library") << true;
    }

    void aLieAboutTheSelectionIsCaught()
    {
        QFETCH(bool, bInLibrary);
        SPanelPicture picture = TakePicture();
        const std::array<CExpectedSelection, 2> arrExpected = Expect(picture);
        QCOMPARE(Invariants::CheckSelection(picture, arrExpected), QString());

        if (bInLibrary) {
            picture.arrSelected[1].push_back(ProcessorId("alpha"));
        } else {
            picture.vecRow[2].bSelected = true;
        }

        QVERIFY(!Invariants::CheckSelection(picture, arrExpected).isEmpty());
    }

    void whoIsHitInPlaceOfWhomIsNoticed_data()
    {
        QTest::addColumn<QStringList>("listHit");
        QTest::addColumn<bool>("bWrong");
        QTest::newRow("who was meant") << QStringList{ "alpha", "beta" } << false;
        QTest::newRow("one too few") << QStringList{ "alpha" } << true;
        QTest::newRow("one too many") << QStringList{ "alpha", "beta", "gamma" } << true;
        QTest::newRow("nobody, since it was refused") << QStringList() << false;
    }

    void whoIsHitInPlaceOfWhomIsNoticed()
    {
        QFETCH(QStringList, listHit);
        QFETCH(bool, bWrong);
        const SPanelPicture picture = TakePicture();
        QList<SPanelCall> listCall{ { "SetBusy", {}, true } };
        for (const QString& strName : std::as_const(listHit)) {
            listCall.append({ "DeleteProcessor", ProcessorId(strName) });
        }

        QString strKept;
        const QString strWrong
            = Hits::Check({ SIntent::Delete, { Row("alpha"), Row("beta") } }, listCall, picture, Expect(picture)[0], strKept);

        QCOMPARE(!strWrong.isEmpty(), bWrong);
        QCOMPARE(strKept, QString());
    }

    void onlyMembersLeaveTheirGroup()
    {
        const SIntent intent{ SIntent::RemoveFromGroup, { Row("alpha"), Row("loose") } };

        QCOMPARE(Hits::GetMeant(intent, TakePicture()), Ids({ "alpha" }));
    }

    void onlyAnInformationRowMayFoldApart()
    {
        const SPictureKey keyInfo{ NodeInfo, ProcessorId("alpha") };

        QVERIFY(KeptExceptions::IsFoldApart(Qt::Key_Left, keyInfo));
        QVERIFY(!KeptExceptions::IsFoldApart(Qt::Key_Left, Row("alpha")));
        QVERIFY(!KeptExceptions::IsFoldApart(Qt::Key_Right, keyInfo));
    }

    void aRangeIsExpectedFromTheLastClick()
    {
        CExpectedSelection expected;
        expected.Begin(TakePicture());

        expected.Press(Row("beta"), {});
        expected.Press(Row("gamma"), Qt::ShiftModifier);
        expected.Press(Row("loose"), Qt::ControlModifier);
        expected.Press(Row("beta"), Qt::ControlModifier);

        QCOMPARE(expected.GetStored(), Ids({ "gamma", "loose" }));
    }

    void anEmptiedSelectionIsExpectedToStayInTheLibrary()
    {
        CExpectedSelection expected;
        expected.Begin(TakePicture());

        expected.Press(Row("beta"), {});
        expected.Press(Row("beta"), Qt::ControlModifier);

        QVERIFY(expected.GetRows().isEmpty());
        QCOMPARE(expected.GetStored(), Ids({ "beta" }));
    }

    void everyFaultOfTheScenariosIsAmongTheEvents()
    {
        QSet<QString> setWanted;
        for (const SStepVerb& verb : StepVerbs::GetAll()) {
            if (verb.bFault) {
                setWanted.insert(verb.szName);
            }
        }

        QSet<QString> setFound;
        for (int n = 0; n < setWanted.size(); ++n) {
            setFound.insert(CFaultPlan::BuildStep(n, 0, "one", "other").value("do").toString());
        }

        QVERIFY(!setWanted.isEmpty());
        QCOMPARE(setFound, setWanted);
    }

    void aStoryIsTheSameForTheSameSeed()
    {
        const std::vector<QString> vecVerb{ "click", "key" };

        QCOMPARE(Story::Write(StoryMaker::Build(7, 20, vecVerb)), Story::Write(StoryMaker::Build(7, 20, vecVerb)));
        QVERIFY(Story::Write(StoryMaker::Build(7, 20, vecVerb)) != Story::Write(StoryMaker::Build(8, 20, vecVerb)));
    }

    void aStoryShrinksToWhatMatters()
    {
        const StorySteps vecStep = StoryMaker::Build(7, 50, { "click", "key", "fold", "delete" });
        const auto goesWrong = [](const StorySteps& vecShorter) {
            const QString strStory = Story::Write(vecShorter);
            return strStory.contains("delete") && strStory.indexOf("fold") < strStory.lastIndexOf("delete")
                && strStory.contains("fold");
        };
        QVERIFY(goesWrong(vecStep));

        QCOMPARE(Story::Write(StoryMaker::Shrink(vecStep, std::chrono::seconds(20), goesWrong)), QString("fold.0.0 delete.0.0"));
    }

    void whatIsNoStoryIsRefused()
    {
        StorySteps vecStep;

        QVERIFY(!Story::Read("click.1", vecStep));
        QVERIFY(!CStoryRun().Play(Read("nonsense.0.0")).isEmpty());
    }

    void whatWasFoundPasses_data()
    {
        QTest::addColumn<QString>("strStory");
        QTest::addColumn<QString>("strKept"); // of the reason why others are hit than those that look selected
        QTest::newRow("a row that a search hid is selected, and not deleted")
            << "click.0.2 search.7.0 click.1.1 search.0.0 delete.0.0" << "filter";
        QTest::newRow("what a search hides is deleted with what it shows")
            << "click.0.4 click.1.2 search.7.0 delete.0.0" << "filter";
        QTest::newRow("a search, and what it hides is selected no more") << "all.0.0 search.1.0 edit.3.0" << "";
        QTest::newRow("an emptied selection is deleted all the same") << "click.0.4 click.1.4 delete.0.0" << "emptied";
        QTest::newRow("F2 on the root, and then another row") << "click.0.0 rename.0.0 click.0.4 edit.5.0 rename.0.0" << "";
        QTest::newRow("F2 on a row in a folded group") << "click.0.4 fold.0.1 rename.0.0" << "";
        QTest::newRow("a fold of an information row") << "key.5.0 key.8.0 key.5.0 key.8.0 key.9.0" << "";
        QTest::newRow("a fold of an information row that is folded away")
            << "key.5.0 key.8.0 key.5.0 fold.0.0 key.8.0 fold.0.0 key.2.0"
            << "";
        QTest::newRow("all below a row unfolds, and its information row folds") << "key.5.0 key.13.0 key.5.0 key.2.0" << "";
        QTest::newRow("a row is deleted that the last click took out")
            << "pick.0.1 click.1.2 delete.0.0 search.7.0 click.3.1" << "";
        QTest::newRow("a switch of the panes that throws") << "fault.16.13 tab.15.0 menu.6.0" << "";
        QTest::newRow("F2 on a row that is folded away, and a range") << "edit.0.8 refresh.0.0 rename.0.0 click.2.0" << "";
        QTest::newRow("the library selects a row that a search hides, and a range follows")
            << "all.0.0 menu.0.6 tab.15.0 add.1.0 pick.0.1 search.2.0 click.18.23 edit.28.16 click.19.39" << "";
        QTest::newRow("lost messages, and a deletion of what the panel knows")
            << "rename.0.0 add.0.0 fault.7.17 key.0.0 import.1.0 delete.0.0" << "";
        QTest::newRow("an information row alone is no node") << "key.5.0 key.8.0 key.5.0 delete.0.0" << "";
        QTest::newRow("after F2 on the root no selection goes out") << "rename.0.0 edit.0.2 click.0.8 delete.0.0" << "F2";
        QTest::newRow("a refused rename has selected the current row")
            << "click.0.2 click.1.4 click.1.4 host.0.0 rename.3.0 host.0.1 delete.0.0" << "end of a rename";
        QTest::newRow("a refresh without a selection selects the root")
            << "network.0.0 import.1.0 key.33.0 refresh.0.0 click.13.0" << "";
        QTest::newRow("a node flickers, goes and comes back") << "fault.39.0 edit.3.0 import.1.0" << "";
        QTest::newRow("the first row of an empty root") << "all.0.0 delete.0.0 add.0.0" << "";
        QTest::newRow("a range from a row that is folded away") << "edit.0.8 key.5.1" << "";
        QTest::newRow("a group ends what F2 on the root has begun")
            << "click.0.0 rename.0.0 click.0.12 menu.1.12 click.0.4" << "";
        QTest::newRow("a refused selection leaves the one that a search hides")
            << "search.7.0 pick.0.0 delete.0.0 device.30.8 fault.31.1 fold.0.0 delete.0.0" << "filter";
    }

    void whatWasFoundPasses()
    {
        QFETCH(QString, strStory);
        QFETCH(QString, strKept);
        CStoryRun run;

        QCOMPARE(run.Play(Read(strStory)), QString());

        const QStringList listKept = run.GetKept().keys();
        QCOMPARE(listKept.isEmpty(), strKept.isEmpty());
        QVERIFY(listKept.value(0).contains(strKept));
    }

private:
    static std::array<CExpectedSelection, 2> Expect(const SPanelPicture& picture)
    {
        std::array<CExpectedSelection, 2> arrExpected;
        for (size_t n = 0; n < arrExpected.size(); ++n) {
            arrExpected[n].Begin(picture);
            arrExpected[n].Adopt(picture, n == 1);
        }
        return arrExpected;
    }

    static SPanelPicture TakePicture()
    {
        CSoakPanel panel;
        const bool bSettled = panel.Reread();
        return panel.TakePicture(bSettled);
    }
};

PTV_TEST_MAIN(CInvariantsTest)
#include "tst_invariants.moc"
