#include "double/CPrcListControlDouble.h"

qint32 CPrcListControlDouble::ExportList(QString strPath, qint32 nOption)
{
    const CGuard guard = Command("ExportList", Text(strPath) + QStringLiteral(", %1").arg(nOption));
    return Answer([&](SControlAnswers& answers) { return answers.nExportResult; });
}

qint32 CPrcListControlDouble::ImportList(QString strPath)
{
    const CGuard guard = Command("ImportList", Text(strPath));
    return Answer([&](SControlAnswers& answers) { return answers.nImportResult; });
}

void CPrcListControlDouble::GetDiscoveredTree(SProcessorAllNode& node)
{
    const CGuard guard = Read("GetDiscoveredTree");
    Answer([&](SControlAnswers& answers) { node = answers.nodeDiscovered; });
}

void CPrcListControlDouble::GetSimulatorTree(SProcessorAllNode& node)
{
    const CGuard guard = Read("GetSimulatorTree");
    Answer([&](SControlAnswers& answers) { node = answers.nodeSimulator; });
}

void CPrcListControlDouble::AddGroup(SProcessorGroupNode node, bool bEmpty)
{
    // The panel makes the id of a new group itself; by its name the next calls read well.
    CNameRegistry::Instance().Name(node.idNode, node.strName);
    const CGuard guard = Command("AddGroup", Text(node.strName) + QStringLiteral(", ") + Text(bEmpty));
    Answer([&](SControlAnswers& answers) { answers.listGroupAdded.append(node); });
}

void CPrcListControlDouble::DeleteGroup(QUuid idGroup, bool bWithProcessors)
{
    const CGuard guard = Command("DeleteGroup", Text(idGroup) + QStringLiteral(", ") + Text(bWithProcessors));
}

void CPrcListControlDouble::DeleteProcessor(QUuid idProcessor, bool bOption)
{
    const CGuard guard = Command("DeleteProcessor", Text(idProcessor) + QStringLiteral(", ") + Text(bOption));
}

void CPrcListControlDouble::MoveProcessor(QUuid idProcessor, QUuid idGroup)
{
    const CGuard guard = Command("MoveProcessor", Text(idProcessor) + QStringLiteral(", ") + Text(idGroup));
}

void CPrcListControlDouble::RenameGroup(QUuid idGroup, QString strName)
{
    const CGuard guard = Command("RenameGroup", Text(idGroup) + QStringLiteral(", ") + Text(strName));
}

bool CPrcListControlDouble::IsNodeActive(QUuid idNode)
{
    const CGuard guard = Read("IsNodeActive", Text(idNode));
    return Answer([&](SControlAnswers& answers) { return answers.setActive.contains(idNode); });
}

void CPrcListControlDouble::SetExpanded(QUuid idNode, bool bExpanded)
{
    const CGuard guard = Command("SetExpanded", Text(idNode) + QStringLiteral(", ") + Text(bExpanded));
    Answer([&](SControlAnswers& answers) {
        if (answers.bFaithful) {
            answers.SetExpanded(idNode, bExpanded);
        }
    });
}

qint32 CPrcListControlDouble::GetSimulatorCount()
{
    const CGuard guard = Read("GetSimulatorCount");
    return Answer([&](SControlAnswers& answers) { return answers.SimulatorCount(); });
}

qint32 CPrcListControlDouble::GetNextGroupIndex()
{
    const CGuard guard = Read("GetNextGroupIndex");
    return Answer([&](SControlAnswers& answers) { return answers.nNextGroupIndex; });
}

void CPrcListControlDouble::GetProcessorIPs(std::vector<uint>& vecIP)
{
    const CGuard guard = Read("GetProcessorIPs");
    const std::vector<uint> vecAnswer = Answer([](SControlAnswers& answers) { return answers.ListIPs(); });
    vecIP.insert(vecIP.end(), vecAnswer.cbegin(), vecAnswer.cend());
}

qint32 CPrcListControlDouble::GetNodeType(QUuid idNode)
{
    const CGuard guard = Read("GetNodeType", Text(idNode));
    return Answer([&](SControlAnswers& answers) { return answers.NodeType(idNode); });
}
