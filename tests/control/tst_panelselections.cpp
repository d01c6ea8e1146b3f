#include "CNameRegistry.h"
#include "TestMain.h"
#include "live/CDeviceBurst.h"
#include "live/CFullLibrary.h"
#include "live/CLivePanel.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <thread>

using namespace std::chrono_literals;

namespace {

constexpr int nSelections = 100;
constexpr int nNodes = 20;

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
        for (int nSelection = 0; nSelection < nSelections; ++nSelection) {
            const SScenarioStep step = library->scenario.GetSteps().at(nSelection);
            CDeviceBurst burst(*library, false, bDevicesChange ? 100000 : 0, 20s, 1500 * nSelection);
            std::thread([&] { library->runner.Run(step); }).join();
            QTRY_VERIFY(panel.HasSelected(GetIds(nSelection)));
            burst.Stop();
            burst.Join();
            QVERIFY(panel.Settle());
            QVERIFY2(panel.HasSelected(GetIds(nSelection)), QByteArray::number(nSelection));
        }
    }
};

PTV_TEST_MAIN(CPanelSelectionsTest)
#include "tst_panelselections.moc"
