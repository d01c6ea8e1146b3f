#pragma once

#include "controlhost/IControlHost.h"
#include "journal/SControlPointers.h"

#include <memory>

class CJobs;

/// Loads a control library, as a host does that was built without it: its eight objects, and what it offers beyond
/// them. Its symbols are global, so that a panel that is loaded later finds them first. The library stays loaded
/// until the process ends. GUI thread.
class CControlLoader
{
public:
    /// strFile empty: the library of the installation. Null on failure; GetError then holds one line. A library that
    /// offers nothing beyond the contract gets a CBareControlHost with jobs, which must outlive it.
    std::unique_ptr<IControlHost> Load(const QString& strFile, const SControlOptions& options, const CJobs& jobs);

    QString GetError() const;

    /// The places of the eight pointers in the library; after Load has succeeded.
    const SControlPointers& GetPointers() const;

private:
    template <typename Object> void Find(class QLibrary& library, const char* szName, Object**& ppObject);
    template <typename Object> void Check(const QLibrary& library, const char* szName, Object* const* ppObject);
    void FindPointers(QLibrary& library);
    void CheckPointers(const QLibrary& library);

    SControlPointers pointers;
    QString strError;
};
