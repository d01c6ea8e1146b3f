#pragma once

#include <QElapsedTimer>
#include <QObject>

class CMenuElision;
class QKeyEvent;
class QMenu;

/// Typing in a menu goes to the next entry that begins with what was typed, so that one of many is reached by its name.
/// Child of its menu. GUI thread.
class CMenuSearch : public QObject
{
    Q_OBJECT

public:
    /// The texts of the entries are those of elisionIn, which must outlive the search.
    CMenuSearch(QMenu* pMenuIn, const CMenuElision& elisionIn);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Type(const QKeyEvent* pEvent);
    bool Find(const QString& strWanted, int nAfter);

    QMenu* pMenu;
    const CMenuElision& elision;
    QString strTyped;
    QElapsedTimer timerTyped; ///< since the last letter
};
