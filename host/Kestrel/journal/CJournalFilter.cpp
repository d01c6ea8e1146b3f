#include "Kestrel/journal/CJournalFilter.h"

#include "Kestrel/journal/CJournalModel.h"

CJournalFilter::CJournalFilter(QObject* parent) : QSortFilterProxyModel(parent) { }

void CJournalFilter::SetReadsShown(bool bShown)
{
    bReads = bShown;
    invalidateFilter();
}

void CJournalFilter::SetText(const QString& strText)
{
    strWanted = strText;
    invalidateFilter();
}

bool CJournalFilter::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    const auto GetIndex = [&](int nColumn) { return sourceModel()->index(sourceRow, nColumn, sourceParent); };
    if (!bReads && GetIndex(0).data(CJournalModel::RoleKind).toInt() == RecordRead) {
        return false;
    }
    if (strWanted.isEmpty()) {
        return true;
    }
    return GetIndex(CJournalModel::ColumnObject).data().toString().contains(strWanted, Qt::CaseInsensitive)
        || GetIndex(CJournalModel::ColumnCall).data().toString().contains(strWanted, Qt::CaseInsensitive);
}
