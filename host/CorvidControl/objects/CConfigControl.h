#pragma once

#include "interfaces/control/IConfigControl.h"

/// The object behind g_pConfigControl.
class CConfigControl final : public IConfigControl
{
public:
    explicit CConfigControl(const QString& strListFileIn) : strListFile(strListFileIn) { }
    virtual ~CConfigControl() = default;

    void GetReservedIPs(QList<uint>& listIP) override;
    QString GetListFilePath() override;

private:
    const QString strListFile;
};
