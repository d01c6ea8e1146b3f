#include "CorvidControl/file/CListWriter.h"

#include "nodes/SProcessorAllNode.h"

#include <QHostAddress>

#include <algorithm>

namespace {

constexpr int nIndent = 4;

QString GetIdText(const QUuid& id)
{
    return id.isNull() ? QString() : id.toString(QUuid::WithoutBraces);
}

QList<int> Sort(const QSet<int>& setNumber)
{
    QList<int> listNumber = setNumber.values();
    std::sort(listNumber.begin(), listNumber.end());
    return listNumber;
}

bool IsPlain(QChar ch)
{
    return ch.unicode() >= 0x20 && ch != QLatin1Char('"') && ch != QLatin1Char('\\');
}

} // namespace

QByteArray CListWriter::WriteRoot(const SProcessorAllNode& node)
{
    CListWriter writer;
    writer.Write(node);
    writer.text += '\n';
    return writer.text;
}

void CListWriter::Write(const SProcessorAllNode& node)
{
    Open('{');
    WriteFlag("expanded", node.bExpanded);
    WriteList("groups", node.listGroup);
    WriteText("name", node.strName);
    WriteList("processors", node.listProcessor);
    Close('}');
}

void CListWriter::WriteValue(const SProcessorGroupNode& group)
{
    Open('{');
    WriteList("aux", Sort(group.setAux));
    WriteText("chief", GetIdText(group.idChief));
    WriteFlag("expanded", group.bExpanded);
    WriteText("id", GetIdText(group.idNode));
    WriteText("name", group.strName);
    WriteList("processors", group.listProcessor);
    Close('}');
}

void CListWriter::WriteValue(const SProcessorNode& processor)
{
    Open('{');
    WriteText("aux", GetIdText(processor.idAux));
    WriteNumber("chief", processor.nChief);
    WriteFlag("expanded", processor.bExpanded);
    WriteNumber("failover", processor.nFailover);
    WriteText("id", GetIdText(processor.idNode));
    WriteText("ip", QHostAddress(processor.nIP).toString());
    WriteNumber("model", processor.nModel);
    WriteText("name", processor.strName);
    WriteFlag("online", processor.bOnline);
    WriteNumber("portA", processor.nPortA);
    WriteNumber("portB", processor.nPortB);
    WriteText("project", processor.strProject);
    WriteText("type", processor.strType);
    Close('}');
}

void CListWriter::WriteValue(int nValue)
{
    text += QByteArray::number(nValue);
}

template <typename Entries> void CListWriter::WriteList(const char* szKey, const Entries& entries)
{
    BeginValue(szKey);
    Open('[');
    for (const auto& entry : entries) {
        BeginLine();
        WriteValue(entry);
    }
    Close(']');
}

void CListWriter::Open(char cBracket)
{
    text += cBracket;
    ++nLevel;
    bFirst = true;
}

void CListWriter::Close(char cBracket)
{
    --nLevel;
    text += '\n';
    text.append(nIndent * nLevel, ' ');
    text += cBracket;
    bFirst = false;
}

void CListWriter::BeginLine()
{
    text += bFirst ? "\n" : ",\n";
    text.append(nIndent * nLevel, ' ');
    bFirst = false;
}

void CListWriter::BeginValue(const char* szKey)
{
    BeginLine();
    text += '"';
    text += szKey;
    text += "\": ";
}

void CListWriter::WriteFlag(const char* szKey, bool bValue)
{
    BeginValue(szKey);
    text += bValue ? "true" : "false";
}

void CListWriter::WriteNumber(const char* szKey, qint64 nValue)
{
    BeginValue(szKey);
    text += QByteArray::number(nValue);
}

void CListWriter::WriteText(const char* szKey, const QString& strValue)
{
    BeginValue(szKey);
    text += '"';
    if (std::all_of(strValue.cbegin(), strValue.cend(), IsPlain) && strValue.isValidUtf16()) {
        text += strValue.toUtf8();
    } else {
        for (int n = 0; n < strValue.size(); ++n) {
            WriteSign(strValue, n);
        }
    }
    text += '"';
}

// Half a character has no form in UTF-8. It is written as an escape, which the reader refuses.
void CListWriter::WriteSign(const QString& strValue, int n)
{
    const QChar ch = strValue.at(n);
    const bool bPair = ch.isHighSurrogate() && n + 1 < strValue.size() && strValue.at(n + 1).isLowSurrogate();
    const bool bSecond = ch.isLowSurrogate() && n > 0 && strValue.at(n - 1).isHighSurrogate();
    if (ch == QLatin1Char('"') || ch == QLatin1Char('\\')) {
        text += '\\';
        text += ch.toLatin1();
    } else if (bPair) {
        text += strValue.mid(n, 2).toUtf8();
    } else if (!bSecond && (!IsPlain(ch) || ch.isSurrogate())) {
        text += "\\u" + QByteArray::number(ch.unicode(), 16).rightJustified(4, '0');
    } else if (!bSecond) {
        text += QString(ch).toUtf8();
    }
}
