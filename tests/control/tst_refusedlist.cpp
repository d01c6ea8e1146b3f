#include "Builders.h"
#include "CControlFixture.h"
#include "CEditRecorder.h"
#include "CFileFaults.h"
#include "CNameRegistry.h"
#include "CorvidControl/file/CListLock.h"
#include "CorvidControl/file/ListFormat.h"
#include "CorvidControl/file/ListSalvage.h"
#include "ListText.h"
#include "TestMain.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>

#include <cerrno>
#include <random>

Q_DECLARE_METATYPE(SProcessorAllNode)

namespace {

SProcessorAllNode BuildList()
{
    return Root(
        { Group("Stage",
                { Processor("alpha").Ip("192.168.1.20").Type(12, "KX"), Processor("beta").Ip("192.168.1.21").Type(12, "KX") })
              .Chief("alpha"),
          Group("Hall", { Processor("gamma").Ip("192.168.1.22") }) },
        { Processor("loose").Ip("192.168.1.23"), Processor("last").Ip("192.168.1.24") });
}

// With another body than the first line says.
QByteArray Change(const QByteArray& before, const QByteArray& after)
{
    QByteArray bytes = ListFormat::Write(BuildList());
    const int nAt = bytes.indexOf(before);
    return nAt < 0 ? QByteArray() : bytes.replace(nAt, before.size(), after);
}

QString Names(const SProcessorAllNode& node)
{
    QStringList listLine = ListText::Build(node).split('\n').mid(1);
    for (QString& strLine : listLine) {
        strLine.replace(QRegularExpression(" 192[.]168[.]\\S+( Chief)?$"), "");
    }
    return listLine.join('\n');
}

} // namespace

