#include "data/CProcessorTreeData.h"

#include "data/SStoreReading.h"
#include "data/StoreReader.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IRuntimeControl.h"

#include <QReadWriteLock>
#include <QThread>
#include <QWriteLocker>

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace {

CProcessorTreeData* pOwnedStore = nullptr;

void DeleteStore()
{
    delete pOwnedStore;
    pOwnedStore = nullptr;
}

CProcessorTreeData* CreateStore()
{
    pOwnedStore = new CProcessorTreeData;
    std::atexit(DeleteStore);
    return pOwnedStore;
}

// Index of the first node with this id, -1 for none.
template <typename Node> int IndexById(const QList<Node>& list, const QUuid& id)
{
    const auto it = std::find_if(list.cbegin(), list.cend(), [&id](const Node& node) { return node.idNode == id; });
    return it == list.cend() ? -1 : static_cast<int>(it - list.cbegin());
}

// The first node with this id, null for none.
template <typename Node> const Node* FindById(const QList<Node>& list, const QUuid& id)
{
    const int nIndex = IndexById(list, id);
    return nIndex < 0 ? nullptr : &list.at(nIndex);
}

// Assigns what differs and returns whether anything did. The name and the kind of a root alone are no
// change, but are assigned with one.
bool ReplaceRoot(SProcessorAllNode& node, const SProcessorAllNode& nodeNew)
{
    if (node.bExpanded == nodeNew.bExpanded && node.listGroup == nodeNew.listGroup
        && node.listProcessor == nodeNew.listProcessor) {
        return false;
    }
    node = nodeNew;
    return true;
}

template <typename Value> bool ReplaceValue(Value& value, const Value& valueNew)
{
    if (value == valueNew) {
        return false;
    }
    value = valueNew;
    return true;
}

} // namespace

CProcessorTreeData* g_pProcessorTreeData = CreateStore();

// Proof that the thread which has this object holds the lock of the store.
class CProcessorTreeData::CLock
{
public:
    Q_DISABLE_COPY(CLock)

protected:
    CLock() = default;
    ~CLock() = default;
};

// Locks for reading, or, on the thread that is inside Refresh(), for writing: Qt's recursive lock
// refuses a read lock to its writer, but grants it a further write lock.
class CProcessorTreeData::CReadLocker : public CLock
{
public:
    explicit CReadLocker(const CProcessorTreeData& store) : pLock(store.pLock)
    {
        if (store.hWriter.load() == QThread::currentThreadId()) {
            pLock->lockForWrite();
        } else {
            pLock->lockForRead();
        }
    }

    ~CReadLocker()
    {
        pLock->unlock();
    }

private:
    QReadWriteLock* pLock;
};

class CProcessorTreeData::CWriteLocker : public CLock
{
public:
    explicit CWriteLocker(const CProcessorTreeData& store) : locker(store.pLock) { }

private:
    QWriteLocker locker;
};

// The write lock of a refresh; names its thread to that thread's own readers.
class CProcessorTreeData::CRefreshLocker : public CLock
{
public:
    explicit CRefreshLocker(CProcessorTreeData& storeIn) : store(storeIn)
    {
        store.pLock->lockForWrite();
        store.hWriter = QThread::currentThreadId();
    }

    ~CRefreshLocker()
    {
        store.hWriter = nullptr;
        store.pLock->unlock();
    }

private:
    CProcessorTreeData& store;
};

struct CProcessorTreeData::SChanges
{
    bool bProjectName = false;
    bool bDiscoveredTree = false;
    bool bSimulatorTree = false;
    bool bDiscoveredSelection = false;
    bool bSimulatorSelection = false;
    bool bCommands = false;
    bool bChiefMode = false;
};

// A fresh random id in each selection differs from whatever the first reading finds, so that the first
// refresh is sure to announce the selection.
CProcessorTreeData::CProcessorTreeData()
    : pLock(new QReadWriteLock(QReadWriteLock::Recursive)), vecSelectedDiscovered{ QUuid::createUuid() },
      vecSelectedSimulator{ QUuid::createUuid() }
{ }

