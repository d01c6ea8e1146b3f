#include "journal/replay/objects/CReplayCaller.h"

#include "journal/recording/JournalThread.h"

void CReplayCaller::Attach(CObserver* pObserver) const
{
    Ask("Attach", {});
    answers.Attach(QLatin1String(szObject), pObserver);
}

void CReplayCaller::Detach(CObserver* pObserver) const
{
    Ask("Detach", {});
    answers.Detach(QLatin1String(szObject), pObserver);
}

SReplayAnswer CReplayCaller::Ask(const char* szOperation, const QJsonArray& args) const
{
    const QString strThread = QString::fromLatin1(JournalThread::GetName());
    return answers.Answer({ QLatin1String(szObject), QLatin1String(szOperation), args, strThread });
}
