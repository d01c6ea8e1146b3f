#include "Kestrel/status/RefusalText.h"

#include "controlhost/SRefusal.h"

#include <QCoreApplication>
#include <QFileInfo>

// A command or a reason without a text here does not compile.
#pragma GCC diagnostic error "-Wswitch"

namespace {

/// The texts have a context of their own.
class CRefusalText
{
    Q_DECLARE_TR_FUNCTIONS(RefusalText)

public:
    static QString Command(EnListCommand command);
    static QString Reason(EnRefusalReason reason);
};

QString CRefusalText::Command(EnListCommand command)
{
    switch (command) {
    case CommandAddGroup:
        return tr("Add the group “%1”");
    case CommandAddProcessor:
        return tr("Add the processor %1");
    case CommandAddSimulators:
        return tr("Add simulators");
    case CommandDelete:
        return tr("Delete %1");
    case CommandDeleteGroup:
        return tr("Delete the group “%1”");
    case CommandUngroup:
        return tr("Ungroup %1");
    case CommandRename:
        return tr("Rename to %1");
    case CommandMove:
        return tr("Move %1");
    case CommandChief:
        return tr("Chief of %1");
    case CommandImport:
        return tr("Import %1");
    case CommandTakeEarlier:
        return tr("Restore an earlier list");
    case CommandUseRefused:
        return tr("Use the refused list");
    case CommandRestore: // its step has the name
        return {};
    case CommandExport:
        return tr("Export %1");
    case CommandSave:
        return tr("Save");
    case CommandScan:
        return tr("Refresh");
    }
    return {};
}

QString CRefusalText::Reason(EnRefusalReason reason)
{
    switch (reason) {
    case ReasonNone:
        return {};
    case ReasonListLocked:
        return tr("the list is locked");
    case ReasonRefreshBlocked:
        return tr("refresh is blocked");
    case ReasonBusy:
        return tr("a job is still running");
    case ReasonNotSupported:
        return tr("the control library cannot do that");
    case ReasonNameEmpty:
        return tr("the name is empty");
    case ReasonNameControl:
        return tr("the name holds line ends or control characters");
    case ReasonNameBlanks:
        return tr("the name begins or ends with a blank");
    case ReasonNameInvisible:
        return tr("nothing of the name can be seen");
    case ReasonNameDirection:
        return tr("the name turns the direction of the text around");
    case ReasonNameCharacters:
        return tr("a name may not hold any of %1");
    case ReasonNameLength:
        return tr("the name is longer than %1 bytes");
    case ReasonGone:
        return tr("it is not in the list any more");
    case ReasonGroupGone:
        return tr("the group is not in the list any more");
    case ReasonNotMember:
        return tr("the processor is not in the group");
    case ReasonInUse:
        return tr("%1 runs the open project");
    case ReasonIdTaken:
        return tr("the list has a node of that id");
    case ReasonTooManyNumbers:
        return tr("the group carries more numbers than a list file takes");
    case ReasonGroupsFull:
        return tr("the list has all the groups that it can have");
    case ReasonListFull:
        return tr("the list has all the processors that it can have");
    case ReasonAlreadyListed:
        return tr("it is in the list already");
    case ReasonNoSuchSimulator:
        return tr("there is no simulator of that type or output");
    case ReasonSimulatorsFull:
        return tr("more than two simulators cannot exist");
    case ReasonAddressReserved:
        return tr("the address is reserved");
    case ReasonAddressTaken:
        return tr("a processor of the list has the address");
    case ReasonAddressNoAnswer:
        return tr("nothing answers there");
    case ReasonFileGone:
        return tr("the file does not exist any more");
    // What is known of a file beyond that is in English, and in the journal.
    case ReasonFileInvalid:
        return tr("the file is no good list");
    case ReasonFileTooLarge:
        return tr("the file holds more than the list takes");
    case ReasonFileNotWritten:
        return tr("the file was not written");
    case ReasonFileNotReplaced:
        return tr("the file was not replaced");
    case ReasonFileNotKept:
        return tr("the list before was not kept");
    case ReasonFileHeld:
        return tr("another program has the file open");
    case ReasonFileChanged:
        return tr("the file is not the one that was refused");
    case ReasonFileUnreadable:
        return tr("nothing of the file can be read");
    case ReasonNothingWasRefused:
        return tr("no list was refused");
    }
    return {};
}

// A refused name may hold anything; of a file its folder says nothing here.
QString GetName(const SRefusal& refusal)
{
    const bool bFile = refusal.command == CommandImport || refusal.command == CommandExport;
    return (bFile ? QFileInfo(refusal.strName).fileName() : refusal.strName).simplified();
}

// A detail may hold what looks like a place holder.
QString Insert(const QString& strText, const QString& strDetail)
{
    QString strWhole = strText;
    return strWhole.replace(QStringLiteral("%1"), strDetail).simplified();
}

} // namespace

QString RefusalText::GetCommand(const SRefusal& refusal)
{
    return Insert(CRefusalText::Command(refusal.command), GetName(refusal));
}

QString RefusalText::GetReason(const SRefusal& refusal)
{
    return refusal.reason == ReasonNone ? refusal.strLine : Insert(CRefusalText::Reason(refusal.reason), refusal.strDetail);
}

QString RefusalText::Get(const SRefusal& refusal)
{
    return Join(GetCommand(refusal), refusal);
}

QString RefusalText::Join(const QString& strCommand, const SRefusal& refusal)
{
    return QCoreApplication::translate("RefusalText", "%1: %2").arg(strCommand, GetReason(refusal));
}
