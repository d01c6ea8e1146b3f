#pragma once

class CObserver;
struct SProjectInfo;

/// The project that is open in the host. All operations may be called on any thread. [C-library-4 required]
///
/// The order of the virtual operations is part of the contract.
///
/// @since 0.1
class IProjectManageControl
{
public:
    /// As IPrcBasicControl::Attach.
    virtual void Attach(CObserver* pObserver) = 0;

    /// As IPrcBasicControl::Detach.
    virtual void Detach(CObserver* pObserver) = 0;

    /// Overwrites in info, default-built by the caller, what is known of the open project. The name, UTF-8, stays empty
    /// when none is open. [C-project-1 required]
    virtual void GetProjectInfo(SProjectInfo& info) = 0;

protected:
    ~IProjectManageControl() = default;
};
