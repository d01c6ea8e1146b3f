#include "SStoreCall.h"

#include "CFilledStore.h"

std::vector<SStoreCall> SStoreCall::All()
{
    using Store = CProcessorTreeData;
    return {
        { "GetProjectName", [](Store& store) { store.GetProjectName(); } },
        { "GetSelectedNodes", [](Store& store) { store.GetSelectedNodes(); } },
        { "GetSelectedNodes(bool)", [](Store& store) { store.GetSelectedNodes(true); } },
        { "IsRefreshEnabled", [](Store& store) { store.IsRefreshEnabled(); } },
        { "IsListLocked", [](Store& store) { store.IsListLocked(); } },
        { "IsChiefMode", [](Store& store) { store.IsChiefMode(); } },
        { "IsSimulatorPane", [](Store& store) { store.IsSimulatorPane(); } },
        { "GetSimulatorTree", [](Store& store) { TreeOfPane(store, true); } },
        { "GetDiscoveredTree", [](Store& store) { TreeOfPane(store, false); } },
        { "GetCurrentTree", [](Store& store) { CurrentTree(store); } },
        { "GetProcessorCount", [](Store& store) { store.GetProcessorCount(); } },
        { "GetGroupProcessorCount", [](Store& store) { store.GetGroupProcessorCount(GroupId("Stage")); } },
        { "GetGroup", [](Store& store) { store.GetGroup(GroupId("Stage")); } },
        { "GetProcessor", [](Store& store) { store.GetProcessor(ProcessorId("d")); } },
        { "GetNodeName", [](Store& store) { store.GetNodeName(ProcessorId("d")); } },
        { "SetSimulatorPane", [](Store& store) { store.SetSimulatorPane(false); } },
        { "SetSelectedNodes", [](Store& store) { store.SetSelectedNodes({ ProcessorId("a"), ProcessorId("d") }); } },
        { "SetExpanded", [](Store& store) { store.SetExpanded(QUuid(), true); } },
        { "SetCurrentTree", [](Store& store) { store.SetCurrentTree(DiscoveredTree()); } },
        { "AppendGroup",
          [](Store& store) {
              store.AppendGroup(Group("New"));
              store.SetCurrentTree(DiscoveredTree());
          } },
    };
}
