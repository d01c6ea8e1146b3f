#include "Builders.h"
#include "CControlFixture.h"
#include "CFileFaults.h"
#include "CNameRegistry.h"
#include "CorvidControl/file/ListFormat.h"
#include "TestMain.h"

#include <QFileInfo>

#include <cerrno>
#include <unistd.h>

namespace {

constexpr char szList[] = "list.kvtl";
constexpr char szTemporary[] = "list.kvtl.??????";

} // namespace

/// Disks and folders that fail.
class CListFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
        before = ListFormat::Write(Root({ Group("Stage") }));
        pFixture->Write("list.kvtl", before);
    }

    void cleanup()
    {
        pFixture.reset();
    }

    void aListThatCannotBeReadAtTheStartIsLeftAlone_data()
    {
        QTest::addColumn<int>("call");
        QTest::addColumn<int>("nError");
        QTest::addColumn<int>("nSkip");
        QTest::newRow("nothing of it") << int(CFileFaults::CallRead) << EIO << 0;
        QTest::newRow("its end") << int(CFileFaults::CallRead) << EIO << 1;
        QTest::newRow("a flipped bit") << int(CFileFaults::CallRead) << CFileFaults::nFlip << 0;
        QTest::newRow("its status") << int(CFileFaults::CallStatus) << EACCES << 0;
        QTest::newRow("a handle that is stale") << int(CFileFaults::CallStatus) << ESTALE << 0;
    }

    void aListThatCannotBeReadAtTheStartIsLeftAlone()
    {
        QFETCH(int, call);
        QFETCH(int, nError);
        QFETCH(int, nSkip);
        ExpectWarning("The list was not read");
        {
            const CFileFaults faults(static_cast<CFileFaults::EnCall>(call), szList, nError, nSkip);
            pFixture->StartAsIs();
            QVERIFY(faults.GetFailed() > 0);
        }
        QCOMPARE(CControlFixture::GetText(), QString("all*"));
        QVERIFY(!pFixture->pHost->GetListTrouble().isEmpty());
        g_pPrcListControl->AddGroup(Group("Ours"), true);
        ExpectWarning("The list is not being saved");
        QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath(), 0), 7);
        QCOMPARE(pFixture->Read("list.kvtl"), before);
        QCOMPARE(pFixture->ListFiles({ "list.unsaved-*.kvtl" }).size(), 1);
    }

    void aFaultBeforeTheRenameLeavesTheOldList_data()
    {
        QTest::addColumn<int>("call");
        QTest::addColumn<QByteArray>("pattern");
        QTest::addColumn<int>("nError");
        QTest::newRow("the disk is full") << int(CFileFaults::CallWrite) << QByteArray(szTemporary) << ENOSPC;
        QTest::newRow("the disk fails at writing") << int(CFileFaults::CallWrite) << QByteArray(szTemporary) << EIO;
        QTest::newRow("the disk fails at the end") << int(CFileFaults::CallSync) << QByteArray(szTemporary) << EIO;
        QTest::newRow("the disk fails at closing") << int(CFileFaults::CallClose) << QByteArray(szTemporary) << EIO;
        QTest::newRow("nobody says whether it is a link") << int(CFileFaults::CallLink) << QByteArray(szList) << EIO;
        QTest::newRow("the mode cannot be kept") << int(CFileFaults::CallMode) << QByteArray(szTemporary) << EPERM;
        QTest::newRow("the proof cannot be read") << int(CFileFaults::CallRead) << QByteArray(szTemporary) << EIO;
        QTest::newRow("the proof is another") << int(CFileFaults::CallRead) << QByteArray(szTemporary) << CFileFaults::nFlip;
        QTest::newRow("the proof is out of reach") << int(CFileFaults::CallStatus) << QByteArray(szTemporary) << EACCES;
        QTest::newRow("it cannot be renamed") << int(CFileFaults::CallRename) << QByteArray(szList) << EIO;
    }

    void aFaultBeforeTheRenameLeavesTheOldList()
    {
        QFETCH(int, call);
        QFETCH(QByteArray, pattern);
        QFETCH(int, nError);
        pFixture->StartAsIs();
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Ours");
        ExpectWarning("The list is not being saved");
        {
            const CFileFaults faults(static_cast<CFileFaults::EnCall>(call), pattern, nError);
            QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath(), 0), 6);
            QVERIFY(faults.GetFailed() > 0);
        }
        QCOMPARE(pFixture->Read("list.kvtl"), before);
        QCOMPARE(pFixture->ListFiles({ "list.kvtl*" }), QStringList{ "list.kvtl" });
    }

    void aLinkThatCannotBeFollowedStaysALink_data()
    {
        QTest::addColumn<int>("call");
        QTest::newRow("nobody says what it is") << int(CFileFaults::CallLink);
        QTest::newRow("nobody says where it leads") << int(CFileFaults::CallReadLink);
    }

    void aLinkThatCannotBeFollowedStaysALink()
    {
        QFETCH(int, call);
        QVERIFY(QFile::rename(pFixture->GetPath(), pFixture->GetPath("real.kvtl")));
        QVERIFY(QFile::link("real.kvtl", pFixture->GetPath()));
        pFixture->Write("other.kvtl", before);
        QVERIFY(QFile::link("other.kvtl", pFixture->GetPath("way.kvtl")));
        pFixture->StartAsIs();
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Ours");
        {
            const CFileFaults faults(static_cast<CFileFaults::EnCall>(call), szList, EIO);
            QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath(), 0), 0); // to where it led before
            QVERIFY(faults.GetFailed() > 0);
        }
        ExpectWarning("The list was not exported. .*way.kvtl: it ");
        {
            const CFileFaults faults(static_cast<CFileFaults::EnCall>(call), "way.kvtl", EIO);
            QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath("way.kvtl"), 0), 6);
        }
        QVERIFY(QFileInfo(pFixture->GetPath()).isSymLink() && QFileInfo(pFixture->GetPath("way.kvtl")).isSymLink());
        QVERIFY(pFixture->Read("real.kvtl").contains("Ours"));
        QCOMPARE(pFixture->Read("other.kvtl"), before);
    }

    void aListOutOfReachBehindItsLinkIsNotSaved()
    {
        QVERIFY(QFile::rename(pFixture->GetPath(), pFixture->GetPath("real.kvtl")));
        QVERIFY(QFile::link("real.kvtl", pFixture->GetPath()));
        const CFileFaults faults(CFileFaults::CallReadLink, szList, EIO);
        ExpectWarning("nobody knows where its links lead");
        pFixture->StartAsIs();
        ExpectWarning("nobody knows where its links lead");
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Ours");
        QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath(), 0), 6);
        QCOMPARE(pFixture->Read("real.kvtl"), before);
        QCOMPARE(pFixture->ListFiles(), (QStringList{ "list.kvtl", "real.kvtl" }));
    }

    void aFileThatMayBeTheOwnOneIsNotExportedTo_data()
    {
        QTest::addColumn<int>("call");
        QTest::addColumn<QByteArray>("pattern");
        QTest::newRow("nobody says what it is") << int(CFileFaults::CallStatus) << QByteArray("way.kvtl");
        QTest::newRow("nobody says what the own one is") << int(CFileFaults::CallStatus) << QByteArray(szList);
    }

    void aFileThatMayBeTheOwnOneIsNotExportedTo()
    {
        QFETCH(int, call);
        QFETCH(QByteArray, pattern);
        pFixture->Write("list.kvtl", "damaged");
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        QCOMPARE(::link(QFile::encodeName(pFixture->GetPath()).constData(),
                        QFile::encodeName(pFixture->GetPath("way.kvtl")).constData()),
                 0);
        g_pPrcListControl->AddGroup(Group("Ours"), true);
        const CFileFaults faults(static_cast<CFileFaults::EnCall>(call), pattern, EIO);
        ExpectWarning("it may be the list's own file, and is out of reach");
        ExpectWarning("The list is not being saved"); // at the end
        QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath("way.kvtl"), 0), 6);
        QVERIFY(faults.GetFailed() > 0);
        QCOMPARE(pFixture->Read("way.kvtl"), QByteArray("damaged"));
    }

    void aFaultInAnImportLeavesListAndFiles_data()
    {
        QTest::addColumn<int>("call");
        QTest::addColumn<QByteArray>("pattern");
        QTest::addColumn<int>("nError");
        QTest::addColumn<int>("nResult");
        QTest::newRow("the file cannot be read") << int(CFileFaults::CallRead) << QByteArray("other.kvtl") << EIO << 2;
        QTest::newRow("it is out of reach") << int(CFileFaults::CallStatus) << QByteArray("other.kvtl") << EIO << 2;
        QTest::newRow("the own list cannot be read") << int(CFileFaults::CallRead) << QByteArray(szList) << EIO << 3;
        QTest::newRow("the own list is another") << int(CFileFaults::CallRead) << QByteArray(szList) << CFileFaults::nFlip << 3;
        QTest::newRow("the list before cannot be kept") << int(CFileFaults::CallSync) << QByteArray("list.2*") << EIO << 4;
        QTest::newRow("the disk is full") << int(CFileFaults::CallWrite) << QByteArray(szTemporary) << ENOSPC << 4;
        QTest::newRow("the proof cannot be read") << int(CFileFaults::CallRead) << QByteArray(szTemporary) << EIO << 4;
        QTest::newRow("the proof is another") << int(CFileFaults::CallRead) << QByteArray(szTemporary) << CFileFaults::nFlip << 4;
        QTest::newRow("it cannot be renamed") << int(CFileFaults::CallRename) << QByteArray(szList) << EIO << 3;
    }

    void aFaultInAnImportLeavesListAndFiles()
    {
        QFETCH(int, call);
        QFETCH(QByteArray, pattern);
        QFETCH(int, nError);
        QFETCH(int, nResult);
        pFixture->StartAsIs();
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Hall") })));
        QSignalSpy logged(pFixture->pHost.get(), &CControlHost::LogLine);
        {
            const CFileFaults faults(static_cast<CFileFaults::EnCall>(call), pattern, nError);
            QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), nResult);
            QVERIFY(faults.GetFailed() > 0);
        }
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Stage"));
        QCOMPARE(pFixture->Read("list.kvtl"), before);
        QCOMPARE(pFixture->ListFiles({ "list.kvtl*" }), QStringList{ "list.kvtl" });
        QCOMPARE(logged.count(), 1);
    }

    void aListThatCannotBeReadWhenItIsSavedIsLeftAlone()
    {
        pFixture->StartAsIs();
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Ours");
        ExpectWarning("what stands there could not be read: Input/output error");
        {
            const CFileFaults faults(CFileFaults::CallRead, szList, EIO);
            QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath(), 0), 7);
        }
        QCOMPARE(pFixture->Read("list.kvtl"), before);
        QCOMPARE(pFixture->ListFiles({ "list.unsaved-*.kvtl" }).size(), 1);
    }

    void aFileThatAppearsDuringASaveIsLeftAlone_data()
    {
        QTest::addColumn<int>("call");
        QTest::addColumn<QByteArray>("pattern");
        QTest::newRow("while it is written") << int(CFileFaults::CallSync) << QByteArray(szTemporary);
        QTest::newRow("just before the rename") << int(CFileFaults::CallRenameNew) << QByteArray(szList);
    }

    void aFileThatAppearsDuringASaveIsLeftAlone()
    {
        QFETCH(int, call);
        QFETCH(QByteArray, pattern);
        QVERIFY(QFile::remove(pFixture->GetPath()));
        pFixture->StartAsIs();
        g_pPrcListControl->AddGroup(Group("Ours"), true);
        ExpectWarning("The list is not being saved");
        {
            const CFileFaults faults(static_cast<CFileFaults::EnCall>(call), pattern,
                                     [&] { pFixture->Write("list.kvtl", "late"); });
            QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath(), 0), 7);
        }
        QCOMPARE(pFixture->Read("list.kvtl"), QByteArray("late"));
        QCOMPARE(pFixture->ListFiles({ "list.unsaved-*.kvtl" }).size(), 1);
    }

    void aFileThatChangesDuringASaveIsLeftAlone()
    {
        pFixture->StartAsIs();
        g_pPrcListControl->AddGroup(Group("Ours"), true);
        ExpectWarning("The list is not being saved");
        {
            const CFileFaults faults(CFileFaults::CallSync, szTemporary, [&] { pFixture->Write("list.kvtl", "changed"); });
            QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath(), 0), 7);
        }
        QCOMPARE(pFixture->Read("list.kvtl"), QByteArray("changed"));
        QCOMPARE(pFixture->ListFiles({ "list.unsaved-*.kvtl" }).size(), 1);
    }

    void aFileSystemWithoutTheFlagStillOverwritesNothing()
    {
        QVERIFY(QFile::remove(pFixture->GetPath()));
        pFixture->StartAsIs();
        g_pPrcListControl->AddGroup(Group("Ours"), true);
        {
            const CFileFaults faults(CFileFaults::CallRenameNew, szList, EINVAL);
            QCOMPARE(g_pPrcListControl->ExportList(pFixture->GetPath(), 0), 0);
            QCOMPARE(faults.GetFailed(), 1);
        }
        QVERIFY(pFixture->Read("list.kvtl").contains("Ours"));
        QCOMPARE(pFixture->ListFiles(), QStringList{ "list.kvtl" });
    }

    void aFileOutOfReachIsNotImported()
    {
        pFixture->StartAsIs();
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Hall") })));
        const CFileFaults faults(CFileFaults::CallStatus, "other.kvtl", ENAMETOOLONG);
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 2);
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Stage"));
    }

    void aFaultThatPassesIsMadeGood()
    {
        pFixture->StartAsIs();
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Ours");
        QSignalSpy changed(pFixture->pHost.get(), &CControlHost::ListTroubleChanged);
        {
            const CFileFaults faults(CFileFaults::CallWrite, szTemporary, ENOSPC);
            ExpectWarning("The list is not being saved");
            const QString strReason = pFixture->pHost->SaveList();
            QVERIFY2(strReason.endsWith("list.kvtl: No space left on device"), qPrintable(strReason));
            QCOMPARE(pFixture->pHost->GetListTrouble(), strReason);
        }
        QCOMPARE(pFixture->pHost->SaveList(), QString());
        QCOMPARE(pFixture->pHost->GetListTrouble(), QString());
        QCOMPARE(changed.count(), 2);
        QVERIFY(pFixture->Read("list.kvtl").contains("Ours"));
    }

    void aDatedFileThatFailsIsSaidToFail()
    {
        pFixture->StartAsIs();
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Ours");
        const CFileFaults faults(CFileFaults::CallSync, "list.unsaved-*", EIO);
        QString strReason;
        QCOMPARE(pFixture->pHost->SaveListAside(strReason), QString());
        QVERIFY2(strReason.contains(".kvtl: Input/output error"), qPrintable(strReason));
        QCOMPARE(pFixture->ListFiles(), QStringList{ "list.kvtl" });
    }

private:
    QScopedPointer<CControlFixture> pFixture;
    QByteArray before;
};

PTV_TEST_MAIN_CORE(CListFaultsTest)
#include "tst_listfaults.moc"
