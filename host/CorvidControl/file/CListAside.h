#pragma once

#include "CorvidControl/file/CListPlace.h"
#include "CorvidControl/objects/CControlClock.h"

#include <memory>

/// The dated file beside a list in which a run keeps the list when its own place is not to be written:
/// "<list>.unsaved-<date>.kvtl". One file per run, replaced by itself. For one thread at a time.
class CListAside
{
public:
    /// A file of more than nMaxBytesIn is none of ours. clockIn must outlive it.
    CListAside(const CControlClock& clockIn, int nMaxBytesIn);

    /// Writes a new file, or replaces the one of this run as long as nobody else has touched it. Blocks for the
    /// disk. Returns false with the fault in strFault.
    bool Write(const QString& strListPath, const QByteArray& bytes, QString& strFault);

    /// What was written last stays for good: the next Write makes a new file.
    void StartNew();

    /// Of what was written last; empty when nothing was.
    QString GetPath() const;

private:
    const CControlClock& clock;
    const int nMaxBytes;
    std::unique_ptr<CListPlace> pPlace;
};
