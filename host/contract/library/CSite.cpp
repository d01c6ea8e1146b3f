#include "contract/library/CSite.h"

#include "contract/library/CStory.h"
#include "contract/library/Trees.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "interfaces/control/SProjectInfo.h"

#include <QHostAddress>

namespace {

constexpr quint32 nFirstAddress = 0xC0A80165; // 192.168.1.101
constexpr int nProcessors = 4;
constexpr int nGroups = 2;
constexpr int nType = 12;

QString YesNo(bool bYes)
{
    return bYes ? QStringLiteral("true") : QStringLiteral("false");
}

QString Quote(const QString& strText)
{
    return QStringLiteral("\"%1\"").arg(strText);
}

} // namespace

QString CSite::GetPath(const QString& strFile) const
{
    return attempt.strFolder + QLatin1Char('/') + strFile;
}

void CSite::PrepareList()
{
    bPreparing = true;
    if (library.GetHost()) {
        Ask(QStringLiteral("the host starts the devices' life"), [this] { library.GetHost()->StartLife(); });
    }
    SetPane(false);
    if (!Read().bListLocked) {
        PrepareProcessors();
        PrepareGroups();
        PrepareSimulators();
    }
    bPreparing = false;
    Read();
}

// A scan first: it harms nobody. Addresses are tried only as long as something answers there.
void CSite::PrepareProcessors()
{
    if (Trees::GetProcessors(Read().root[0]).size() < nProcessors) {
        RefreshProcessors();
    }
    int nCount = Trees::GetProcessors(Read().root[0]).size();
    for (quint32 n = 0; nCount < nProcessors; ++n) {
        AddProcessor(nFirstAddress + n);
        const int nNow = Trees::GetProcessors(Read().root[0]).size();
        if (nNow == nCount) {
            return;
        }
        nCount = nNow;
    }
}

void CSite::PrepareGroups()
{
    for (int n = Read().root[0].listGroup.size(); n < nGroups; ++n) {
        AddGroup(QStringLiteral("Kit %1").arg(n + 1));
    }
    const SReading reading = Read();
    for (int n = 0; n < 2 && n < reading.root[0].listProcessor.size() && !reading.root[0].listGroup.isEmpty(); ++n) {
        Move(reading.root[0].listProcessor[n].idNode, reading.root[0].listGroup.first().idNode);
    }
}

void CSite::PrepareSimulators()
{
    SetPane(true);
    const int nMissing = nMaxSimulators - Trees::GetProcessors(Read().root[1]).size();
    if (nMissing > 0) {
        AddSimulators(nMissing);
    }
    if (Read().root[1].listGroup.isEmpty()) {
        AddGroup(QStringLiteral("Kit simulators"));
    }
    SetPane(false);
}

SReading CSite::Read()
{
    last = {};
    Ask(QStringLiteral("GetDiscoveredTree"), [this] { library.GetPrcList().GetDiscoveredTree(last.root[0]); });
    Ask(QStringLiteral("GetSimulatorTree"), [this] { library.GetPrcList().GetSimulatorTree(last.root[1]); });
    Ask(QStringLiteral("GetSelectedNodes of both panes"), [this] {
        last.vecSelected[0] = library.GetRuntime().GetSelectedNodes(false);
        last.vecSelected[1] = library.GetRuntime().GetSelectedNodes(true);
    });
    Ask(QStringLiteral("IsListLocked and IsRefreshBlocked"), [this] {
        last.bListLocked = library.GetPrcBasic().IsListLocked();
        last.bRefreshBlocked = library.GetPrcBasic().IsRefreshBlocked();
    });
    Ask(QStringLiteral("GetProjectInfo"), [this] {
        SProjectInfo info;
        library.GetProjectManage().GetProjectInfo(info);
        last.strProject = QString::fromStdString(info.strName);
    });
    Ask(QStringLiteral("IsChiefMode"), [this] { last.bChiefMode = library.GetPreference().IsChiefMode(); });
    Ask(QStringLiteral("IsSimulatorPane"), [this] { last.bSimulator = library.GetRuntime().IsSimulatorPane(); });
    return last;
}

void CSite::SetPane(bool bSimulator)
{
    Call(QStringLiteral("SetSimulatorPane(%1)").arg(YesNo(bSimulator)),
         [&] { library.GetRuntime().SetSimulatorPane(bSimulator); });
}

void CSite::SetExpanded(const QUuid& id, bool bExpanded)
{
    Call(QStringLiteral("SetExpanded(%1, %2)").arg(Describe(id), YesNo(bExpanded)),
         [&] { library.GetPrcList().SetExpanded(id, bExpanded); });
}

