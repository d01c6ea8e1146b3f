#include "SRefreshRig.h"

#include "CFilledStore.h"

SRefreshRig::SRefreshRig()
{
    control.Set([](SControlAnswers& answers) {
        answers.nodeDiscovered = DiscoveredTree();
        answers.nodeSimulator = SimulatorTree();
        answers.vecDiscoveredSelection = { ProcessorId("a"), ProcessorId("d") };
        answers.vecSimulatorSelection = { GroupId("Lab") };
        answers.strProject = "Opera";
    });
    Refresh();
}

QStringList SRefreshRig::Refresh()
{
    log.Take();
    store.Refresh();
    return log.Take();
}

QStringList SRefreshRig::RefreshAfter(const AnswersChange& fnChange)
{
    control.Set(fnChange);
    return Refresh();
}
