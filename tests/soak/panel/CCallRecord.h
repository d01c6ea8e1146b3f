#pragma once

#include "journal/recording/ICallRecorder.h"

#include <QList>
#include <QString>
#include <QUuid>

#include <mutex>

/// A call of the panel that asks for a change.
struct SPanelCall
{
    QString strOperation;
    QUuid id;            ///< its first id, or that of a new group
    bool bValue = false; ///< its first truth value
};

/// Keeps what the panel asks the control library for. Any thread.
class CCallRecord final : public ICallRecorder
{
public:
    void Begin(SJournalRecord&) override { }
    void Write(SJournalRecord&& record) override;

    /// What has come since the last call, in the order in which it came back.
    QList<SPanelCall> Take();

    /// How many have come in all, without those of PostMessage.
    int GetCount() const;

    /// How many SetBusy(true) have had no SetBusy(false) yet.
    int GetBusy() const;

private:
    mutable std::mutex mutex; ///< guards all below
    QList<SPanelCall> listCall;
    int nCount = 0;
    int nBusy = 0;
};
