#include "Builders.h"
#include "CNameRegistry.h"
#include "TestMain.h"
#include "model/EnItemRole.h"
#include "model/SPrcNodeItem.h"
#include "nodes/EnNodeType.h"
#include "tree/CDragImage.h"
#include "tree/NodeSelection.h"
#include "tree/RowMark.h"
#include "tree/RowToolTip.h"
#include "tree/SDragPayload.h"
#include "tree/SDropTarget.h"
#include "tree/SOverlayBars.h"
#include "tree/SRowShape.h"
#include "tree/SScrollBands.h"
#include "tree/commands/DeleteRule.h"

#include <QDataStream>
#include <QMimeData>
#include <QStandardItemModel>

namespace {

QStandardItem* Item(int nType, const QUuid& id)
{
    auto* const pItem = new QStandardItem;
    pItem->setData(nType, RoleNodeType);
    pItem->setData(id, RoleNodeId);
    return pItem;
}

const char* const szChief = "Chief-Member mode enabled. This processor has been set as Chief.";
const char* const szPrimary = "Processor redundancy enabled. This processor has been set as Primary.";
const char* const szBackup = "Processor redundancy enabled. This processor has been set as Backup.";

} // namespace

Q_DECLARE_METATYPE(EnDeleteQuestion)
Q_DECLARE_METATYPE(EnRowMark)

/// What the tree decides without a widget.
class CRulesTest : public QObject
{
    Q_OBJECT

private slots:
    void theQuestionBeforeADeletionFollowsFromTheNodes_data()
    {
        QTest::addColumn<bool>("bProcessor");
        QTest::addColumn<bool>("bFilled");
        QTest::addColumn<bool>("bEmpty");
        QTest::addColumn<EnDeleteQuestion>("question");
        QTest::newRow("empty groups") << false << false << true << EnDeleteQuestion::None;
        QTest::newRow("filled groups") << false << true << false << EnDeleteQuestion::WithOrWithoutProcessors;
        QTest::newRow("filled and empty groups") << false << true << true << EnDeleteQuestion::WithOrWithoutProcessors;
        QTest::newRow("processors") << true << false << false << EnDeleteQuestion::Processors;
        QTest::newRow("processors, filled groups") << true << true << false << EnDeleteQuestion::GroupsAndProcessors;
        QTest::newRow("all kinds") << true << true << true << EnDeleteQuestion::GroupsAndProcessors;
        QTest::newRow("processors, empty groups") << true << false << true << EnDeleteQuestion::GroupsAndProcessors;
    }
    void theQuestionBeforeADeletionFollowsFromTheNodes()
    {
        QFETCH(bool, bProcessor);
        QFETCH(bool, bFilled);
        QFETCH(bool, bEmpty);
        QFETCH(EnDeleteQuestion, question);
        QVERIFY(DeleteRule::GetQuestion(bProcessor, bFilled, bEmpty) == question);
    }

    void theMarkOfARowFollowsFromItsState_data()
    {
        QTest::addColumn<int>("nType");
        QTest::addColumn<bool>("bSelected");
        QTest::addColumn<bool>("bHot");
        QTest::addColumn<bool>("bDragging");
        QTest::addColumn<EnRowMark>("mark");
        for (const int nType : { int(NodeAll), int(NodeGroup), int(NodeProcessor) }) {
            const EnRowMark markDrop = nType == NodeProcessor ? EnRowMark::DropLine : EnRowMark::DropFrame;
            QTest::addRow("%d at rest", nType) << nType << false << false << false << EnRowMark::None;
            QTest::addRow("%d at rest, drag", nType) << nType << false << false << true << EnRowMark::None;
            QTest::addRow("%d hot", nType) << nType << false << true << false << EnRowMark::Hovered;
            QTest::addRow("%d hot, drag", nType) << nType << false << true << true << markDrop;
            QTest::addRow("%d selected", nType) << nType << true << false << false << EnRowMark::Selected;
            QTest::addRow("%d selected, hot, drag", nType) << nType << true << true << true << EnRowMark::Selected;
        }
    }
    void theMarkOfARowFollowsFromItsState()
    {
        QFETCH(int, nType);
        QFETCH(bool, bSelected);
        QFETCH(bool, bHot);
        QFETCH(bool, bDragging);
        QFETCH(EnRowMark, mark);
        QVERIFY(RowMark::ForRow(nType, bSelected, bHot, bDragging) == mark);
    }

    void theShapesOfARowLeaveSixPixelsAtItsRight()
    {
        const SRowShape shape(QRect(0, 64, 300, 32));
        QCOMPARE(shape.rcInfo, QRectF(0, 64, 294, 32));
        QCOMPARE(shape.rcNode, QRectF(0, 65, 294, 31));
        QCOMPARE(shape.GetNodePath().boundingRect(), shape.rcNode);
        QCOMPARE(shape.GetNodePath().fillRule(), Qt::WindingFill);
    }

