#include "CorvidControl/day/CDayGenerator.h"

#include <algorithm>
#include <iterator>

namespace {

template <typename Test> QList<SProcessorNode> Filter(const QList<SProcessorNode>& list, Test test)
{
    QList<SProcessorNode> listKept;
    std::copy_if(list.cbegin(), list.cend(), std::back_inserter(listKept), test);
    return listKept;
}

} // namespace

SScenarioStep CDayGenerator::GetNext(const CNodeTree& tree)
{
    const QList<SProcessorNode> listAll = tree.GetProcessors();
    const QList<SProcessorNode> listOnline = Filter(listAll, [](const SProcessorNode& p) { return p.bOnline; });
    const QList<SProcessorNode> listOffline = Filter(listAll, [](const SProcessorNode& p) { return !p.bOnline; });
    const quint32 nKind = Draw(100);
    const bool bManyOffline = listOffline.size() * 8 > listAll.size();
    SScenarioStep step;
    if (!listOffline.isEmpty() && (bManyOffline || listOnline.isEmpty() || nKind < 20)) {
        step = DrawReturn(listOffline);
    } else if (listOnline.isEmpty()) {
        step.strDo.clear();
    } else if (nKind < 35) {
        step = DrawFailOver(listOnline);
    } else if (nKind < 50) {
        step = DrawProject(listOnline);
    } else if (nKind < 60) {
        step = BuildStep(QStringLiteral("offline"), listOnline.at(static_cast<int>(Draw(listOnline.size()))));
    } else {
        step = DrawBoot(listOnline);
    }
    step.nAt = qRound64((1500 + Draw(3500)) / dPace);
    return step;
}

quint32 CDayGenerator::Draw(quint32 nMost)
{
    return static_cast<quint32>(random() % nMost);
}

SScenarioStep CDayGenerator::BuildStep(const QString& strDo, const SProcessorNode& processor) const
{
    SScenarioStep step;
    step.strDo = strDo;
    step.keys.insert(QStringLiteral("node"), processor.idNode.toString());
    return step;
}

SScenarioStep CDayGenerator::DrawReturn(const QList<SProcessorNode>& listOffline)
{
    return BuildStep(QStringLiteral("online"), listOffline.at(static_cast<int>(Draw(listOffline.size()))));
}

SScenarioStep CDayGenerator::DrawFailOver(const QList<SProcessorNode>& listOnline)
{
    const QList<SProcessorNode> listPrimary = Filter(listOnline, [&](const SProcessorNode& p) {
        return p.nFailover == 1 && std::any_of(listOnline.cbegin(), listOnline.cend(), [&](const SProcessorNode& other) {
                   return other.nFailover == 2 && other.strProject == p.strProject;
               });
    });
    if (listPrimary.isEmpty()) {
        return DrawBoot(listOnline);
    }
    return BuildStep(QStringLiteral("fail-over"), listPrimary.at(static_cast<int>(Draw(listPrimary.size()))));
}

SScenarioStep CDayGenerator::DrawProject(const QList<SProcessorNode>& listOnline)
{
    const SProcessorNode& source = listOnline.at(static_cast<int>(Draw(listOnline.size())));
    SScenarioStep step = BuildStep(QStringLiteral("project"), listOnline.at(static_cast<int>(Draw(listOnline.size()))));
    step.keys.insert(QStringLiteral("project"), source.strProject);
    return step;
}

SScenarioStep CDayGenerator::DrawBoot(const QList<SProcessorNode>& listOnline)
{
    SScenarioStep step = BuildStep(QStringLiteral("boot"), listOnline.at(static_cast<int>(Draw(listOnline.size()))));
    step.keys.insert(QStringLiteral("for"), (2.0 + Draw(6)) / dPace);
    return step;
}
