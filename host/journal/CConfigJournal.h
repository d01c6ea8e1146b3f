#pragma once

#include "interfaces/control/IConfigControl.h"
#include "journal/CCallWriter.h"

/// Writes down every call on the settings of the installation, then carries it out: the object behind has the last word
/// about threads, order and blocking, and no lock is held meanwhile. Owns neither of the objects it is given.
class CConfigJournal : public IConfigControl
{
public:
    /// Both must outlive the decorator.
    CConfigJournal(IConfigControl& innerIn, CCallLog& journal);
    virtual ~CConfigJournal() = default;

    void GetReservedIPs(QList<uint>& listIP) override;
    QString GetListFilePath() override;

private:
    IConfigControl& inner;
    const CCallWriter writer;
};
