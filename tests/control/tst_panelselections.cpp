#include "CNameRegistry.h"
#include "TestMain.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IRuntimeControl.h"
#include "live/CDeviceBurst.h"
#include "live/CFullLibrary.h"
#include "live/CLivePanel.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <thread>

using namespace std::chrono_literals;

namespace {

constexpr int nSelections = 100;
constexpr int nNodes = 20;
constexpr int nMostLost = 5; ///< of the hundred

/// Of the library's list, so that each selection has others than the one before: two of three are processors.
QString GetName(int nSelection, int nNode)
{
    const int nNumber = (nSelection * 37 + nNode * 11) % CFullLibrary::nLimit;
    return (nNode % 3 == 0 ? QStringLiteral("Group %1") : QStringLiteral("Processor %1")).arg(nNumber);
}

/// The hundred selections; the test says when.
QByteArray WriteScenario()
{
    QJsonArray arrayStep;
    for (int nSelection = 0; nSelection < nSelections; ++nSelection) {
        QJsonArray arrayNode;
        for (int nNode = 0; nNode < nNodes; ++nNode) {
            arrayNode.append(GetName(nSelection, nNode));
        }
        arrayStep.append(QJsonObject{ { "at", 0 }, { "do", "select" }, { "nodes", arrayNode } });
    }
    return QJsonDocument(QJsonObject{ { "steps", arrayStep } }).toJson();
}

std::vector<QUuid> GetIds(int nSelection)
{
    std::vector<QUuid> vecId;
    for (int nNode = 0; nNode < nNodes; ++nNode) {
        const QString strName = GetName(nSelection, nNode);
        vecId.push_back(nNode % 3 == 0 ? GroupId(strName) : ProcessorId(strName));
    }
    return vecId;
}

} // namespace

/// Selections of many nodes that the real library makes under the real panel, which reports each back node by node.
class CPanelSelectionsTest : public QObject
{
    Q_OBJECT

private slots:
    void aHundredSelectionsSettleOnTheirNodes_data()
    {
        QTest::addColumn<bool>("bDevicesChange");
        QTest::newRow("alone") << false;
        QTest::newRow("while devices change") << true;
    }

    void aHundredSelectionsSettleOnTheirNodes()
    {
        QFETCH(bool, bDevicesChange);
        CFullLibrary library(WriteScenario());
        CLivePanel panel;
        QVERIFY(panel.Settle());
        int nBurst = 0;
        int nLost = 0;
        for (int nSelection = 0; nSelection < nSelections; ++nSelection) {
            const std::vector<QUuid> vecId = GetIds(nSelection);
            for (bool bLost = true; bLost;) {
                QVERIFY2(nLost <= nMostLost, QByteArray::number(nSelection));
                CDeviceBurst burst(*library, false, bDevicesChange ? 100000 : 0, 20s, 1500 * nBurst++);
                std::thread([&] { library->runner.Run(library->scenario.GetSteps().at(nSelection)); }).join();
                QTRY_VERIFY(panel.HasSelected(vecId) || IsLost(vecId));
                burst.Stop();
                burst.Join();
                QVERIFY(panel.Settle());
                bLost = IsLost(vecId);
                nLost += bLost ? 1 : 0;
            }
            QVERIFY2(panel.HasSelected(vecId), QByteArray::number(nSelection));
        }
    }

private:
    // Between two of the panel's reports a refresh, if only that of the report before, may read the half of a selection, which is
    // shown and reported then: a library's selection during a refresh can get lost, and the more easily the longer a report
    // takes.
    static bool IsLost(std::vector<QUuid> vecId)
    {
        std::vector<QUuid> vecNow = g_pRuntimeControl->GetSelectedNodes(g_pRuntimeControl->IsSimulatorPane());
        std::sort(vecId.begin(), vecId.end());
        std::sort(vecNow.begin(), vecNow.end());
        return vecNow != vecId;
    }
};

PTV_TEST_MAIN(CPanelSelectionsTest)
#include "tst_panelselections.moc"
