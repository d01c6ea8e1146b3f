#pragma once

#include "controlhost/IControlHost.h"
#include "interfaces/control/CorvidControlGlobal.h"

#include <memory>

class CControlLibrary;

/// This library's own host, for programs that are linked with it.
class CORVIDCONTROL_EXPORT CControlHost : public IControlHost
{
    Q_OBJECT

public:
    /// As CorvidControl_CreateHost.
    static std::unique_ptr<CControlHost> Start(const SControlOptions& options);

    /// Milliseconds since StartLife; 0 before it. Any thread.
    qint64 GetLifeTime() const;

    /// Makes something go wrong now, as a step of a scenario does with the same keys but "at"; other steps are refused. Returns
    /// what is wrong with it, empty when it was taken. Any thread.
    QString TakeFault(const QJsonObject& step);

    ~CControlHost() override;

    bool IsSteerable() const override;
    QString GetListError() const override;
    QString GetListTrouble() const override;
    QString SaveList() override;
    QString SaveListAside(QString& strReason) override;
    QString GetScenarioError() const override;
    QJsonArray GetInterfaceMarks() const override;
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

signals:
    void ScenarioFinished(); ///< the last step of the scenario was taken

private:
    explicit CControlHost(std::unique_ptr<CControlLibrary> pLibraryIn);
    std::unique_ptr<CControlLibrary> pLibrary;
};
