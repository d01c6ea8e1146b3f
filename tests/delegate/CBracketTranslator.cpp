#include "CBracketTranslator.h"

#include <QCoreApplication>

// The base's destructor removes it.
CBracketTranslator::CBracketTranslator()
{
    QCoreApplication::installTranslator(this);
}

QString CBracketTranslator::translate(const char* pContext, const char* pText, const char*, int) const
{
    if (qstrcmp(pContext, "CProcessorTreeDelegate") != 0)
        return QString();
    return QStringLiteral("<%1>").arg(QString::fromLatin1(pText));
}

bool CBracketTranslator::isEmpty() const
{
    return false;
}
