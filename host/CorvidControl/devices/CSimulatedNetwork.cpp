#include "CorvidControl/devices/CSimulatedNetwork.h"

#include "CorvidControl/devices/DeviceReport.h"
#include "CorvidControl/devices/DeviceTypes.h"

#include <QHostAddress>

#include <algorithm>

namespace {

constexpr int nScanSteps = 10; // of its progress

bool IsPrivate(quint32 nIP)
{
    return (nIP >> 24) == 10 || (nIP >> 20) == 0xAC1 || (nIP >> 16) == 0xC0A8;
}

} // namespace

void CSimulatedNetwork::SetListener(const Listener& listenerNew)
{
    Q_ASSERT(!listener);
    listener = listenerNew;
}

void CSimulatedNetwork::Adopt(const SProcessorNode& device)
{
    const std::lock_guard<std::mutex> lock(mutex);
    Insert(lock, device);
}

void CSimulatedNetwork::Follow(const SProcessorNode& recorded)
{
    const std::lock_guard<std::mutex> lock(mutex);
    const auto it = hashAdopted.constFind(recorded.idNode);
    Insert(lock, it == hashAdopted.cend() ? recorded : DeviceReport::TakeState(recorded, *it));
}

void CSimulatedNetwork::Forget(const QUuid& id)
{
    const std::lock_guard<std::mutex> lock(mutex);
    hashAdopted.remove(id);
}

void CSimulatedNetwork::Release(const QList<QUuid>& listId)
{
    std::unique_lock<std::mutex> lock(mutex);
    const auto isOnline = [this](const QUuid& id) { return hashAdopted.value(id).bOnline; };
    if (std::any_of(listId.cbegin(), listId.cend(), isOnline)) {
        Wait(lock, std::chrono::steady_clock::now() + delays.timeRelease);
    }
    for (const QUuid& id : listId) {
        hashAdopted.remove(id);
    }
}

std::optional<SProcessorNode> CSimulatedNetwork::Hear(const QUuid& id) const
{
    const std::lock_guard<std::mutex> lock(mutex);
    const auto isIt = [&](const SProcessorNode& device) { return device.idNode == id; };
    const auto it = std::find_if(listUnlisted.cbegin(), listUnlisted.cend(), isIt);
    return it == listUnlisted.cend() ? std::nullopt : std::make_optional(*it);
}

QList<SProcessorNode> CSimulatedNetwork::Scan(const Progress& progress)
{
    std::unique_lock<std::mutex> lock(mutex);
    const auto timeStart = std::chrono::steady_clock::now();
    for (int nStep = 1; nStep <= nScanSteps; ++nStep) {
        Wait(lock, timeStart + delays.timeScan * nStep / nScanSteps);
        const int nAll = GetAll(lock).size();
        lock.unlock();
        progress(nAll * nStep / nScanSteps, nAll);
        lock.lock();
    }
    return GetAll(lock);
}

bool CSimulatedNetwork::Ask(quint32 nIP, SProcessorNode& device)
{
    std::unique_lock<std::mutex> lock(mutex);
    const bool bAnswers = IsPrivate(nIP) && !setSilent.contains(nIP);
    Wait(lock, std::chrono::steady_clock::now() + (bAnswers ? delays.timeAnswer : delays.timeTimeout));
    const auto isThere = [&](const SProcessorNode& entry) { return entry.nIP == nIP; };
    const auto it = std::find_if(listUnlisted.cbegin(), listUnlisted.cend(), isThere);
    device = it != listUnlisted.cend() ? *it : BuildDevice(nIP, {});
    return bAnswers && !bStop;
}

void CSimulatedNetwork::Stop()
{
    const std::lock_guard<std::mutex> lock(mutex);
    bStop = true;
    condStop.notify_all();
}

void CSimulatedNetwork::SetOnline(const QUuid& id, bool bOnline)
{
    Change(id, [=](SProcessorNode& device) { device.bOnline = bOnline; });
}

void CSimulatedNetwork::SetRole(const QUuid& id, qint32 nFailover)
{
    Change(id, [=](SProcessorNode& device) { device.nFailover = nFailover; });
}

void CSimulatedNetwork::SetProject(const QUuid& id, const QString& strProject)
{
    Change(id, [=](SProcessorNode& device) { device.strProject = strProject; });
}

void CSimulatedNetwork::Appear(quint32 nIP, const QString& strName)
{
    const std::lock_guard<std::mutex> lock(mutex);
    setSilent.remove(nIP);
    listUnlisted.append(BuildDevice(nIP, strName));
}

void CSimulatedNetwork::Silence(quint32 nIP)
{
    const std::lock_guard<std::mutex> lock(mutex);
    setSilent.insert(nIP);
}

SProcessorNode CSimulatedNetwork::BuildDevice(quint32 nIP, const QString& strName)
{
    static const QUuid idSpace(QStringLiteral("{6c9c2e1a-5f0b-4a63-9d53-3a1f0d0b7e21}"));
    SProcessorNode device;
    const QString strAddress = QHostAddress(nIP).toString();
    device.idNode = QUuid::createUuidV5(idSpace, strAddress);
    device.idAux = QUuid::createUuidV5(device.idNode, strAddress);
    device.strName = strName.isEmpty() ? QStringLiteral("Processor %1").arg(strAddress) : strName;
    device.nModel = DeviceTypes::nStandard;
    device.strType = DeviceTypes::GetName(device.nModel);
    device.nIP = nIP;
    device.bOnline = true;
    return device;
}

void CSimulatedNetwork::Insert(const std::lock_guard<std::mutex>& /*lock*/, const SProcessorNode& device)
{
    hashAdopted.insert(device.idNode, device);
    for (int n = listUnlisted.size() - 1; n >= 0; --n) {
        if (listUnlisted.at(n).idNode == device.idNode) {
            listUnlisted.removeAt(n);
        }
    }
}

void CSimulatedNetwork::Change(const QUuid& id, const std::function<void(SProcessorNode&)>& change)
{
    SProcessorNode device;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (!hashAdopted.contains(id)) {
            return;
        }
        device = hashAdopted.value(id);
        change(device);
        hashAdopted.insert(id, device);
    }
    listener(device);
}

// Releases the lock while it waits.
void CSimulatedNetwork::Wait(std::unique_lock<std::mutex>& lock, std::chrono::steady_clock::time_point timeEnd)
{
    condStop.wait_until(lock, timeEnd, [this] { return bStop; });
}

// The unlisted ones first.
QList<SProcessorNode> CSimulatedNetwork::GetAll(const std::unique_lock<std::mutex>& /*lock*/) const
{
    QList<SProcessorNode> listAll = listUnlisted;
    for (const SProcessorNode& device : hashAdopted) {
        listAll.append(device);
    }
    return listAll;
}
