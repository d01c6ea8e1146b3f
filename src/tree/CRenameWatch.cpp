#include "tree/CRenameWatch.h"

#include "data/GuiThread.h"

#include <QWidget>

CRenameWatch::CRenameWatch(FnLost fnLostIn) : fnLost(std::move(fnLostIn)) { }

CRenameWatch::~CRenameWatch()
{
    Stop();
}

void CRenameWatch::Start(QWidget* pEditorIn)
{
    Q_ASSERT(GuiThread::IsCurrent() && pEditorIn);
    Stop();
    pEditor = pEditorIn;
    connectionDestroyed = QObject::connect(pEditor, &QObject::destroyed, pEditor, [this] { DealDestroyed(); });
}

void CRenameWatch::Stop()
{
    QObject::disconnect(connectionDestroyed);
    pEditor = nullptr;
}

QWidget* CRenameWatch::GetEditor() const
{
    return pEditor;
}

void CRenameWatch::DealDestroyed()
{
    pEditor = nullptr;
    fnLost();
}
