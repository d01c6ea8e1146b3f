#include "double/CControlDouble.h"

namespace {

/// Sets the eight pointers as soon as the library is loaded, and offers nothing beyond them.
struct SBareControl
{
    SBareControl()
    {
        control.Set([](SControlAnswers& answers) {
            answers.nodeDiscovered = Root({ Group("Stage", { Processor("alpha").Online() }) }, { Processor("loose") });
            answers.strProject = QStringLiteral("Aurora");
        });
    }

    CControlDouble control;
};

const SBareControl bareControl;

} // namespace
