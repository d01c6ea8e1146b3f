#include "CBracketTranslator.h"

#include <QCoreApplication>

// The base's destructor removes it.
CBracketTranslator::CBracketTranslator()
{
    QCoreApplication::installTranslator(this);
}

QString CBracketTranslator::translate(const char* context, const char* sourceText, const char*, int) const
{
    if (qstrcmp(context, "CProcessorTreeDelegate") != 0) {
        return QString();
    }
    return QStringLiteral("<%1>").arg(QString::fromLatin1(sourceText));
}

bool CBracketTranslator::isEmpty() const
{
    return false;
}
