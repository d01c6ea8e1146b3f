#pragma once

#include <QElapsedTimer>
#include <QObject>

class QKeyEvent;
class QMenu;

/// Typing in a menu goes to the next entry that begins with what was typed, so that one of many is reached by its name.
/// Child of its menu. GUI thread.
class CMenuSearch : public QObject
{
    Q_OBJECT

public:
    explicit CMenuSearch(QMenu* pMenuIn);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Type(const QKeyEvent* pEvent);
    bool Find(const QString& strWanted, int nAfter);

    QMenu* pMenu;
    QString strTyped;
    QElapsedTimer timerTyped; ///< since the last letter
};
