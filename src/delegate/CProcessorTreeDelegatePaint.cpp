#include "data/CProcessorTreeData.h"
#include "delegate/CProcessorTreeDelegate.h"
#include "delegate/CRowIcons.h"
#include "delegate/RowLook.h"
#include "delegate/RowText.h"
#include "delegate/SGroupRowGeometry.h"
#include "delegate/SInfoRowGeometry.h"
#include "delegate/SProcessorRowGeometry.h"
#include "model/EnItemRole.h"
#include "model/RowValue.h"
#include "model/SPrcNodeItem.h"

#include <QFontMetrics>
#include <QPainter>
#include <QRadialGradient>
#include <QStringList>
#include <QTextOption>

namespace {

void SetRowFont(QPainter* painter)
{
    QFont font = painter->font();
    font.setPixelSize(RowLook::nFontPixels);
    painter->setFont(font);
}

void SetTextPen(QPainter* painter, QStyle::State state)
{
    if (state & QStyle::State_Selected) {
        painter->setPen(QColor(RowLook::rgbTextSelected));
    } else if (state & QStyle::State_MouseOver) {
        painter->setPen(QColor(RowLook::rgbTextHover));
    } else {
        painter->setPen(QColor(RowLook::rgbText));
    }
}

const QGradientStops& GlowStops()
{
    static const QGradientStops stops{ { 0.0, QColor::fromRgba(RowLook::rgbaGlowMiddle) },
                                       { RowLook::fGlowFading, QColor::fromRgba(RowLook::rgbaGlowFading) },
                                       { 1.0, QColor::fromRgba(RowLook::rgbaGlowEnd) } };
    return stops;
}

QRadialGradient GlowGradient(const QPointF& ptMiddle)
{
    QRadialGradient gradient(ptMiddle, RowLook::fGlowRadius);
    gradient.setStops(GlowStops());
    return gradient;
}

void DrawGlow(QPainter* painter, const SProcessorRowGeometry& geometry)
{
    painter->save();
    painter->setBrush(GlowGradient(geometry.rcDot.center()));
    painter->setPen(Qt::NoPen);
    painter->drawEllipse(geometry.rcGlow);
    painter->restore();
}

// In this order: glow, dot, role, Chief.
void DrawMarks(QPainter* painter, const SProcessorRowGeometry& geometry, const SProcessorNode& node, bool bChief)
{
    CRowIcons icons(painter);
    if (node.bOnline) {
        DrawGlow(painter, geometry);
    }
    icons.Draw(RowLook::IconDot(node.bOnline), geometry.rcDot);
    if (node.bOnline && node.nFailover != 0 && !node.strProject.isEmpty()) {
        icons.Draw(RowLook::IconFailover(node.nFailover == 1), geometry.rcFailover);
    }
    if (bChief) {
        icons.Draw(RowLook::IconChief(), geometry.rcChief);
    }
}

void PublishMarks(const QModelIndex& index, const SProcessorRowGeometry& geometry, const SProcessorNode& node, bool bChief)
{
    Q_ASSERT(QMetaType::hasRegisteredComparators<SPrcNodeItem>());
    SPrcNodeItem item;
    item.rcFailover = geometry.rcFailover;
    item.rcChief = geometry.rcChief;
    item.bPrimary = node.nFailover == 1;
    item.bBackup = node.nFailover == 2;
    item.bChief = bChief;
    RowValue::Write(index, QVariant::fromValue(item), RoleNodeItem);
}

// A text that fits leaves an older one in the item, by the contract with the host.
void PublishShortened(const QModelIndex& index, const QString& strText, const QString& strElided)
{
    if (strElided != strText) {
        RowValue::Write(index, strText, RoleToolTip);
    }
}

const QTextOption& TextOption()
{
    static const QTextOption option;
    return option;
}

QString GroupText(const SProcessorGroupNode& group)
{
    if (group.listProcessor.isEmpty()) {
        return group.strName;
    }
    return group.strName + QStringLiteral("(%1)").arg(group.listProcessor.size());
}

bool ShowsChief(const SProcessorGroupNode& group)
{
    return !group.idChief.isNull() && g_pProcessorTreeData->IsChiefMode();
}

void DrawLines(QPainter* painter, const SInfoRowGeometry& geometry, const QStringList& listLine)
{
    for (int i = 0; i < listLine.size(); ++i) {
        painter->drawText(geometry.arrLine.at(static_cast<size_t>(i)), listLine.at(i), TextOption());
    }
}

} // namespace

