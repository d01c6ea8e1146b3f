#include "CommonComponent/CMenuElision.h"

#include <QAction>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QTextDocument>

#include <algorithm>

namespace {

int GetMostWidth(const QMenu& menu)
{
    const QWidget* pWindow = menu.parentWidget() ? menu.parentWidget()->window() : nullptr;
    const QScreen* pScreen = pWindow ? pWindow->screen() : QGuiApplication::primaryScreen();
    return pScreen->availableGeometry().width();
}

int GetTextWidth(const QMenu& menu, const QAction& action)
{
    return menu.fontMetrics().size(Qt::TextSingleLine | Qt::TextShowMnemonic, action.text()).width();
}

int GetWidestText(const QMenu& menu)
{
    int nWidest = 0;
    const QList<QAction*> listAction = menu.actions();
    for (const QAction* pAction : listAction) {
        nWidest = qMax(nWidest, pAction->isVisible() ? GetTextWidth(menu, *pAction) : 0);
    }
    return nWidest;
}

} // namespace

CMenuElision::CMenuElision(QMenu* pMenuIn) : QObject(pMenuIn), pMenu(pMenuIn)
{
    connect(pMenu, &QMenu::aboutToShow, this, &CMenuElision::Shorten);
    connect(pMenu, &QMenu::aboutToHide, this, &CMenuElision::Restore);
}

QString CMenuElision::GetText(const QAction* pAction) const
{
    const auto it = std::find_if(vecShortened.cbegin(), vecShortened.cend(),
                                 [pAction](const SEntry& entry) { return entry.pAction == pAction; });
    return it == vecShortened.cend() ? pAction->text() : it->strText;
}

// Before the menu looks for its size and place.
void CMenuElision::Shorten()
{
    Restore();
    const int nExcess = pMenu->sizeHint().width() - GetMostWidth(*pMenu);
    if (nExcess > 0) {
        ShortenTo(GetWidestText(*pMenu) - nExcess);
    }
}

void CMenuElision::Restore()
{
    for (const SEntry& entry : std::as_const(vecShortened)) {
        if (entry.pAction) {
            entry.pAction->setText(entry.strText);
        }
        if (entry.pAction && entry.bTip) {
            entry.pAction->setToolTip(QString());
        }
    }
    vecShortened.clear();
    pMenu->setToolTipsVisible(false);
}

void CMenuElision::ShortenTo(int nMost)
{
    pMenu->setToolTipsVisible(true);
    const QList<QAction*> listAction = pMenu->actions();
    for (QAction* pAction : listAction) {
        if (GetTextWidth(*pMenu, *pAction) > nMost) {
            ShortenEntry(pAction, nMost);
        }
    }
}

// A tool tip that changes with the text is none of its own.
void CMenuElision::ShortenEntry(QAction* pAction, int nMost)
{
    SEntry entry{ pAction, pAction->text(), false };
    const QString strTip = pAction->toolTip();
    pAction->setText(pMenu->fontMetrics().elidedText(entry.strText, Qt::ElideMiddle, nMost, Qt::TextShowMnemonic));
    if (pAction->toolTip() != strTip) {
        entry.bTip = true;
        pAction->setToolTip(Qt::convertFromPlainText(strTip, Qt::WhiteSpaceNormal));
    }
    vecShortened.append(entry);
}
