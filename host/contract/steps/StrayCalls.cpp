#include "contract/steps/StrayCalls.h"

#include "contract/library/CSite.h"
#include "contract/library/Trees.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IRuntimeControl.h"

namespace {

/// What a stray call may need beside its id.
struct SPlace
{
    IPrcListControl& list;
    IPrcBasicControl& basic;
    IRuntimeControl& runtime;
    QUuid idProcessor; ///< of a node that is there; null without one
};

struct SOperation
{
    const char* szName; ///< %1 is the id, %2 a processor that is there
    void (*pMake)(const SPlace& place, const QUuid& id);
};

constexpr SOperation listOperation[] = {
    { "DeleteProcessor(%1, false)", [](const SPlace& place, const QUuid& id) { place.list.DeleteProcessor(id, false); } },
    { "DeleteGroup(%1, true)", [](const SPlace& place, const QUuid& id) { place.list.DeleteGroup(id, true); } },
    { "DeleteGroup(%1, false)", [](const SPlace& place, const QUuid& id) { place.list.DeleteGroup(id, false); } },
    { "RenameGroup(%1, \"Stray\")",
      [](const SPlace& place, const QUuid& id) { place.list.RenameGroup(id, QStringLiteral("Stray")); } },
    { "RenameProcessor(%1, \"Stray\")",
      [](const SPlace& place, const QUuid& id) { place.basic.RenameProcessor(id, QStringLiteral("Stray")); } },
    { "MoveProcessor(%1, the root)", [](const SPlace& place, const QUuid& id) { place.list.MoveProcessor(id, {}); } },
    { "MoveProcessor(%2, %1)", [](const SPlace& place, const QUuid& id) { place.list.MoveProcessor(place.idProcessor, id); } },
    { "SetExpanded(%1, false)", [](const SPlace& place, const QUuid& id) { place.list.SetExpanded(id, false); } },
    { "SetSelectedNodes({ %1 })", [](const SPlace& place, const QUuid& id) { place.runtime.SetSelectedNodes({ id }); } },
    { "IsNodeActive(%1)", [](const SPlace& place, const QUuid& id) { place.list.IsNodeActive(id); } },
    { "IsNodeInUse(%1)", [](const SPlace& place, const QUuid& id) { place.runtime.IsNodeInUse(id); } },
    { "IsDeleteBlocked(%1)", [](const SPlace& place, const QUuid& id) { place.runtime.IsDeleteBlocked(id); } },
};

} // namespace

int StrayCalls::GetCount()
{
    return static_cast<int>(std::size(listOperation));
}

void StrayCalls::Make(CSite& site, int nOperation, const QUuid& id, const QString& strId, const SReading& reading)
{
    const CLibrary& library = site.GetLibrary();
    const QList<SProcessorNode> listProcessor = Trees::GetProcessors(reading.GetCurrent());
    const SPlace place{ library.GetPrcList(), library.GetPrcBasic(), library.GetRuntime(),
                        listProcessor.isEmpty() ? QUuid() : listProcessor.first().idNode };
    const SOperation& operation = listOperation[nOperation % static_cast<int>(std::size(listOperation))];
    const QString strName
        = QString::fromLatin1(operation.szName).replace(QStringLiteral("%2"), Trees::Describe(reading, place.idProcessor));
    site.Call(strName.arg(strId), [&] { operation.pMake(place, id); });
}
