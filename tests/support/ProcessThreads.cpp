#include "ProcessThreads.h"

#include <QDir>
#include <QFile>

QStringList ProcessThreads::GetIds()
{
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

QByteArray ProcessThreads::Read(const QString& strId, const QString& strFile)
{
    QFile file(QStringLiteral("/proc/self/task/%1/%2").arg(strId, strFile));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
