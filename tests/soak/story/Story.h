#pragma once

#include <QString>

#include <vector>

/// One step of a story. The numbers choose row, entry, node and so on by their remainders, so that a step fits whatever is there
/// and a story stays one when steps are left out.
struct SStoryStep
{
    QString strVerb;
    int nFirst = 0;
    int nSecond = 0;
};

using StorySteps = std::vector<SStoryStep>;

/// Stories as text, for the command line and for tables: "click.0.3 delete.0.0".
namespace Story {

QString Write(const SStoryStep& step);
QString Write(const StorySteps& vecStep); ///< as above

/// False, with what was read so far, when the text is no story. Verbs are not checked here.
bool Read(const QString& strText, StorySteps& vecStep);

} // namespace Story
