#include "contract/library/CStory.h"

#include <unistd.h>

void CStory::Prepare(const QString& strCall)
{
    Write(QStringLiteral("prepare"), strCall);
}

void CStory::Begin()
{
    Write(QStringLiteral("begin"), {});
}

void CStory::Call(const QString& strCall)
{
    Write(QStringLiteral("call"), strCall);
}

void CStory::Read(const QString& strCall)
{
    Write(QStringLiteral("read"), strCall);
}

void CStory::Return()
{
    Write(QStringLiteral("returned"), {});
}

void CStory::Answer(const QString& strText)
{
    Write(QStringLiteral("answer"), strText);
}

void CStory::Tell(const QString& strKey, const QString& strText)
{
    Write(strKey, strText);
}

// In one piece and without a buffer: the process may end at any call.
void CStory::Write(const QString& strKey, const QString& strText)
{
    const QByteArray line
        = (strKey + QLatin1Char(' ') + QString(strText).replace(QLatin1Char('\n'), QLatin1Char(' '))).toUtf8() + '\n';
    const std::lock_guard<std::mutex> lock(mutex);
    for (int nDone = 0; nDone < line.size();) {
        const ssize_t nWritten = write(nFile, line.constData() + nDone, static_cast<size_t>(line.size() - nDone));
        if (nWritten <= 0) {
            return;
        }
        nDone += static_cast<int>(nWritten);
    }
}
