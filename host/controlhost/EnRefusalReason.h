#pragma once

/// Why a command was refused. What SRefusal::strDetail holds stands behind each; empty where nothing does. The
/// numbers hold within a process only.
///
/// @since 0.2
enum EnRefusalReason
{
    ReasonNone, ///< it was not, or would not be

    ReasonListLocked,
    ReasonRefreshBlocked,
    ReasonBusy,         ///< a job is under way
    ReasonNotSupported, ///< the control library has nothing of that kind

    ReasonNameEmpty,
    ReasonNameControl,    ///< line ends, other control characters, or no text at all
    ReasonNameBlanks,     ///< at its ends
    ReasonNameInvisible,  ///< nothing of it can be seen
    ReasonNameDirection,  ///< it would turn the direction of the text around
    ReasonNameCharacters, ///< those that no name may hold, in one text
    ReasonNameLength,     ///< how many bytes of UTF-8 a name may have, in digits

    ReasonGone,           ///< the node is not in the list
    ReasonGroupGone,      ///< the group is not in the node's pane
    ReasonNotMember,      ///< the processor is not in the group
    ReasonInUse,          ///< the name of the processor that runs the open project
    ReasonIdTaken,        ///< the id of a new group is empty or taken
    ReasonTooManyNumbers, ///< a group carries more than fit into a list file
    ReasonGroupsFull,     ///< the list has all the groups that it can have
    ReasonListFull,       ///< the list has all the processors that it can have
    ReasonAlreadyListed,

    ReasonNoSuchSimulator,  ///< an unknown type or output
    ReasonSimulatorsFull,   ///< more than two would exist
    ReasonAddressReserved,  ///< for the router, the time server or this machine
    ReasonAddressTaken,     ///< by a processor of the list; after a restore its address
    ReasonAddressNoAnswer,  ///< nothing answers there
    ReasonFileGone,         ///< nothing stands there
    ReasonFileInvalid,      ///< no good list: what is wrong with it, in English
    ReasonFileTooLarge,     ///< more nodes than the list takes: what there is too much of, in English
    ReasonFileNotWritten,   ///< what the system says, in English
    ReasonFileNotReplaced,  ///< something else stands there, or another program has it open: which, in English
    ReasonFileNotKept,      ///< the list before could not be kept: what the system says, in English
    ReasonFileHeld,         ///< another program has the list open: which, in English
    ReasonFileChanged,      ///< it is not what was refused at the start any more
    ReasonFileUnreadable,   ///< nothing of it can be read: why, in English
    ReasonNothingWasRefused ///< no list was refused at the start, or it was taken already
};
