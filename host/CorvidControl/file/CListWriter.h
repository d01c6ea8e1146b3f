#pragma once

#include <QByteArray>
#include <QString>

struct SProcessorAllNode;
struct SProcessorGroupNode;
struct SProcessorNode;

/// A list as JSON text, the counterpart of CListReader: sorted keys, four blanks per level, one value per line.
/// It writes the text itself, since the GUI thread waits for it.
class CListWriter
{
public:
    /// Ends in a line feed. For any thread. Text that has no form in UTF-8 is written so that the reader refuses it.
    static QByteArray WriteRoot(const SProcessorAllNode& node);

private:
    CListWriter() = default;

    void Write(const SProcessorAllNode& node);
    template <typename Entries> void WriteList(const char* szKey, const Entries& entries);
    void WriteValue(const SProcessorGroupNode& group);
    void WriteValue(const SProcessorNode& processor);
    void WriteValue(int nValue);

    void Open(char cBracket);
    void Close(char cBracket);
    void BeginLine();
    void BeginValue(const char* szKey);
    void WriteFlag(const char* szKey, bool bValue);
    void WriteNumber(const char* szKey, qint64 nValue);
    void WriteText(const char* szKey, const QString& strValue);
    void WriteSign(const QString& strValue, int n);

    QByteArray text;
    int nLevel = 0;
    bool bFirst = true; ///< of its list or object
};
