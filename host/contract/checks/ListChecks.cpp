#include "contract/checks/ListChecks.h"

#include "contract/checks/Patience.h"
#include "contract/library/CSite.h"
#include "contract/library/CStory.h"
#include "contract/library/Trees.h"
#include "interfaces/control/IConfigControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/control/SProjectInfo.h"
#include "nodes/EnNodeType.h"

#include <QFileInfo>
#include <QHostAddress>

#include <algorithm>

namespace {

constexpr std::chrono::milliseconds timeAtOnce{ 1000 };
constexpr std::chrono::milliseconds timeStraggler{ 300 }; // how long something that comes late is waited for
constexpr quint32 nTrialAddress = 0xC0A801AB;             // 192.168.1.171
constexpr quint32 nMark = 0x7F0000FE;                     // stands in a list before the library gets it
constexpr int nOfferedType = 12;
constexpr qint32 nUnknown = 0; // no EnNodeType

QList<SProcessorNode> FindNew(const QList<SProcessorNode>& listBefore, const QList<SProcessorNode>& listAfter)
{
    QList<SProcessorNode> listNew;
    for (const SProcessorNode& node : listAfter) {
        const auto isSame = [&](const SProcessorNode& old) { return old.idNode == node.idNode; };
        if (std::none_of(listBefore.begin(), listBefore.end(), isSame)) {
            listNew.append(node);
        }
    }
    return listNew;
}

QList<SProcessorNode> ReadProcessors(CSite& site, int nPane)
{
    return Trees::GetProcessors(site.Read().root[nPane]);
}

QString FindNameFault(const std::string& strName)
{
    const QByteArray bytes = QByteArray::fromStdString(strName);
    if (bytes.contains('\0') || QString::fromUtf8(bytes).toUtf8() != bytes) {
        return QStringLiteral("the project's name is no UTF-8");
    }
    return {};
}

std::string ReadProject(CSite& site)
{
    SProjectInfo info;
    site.Call(QStringLiteral("GetProjectInfo"), [&] { site.GetLibrary().GetProjectManage().GetProjectInfo(info); });
    return info.strName;
}

} // namespace

// Whoever gets here has loaded it.
SOutcome ListChecks::TryObjects(CSite& site)
{
    QString strPath;
    site.Ask(QStringLiteral("GetListFilePath()"), [&] { strPath = site.GetLibrary().GetConfig().GetListFilePath(); });
    site.GetStory().Tell(QStringLiteral("path"), strPath);
    site.GetStory().Tell(QStringLiteral("host"), site.GetLibrary().GetHost() ? QStringLiteral("yes") : QStringLiteral("no"));
    return Outcome::Keep();
}

SOutcome ListChecks::TryReservedIPs(CSite& site)
{
    QList<uint> listIP{ nMark };
    site.Call(QStringLiteral("GetReservedIPs, with an address in the list"),
              [&] { site.GetLibrary().GetConfig().GetReservedIPs(listIP); });
    return Outcome::Judge(listIP.contains(nMark) ? QString() : QStringLiteral("the address that stood in the list is gone"));
}

SOutcome ListChecks::TryListFilePath(CSite& site)
{
    QString strPath;
    site.Call(QStringLiteral("GetListFilePath()"), [&] { strPath = site.GetLibrary().GetConfig().GetListFilePath(); });
    site.GetStory().Answer(strPath);
    const bool bGood = strPath.isEmpty() || QFileInfo(strPath).isAbsolute();
    return Outcome::Judge(bGood ? QString() : QStringLiteral("the path is not absolute"));
}

SOutcome ListChecks::TryRefresh(CSite& site)
{
    const SReading before = site.Read();
    if (before.bListLocked || before.bRefreshBlocked) {
        return Outcome::LeaveUntried(QStringLiteral("the library allows no refresh"));
    }
    site.RefreshProcessors();
    const QList<SProcessorNode> listFound = ReadProcessors(site, 0);
    const bool bLate = Patience::Await([&] { return !FindNew(listFound, ReadProcessors(site, 0)).isEmpty(); }, timeStraggler);
    if (!bLate && FindNew(Trees::GetProcessors(before.root[0]), listFound).isEmpty()) {
        return Outcome::LeaveUntried(QStringLiteral("the scan has found nothing new"));
    }
    return Outcome::Judge(bLate ? QStringLiteral("a processor came after the scan had returned") : QString());
}

