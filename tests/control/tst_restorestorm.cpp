#include "Builders.h"
#include "CControlFixture.h"
#include "CEditRecorder.h"
#include "CNameRegistry.h"
#include "CorvidControl/file/ListFormat.h"
#include "CorvidControl/objects/CControlLibrary.h"
#include "TestMain.h"

#include <QSet>

#include <algorithm>
#include <atomic>
#include <random>
#include <thread>

/// Commands, restores, reports, reads and saves at the same time.
class CRestoreStormTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        SProcessorAllNode node;
        for (int n = 0; n < nCount; ++n) {
            node.listGroup.append(Group(GetGroup(n), { Processor(GetProcessor(n)).Ip(0x0A000000U + static_cast<quint32>(n)) }));
        }
        pFixture.reset(new CControlFixture);
        pFixture->options.nReleaseMs = 0;
        pFixture->Write("list.kvtl", ListFormat::Write(node));
        node.listGroup.removeLast();
        node.listGroup.first().listProcessor.first().nPortA = 7;
        pFixture->Write("other.kvtl", ListFormat::Write(node));
        pLibrary.reset(new CControlLibrary(pFixture->options));
        pRecorder.reset(new CEditRecorder(&pLibrary->events));
    }

    void cleanup()
    {
        pRecorder.reset();
        pLibrary.reset();
        pFixture.reset();
    }

    void everyReadIsAWholeList()
    {
        std::vector<std::thread> vecThread;
        for (unsigned nThread = 0; nThread < 2; ++nThread) {
            vecThread.emplace_back([&, nThread] { Command(nThread); });
        }
        vecThread.emplace_back([&] { Restore(); });
        vecThread.emplace_back([&] { Report(); });
        vecThread.emplace_back([&] { Save(); });
        vecThread.emplace_back([&] { Replace(); });
        QString strFault;
        for (int n = 0; strFault.isEmpty() && (n < 2000 || nRestored < 500 || nReplaced < 3); ++n) {
            strFault = FindFault(pLibrary->processors.GetTree(false));
        }
        bStop = true;
        for (std::thread& thread : vecThread) {
            thread.join();
        }
        QCOMPARE(strFault, QString());
        CheckNetwork();
    }

    void theEditsTakeTheListBackWhenAllIsQuiet()
    {
        const QByteArray bytes = pFixture->Read("list.kvtl");
        std::vector<std::thread> vecThread;
        for (unsigned nThread = 0; nThread < 3; ++nThread) {
            vecThread.emplace_back([nThread] {
                for (int n = 0; n < 40; ++n) {
                    g_pPrcListControl->MoveProcessor(ProcessorId(GetProcessor((n * 7 + static_cast<int>(nThread)) % nCount)),
                                                     GroupId(GetGroup(n % nCount)));
                }
            });
        }
        for (std::thread& thread : vecThread) {
            thread.join();
        }
        const QVector<SListEdit> vecEdit = pRecorder->GetEdits();
        for (int n = vecEdit.size() - 1; n >= 0; --n) {
            QVERIFY(pLibrary->history.Restore(vecEdit.at(n).after, vecEdit.at(n).before));
        }
        QCOMPARE(ListFormat::Write(pLibrary->processors.GetTree(false)), bytes);
    }

