#include "Kestrel/status/CFieldLayout.h"

#include "Kestrel/status/FieldWidths.h"

#include <QLabel>
#include <QStringList>
#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <numeric>

namespace {

constexpr int nGap = 8; ///< behind each field

QString GetText(const QLayoutItem& item)
{
    const auto* pLabel = qobject_cast<const QLabel*>(const_cast<QLayoutItem&>(item).widget());
    return pLabel ? pLabel->text().toHtmlEscaped() : QString();
}

} // namespace

CFieldLayout::CFieldLayout(QWidget* parent, QLabel* pMoreIn) : QLayout(parent), pMore(pMoreIn)
{
    setContentsMargins(0, 0, 0, 0);
}

CFieldLayout::~CFieldLayout()
{
    qDeleteAll(listItem);
}

void CFieldLayout::AddField(QWidget* pField, int nRank)
{
    addWidget(pField);
    listRank.last() = nRank;
}

void CFieldLayout::addItem(QLayoutItem* pItem)
{
    listItem.append(pItem);
    listRank.append(listItem.size());
    invalidate();
}

int CFieldLayout::count() const
{
    return listItem.size();
}

QLayoutItem* CFieldLayout::itemAt(int nIndex) const
{
    return listItem.value(nIndex);
}

QLayoutItem* CFieldLayout::takeAt(int nIndex)
{
    if (nIndex < 0 || nIndex >= listItem.size()) {
        return nullptr;
    }
    listRank.removeAt(nIndex);
    return listItem.takeAt(nIndex);
}

QSize CFieldLayout::sizeHint() const
{
    return GetSize(false);
}

QSize CFieldLayout::minimumSize() const
{
    return GetSize(true);
}

void CFieldLayout::setGeometry(const QRect& rc)
{
    QLayout::setGeometry(rc);
    QVector<int> listWidth = GetWidths(rc.width());
    QStringList listGone;
    for (int n = 0; n < listItem.size(); ++n) {
        if (!listItem.at(n)->isEmpty() && listWidth.at(n) == 0) {
            listGone.append(GetText(*listItem.at(n)));
        }
    }
    const int nMore = listGone.isEmpty() ? 0 : GetMoreWidth();
    if (!listWidth.isEmpty()) {
        listWidth.first() += qMax(0, rc.width() - nMore - std::accumulate(listWidth.cbegin(), listWidth.cend(), 0));
    }
    Place(listWidth, rc);
    pMore->setGeometry(MakePlace(rc, rc.right() + 1 - nMore, nMore, pMore->sizeHint().height()));
    pMore->setToolTip(listGone.join(QStringLiteral("<br>")));
    pMore->setAccessibleDescription(listGone.join(QStringLiteral(", ")));
}

QVector<int> CFieldLayout::GetShown() const
{
    QVector<int> listShown;
    for (int n = 0; n < listItem.size(); ++n) {
        if (!listItem.at(n)->isEmpty()) {
            listShown.append(n);
        }
    }
    std::sort(listShown.begin(), listShown.end(),
              [this](int nOne, int nOther) { return listRank.at(nOne) < listRank.at(nOther); });
    return listShown;
}

// By the places in listItem; with their gaps, and 0 for what is hidden.
QVector<int> CFieldLayout::GetWidths(int nRoom) const
{
    const QVector<int> listShown = GetShown();
    QVector<FieldWidths::SField> listField;
    for (const int n : listShown) {
        const int nWhole = listItem.at(n)->sizeHint().width() + nGap;
        const int nLeast = qMin(nWhole, listItem.at(n)->minimumSize().width() + nGap);
        listField.append({ nWhole, nLeast, listRank.at(n) < nKeptRanks });
    }
    const QVector<int> listShare = FieldWidths::Share(listField, nRoom, GetMoreWidth());
    QVector<int> listWidth(listItem.size());
    for (int n = 0; n < listShown.size(); ++n) {
        listWidth[listShown.at(n)] = listShare.at(n);
    }
    return listWidth;
}

int CFieldLayout::GetMoreWidth() const
{
    return pMore->sizeHint().width() + nGap;
}

QSize CFieldLayout::GetSize(bool bLeast) const
{
    QSize size(bLeast ? GetMoreWidth() : 0, 0);
    for (int n = 0; n < listItem.size(); ++n) {
        const QLayoutItem* pItem = listItem.at(n);
        if (pItem->isEmpty()) {
            continue;
        }
        const QSize sizeItem = bLeast ? pItem->minimumSize() : pItem->sizeHint();
        size.setHeight(qMax(size.height(), sizeItem.height()));
        size.rwidth() += !bLeast || listRank.at(n) < nKeptRanks ? sizeItem.width() + nGap : 0;
    }
    return size;
}

void CFieldLayout::Place(const QVector<int>& listWidth, const QRect& rc)
{
    int nLeft = rc.left();
    for (int n = 0; n < listItem.size(); ++n) {
        QLayoutItem* pItem = listItem.at(n);
        if (!pItem->isEmpty()) {
            pItem->setGeometry(MakePlace(rc, nLeft, listWidth.at(n), pItem->sizeHint().height()));
            nLeft += listWidth.at(n);
        }
    }
}

// nWidth includes the gap.
QRect CFieldLayout::MakePlace(const QRect& rc, int nLeft, int nWidth, int nHeight) const
{
    const QRect rcField(nLeft, rc.top() + (rc.height() - nHeight) / 2, qMax(0, nWidth - nGap), nHeight);
    return QStyle::visualRect(parentWidget()->layoutDirection(), rc, rcField);
}
