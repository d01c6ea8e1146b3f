#include "TestMain.h"
#include "fixtures/CPanelFixture.h"
#include "shell/CProcessorTreeView.h"
#include "toolbar/CProcessorTreeToolBar.h"

#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <unistd.h>

namespace {

const QStringList listDetached
    = { "worker: g_pPrcBasicControl.Detach(observer)",      "worker: g_pPrcListControl.Detach(observer)",
        "worker: g_pRuntimeControl.Detach(observer)",       "worker: g_pPrcRuntimeControl.Detach(observer)",
        "worker: g_pProjectManageControl.Detach(observer)", "worker: g_pProtocalControl.Detach(observer)",
        "worker: g_pPreferenceControl.Detach(observer)" };

bool WriteFile(const QString& strPath)
{
    QFile file(strPath);
    return file.open(QIODevice::WriteOnly) && file.write("a list") > 0;
}

} // namespace

/// How the panel ends.
class CTeardownTest : public QObject
{
    Q_OBJECT

private slots:
    void theWorkerEndsThenTheListIsSaved()
    {
        CPanelFixture panel([](SControlAnswers& answers) { answers.strListFilePath = QStringLiteral("/nowhere/list.kvtl"); });
        panel.Refresh();
        panel.control.ClearJournal();

        panel.Delete();

        QCOMPARE(panel.control.CallsWithThread(),
                 listDetached
                     + QStringList({ "gui: g_pConfigControl.GetListFilePath()",
                                     "gui: g_pPrcListControl.ExportList(\"/nowhere/list.kvtl\", 0)" }));
    }

    void theFileIsRemovedOnlyWhenTheExportAnswersOne_data()
    {
        QTest::addColumn<int>("result");
        QTest::addColumn<bool>("exists");
        QTest::newRow("success") << 0 << true;
        QTest::newRow("worthless") << 1 << false;
        QTest::newRow("another failure") << 2 << true;
        QTest::newRow("negative") << -1 << true;
        QTest::newRow("large") << 257 << true;
    }

    void theFileIsRemovedOnlyWhenTheExportAnswersOne()
    {
        QFETCH(int, result);
        const QTemporaryDir dir;
        const QString strPath = dir.filePath(QStringLiteral("list.kvtl"));
        QVERIFY(WriteFile(strPath));
        const QFile::Permissions permissions = QFile::permissions(strPath);
        CPanelFixture panel([&](SControlAnswers& answers) {
            answers.strListFilePath = strPath;
            answers.nExportResult = result;
        });

        panel.Delete();

        QTEST(QFile::exists(strPath), "exists");
        if (QFile::exists(strPath)) {
            QCOMPARE(QFile::permissions(strPath), permissions);
        }
    }

    void aFileThatIsMissingIsNoTrouble()
    {
        const QTemporaryDir dir;
        CPanelFixture panel([&](SControlAnswers& answers) {
            answers.strListFilePath = dir.filePath(QStringLiteral("missing.kvtl"));
            answers.nExportResult = 1;
        });

        panel.Delete();

        QVERIFY(dir.isValid());
    }

    void beforeItIsRemovedTheFileGetsItsPermissions()
    {
        const QTemporaryDir dir;
        const QString strPath = dir.filePath(QStringLiteral("list.kvtl"));
        const QString strTwin = dir.filePath(QStringLiteral("twin.kvtl"));
        QVERIFY(WriteFile(strPath));
        // A second name of the same file shows what became of it.
        QCOMPARE(::link(QFile::encodeName(strPath).constData(), QFile::encodeName(strTwin).constData()), 0);
        CPanelFixture panel([&](SControlAnswers& answers) {
            answers.strListFilePath = strPath;
            answers.nExportResult = 1;
        });

        panel.Delete();

        QVERIFY(!QFile::exists(strPath));
        const QFile::Permissions permissions = QFile::permissions(strTwin);
        QVERIFY(permissions.testFlag(QFileDevice::ReadOther));
        QVERIFY(permissions.testFlag(QFileDevice::WriteOther));
        QVERIFY(!permissions.testFlag(QFileDevice::ReadOwner));
        QVERIFY(!permissions.testFlag(QFileDevice::ReadGroup));
    }

