#include "double/CRuntimeControlDouble.h"

void CRuntimeControlDouble::PostMessage(qint32 nMessage)
{
    const CGuard guard = Command("PostMessage", QString::number(nMessage));
    if (Answer([](SControlAnswers& answers) { return answers.bFaithful; })) {
        state.hub.Raise(nMessage, strObject);
    }
}

bool CRuntimeControlDouble::IsSimulatorPane()
{
    const CGuard guard = Read("IsSimulatorPane");
    return Answer([&](SControlAnswers& answers) { return answers.bSimulatorPane; });
}

void CRuntimeControlDouble::SetSimulatorPane(bool bSimulator)
{
    const CGuard guard = Command("SetSimulatorPane", Text(bSimulator));
    Answer([&](SControlAnswers& answers) { answers.bSimulatorPane = answers.bFaithful ? bSimulator : answers.bSimulatorPane; });
}

bool CRuntimeControlDouble::SetSelectedNodes(const std::vector<QUuid>& vecId)
{
    const CGuard guard = Command("SetSelectedNodes", Text(vecId));
    return Answer([&](SControlAnswers& answers) {
        if (answers.bFaithful && answers.bSelectionAccepted) {
            answers.Selection(answers.bSimulatorPane) = vecId;
        }
        return answers.bSelectionAccepted;
    });
}

std::vector<QUuid> CRuntimeControlDouble::GetSelectedNodes(bool bSimulator)
{
    const CGuard guard = Read("GetSelectedNodes", Text(bSimulator));
    return Answer([&](SControlAnswers& answers) { return answers.Selection(bSimulator); });
}

std::vector<QUuid> CRuntimeControlDouble::GetSelectedProcessors()
{
    const CGuard guard = Read("GetSelectedProcessors");
    return Answer([&](SControlAnswers& answers) { return answers.SelectedProcessors(); });
}

bool CRuntimeControlDouble::IsDeleteBlocked(QUuid idNode)
{
    const CGuard guard = Read("IsDeleteBlocked", Text(idNode));
    return Answer([&](SControlAnswers& answers) { return answers.setDeleteBlocked.contains(idNode); });
}

bool CRuntimeControlDouble::IsNodeInUse(QUuid idNode)
{
    const CGuard guard = Read("IsNodeInUse", Text(idNode));
    return Answer([&](SControlAnswers& answers) { return answers.setInUse.contains(idNode); });
}

void CRuntimeControlDouble::SetBusy(bool bBusy)
{
    const CGuard guard = Command("SetBusy", Text(bBusy));
}
