#include "CorvidControl/faults/ControlCalls.h"

#include <algorithm>
#include <array>

namespace {

struct SCommandName
{
    const char* szName;
    EnListCommand command;
};

constexpr std::array<SCommandName, 11> listCommand{ {
    { "add-group", CommandAddGroup },
    { "add-processor", CommandAddProcessor },
    { "add-simulators", CommandAddSimulators },
    { "delete", CommandDelete },
    { "delete-group", CommandDeleteGroup },
    { "ungroup", CommandUngroup },
    { "rename", CommandRename },
    { "move", CommandMove },
    { "import", CommandImport },
    { "export", CommandExport },
    { "scan", CommandScan },
} };

QStringList Name(const QString& strObject, const QStringList& listOperation)
{
    QStringList listCall;
    for (const QString& strOperation : listOperation) {
        listCall.append(strObject + QLatin1Char('.') + strOperation);
    }
    return listCall;
}

QStringList Split(const char* szOperations)
{
    return QString::fromLatin1(szOperations).split(QLatin1Char(' '));
}

QStringList BuildAll()
{
    return Name(QStringLiteral("ConfigControl"), Split("GetReservedIPs GetListFilePath"))
        + Name(QStringLiteral("PrcBasicControl"),
               Split("Attach Detach RefreshProcessors AddSimulators AddProcessor RenameProcessor GetTypeName GetLocalAddress "
                     "IsListLocked IsRefreshBlocked"))
        + Name(QStringLiteral("PrcListControl"),
               Split(
                   "Attach Detach ExportList ImportList GetDiscoveredTree GetSimulatorTree AddGroup DeleteGroup DeleteProcessor "
                   "MoveProcessor RenameGroup IsNodeActive SetExpanded GetSimulatorCount GetNextGroupIndex GetProcessorIPs "
                   "GetNodeType"))
        + Name(QStringLiteral("PrcRuntimeControl"), Split("Attach Detach"))
        + Name(QStringLiteral("PreferenceControl"), Split("Attach Detach IsChiefMode"))
        + Name(QStringLiteral("ProjectManageControl"), Split("Attach Detach GetProjectInfo"))
        + Name(QStringLiteral("ProtocalControl"), Split("Attach Detach"))
        + Name(QStringLiteral("RuntimeControl"),
               Split("Attach Detach PostMessage IsSimulatorPane SetSimulatorPane SetSelectedNodes GetSelectedNodes "
                     "GetSelectedProcessors IsDeleteBlocked IsNodeInUse SetBusy"));
}

// IsSimulatorPane is not among them: it must never wait, for the panel calls it with its own lock held.
QStringList BuildHeld()
{
    return Name(QStringLiteral("PrcBasicControl"), Split("RefreshProcessors AddProcessor IsListLocked IsRefreshBlocked"))
        + Name(QStringLiteral("PrcListControl"), Split("GetDiscoveredTree GetSimulatorTree DeleteGroup DeleteProcessor"))
        + Name(QStringLiteral("PreferenceControl"), Split("IsChiefMode"))
        + Name(QStringLiteral("ProjectManageControl"), Split("GetProjectInfo"))
        + Name(QStringLiteral("RuntimeControl"), Split("PostMessage SetSelectedNodes GetSelectedNodes SetBusy"));
}

} // namespace

const QStringList& ControlCalls::GetAll()
{
    static const QStringList listAll = BuildAll();
    return listAll;
}

const QStringList& ControlCalls::GetHeld()
{
    static const QStringList listHeld = BuildHeld();
    return listHeld;
}

const QStringList& ControlCalls::GetCommands()
{
    static const QStringList listName = [] {
        QStringList list;
        for (const SCommandName& name : listCommand) {
            list.append(QLatin1String(name.szName));
        }
        return list;
    }();
    return listName;
}

std::optional<EnListCommand> ControlCalls::FindCommand(const QString& strName)
{
    const auto it = std::find_if(listCommand.begin(), listCommand.end(),
                                 [&](const SCommandName& name) { return strName == QLatin1String(name.szName); });
    return it == listCommand.end() ? std::nullopt : std::optional<EnListCommand>(it->command);
}