    void theDropLineOfAProcessorIsTwoPixelsHigh()
    {
        const QRect rc = SRowShape(QRect(0, 64, 300, 32)).GetDropLine();
        QCOMPARE(rc, QRect(0, 65, 294, 2));
    }

    void theInformationCardHangsFromTheRowAbove()
    {
        const QPainterPath path = SRowShape(QRect(0, 100, 300, 92)).GetInfoCard();
        QCOMPARE(qRound(path.boundingRect().top()), 95);
        QCOMPARE(path.boundingRect().bottom(), 192.0);
        QVERIFY2(path.contains(QPointF(0.3, 99.5)) && path.contains(QPointF(293.7, 99.5)), "flares");
        QVERIFY2(!path.contains(QPointF(150, 98)), "free between the flares");
        QVERIFY2(path.contains(QPointF(150, 101)), "no round corners at the top");
        QVERIFY2(path.contains(QPointF(0.5, 101)), "no round corners at the top");
        QVERIFY2(!path.contains(QPointF(0.5, 191.5)), "round corners at the bottom");
    }

    void theOverlayBarsAreUnevenOnPurpose()
    {
        const SOverlayBars bars(QSize(300, 600), 8, 10);
        QCOMPARE(bars.rcHorizontal, QRect(QPoint(0, 591), QPoint(290, 598)));
        QCOMPARE(bars.rcVertical, QRect(QPoint(289, 1), QPoint(298, 599)));
    }

    void aTreeIsTooSmallForBarsBelowTenPixels()
    {
        QVERIFY(SOverlayBars::HasRoom(QSize(10, 10)));
        QVERIFY(!SOverlayBars::HasRoom(QSize(9, 10)));
        QVERIFY(!SOverlayBars::HasRoom(QSize(10, 9)));
    }

    void theBandsThatScrollAreTwentyPixelsHigh_data()
    {
        QTest::addColumn<QPoint>("pos");
        QTest::addColumn<bool>("bUp");
        QTest::addColumn<bool>("bDown");
        QTest::newRow("first pixel") << QPoint(0, 0) << true << false;
        QTest::newRow("end of the upper band") << QPoint(299, 19) << true << false;
        QTest::newRow("below the upper band") << QPoint(0, 20) << false << false;
        QTest::newRow("right of the upper band") << QPoint(300, 5) << false << false;
        QTest::newRow("above the tree") << QPoint(5, -1) << false << false;
        QTest::newRow("above the lower band") << QPoint(0, 378) << false << false;
        QTest::newRow("start of the lower band") << QPoint(0, 379) << false << true;
        QTest::newRow("end of the lower band") << QPoint(299, 398) << false << true;
        QTest::newRow("last row of pixels") << QPoint(0, 399) << false << false;
    }
    void theBandsThatScrollAreTwentyPixelsHigh()
    {
        QFETCH(QPoint, pos);
        QFETCH(bool, bUp);
        QFETCH(bool, bDown);
        const SScrollBands bands(QSize(300, 400), pos);
        QCOMPARE(bands.bUp, bUp);
        QCOMPARE(bands.bDown, bDown);
    }

    void aDragCarriesOneByte_data()
    {
        QTest::addColumn<bool>("bAllow");
        QTest::newRow("allowed") << true;
        QTest::newRow("refused") << false;
    }
    void aDragCarriesOneByte()
    {
        QFETCH(bool, bAllow);
        SDragPayload payload;
        payload.bAllow = bAllow;
        const QScopedPointer<QMimeData> pData(payload.ToMime());
        QCOMPARE(pData->formats(), QStringList{ "PROCESSOR DATA" });
        QCOMPARE(pData->data("PROCESSOR DATA"), QByteArray(1, char(bAllow)));
        QVERIFY(SDragPayload::IsIn(pData.data()));
        QCOMPARE(SDragPayload::FromMime(pData.data()).bAllow, bAllow);
    }

    void aForeignPayloadMayNotBeDropped()
    {
        QMimeData data;
        data.setText("PROCESSOR DATA");
        QVERIFY(!SDragPayload::IsIn(&data));
        QVERIFY(!SDragPayload::FromMime(&data).bAllow);
    }