/// A list that was refused at the start: what can be read of it, and what becomes of it.
class CRefusedListTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
    }

    void cleanup()
    {
        pRecorder.reset();
        pFixture.reset();
    }

    void whatCanBeReadIsReadNodeByNode_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("strNames");
        QTest::addColumn<int>("nLost");
        QTest::addColumn<int>("nMended");
        QTest::addColumn<QString>("strFault");
        const QString strAll = "  Stage led by alpha\n    alpha\n    beta\n  Hall\n    gamma\n  loose\n  last";
        const auto row
            = [](const char* szRow, const QByteArray& bytes, const QString& strNames, int nLost, int nMended,
                 const QString& strFault) { QTest::newRow(szRow) << bytes << strNames << nLost << nMended << strFault; };
        const QByteArray bytes = ListFormat::Write(BuildList());
        row("a wrong check sum", Change("sha256:", "sha256:0"), strAll, 0, 0, "check sum");
        row("another version", Change("kvtl 1", "kvtl 2"), strAll, 0, 0, "version 2");
        row("a first line that is gone", bytes.mid(bytes.indexOf('{')), strAll, 0, 0, "not a list file");
        row("cut in a processor of a group", bytes.left(bytes.indexOf("\"model\"", bytes.indexOf("beta"))), //
            "  Stage led by alpha\n    alpha\n    beta\n  Hall\n    192.168.1.22", 0, 1, "its end is missing");
        row("cut before its address", bytes.left(bytes.indexOf("\"ip\"", bytes.indexOf("alpha") + 300)),
            "  Stage led by alpha\n    alpha", 1, 0, "it has no address");
        row("a bad name", Change("\"beta\"", "\"be=ta\""), QString(strAll).replace("beta", "192.168.1.21"), 0, 1,
            "\"name\" is \"192.168.1.21\" now");
        row("a name that is no text", Change("\"Hall\"", "7"), QString(strAll).replace("Hall", "Group 2"), 0, 1,
            "\"name\" is \"Group 2\" now");
        row("an address that is none", Change("192.168.1.21", "192.168.1.321"), QString(strAll).remove("    beta\n"), 1, 0,
            "processor 2 of group 1: it has no address");
        row("a role that does not exist", Change("\"failover\": 0", "\"failover\": 7"), strAll, 0, 1, "\"failover\"");
        row("a value that is none", Change("\"online\": false", "\"online\": falsy"), strAll, 0, 1, "\"online\" cannot be read");
        row("a key that is gone", Change("\"portA\"", "\"porta\""), strAll, 0, 1, "\"portA\" cannot be read");
        row("a key too many", Change("\"portA\"", "\"colour\": \"red\", \"portA\""), strAll, 0, 0, "check sum");
        row("a processor without its end", Change("\n                },", "\n                 ,"), strAll, 0, 0, "check sum");
        row("a list without its beginning", Change("\"processors\": [", "\"processors\": "), strAll, 0, 0, "check sum");
        row("numbers without their end", Change("\"aux\": [\n            ]", "\"aux\": [\n            {"),
            QString(strAll).remove(" led by alpha"), 0, 1, "group 1: \"chief\"");
        row("a text without its end", Change("\"project\": \"\"", "\"project\": \""), strAll, 0, 1, "\"project\"");
        row("a processor that is there twice",
            Change("192.168.1.21", "192.168.1.20")
                .replace(ProcessorId("beta").toByteArray(QUuid::WithoutBraces),
                         ProcessorId("alpha").toByteArray(QUuid::WithoutBraces)),
            QString(strAll).remove("    beta\n"), 1, 0, "processor 2 of group 1: it is there twice");
        row("an id that is there twice",
            ListFormat::Write(BuildList())
                .replace(ProcessorId("beta").toByteArray(QUuid::WithoutBraces),
                         ProcessorId("alpha").toByteArray(QUuid::WithoutBraces)),
            strAll, 0, 1, "\"id\" is there twice, it has a new one");
    }

    void whatCanBeReadIsReadNodeByNode()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, strNames);
        QFETCH(QString, strFault);
        const SRefusedList list = ListSalvage::Read(bytes, {});
        QVERIFY(list.bUsable);
        QCOMPARE(Names(list.node), strNames);
        QTEST(list.nLost, "nLost");
        QTEST(list.nMended, "nMended");
        QVERIFY2(list.listFault.join('\n').contains(strFault), qPrintable(list.listFault.join('\n')));
        QCOMPARE(list.nProcessors, strNames.count('\n') + 1 - list.nGroups);
        QCOMPARE(ListFormat::FindProofFault(ListFormat::Write(list.node), {}), QString());
    }

    void whatIsMoreThanTheListTakesIsLeftOut()
    {
        SProcessorAllNode node;
        for (int n = 0; n < 258; ++n) {
            node.listGroup.append(Group(QStringLiteral("g%1").arg(n), { Processor(QStringLiteral("p%1").arg(n)) }));
        }
        const SRefusedList list = ListSalvage::Read(ListFormat::Write(node), {});
        QVERIFY(list.bUsable);
        QCOMPARE(list.nGroups, 256);
        QCOMPARE(list.nProcessors, 256);
        QCOMPARE(list.nLost, 4);
        QVERIFY(list.listFault.last().contains("there are more than 256 groups"));
    }

    void whatIsNoListIsNotTakenForOne_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("zeros") << QByteArray(4096, '\0');
        QTest::newRow("a text") << QByteArray("Shopping: milk, bread");
        QTest::newRow("another JSON") << QByteArray(R"({ "steps": [ { "at": 0, "ip": "192.168.1.20" } ] })");
        QTest::newRow("its first line alone") << ListFormat::Write({}).left(76);
        QTest::newRow("brackets") << QByteArray(100000, '{');
        QTest::newRow("brackets behind a first line") << "kvtl 1 sha256:\n" + QByteArray(100000, '[');
    }

    void whatIsNoListIsNotTakenForOne()
    {
        QFETCH(QByteArray, bytes);
        const SRefusedList list = ListSalvage::Read(bytes, {});
        QVERIFY(!list.bUsable);
        QCOMPARE(list.nGroups + list.nProcessors, 0);
        QVERIFY(!list.listFault.isEmpty());
    }

    void aRowOfEndsIsReadInItsTime()
    {
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!ListSalvage::Read('{' + QByteArray(1500000, '}') + "x", {}).bUsable);
        QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    }

    void damageAnywhereCostsFewNodes_data()
    {
        QTest::addColumn<quint32>("nSeed");
        const quint32 nFirst = QRandomGenerator::global()->generate();
        for (quint32 n = 0; n < 200; ++n) {
            QTest::addRow("seed %u", nFirst + n) << nFirst + n;
        }
    }

    void damageAnywhereCostsFewNodes()
    {
        QFETCH(quint32, nSeed);
        std::mt19937 random(nSeed);
        SProcessorAllNode node;
        for (int nGroup = 0; nGroup < 8; ++nGroup) {
            QList<SProcessorNode> listMember;
            for (int n = 0; n < 6; ++n) {
                listMember.append(
                    Processor(QStringLiteral("p%1").arg(6 * nGroup + n)).Ip(0xC0A80A00U + static_cast<quint32>(6 * nGroup + n)));
            }
            node.listGroup.append(Group(QStringLiteral("g%1").arg(nGroup), listMember));
        }
        QByteArray bytes = ListFormat::Write(node);
        bytes[80 + static_cast<int>(random() % static_cast<unsigned>(bytes.size() - 81))] = static_cast<char>(random() % 256);
        const SRefusedList list = ListSalvage::Read(bytes, {});
        QVERIFY(list.bUsable);
        QVERIFY2(list.nProcessors >= 46, qPrintable(list.listFault.join('\n')));
        QCOMPARE(ListFormat::FindProofFault(ListFormat::Write(list.node), {}), QString());
        QCOMPARE(ListText::BuildWhole(ListSalvage::Read(bytes, {}).node), ListText::BuildWhole(list.node));
    }

    void anyBytesAreReadToTheirEnd_data()
    {
        damageAnywhereCostsFewNodes_data();
    }

    void anyBytesAreReadToTheirEnd()
    {
        QFETCH(quint32, nSeed);
        std::mt19937 random(nSeed);
        static const QByteArray signs("{}[]\",:\n 1a\\");
        QByteArray bytes = ListFormat::Write(BuildList());
        for (int n = 0; n < 60; ++n) {
            bytes[static_cast<int>(random() % static_cast<unsigned>(bytes.size()))] = signs.at(static_cast<int>(random() % 12));
        }
        bytes.truncate(static_cast<int>(random() % static_cast<unsigned>(bytes.size())));
        const SRefusedList list = ListSalvage::Read(bytes, {});
        QCOMPARE(ListFormat::FindProofFault(ListFormat::Write(list.node), {}), QString());
    }

    void aListThatWasNotRefusedHasNoPreview()
    {
        pFixture->Start(BuildList());
        pRecorder.reset(new CEditRecorder(pFixture->pHost.get()));
        QVERIFY(!pFixture->pHost->PreviewRefusedList().bUsable);
        QCOMPARE(pFixture->pHost->PreviewRefusedList().strPath, QString());
        QVERIFY(!pFixture->pHost->UseRefusedList());
        QCOMPARE(pRecorder->GetRefusals().value(0).reason, ReasonNothingWasRefused);
    }

    void thePreviewChangesNothing()
    {
        const QByteArray bytes = StartRefused();
        const SRefusedList list = pFixture->pHost->PreviewRefusedList();
        QVERIFY(list.bUsable);
        QCOMPARE(list.strPath, pFixture->GetPath());
        QCOMPARE(list.nProcessors, 4);
        QCOMPARE(CControlFixture::GetText(), QString("all*"));
        QCOMPARE(pFixture->Read("list.kvtl"), bytes);
        QVERIFY(!pFixture->pHost->GetListError().isEmpty());
    }

    void theListThatIsUsedIsSavedAndTheRefusedOneKept()
    {
        const QByteArray bytes = StartRefused();
        QVERIFY(pFixture->pHost->UseRefusedList());
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Stage\n    alpha\n  Hall\n    gamma\n  loose\n  last"));
        QCOMPARE(pFixture->pHost->GetListError(), QString());
        QCOMPARE(pFixture->pHost->GetListTrouble(), QString());
        QCOMPARE(pFixture->Read("list.kvtl"), ListFormat::Write(CControlFixture::GetTree()));
        const QStringList listKept = pFixture->ListFiles({ "list.refused-*.kvtl" });
        QCOMPARE(listKept.size(), 1);
        QCOMPARE(pFixture->Read(listKept.first()), bytes);
        g_pPrcListControl->RenameGroup(GroupId("Hall"), "Foyer");
        QCOMPARE(pFixture->pHost->SaveList(), QString());
        QVERIFY(pFixture->Read("list.kvtl").contains("Foyer"));
        QVERIFY(!pFixture->pHost->PreviewRefusedList().bUsable);
    }

    void usingItIsAnEditThatCanBeUndone()
    {
        StartRefused();
        QVERIFY(pFixture->pHost->UseRefusedList());
        QCOMPARE(pRecorder->GetEdits().size(), 1);
        const SListEdit edit = pRecorder->GetEdits().first();
        QCOMPARE(edit.command, CommandUseRefused);
        QVERIFY(pFixture->pHost->RestoreList(edit.after, edit.before));
        QCOMPARE(CControlFixture::GetText(), QString("all*"));
    }

    void whatTheUserAddedBeforeIsKeptToo()
    {
        StartRefused();
        g_pPrcListControl->AddGroup(Group("Foyer"), true);
        QVERIFY(pFixture->pHost->UseRefusedList());
        const QStringList listKept = pFixture->ListFiles({ "list.unsaved-*.kvtl" });
        QCOMPARE(listKept.size(), 1);
        QVERIFY(pFixture->Read(listKept.first()).contains("Foyer"));
    }

    void aFileThatHasChangedSinceIsLeftAlone()
    {
        StartRefused();
        pFixture->Write("list.kvtl", ListFormat::Write(Root({ Group("Another's") })));
        QVERIFY(!pFixture->pHost->PreviewRefusedList().bUsable);
        ExpectRefused(ReasonFileChanged);
        QCOMPARE(pFixture->Read("list.kvtl"), ListFormat::Write(Root({ Group("Another's") })));
        QCOMPARE(pFixture->ListFiles({ "list.refused-*" }), QStringList());
    }

    void aListThatAnotherProgramHasOpenIsLeftAlone()
    {
        const QByteArray bytes = StartRefused();
        QProcess other; // holds the lock, and leaves the file alone too
        pFixture->Write("list.kvtl", ListFormat::Write(BuildList()));
        other.start(QCoreApplication::applicationDirPath() + "/list_user", { pFixture->GetPath() });
        other.write("trouble\n"); // it has read a good list, and keeps the lock
        while (!other.canReadLine() && other.waitForReadyRead(30000)) { }
        QCOMPARE(other.readLine(), QByteArray("\n"));
        pFixture->Write("list.kvtl", bytes);
        ExpectRefused(ReasonFileHeld);
        QCOMPARE(pFixture->Read("list.kvtl"), bytes);
        other.closeWriteChannel();
        other.waitForFinished();
    }

    void aFileOfWhichNothingCanBeReadIsLeftAlone()
    {
        pFixture->Write("list.kvtl", "text");
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        pRecorder.reset(new CEditRecorder(pFixture->pHost.get()));
        const SRefusedList list = pFixture->pHost->PreviewRefusedList();
        QVERIFY(!list.bUsable);
        QCOMPARE(list.strPath, pFixture->GetPath());
        QCOMPARE(list.listFault, QStringList{ "it is not a list file" });
        ExpectRefused(ReasonFileUnreadable);
        QCOMPARE(pFixture->Read("list.kvtl"), QByteArray("text"));
    }

    void aListThatIsSavedAfterItWasMovedAwayIsRefusedNoMore()
    {
        StartRefused();
        QVERIFY(QFile::rename(pFixture->GetPath(), pFixture->GetPath("moved.kvtl")));
        g_pPrcListControl->AddGroup(Group("Foyer"), true);
        QCOMPARE(pFixture->pHost->SaveList(), QString());
        QCOMPARE(pFixture->pHost->GetListError(), QString());
        QVERIFY(pFixture->Read("list.kvtl").contains("Foyer"));
        ExpectRefused(ReasonNothingWasRefused);
    }

    void aLockThatComesWhileItIsUsedLeavesItAsItWas()
    {
        const QByteArray bytes = StartRefused();
        {
            const CFileFaults faults(CFileFaults::CallRename, "*list.kvtl", [this] { pFixture->pHost->SetListLocked(true); });
            ExpectRefused(ReasonListLocked);
        }
        QCOMPARE(pFixture->Read("list.kvtl"), bytes);
        QCOMPARE(CControlFixture::GetText(), QString("all*"));
        pFixture->pHost->SetListLocked(false);
        QVERIFY(pFixture->pHost->UseRefusedList());
    }

    void aListBehindALinkIsUsedWhereItStands()
    {
        QVERIFY(QDir(pFixture->folder.path()).mkdir("far"));
        const QByteArray bytes = Change("192.168.1.21", "192.168.1.321");
        pFixture->Write("far/real.kvtl", bytes);
        QVERIFY(QFile::link(pFixture->GetPath("far/real.kvtl"), pFixture->GetPath()));
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        QVERIFY(pFixture->pHost->UseRefusedList());
        QVERIFY(QFileInfo(pFixture->GetPath()).isSymLink());
        QCOMPARE(pFixture->Read("far/real.kvtl"), ListFormat::Write(CControlFixture::GetTree()));
        const QStringList listKept = QDir(pFixture->GetPath("far")).entryList({ "real.refused-*.kvtl" });
        QCOMPARE(listKept.size(), 1);
        QCOMPARE(pFixture->Read("far/" + listKept.first()), bytes);
    }

    void aFolderInItsPlaceCannotBeRead()
    {
        QVERIFY(QDir().mkdir(pFixture->GetPath()));
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        pRecorder.reset(new CEditRecorder(pFixture->pHost.get()));
        QVERIFY(pFixture->pHost->PreviewRefusedList().listFault.join(QString()).contains("it is a folder"));
        ExpectRefused(ReasonFileChanged);
    }

    void aFailureAtAnyStepLosesNothing_data()
    {
        QTest::addColumn<int>("nCall");
        QTest::addColumn<QByteArray>("pattern");
        QTest::addColumn<int>("nReason");
        QTest::newRow("the refused list cannot be kept")
            << int(CFileFaults::CallWrite) << QByteArray("*refused-*") << int(ReasonFileNotKept);
        QTest::newRow("nor be put in its place")
            << int(CFileFaults::CallRenameNew) << QByteArray("*refused-*") << int(ReasonFileNotKept);
        QTest::newRow("the new list cannot be written")
            << int(CFileFaults::CallSync) << QByteArray("*list.kvtl.*") << int(ReasonFileNotWritten);
        QTest::newRow("nor replace the old one")
            << int(CFileFaults::CallRename) << QByteArray("*list.kvtl") << int(ReasonFileNotReplaced);
    }

    void aFailureAtAnyStepLosesNothing()
    {
        QFETCH(int, nCall);
        QFETCH(QByteArray, pattern);
        QFETCH(int, nReason);
        const QByteArray bytes = StartRefused();
        g_pPrcListControl->AddGroup(Group("Foyer"), true);
        {
            const CFileFaults faults(static_cast<CFileFaults::EnCall>(nCall), pattern, EIO);
            ExpectRefused(static_cast<EnRefusalReason>(nReason));
            QVERIFY(faults.GetFailed() > 0);
        }
        ExpectWarning("The list is not being saved");
        QVERIFY(!pFixture->pHost->SaveList().isEmpty());
        QCOMPARE(pFixture->Read("list.kvtl"), bytes);
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Foyer"));
        QVERIFY(!pFixture->pHost->GetListError().isEmpty());
        QVERIFY2(pFixture->pHost->UseRefusedList(), "it can be tried again");
        QCOMPARE(pFixture->ListFiles({ "list.refused-*.kvtl" }).size(), 1);
    }

private:
    // A good list but for one processor and the check sum. Returns its bytes.
    QByteArray StartRefused()
    {
        const QByteArray bytes = Change("192.168.1.21", "192.168.1.321");
        pFixture->Write("list.kvtl", bytes);
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        pRecorder.reset(new CEditRecorder(pFixture->pHost.get()));
        return bytes;
    }

    void ExpectRefused(EnRefusalReason reason)
    {
        const int nEdits = pRecorder->GetEdits().size();
        const int nRefusals = pRecorder->GetRefusals().size();
        QVERIFY(!pFixture->pHost->UseRefusedList());
        QCOMPARE(pRecorder->GetRefusals().size(), nRefusals + 1);
        QCOMPARE(pRecorder->GetRefusals().last().command, CommandUseRefused);
        QCOMPARE(pRecorder->GetRefusals().last().reason, reason);
        QCOMPARE(pRecorder->GetEdits().size(), nEdits);
    }

    QScopedPointer<CControlFixture> pFixture;
    QScopedPointer<CEditRecorder> pRecorder;
};

PTV_TEST_MAIN_CORE(CRefusedListTest)
#include "tst_refusedlist.moc"
