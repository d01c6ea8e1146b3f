#include "CPlainView.h"

#include "CBenchPanel.h"
#include "CPlainTree.h"

#include <QCoreApplication>
#include <QHeaderView>

CPlainView::CPlainView(const SProcessorAllNode& node, int nHeight)
{
    CPlainTree().Fill(&rows, node);
    setObjectName(QStringLiteral("ProcessorTree"));
    setStyleSheet(CBenchPanel::Sheet());
    setModel(&rows);
    header()->hide();
    setIndentation(15);
    setMouseTracking(true);
    setSelectionMode(ExtendedSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    expandAll();
    resize(CBenchPanel::nWidth, nHeight);
    show();
    QCoreApplication::processEvents();
}

void CPlainView::mouseMoveEvent(QMouseEvent* event)
{
    QTreeView::mouseMoveEvent(event);
    viewport()->update();
}
