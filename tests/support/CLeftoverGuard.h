#pragma once

#include <QStringList>

/// Compares the end of a run with its beginning: top-level widgets, threads, jobs of the global pool.
class CLeftoverGuard
{
public:
    CLeftoverGuard();

    /// Waits a while for what is about to end, prints what is left and returns how many.
    int Report();

private:
    int ReportWidgets() const;
    int ReportJobs() const;
    int ReportThreads() const;

    QStringList listThreadAtStart; ///< kernel ids
};
