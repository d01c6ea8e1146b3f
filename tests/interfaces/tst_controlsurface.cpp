#include "TestMain.h"
#include "interfaces/control/IConfigControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPrcRuntimeControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IProtocalControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/control/SProjectInfo.h"
#include "interfaces/widgets/CBaseThread.h"
#include "interfaces/widgets/CObserver.h"

#include <cstring>
#include <type_traits>

namespace {

/// The slot of a virtual operation, as the compiler's pointer to it tells.
template <typename Operation> int SlotOf(Operation fnOperation)
{
    std::ptrdiff_t arrWord[2];
    static_assert(sizeof(fnOperation) == sizeof(arrWord));
    std::memcpy(arrWord, &fnOperation, sizeof(arrWord));
    return static_cast<int>((arrWord[0] - 1) / std::ptrdiff_t(sizeof(void*)));
}

/// The slots of all operations given, which are to be 0, 1, 2 and so on.
template <typename... Operations> void AddOperations(const char* pName, Operations... fnOperations)
{
    QTest::newRow(pName) << QVector<int>{ SlotOf(fnOperations)... };
}

} // namespace

/// What the panel and the host's libraries must agree on in binary: slots, records, signatures.
class CControlSurfaceTest : public QObject
{
    Q_OBJECT

private slots:
    void theOperationsStandInTheirSlots_data()
    {
        QTest::addColumn<QVector<int>>("vecSlot");
        AddOperations("g_pConfigControl", &IConfigControl::GetReservedIPs, &IConfigControl::GetListFilePath);
        AddOperations("g_pPrcBasicControl", &IPrcBasicControl::Attach, &IPrcBasicControl::Detach,
                      &IPrcBasicControl::RefreshProcessors, &IPrcBasicControl::AddSimulators, &IPrcBasicControl::AddProcessor,
                      &IPrcBasicControl::RenameProcessor, &IPrcBasicControl::GetTypeName, &IPrcBasicControl::GetLocalAddress,
                      &IPrcBasicControl::IsListLocked, &IPrcBasicControl::IsRefreshBlocked);
        AddOperations("g_pPrcListControl", &IPrcListControl::Attach, &IPrcListControl::Detach, &IPrcListControl::ExportList,
                      &IPrcListControl::ImportList, &IPrcListControl::GetDiscoveredTree, &IPrcListControl::GetSimulatorTree,
                      &IPrcListControl::AddGroup, &IPrcListControl::DeleteGroup, &IPrcListControl::DeleteProcessor,
                      &IPrcListControl::MoveProcessor, &IPrcListControl::RenameGroup, &IPrcListControl::IsNodeActive,
                      &IPrcListControl::SetExpanded, &IPrcListControl::GetSimulatorCount, &IPrcListControl::GetNextGroupIndex,
                      &IPrcListControl::GetProcessorIPs, &IPrcListControl::GetNodeType);
        AddOperations("g_pPrcRuntimeControl", &IPrcRuntimeControl::Attach, &IPrcRuntimeControl::Detach);
        AddOperations("g_pPreferenceControl", &IPreferenceControl::Attach, &IPreferenceControl::Detach,
                      &IPreferenceControl::IsChiefMode);
        AddOperations("g_pProjectManageControl", &IProjectManageControl::Attach, &IProjectManageControl::Detach,
                      &IProjectManageControl::GetProjectInfo);
        AddOperations("g_pProtocalControl", &IProtocalControl::Attach, &IProtocalControl::Detach);
        AddOperations("g_pRuntimeControl", &IRuntimeControl::Attach, &IRuntimeControl::Detach, &IRuntimeControl::PostMessage,
                      &IRuntimeControl::IsSimulatorPane, &IRuntimeControl::SetSimulatorPane, &IRuntimeControl::SetSelectedNodes,
                      &IRuntimeControl::GetSelectedNodes, &IRuntimeControl::GetSelectedProcessors,
                      &IRuntimeControl::IsDeleteBlocked, &IRuntimeControl::IsNodeInUse, &IRuntimeControl::SetBusy);
    }

    void theOperationsStandInTheirSlots()
    {
        QFETCH(QVector<int>, vecSlot);
        for (int nSlot = 0; nSlot < vecSlot.size(); ++nSlot) {
            QCOMPARE(vecSlot.at(nSlot), nSlot);
        }
    }

    void theWorkersBaseHasTwoSlotsBehindThoseOfAnObject()
    {
        const int nLastOfObject = SlotOf(&QObject::eventFilter) + 5; // three more events and two notifications
        QCOMPARE(SlotOf(&CBaseThread::Notify), nLastOfObject + 1);
        QCOMPARE(SlotOf(&CBaseThread::ThreadStart), nLastOfObject + 2);
        QVERIFY((std::is_base_of_v<QObject, CBaseThread>));
        QVERIFY((std::is_base_of_v<CObserver, CBaseThread>));
    }

    void anObserverHasOneOperation()
    {
        QCOMPARE(SlotOf(&CObserver::Notify), 0);
        QCOMPARE(sizeof(CObserver), sizeof(void*));
        QVERIFY(!std::has_virtual_destructor_v<CObserver>);
    }

    void recordsGoByValueUnlessTheyAreFilled()
    {
        using std::is_same_v;
        QVERIFY((is_same_v<decltype(&IPrcListControl::AddGroup), void (IPrcListControl::*)(SProcessorGroupNode, bool)>));
        QVERIFY((is_same_v<decltype(&IPrcListControl::MoveProcessor), void (IPrcListControl::*)(QUuid, QUuid)>));
        QVERIFY((is_same_v<decltype(&IPrcListControl::GetDiscoveredTree), void (IPrcListControl::*)(SProcessorAllNode&)>));
        QVERIFY((is_same_v<decltype(&IPrcBasicControl::AddSimulators), void (IPrcBasicControl::*)(SSimulatorRequest)>));
        QVERIFY((is_same_v<decltype(&IPrcBasicControl::AddProcessor), void (IPrcBasicControl::*)(quint32)>));
        QVERIFY((is_same_v<decltype(&IProjectManageControl::GetProjectInfo), void (IProjectManageControl::*)(SProjectInfo&)>));
        QVERIFY((is_same_v<decltype(&IRuntimeControl::SetSelectedNodes), bool (IRuntimeControl::*)(const std::vector<QUuid>&)>));
        QVERIFY((is_same_v<decltype(&IRuntimeControl::GetSelectedNodes), std::vector<QUuid> (IRuntimeControl::*)(bool)>));
    }

    void aNewSimulatorRequestAsksForTheFastestOutput()
    {
        const SSimulatorRequest request;
        QCOMPARE(request.nType, 0xFF00);
        QCOMPARE(request.nCount, 0);
        QCOMPARE(request.nOutput, 3);
        QCOMPARE(SLocalAddress().nIP, 0U);
    }

    void aNewProjectRecordIsEmpty()
    {
        const SProjectInfo info;
        QVERIFY(info.idProject.isNull());
        QVERIFY(info.strName.empty());
        QCOMPARE(info.nReserved1 + info.nReserved2 + info.nReserved3, quint64(0));
        QVERIFY(offsetof(SProjectInfo, nReserved1) > offsetof(SProjectInfo, strName));
        QVERIFY(offsetof(SProjectInfo, nYear) > offsetof(SProjectInfo, nReserved1));
        QVERIFY(offsetof(SProjectInfo, nReserved2) > offsetof(SProjectInfo, nSecond));
    }
};

PTV_TEST_MAIN_CORE(CControlSurfaceTest)

#include "tst_controlsurface.moc"
