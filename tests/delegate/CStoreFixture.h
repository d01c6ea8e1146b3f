#pragma once

#include "double/CControlDouble.h"

/// The store with a control library behind it. What is set here is in the store at once.
class CStoreFixture
{
public:
    CStoreFixture();

    void Show(const SProcessorAllNode& node);           ///< of the Discovered pane
    void ShowSimulators(const SProcessorAllNode& node); ///< of the Simulator pane
    void SetSimulatorPane(bool bSimulator);
    void SetChiefMode(bool bChiefMode);

    CControlDouble& Control();

private:
    void Refresh();

    CControlDouble control;
};
