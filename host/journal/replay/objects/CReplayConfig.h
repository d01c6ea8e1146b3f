#pragma once

#include "interfaces/control/IConfigControl.h"
#include "journal/replay/objects/CReplayCaller.h"

/// The configuration of a replay.
class CReplayConfig : public IConfigControl
{
public:
    /// answers must outlive it.
    explicit CReplayConfig(IReplayAnswers& answers);
    virtual ~CReplayConfig() = default;

    void GetReservedIPs(QList<uint>& listIP) override;
    QString GetListFilePath() override;

private:
    const CReplayCaller caller;
};
