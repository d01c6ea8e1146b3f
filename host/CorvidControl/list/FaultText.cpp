#include "CorvidControl/list/FaultText.h"

#include <QHash>

namespace {

// "%1" stands for the detail.
const QHash<int, QString>& GetTexts()
{
    static const QHash<int, QString> hashText{
        { ReasonListLocked, QStringLiteral("the list is locked") },
        { ReasonRefreshBlocked, QStringLiteral("refresh is blocked") },
        { ReasonBusy, QStringLiteral("a job is under way") },
        { ReasonNotSupported, QStringLiteral("it is not possible here") },
        { ReasonNameEmpty, QStringLiteral("a name must not be empty") },
        { ReasonNameControl, QStringLiteral("a name must be text without control characters") },
        { ReasonNameBlanks, QStringLiteral("a name must not begin or end with a blank") },
        { ReasonNameInvisible, QStringLiteral("a name must not be invisible") },
        { ReasonNameDirection, QStringLiteral("a name must not turn the direction of the text around") },
        { ReasonNameCharacters, QStringLiteral("a name must not hold any of %1") },
        { ReasonNameLength, QStringLiteral("a name must have at most %1 bytes of UTF-8") },
        { ReasonGone, QStringLiteral("it is not in the list") },
        { ReasonGroupGone, QStringLiteral("the group is not in its pane") },
        { ReasonNotMember, QStringLiteral("it is not in the group") },
        { ReasonInUse, QStringLiteral("\"%1\" is in use, it runs the open project") },
        { ReasonIdTaken, QStringLiteral("its id is empty or taken") },
        { ReasonTooManyNumbers, QStringLiteral("it carries too many numbers") },
        { ReasonGroupsFull, QStringLiteral("the list has all the groups it can have") },
        { ReasonListFull, QStringLiteral("the list is full") },
        { ReasonAlreadyListed, QStringLiteral("it is in the list already") },
        { ReasonNoSuchSimulator, QStringLiteral("there is no such type or output") },
        { ReasonSimulatorsFull, QStringLiteral("at most two can exist") },
        { ReasonAddressReserved, QStringLiteral("the address is reserved") },
        { ReasonAddressTaken, QStringLiteral("a processor of the list has this address") },
        { ReasonAddressNoAnswer, QStringLiteral("nothing answers there") },
        { ReasonFileGone, QStringLiteral("it is not there") },
        { ReasonFileHeld, QStringLiteral("%1") },
        { ReasonFileInvalid, QStringLiteral("%1") },
        { ReasonFileTooLarge, QStringLiteral("%1") },
        { ReasonFileNotWritten, QStringLiteral("%1") },
        { ReasonFileNotReplaced, QStringLiteral("the own list is not overwritten, %1") },
        { ReasonFileNotKept, QStringLiteral("the own list is not overwritten, %1") },
        { ReasonFileChanged, QStringLiteral("what stands there is not what was refused at the start") },
        { ReasonFileUnreadable, QStringLiteral("nothing of it can be read, %1") },
        { ReasonNothingWasRefused, QStringLiteral("no list was refused") },
    };
    return hashText;
}

} // namespace

QString FaultText::Build(const SFault& fault)
{
    QString strText = GetTexts().value(fault.reason);
    return strText.replace(QLatin1String("%1"), fault.strDetail);
}
