#pragma once

#include <QString>

class QAbstractItemModel;
class QTreeView;

/// A tree as indented lines, two blanks a level, for comparison with a raw string or QStringList::join:
///
///     all [expanded]
///       group Stage [expanded] [selected]
///         processor alpha [hidden]
///           info alpha
///       processor loose
///
/// Kind and name come from the node type and id that the row carries (EnItemRole), the
/// name through CNameRegistry; a row of an unknown kind prints as "row 17". The flags are the view's,
/// always in the order expanded, hidden, selected; a row without children is never [expanded].
/// Each line ends in a line feed.
QString TreeText(const QTreeView* pView);

/// The same without flags.
QString TreeText(const QAbstractItemModel* pModel);