    void theChildrenLiveUntilTheListIsSaved()
    {
        CPanelFixture panel;
        const QPointer<QObject> pToolBar = panel.ToolBar();
        const QPointer<QThread> pThread = panel.View()->findChild<QThread*>();
        bool bAlive = false;
        panel.control.Hold(QStringLiteral("ExportList"));
        const QScopedPointer<QThread> pWatcher(QThread::create([&] {
            panel.control.WaitForHeld(QStringLiteral("ExportList"));
            bAlive = !pToolBar.isNull() && !pThread.isNull();
            panel.control.Release(QStringLiteral("ExportList"));
        }));
        pWatcher->start();

        panel.Delete();
        QVERIFY(pWatcher->wait());

        QVERIFY(bAlive);
        QVERIFY(pToolBar.isNull());
        QVERIFY(pThread.isNull());
    }

    void theThreadIsJoined()
    {
        CPanelFixture panel;
        bool bFinished = false;
        const auto* pThread = panel.View()->findChild<QThread*>();
        connect(pThread, &QThread::finished, this, [&] { bFinished = true; }, Qt::DirectConnection);

        panel.Delete();

        QVERIFY(bFinished);
        QCOMPARE(panel.control.Attached(), QStringList());
    }

    void whatTheStoreStillTellsReachesNobody()
    {
        CPanelFixture panel;
        panel.control.Set([](SControlAnswers& answers) {
            answers.nodeDiscovered = Root({}, { Processor("alpha") });
            answers.vecDiscoveredSelection = { ProcessorId("alpha") };
            answers.strProject = QStringLiteral("Alpha");
        });
        panel.RefreshStore();
        panel.control.ClearJournal();

        panel.Delete();
        QCoreApplication::processEvents();

        QCOMPARE(panel.control.Commands(), QStringList("g_pPrcListControl.ExportList(\"\", 0)"));
    }

    void aStopWaitsForARefreshThatIsBlockedAndOnlyForIt()
    {
        const QString strRead = QStringLiteral("g_pPreferenceControl.IsChiefMode");
        CPanelFixture panel;
        panel.control.Hold(strRead);
        do {
            panel.control.Raise(1);
        } while (!panel.control.WaitForHeld(strRead, 100));
        for (int nMessage : { 7, 9, 10 }) {
            panel.control.RaiseHere(nMessage);
        }
        bool bWaited = false;
        const QScopedPointer<QThread> pWatcher(QThread::create([&] {
            // Long enough for a stop that does not wait.
            bWaited = !panel.control.WaitForCall(QStringLiteral("GetListFilePath"), 1, 200);
            panel.control.Release(strRead);
        }));
        pWatcher->start();

        panel.Delete();
        QVERIFY(pWatcher->wait());

        QVERIFY(bWaited);
        QCOMPARE(panel.control.CallCount(strRead), 1);
        const QStringList listCall = panel.control.CallsWithThread();
        QVERIFY(listCall.indexOf(QStringLiteral("worker: g_pRuntimeControl.IsSimulatorPane()")) > 0);
        QCOMPARE(listCall.mid(listCall.size() - 9, 7), listDetached);
        QCOMPARE(listCall.last(), QStringLiteral("gui: g_pPrcListControl.ExportList(\"\", 0)"));
    }

    void aStopWithoutAnyMessageDoesNotHang()
    {
        for (int i = 0; i < 20; ++i) {
            CPanelFixture panel;
            panel.Delete();
            QCOMPARE(panel.control.Attached(), QStringList());
        }
    }
};

PTV_TEST_MAIN(CTeardownTest)
#include "tst_teardown.moc"
