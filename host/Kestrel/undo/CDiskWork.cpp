#include "Kestrel/undo/CDiskWork.h"

#include "Kestrel/GuiThread.h"

CDiskWork::CDiskWork()
{
    Q_ASSERT(GuiThread::IsCurrent());
    pool.setMaxThreadCount(1);
}

CDiskWork::~CDiskWork()
{
    pool.waitForDone();
}