CProcessorTreeData::~CProcessorTreeData()
{
    delete pLock;
}

QString CProcessorTreeData::GetProjectName() const
{
    const CReadLocker locker(*this);
    return strProjectName;
}

std::vector<QUuid> CProcessorTreeData::GetSelectedNodes() const
{
    const CReadLocker locker(*this);
    return bSimulatorPane ? vecSelectedSimulator : vecSelectedDiscovered;
}

std::vector<QUuid> CProcessorTreeData::GetSelectedNodes(bool bSimulator) const
{
    const CReadLocker locker(*this);
    return bSimulator ? vecSelectedSimulator : vecSelectedDiscovered;
}

bool CProcessorTreeData::IsRefreshEnabled() const
{
    const CReadLocker locker(*this);
    return bRefreshEnabled;
}

bool CProcessorTreeData::IsListLocked() const
{
    const CReadLocker locker(*this);
    return bListLocked;
}

bool CProcessorTreeData::IsChiefMode() const
{
    const CReadLocker locker(*this);
    return bChiefMode;
}

bool CProcessorTreeData::IsSimulatorPane() const
{
    const CReadLocker locker(*this);
    return bSimulatorPane;
}

void CProcessorTreeData::SetSimulatorPane(bool bSimulator)
{
    const CWriteLocker locker(*this);
    bSimulatorPane = bSimulator;
}

bool CProcessorTreeData::SetSelectedNodes(const std::vector<QUuid>& vecId)
{
    const CWriteLocker locker(*this);
    return ReplaceValue(bSimulatorPane ? vecSelectedSimulator : vecSelectedDiscovered, vecId);
}

void CProcessorTreeData::GetSimulatorTree(SProcessorAllNode& node) const
{
    const CReadLocker locker(*this);
    node = nodeSimulator;
}

void CProcessorTreeData::GetDiscoveredTree(SProcessorAllNode& node) const
{
    const CReadLocker locker(*this);
    node = nodeDiscovered;
}

void CProcessorTreeData::GetCurrentTree(SProcessorAllNode& node) const
{
    const CReadLocker locker(*this);
    node = CurrentRoot(locker);
}

void CProcessorTreeData::SetCurrentTree(const SProcessorAllNode& node)
{
    const CReadLocker locker(*this);
    CurrentRoot(locker) = node;
}

void CProcessorTreeData::AppendGroup(const SProcessorGroupNode& node)
{
    const CWriteLocker locker(*this);
    CurrentRoot(locker).listGroup.append(node);
}

int CProcessorTreeData::GetProcessorCount() const
{
    const SProcessorAllNode node = CopyCurrentTree();
    return std::accumulate(node.listGroup.cbegin(), node.listGroup.cend(), node.listProcessor.size(),
                           [](int nSum, const SProcessorGroupNode& group) { return nSum + group.listProcessor.size(); });
}

int CProcessorTreeData::GetGroupProcessorCount(const QUuid& id) const
{
    const SProcessorAllNode node = CopyCurrentTree();
    const auto* pGroup = FindById(node.listGroup, id);
    return pGroup ? pGroup->listProcessor.size() : 0;
}

SProcessorGroupNode CProcessorTreeData::GetGroup(const QUuid& id) const
{
    const SProcessorAllNode node = CopyCurrentTree();
    const auto* pGroup = FindById(node.listGroup, id);
    return pGroup ? *pGroup : SProcessorGroupNode();
}

SProcessorNode CProcessorTreeData::GetProcessor(const QUuid& id) const
{
    const SProcessorAllNode node = CopyCurrentTree();
    for (const SProcessorGroupNode& group : node.listGroup) {
        if (const auto* pMember = FindById(group.listProcessor, id)) {
            return *pMember;
        }
    }
    const auto* pProcessor = FindById(node.listProcessor, id);
    return pProcessor ? *pProcessor : SProcessorNode();
}

