#pragma once

#include <QMutex>
#include <QStringList>

/// Collects the warnings of the process while it lives, in place of who does it otherwise. One at a time; any thread may warn.
class CComplaints
{
public:
    CComplaints();
    ~CComplaints();
    Q_DISABLE_COPY(CComplaints)

    /// What has come since the last call.
    QStringList Take();

private:
    static void Handle(QtMsgType type, const QMessageLogContext& context, const QString& strText);

    static CComplaints* pListening;
    QtMessageHandler pBefore = nullptr;
    QMutex mutex; ///< guards the list
    QStringList listComplaint;
};
