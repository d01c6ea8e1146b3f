#pragma once

#include "controlhost/IControlHost.h"
#include "journal/SControlPointers.h"

#include <memory>

class CJobs;
class QLibrary;

/// Loads a control library, as a host does that was built without it: its eight objects, and what it offers beyond
/// them. Its symbols are global, so that a panel that is loaded later finds them first; it should export no others. The
/// library stays loaded until the process ends. GUI thread.
class CControlLoader
{
public:
    /// strFile empty: the library of the installation. Null on failure; GetError then holds one line. A library that
    /// offers nothing beyond the contract gets a CBareControlHost with jobs, which must outlive it.
    std::unique_ptr<IControlHost> Load(const QString& strFile, const SControlOptions& options, const CJobs& jobs);

    /// The eight places alone, in the library of the installation, which makes no objects. False on failure; GetError then
    /// holds one line.
    bool LoadPointers();

    QString GetError() const;

    /// The library's file, as far as it was found.
    QString GetFileName() const;

    /// The places of the eight pointers in the library; after Load has succeeded.
    const SControlPointers& GetPointers() const;

private:
    void* FindOwn(QLibrary& library, const char* szName) const;
    template <typename Object> void Find(QLibrary& library, const char* szName, Object**& ppObject);
    template <typename Object> void Check(const char* szName, Object* const* ppObject);
    void Open(QLibrary& library);
    void FindPointers(QLibrary& library);
    void CheckPointers();
    std::unique_ptr<IControlHost> CreateHost(QLibrary& library, const SControlOptions& options, const CJobs& jobs);
    void Fail(const QString& strReason);

    SControlPointers pointers;
    QString strFileName;
    QString strError;
};
