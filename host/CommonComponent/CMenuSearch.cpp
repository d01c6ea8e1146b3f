#include "CommonComponent/CMenuSearch.h"

#include "CommonComponent/CMenuElision.h"

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

CMenuSearch::CMenuSearch(QMenu* pMenuIn, const CMenuElision& elisionIn) : QObject(pMenuIn), pMenu(pMenuIn), elision(elisionIn)
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
        const bool bChoosable = pAction->isVisible() && pAction->isEnabled();
        if (bChoosable && elision.GetText(pAction).startsWith(strWanted, Qt::CaseInsensitive)) {
            pMenu->setActiveAction(pAction);
            return true;
        }
    }
    return false;
}
