#pragma once

#include "interfaces/control/IPrcBasicControl.h"
#include "journal/replay/objects/CReplayCaller.h"

/// The processors of a replay as devices.
class CReplayPrcBasic : public IPrcBasicControl
{
public:
    /// answers must outlive it.
    explicit CReplayPrcBasic(IReplayAnswers& answers);
    virtual ~CReplayPrcBasic() = default;

    void Attach(CObserver* pObserver) override;
    void Detach(CObserver* pObserver) override;
    void RefreshProcessors() override;
    void AddSimulators(SSimulatorRequest request) override;
    void AddProcessor(quint32 nIP) override;
    void RenameProcessor(QUuid idProcessor, QString strName) override;
    QString GetTypeName(qint32 nType) override;
    SLocalAddress GetLocalAddress() override;
    bool IsListLocked() override;
    bool IsRefreshBlocked() override;

private:
    const CReplayCaller caller;
};
