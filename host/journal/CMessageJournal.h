#pragma once

#include "interfaces/widgets/CObserver.h"
#include "journal/CCallWriter.h"

/// Gives a message number a name, or an empty text. Called on any thread.
using MessageNamer = QString (*)(int nMessage);

/// An observer of one control object that writes its messages down, on whatever thread they come.
class CMessageJournal : public CObserver
{
public:
    /// pObjectName is a literal; journal must outlive the observer.
    CMessageJournal(CCallLog& journal, const char* pObjectName, MessageNamer pGetNameIn);
    virtual ~CMessageJournal() = default;

    void Notify(int nMessage) override;

private:
    const CCallWriter writer;
    const MessageNamer pGetName;
};
