#pragma once

#include "CorvidControl/objects/CControlClock.h"

#include <QByteArray>
#include <QSet>
#include <QStringList>

/// Earlier lists beside the list, in dated files. The last nKept stay, and the first of each of the last
/// nKeptDays days that have any. Everything here blocks for the disk. For one thread at a time.
class CGenerations
{
public:
    static constexpr int nKept = 10;
    static constexpr int nKeptDays = 10;
    static constexpr std::chrono::minutes timeBetween{ 5 };

    /// clockIn must outlive it.
    explicit CGenerations(const CControlClock& clockIn);

    /// True when none was kept for timeBetween, by this run or by one before it.
    bool IsDue(const QString& strListPath) const;

    /// Keeps bytes, unless the latest generation is the same. Returns the fault; empty when they are kept.
    QString Keep(const QString& strListPath, const QByteArray& bytes);

    /// A file that Prune leaves alone for as long as this object lives.
    void Spare(const QString& strPath);

    /// Removes what is not to stay. Returns one fault for each that could not be removed.
    QStringList Prune(const QString& strListPath) const;

private:
    static QStringList FindOld(const QStringList& listPath);

    const CControlClock& clock;
    QSet<QString> setSpared;
    CControlClock::Time timeLast;
    bool bKept = false; ///< in this run, at timeLast
};
