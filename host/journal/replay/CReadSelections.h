#pragma once

#include "journal/replay/SReplayMoment.h"
#include "journal/replay/SReplayedCall.h"

#include <QJsonArray>

#include <vector>

class CRecordedRun;
struct SRecordedLine;

/// Knows the calls on the GUI thread that the panel makes of itself, as it hears from its worker what the library has changed:
/// the questions of the tool bar about what is selected, and the selection that it takes over from the library and hands
/// back, node by node. When they come, and how often, depends on time. Any thread.
class CReadSelections
{
public:
    explicit CReadSelections(const CRecordedRun& run);

    /// A recorded call on the GUI thread.
    bool IsExcused(const SRecordedLine& line) const;

    /// One of this panel.
    bool IsExcused(const SReplayedCall& call, const SReplayMoment& moment) const;

private:
    struct SSelection
    {
        quint64 nNumber;
        quint64 nLock; ///< of a read one, when the refresh was compared; of one that was set, the step of the user before
        QJsonArray ids;
    };

    bool WasRead(const QJsonArray& ids, quint64 nBefore, quint64 nComparedAfter) const;
    bool HasRefreshed(quint64 nAfter, quint64 nBefore) const;
    static bool IsEarlier(const SSelection& selection, quint64 nNumber);
    const SSelection* FindLastSet(quint64 nBefore) const;

    std::vector<SSelection> vecRead; ///< by the worker, in their order
    std::vector<SSelection> vecSet;  ///< on the GUI thread
    std::vector<quint64> vecLock;    ///< when refreshes were compared
};
