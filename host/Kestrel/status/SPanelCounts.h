#pragma once

/// What the panel shows in its current pane. Neither the root nor information rows count.
struct SPanelCounts
{
    int nGroupsSelected = 0;
    int nProcessorsSelected = 0;
    int nHidden = 0;         ///< selected groups and processors that the search hides
    bool bSearching = false; ///< a text to search for is there

    // Counted while there is such a text.
    int nFound = 0; ///< processors that the search leaves
    int nProcessors = 0;
    int nGroupsFound = 0; ///< groups that it leaves, but not for a processor in them
};
