#include "Kestrel/journal/CEditJournal.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/journal/UserLine.h"
#include "Kestrel/journal/WidgetPath.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>

CEditJournal::CEditJournal(ICallRecorder& recorderIn) : recorder(recorderIn)
{
    Q_ASSERT(GuiThread::IsCurrent());
    qApp->installEventFilter(this);
    if (auto* pEdit = qobject_cast<QLineEdit*>(QApplication::focusWidget())) {
        Follow(*pEdit);
    }
}

// Nobody edits what has not had the focus.
bool CEditJournal::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn && !setFollowed.contains(watched)) {
        if (auto* pEdit = qobject_cast<QLineEdit*>(watched)) {
            Follow(*pEdit);
        }
    }
    return false;
}

void CEditJournal::Follow(QLineEdit& edit)
{
    setFollowed.insert(&edit);
    connect(&edit, &QObject::destroyed, this, [this](QObject* pGone) { setFollowed.remove(pGone); });
    connect(&edit, &QLineEdit::textEdited, this, [this, &edit](const QString& strText) {
        UserLine::Write(recorder, "edit",
                        { { "target", WidgetPath::Get(&edit) }, { "text", SPrivateText(strText, PrivateText) } });
    });
}
