#include "check/Hits.h"

#include "check/Invariants.h"
#include "check/KeptExceptions.h"

namespace {

bool IsOf(SIntent::EnKind kind, const SPanelCall& call)
{
    switch (kind) {
    case SIntent::Delete:
        return call.strOperation == QLatin1String("DeleteProcessor") || call.strOperation == QLatin1String("DeleteGroup");
    case SIntent::Ungroup:
        return call.strOperation == QLatin1String("DeleteGroup");
    case SIntent::Group:
    case SIntent::RemoveFromGroup:
        return call.strOperation == QLatin1String("MoveProcessor");
    case SIntent::Rename:
        return call.strOperation == QLatin1String("RenameGroup") || call.strOperation == QLatin1String("RenameProcessor");
    case SIntent::Nothing:
        break;
    }
    return false;
}

bool IsMember(const SPanelPicture& before, const SPictureKey& key)
{
    const int nRow = PanelPicture::FindRow(before, key);
    return key.nType == NodeProcessor && nRow >= 0 && before.vecRow.at(nRow).nDepth == 2;
}

bool IsMeant(const SIntent& intent, const SPanelPicture& before, const SPictureKey& key)
{
    switch (intent.kind) {
    case SIntent::Ungroup:
        return key.nType == NodeGroup;
    case SIntent::Group:
        return key.nType == NodeProcessor;
    case SIntent::RemoveFromGroup:
        return IsMember(before, key);
    case SIntent::Delete:
    case SIntent::Rename:
        return key.nType == NodeProcessor || key.nType == NodeGroup;
    case SIntent::Nothing:
        break;
    }
    return false;
}

} // namespace

NodeIds Hits::GetHit(SIntent::EnKind kind, const QList<SPanelCall>& listCall)
{
    NodeIds setId;
    for (const SPanelCall& call : listCall) {
        if (IsOf(kind, call)) {
            setId.insert(call.id);
        }
    }
    return setId;
}

NodeIds Hits::GetMeant(const SIntent& intent, const SPanelPicture& before)
{
    NodeIds setId;
    for (const SPictureKey& key : intent.setSeen) {
        if (IsMeant(intent, before, key)) {
            setId.insert(key.id);
        }
    }
    return setId;
}

QString Hits::Check(const SIntent& intent, const QList<SPanelCall>& listCall, const SPanelPicture& before,
                    const CExpectedSelection& expected, QString& strKept)
{
    const NodeIds setHit = GetHit(intent.kind, listCall);
    const NodeIds setMeant = GetMeant(intent, before);
    const bool bDeclined = setHit.isEmpty() && intent.kind == SIntent::Delete; // a lock, a processor in use, a No
    if (setHit == setMeant || bDeclined) {
        return {};
    }
    if (intent.kind == SIntent::Delete) {
        strKept = KeptExceptions::GetReasonToHitOthers(expected.GetApart());
    }
    NodeIds setStored = expected.GetStored();
    setStored.remove(QUuid());
    return Invariants::Compare(QStringLiteral("not hit what looks selected, but"), setHit,
                               strKept.isEmpty() ? setMeant : setStored);
}
