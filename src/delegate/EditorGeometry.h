#pragma once

#include <QRect>

/// Where the editor of a name is on its row.
namespace EditorGeometry {

/// The rectangle of the editor on the row rcRow, in the same coordinates: 24 pixels high and centred in the
/// row. Null for a kind of row (EnNodeType) that has no editor.
QRect EditorRect(int nNodeType, const QRect& rcRow);

} // namespace EditorGeometry
