#pragma once

#include "controlhost/IControlHost.h"

#include <QMutex>

#include <functional>

/// A control library's host that does what a test says, and notes what was asked of its lists. One thread, but for the
/// operations on earlier and refused lists, which hold back for a test in fnBlock.
class CHostDouble : public IControlHost
{
public:
    // What it answers.
    bool bRestorable = true;
    bool bLocked = false;
    bool bBusy = false;
    QVector<SRunningJob> vecJob;
    QString strListError;
    QString strListTrouble;
    SListSnapshot snapshot;
    QList<SEarlierList> listEarlier;
    SRefusedList refused;
    EnRefusalReason reason = ReasonNone;                  ///< of everything that is asked of it from now on
    EnRefusalReason reasonLate = ReasonNone;              ///< of a restore that was not refused when it was asked about
    std::function<EnRefusalReason(quint64 nTo)> fnReason; ///< of a restore to that edition; instead of reason
    std::function<void()> fnBlock;                        ///< runs first in what blocks for the disk

    /// What was asked: "restore 2>1", "chief …", "earlier …", "use refused". Any thread.
    QStringList Calls() const;
    void ClearCalls();

    /// Emits BusyChanged.
    void ChangeBusy(bool bNow);

    bool IsSteerable() const override
    {
        return true;
    }
    QString GetListError() const override
    {
        return strListError;
    }
    QString GetListTrouble() const override
    {
        return strListTrouble;
    }
    QString SaveList() override
    {
        return {};
    }
    QString SaveListAside(QString& strReason) override;
    QString GetScenarioError() const override
    {
        return {};
    }
    QJsonArray GetInterfaceMarks() const override
    {
        return {};
    }
    void StartLife() override { }
    void OpenProject(const QString& strName) override
    {
        strProject = strName;
    }
    void CloseProject() override
    {
        strProject.clear();
    }
    QString GetProjectName() const override
    {
        return strProject;
    }
    void SetChiefMode(bool bOn) override
    {
        bChiefMode = bOn;
    }
    bool IsChiefMode() const override
    {
        return bChiefMode;
    }
    void SetListLocked(bool bLockedNow) override
    {
        bLocked = bLockedNow;
    }
    bool IsListLocked() const override
    {
        return bLocked;
    }
    void SetRefreshBlocked(bool bBlocked) override
    {
        bRefreshBlocked = bBlocked;
    }
    bool IsRefreshBlocked() const override
    {
        return bRefreshBlocked;
    }
    void SetChief(const QUuid& idGroup, const QUuid& idChief) override;
    bool CanRestore() const override
    {
        return bRestorable;
    }
    SListSnapshot GetSnapshot() const override
    {
        return snapshot;
    }
    SRefusal FindRestoreFault(const SListSnapshot& from, const SListSnapshot& to) const override;
    bool RestoreList(const SListSnapshot& from, const SListSnapshot& to) override;
    QList<SEarlierList> GetEarlierLists() const override;
    bool TakeEarlierList(const QString& strPath) override;
    SRefusedList PreviewRefusedList() const override;
    bool UseRefusedList() override;
    bool IsBusy() const override
    {
        return bBusy;
    }
    QDateTime GetBusySince() const override
    {
        return timeBusy;
    }
    QStringList GetRunningJobs() const override;
    QVector<SRunningJob> GetJobProgress() const override
    {
        return vecJob;
    }
    void SetUserEditing(bool) override { }
    void SetUserActing(bool) override { }
    void NoteUserInput() override { }
    QString GetMessageName(int) const override
    {
        return {};
    }

private:
    bool Carry(EnListCommand command, const QString& strName, const QString& strCall);
    void Note(const QString& strCall);

    mutable QMutex mutex; ///< guards listCall
    QStringList listCall;
    QString strProject;
    QDateTime timeBusy;
    bool bChiefMode = false;
    bool bRefreshBlocked = false;
};
