#include "Kestrel/journal/CJournalModel.h"

#include <QDateTime>

#include <algorithm>

CJournalModel::CJournalModel(int nMostRows, QObject* parent) : QAbstractTableModel(parent), nMost(std::max(1, nMostRows)) { }

void CJournalModel::SetColours(const QMap<int, QColor>& mapColourIn)
{
    mapColour = mapColourIn;
    if (!listRecord.empty()) {
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1), { Qt::ForegroundRole });
    }
}

void CJournalModel::Append(const std::vector<SCallRecord>& vecRecord)
{
    const int nNew = static_cast<int>(std::min<size_t>(vecRecord.size(), static_cast<size_t>(nMost)));
    if (nNew == 0) {
        return;
    }
    const int nOld = static_cast<int>(listRecord.size());
    const int nGone = std::max(0, nOld + nNew - nMost);
    if (nGone > 0) {
        beginRemoveRows(QModelIndex(), 0, nGone - 1);
        listRecord.erase(listRecord.begin(), listRecord.begin() + nGone);
        endRemoveRows();
    }
    const int nFirst = nOld - nGone;
    beginInsertRows(QModelIndex(), nFirst, nFirst + nNew - 1);
    listRecord.insert(listRecord.end(), vecRecord.end() - nNew, vecRecord.end());
    endInsertRows();
}

void CJournalModel::Clear()
{
    beginResetModel();
    listRecord.clear();
    endResetModel();
}

int CJournalModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(listRecord.size());
}

int CJournalModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CJournalModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const SCallRecord& record = listRecord[static_cast<size_t>(index.row())];
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
        return GetText(record, index.column());
    }
    if (role == Qt::ForegroundRole && mapColour.contains(record.kind)) {
        return mapColour.value(record.kind);
    }
    if (role == RoleKind) {
        return record.kind;
    }
    return {};
}

QVariant CJournalModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case ColumnTime:
        return tr("Time");
    case ColumnThread:
        return tr("Thread");
    case ColumnObject:
        return tr("Object");
    case ColumnCall:
        return tr("Call or message");
    default:
        return {};
    }
}

void CJournalModel::UpdateText()
{
    emit headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
}

QString CJournalModel::GetText(const SCallRecord& record, int nColumn)
{
    switch (nColumn) {
    case ColumnTime:
        return QDateTime::fromMSecsSinceEpoch(record.nTime).toString(QStringLiteral("HH:mm:ss.zzz"));
    case ColumnThread:
        return record.nThread == 0 ? QStringLiteral("GUI") : QString::number(record.nThread);
    case ColumnObject:
        return QLatin1String(record.pObject);
    default:
        return record.strText;
    }
}
