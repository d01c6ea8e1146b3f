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

// A letter is never the menu's: one that the name of an entry holds behind an ampersand would choose that entry. The
// blank is, where it begins no name, since it chooses in some styles.
bool CMenuSearch::Type(const QKeyEvent* pEvent)
{
    if (!IsText(pEvent)) {
        return false;
    }
    if (!timerTyped.isValid() || timerTyped.hasExpired(nPause)) {
        strTyped.clear();
    }
    timerTyped.start();
    const bool bFirst = strTyped.isEmpty();
    if (Find(strTyped + pEvent->text(), -1)) {
        strTyped += pEvent->text();
    } else if (strTyped.compare(pEvent->text(), Qt::CaseInsensitive) == 0) {
        Find(strTyped, pMenu->actions().indexOf(pMenu->activeAction()));
    }
    return !bFirst || !strTyped.isEmpty() || pEvent->key() != Qt::Key_Space;
}

bool CMenuSearch::Find(const QString& strWanted, int nAfter)
{
    const QList<QAction*> listAction = pMenu->actions();
    for (int n = 1; n <= listAction.size(); ++n) {
        QAction* pAction = listAction.at((nAfter + n) % listAction.size());
        const bool bChoosable = pAction->isVisible() && pAction->isEnabled();
        if (bChoosable && elision.GetText(pAction).startsWith(strWanted, Qt::CaseInsensitive)) {
            pMenu->setActiveAction(pAction);
            return true;
        }
    }
    return false;
}
