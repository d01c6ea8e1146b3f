#pragma once

#include <QRect>

/// Where the editor of a name lies on the row rcRow: 24 pixels high and in the middle of the row. A
/// null rectangle for a kind of row (EnNodeType) that has no editor.
QRect EditorRect(int nNodeType, const QRect& rcRow);
