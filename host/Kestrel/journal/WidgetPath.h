#pragma once

#include <QString>

class QWidget;

/// Where a widget stands, as a text that finds it again in another run: "CMainWindow[0]/QWidget[0]/ProcessorTree[1]", from
/// its window down, by the object's name or else the class, and the number among the children of that name. GUI thread.
namespace WidgetPath {

QString Get(const QWidget* pWidget);

/// Null when there is none now.
QWidget* Find(const QString& strPath);

} // namespace WidgetPath