    void aBrokenPayloadMayNotBeDropped_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("2") << QByteArray(1, 2);
        QTest::newRow("255") << QByteArray(1, char(255));
        QTest::newRow("1, and a byte more") << QByteArray(2, 1);
        QTest::newRow("1, and a zero byte") << QByteArray("\1\0", 2);
    }
    void aBrokenPayloadMayNotBeDropped()
    {
        QFETCH(QByteArray, bytes);
        QMimeData data;
        data.setData("PROCESSOR DATA", bytes);
        QVERIFY(!SDragPayload::FromMime(&data).bAllow);
    }

    void aDropGoesWhereTheRowIs()
    {
        QStandardItemModel model;
        QStandardItem* const pRoot = Item(NodeAll, QUuid());
        QStandardItem* const pGroup = Item(NodeGroup, GroupId("Stage"));
        QStandardItem* const pMember = Item(NodeProcessor, ProcessorId("alpha"));
        QStandardItem* const pLoose = Item(NodeProcessor, ProcessorId("loose"));
        QStandardItem* const pInfo = Item(NodeInfo, ProcessorId("alpha"));
        model.appendRow(pRoot);
        pRoot->appendRows({ pGroup, pLoose });
        pGroup->appendRow(pMember);
        pMember->appendRow(pInfo);

        const SDropTarget group = SDropTarget::ForRow(pGroup->index());
        QVERIFY(group.bValid && group.idGroup == GroupId("Stage") && group.indexGroup == pGroup->index());
        const SDropTarget member = SDropTarget::ForRow(pMember->index());
        QVERIFY(member.bValid && member.idGroup == GroupId("Stage") && member.indexGroup == pGroup->index());
        for (const QStandardItem* pItem : { pRoot, pLoose }) {
            const SDropTarget root = SDropTarget::ForRow(pItem->index());
            QVERIFY(root.bValid && root.idGroup.isNull() && !root.indexGroup.isValid());
        }
        QVERIFY(!SDropTarget::ForRow(pInfo->index()).bValid);
        QVERIFY(!SDropTarget::ForRow(QModelIndex()).bValid);
    }

    void aRowOfAnUnknownKindTakesNoDropAndNoReport()
    {
        QStandardItemModel model;
        model.appendRow(Item(17, GroupId("Stage")));
        QVERIFY(!SDropTarget::ForRow(model.index(0, 0)).bValid);
        QVERIFY(NodeSelection::GetIds({ model.index(0, 0) }).empty());
        QCOMPARE(RowToolTip::GetText(model.index(0, 0), QPoint()), QString());
    }

    void aRowThatComesTwiceIsSelectedAtItsLastPlace()
    {
        QStandardItemModel model(3, 1);
        const auto fnRow = [&model](int nRow) { return model.index(nRow, 0); };
        const QItemSelection selection = NodeSelection::GetRanges({ fnRow(0), fnRow(2), fnRow(0), fnRow(1) });
        QCOMPARE(selection.indexes(), (QModelIndexList{ fnRow(2), fnRow(0), fnRow(1) }));
    }

    void knownIdsKeepTheirOrder()
    {
        const SProcessorAllNode root = Root({ Group("Stage", { Processor("alpha") }) }, { Processor("loose") });
        const std::vector<QUuid> vecId{ ProcessorId("loose"), ProcessorId("gone"), QUuid(),
                                        ProcessorId("alpha"), GroupId("Stage"),    ProcessorId("loose") };
        const std::vector<QUuid> vecKnown{ ProcessorId("loose"), QUuid(), ProcessorId("alpha"), GroupId("Stage"),
                                           ProcessorId("loose") };
        QCOMPARE(NodeSelection::GetKnownIds(vecId, root), vecKnown);
    }

    void theTipOfAProcessorIsThatOfTheMarkUnderTheMouse_data()
    {
        QTest::addColumn<QPoint>("pos");
        QTest::addColumn<QString>("strMarks");
        QTest::addColumn<QString>("strTip");
        const QPoint ptFailover(107, 10), ptChief(87, 10), ptName(30, 10);
        QTest::newRow("Primary") << ptFailover << "P" << szPrimary;
        QTest::newRow("Backup") << ptFailover << "B" << szBackup;
        QTest::newRow("Chief") << ptChief << "C" << szChief;
        QTest::newRow("Chief and Primary, on Chief") << ptChief << "CP" << szChief;
        QTest::newRow("Chief and Primary, on Primary") << ptFailover << "CP" << szPrimary;
        QTest::newRow("no flag, on the mark") << ptFailover << ""
                                              << "the name";
        QTest::newRow("no Chief, on its place") << ptChief << "P"
                                                << "the name";
        QTest::newRow("beside the marks") << ptName << "CP"
                                          << "the name";
        QTest::newRow("Primary before Backup") << ptFailover << "PB" << szPrimary;
    }
    void theTipOfAProcessorIsThatOfTheMarkUnderTheMouse()
    {
        QFETCH(QPoint, pos);
        QFETCH(QString, strMarks);
        QFETCH(QString, strTip);
        SPrcNodeItem item;
        item.rcFailover = QRectF(100, 3, 14, 14);
        item.rcChief = QRectF(80, 3, 14, 14);
        item.bPrimary = strMarks.contains('P');
        item.bBackup = strMarks.contains('B');
        item.bChief = strMarks.contains('C');
        QStandardItemModel model;
        model.appendRow(Item(NodeProcessor, ProcessorId("alpha")));
        model.item(0)->setData(QVariant::fromValue(item), RoleNodeItem);
        model.item(0)->setData("the name", RoleToolTip);
        QCOMPARE(RowToolTip::GetText(model.index(0, 0), pos), strTip);
    }

    void chiefIsTestedFirstWhereBothMarksLieOnTopOfEachOther()
    {
        SPrcNodeItem item;
        item.rcFailover = item.rcChief = QRectF(100, 3, 14, 14);
        item.bPrimary = item.bChief = true;
        QStandardItemModel model;
        model.appendRow(Item(NodeProcessor, ProcessorId("alpha")));
        model.item(0)->setData(QVariant::fromValue(item), RoleNodeItem);
        QCOMPARE(RowToolTip::GetText(model.index(0, 0), QPoint(105, 8)), QString::fromLatin1(szChief));
    }

    void theAreaOfAMarkIsRoundedToWholePixels_data()
    {
        QTest::addColumn<qreal>("fLeft");
        QTest::addColumn<int>("nX");
        QTest::addColumn<bool>("bHit");
        QTest::newRow("left edge, rounded up") << 100.6 << 100 << false;
        QTest::newRow("inside") << 100.6 << 101 << true;
        QTest::newRow("right edge, rounded up") << 100.6 << 115 << true;
        QTest::newRow("beyond") << 100.6 << 116 << false;
        QTest::newRow("left edge, rounded down") << 100.4 << 100 << true;
        QTest::newRow("right edge, rounded down") << 100.4 << 115 << false;
    }
    void theAreaOfAMarkIsRoundedToWholePixels()
    {
        QFETCH(qreal, fLeft);
        QFETCH(int, nX);
        QFETCH(bool, bHit);
        SPrcNodeItem item;
        item.rcFailover = QRectF(fLeft, 3.4, 14, 14);
        item.bPrimary = true;
        QStandardItemModel model;
        model.appendRow(Item(NodeProcessor, ProcessorId("alpha")));
        model.item(0)->setData(QVariant::fromValue(item), RoleNodeItem);
        QCOMPARE(!RowToolTip::GetText(model.index(0, 0), QPoint(nX, 10)).isEmpty(), bHit);
    }

    void otherRowsHaveTheTipThatPaintingLeft_data()
    {
        QTest::addColumn<int>("nType");
        QTest::newRow("root") << int(NodeAll);
        QTest::newRow("group") << int(NodeGroup);
        QTest::newRow("processor never painted") << int(NodeProcessor);
        QTest::newRow("information row") << int(NodeInfo);
    }
    void otherRowsHaveTheTipThatPaintingLeft()
    {
        QFETCH(int, nType);
        QStandardItemModel model;
        model.appendRow(Item(nType, ProcessorId("alpha")));
        QCOMPARE(RowToolTip::GetText(model.index(0, 0), QPoint(0, 0)), QString());
        model.item(0)->setData("whole name", RoleToolTip);
        QCOMPARE(RowToolTip::GetText(model.index(0, 0), QPoint(0, 0)), QStringLiteral("whole name"));
    }

    void onlyTheExactBackgroundBecomesTransparent()
    {
        QImage image(4, 1, QImage::Format_RGB32);
        image.setPixel(0, 0, qRgb(0x1C, 0x1E, 0x21));
        image.setPixel(1, 0, qRgb(0x1C, 0x1E, 0x22));
        image.setPixel(2, 0, qRgb(0xFF, 0xFF, 0xFF));
        image.setPixel(3, 0, qRgb(0x1C, 0x1E, 0x21));
        CDragImage::RemoveBackground(image, QColor(0x1C, 0x1E, 0x21));
        QCOMPARE(image.pixel(0, 0), qRgba(0, 0, 0, 0));
        QCOMPARE(image.pixel(1, 0), qRgb(0x1C, 0x1E, 0x22));
        QCOMPARE(image.pixel(2, 0), qRgb(0xFF, 0xFF, 0xFF));
        QCOMPARE(image.pixel(3, 0), qRgba(0, 0, 0, 0));
    }
};

PTV_TEST_MAIN(CRulesTest)
#include "tst_rules.moc"