SOutcome ListChecks::TrySimulators(CSite& site)
{
    const SReading before = site.Read();
    const int nMissing = nMaxSimulators - Trees::GetProcessors(before.root[1]).size();
    if (before.bListLocked || nMissing <= 0) {
        return Outcome::LeaveUntried(QStringLiteral("the list is locked, or has its simulators already"));
    }
    const auto time = Patience::Measure([&] { site.AddSimulators(nMissing); });
    if (time > timeAtOnce) {
        return Outcome::Break(QStringLiteral("the call took %1 ms").arg(time.count()));
    }
    const bool bThere = Patience::Await([&] { return ReadProcessors(site, 1).size() == nMaxSimulators; }, timeAtOnce);
    return Outcome::Judge(bThere ? QString()
                                 : QStringLiteral("the Simulator pane has %1 simulators").arg(ReadProcessors(site, 1).size()));
}

SOutcome ListChecks::TryAddProcessor(CSite& site)
{
    const SReading before = site.Read();
    if (before.bListLocked) {
        return Outcome::LeaveUntried(QStringLiteral("the list is locked"));
    }
    site.AddProcessor(nTrialAddress);
    const QList<SProcessorNode> listNew = FindNew(Trees::GetProcessors(before.root[0]), ReadProcessors(site, 0));
    if (listNew.isEmpty()) {
        return Outcome::LeaveUntried(QStringLiteral("nothing answers at %1").arg(QHostAddress(nTrialAddress).toString()));
    }
    const bool bRight = listNew.size() == 1 && listNew.first().nIP == nTrialAddress;
    return Outcome::Judge(bRight ? QString()
                                 : QStringLiteral("%1 processors were added, the first at %2")
                                       .arg(listNew.size())
                                       .arg(QHostAddress(listNew.first().nIP).toString()));
}

SOutcome ListChecks::TryTypeName(CSite& site)
{
    IPrcBasicControl& basic = site.GetLibrary().GetPrcBasic();
    QString strOffered;
    site.Call(QStringLiteral("GetTypeName(%1)").arg(nOfferedType), [&] { strOffered = basic.GetTypeName(nOfferedType); });
    return Outcome::Judge(strOffered.isEmpty() ? QStringLiteral("type %1 has no name").arg(nOfferedType) : QString());
}

SOutcome ListChecks::TrySimulatorCount(CSite& site)
{
    QString strFault;
    const auto count = [&] {
        const int nListed = ReadProcessors(site, 1).size();
        qint32 nCount = 0;
        site.Call(QStringLiteral("GetSimulatorCount()"), [&] { nCount = site.GetLibrary().GetPrcList().GetSimulatorCount(); });
        site.GetStory().Answer(QString::number(nCount));
        if (nCount != nListed) {
            strFault = QStringLiteral("the Simulator pane lists %1").arg(nListed);
        }
    };
    count();
    const QList<SProcessorNode> listSimulator = ReadProcessors(site, 1);
    if (strFault.isEmpty() && !listSimulator.isEmpty()) {
        site.DeleteProcessor(listSimulator.first().idNode);
        count();
    }
    return Outcome::Judge(strFault);
}

SOutcome ListChecks::TryGroupIndex(CSite& site)
{
    for (const bool bSimulator : { false, true }) {
        site.SetPane(bSimulator);
        for (int n = 0; n < 3; ++n) {
            qint32 nIndex = 0;
            site.Call(QStringLiteral("GetNextGroupIndex()"),
                      [&] { nIndex = site.GetLibrary().GetPrcList().GetNextGroupIndex(); });
            if (nIndex < 1) {
                return Outcome::Break(QStringLiteral("the number is %1").arg(nIndex));
            }
            site.AddGroup(QStringLiteral("Group %1").arg(nIndex));
        }
    }
    return Outcome::Keep();
}

