#pragma once

#include "tree/commands/SDeletePlan.h"

/// Carries a deletion out. Knows no widget: it may outlive the panel. The control objects must outlive it.
class CDeleteJob
{
public:
    explicit CDeleteJob(const SDeletePlan& planIn);

    /// Runs the job on a thread of its own that nobody waits for.
    static void Start(const SDeletePlan& plan);

    /// Deletes the nodes in the order of their ids, hands the selection over, and ends the busy state that the
    /// caller has begun. Blocks as long as the devices take. A processor whose group went first is asked for
    /// again.
    void operator()() const;

private:
    void DeleteNodes() const;

    SDeletePlan plan;
};
