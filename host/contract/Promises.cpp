#include "contract/Promises.h"

namespace {

const std::vector<SPromise> vecAll{
    { "C-library-1", SPromise::Required, "The library exports the eight objects itself, and none of them is null." },
    { "C-library-2", SPromise::NotTestable, "The objects outlive the panel and its last job." },
    { "C-library-3", SPromise::Required,
      "Each visible change is followed within a second by a message that makes the panel read." },
    { "C-library-4", SPromise::Required, "All operations may be called on eight threads at a time while slow ones block." },
    { "C-library-5", SPromise::Required, "Ids that are null, unknown or deleted harm nothing." },
    { "C-config-1", SPromise::Recommended, "GetReservedIPs appends to the list of its caller." },
    { "C-config-2", SPromise::Required, "GetListFilePath is an absolute path or empty." },
    { "C-basic-1", SPromise::Recommended, "A message that makes the panel read follows the attachment of an observer." },
    { "C-basic-2", SPromise::Required, "After Detach has returned no Notify is running and none comes." },
    { "C-basic-3", SPromise::Required, "RefreshProcessors has listed what it found when it returns." },
    { "C-basic-4", SPromise::Required, "AddSimulators adds to the Simulator pane, and returns at once." },
    { "C-basic-5", SPromise::Required, "AddProcessor adds the processor at its address and no other." },
    { "C-basic-6", SPromise::Required, "RenameProcessor sets the name of a processor that is active." },
    { "C-basic-7", SPromise::Recommended, "GetTypeName has a name for the type that the panel offers." },
    { "C-basic-8", SPromise::NotTestable, "GetLocalAddress is the address of this machine." },
    { "C-basic-9", SPromise::NotTestable, "IsListLocked is true while the list may not be changed." },
    { "C-basic-10", SPromise::NotTestable, "IsRefreshBlocked is true while no refresh may be started." },
    { "C-list-1", SPromise::Required, "ExportList answers 0 when the file holds the list, and ImportList brings it back." },
    { "C-list-2", SPromise::Required, "ExportList never answers 1 over a good list." },
    { "C-list-3", SPromise::Recommended, "Two processes that share a list keep all that was answered by 0." },
    { "C-list-4", SPromise::Required, "ImportList answers 2 for a file that is no valid list." },
    { "C-list-5", SPromise::Required, "An import that fails leaves the list as it was." },
    { "C-list-6", SPromise::NotTestable, "ImportList answers 3 when its own list, 4 when the file could not be written." },
    { "C-list-7", SPromise::Required, "ImportList answers 5 for too many processors." },
    { "C-list-8", SPromise::Required, "AddGroup adds an empty group to the current pane under the group's own id." },
    { "C-list-9", SPromise::Required, "DeleteGroup with its processors deletes all of them." },
    { "C-list-10", SPromise::Required,
      "DeleteGroup without its processors moves them to the root of the pane, and does not block." },
    { "C-list-11", SPromise::Required, "DeleteProcessor deletes that processor and no other." },
    { "C-list-12", SPromise::Required, "MoveProcessor moves into the group, or to the root of the pane for a null id." },
    { "C-list-13", SPromise::Required, "RenameGroup sets the name of a group." },
    { "C-list-14", SPromise::NotTestable, "IsNodeActive says with IsNodeInUse what blocks the deletion." },
    { "C-list-15", SPromise::Required, "SetExpanded comes back in the next tree, in both panes." },
    { "C-list-16", SPromise::Required, "SetExpanded of a null id is the root of the current pane." },
    { "C-list-17", SPromise::Required, "GetSimulatorCount is the number of simulators." },
    { "C-list-18", SPromise::Recommended, "GetNextGroupIndex is 1 or more." },
    { "C-list-19", SPromise::Required, "GetProcessorIPs names the addresses of all processors of the list." },
    { "C-list-20", SPromise::Required,
      "GetNodeType knows groups, processors and the root, and takes no unknown id for a group." },
    { "C-runtime-1", SPromise::Required, "PostMessage delivers its number to the observers." },
    { "C-runtime-2", SPromise::Required, "IsSimulatorPane returns while every other call is held." },
    { "C-runtime-3", SPromise::Required, "SetSimulatorPane comes back by IsSimulatorPane." },
    { "C-runtime-4", SPromise::Required, "The nodes of SetSelectedNodes come back by GetSelectedNodes." },
    { "C-runtime-5", SPromise::Required, "A selection keeps its order." },
    { "C-runtime-6", SPromise::Required, "Each pane has a selection of its own." },
    { "C-runtime-7", SPromise::Required, "A null id in a selection is the root, alone or among others." },
    { "C-runtime-8", SPromise::NotTestable, "GetSelectedProcessors are the processors on which deletion is tested." },
    { "C-runtime-9", SPromise::NotTestable, "IsDeleteBlocked disables the deletion of a single node." },
    { "C-runtime-10", SPromise::NotTestable, "IsNodeInUse disables the deletion of several nodes." },
    { "C-runtime-11", SPromise::Required, "SetBusy bears overlapping jobs." },
    { "C-preference-1", SPromise::NotTestable, "IsChiefMode is true while Chief-Member mode is on." },
    { "C-project-1", SPromise::Required, "GetProjectInfo overwrites what it knows; the name is UTF-8 without a null." },
    { "C-observer-1", SPromise::Recommended, "Notify comes on a thread of the library, never on the caller's stack." },
    { "C-observer-2", SPromise::Recommended, "No lock that a read needs is held during Notify." },
    { "C-observer-3", SPromise::Recommended, "Calls from inside Notify return." },
    { "C-node-1", SPromise::Required, "Ids are not null and unique in their pane, and the kinds of the nodes are right." },
    { "C-node-2", SPromise::Required, "What the panel only carries (idAux, setAux, the ports) stays." },
    { "C-node-3", SPromise::Required, "The lists keep their order." },
};

} // namespace

const std::vector<SPromise>& Promises::GetAll()
{
    return vecAll;
}

QString Promises::GetName(SPromise::EnClass kind)
{
    switch (kind) {
    case SPromise::Required:
        return QStringLiteral("required");
    case SPromise::Recommended:
        return QStringLiteral("recommended");
    case SPromise::NotTestable:
        break;
    }
    return QStringLiteral("not testable");
}
