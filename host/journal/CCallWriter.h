#pragma once

#include "journal/CCallLog.h"

#include <QUuid>

#include <vector>

class ICallRecorder;

/// Writes the calls of one control object into the journal: one short text per argument. Any thread.
class CCallWriter
{
public:
    /// pObject is a literal: the name of the object in the journal.
    CCallWriter(CCallLog& journalIn, const char* pObjectIn);

    /// A call that changes something, before it is carried out.
    template <typename... Args> void Command(const char* pOperation, const Args&... args) const
    {
        journal.Write(RecordCommand, pObject, GetCall(pOperation, { GetText(args)... }));
    }

    /// A call that only reads, with what it returned.
    template <typename Result, typename... Args>
    void Read(const char* pOperation, const Result& result, const Args&... args) const
    {
        journal.Write(RecordRead, pObject, GetCall(pOperation, { GetText(args)... }) + QStringLiteral(" = ") + GetText(result));
    }

    /// The result of a command that was written before it was carried out.
    template <typename Result> void Returned(const char* pOperation, const Result& result) const
    {
        journal.Write(RecordRead, pObject, QString::fromLatin1(pOperation) + QStringLiteral(" returned ") + GetText(result));
    }

    /// A command that took its time has come back.
    void Finished(const char* pOperation, qint64 nMilliseconds) const;

    /// The library has left a call by an exception: a note, with what it has thrown in words.
    void Threw(const char* pOperation, const QString& strThrown) const;

    /// A message of the object to its observers; strName may be empty.
    void Message(int nMessage, const QString& strName) const;

    const char* GetObjectName() const;  ///< as the constructor got it
    ICallRecorder* GetRecorder() const; ///< who gets the calls in full; null for nobody

    static QString GetText(bool bValue);
    static QString GetText(int nValue);
    static QString GetText(const QString& strValue);
    static QString GetText(const QUuid& idValue);               ///< its first eight digits, or "null"
    static QString GetText(const std::vector<QUuid>& vecValue); ///< the first three, and how many more

private:
    static QString GetCall(const char* pOperation, const QStringList& listArgument);

    CCallLog& journal;
    const char* pObject;
};
