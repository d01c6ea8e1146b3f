#pragma once

#include "interfaces/control/IPrcBasicControl.h"
#include "journal/CCallWriter.h"

class CJobs;

/// Writes down every call on the processors as devices, then carries it out: the object behind has the last word
/// about threads, order and blocking, and no lock is held meanwhile. Owns none of the objects it is given.
class CPrcBasicJournal : public IPrcBasicControl
{
public:
    /// All must outlive the decorator.
    CPrcBasicJournal(IPrcBasicControl& innerIn, CCallLog& journal, CJobs& jobsIn);
    virtual ~CPrcBasicJournal() = default;

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
    IPrcBasicControl& inner;
    const CCallWriter writer;
    CJobs& jobs;
};