private:
    static constexpr int nCount = 24;

    static QString GetGroup(int n)
    {
        return QStringLiteral("g%1").arg(n);
    }
    static QString GetProcessor(int n)
    {
        return QStringLiteral("p%1").arg(n);
    }

    void Command(unsigned nSeed)
    {
        std::mt19937 random(nSeed);
        while (!bStop) {
            const int n = static_cast<int>(random() % nCount);
            const QUuid idGroup = GroupId(GetGroup(static_cast<int>(random() % nCount)));
            switch (random() % 5) {
            case 0:
                g_pPrcListControl->DeleteProcessor(ProcessorId(GetProcessor(n)), false);
                break;
            case 1:
                g_pPrcListControl->DeleteGroup(idGroup, random() % 2 != 0);
                break;
            case 2:
                pLibrary->processors.ChooseChief(idGroup, FindMember(idGroup));
                break;
            default:
                g_pPrcListControl->MoveProcessor(ProcessorId(GetProcessor(n)), idGroup);
            }
        }
    }

    // Imports and earlier lists in turn, the next when some restores were made: none is while one is under way.
    void Replace()
    {
        while (!bStop) {
            const int nBefore = nRestored;
            const QList<SEarlierList> listEarlier = pLibrary->store.FindEarlier();
            const bool bTaken
                = !listEarlier.isEmpty() && nReplaced % 2 != 0 && pLibrary->store.TakeEarlier(listEarlier.last().strPath);
            nReplaced += bTaken || g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")) == 0 ? 1 : 0;
            while (!bStop && nRestored < nBefore + 20) {
                std::this_thread::yield();
            }
        }
    }

    // A call that is under way refuses most of them.
    void Restore()
    {
        std::mt19937 random(17);
        while (!bStop) {
            const QVector<SListEdit> vecEdit = pRecorder->GetEdits();
            if (vecEdit.isEmpty()) {
                std::this_thread::yield();
                continue;
            }
            const SListEdit edit = vecEdit.at(static_cast<int>(random() % static_cast<unsigned>(vecEdit.size())));
            nRestored += pLibrary->history.Restore(edit.after, edit.before) ? 1 : 0;
        }
    }

    void Report()
    {
        for (int n = 0; !bStop; ++n) {
            pLibrary->network.SetOnline(ProcessorId(GetProcessor(n % nCount)), n % 2 != 0);
        }
    }

    void Save()
    {
        while (!bStop) {
            pLibrary->store.Save();
            pLibrary->processors.GetSnapshot();
        }
    }

    // A node that is there twice, a Chief that is no member.
    static QString FindFault(const SProcessorAllNode& node)
    {
        QSet<QUuid> setId;
        int nNodes = 0;
        QList<SProcessorNode> listProcessor = node.listProcessor;
        for (const SProcessorGroupNode& group : node.listGroup) {
            setId.insert(group.idNode);
            ++nNodes;
            listProcessor += group.listProcessor;
            const auto isChief = [&](const SProcessorNode& processor) { return processor.idNode == group.idChief; };
            const auto nChiefs = std::count_if(group.listProcessor.cbegin(), group.listProcessor.cend(), isChief);
            if (nChiefs != (group.idChief.isNull() ? 0 : 1)) {
                return group.strName + QStringLiteral(" has a Chief that is no member");
            }
        }
        for (const SProcessorNode& processor : std::as_const(listProcessor)) {
            setId.insert(processor.idNode);
            ++nNodes;
        }
        return setId.size() == nNodes ? QString() : QStringLiteral("%1 nodes, %2 ids").arg(nNodes).arg(setId.size());
    }

    QUuid FindMember(const QUuid& idGroup) const
    {
        const QList<SProcessorNode> listMember = pLibrary->processors.CopyGroup(idGroup).listProcessor;
        return listMember.isEmpty() ? QUuid() : listMember.first().idNode;
    }

    // In the end the network knows the devices of the list, and no others.
    void CheckNetwork()
    {
        const QList<SProcessorNode> listProcessor = pLibrary->processors.CopyTree(false).GetProcessors();
        const QList<SProcessorNode> listDevice = pLibrary->network.Scan([](int, int) { });
        QCOMPARE(listDevice.size(), listProcessor.size());
        for (const SProcessorNode& processor : listProcessor) {
            const bool bOnline = !processor.bOnline;
            pLibrary->network.SetOnline(processor.idNode, bOnline);
            QCOMPARE(pLibrary->processors.IsActive(processor.idNode), bOnline);
        }
    }

    QScopedPointer<CControlFixture> pFixture;
    QScopedPointer<CControlLibrary> pLibrary;
    QScopedPointer<CEditRecorder> pRecorder;
    std::atomic<bool> bStop{ false };
    std::atomic<int> nRestored{ 0 };
    std::atomic<int> nReplaced{ 0 };
};

PTV_TEST_MAIN_CORE(CRestoreStormTest)
#include "tst_restorestorm.moc"