QString CProcessorTreeDelegate::GetElidedText(const QString& strText, int nWidth, const QFont& font, const QModelIndex&) const
{
    return QFontMetrics(font).elidedText(strText, Qt::ElideMiddle, nWidth, Qt::TextWrapAnywhere);
}

void CProcessorTreeDelegate::PaintProcessor(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QUuid id = RowValue::NodeId(index);
    if (id.isNull()) {
        return;
    }
    const SProcessorNode node = g_pProcessorTreeData->GetProcessor(id);
    if (node.idNode != id) {
        return;
    }
    const bool bChief = g_pProcessorTreeData->IsChiefMode() && node.nChief == 1;
    const SProcessorRowGeometry geometry(option.rect, node, bChief);

    QStyledItemDelegate::paint(painter, option, index);
    DrawMarks(painter, geometry, node, bChief);
    SetRowFont(painter);
    SetTextPen(painter, option.state);
    const QString strElided = GetElidedText(node.strName, static_cast<int>(geometry.rcName.width()), painter->font(), index);
    painter->drawText(geometry.rcName, strElided, TextOption());
    PublishShortened(index, node.strName, strElided);
    PublishMarks(index, geometry, node, bChief);
}

void CProcessorTreeDelegate::PaintGroup(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                                        bool bAll) const
{
    QString strText;
    bool bChief = false;
    if (bAll) {
        strText = RowText::All(g_pProcessorTreeData->GetProcessorCount());
    } else {
        const QUuid id = RowValue::NodeId(index);
        const SProcessorGroupNode group = g_pProcessorTreeData->GetGroup(id);
        if (group.idNode != id) {
            return;
        }
        strText = GroupText(group);
        bChief = ShowsChief(group);
    }
    const SGroupRowGeometry geometry(option.rect);

    QStyledItemDelegate::paint(painter, option, index);
    SetRowFont(painter);
    CRowIcons(painter).Draw(RowLook::IconGroup(bChief, option.state & QStyle::State_Selected), geometry.rcIcon);
    SetTextPen(painter, option.state);
    const QString strElided = GetElidedText(strText, static_cast<int>(geometry.rcText.width()), painter->font(), index);
    painter->drawText(geometry.rcText, strElided, TextOption());
    PublishShortened(index, strText, strElided);
}

// Has no background of its own: the card under it is the tree's.
void CProcessorTreeDelegate::PaintInfo(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QUuid id = RowValue::NodeId(index);
    const SProcessorNode node = g_pProcessorTreeData->GetProcessor(id);
    if (node.idNode != id) {
        return;
    }
    const SInfoRowGeometry geometry(option.rect);

    SetRowFont(painter);
    painter->setPen(QColor(RowLook::rgbText));
    if (!node.bOnline) {
        DrawLines(painter, geometry, RowText::InfoLines(node));
        return;
    }
    const QString strProject = GetElidedText(RowText::Project(node), geometry.nProjectWidth, painter->font(), index);
    const QString strId = GetElidedText(RowText::Uid(node), geometry.nIdWidth, painter->font(), index);
    DrawLines(painter, geometry, RowText::OnlineLines(node, strProject, strId));
    RowValue::Write(index, RowText::InfoLines(node).join(QLatin1Char('\n')), RoleToolTip);
}
