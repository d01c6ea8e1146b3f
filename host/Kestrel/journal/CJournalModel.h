#pragma once

#include "journal/SCallRecord.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QMap>

#include <deque>
#include <vector>

/// The newest lines of the journal, as rows. Old ones go when there are too many.
class CJournalModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum EnColumn
    {
        ColumnTime = 0,
        ColumnThread = 1,
        ColumnObject = 2,
        ColumnCall = 3,
        ColumnCount = 4,
    };

    /// The kind of a row, an EnRecordKind.
    static constexpr int RoleKind = Qt::UserRole + 1;

    /// At least one row is kept, whatever nMostRows.
    CJournalModel(int nMostRows, QObject* parent);

    /// The text colour of each EnRecordKind; the view's own where one is missing.
    void SetColours(const QMap<int, QColor>& mapColourIn);

    /// Adds records at the end; one insertion and at most one removal, however many they are.
    void Append(const std::vector<SCallRecord>& vecRecord);

    /// The rows go; the journal keeps its records.
    void Clear();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    /// The headers again, after the language has changed.
    void UpdateText();

private:
    static QString GetText(const SCallRecord& record, int nColumn);

    const int nMost;
    QMap<int, QColor> mapColour;
    std::deque<SCallRecord> listRecord;
};
