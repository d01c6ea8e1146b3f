#include "shell/commands/FinalListSave.h"

#include "data/GuiThread.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IConfigControl.h"
#include "interfaces/control/IPrcListControl.h"

#include <QFile>

void FinalListSave::Save()
{
    Q_ASSERT(GuiThread::IsCurrent());
    constexpr int nWorthless = 1;
    const QString strPath = g_pConfigControl->GetListFilePath();
    if (g_pPrcListControl->ExportList(strPath, 0) != nWorthless) {
        return;
    }
    QFile::setPermissions(strPath, QFileDevice::ReadOther | QFileDevice::WriteOther);
    QFile::remove(strPath);
}
