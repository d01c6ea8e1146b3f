#include "CFilledStore.h"

#include "double/CControlDouble.h"

SProcessorAllNode DiscoveredTree()
{
    return Root({ Group("Stage", { Processor("a").Ip("10.0.0.1"), Processor("b") }).Expanded(false), Group("Empty"),
                  Group("Hall", { Processor("c").Expanded(false) }) },
                { Processor("d"), Processor("e") });
}

SProcessorAllNode SimulatorTree()
{
    return Root({ Group("Lab", { Processor("s"), Processor("t"), Processor("u") }) }, { Processor("v") });
}

bool IsSame(const SProcessorAllNode& a, const SProcessorAllNode& b)
{
    return a.bExpanded == b.bExpanded && a.strName == b.strName && a.nNodeType == b.nNodeType && a.listGroup == b.listGroup
        && a.listProcessor == b.listProcessor;
}

SProcessorAllNode CurrentTree(const CProcessorTreeData& store)
{
    SProcessorAllNode node;
    store.GetCurrentTree(node);
    return node;
}

SProcessorAllNode TreeOfPane(const CProcessorTreeData& store, bool bSimulator)
{
    SProcessorAllNode node;
    bSimulator ? store.GetSimulatorTree(node) : store.GetDiscoveredTree(node);
    return node;
}

void Fill(SControlAnswers& answers)
{
    answers.nodeDiscovered = DiscoveredTree();
    answers.nodeSimulator = SimulatorTree();
    answers.vecDiscoveredSelection = { ProcessorId("a"), ProcessorId("d") };
    answers.vecSimulatorSelection = { GroupId("Lab") };
}

CFilledStore::CFilledStore()
{
    CControlDouble control;
    control.Set(&Fill);
    Refresh();
}
