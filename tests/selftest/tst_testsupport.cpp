#include "Builders.h"
#include "CNameRegistry.h"
#include "IconColour.h"
#include "TestMain.h"
#include "TreeText.h"
#include "nodes/EnNodeType.h"

#include <QPainter>
#include <QStandardItemModel>
#include <QSvgRenderer>
#include <QTreeView>

class CTestSupportTest : public QObject
{
    Q_OBJECT

private slots:
    void builtIdsAreTheSameForTheSameNameAndPrintAsIt()
    {
        const SProcessorNode node = Processor("alpha");
        QCOMPARE(node.idNode, ProcessorId("alpha"));
        QVERIFY(node.idNode != GroupId("alpha"));
        QCOMPARE(CNameRegistry::Instance().Text(node.idNode), QStringLiteral("alpha"));
        QCOMPARE(CNameRegistry::Instance().Text(QUuid()), QStringLiteral("{null}"));
        const SProcessorNode nodeTwin = Processor("alpha").Id("alpha/2");
        QCOMPARE(CNameRegistry::Instance().Text({ node.idNode, nodeTwin.idNode }), QStringLiteral("[alpha, alpha/2]"));
    }

    void builtRecordsHaveTheRecordsDefaults()
    {
        const SProcessorNode node = Processor("alpha").Ip("10.0.0.7").Primary();
        QCOMPARE(node.nIP, 0x0A000007U);
        QCOMPARE(node.nFailover, 1);
        QCOMPARE(node.nModel, SProcessorNode().nModel);
        QCOMPARE(node.bOnline, false);
    }

    void treePrintsAsIndentedLinesWithFlags()
    {
        const auto fnItem = [](int nType, const QUuid& id) {
            auto* pItem = new QStandardItem;
            pItem->setData(QVariant::fromValue(id), Qt::UserRole + 1);
            pItem->setData(nType, Qt::UserRole + 2);
            return pItem;
        };
        QStandardItemModel model;
        QStandardItem* pAll = fnItem(NodeAll, QUuid());
        QStandardItem* pGroup = fnItem(NodeGroup, GroupId("Stage"));
        model.appendRow(pAll);
        pAll->setChild(0, pGroup);
        pGroup->setChild(0, fnItem(NodeProcessor, ProcessorId("alpha")));
        pGroup->setChild(1, fnItem(NodeProcessor, ProcessorId("beta")));
        QTreeView view;
        view.setModel(&model);
        view.setExpanded(pAll->index(), true);
        view.selectionModel()->select(pGroup->index(), QItemSelectionModel::Select);
        view.setRowHidden(1, pGroup->index(), true);
        QCOMPARE(TreeText(&view),
                 QStringLiteral("all [expanded]\n  group Stage [selected]\n    processor alpha\n    processor beta [hidden]\n"));
        QCOMPARE(TreeText(&model), QStringLiteral("all\n  group Stage\n    processor alpha\n    processor beta\n"));
    }

    void expectedWarningPasses()
    {
        ExpectWarning("^nothing but \\d+ words$");
        qWarning("nothing but %d words", 4);
    }

    void eachIconHasAColourOfItsOwn()
    {
        QSet<QRgb> setColour;
        int nIcon = 0;
        QDirIterator it(QStringLiteral(":/image"), { QStringLiteral("*.svg") }, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            QImage image(16, 16, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            QSvgRenderer(it.next()).render(&painter);
            QCOMPARE(image.pixelColor(8, 8), IconColour(it.filePath()));
            setColour.insert(image.pixel(8, 8));
            ++nIcon;
        }
        QCOMPARE(nIcon, 25);
        QCOMPARE(setColour.size(), nIcon);
    }

    void fontIsTheSameEverywhere()
    {
        QCOMPARE(QFontInfo(QApplication::font()).family(), QStringLiteral("Inter"));
        QCOMPARE(QApplication::font().pixelSize(), 12);
    }
};

PTV_TEST_MAIN(CTestSupportTest)
#include "tst_testsupport.moc"
