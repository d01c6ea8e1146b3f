#pragma once

#include "double/CDoubledObject.h"
#include "interfaces/control/IPrcBasicControl.h"

/// The double of g_pPrcBasicControl.
class CPrcBasicControlDouble final : public IPrcBasicControl, private CDoubledObject
{
public:
    explicit CPrcBasicControlDouble(SControlState& sharedState) : CDoubledObject(sharedState, "g_pPrcBasicControl") { }

    void Attach(CObserver* pObserver) override
    {
        Subscribe(pObserver);
    }
    void Detach(CObserver* pObserver) override
    {
        Unsubscribe(pObserver);
    }
    void RefreshProcessors() override;
    void AddSimulators(SSimulatorRequest request) override;
    void AddProcessor(quint32 nIP) override;
    void RenameProcessor(QUuid idProcessor, QString strName) override;
    QString GetTypeName(qint32 nType) override;
    SLocalAddress GetLocalAddress() override;
    bool IsListLocked() override;
    bool IsRefreshBlocked() override;
};