QString CProcessorTreeData::GetNodeName(const QUuid& id) const
{
    const SProcessorAllNode node = CopyCurrentTree();
    for (const SProcessorGroupNode& group : node.listGroup) {
        if (group.idNode == id) {
            return group.strName;
        }
        if (const auto* pMember = FindById(group.listProcessor, id)) {
            return pMember->strName;
        }
    }
    const auto* pProcessor = FindById(node.listProcessor, id);
    return pProcessor ? pProcessor->strName : QString();
}

void CProcessorTreeData::SetExpanded(const QUuid& id, bool bExpanded)
{
    const CWriteLocker locker(*this);
    SProcessorAllNode& root = CurrentRoot(locker);
    if (id.isNull()) {
        root.bExpanded = bExpanded;
        return;
    }
    for (int i = 0; i < root.listGroup.size(); ++i) {
        if (root.listGroup.at(i).idNode == id) {
            root.listGroup[i].bExpanded = bExpanded;
            return;
        }
        const int nMember = IndexById(root.listGroup.at(i).listProcessor, id);
        if (nMember >= 0) {
            root.listGroup[i].listProcessor[nMember].bExpanded = bExpanded;
            return;
        }
    }
    const int nProcessor = IndexById(root.listProcessor, id);
    if (nProcessor >= 0) {
        root.listProcessor[nProcessor].bExpanded = bExpanded;
    }
}

void CProcessorTreeData::Refresh()
{
    const SStoreReading reading = StoreReader::Take();

    const CRefreshLocker locker(*this);
    Announce(locker, Replace(locker, reading));
}

void CProcessorTreeData::Announce(const CRefreshLocker&, const SChanges& changes)
{
    if (changes.bChiefMode) {
        emit NotifyChiefChanged();
    }
    if (bSimulatorPane ? changes.bSimulatorTree : changes.bDiscoveredTree) {
        emit NotifyNodeInfo();
    } else if (changes.bCommands) {
        emit NotifyButton();
    }
    if (bSimulatorPane ? changes.bSimulatorSelection : changes.bDiscoveredSelection) {
        emit NotifyNodeSelectChanged();
    }
    if (changes.bProjectName) {
        emit NotifyWindowTitle();
    }
}

CProcessorTreeData::SChanges CProcessorTreeData::Replace(const CRefreshLocker&, const SStoreReading& reading)
{
    SChanges changes;
    bSimulatorPane = g_pRuntimeControl->IsSimulatorPane();
    changes.bProjectName = ReplaceValue(strProjectName, reading.strProjectName);
    changes.bDiscoveredTree = ReplaceRoot(nodeDiscovered, reading.nodeDiscovered);
    changes.bSimulatorTree = ReplaceRoot(nodeSimulator, reading.nodeSimulator);
    changes.bDiscoveredSelection = ReplaceValue(vecSelectedDiscovered, reading.vecSelectedDiscovered);
    changes.bSimulatorSelection = ReplaceValue(vecSelectedSimulator, reading.vecSelectedSimulator);
    const bool bRefreshChanged = ReplaceValue(bRefreshEnabled, reading.bRefreshEnabled);
    const bool bLockChanged = ReplaceValue(bListLocked, reading.bListLocked);
    changes.bCommands = bRefreshChanged || bLockChanged;
    changes.bChiefMode = ReplaceValue(bChiefMode, reading.bChiefMode);
    return changes;
}

SProcessorAllNode& CProcessorTreeData::CurrentRoot(const CLock&)
{
    return bSimulatorPane ? nodeSimulator : nodeDiscovered;
}

const SProcessorAllNode& CProcessorTreeData::CurrentRoot(const CLock&) const
{
    return bSimulatorPane ? nodeSimulator : nodeDiscovered;
}

SProcessorAllNode CProcessorTreeData::CopyCurrentTree() const
{
    SProcessorAllNode node;
    GetCurrentTree(node);
    return node;
}
