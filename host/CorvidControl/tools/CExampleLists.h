#pragma once

#include "nodes/SProcessorAllNode.h"

/// The lists in examples/. They depend on nothing but this source, so that building them again gives the
/// same bytes.
class CExampleLists
{
public:
    static SProcessorAllNode BuildStudio(); ///< what a large site looks like, with everything that can occur
    static SProcessorAllNode BuildLimits(); ///< 256 processors and 256 groups
    static SProcessorAllNode BuildSingle(); ///< one processor
    static SProcessorAllNode BuildEmpty();

    CExampleLists() = delete;
};
