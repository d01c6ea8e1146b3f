#include "CControlFixture.h"
#include "CorvidControl/messages/EnControlMessage.h"
#include "TestMain.h"
#include "interfaces/control/SProjectInfo.h"

#include <thread>

using Change = std::function<void(CControlHost&)>;
Q_DECLARE_METATYPE(Change)

/// What the application does around the list.
class CHostStateTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
        pFixture->Start();
    }

    void cleanup()
    {
        pFixture.reset();
    }

    void aChangeIsToldOnceAndToTheApplicationToo_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<int>("nMessage");
        QTest::newRow("project") << Change([](CControlHost& host) { host.OpenProject("Aurora"); }) << int(MessageProjectChanged);
        QTest::newRow("chief mode") << Change([](CControlHost& host) { host.SetChiefMode(true); }) << int(MessageChiefChanged);
        QTest::newRow("lock") << Change([](CControlHost& host) { host.SetListLocked(true); }) << int(MessageCommandsChanged);
        QTest::newRow("refresh") << Change([](CControlHost& host) { host.SetRefreshBlocked(true); })
                                 << int(MessageCommandsChanged);
    }

    void aChangeIsToldOnceAndToTheApplicationToo()
    {
        QFETCH(Change, change);
        QFETCH(int, nMessage);
        QSignalSpy changed(pFixture->pHost.get(), &CControlHost::StateChanged);
        change(*pFixture->pHost);
        change(*pFixture->pHost);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(pFixture->recorder.GetAllMessages(), QVector<int>{ nMessage });
    }

    void theOpenProjectIsKnownByNameAndId()
    {
        SProjectInfo info;
        g_pProjectManageControl->GetProjectInfo(info);
        QCOMPARE(info.strName, std::string());
        QVERIFY(info.idProject.isNull());
        pFixture->pHost->OpenProject(QString::fromUtf8("春节晚会"));
        g_pProjectManageControl->GetProjectInfo(info);
        QCOMPARE(info.strName, std::string("春节晚会"));
        QVERIFY(!info.idProject.isNull());
        pFixture->pHost->CloseProject();
        g_pProjectManageControl->GetProjectInfo(info);
        QCOMPARE(info.strName, std::string());
    }

    void theModesAreSeenByThePanel()
    {
        QVERIFY(!g_pPreferenceControl->IsChiefMode() && !g_pPrcBasicControl->IsListLocked());
        pFixture->pHost->SetChiefMode(true);
        pFixture->pHost->SetListLocked(true);
        pFixture->pHost->SetRefreshBlocked(true);
        QVERIFY(g_pPreferenceControl->IsChiefMode());
        QVERIFY(g_pPrcBasicControl->IsListLocked());
        QVERIFY(g_pPrcBasicControl->IsRefreshBlocked());
    }

    void busyLastsUntilTheLastOfTwoJobsEnds()
    {
        QSignalSpy busy(pFixture->pHost.get(), &CControlHost::BusyChanged);
        g_pRuntimeControl->SetBusy(true);
        g_pRuntimeControl->SetBusy(true);
        g_pRuntimeControl->SetBusy(false);
        QVERIFY(pFixture->pHost->IsBusy());
        g_pRuntimeControl->SetBusy(false);
        QVERIFY(!pFixture->pHost->IsBusy());
        QCOMPARE(busy.count(), 2);
    }

    void anEndWithoutABeginningIsNotBusy()
    {
        g_pRuntimeControl->SetBusy(false);
        g_pRuntimeControl->SetBusy(true);
        QVERIFY(pFixture->pHost->IsBusy());
        g_pRuntimeControl->SetBusy(false);
    }

    void theBusyStateTellsSinceWhen()
    {
        const QDateTime timeBefore = QDateTime::currentDateTime();
        QVERIFY(!pFixture->pHost->GetBusySince().isValid());
        g_pRuntimeControl->SetBusy(true);
        QVERIFY(pFixture->pHost->GetBusySince() >= timeBefore);
        g_pRuntimeControl->SetBusy(false);
        QVERIFY(!pFixture->pHost->GetBusySince().isValid());
    }

    void theEightObjectsExistFromStartToEnd()
    {
        QVERIFY(g_pConfigControl && g_pPrcBasicControl && g_pPrcListControl && g_pPrcRuntimeControl && g_pPreferenceControl
                && g_pProjectManageControl && g_pProtocalControl && g_pRuntimeControl);
        QCOMPARE(g_pConfigControl->GetListFilePath(), pFixture->GetPath());
        pFixture->Stop();
        QVERIFY(!g_pRuntimeControl && !g_pPrcListControl);
        pFixture->Start();
        QVERIFY(g_pRuntimeControl);
    }

    void theEndWaitsForAJobThatTakesItsLastStep()
    {
        pFixture->options.nScanMs = 600000;
        pFixture->Stop();
        pFixture->Start();
        g_pRuntimeControl->SetBusy(true);
        std::atomic<bool> bLastStep{ false };
        std::thread job([&] {
            g_pPrcBasicControl->RefreshProcessors();
            bLastStep = true;
            g_pRuntimeControl->SetBusy(false);
        });
        QTRY_COMPARE(pFixture->pHost->GetRunningJobs().size(), 1);
        pFixture->Stop();
        QVERIFY(bLastStep);
        job.join();
    }

    void messagesHaveNames()
    {
        for (const int nMessage : { 1, 7, 9, 10, 14, 15, 32, 53, 54, 59 }) {
            QVERIFY2(!pFixture->pHost->GetMessageName(nMessage).isEmpty(), qPrintable(QString::number(nMessage)));
        }
        QVERIFY(pFixture->pHost->GetMessageName(2).isEmpty());
    }

private:
    QScopedPointer<CControlFixture> pFixture;
};

PTV_TEST_MAIN_CORE(CHostStateTest)
#include "tst_hoststate.moc"
