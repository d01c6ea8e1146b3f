#pragma once

#include "journal/replay/SReplayAnswer.h"
#include "journal/replay/SReplayedCall.h"

#include <vector>

struct SRecordedLine;

/// What the panel has written into its own store, at commands on the GUI thread that are not held back: selection, folding and
/// the pane.
///
/// The GUI thread may be ahead of the worker. A refresh that the recorded panel compared before such a command is compared
/// behind it then, and what it reads would undo the command; so it reads what the command has set. One thread at a time.
class CPanelWrites
{
public:
    /// The command with that recorded number has been made. Others than those three change nothing.
    void Note(const SReplayedCall& call, quint64 nNumber);

    /// The answer to a read of a refresh that was compared at the recorded number nLock, with what was set behind that. line is
    /// the read; ids are the panel's.
    void Apply(SReplayAnswer& answer, const SRecordedLine& line, quint64 nLock);

private:
    struct SWrite
    {
        SReplayedCall call;
        quint64 nNumber;
        bool bSimulator; ///< in that pane
    };

    static void ApplyOne(SReplayAnswer& answer, const SRecordedLine& line, const SWrite& write);

    std::vector<SWrite> vecWrite;
    bool bSimulatorPane = false;
};
