#include "Builders.h"
#include "CControlFixture.h"
#include "CNameRegistry.h"
#include "CorvidControl/file/ListFormat.h"
#include "TestMain.h"

#include <QDir>
#include <QElapsedTimer>

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace {

QByteArray BuildOther()
{
    return ListFormat::Write(Root({ Group("Theirs") }));
}

QByteArray Encode(const QString& strPath)
{
    return QFile::encodeName(strPath);
}

} // namespace

/// What stands at the list's own place, whoever put it there.
class CListPlaceTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
    }

    void cleanup()
    {
        pFixture.reset();
    }

    void aFileThatAppearedLateIsLeftAlone()
    {
        pFixture->StartAsIs();
        g_pPrcListControl->AddGroup(Group("Ours"), true);
        pFixture->Write("list.kvtl", BuildOther());
        QSignalSpy logged(pFixture->pHost.get(), &CControlHost::LogLine);
        ExpectNotSaved();
        QCOMPARE(Export(), 7);
        QCOMPARE(pFixture->Read("list.kvtl"), BuildOther());
        QCOMPARE(ListAside().size(), 1);
        QCOMPARE(ListFormat::Read(pFixture->Read(ListAside().value(0)), {}).node.listGroup.at(0).strName, QString("Ours"));
        QCOMPARE(logged.count(), 1);
        QVERIFY(logged.at(0).at(0).toString().endsWith("It is kept in " + pFixture->GetPath(ListAside().value(0))));
        QCOMPARE(pFixture->pHost->GetListTrouble(), logged.at(0).at(0).toString());
    }

    void aFileThatAnotherProgramWroteIsLeftAlone()
    {
        pFixture->Start(Root({ Group("Stage") }));
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Ours");
        QCOMPARE(Export(), 0);
        pFixture->Write("list.kvtl", BuildOther());
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Ours again");
        ExpectNotSaved();
        QCOMPARE(Export(), 7);
        QCOMPARE(pFixture->Read("list.kvtl"), BuildOther());
        QVERIFY(pFixture->Read(ListAside().value(0)).contains("Ours again"));
    }

    void aFileThatWasRefusedIsLeftAloneUnderAnySpelling_data()
    {
        QTest::addColumn<QString>("strSpelled"); // % stands for the folder
        QTest::newRow("as it is named") << "%/list.kvtl";
        QTest::newRow("dots") << "%/./sub/../list.kvtl";
        QTest::newRow("slashes") << "%//list.kvtl";
        QTest::newRow("from here") << "list.kvtl";
        QTest::newRow("a link to it") << "%/link.kvtl";
        QTest::newRow("a link to a link") << "%/sub/link.kvtl";
        QTest::newRow("a link to its folder") << "%/there/list.kvtl";
        QTest::newRow("up behind a link to a folder") << "%/inner/../list.kvtl";
        QTest::newRow("a second name") << "%/second.kvtl";
    }

    void aFileThatWasRefusedIsLeftAloneUnderAnySpelling()
    {
        QFETCH(QString, strSpelled);
        const QString strFolder = pFixture->folder.path();
        QVERIFY(QDir(strFolder).mkpath("sub"));
        pFixture->Write("list.kvtl", "hello\n");
        QCOMPARE(symlink("list.kvtl", Encode(strFolder + "/link.kvtl")), 0);
        QCOMPARE(symlink("../link.kvtl", Encode(strFolder + "/sub/link.kvtl")), 0);
        QCOMPARE(symlink(".", Encode(strFolder + "/there")), 0);
        QCOMPARE(symlink("sub", Encode(strFolder + "/inner")), 0);
        QCOMPARE(link(Encode(pFixture->GetPath()), Encode(strFolder + "/second.kvtl")), 0);
        QDir::setCurrent(strFolder);
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        g_pPrcListControl->AddGroup(Group("Ours"), true);
        ExpectNotSaved();
        QCOMPARE(Export(strSpelled.replace('%', strFolder)), 7);
        QDir::setCurrent("/");
        QCOMPARE(pFixture->Read("list.kvtl"), QByteArray("hello\n"));
        QCOMPARE(pFixture->Read("second.kvtl"), QByteArray("hello\n"));
        QVERIFY(QFileInfo(pFixture->GetPath("link.kvtl")).isSymLink());
        QCOMPARE(ListAside().size(), 1);
    }

    void theOwnListIsSavedUnderAnySpelling_data()
    {
        QTest::addColumn<QString>("strSpelled"); // % stands for the folder
        QTest::addColumn<bool>("bThere");
        QTest::newRow("dots") << "%/sub/../list.kvtl" << true;
        QTest::newRow("dots, not there yet") << "%/sub/../list.kvtl" << false;
        QTest::newRow("a link to its folder") << "%/there/list.kvtl" << true;
        QTest::newRow("a link to its folder, not there yet") << "%/there/list.kvtl" << false;
        QTest::newRow("a link to it, not there yet") << "%/link.kvtl" << false;
    }

    void theOwnListIsSavedUnderAnySpelling()
    {
        QFETCH(QString, strSpelled);
        QFETCH(bool, bThere);
        const QString strFolder = pFixture->folder.path();
        QVERIFY(QDir(strFolder).mkpath("sub"));
        QCOMPARE(symlink(".", Encode(strFolder + "/there")), 0);
        QCOMPARE(symlink("list.kvtl", Encode(strFolder + "/link.kvtl")), 0);
        pFixture->Start(Root({ Group("Stage") }));
        QVERIFY(bThere || QFile::remove(pFixture->GetPath()));
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Hall");
        QCOMPARE(Export(strSpelled.replace('%', strFolder)), 0);
        QVERIFY(pFixture->Read("list.kvtl").contains("Hall"));
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Foyer");
        QCOMPARE(Export(), 0); // it knows its own list again
        QVERIFY(pFixture->Read("list.kvtl").contains("Foyer"));
    }

    void aSecondNameOfTheOwnFileIsExportedTo()
    {
        pFixture->Start(Root({ Group("Stage") }));
        QCOMPARE(link(Encode(pFixture->GetPath()), Encode(pFixture->GetPath("second.kvtl"))), 0);
        g_pPrcListControl->AddGroup(Group("Hall"), true);
        QCOMPARE(Export(pFixture->GetPath("second.kvtl")), 0);
        QVERIFY(pFixture->Read("second.kvtl").contains("Hall"));
        QCOMPARE(Export(), 0);
        QCOMPARE(pFixture->Read("list.kvtl"), pFixture->Read("second.kvtl"));
    }

    void anExportElsewhereOverwritesAsTheUserAnswered()
    {
        pFixture->Start(Root({ Group("Stage") }));
        pFixture->Write("other.kvtl", "hello\n");
        QCOMPARE(Export(pFixture->GetPath("other.kvtl")), 0);
        QCOMPARE(pFixture->Read("other.kvtl"), pFixture->Read("list.kvtl"));
    }

    void anImportLeavesALateFileAlone()
    {
        pFixture->StartAsIs();
        g_pPrcListControl->AddGroup(Group("Ours"), true);
        pFixture->Write("list.kvtl", BuildOther());
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Imported") })));
        QSignalSpy logged(pFixture->pHost.get(), &CControlHost::LogLine);
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 3);
        QCOMPARE(pFixture->Read("list.kvtl"), BuildOther());
        QCOMPARE(CControlFixture::GetText(), QString("all*\n  Ours"));
        QCOMPARE(logged.count(), 1);
        ExpectNotSaved(); // at the end
        pFixture->Stop();
        QCOMPARE(ListAside().size(), 1);
    }

    void aListThatWasRemovedIsWrittenAgain()
    {
        pFixture->Start(Root({ Group("Stage") }));
        QVERIFY(QFile::remove(pFixture->GetPath()));
        QCOMPARE(Export(), 0);
        QCOMPARE(ListFormat::Read(pFixture->Read("list.kvtl"), {}).node.listGroup.size(), 1);
    }

    void aRefusedFileThatWasTakenAwayMakesRoom()
    {
        pFixture->Write("list.kvtl", "hello\n");
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        g_pPrcListControl->AddGroup(Group("Ours"), true);
        QVERIFY(QFile::rename(pFixture->GetPath(), pFixture->GetPath("broken")));
        QSignalSpy changed(pFixture->pHost.get(), &CControlHost::ListTroubleChanged);
        QCOMPARE(pFixture->pHost->SaveList(), QString());
        QCOMPARE(pFixture->pHost->GetListTrouble(), QString());
        QCOMPARE(changed.count(), 1);
        QVERIFY(pFixture->Read("list.kvtl").contains("Ours"));
    }

    void whatCannotBeSavedIsKeptInOneFileARun()
    {
        pFixture->Write("list.kvtl", "hello\n");
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        for (int n = 1; n <= 3; ++n) {
            g_pPrcListControl->AddGroup(Group(QStringLiteral("Group %1").arg(n)), true);
            ExpectNotSaved();
            QCOMPARE(Export(), 7);
            QCOMPARE(ListAside().size(), 1);
            QCOMPARE(ListFormat::Read(pFixture->Read(ListAside().value(0)), {}).node.listGroup.size(), n);
        }
        pFixture->Stop();
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        g_pPrcListControl->AddGroup(Group("Another run"), true);
        ExpectNotSaved();
        QCOMPARE(Export(), 7);
        QCOMPARE(ListAside().size(), 2); // in the same second or not
    }

    void aDatedFileThatSomebodyChangedIsLeftAlone()
    {
        pFixture->Write("list.kvtl", "hello\n");
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        QString strReason;
        const QString strFirst = pFixture->pHost->SaveListAside(strReason);
        pFixture->Write(QFileInfo(strFirst).fileName(), BuildOther());
        g_pPrcListControl->AddGroup(Group("Ours"), true);
        const QString strSecond = pFixture->pHost->SaveListAside(strReason);
        QVERIFY2(!strSecond.isEmpty() && strSecond != strFirst, qPrintable(strReason));
        QCOMPARE(pFixture->Read(QFileInfo(strFirst).fileName()), BuildOther());
    }

    void savingNowSaysWhetherTheListIsThere()
    {
        pFixture->Start(Root({ Group("Stage") }));
        g_pPrcListControl->AddGroup(Group("Hall"), true);
        QCOMPARE(pFixture->pHost->SaveList(), QString());
        QVERIFY(pFixture->Read("list.kvtl").contains("Hall"));
        pFixture->Write("list.kvtl", BuildOther());
        g_pPrcListControl->AddGroup(Group("Foyer"), true);
        QSignalSpy changed(pFixture->pHost.get(), &CControlHost::ListTroubleChanged);
        ExpectNotSaved();
        const QString strReason = pFixture->pHost->SaveList();
        QVERIFY2(strReason.contains(pFixture->GetPath() + ": "), qPrintable(strReason));
        QCOMPARE(pFixture->pHost->GetListTrouble(), strReason);
        QCOMPARE(changed.count(), 1);
    }

    void aListThatNoCommandChangedIsNothingNew()
    {
        pFixture->Write("list.kvtl", "hello\n");
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        ExpectNotSaved();
        QCOMPARE(pFixture->pHost->SaveList(), QString());
        ExpectNotSaved();
        QCOMPARE(Export(), 7);
        QCOMPARE(pFixture->ListFiles(), QStringList{ "list.kvtl" });
    }

    void savingAsideNamesItsFile()
    {
        pFixture->Start(Root({ Group("Stage") }));
        QString strReason;
        const QString strPath = pFixture->pHost->SaveListAside(strReason);
        QCOMPARE(QStringList{ QFileInfo(strPath).fileName() }, ListAside());
        QCOMPARE(pFixture->Read(ListAside().value(0)), pFixture->Read("list.kvtl"));
        QCOMPARE(strReason, QString());
        QCOMPARE(pFixture->pHost->SaveListAside(strReason), strPath);
    }

    void whatIsNoRegularFileIsRefusedAtOnce_data()
    {
        QTest::addColumn<QString>("strKind");
        QTest::addColumn<QString>("strReason");
        QTest::newRow("a pipe") << "pipe"
                                << "it is no regular file";
        QTest::newRow("a folder") << "folder"
                                  << "it is a folder";
        QTest::newRow("a device") << "device"
                                  << "it is no regular file";
        QTest::newRow("a file of the kernel's") << "/proc/self/status"
                                                << "it changed while it was read";
        QTest::newRow("a link to nothing") << "nowhere"
                                           << "the link leads nowhere";
        QTest::newRow("links in a circle") << "list.kvtl"
                                           << "Too many levels of symbolic links";
        QTest::newRow("a long file") << "long"
                                     << "it is too long";
    }

    void whatIsNoRegularFileIsRefusedAtOnce()
    {
        QFETCH(QString, strKind);
        QFETCH(QString, strReason);
        const QByteArray path = Encode(pFixture->GetPath());
        if (strKind == "pipe") {
            QCOMPARE(mkfifo(path, 0600), 0);
        } else if (strKind == "folder") {
            QCOMPARE(mkdir(path, 0700), 0);
        } else if (strKind == "device") {
            if (mknod(path, S_IFCHR | 0600, makedev(1, 5)) != 0) {
                QSKIP("no device can be made here");
            }
        } else if (strKind == "long") {
            pFixture->Write("list.kvtl", QByteArray(2 * 1024 * 1024 + 1, ' '));
        } else {
            QCOMPARE(symlink(Encode(strKind), path), 0);
        }
        QElapsedTimer timer;
        timer.start();
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        QVERIFY2(pFixture->pHost->GetListTrouble().contains(strReason), qPrintable(pFixture->pHost->GetListTrouble()));
        g_pPrcListControl->AddGroup(Group("Ours"), true);
        ExpectNotSaved();
        QCOMPARE(Export(), 7);
        QCOMPARE(ListAside().size(), 1);
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath()), 2);
        QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
    }

    void anExportReplacesRegularFilesOnly_data()
    {
        QTest::addColumn<QString>("strKind");
        QTest::newRow("a pipe") << "pipe";
        QTest::newRow("a device") << "device";
        QTest::newRow("a file that is write protected") << "protected";
    }

    void anExportReplacesRegularFilesOnly()
    {
        QFETCH(QString, strKind);
        pFixture->Start(Root({ Group("Stage") }));
        const QByteArray path = Encode(pFixture->GetPath("other.kvtl"));
        if (strKind == "pipe") {
            QCOMPARE(mkfifo(path, 0666), 0);
        } else if (strKind == "protected") {
            pFixture->Write("other.kvtl", "hello\n");
            QCOMPARE(chmod(path, 0444), 0);
        } else if (mknod(path, S_IFCHR | 0600, makedev(1, 5)) != 0) {
            QSKIP("no device can be made here");
        }
        QCOMPARE(chmod(Encode(pFixture->folder.path()), 0777), 0);
        const bool bLowered = strKind == "protected" && geteuid() == 0 && seteuid(65534) == 0; // root may write everything
        ExpectWarning("The list was not exported");
        const int nResult = Export(pFixture->GetPath("other.kvtl"));
        QVERIFY(!bLowered || seteuid(0) == 0);
        QCOMPARE(nResult, 6);
        struct stat status = {};
        QCOMPARE(lstat(path, &status), 0);
        QVERIFY(strKind == "protected" ? pFixture->Read("other.kvtl") == "hello\n" : !S_ISREG(status.st_mode));
    }

    void modeOwnerAndLinkStay()
    {
        QVERIFY(QDir(pFixture->folder.path()).mkpath("share"));
        pFixture->Write("share/ours.kvtl", ListFormat::Write(Root({ Group("Stage") })));
        const QByteArray real = Encode(pFixture->GetPath("share/ours.kvtl"));
        QCOMPARE(symlink("share/ours.kvtl", Encode(pFixture->GetPath())), 0);
        const uid_t nUser = geteuid() == 0 ? 65534 : geteuid();
        const gid_t nGroup = geteuid() == 0 ? 65534 : getegid();
        QCOMPARE(chown(real, nUser, nGroup), 0);
        QCOMPARE(chmod(real, 0640), 0);
        pFixture->StartAsIs();
        g_pPrcListControl->AddGroup(Group("Hall"), true);
        QCOMPARE(Export(), 0);
        struct stat status = {};
        QCOMPARE(stat(real, &status), 0);
        QCOMPARE(status.st_mode & 07777, mode_t(0640));
        QCOMPARE(status.st_uid, nUser);
        QCOMPARE(status.st_gid, nGroup);
        QVERIFY(QFileInfo(pFixture->GetPath()).isSymLink());
        QVERIFY(pFixture->Read("share/ours.kvtl").contains("Hall"));
    }

    void aGroupThatCannotStayGivesNobodyMoreRights()
    {
        if (geteuid() != 0) {
            QSKIP("only root can make a file of a group that this process is not in");
        }
        pFixture->Start(Root({ Group("Stage") }));
        pFixture->Write("other.kvtl", "hello\n");
        const QByteArray path = Encode(pFixture->GetPath("other.kvtl"));
        QCOMPARE(chown(path, 65534, 4), 0); // of a group that user 65534 is not in
        QCOMPARE(chmod(path, 0664), 0);
        QCOMPARE(chmod(Encode(pFixture->folder.path()), 0777), 0);
        QCOMPARE(setegid(65534), 0);
        QCOMPARE(seteuid(65534), 0);
        const int nResult = Export(pFixture->GetPath("other.kvtl"));
        QVERIFY(seteuid(0) == 0 && setegid(0) == 0);
        QCOMPARE(nResult, 0);
        struct stat status = {};
        QCOMPARE(stat(path, &status), 0);
        QCOMPARE(status.st_gid, gid_t(65534));
        QCOMPARE(status.st_mode & 07777, mode_t(0644));
    }

    void aFolderThatOpensLateIsNotWrittenInto()
    {
        pFixture->Write("gate", "closed");
        pFixture->options.strListFile = pFixture->GetPath("gate/list.kvtl");
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        QVERIFY(pFixture->pHost->GetListTrouble().contains("Not a directory"));
        g_pPrcListControl->AddGroup(Group("Ours"), true);
        QVERIFY(QFile::remove(pFixture->GetPath("gate")) && QDir(pFixture->folder.path()).mkpath("gate"));
        pFixture->Write("gate/list.kvtl", BuildOther());
        ExpectNotSaved();
        QCOMPARE(Export(pFixture->options.strListFile), 7);
        QCOMPARE(pFixture->Read("gate/list.kvtl"), BuildOther());
        QCOMPARE(QDir(pFixture->GetPath("gate")).entryList({ "list.unsaved-*.kvtl" }).size(), 1);
    }

    void aReadOnlyFolderShowsTheListAndSaysSo()
    {
        pFixture->Write("list.kvtl", ListFormat::Write(Root({ Group("Stage") })));
        QCOMPARE(chmod(Encode(pFixture->folder.path()), 0555), 0);
        const bool bLowered = geteuid() == 0 && seteuid(65534) == 0;
        ExpectNotSaved();
        pFixture->StartAsIs();
        const QString strTrouble = pFixture->pHost->GetListTrouble();
        const QString strText = CControlFixture::GetText();
        g_pPrcListControl->AddGroup(Group("Ours"), true);
        const QString strReason = pFixture->pHost->SaveList();
        QString strAsideReason;
        const QString strAside = pFixture->pHost->SaveListAside(strAsideReason);
        QVERIFY(!bLowered || seteuid(0) == 0);
        QCOMPARE(chmod(Encode(pFixture->folder.path()), 0755), 0);
        QCOMPARE(strText, QString("all*\n  Stage"));
        QVERIFY2(strTrouble.endsWith("no lock can be made in its folder"), qPrintable(strTrouble));
        QCOMPARE(strReason, strTrouble);
        QVERIFY2(strAside.isEmpty() && strAsideReason.contains("Permission denied"), qPrintable(strAsideReason));
        QCOMPARE(pFixture->ListFiles(), QStringList{ "list.kvtl" });
        pFixture->Stop(); // it can be written again
        QVERIFY(pFixture->Read("list.kvtl").contains("Ours"));
    }

    void aComplaintIsOneLine()
    {
        pFixture->Start(Root({ Group("Stage") }));
        const QString strName = "a\nlist.kvtl";
        pFixture->Write(strName, "hello\n");
        QSignalSpy logged(pFixture->pHost.get(), &CControlHost::LogLine);
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath(strName)), 2);
        g_pPrcListControl->RenameGroup(GroupId("Stage"), QString("a=b\r\nlast line"));
        ExpectWarning("The list was not exported");
        QCOMPARE(Export(pFixture->GetPath("no\nfolder/list.kvtl")), 6);
        QCOMPARE(logged.count(), 3);
        for (const QList<QVariant>& line : std::as_const(logged)) {
            QVERIFY2(!line.at(0).toString().contains('\n'), qPrintable(line.at(0).toString()));
        }
    }

private:
    void ExpectNotSaved()
    {
        ExpectWarning("The list is not being saved");
    }
    int Export(const QString& strPath = {})
    {
        return g_pPrcListControl->ExportList(strPath.isEmpty() ? pFixture->GetPath() : strPath, 0);
    }
    QStringList ListAside() const
    {
        return pFixture->ListFiles({ "list.unsaved-*.kvtl" });
    }

    QScopedPointer<CControlFixture> pFixture;
};

PTV_TEST_MAIN_CORE(CListPlaceTest)
#include "tst_listplace.moc"
