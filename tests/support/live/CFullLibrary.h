#pragma once

#include "CorvidControl/objects/CControlLibrary.h"

#include <QTemporaryDir>

/// The control library with both panes as full as they get: 256 groups and 256 processors, and 256 groups and two simulators,
/// with a list file and, if there is one, a scenario in a folder of its own. Nothing happens by itself. One at a time.
class CFullLibrary
{
public:
    static constexpr int nLimit = 256;

    /// scenario as in a scenario file; empty for none. Messages go by clock, which must outlive the library.
    explicit CFullLibrary(const QByteArray& scenario = {}, const CControlClock& clock = CControlClock::GetSystem());

    CControlLibrary* operator->()
    {
        return &library;
    }

    CControlLibrary& operator*()
    {
        return library;
    }

private:
    SControlOptions Prepare(const QByteArray& scenario) const;
    void FillSimulatorPane();

    QTemporaryDir folder;
    CControlLibrary library;
};