bool CSite::Select(const std::vector<QUuid>& vecId)
{
    QStringList listName;
    for (const QUuid& id : vecId) {
        listName.append(Describe(id));
    }
    bool bTaken = false;
    Call(QStringLiteral("SetSelectedNodes({ %1 })").arg(listName.join(QStringLiteral(", "))),
         [&] { bTaken = library.GetRuntime().SetSelectedNodes(vecId); });
    story.Answer(YesNo(bTaken));
    return bTaken;
}

QUuid CSite::AddGroup(const QString& strName)
{
    SProcessorGroupNode group;
    group.strName = strName;
    group.idNode = QUuid::createUuid();
    Call(QStringLiteral("AddGroup(%1, true)").arg(Quote(strName)), [&] { library.GetPrcList().AddGroup(group, true); });
    return group.idNode;
}

void CSite::RenameGroup(const QUuid& id, const QString& strName)
{
    Call(QStringLiteral("RenameGroup(%1, %2)").arg(Describe(id), Quote(strName)),
         [&] { library.GetPrcList().RenameGroup(id, strName); });
}

void CSite::RenameProcessor(const QUuid& id, const QString& strName)
{
    Call(QStringLiteral("RenameProcessor(%1, %2)").arg(Describe(id), Quote(strName)),
         [&] { library.GetPrcBasic().RenameProcessor(id, strName); });
}

void CSite::Move(const QUuid& id, const QUuid& idGroup)
{
    Call(QStringLiteral("MoveProcessor(%1, %2)").arg(Describe(id), Describe(idGroup)),
         [&] { library.GetPrcList().MoveProcessor(id, idGroup); });
}

void CSite::DeleteGroup(const QUuid& id, bool bWithProcessors)
{
    Call(QStringLiteral("DeleteGroup(%1, %2)").arg(Describe(id), YesNo(bWithProcessors)),
         [&] { library.GetPrcList().DeleteGroup(id, bWithProcessors); });
}

void CSite::DeleteProcessor(const QUuid& id)
{
    Call(QStringLiteral("DeleteProcessor(%1, false)").arg(Describe(id)),
         [&] { library.GetPrcList().DeleteProcessor(id, false); });
}

void CSite::AddProcessor(quint32 nIP)
{
    Call(QStringLiteral("AddProcessor(%1)").arg(QHostAddress(nIP).toString()), [&] { library.GetPrcBasic().AddProcessor(nIP); });
}

void CSite::AddSimulators(int nCount)
{
    SSimulatorRequest request;
    request.nType = nType;
    request.nCount = nCount;
    Call(QStringLiteral("AddSimulators({ %1, %2, %3 })").arg(request.nType).arg(nCount).arg(request.nOutput),
         [&] { library.GetPrcBasic().AddSimulators(request); });
}

void CSite::RefreshProcessors()
{
    Call(QStringLiteral("RefreshProcessors()"), [&] { library.GetPrcBasic().RefreshProcessors(); });
}

void CSite::SetBusy(bool bBusy)
{
    Call(QStringLiteral("SetBusy(%1)").arg(YesNo(bBusy)), [&] { library.GetRuntime().SetBusy(bBusy); });
}

void CSite::Post(int nMessage)
{
    Call(QStringLiteral("PostMessage(%1)").arg(nMessage), [&] { library.GetRuntime().PostMessage(nMessage); });
}

qint32 CSite::Export(const QString& strPath)
{
    qint32 nResult = 0;
    Call(QStringLiteral("ExportList(%1, 0)").arg(Quote(strPath)), [&] { nResult = library.GetPrcList().ExportList(strPath, 0); });
    story.Answer(QString::number(nResult));
    return nResult;
}

qint32 CSite::Import(const QString& strPath)
{
    qint32 nResult = 0;
    Call(QStringLiteral("ImportList(%1)").arg(Quote(strPath)), [&] { nResult = library.GetPrcList().ImportList(strPath); });
    story.Answer(QString::number(nResult));
    return nResult;
}

void CSite::End()
{
    Call(QStringLiteral("the library ends"), [&] { library.End(); });
}

void CSite::Call(const QString& strCall, const std::function<void()>& call)
{
    if (bPreparing) {
        story.Prepare(strCall);
    } else {
        story.Call(strCall);
    }
    call();
    story.Return();
}

void CSite::Ask(const QString& strCall, const std::function<void()>& call)
{
    story.Read(strCall);
    call();
    story.Return();
}

QString CSite::Describe(const QUuid& id) const
{
    return Trees::Describe(last, id);
}
