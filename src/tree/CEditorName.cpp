#include "tree/CEditorName.h"

#include "data/CProcessorTreeData.h"
#include "data/GuiThread.h"
#include "tree/RowSpeech.h"

#include <QAccessible>
#include <QChildEvent>
#include <QLineEdit>

CEditorName::CEditorName(QObject* pViewport, const QUuid& idIn) : id(idIn)
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (QAccessible::isActive()) {
        pViewport->installEventFilter(this);
    }
}

// The delegate focuses the editor while it is hidden: screen readers hear that, the editor gets no event. The last one
// before is that its constructor lets it take drops; should it not come, the polishing does, before the editor is shown.
bool CEditorName::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ChildAdded) {
        static_cast<QChildEvent*>(event)->child()->installEventFilter(this); // under construction, so no editor yet
    } else if (event->type() == QEvent::AcceptDropsChange || event->type() == QEvent::Polish) {
        Name(qobject_cast<QLineEdit*>(watched));
    }
    return QObject::eventFilter(watched, event);
}

void CEditorName::Name(QLineEdit* pEditor) const
{
    if (pEditor && pEditor->accessibleName().isEmpty()) {
        pEditor->setAccessibleName(RowSpeech::Editor(g_pProcessorTreeData->GetNodeName(id)));
    }
}
