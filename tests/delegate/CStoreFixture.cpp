#include "CStoreFixture.h"

#include "data/CProcessorTreeData.h"

CStoreFixture::CStoreFixture()
{
    Refresh();
}

void CStoreFixture::Show(const SProcessorAllNode& node)
{
    control.Set([&](SControlAnswers& answers) { answers.nodeDiscovered = node; });
    Refresh();
}

void CStoreFixture::ShowSimulators(const SProcessorAllNode& node)
{
    control.Set([&](SControlAnswers& answers) { answers.nodeSimulator = node; });
    Refresh();
}

void CStoreFixture::SetSimulatorPane(bool bSimulator)
{
    control.Set([&](SControlAnswers& answers) { answers.bSimulatorPane = bSimulator; });
    Refresh();
}

void CStoreFixture::SetChiefMode(bool bChiefMode)
{
    control.Set([&](SControlAnswers& answers) { answers.bChiefMode = bChiefMode; });
    Refresh();
}

CControlDouble& CStoreFixture::Control()
{
    return control;
}

void CStoreFixture::Refresh()
{
    g_pProcessorTreeData->Refresh();
}
