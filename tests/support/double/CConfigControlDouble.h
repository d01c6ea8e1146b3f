#pragma once

#include "double/CDoubledObject.h"
#include "interfaces/control/IConfigControl.h"

/// The double of g_pConfigControl.
class CConfigControlDouble final : public IConfigControl, private CDoubledObject
{
public:
    explicit CConfigControlDouble(SControlState& sharedState) : CDoubledObject(sharedState, "g_pConfigControl") { }

    void GetReservedIPs(QList<uint>& listIP) override;
    QString GetListFilePath() override;
};
