#pragma once

#include <QPoint>
#include <QUuid>

class QJsonObject;
class QWidget;

/// Where a gesture goes in the windows of this program, or went in those of the recording.
struct SGesturePlace
{
    /// The visible window and the widget that the fields of a line name. The position is the recorded one, but on a menu,
    /// whose entries count, not their places.
    static SGesturePlace Find(const QJsonObject& fields);

    /// The same with a position on the widget: it may lie elsewhere than in the recording, in another font.
    SGesturePlace OnTarget() const;

    /// The node of the row of a tree at the position; null where there is none.
    QUuid GetRow() const;

    /// That of the current row, where the widget is a tree.
    QUuid GetCurrentRow() const;

    /// Whether the row of that node is selected, where the widget is a tree.
    bool IsSelected(const QUuid& idNode) const;

    QWidget* pWindow = nullptr; ///< null when it is not there
    QWidget* pTarget = nullptr; ///< null when it is not there
    QPoint pos;                 ///< in the window
};
