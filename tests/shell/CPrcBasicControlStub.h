#pragma once

#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcBasicControl.h"

#include <utility>

/// Takes the place of g_pPrcBasicControl while it lives and does nothing; a test overrides the one
/// operation that is to fail.
class CPrcBasicControlStub : public IPrcBasicControl
{
public:
    CPrcBasicControlStub() : pBefore(std::exchange(g_pPrcBasicControl, this)) { }
    virtual ~CPrcBasicControlStub()
    {
        g_pPrcBasicControl = pBefore;
    }
    CPrcBasicControlStub(const CPrcBasicControlStub&) = delete;
    CPrcBasicControlStub& operator=(const CPrcBasicControlStub&) = delete;

    void Attach(CObserver*) override { }
    void Detach(CObserver*) override { }
    void RefreshProcessors() override { }
    void AddSimulators(SSimulatorRequest) override { }
    void AddProcessor(quint32) override { }
    void RenameProcessor(QUuid, QString) override { }
    QString GetTypeName(qint32) override
    {
        return QString();
    }
    SLocalAddress GetLocalAddress() override
    {
        return SLocalAddress();
    }
    bool IsListLocked() override
    {
        return false;
    }
    bool IsRefreshBlocked() override
    {
        return false;
    }

private:
    IPrcBasicControl* pBefore;
};
