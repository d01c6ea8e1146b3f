#pragma once

#include "controlhost/IControlHost.h"
#include "interfaces/widgets/CObserver.h"
#include "journal/SControlPointers.h"

class CJobs;

/// Stands in for the host of a control library that has the eight objects and no more: there is nothing to play or to
/// switch, and the panel alone saves the list, when it ends. What is busy the decorators of the journal know.
class CBareControlHost : public IControlHost, public CObserver
{
    Q_OBJECT

public:
    /// Made and ended while no decorators are in place: it listens to the library's own objects, for changes of project,
    /// modes and locks. pointersIn names the library's eight objects; they and jobsIn must outlive it.
    CBareControlHost(const SControlPointers& pointersIn, const CJobs& jobsIn);
    ~CBareControlHost() override;

    bool IsSteerable() const override;
    QString GetListError() const override;
    QString GetListTrouble() const override;
    QString SaveList() override;
    QString SaveListAside(QString& strReason) override;
    QString GetScenarioError() const override;
    QJsonArray GetInterfaceMarks() const override;
    void StartLife() override;
    qint64 GetLifeTime() const override;
    void OpenProject(const QString& strName) override;
    void CloseProject() override;
    QString GetProjectName() const override;
    void SetChiefMode(bool bOn) override;
    bool IsChiefMode() const override;
    void SetListLocked(bool bLocked) override;
    bool IsListLocked() const override;
    void SetRefreshBlocked(bool bBlocked) override;
    bool IsRefreshBlocked() const override;
    bool IsBusy() const override;
    QDateTime GetBusySince() const override;
    QStringList GetRunningJobs() const override;
    void SetUserEditing(bool bOn) override;
    void SetUserActing(bool bOn) override;
    void NoteUserInput() override;
    QString GetMessageName(int nMessage) const override;

    void Notify(int nMessage) override;

private:
    const SControlPointers pointers;
    const CJobs& jobs;
};
