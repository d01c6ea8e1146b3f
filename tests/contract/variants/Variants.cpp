// CorvidControl with one fault, which the library that this is linked into names. Without a fault it would be
// CorvidControl itself.
#include "CorvidControl/objects/CControlHost.h"
#include "nodes/EnNodeType.h"
#include "variants/CForward.h"
#include "variants/CObserverWrap.h"
#include "variants/VariantName.h"

#include <QFileInfo>
#include <QMap>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <memory>
#include <mutex>
#include <string_view>
#include <thread>

namespace {

bool Is(std::string_view strName)
{
    return strName == VariantName::Get();
}

// Longer than anybody waits.
void Hang()
{
    std::this_thread::sleep_for(std::chrono::hours(1)); // paced: the fault itself
}

thread_local bool bInNotify = false;

class CVariant final : public CForward
{
public:
    // What becomes of messages.

    void Attach(CObserver* pObserver) override
    {
        bFresh = Is("SilentAttach");
        if (Is("CrashOnAttach")) {
            std::raise(SIGSEGV);
        }
        if (Is("NotifyInAttach")) {
            pObserver->Notify(MessageDeleteFinished);
        }
        CForward::Attach(FindWrap(pObserver));
    }

    void Detach(CObserver* pObserver) override
    {
        CObserver* pWrap = FindWrap(pObserver);
        if (Is("LateDetach")) {
            std::thread([this, pWrap] {
                std::this_thread::sleep_for(std::chrono::milliseconds(150)); // paced: the fault itself
                CForward::Detach(pWrap);
            }).detach();
            return;
        }
        if (Is("NotifyOnStack")) {
            const std::lock_guard<std::recursive_mutex> lock(mutexStack);
            mapWrap.remove(pObserver);
        }
        CForward::Detach(pWrap);
    }

    void PostMessage(qint32 nMessage) override
    {
        if (Is("CrashAfterPost")) {
            std::thread([] {
                std::this_thread::sleep_for(std::chrono::milliseconds(100)); // paced: the fault itself
                std::raise(SIGSEGV);
            }).detach();
        }
        if (Is("SilentPost") || Is("CrashAfterPost")) {
            return;
        }
        if (!Is("NotifyOnStack")) {
            CForward::PostMessage(nMessage);
            return;
        }
        const std::lock_guard<std::recursive_mutex> lock(mutexStack);
        const QList<CObserver*> listObserver = mapWrap.keys();
        for (CObserver* pObserver : listObserver) {
            pObserver->Notify(nMessage);
        }
    }

    // What is read.

    void GetDiscoveredTree(SProcessorAllNode& node) override
    {
        std::unique_lock<std::recursive_mutex> lockNotify(mutexNotify, std::defer_lock);
        std::unique_lock<std::mutex> lockScan(mutexScan, std::defer_lock);
        if (Is("NotifyUnderLock")) {
            lockNotify.lock();
        }
        if (Is("BigLock")) {
            lockScan.lock();
        }
        CForward::GetDiscoveredTree(node);
        Spoil(node);
    }

    bool IsSimulatorPane() override
    {
        std::unique_lock<std::mutex> lockScan(mutexScan, std::defer_lock);
        if (Is("SlowPane")) {
            lockScan.lock();
        }
        return CForward::IsSimulatorPane();
    }

    std::vector<QUuid> GetSelectedNodes(bool bSimulator) override
    {
        std::vector<QUuid> vecId = CForward::GetSelectedNodes(Is("SharedSelection") ? CForward::IsSimulatorPane() : bSimulator);
        if (Is("SortedSelection")) {
            std::sort(vecId.begin(), vecId.end());
        }
        if (Is("RootlessSelection")) {
            vecId.erase(std::remove(vecId.begin(), vecId.end(), QUuid()), vecId.end());
        }
        return vecId;
    }

    qint32 GetSimulatorCount() override
    {
        return CForward::GetSimulatorCount() + (Is("MiscountedSimulators") ? 1 : 0);
    }

    qint32 GetNodeType(QUuid idNode) override
    {
        const qint32 nType = CForward::GetNodeType(idNode);
        return Is("WrongNodeType") && nType == 0 ? NodeGroup : nType;
    }

    void GetProcessorIPs(std::vector<uint>& vecIP) override
    {
        CForward::GetProcessorIPs(vecIP);
        if (Is("MissingIP")) {
            vecIP.resize(vecIP.empty() ? 0 : vecIP.size() - 1);
        }
    }

    void GetReservedIPs(QList<uint>& listIP) override
    {
        if (Is("OverwrittenReserved")) {
            listIP.clear();
        }
        CForward::GetReservedIPs(listIP);
    }

    QString GetListFilePath() override
    {
        const QString strPath = CForward::GetListFilePath();
        return Is("ForeignList") ? QStringLiteral("/nowhere/list.kvtl")
            : Is("RelativePath") ? QFileInfo(strPath).fileName()
                                 : strPath;
    }

