#pragma once

#include "CorvidControl/file/CListPlace.h"
#include "CorvidControl/objects/CControlClock.h"

#include <memory>

/// The dated file beside a list in which a run keeps the list when its own place is not to be written:
/// "<list>.unsaved-<date>.kvtl". One file a run, replaced by itself. For one thread at a time.
class CListAside
{
public:
    CListAside(const CControlClock& clockIn, int nMaxBytesIn);

    /// False with the fault in strFault.
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
