#include "Kestrel/status/RefusalText.h"

#include "controlhost/SRefusal.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <array>

// A command without a text here does not compile.
#pragma GCC diagnostic error "-Wswitch"

namespace {

/// Why a command was refused, in words.
struct SReason
{
    EnRefusalReason reason;
    const char* szText;
};

constexpr std::array<SReason, ReasonNothingWasRefused> arrReason{ {
    { ReasonListLocked, QT_TRANSLATE_NOOP("RefusalText", "the list is locked") },
    { ReasonRefreshBlocked, QT_TRANSLATE_NOOP("RefusalText", "refresh is blocked") },
    { ReasonBusy, QT_TRANSLATE_NOOP("RefusalText", "a job is still running") },
    { ReasonNotSupported, QT_TRANSLATE_NOOP("RefusalText", "the control library cannot do that") },
    { ReasonNameEmpty, QT_TRANSLATE_NOOP("RefusalText", "the name is empty") },
    { ReasonNameControl, QT_TRANSLATE_NOOP("RefusalText", "the name holds line ends or control characters") },
    { ReasonNameBlanks, QT_TRANSLATE_NOOP("RefusalText", "the name begins or ends with a blank") },
    { ReasonNameInvisible, QT_TRANSLATE_NOOP("RefusalText", "nothing of the name can be seen") },
    { ReasonNameDirection, QT_TRANSLATE_NOOP("RefusalText", "the name turns the direction of the text around") },
    { ReasonNameCharacters, QT_TRANSLATE_NOOP("RefusalText", "a name may not hold any of %1") },
    { ReasonNameLength, QT_TRANSLATE_NOOP("RefusalText", "the name is longer than %1 bytes") },
    { ReasonGone, QT_TRANSLATE_NOOP("RefusalText", "it is not in the list any more") },
    { ReasonGroupGone, QT_TRANSLATE_NOOP("RefusalText", "the group is not in the list any more") },
    { ReasonNotMember, QT_TRANSLATE_NOOP("RefusalText", "the processor is not in the group") },
    { ReasonInUse, QT_TRANSLATE_NOOP("RefusalText", "%1 runs the open project") },
    { ReasonIdTaken, QT_TRANSLATE_NOOP("RefusalText", "the list has a node of that id") },
    { ReasonTooManyNumbers, QT_TRANSLATE_NOOP("RefusalText", "the group carries more numbers than a list file takes") },
    { ReasonGroupsFull, QT_TRANSLATE_NOOP("RefusalText", "the list has all the groups that it can have") },
    { ReasonListFull, QT_TRANSLATE_NOOP("RefusalText", "the list has all the processors that it can have") },
    { ReasonAlreadyListed, QT_TRANSLATE_NOOP("RefusalText", "it is in the list already") },
    { ReasonNoSuchSimulator, QT_TRANSLATE_NOOP("RefusalText", "there is no simulator of that type or output") },
    { ReasonSimulatorsFull, QT_TRANSLATE_NOOP("RefusalText", "more than two simulators cannot exist") },
    { ReasonAddressReserved, QT_TRANSLATE_NOOP("RefusalText", "the address is reserved") },
    { ReasonAddressTaken, QT_TRANSLATE_NOOP("RefusalText", "a processor of the list has the address") },
    { ReasonAddressNoAnswer, QT_TRANSLATE_NOOP("RefusalText", "nothing answers there") },
    { ReasonFileGone, QT_TRANSLATE_NOOP("RefusalText", "the file does not exist any more") },
    // What is known of a file beyond that is in English, and in the journal.
    { ReasonFileInvalid, QT_TRANSLATE_NOOP("RefusalText", "the file is no good list") },
    { ReasonFileTooLarge, QT_TRANSLATE_NOOP("RefusalText", "the file holds more than the list takes") },
    { ReasonFileNotWritten, QT_TRANSLATE_NOOP("RefusalText", "the file was not written") },
    { ReasonFileNotReplaced, QT_TRANSLATE_NOOP("RefusalText", "the file was not replaced") },
    { ReasonFileNotKept, QT_TRANSLATE_NOOP("RefusalText", "the list before was not kept") },
    { ReasonFileHeld, QT_TRANSLATE_NOOP("RefusalText", "another program has the file open") },
    { ReasonFileChanged, QT_TRANSLATE_NOOP("RefusalText", "the file is not the one that was refused") },
    { ReasonFileUnreadable, QT_TRANSLATE_NOOP("RefusalText", "nothing of the file can be read") },
    { ReasonNothingWasRefused, QT_TRANSLATE_NOOP("RefusalText", "no list was refused") },
} };

// Each reason but ReasonNone stands at its place.
constexpr bool IsInOrder()
{
    int nReason = ReasonNone;
    for (const SReason& row : arrReason) {
        if (row.reason != ++nReason) {
            return false;
        }
    }
    return true;
}
static_assert(IsInOrder(), "a text is missing, or at another place");

/// The texts have a context of their own.
class CRefusalText
{
    Q_DECLARE_TR_FUNCTIONS(RefusalText)

public:
    static QString Command(EnListCommand command);
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

// A refused name may hold anything; of a file its folder says nothing here.
QString GetName(const SRefusal& refusal)
{
    const bool bFile = refusal.command == CommandImport || refusal.command == CommandExport;
    return (bFile ? QFileInfo(refusal.strName).fileName() : refusal.strName).simplified();
}

// Null for ReasonNone, and for one that a newer library has.
const char* FindWords(EnRefusalReason reason)
{
    return reason > ReasonNone && reason <= ReasonNothingWasRefused ? arrReason.at(reason - 1).szText : nullptr;
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
    const char* szWords = FindWords(refusal.reason);
    return szWords ? Insert(QCoreApplication::translate("RefusalText", szWords), refusal.strDetail) : refusal.strLine;
}

QString RefusalText::Get(const SRefusal& refusal)
{
    return Join(GetCommand(refusal), refusal);
}

QString RefusalText::Join(const QString& strCommand, const SRefusal& refusal)
{
    return QCoreApplication::translate("RefusalText", "%1: %2").arg(strCommand, GetReason(refusal));
}
