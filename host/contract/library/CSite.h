#pragma once

#include "contract/attempt/SAttempt.h"
#include "contract/library/CLibrary.h"
#include "contract/library/SReading.h"

#include <functional>

class CStory;

/// What an attempt works on: the library on trial with a list that has something of everything, and each call to it
/// in the story. All operations on the thread that made it.
class CSite
{
public:
    /// All three must outlive it.
    CSite(CLibrary& libraryIn, CStory& storyIn, const SAttempt& attemptIn)
        : library(libraryIn), story(storyIn), attempt(attemptIn)
    { }

    const CLibrary& GetLibrary() const
    {
        return library;
    }
    CStory& GetStory() const
    {
        return story;
    }
    const SAttempt& GetAttempt() const
    {
        return attempt;
    }
    QString GetPath(const QString& strFile) const; ///< of a file in the attempt's folder

    /// Begins the life of a library that has a host, then makes processors, groups and simulators as far as the library
    /// lets it. Ends with the Discovered pane.
    void PrepareList();

    /// Reads everything. What was read last gives the nodes their names in the story.
    SReading Read();

    void SetPane(bool bSimulator);
    void SetExpanded(const QUuid& id, bool bExpanded);
    bool Select(const std::vector<QUuid>& vecId);
    QUuid AddGroup(const QString& strName); ///< with a new id, which it returns
    void RenameGroup(const QUuid& id, const QString& strName);
    void RenameProcessor(const QUuid& id, const QString& strName);
    void Move(const QUuid& id, const QUuid& idGroup);
    void DeleteGroup(const QUuid& id, bool bWithProcessors);
    void DeleteProcessor(const QUuid& id);
    void AddProcessor(quint32 nIP);
    void AddSimulators(int nCount);
    void RefreshProcessors();
    void SetBusy(bool bBusy);
    void Post(int nMessage);
    qint32 Export(const QString& strPath);
    qint32 Import(const QString& strPath);

    /// Ends the library's host: no call may follow.
    void End();

    /// Any other call: into the story, then made.
    void Call(const QString& strCall, const std::function<void()>& call);

    /// The same for what belongs to the story only if it never returns.
    void Ask(const QString& strCall, const std::function<void()>& call);

private:
    void PrepareProcessors();
    void PrepareGroups();
    void PrepareSimulators();
    QString Describe(const QUuid& id) const;

    CLibrary& library;
    CStory& story;
    const SAttempt& attempt;
    SReading last;
    bool bPreparing = false;
};
