#pragma once

#include "interfaces/widgets/CObserver.h"
#include "journal/CCallWriter.h"
#include "journal/LibraryCall.h"

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

    /// Attaches to the object and detaches from it. What that throws is written down.
    template <typename Subject> void Listen(Subject& subject)
    {
        NoteThrown("Attach", LibraryCall::Try([&] { subject.Attach(this); }));
    }

    template <typename Subject> void Leave(Subject& subject)
    {
        NoteThrown("Detach", LibraryCall::Try([&] { subject.Detach(this); }));
    }

private:
    void NoteThrown(const char* szOperation, const QString& strThrown) const;

    const CCallWriter writer;
    const MessageNamer fnName;
};
