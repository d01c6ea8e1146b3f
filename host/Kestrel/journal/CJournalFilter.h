#pragma once

#include <QSortFilterProxyModel>

/// The rows of the journal that the user wants to see.
class CJournalFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit CJournalFilter(QObject* parent);

    /// False hides the calls that only read, which are most of them.
    void SetReadsShown(bool bShown);

    /// Shows only rows whose object or call holds strText, in any case.
    void SetText(const QString& strText);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    bool bReads = false;
    QString strWanted;
};
