#pragma once

#include "controlhost/IControlHost.h"
#include "interfaces/widgets/CObserver.h"

#include <mutex>

class CJobs;
class IConfigControl;
class IPrcBasicControl;
class IPrcListControl;
class IPrcRuntimeControl;
class IPreferenceControl;
class IProjectManageControl;
class IProtocalControl;
class IRuntimeControl;
struct SControlPointers;

/// Stands in for the host of a control library that has the eight objects and no more: there is nothing to play or to
/// switch. Project, modes and locks are read at the library's messages, on its thread, so that the GUI thread never
/// waits for it; what is busy the decorators of the journal know.
class CBareControlHost : public IControlHost, public CObserver
{
    Q_OBJECT

public:
    /// Made and ended while no decorators are in place: it speaks to the library's own objects. They and jobsIn must
    /// outlive it.
    CBareControlHost(const SControlPointers& pointers, const CJobs& jobsIn);
    ~CBareControlHost() override;

    bool IsSteerable() const override;
    QString GetListError() const override;
    QString GetListTrouble() const override;

    /// By ExportList, to GetListFilePath; a library that names no file has nothing to save.
    QString SaveList() override;
    QString SaveListAside(QString& strReason) override;
    QString GetScenarioError() const override;
    QJsonArray GetInterfaceMarks() const override;

    /// Posts the panel a first message, since nothing says that a library sends one to a new observer.
    void StartLife() override;
    void OpenProject(const QString& strName) override;
    void CloseProject() override;
    QString GetProjectName() const override;
    void SetChiefMode(bool bOn) override;
    bool IsChiefMode() const override;
    void SetListLocked(bool bLocked) override;
    bool IsListLocked() const override;
    void SetRefreshBlocked(bool bBlocked) override;
    bool IsRefreshBlocked() const override;
    void SetChief(const QUuid& idGroup, const QUuid& idChief) override;
    bool CanRestore() const override;
    SListSnapshot GetSnapshot() const override;
    SRefusal FindRestoreFault(const SListSnapshot& from, const SListSnapshot& to) const override;
    bool RestoreList(const SListSnapshot& from, const SListSnapshot& to) override;
    QList<SEarlierList> GetEarlierLists() const override;
    bool TakeEarlierList(const QString& strPath) override;
    SRefusedList PreviewRefusedList() const override;
    bool UseRefusedList() override;
    bool IsBusy() const override;
    QDateTime GetBusySince() const override;
    QStringList GetRunningJobs() const override;
    QVector<SRunningJob> GetJobProgress() const override;
    void SetUserEditing(bool bOn) override;
    void SetUserActing(bool bOn) override;
    void NoteUserInput() override;
    QString GetMessageName(int nMessage) const override;

    void Notify(int nMessage) override;

private:
    /// What the status bar shows.
    struct SState
    {
        QString strProject;
        bool bChiefMode = false;
        bool bListLocked = false;
        bool bRefreshBlocked = false;
    };

    void ReadState();
    SState GetState() const;

    IConfigControl& config;
    IPrcBasicControl& prcBasic;
    IPrcListControl& prcList;
    IPrcRuntimeControl& prcRuntime;
    IPreferenceControl& preference;
    IProjectManageControl& projectManage;
    IProtocalControl& protocal;
    IRuntimeControl& runtime;
    const CJobs& jobs;
    mutable std::mutex mutex; ///< guards the state; held for one copy, never during a call of the library
    SState state;
};
