#include "CorvidControl/list/NameRules.h"

#include "CorvidControl/list/FaultText.h"

#include <QVector>

#include <algorithm>

namespace {

// U+00B7, the brackets and quotation marks of CJK text, and its punctuation: the devices cannot show them.
const QString& GetRefused()
{
    static const QString strRefused = QStringLiteral("=}·~+{【】《》‘’“”，。、；：？—");
    return strRefused;
}

bool IsRefused(QChar ch)
{
    return GetRefused().contains(ch);
}

bool IsControl(QChar ch)
{
    return ch.category() == QChar::Other_Control;
}

bool IsLineEnd(QChar ch)
{
    return ch.category() == QChar::Separator_Line || ch.category() == QChar::Separator_Paragraph;
}

// The twelve of Unicode: they change the order in which a name, and the text beside it, is shown.
bool IsBidiControl(QChar ch)
{
    const ushort nCode = ch.unicode();
    return nCode == 0x061C || nCode == 0x200E || nCode == 0x200F || (nCode >= 0x202A && nCode <= 0x202E)
        || (nCode >= 0x2066 && nCode <= 0x2069);
}

// Letters, marks and symbols that are blank all the same: fillers, joiners and selectors.
bool IsBlankSign(uint nCode)
{
    return nCode == 0x034F || nCode == 0x115F || nCode == 0x1160 || nCode == 0x17B4 || nCode == 0x17B5
        || (nCode >= 0x180B && nCode <= 0x180F) || nCode == 0x2065 || nCode == 0x2800 || nCode == 0x3164 || nCode == 0xFFA0
        || (nCode >= 0xFE00 && nCode <= 0xFE0F) || (nCode >= 0xFFF0 && nCode <= 0xFFF8) || (nCode >= 0xE0000 && nCode <= 0xE0FFF);
}

bool IsInvisible(uint nCode)
{
    switch (QChar::category(nCode)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
    case QChar::Separator_Space:
        return true;
    default:
        return IsBlankSign(nCode);
    }
}

bool IsNothingSeen(const QString& strName)
{
    const QVector<uint> vecCode = strName.toUcs4();
    return std::all_of(vecCode.cbegin(), vecCode.cend(), IsInvisible);
}

} // namespace

SFault NameRules::FindReason(const QString& strName)
{
    if (strName.trimmed().isEmpty()) {
        return { ReasonNameEmpty, {} };
    }
    if (!IsCleanText(strName) || std::any_of(strName.cbegin(), strName.cend(), IsLineEnd)) {
        return { ReasonNameControl, {} };
    }
    if (strName != strName.trimmed()) {
        return { ReasonNameBlanks, {} };
    }
    if (IsNothingSeen(strName)) {
        return { ReasonNameInvisible, {} };
    }
    if (std::any_of(strName.cbegin(), strName.cend(), IsBidiControl)) {
        return { ReasonNameDirection, {} };
    }
    if (std::any_of(strName.cbegin(), strName.cend(), IsRefused)) {
        return { ReasonNameCharacters, GetRefused() };
    }
    if (strName.toUtf8().size() > nMaxBytes) {
        return { ReasonNameLength, QString::number(nMaxBytes) };
    }
    return {};
}

QString NameRules::FindFault(const QString& strName)
{
    return FaultText::Build(FindReason(strName));
}

QString NameRules::Clean(const QString& strName)
{
    return GetLine(strName).trimmed();
}

QString NameRules::Mend(const QString& strName, const QString& strSubstitute)
{
    QString strMended = strName;
    const auto itEnd = std::remove_if(strMended.begin(), strMended.end(), IsBidiControl);
    strMended.truncate(static_cast<int>(itEnd - strMended.begin()));
    strMended = Clean(strMended);
    return IsNothingSeen(strMended) ? strSubstitute : strMended;
}

QString NameRules::GetLine(const QString& strText)
{
    QString strLine = strText;
    strLine.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (QChar& ch : strLine) {
        ch = IsControl(ch) || IsLineEnd(ch) ? QLatin1Char(' ') : ch;
    }
    return strLine;
}

bool NameRules::IsCleanText(const QString& strText)
{
    return strText.isValidUtf16() && std::none_of(strText.cbegin(), strText.cend(), IsControl);
}

bool NameRules::IsText(const QString& strText)
{
    return IsCleanText(strText) && strText.toUtf8().size() <= nMaxTextBytes;
}

QString NameRules::MendText(const QString& strText)
{
    if (IsText(strText)) {
        return strText;
    }
    QString strMended;
    int nBytes = 0;
    const QVector<uint> vecCode = GetLine(strText).toUcs4(); // half a character becomes a whole one
    for (const uint nCode : vecCode) {
        const QString strSign = QString::fromUcs4(&nCode, 1);
        nBytes += strSign.toUtf8().size();
        if (nBytes > nMaxTextBytes) {
            break;
        }
        strMended += strSign;
    }
    return strMended;
}
