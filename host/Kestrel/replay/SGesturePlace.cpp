#include "Kestrel/replay/SGesturePlace.h"

#include "Kestrel/journal/WidgetPath.h"
#include "Kestrel/player/PanelAccess.h"

#include <QAbstractItemView>
#include <QJsonObject>
#include <QMenu>

#include <algorithm>

namespace {

QWidget* FindVisible(const QJsonValue& path)
{
    QWidget* pWidget = WidgetPath::Find(path.toString());
    return pWidget && pWidget->isVisible() ? pWidget : nullptr;
}

QPoint GetEntryPosition(QMenu& menu, const SGesturePlace& place, int nEntry)
{
    QAction* pEntry = menu.actions().value(nEntry);
    const bool bThere = !pEntry || menu.actionAt(menu.mapFrom(place.pWindow, place.pos)) == pEntry;
    return bThere ? place.pos : menu.mapTo(place.pWindow, menu.actionGeometry(pEntry).center());
}

QPoint Clamp(const QPoint& pos, const QRect& rect)
{
    return { std::clamp(pos.x(), rect.left(), rect.right()), std::clamp(pos.y(), rect.top(), rect.bottom()) };
}

} // namespace

SGesturePlace SGesturePlace::Find(const QJsonObject& fields)
{
    SGesturePlace place;
    place.pWindow = FindVisible(fields.value(QLatin1String("window")));
    place.pTarget = FindVisible(fields.value(QLatin1String("target")));
    place.pos = QPoint(fields.value(QLatin1String("x")).toInt(), fields.value(QLatin1String("y")).toInt());
    auto* pMenu = qobject_cast<QMenu*>(place.pTarget);
    if (pMenu && pMenu == place.pWindow && fields.contains(QLatin1String("number"))) {
        place.pos = GetEntryPosition(*pMenu, place, fields.value(QLatin1String("number")).toInt());
    }
    return place;
}

SGesturePlace SGesturePlace::OnTarget() const
{
    SGesturePlace place = *this;
    const bool bBesidePopup = pWindow && pWindow->windowType() == Qt::Popup && !pWindow->rect().contains(pos); // closes it
    if (!bBesidePopup && pTarget && pTarget->window() == pWindow) {
        place.pos = pTarget->mapTo(pWindow, Clamp(pTarget->mapFrom(pWindow, pos), pTarget->rect()));
    }
    return place;
}

QUuid SGesturePlace::GetRow() const
{
    const auto* pView = pTarget ? qobject_cast<QAbstractItemView*>(pTarget->parentWidget()) : nullptr;
    const bool bTree = pView && pView->viewport() == pTarget;
    return bTree ? PanelAccess::GetNodeId(pView->indexAt(pTarget->mapFrom(pWindow, pos))) : QUuid();
}

QUuid SGesturePlace::GetCurrentRow() const
{
    const auto* pView = qobject_cast<QAbstractItemView*>(pTarget);
    return pView ? PanelAccess::GetNodeId(pView->currentIndex()) : QUuid();
}

bool SGesturePlace::IsSelected(const QUuid& idNode) const
{
    const auto* pView = qobject_cast<QAbstractItemView*>(pTarget);
    const QModelIndexList listSelected = pView ? pView->selectionModel()->selectedIndexes() : QModelIndexList();
    return std::any_of(listSelected.begin(), listSelected.end(),
                       [&idNode](const QModelIndex& index) { return PanelAccess::GetNodeId(index) == idNode; });
}
