#pragma once

#include "check/CExpectedSelection.h"
#include "panel/CCallRecord.h"
#include "panel/SPanelPicture.h"

/// What a user means to do at the moment of a key, click or drop, and what looks selected then.
struct SIntent
{
    enum EnKind
    {
        Nothing,
        Delete,
        Group,           ///< also an entry of "Move to group" and a drop: the processors
        Ungroup,         ///< the groups
        RemoveFromGroup, ///< the members of groups
        Rename           ///< the one row
    };

    EnKind kind = Nothing;
    RowKeys setSeen;
};

/// What you see is what you hit: the ids of a command are those that were selected on the screen.
namespace Hits {

/// The ids that the calls of a step have hit, as far as they belong to that kind of command.
NodeIds GetHit(SIntent::EnKind kind, const QList<SPanelCall>& listCall);

/// Those that the command is to hit out of what looks selected in a picture of the moment before. The null id is never hit.
NodeIds GetMeant(const SIntent& intent, const SPanelPicture& before);

/// What is wrong with what the calls have hit; empty when nothing is. Where others were hit for a reason of KeptExceptions, it
/// has to be what the library had selected, and strKept gets the reason.
QString Check(const SIntent& intent, const QList<SPanelCall>& listCall, const SPanelPicture& before,
              const CExpectedSelection& expected, QString& strKept);

} // namespace Hits
