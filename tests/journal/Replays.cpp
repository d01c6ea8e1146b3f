#include "Replays.h"

#include "CReplayedSession.h"

CRecordedRun Replays::Read(const CRecordedSession& recorded)
{
    CRecordedRun run;
    QString strError;
    if (!run.Read(recorded.GetFolder(), strError)) {
        qFatal("%s", qPrintable(strError));
    }
    return run;
}

QString Replays::Play(const CRecordedRun& run, const std::vector<SSessionStep>& vecStep, const CRecordedSession& recorded)
{
    CReplayedSession replayed;
    replayed.Play(run, vecStep);
    if (!replayed.GetFault().isEmpty() || replayed.GetText() == recorded.GetText()) {
        return replayed.GetFault();
    }
    return QStringLiteral("%1 instead of %2").arg(replayed.GetText(), recorded.GetText());
}

QString Replays::PlayWithoutFirstFiles(const CRecordedSession& recorded, const std::vector<SSessionStep>& vecStep,
                                       const std::function<void(const CRecordedRun&)>& fnBefore)
{
    CRecordedRun run = Read(recorded);
    while (run.GetFirstPlace() < run.GetLines().size()) {
        if (fnBefore) {
            fnBefore(run);
        }
        const QString strFault = Play(run, vecStep, recorded);
        if (!strFault.isEmpty()) {
            return strFault;
        }
        recorded.RemoveFirstFiles(1);
        QString strError;
        if (!run.Read(recorded.GetFolder(), strError)) {
            break;
        }
    }
    return run.HasBeginning() ? QStringLiteral("the run is in one file") : QString();
}

QString Replays::FindFault(const std::function<QString()>& fnPlay)
{
    QString strFault = fnPlay();
    for (int n = 0; n < 2 && !strFault.isEmpty(); ++n) {
        qInfo("Recorded once more: %s", qPrintable(strFault));
        strFault = fnPlay();
    }
    return strFault;
}
