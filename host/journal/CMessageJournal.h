#pragma once

#include "interfaces/widgets/CObserver.h"
#include "journal/CCallWriter.h"

#include <functional>

/// Gives a message number a name, or an empty text. Called on any thread.
using MessageNamer = std::function<QString(int)>;

/// An observer of one control object that writes its messages down, on whatever thread they come.
class CMessageJournal : public CObserver
{
public:
    /// pObjectName is a literal; journal must outlive the observer.
    CMessageJournal(CCallLog& journal, const char* pObjectName, const MessageNamer& fnNameIn);
    virtual ~CMessageJournal() = default;

    void Notify(int nMessage) override;

private:
    const CCallWriter writer;
    const MessageNamer fnName;
};
