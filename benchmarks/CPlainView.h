#pragma once

#include <QStandardItemModel>
#include <QTreeView>

struct SProcessorAllNode;

/// A plain view of the processors of a tree as flat rows under one root, in the panel's place and under the same sheet, on the
/// screen. Like the panel it repaints its whole viewport at each move of the mouse.
class CPlainView : public QTreeView // clazy:exclude=missing-qobject-macro
{
public:
    /// nHeight is that of the viewport, in pixels.
    CPlainView(const SProcessorAllNode& node, int nHeight);

protected:
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    QStandardItemModel rows;
};
