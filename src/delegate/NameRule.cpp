#include "delegate/NameRule.h"

namespace NameRule {

QRegExp Characters()
{
    return QRegExp(QStringLiteral("^[^=}·~+{【】《》‘’“”，。、；：？——]*$"), Qt::CaseSensitive, QRegExp::RegExp);
}

bool FitsLimit(const QString& strName)
{
    return strName.toUtf8().length() <= nMaxBytes;
}

int CursorAfterRefusal(int nPosition, int nRefusedLength, int nValidLength)
{
    return nPosition - nRefusedLength + nValidLength + 1;
}

} // namespace NameRule
