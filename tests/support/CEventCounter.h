#pragma once

#include <QEvent>
#include <QObject>

/// Counts the events of one type that a watched object gets.
class CEventCounter : public QObject
{
public:
    CEventCounter(QObject* pWatchedObject, QEvent::Type nTypeIn) : nType(nTypeIn)
    {
        pWatchedObject->installEventFilter(this);
    }

    int nCount = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        nCount += event->type() == nType ? 1 : 0;
        return false;
    }

private:
    QEvent::Type nType;
};
