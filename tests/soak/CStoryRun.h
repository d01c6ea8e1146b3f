#pragma once

#include "play/SScene.h"
#include "story/Story.h"

#include <QString>

#include <functional>

/// A story, played in a window of its own.
class CStoryRun
{
public:
    using FnTell = std::function<void(const QString&)>;

    /// fnTellIn hears what each step did; null for nobody.
    explicit CStoryRun(const FnTell& fnTellIn = {});

    /// Plays the steps and checks after each. What is wrong first, with its step; empty when nothing is.
    QString Play(const StorySteps& vecStep);

    /// How many steps were taken.
    int GetCount() const
    {
        return nSteps;
    }

    /// How often a kept exception was met, by its reason.
    const QMap<QString, int>& GetKept() const
    {
        return mapKept;
    }

private:
    QString Begin();
    QString PlayStep(const SStoryStep& step);
    QString EndStep(const SPanelPicture& after);
    QString EndFault();
    void NoteLibrary(const QList<SPanelCall>& listCall);
    QString CheckHits(const QList<SPanelCall>& listCall);
    void Tell(const SStoryStep& step, const SPanelPicture& after, const QList<SPanelCall>& listCall) const;

    FnTell fnTell;
    SScene scene;
    int nSteps = 0;
    QMap<QString, int> mapKept;
};
