#include "CPaintedRow.h"

#include "delegate/CProcessorTreeDelegate.h"
#include "model/EnItemRole.h"
#include "nodes/EnNodeType.h"

#include <QPainter>

CPaintedRow::CPaintedRow(const QVariant& type, const QVariant& id)
{
    auto* pItem = new QStandardItem;
    pItem->setData(type, RoleNodeType);
    pItem->setData(id, RoleNodeId);
    model.appendRow(pItem);
    option.rect = QRect(30, 40, 240, type.toInt() == NodeInfo ? 92 : 32);
    option.state = QStyle::State_Enabled;
    option.showDecorationSelected = true;
}

void CPaintedRow::SetState(QStyle::State state)
{
    option.state = QStyle::State_Enabled | state;
}

void CPaintedRow::SetWidth(int nWidth)
{
    option.rect.setWidth(nWidth);
}

QImage CPaintedRow::Blank() const
{
    QImage image(320, 160, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(0x1C, 0x1E, 0x21));
    return image;
}

QImage CPaintedRow::Paint()
{
    QImage image = Blank();
    QPainter painter(&image);
    QFont font = painter.font();
    font.setPixelSize(20);
    font.setBold(true);
    painter.setFont(font);
    const CProcessorTreeDelegate delegate(nullptr);
    delegate.paint(&painter, option, Index());
    return image;
}

QModelIndex CPaintedRow::Index() const
{
    return model.index(0, 0);
}

const QStyleOptionViewItem& CPaintedRow::Option() const
{
    return option;
}

QStyleOptionViewItem& CPaintedRow::Option()
{
    return option;
}

SPrcNodeItem CPaintedRow::Marks() const
{
    return Index().data(RoleNodeItem).value<SPrcNodeItem>();
}

QVariant CPaintedRow::ToolTip() const
{
    return Index().data(RoleToolTip);
}
