#pragma once

#include <QString>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QToolButton;
class QWidget;

/// The parts above and below the trees of the panel: how they are set up and laid out. The host's style
/// sheet relies on the object names and properties. Widgets stay owned by their parents.
namespace PanelParts {

/// Makes a button one of the tabs, of which one is chosen; strPosition is its place among them, "first" or "middle".
void DressTab(QPushButton* pTab, const QString& strPosition);

/// The button that refreshes, at the right end of the header.
void DressRefreshButton(QToolButton* pButton);

/// The button that closes the search row.
void DressCloseSearchButton(QToolButton* pButton);

/// The name of a part without a text for screen readers.
void NamePart(QWidget* pPart, const QString& strName);

/// What a button without a text does: its tool tip, and its name for screen readers.
void NameButton(QToolButton* pButton, const QString& strName);

/// Lays the tabs and the refresh button out in the header.
void LayOutHeader(QLabel* pHeader, QPushButton* pFirstTab, QPushButton* pSecondTab, QToolButton* pRefreshButton);

/// A new layout with the search box and its close button. The caller owns it.
QHBoxLayout* NewSearchLayout(QWidget* pSearchBox, QToolButton* pCloseSearchButton);

} // namespace PanelParts
