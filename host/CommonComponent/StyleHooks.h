#pragma once

#include <QIcon>
#include <QStyle>

class QVariant;
class QWidget;

/// Sets a dynamic property that style sheets select by, and lets the sheet look at the widget and at what
/// it contains again. Does nothing when the property has that value.
void SetStyleProperty(QWidget* pWidget, const char* szName, const QVariant& value);

/// The host's image at strPath, or the style's own where the host has none. pWidget gives the style.
QIcon LoadWidgetIcon(const QString& strPath, QStyle::StandardPixmap fallback, const QWidget* pWidget);
