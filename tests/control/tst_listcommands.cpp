#include "Builders.h"
#include "CControlFixture.h"
#include "CNameRegistry.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "TestMain.h"
#include "nodes/EnNodeType.h"

/// What the commands of the panel do to the list, and that each is told.
class CListCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
        pFixture->Start(
            Root({ Group("Stage", { Processor("alpha").Ip("192.168.1.20"), Processor("beta").Ip("192.168.1.21") }).Chief("alpha"),
                   Group("Hall") },
                 { Processor("loose").Ip("192.168.1.22").Ports(7001, 7002).Aux(ProcessorId("aux")) }));
    }

    void cleanup()
    {
        pFixture.reset();
    }

    void aNewGroupStandsBehindTheOthersAndIsTold()
    {
        g_pPrcListControl->AddGroup(Group("Foyer"), true);
        QCOMPARE(GetText(), QString("all*\n  Stage\n    alpha\n    beta\n  Hall\n  Foyer\n  loose"));
        QCOMPARE(GetRecorder().GetAllMessages(), QVector<int>{ MessageListChanged });
    }

    void aNewGroupComesWithoutProcessors()
    {
        g_pPrcListControl->AddGroup(Group("Foyer", { Processor("stowaway") }), false);
        QCOMPARE(CControlFixture::GetTree().listGroup.at(2).listProcessor.size(), 0);
    }

    void aProcessorMovesToTheEndOfItsNewGroup()
    {
        g_pPrcListControl->MoveProcessor(ProcessorId("loose"), GroupId("Stage"));
        QCOMPARE(GetText(), QString("all*\n  Stage\n    alpha\n    beta\n    loose\n  Hall"));
        QCOMPARE(GetRecorder().GetAllMessages(), QVector<int>{ MessageListChanged });
    }

    void aProcessorMovesOutToTheEndOfTheRoot()
    {
        g_pPrcListControl->MoveProcessor(ProcessorId("beta"), QUuid());
        QCOMPARE(GetText(), QString("all*\n  Stage\n    alpha\n  Hall\n  loose\n  beta"));
    }

    void movingWithinTheSameGroupChangesNothingAndIsNotTold()
    {
        g_pPrcListControl->MoveProcessor(ProcessorId("alpha"), GroupId("Stage"));
        g_pPrcListControl->MoveProcessor(ProcessorId("loose"), QUuid());
        QCOMPARE(GetText(), QString("all*\n  Stage\n    alpha\n    beta\n  Hall\n  loose"));
        QCOMPARE(GetRecorder().GetAllMessages(), QVector<int>());
    }

    void aChiefThatLeavesItsGroupIsNoChiefAnyMore()
    {
        g_pPrcListControl->MoveProcessor(ProcessorId("alpha"), GroupId("Hall"));
        QVERIFY(CControlFixture::GetTree().listGroup.at(0).idChief.isNull());
        QCOMPARE(CControlFixture::GetProcessor("alpha").nChief, 0);
    }

    void aRenamedNodeShowsItsNewName_data()
    {
        QTest::addColumn<QUuid>("id");
        QTest::addColumn<QString>("strName");
        QTest::newRow("processor in a group") << ProcessorId("beta") << "Wall left";
        QTest::newRow("processor in the root") << ProcessorId("loose") << QString::fromUtf8("左侧大屏");
        QTest::newRow("group") << GroupId("Stage") << "Main stage";
        QTest::newRow("64 bytes") << GroupId("Hall") << QString(64, 'x');
    }

    void aRenamedNodeShowsItsNewName()
    {
        QFETCH(QUuid, id);
        QFETCH(QString, strName);
        if (g_pPrcListControl->GetNodeType(id) == NodeGroup) {
            g_pPrcListControl->RenameGroup(id, strName);
        } else {
            g_pPrcBasicControl->RenameProcessor(id, strName);
        }
        QVERIFY(GetText().contains("  " + strName));
        QCOMPARE(GetRecorder().GetAllMessages(), QVector<int>{ MessageListChanged });
    }

    void aNewNameIsTidied_data()
    {
        QTest::addColumn<QString>("strTyped");
        QTest::addColumn<QString>("strName");
        QTest::newRow("blanks around") << "  Wall left "
                                       << "Wall left";
        QTest::newRow("wide blanks around") << QString(QChar(0x3000)) + "Wall" + QChar(0x00A0) << "Wall";
        QTest::newRow("a tab") << "Wall\tleft"
                               << "Wall left";
        QTest::newRow("a line end of each kind") << "a\r\nb\nc\rd"
                                                 << "a b c d";
        QTest::newRow("line ends of the wide world") << QString("a") + QChar(0x2028) + "b" + QChar(0x85) + "c" << "a b c";
        QTest::newRow("a line end behind it") << "Wall\n"
                                              << "Wall";
        QTest::newRow("64 bytes and blanks") << QString(64, 'x') + "  " << QString(64, 'x');
        QTest::newRow("a joiner within") << QString("a") + QChar(0x200D) + "b" << QString("a") + QChar(0x200D) + "b";
    }

    void aNewNameIsTidied()
    {
        QFETCH(QString, strTyped);
        QFETCH(QString, strName);
        g_pPrcBasicControl->RenameProcessor(ProcessorId("loose"), strTyped);
        QCOMPARE(CControlFixture::GetTree().listProcessor.at(0).strName, strName);
        g_pPrcListControl->RenameGroup(GroupId("Hall"), strTyped);
        QCOMPARE(CControlFixture::GetTree().listGroup.at(1).strName, strName);
        g_pPrcListControl->AddGroup(Group(strTyped), true);
        QCOMPARE(CControlFixture::GetTree().listGroup.at(2).strName, strName);
    }

    void renamingToTheSameNameIsNotTold()
    {
        g_pPrcBasicControl->RenameProcessor(ProcessorId("beta"), "beta");
        QCOMPARE(GetRecorder().GetAllMessages(), QVector<int>());
    }

    void deletingAGroupWithItsProcessorsTakesThemAll()
    {
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), true);
        QCOMPARE(GetText(), QString("all*\n  Hall\n  loose"));
        QCOMPARE(GetRecorder().GetAllMessages(), QVector<int>{ MessageListChanged });
    }

    void deletingAGroupOnlyMovesItsProcessorsToTheRoot()
    {
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), false);
        QCOMPARE(GetText(), QString("all*\n  Hall\n  loose\n  alpha\n  beta"));
        QCOMPARE(CControlFixture::GetProcessor("alpha").nChief, 0);
    }

    void deletingAProcessorTakesItAway()
    {
        g_pPrcListControl->DeleteProcessor(ProcessorId("alpha"), false);
        QCOMPARE(GetText(), QString("all*\n  Stage\n    beta\n  Hall\n  loose"));
        QVERIFY(CControlFixture::GetTree().listGroup.at(0).idChief.isNull());
        QCOMPARE(GetRecorder().GetAllMessages(), QVector<int>{ MessageListChanged });
    }

    void aNodeThatIsGoneIsDeletedAgainWithoutAWord()
    {
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), true);
        GetRecorder().Clear();
        g_pPrcListControl->DeleteProcessor(ProcessorId("alpha"), false);
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), true);
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), false);
        QCOMPARE(GetText(), QString("all*\n  Hall\n  loose"));
        QCOMPARE(GetRecorder().GetAllMessages(), QVector<int>());
    }

    void foldingComesBackWithTheNextTree_data()
    {
        QTest::addColumn<QUuid>("id");
        QTest::newRow("root") << QUuid();
        QTest::newRow("group") << GroupId("Stage");
        QTest::newRow("processor in a group") << ProcessorId("beta");
        QTest::newRow("processor in the root") << ProcessorId("loose");
    }

    void foldingComesBackWithTheNextTree()
    {
        QFETCH(QUuid, id);
        g_pPrcListControl->SetExpanded(id, false);
        const SProcessorAllNode node = CControlFixture::GetTree();
        const QVector<bool> vecShown{ node.bExpanded, node.listGroup.at(0).bExpanded,
                                      node.listGroup.at(0).listProcessor.at(1).bExpanded, node.listProcessor.at(0).bExpanded };
        QCOMPARE(vecShown.count(false), 1);
        const QVector<QUuid> vecId{ QUuid(), GroupId("Stage"), ProcessorId("beta"), ProcessorId("loose") };
        QCOMPARE(vecId.at(vecShown.indexOf(false)), id);
        QCOMPARE(GetRecorder().GetAllMessages(), QVector<int>{ MessageListChanged });
    }

    void foldingWhatIsFoldedIsNotTold()
    {
        g_pPrcListControl->SetExpanded(GroupId("Stage"), true);
        g_pPrcListControl->SetExpanded(ProcessorId("nobody"), false);
        QCOMPARE(GetRecorder().GetAllMessages(), QVector<int>());
    }

    void theRootOfTheOtherPaneKeepsItsFolding()
    {
        g_pRuntimeControl->SetSimulatorPane(true);
        g_pPrcListControl->SetExpanded(QUuid(), false);
        QVERIFY(CControlFixture::GetTree(false).bExpanded);
        QVERIFY(!CControlFixture::GetTree(true).bExpanded);
    }

    void theNextGroupHasTheLowestFreeNumber_data()
    {
        QTest::addColumn<QStringList>("listName");
        QTest::addColumn<int>("nNext");
        QTest::newRow("no numbers") << QStringList{ "Side screens" } << 1;
        QTest::newRow("in order") << QStringList{ "Group 1", "Group 2" } << 3;
        QTest::newRow("a gap") << QStringList{ "Group 1", "Group 3" } << 2;
        QTest::newRow("the first is free") << QStringList{ "Group 2" } << 1;
        QTest::newRow("another language") << QStringList{ "Gruppe 1", QString::fromUtf8("组 2") } << 3;
        QTest::newRow("a number within a longer name") << QStringList{ "Touring rack 1" } << 1;
        QTest::newRow("no number of a group") << QStringList{ "Group 0", "Group 01", "Group1" } << 1;
    }

    void theNextGroupHasTheLowestFreeNumber()
    {
        QFETCH(QStringList, listName);
        for (const QString& strName : std::as_const(listName)) {
            g_pPrcListControl->AddGroup(Group(strName), true);
        }
        QTEST(g_pPrcListControl->GetNextGroupIndex(), "nNext");
    }

    void groupsOfTheSimulatorPaneAreCountedOnTheirOwn()
    {
        g_pPrcListControl->AddGroup(Group("Group 1"), true);
        g_pRuntimeControl->SetSimulatorPane(true);
        QCOMPARE(g_pPrcListControl->GetNextGroupIndex(), 1);
        g_pPrcListControl->AddGroup(Group("Group 1").Id("second"), true);
        QCOMPARE(CControlFixture::GetText(true), QString("all*\n  Group 1"));
        QCOMPARE(g_pPrcListControl->GetNextGroupIndex(), 2);
    }

    void theKindOfEachNodeIsKnown()
    {
        QCOMPARE(g_pPrcListControl->GetNodeType(QUuid()), static_cast<qint32>(NodeAll));
        QCOMPARE(g_pPrcListControl->GetNodeType(GroupId("Hall")), static_cast<qint32>(NodeGroup));
        QCOMPARE(g_pPrcListControl->GetNodeType(ProcessorId("loose")), static_cast<qint32>(NodeProcessor));
        QCOMPARE(g_pPrcListControl->GetNodeType(ProcessorId("nobody")), 0);
    }

    void theAddressesOfAllProcessorsAreListed()
    {
        std::vector<uint> vecIP{ 1 };
        g_pPrcListControl->GetProcessorIPs(vecIP);
        QCOMPARE(vecIP, (std::vector<uint>{ 1, 0xC0A80114, 0xC0A80115, 0xC0A80116 }));
    }

    void valuesThatAreOnlyCarriedStayTheSame()
    {
        const SProcessorNode before = CControlFixture::GetProcessor("loose");
        g_pPrcListControl->MoveProcessor(before.idNode, GroupId("Hall"));
        g_pPrcListControl->MoveProcessor(before.idNode, QUuid());
        QCOMPARE(CControlFixture::GetProcessor("loose"), before);
        QCOMPARE(before.nPortA, 7001U);
        QCOMPARE(before.idAux, ProcessorId("aux"));
    }

private:
    static QString GetText()
    {
        return CControlFixture::GetText();
    }
    CMessageRecorder& GetRecorder()
    {
        return pFixture->recorder;
    }

    QScopedPointer<CControlFixture> pFixture;
};

PTV_TEST_MAIN_CORE(CListCommandsTest)
#include "tst_listcommands.moc"
