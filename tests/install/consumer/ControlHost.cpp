#include "controlhost/CJobs.h"

int main()
{
    CJobs jobs;
    int nSignals = 0;
    QObject::connect(&jobs, &CJobs::JobsChanged, &jobs, [&nSignals]() { ++nSignals; });
    const int nJob = jobs.Begin(QStringLiteral("a scan"));
    const bool bRunning = jobs.GetRunning() == QStringList(QStringLiteral("a scan"));
    jobs.End(nJob);
    return bRunning && nSignals == 2 && jobs.GetRunning().isEmpty() ? 0 : 1;
}
