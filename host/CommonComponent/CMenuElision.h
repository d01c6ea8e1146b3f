#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

class QAction;
class QMenu;

/// While a menu is open that would be wider than its screen, its entries have shortened texts, and all of each text as
/// tool tip; else they would be cut off at the edge of the screen. They have their own texts again before the chosen one
/// is triggered. Child of its menu. GUI thread.
class CMenuElision : public QObject
{
    Q_OBJECT

public:
    explicit CMenuElision(QMenu* pMenuIn);

    /// Of the entry, whole.
    QString GetText(const QAction* pAction) const;

private:
    void Shorten();
    void Restore();
    void ShortenTo(int nMost);
    void ShortenEntry(QAction* pAction, int nMost);

    /// An entry that is shortened, and its own text.
    struct SEntry
    {
        QPointer<QAction> pAction;
        QString strText;
        bool bTip = false; ///< the tool tip is ours
    };

    QMenu* pMenu;
    QVector<SEntry> vecShortened;
};
