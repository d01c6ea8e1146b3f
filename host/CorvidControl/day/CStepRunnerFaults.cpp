// The steps that make something go wrong on purpose.

#include "CorvidControl/day/CStepRunner.h"
#include "CorvidControl/faults/CFaults.h"
#include "CorvidControl/faults/CarriedValues.h"
#include "CorvidControl/faults/ControlCalls.h"
#include "CorvidControl/list/CProcessorList.h"
#include "CorvidControl/messages/CMessageDispatcher.h"
#include "nodes/EnNodeType.h"

namespace {

constexpr double dCollisionSeconds = 2;

CCallFaults::Milliseconds ReadTime(const SScenarioStep& step, double dDefault = 0)
{
    return CCallFaults::Milliseconds(qRound64(step.GetNumber("for", dDefault) * 1000));
}

int ReadInt(const SScenarioStep& step, const char* szKey)
{
    return static_cast<int>(step.GetNumber(szKey, 1));
}

} // namespace

SStepResult CStepRunner::DelayCall(const SScenarioStep& step)
{
    faults.calls.Delay(step.GetText("call"), CCallFaults::Milliseconds(ReadInt(step, "ms")), ReadTime(step));
    return {};
}

SStepResult CStepRunner::HangCall(const SScenarioStep& step)
{
    faults.calls.Hang(step.GetText("call"), ReadTime(step));
    return {};
}

SStepResult CStepRunner::ThrowFromCall(const SScenarioStep& step)
{
    const EnThrown thrown = step.GetText("thrown") == QLatin1String("other") ? ThrownOther : ThrownError;
    faults.calls.Throw(step.GetText("call"), thrown, ReadInt(step, "count"));
    return {};
}

SStepResult CStepRunner::RefuseSelection(const SScenarioStep& step)
{
    faults.calls.RefuseSelection(ReadInt(step, "count"));
    return {};
}

SStepResult CStepRunner::SetImportCode(const SScenarioStep& step)
{
    faults.calls.SetImportCode(ReadInt(step, "code"));
    return {};
}

SStepResult CStepRunner::SetExportCode(const SScenarioStep& step)
{
    faults.calls.SetExportCode(ReadInt(step, "code"));
    return {};
}

SStepResult CStepRunner::RefuseCommand(const SScenarioStep& step)
{
    const std::optional<EnListCommand> command = ControlCalls::FindCommand(step.GetText("command"));
    Q_ASSERT(command);
    faults.calls.Refuse(*command, ReadInt(step, "count"));
    return {};
}

SStepResult CStepRunner::LoseMessages(const SScenarioStep& step)
{
    faults.messages.Lose(ReadInt(step, "count"));
    return {};
}

SStepResult CStepRunner::DoubleMessages(const SScenarioStep& step)
{
    faults.messages.Double(ReadInt(step, "count"));
    return {};
}

SStepResult CStepRunner::ReorderMessages(const SScenarioStep& step)
{
    faults.messages.Reorder(ReadInt(step, "count"));
    return {};
}

SStepResult CStepRunner::SendEmptyMessage(const SScenarioStep& step)
{
    dispatcher.Post(SenderPrcList, ReadInt(step, "message"));
    return {};
}

SStepResult CStepRunner::Flicker(const SScenarioStep& step)
{
    const QUuid id = Find(step, "node");
    const QString strValue = step.GetText("value");
    if (id.isNull()) {
        return BuildNotThere(step.GetText("node"));
    }
    if (processors.GetNodeType(id) == NodeGroup && !CarriedValues::IsOfGroup(strValue)) {
        return { QStringLiteral("a group has no \"%1\"").arg(strValue), {} };
    }
    faults.readings.Flicker(id, strValue, ReadInt(step, "count"));
    return {};
}

SStepResult CStepRunner::Collide(const SScenarioStep& step)
{
    const QUuid id = Find(step, "node");
    const QUuid idOther = Find(step, "with");
    if (id.isNull() || idOther.isNull()) {
        return BuildNotThere(step.GetText(id.isNull() ? "node" : "with"));
    }
    if (id == idOther || !AreInOnePane(id, idOther)) {
        return { QStringLiteral("these are not two nodes of one pane"), {} };
    }
    faults.readings.Collide(id, idOther, ReadTime(step, dCollisionSeconds));
    return {};
}

SStepResult CStepRunner::SetClockBack(const SScenarioStep& step)
{
    faults.clock.SetBack(std::chrono::seconds(ReadInt(step, "by")));
    return {};
}

bool CStepRunner::AreInOnePane(const QUuid& id, const QUuid& idOther) const
{
    const CNodeTree tree = processors.CopyTree(false);
    return tree.Contains(id) == tree.Contains(idOther);
}
