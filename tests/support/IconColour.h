#pragma once

#include <QColor>

/// The colour of a test icon, by its resource path (":/image/treeView/chief/chief.svg"). Each icon is a
/// plain shape in a colour of its own, so that a pixel tells which icon was drawn. Invalid for a path
/// that is no test icon.
QColor IconColour(const QString& strPath);
