#include "CommonComponent/CMenuSearch.h"

#include <QKeyEvent>
#include <QMenu>

namespace {

constexpr int nPause = 2000; // ms after which a letter begins a new word, as in the toolkit's own menus

bool IsText(const QKeyEvent* pEvent)
{
    return (pEvent->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0 && !pEvent->text().isEmpty()
        && pEvent->text().at(0).isPrint();
}

} // namespace

CMenuSearch::CMenuSearch(QMenu* pMenuIn) : QObject(pMenuIn), pMenu(pMenuIn)
{
    pMenu->installEventFilter(this);
}

bool CMenuSearch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show) {
        strTyped.clear();
    }
    return (event->type() == QEvent::KeyPress && Type(static_cast<QKeyEvent*>(event))) || QObject::eventFilter(watched, event);
}

// What continues no name is the menu's, such as a blank that chooses in some styles.
bool CMenuSearch::Type(const QKeyEvent* pEvent)
{
    if (!IsText(pEvent)) {
        return false;
    }
    if (!timerTyped.isValid() || timerTyped.hasExpired(nPause)) {
        strTyped.clear();
    }
    timerTyped.start();
    if (!Find(strTyped + pEvent->text())) {
        return false;
    }
    strTyped += pEvent->text();
    return true;
}

bool CMenuSearch::Find(const QString& strWanted)
{
    const QList<QAction*> listAction = pMenu->actions();
    for (QAction* pAction : listAction) {
        if (pAction->isVisible() && pAction->isEnabled() && pAction->text().startsWith(strWanted, Qt::CaseInsensitive)) {
            pMenu->setActiveAction(pAction);
            return true;
        }
    }
    return false;
}
