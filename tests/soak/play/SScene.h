#pragma once

#include "CScreenReader.h"
#include "check/CExpectedSelection.h"
#include "check/Hits.h"
#include "panel/CSoakPanel.h"
#include "play/CFaultPlan.h"

#include <array>
#include <memory>

/// The panel with what is expected of it, and the step under way.
struct SScene
{
    CSoakPanel panel;
    std::array<CExpectedSelection, 2> arrExpected; ///< of the panes, Discovered first

    SPanelPicture before; ///< as the step began
    SIntent intent;       ///< of the step
    QUuid idAbove;        ///< which takes over when the intent takes nodes away
    CFaultPlan faults;
    QVector<SScenarioStep> vecFollow;       ///< what follows from the world's steps so far: one of it in each step
    NodeIds setFoldApart;                   ///< see SPanelPicture; until the rows are replaced
    std::unique_ptr<CScreenReader> pReader; ///< null while nobody listens

    /// Of the pane that the step began in.
    CExpectedSelection& Expected()
    {
        return arrExpected[before.bSimulator ? 1 : 0];
    }

    /// The user is about to give this command.
    void Mean(SIntent::EnKind kind)
    {
        intent = { kind, panel.GetSeen() };
        idAbove = Expected().GetNodeAboveRows();
    }

    /// The number of a row that is laid out; there is always the root.
    int PickRow(int nNumber) const
    {
        const QVector<int> vecRow = PanelPicture::GetLaidOut(before);
        return vecRow.at(nNumber % vecRow.size());
    }
};

/// What a step does.
struct SVerb
{
    const char* szName;
    int nWeight; ///< how often it comes up
    void (*fnDo)(SScene& scene, int nFirst, int nSecond);
};
