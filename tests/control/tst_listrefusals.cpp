#include "Builders.h"
#include "CControlFixture.h"
#include "CNameRegistry.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "TestMain.h"

using Command = std::function<void()>;
Q_DECLARE_METATYPE(Command)

/// What the library refuses: nothing changes, the reason is in the log, and a message makes the panel
/// read again.
class CListRefusalsTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
        pFixture->Start(
            Root({ Group("Stage", { Processor("alpha").Online().Project("Aurora"), Processor("beta") }), Group("Hall") },
                 { Processor("loose").Project("Aurora") }));
    }

    void cleanup()
    {
        pFixture.reset();
    }

    void aRefusedCommandChangesNothingAndIsTold_data()
    {
        QTest::addColumn<Command>("command");
        QTest::newRow("an empty name") << Command([] { Rename(""); });
        QTest::newRow("a name of blanks") << Command([] { Rename("  "); });
        QTest::newRow("a name over 64 bytes") << Command([] { Rename(QString(65, 'x')); });
        QTest::newRow("22 CJK characters") << Command([] { Rename(QString(22, QChar(0x5DE6))); });
        QTest::newRow("an equals sign") << Command([] { Rename("a=b"); });
        QTest::newRow("a CJK comma") << Command([] { Rename(QString::fromUtf8("左，右")); });
        QTest::newRow("an em dash") << Command([] { Rename(QString::fromUtf8("a—b")); });
        QTest::newRow("line ends alone") << Command([] { Rename("\r\n\n"); });
        QTest::newRow("a joiner alone") << Command([] { Rename(QChar(0x200D)); });
        QTest::newRow("fillers alone") << Command([] { Rename(QString(QChar(0x3164)) + ' ' + QChar(0x115F)); });
        QTest::newRow("tags alone") << Command([] { Rename(QString::fromUtf8("\xF3\xA0\x81\xA7\xF3\xA0\x81\xA2")); });
        QTest::newRow("an override") << Command([] { Rename(QString("a") + QChar(0x202E) + "b"); });
        QTest::newRow("an isolate") << Command([] { Rename(QString("a") + QChar(0x2067) + "b"); });
        QTest::newRow("a mark of direction") << Command([] { Rename(QString("ab") + QChar(0x200F)); });
        QTest::newRow("a group that cannot be seen") << Command([] { g_pPrcListControl->AddGroup(Group(QChar(0xFEFF)), true); });
        QTest::newRow("a group that carries too much") << Command([] {
            QSet<int> setAux;
            for (int n = 0; n < 33; ++n) {
                setAux.insert(n);
            }
            g_pPrcListControl->AddGroup(Group("x").Aux(setAux), true);
        });
        QTest::newRow("half a character") << Command([] { Rename(QString(QChar(0xD800))); });
        QTest::newRow("a refused group name") << Command([] { g_pPrcListControl->RenameGroup(GroupId("Hall"), "{"); });
        QTest::newRow("renaming what is gone") << Command([] { g_pPrcListControl->RenameGroup(GroupId("nobody"), "x"); });
        QTest::newRow("a group with a bad name") << Command([] { g_pPrcListControl->AddGroup(Group("~"), true); });
        QTest::newRow("a group without an id") << Command([] { g_pPrcListControl->AddGroup(Group("x").NodeId({}), true); });
        QTest::newRow("a group that is there") << Command([] { g_pPrcListControl->AddGroup(Group("Hall"), true); });
        QTest::newRow("a group with a processor's id")
            << Command([] { g_pPrcListControl->AddGroup(Group("x").NodeId(ProcessorId("loose")), true); });
        QTest::newRow("moving what is gone")
            << Command([] { g_pPrcListControl->MoveProcessor(ProcessorId("nobody"), GroupId("Hall")); });
        QTest::newRow("moving into nowhere")
            << Command([] { g_pPrcListControl->MoveProcessor(ProcessorId("loose"), GroupId("nobody")); });
        QTest::newRow("moving into a processor")
            << Command([] { g_pPrcListControl->MoveProcessor(ProcessorId("loose"), ProcessorId("alpha")); });
        QTest::newRow("moving a group") << Command([] { g_pPrcListControl->MoveProcessor(GroupId("Hall"), GroupId("Stage")); });
    }

    void aRefusedCommandChangesNothingAndIsTold()
    {
        QFETCH(Command, command);
        QSignalSpy logged(pFixture->pHost.get(), &CControlHost::LogLine);
        command();
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Stage\n    alpha\n    beta\n  Hall\n  loose"));
        QCOMPARE(logged.count(), 1);
        QVERIFY(logged.at(0).at(0).toString().contains("refused: "));
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ MessageCommandRefused });
    }

    void aLockedListTakesNoCommand_data()
    {
        QTest::addColumn<Command>("command");
        QTest::newRow("add a group") << Command([] { g_pPrcListControl->AddGroup(Group("x"), true); });
        QTest::newRow("delete a group") << Command([] { g_pPrcListControl->DeleteGroup(GroupId("Hall"), false); });
        QTest::newRow("delete a processor") << Command([] { g_pPrcListControl->DeleteProcessor(ProcessorId("beta"), false); });
        QTest::newRow("move") << Command([] { g_pPrcListControl->MoveProcessor(ProcessorId("loose"), GroupId("Hall")); });
        QTest::newRow("rename") << Command([] { Rename("x"); });
        QTest::newRow("add a processor") << Command([] { g_pPrcBasicControl->AddProcessor(0xC0A8010A); });
        QTest::newRow("refresh") << Command([] { g_pPrcBasicControl->RefreshProcessors(); });
    }

    void aLockedListTakesNoCommand()
    {
        QFETCH(Command, command);
        pFixture->pHost->SetListLocked(true);
        pFixture->recorder.Clear();
        command();
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Stage\n    alpha\n    beta\n  Hall\n  loose"));
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ MessageCommandRefused });
    }

    void aLockedListCanStillBeFoldedAndSelected()
    {
        pFixture->pHost->SetListLocked(true);
        g_pPrcListControl->SetExpanded(GroupId("Stage"), false);
        QVERIFY(g_pRuntimeControl->SetSelectedNodes({ ProcessorId("loose") }));
        QVERIFY(!CControlFixture::GetTree().listGroup.at(0).bExpanded);
    }

    void aNodeInUseIsNotDeleted_data()
    {
        QTest::addColumn<Command>("command");
        QTest::newRow("processor") << Command([] { g_pPrcListControl->DeleteProcessor(ProcessorId("alpha"), false); });
        QTest::newRow("its group") << Command([] { g_pPrcListControl->DeleteGroup(GroupId("Stage"), true); });
    }

    void aNodeInUseIsNotDeleted()
    {
        QFETCH(Command, command);
        pFixture->pHost->OpenProject("Aurora");
        pFixture->recorder.Clear();
        command();
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Stage\n    alpha\n    beta\n  Hall\n  loose"));
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ MessageCommandRefused });
    }

    void aProcessorIsInUseWhileItAnswersAndRunsTheOpenProject()
    {
        QVERIFY(!g_pRuntimeControl->IsNodeInUse(ProcessorId("alpha")));
        pFixture->pHost->OpenProject("Aurora");
        QVERIFY(g_pRuntimeControl->IsNodeInUse(ProcessorId("alpha")));
        QVERIFY(g_pRuntimeControl->IsDeleteBlocked(ProcessorId("alpha")));
        QVERIFY2(!g_pRuntimeControl->IsNodeInUse(ProcessorId("loose")), "it is offline");
        pFixture->pHost->OpenProject("Another");
        QVERIFY(!g_pRuntimeControl->IsDeleteBlocked(ProcessorId("alpha")));
    }

    void aGroupIsInUseWhenAMemberIs()
    {
        pFixture->pHost->OpenProject("Aurora");
        QVERIFY(g_pRuntimeControl->IsNodeInUse(GroupId("Stage")));
        QVERIFY(!g_pRuntimeControl->IsNodeInUse(GroupId("Hall")));
        QVERIFY(!g_pRuntimeControl->IsNodeInUse(QUuid()));
    }

    void onlyAProcessorThatAnswersIsActive()
    {
        QVERIFY(g_pPrcListControl->IsNodeActive(ProcessorId("alpha")));
        QVERIFY(!g_pPrcListControl->IsNodeActive(ProcessorId("beta")));
        QVERIFY(g_pPrcListControl->IsNodeActive(GroupId("Hall")));
        QVERIFY(!g_pPrcListControl->IsNodeActive(ProcessorId("nobody")));
    }

    void theGroupOfANodeInUseCanBeDissolved()
    {
        pFixture->pHost->OpenProject("Aurora");
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), false);
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Hall\n  loose\n  alpha\n  beta"));
    }

    void noMoreThanTheAllowedGroupsArePossible()
    {
        for (int n = 3; n <= 257; ++n) {
            g_pPrcListControl->AddGroup(Group(QStringLiteral("Group %1").arg(n)), true);
        }
        QCOMPARE(CControlFixture::GetTree().listGroup.size(), 256);
        QVERIFY(pFixture->recorder.GetAllMessages().contains(MessageCommandRefused));
    }

    void liftedLimitsTakeTenTimesAsMuch()
    {
        SProcessorAllNode node;
        for (int n = 0; n < 2560; ++n) {
            node.listGroup.append(Group(QStringLiteral("g%1").arg(n), { Processor(QStringLiteral("p%1").arg(n)) }));
        }
        pFixture->Stop();
        pFixture->options.bLiftLimits = true;
        pFixture->Start(node);
        QCOMPARE(pFixture->pHost->GetListError(), QString());
        g_pPrcListControl->AddGroup(Group("one more"), true);
        QCOMPARE(CControlFixture::GetTree().listGroup.size(), 2561);
    }

private:
    static void Rename(const QString& strName)
    {
        g_pPrcBasicControl->RenameProcessor(ProcessorId("alpha"), strName);
    }

    QScopedPointer<CControlFixture> pFixture;
};

PTV_TEST_MAIN_CORE(CListRefusalsTest)
#include "tst_listrefusals.moc"
