#pragma once

#include "nodes/SProcessorAllNode.h"

/// The lists in examples/, and the one that the tests build. They depend on nothing but this source, so that
/// building them again gives the same bytes.
namespace ExampleLists {

SProcessorAllNode BuildStudio(); ///< what a large site looks like, with everything that can occur
SProcessorAllNode BuildLimits(); ///< 256 processors and 256 groups
SProcessorAllNode BuildSingle(); ///< one processor
SProcessorAllNode BuildEmpty();  ///< as a new user has it

} // namespace ExampleLists