    qint32 GetNextGroupIndex() override
    {
        return Is("ZeroIndex") ? 0 : CForward::GetNextGroupIndex();
    }

    void GetProjectInfo(SProjectInfo& info) override
    {
        CForward::GetProjectInfo(info);
        if (Is("LatinProject")) {
            info.strName = "Pr\xfc"
                           "fung";
        }
    }

    QString GetTypeName(qint32 nType) override
    {
        return Is("NamelessType") ? QString() : CForward::GetTypeName(nType);
    }

    // What is commanded.

    void SetExpanded(QUuid idNode, bool bExpanded) override
    {
        Wake();
        if (!(Is("ForgetfulFold") && !idNode.isNull()) && !(Is("ForgetfulRoot") && idNode.isNull())) {
            CForward::SetExpanded(idNode, bExpanded);
        }
    }

    bool SetSelectedNodes(const std::vector<QUuid>& vecId) override
    {
        Wake();
        if (Is("HangInNotify") && bInNotify) {
            Hang();
        }
        const bool bRoot = std::find(vecId.begin(), vecId.end(), QUuid()) != vecId.end();
        return !(Is("PickySelection") && vecId.size() > 1 && !bRoot) && CForward::SetSelectedNodes(vecId);
    }

    void SetSimulatorPane(bool bSimulator) override
    {
        Wake();
        constexpr int nFirstPanes = 3; // with which an attempt makes its list
        if (++nPanes <= nFirstPanes || !Is("StickyPane")) {
            CForward::SetSimulatorPane(bSimulator);
        }
    }

    void SetBusy(bool bBusy) override
    {
        nBusy += bBusy ? 1 : -1;
        if (Is("HangingBusy") && nBusy > 1) {
            Hang();
        }
        CForward::SetBusy(bBusy);
    }

    void AddGroup(SProcessorGroupNode node, bool bEmpty) override
    {
        Wake();
        if (Is("CrashOnGroup")) {
            std::raise(SIGSEGV);
        }
        if (Is("EndProcessGroup")) {
            kill(0, SIGKILL);
        }
        node.idNode = Is("NewGroupId") ? QUuid::createUuid() : node.idNode;
        CForward::AddGroup(node, bEmpty);
    }

    void RenameGroup(QUuid idGroup, QString strName) override
    {
        Wake();
        bQuiet = Is("SilentRename");
        if (!Is("DeafGroupRename")) {
            CForward::RenameGroup(idGroup, strName);
        }
    }

    void RenameProcessor(QUuid idProcessor, QString strName) override
    {
        Wake();
        if (Is("CrashOnStrayId") && CForward::GetNodeType(idProcessor) != NodeProcessor) {
            std::raise(SIGSEGV);
        }
        if (!Is("DeafRename")) {
            CForward::RenameProcessor(idProcessor, strName);
        }
    }

    void MoveProcessor(QUuid idProcessor, QUuid idGroup) override
    {
        Wake();
        if (!(Is("StuckMove") && idGroup.isNull())) {
            CForward::MoveProcessor(idProcessor, idGroup);
        }
    }

    void DeleteGroup(QUuid idGroup, bool bWithProcessors) override
    {
        Wake();
        if (!Is("DeafDissolve") || bWithProcessors) {
            CForward::DeleteGroup(idGroup, (bWithProcessors || Is("GreedyDissolve")) && !Is("HalfDelete"));
        }
    }

    void DeleteProcessor(QUuid idProcessor, bool bOption) override
    {
        if (!Is("DeafDelete")) {
            CForward::DeleteProcessor(idProcessor, bOption);
        }
    }

    void AddSimulators(SSimulatorRequest request) override
    {
        if (!Is("DeafSimulators")) {
            CForward::AddSimulators(request);
        }
    }

    void AddProcessor(quint32 nIP) override
    {
        CForward::AddProcessor(nIP);
        if (Is("TwoProcessors")) {
            CForward::AddProcessor(nIP + 1);
        }
    }

    void RefreshProcessors() override
    {
        std::unique_lock<std::mutex> lockScan(mutexScan, std::defer_lock);
        if (Is("SlowPane") || Is("BigLock")) {
            lockScan.lock();
        }
        // Not where an attempt makes its list, which begins with a pane.
        if (Is("LateScan") && nPanes == 0) {
            std::thread([this] { CForward::RefreshProcessors(); }).detach();
            return;
        }
        CForward::RefreshProcessors();
    }

    // What is written.

    qint32 ExportList(QString strPath, qint32 nOption) override
    {
        const bool bOwn = strPath == CForward::GetListFilePath();
        const qint32 nResult = CForward::ExportList(strPath, nOption);
        if (nResult != 0 && bOwn && Is("RuthlessProcess")) {
            return Overwrite(strPath);
        }
        if (nResult != 0 && !bOwn && (Is("BoastfulExport") || Is("ResultOne"))) {
            return Is("ResultOne") ? 1 : 0;
        }
        return nResult;
    }

