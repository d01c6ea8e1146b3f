#pragma once

#include <QList>
#include <QString>

#include <vector>

/// What a step of a random sequence does.
enum EnVerb
{
    VerbPane,            ///< the other pane
    VerbExpand,          ///< folds or unfolds a group or a processor of the current pane
    VerbExpandRoot,      ///< the same with a null id
    VerbSelect,          ///< one to three nodes of the current pane
    VerbSelectRoot,      ///< the same with the root among them
    VerbAddGroup,        ///< to the current pane
    VerbRenameGroup,     ///< of the current pane
    VerbRenameProcessor, ///< of the current pane
    VerbMove,            ///< a processor into a group
    VerbMoveToRoot,      ///< a processor out of its group
    VerbDeleteGroup,     ///< with its processors
    VerbDissolve,        ///< a group without its processors
    VerbDeleteProcessor, ///< of the current pane
    VerbPost,            ///< a message
    VerbAddProcessor,    ///< at an address of its own
    VerbFile,            ///< exports the list, or imports what was exported
    VerbHost,            ///< the project or the mode, where the library has a host that can
    VerbStray,           ///< an operation with an id that is null, unknown or gone
    VerbCount,
};

/// One step. The two numbers choose node, name and so on by their remainders, so that a step fits every list and a
/// sequence stays one when steps are left out.
struct SStep
{
    EnVerb verb = VerbPane;
    int nFirst = 0;
    int nSecond = 0;
};

/// Sequences as text, for the command line of an attempt.
namespace Steps {

QString Write(const std::vector<SStep>& vecStep);

/// As much of a text as is a sequence.
std::vector<SStep> Read(const QString& strText);

} // namespace Steps
