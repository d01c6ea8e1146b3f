#pragma once

#include <QLayout>
#include <QVector>

class QLabel;

/// The fields of the status bar beside each other. Where they have too little room the less important ones are elided, and
/// then give way: they have no width, and their texts are in the tool tip of a mark at the end. GUI thread.
class CFieldLayout : public QLayout
{
    Q_OBJECT

public:
    static constexpr int nKeptRanks = 2; ///< fields of a lower rank than this never give way

    /// pMoreIn is the mark, which belongs to the parent as the fields do.
    CFieldLayout(QWidget* parent, QLabel* pMoreIn);
    ~CFieldLayout() override;

    /// Behind the fields that are there; the first one takes the room that no other needs. nRank is 0 for the most important
    /// one and another for each. What may give way is a label. Its owner shows and hides it as anywhere else.
    void AddField(QWidget* pField, int nRank);

    void addItem(QLayoutItem* pItem) override;
    int count() const override;
    QLayoutItem* itemAt(int nIndex) const override;
    QLayoutItem* takeAt(int nIndex) override;
    QSize sizeHint() const override;

    /// What the kept fields and the mark need.
    QSize minimumSize() const override;
    void setGeometry(const QRect& rc) override;

private:
    QVector<int> GetShown() const; ///< places in listItem, most important first
    QVector<int> GetWidths(int nRoom) const;
    int GetMoreWidth() const;
    QSize GetSize(bool bLeast) const;
    void Place(const QVector<int>& listWidth, const QRect& rc);
    QRect MakePlace(const QRect& rc, int nLeft, int nWidth, int nHeight) const;

    QVector<QLayoutItem*> listItem; ///< owned
    QVector<int> listRank;          ///< of each
    QLabel* pMore;
};
