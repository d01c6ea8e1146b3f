#pragma once

#include "interfaces/widgets/CObserver.h"
#include "journal/CCallWriter.h"

/// An observer of one control object that writes its messages down.
class CMessageJournal : public CObserver
{
public:
    CMessageJournal(CCallJournal& journal, const char* pObjectName);
    virtual ~CMessageJournal() = default;

    void Notify(int nMessage) override;

private:
    const CCallWriter writer;
};