SOutcome ListChecks::TryProcessorIPs(CSite& site)
{
    const QList<SProcessorNode> listProcessor = ReadProcessors(site, 0);
    if (listProcessor.isEmpty()) {
        return Outcome::LeaveUntried(QStringLiteral("the Discovered pane has no processor"));
    }
    std::vector<uint> vecIP;
    site.Call(QStringLiteral("GetProcessorIPs"), [&] { site.GetLibrary().GetPrcList().GetProcessorIPs(vecIP); });
    const auto has = [&](uint nIP) { return std::find(vecIP.begin(), vecIP.end(), nIP) != vecIP.end(); };
    for (const SProcessorNode& node : listProcessor) {
        if (!has(node.nIP)) {
            return Outcome::Break(QStringLiteral("%1 of \"%2\" is missing").arg(QHostAddress(node.nIP).toString(), node.strName));
        }
    }
    return Outcome::Keep();
}

SOutcome ListChecks::TryNodeType(CSite& site)
{
    const SReading reading = site.Read();
    QString strFault;
    const auto ask = [&](const QUuid& id, qint32 nRight, const QString& strName) {
        if (!strFault.isEmpty()) {
            return;
        }
        qint32 nType = 0;
        site.Call(QStringLiteral("GetNodeType(%1)").arg(strName),
                  [&] { nType = site.GetLibrary().GetPrcList().GetNodeType(id); });
        site.GetStory().Answer(QString::number(nType));
        if (nRight == nUnknown && nType == NodeGroup) {
            strFault = QStringLiteral("the answer is that of a group");
        } else if (nRight != nUnknown && nType != nRight) {
            strFault = QStringLiteral("the answer is not %1").arg(nRight);
        }
    };
    ask({}, NodeAll, QStringLiteral("the root"));
    ask(QUuid::createUuid(), nUnknown, QStringLiteral("an unknown id"));
    for (const SProcessorAllNode& root : reading.root) {
        for (const SProcessorGroupNode& group : root.listGroup) {
            ask(group.idNode, NodeGroup, Trees::Describe(reading, group.idNode));
        }
        const QList<SProcessorNode> listProcessor = Trees::GetProcessors(root);
        for (const SProcessorNode& node : listProcessor) {
            ask(node.idNode, NodeProcessor, Trees::Describe(reading, node.idNode));
        }
    }
    return Outcome::Judge(strFault);
}

SOutcome ListChecks::TryBusy(CSite& site)
{
    for (const bool bBusy : { true, true, false, true, false, false }) {
        const auto time = Patience::Measure([&] { site.SetBusy(bBusy); });
        if (time > timeAtOnce) {
            return Outcome::Break(QStringLiteral("the call took %1 ms").arg(time.count()));
        }
    }
    site.Read();
    return Outcome::Keep();
}

SOutcome ListChecks::TryProject(CSite& site)
{
    const QString strFault = FindNameFault(ReadProject(site));
    IControlHost* pHost = site.GetLibrary().GetHost();
    if (!strFault.isEmpty() || !pHost || !pHost->IsSteerable()) {
        return Outcome::Judge(strFault);
    }
    const QString strName = QString::fromUtf8("Pr\xc3\xbc"
                                              "fung \xe4\xb8\x80");
    site.Call(QStringLiteral("the host opens the project \"%1\"").arg(strName), [&] { pHost->OpenProject(strName); });
    if (ReadProject(site) != strName.toStdString()) {
        return Outcome::Break(QStringLiteral("the name of the open project is another"));
    }
    site.Call(QStringLiteral("the host closes the project"), [&] { pHost->CloseProject(); });
    return Outcome::Judge(ReadProject(site).empty() ? QString() : QStringLiteral("a project that is closed has a name"));
}