    qint32 ImportList(QString strPath) override
    {
        Wake();
        const qint32 nResult = CForward::ImportList(strPath);
        bQuiet = Is("SilentImport");
        bImported = bImported || nResult == 0;
        const bool bEager = Is("EagerImport") && QFileInfo(strPath).fileName() == QStringLiteral("text.kvtl");
        if (nResult != 0 && (Is("HalfImport") || bEager)) {
            SProcessorGroupNode group;
            group.idNode = QUuid::createUuid();
            group.strName = QStringLiteral("Left over");
            CForward::AddGroup(group, true);
        }
        if (bEager) {
            return 0;
        }
        const bool bOther = (nResult == 2 && Is("OtherImportCode")) || (nResult == 5 && Is("OtherLimitCode"));
        return bOther ? 4 : nResult;
    }

private:
    void Wake()
    {
        bQuiet = false;
        bFresh = false;
    }

    CObserver* FindWrap(CObserver* pObserver)
    {
        const std::lock_guard<std::recursive_mutex> lock(mutexStack);
        std::shared_ptr<CObserverWrap>& pWrap = mapWrap[pObserver];
        if (!pWrap) {
            pWrap = std::make_shared<CObserverWrap>(*pObserver,
                                                    [this](CObserver& observer, int nMessage) { Deliver(observer, nMessage); });
            listWrap.append(pWrap);
        }
        return pWrap.get();
    }

    void Deliver(CObserver& observer, int nMessage)
    {
        std::unique_lock<std::recursive_mutex> lockNotify(mutexNotify, std::defer_lock);
        if (Is("NotifyUnderLock")) {
            lockNotify.lock();
        }
        bInNotify = true;
        const bool bLost = bQuiet || (nMessage == 1 && bFresh);
        if (!bLost) {
            observer.Notify(nMessage);
        }
        bInNotify = false;
    }

    void Spoil(SProcessorAllNode& node)
    {
        const int nReading = ++nReadings;
        if (Is("FlickeringPort") && !node.listProcessor.isEmpty()) {
            node.listProcessor.first().nPortB += static_cast<quint32>(nReading);
        }
        if (Is("PortlessFile") && bImported && !node.listProcessor.isEmpty()) {
            node.listProcessor.first().nPortA = 1;
        }
        if (Is("WrongKind") && !node.listProcessor.isEmpty()) {
            node.listProcessor.first().nNodeType = NodeGroup;
        }
        if (Is("RestlessOrder") && nReading % 2 == 0) {
            std::reverse(node.listGroup.begin(), node.listGroup.end());
        }
    }

    // Whatever another process has written there.
    qint32 Overwrite(const QString& strPath)
    {
        const QString strAside = strPath + QStringLiteral(".forced");
        const bool bDone = CForward::ExportList(strAside, 0) == 0 && QFile::remove(strPath) && QFile::rename(strAside, strPath);
        return bDone ? 0 : 2;
    }

    std::recursive_mutex mutexStack; ///< guards the two below
    QMap<CObserver*, std::shared_ptr<CObserverWrap>> mapWrap;
    QList<std::shared_ptr<CObserverWrap>> listWrap; ///< they outlive their observers
    std::recursive_mutex mutexNotify;
    std::mutex mutexScan;
    std::atomic<bool> bQuiet{ false }; ///< messages are lost
    std::atomic<bool> bFresh{ false }; ///< those that say that the list has changed are lost
    std::atomic<bool> bImported{ false };
    std::atomic<int> nBusy{ 0 };
    std::atomic<int> nReadings{ 0 };
    std::atomic<int> nPanes{ 0 }; ///< how often the pane was set
};

// As CorvidControl's own, with the variant in place of its objects.
CVariant& GetVariant()
{
    static auto* const pVariant = new CVariant;
    return *pVariant;
}

} // namespace

Q_DECL_EXPORT IConfigControl* g_pConfigControl = nullptr;
Q_DECL_EXPORT IPrcBasicControl* g_pPrcBasicControl = nullptr;
Q_DECL_EXPORT IPrcListControl* g_pPrcListControl = nullptr;
Q_DECL_EXPORT IPrcRuntimeControl* g_pPrcRuntimeControl = nullptr;
Q_DECL_EXPORT IPreferenceControl* g_pPreferenceControl = nullptr;
Q_DECL_EXPORT IProjectManageControl* g_pProjectManageControl = nullptr;
Q_DECL_EXPORT IProtocalControl* g_pProtocalControl = nullptr;
Q_DECL_EXPORT IRuntimeControl* g_pRuntimeControl = nullptr;

// The pointers of CorvidControl are those above: the first library that the loader meets has the last word.
IControlHost* CorvidControl_CreateHost(const SControlOptions& options)
{
    if (options.nVersion != nControlHostVersion) {
        return nullptr;
    }
    if (Is("CrashOnLoad")) {
        std::raise(SIGSEGV);
    }
    IControlHost* pHost = CControlHost::Start(options).release();
    GetVariant().Take();
    return pHost;
}
