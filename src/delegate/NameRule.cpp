#include "delegate/NameRule.h"

QRegExp NameRule::Characters()
{
    return QRegExp(QStringLiteral("^[^=}·~+{【】《》‘’“”，。、；：？——]*$"), Qt::CaseSensitive, QRegExp::RegExp);
}

bool NameRule::FitsLimit(const QString& strName)
{
    return strName.toUtf8().length() <= nMaxBytes;
}

int NameRule::CursorAfterRefusal(int nPosition, int nRefusedLength, int nValidLength)
{
    return nPosition - nRefusedLength + nValidLength + 1;
}
