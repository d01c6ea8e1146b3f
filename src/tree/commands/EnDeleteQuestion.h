#pragma once

/// What the user is asked before nodes are deleted.
enum class EnDeleteQuestion
{
    None,                    ///< only empty groups go
    WithOrWithoutProcessors, ///< groups go, one at least with processors: what becomes of these?
    Processors,              ///< are the processors to go?
    GroupsAndProcessors,     ///< are the groups and the processors to go?
};
