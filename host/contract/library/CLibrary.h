#pragma once

#include "controlhost/IControlHost.h"

#include <memory>

class IConfigControl;
class IPrcBasicControl;
class IPrcListControl;
class IPrcRuntimeControl;
class IPreferenceControl;
class IProjectManageControl;
class IProtocalControl;
class IRuntimeControl;

/// The library on trial, loaded as a host does that was built without it: with global symbols, found by its eight
/// objects, started by CorvidControl_CreateHost where it offers that. It stays loaded until the process ends.
class CLibrary
{
public:
    /// False on failure; GetError then holds one line. Once.
    bool Load(const QString& strFile, const SControlOptions& options);

    QString GetError() const;

    /// Null for a library that has the eight objects and no more.
    IControlHost* GetHost() const;

    /// Ends the host, if there is one: after it no call may come.
    void End();

    IConfigControl& GetConfig() const;
    IPrcBasicControl& GetPrcBasic() const;
    IPrcListControl& GetPrcList() const;
    IPrcRuntimeControl& GetPrcRuntime() const;
    IPreferenceControl& GetPreference() const;
    IProjectManageControl& GetProjectManage() const;
    IProtocalControl& GetProtocal() const;
    IRuntimeControl& GetRuntime() const;

private:
    void* FindOwn(const char* szName) const;
    void FindObjects();
    bool CreateHost(const SControlOptions& options);
    void CheckObjects();
    void Fail(const QString& strReason);
    template <typename Object> Object& Get(int nObject) const;

    static constexpr int nObjects = 8;

    void* pHandle = nullptr;
    void* listPlace[nObjects] = {}; ///< of the eight pointers, in the order of the names
    std::unique_ptr<IControlHost> pHost;
    QString strError;
};
