#pragma once

#include "Kestrel/CBareControlHost.h"

#include <functional>

/// The host of a replay: what is on the disk is left alone, and no message comes but those of the recording.
class CReplayHost : public CBareControlHost
{
    Q_OBJECT

public:
    using CBareControlHost::CBareControlHost;

    /// The menus are those of the recording; what is chosen in them comes back as its messages.
    bool IsSteerable() const override;

    QString SaveList() override;
    void StartLife() override;

    /// Why the list could not be saved where the user was asked about it, see SaveList.
    void SetSaveReason(const std::function<QString()>& fnReasonIn);

private:
    std::function<QString()> fnReason = [] { return QString(); };
};
