#pragma once

class QString;
struct SUndoStep;

/// What a step is called.
namespace StepName {

/// In the present language, without an end mark: "Delete 3 processors".
QString Get(const SUndoStep& step);

} // namespace StepName
