#include "CorvidControl/CNameRules.h"

#include <algorithm>

namespace
{

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

} // namespace

QString CNameRules::FindFault(const QString& strName)
{
    if (strName.trimmed().isEmpty())
        return QStringLiteral("a name must not be empty");
    if (!IsCleanText(strName))
        return QStringLiteral("a name must be text without control characters");
    if (std::any_of(strName.cbegin(), strName.cend(), IsRefused))
        return QStringLiteral("a name must not hold any of %1").arg(GetRefused());
    if (strName.toUtf8().size() > nMaxBytes)
        return QStringLiteral("a name must have at most %1 bytes of UTF-8").arg(nMaxBytes);
    return {};
}

bool CNameRules::IsCleanText(const QString& strText)
{
    return strText.isValidUtf16() && std::none_of(strText.cbegin(), strText.cend(), IsControl);
}

bool CNameRules::IsText(const QString& strText)
{
    return IsCleanText(strText) && strText.toUtf8().size() <= nMaxTextBytes;
}
