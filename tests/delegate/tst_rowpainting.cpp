#include "CPaintedRow.h"
#include "CRowView.h"
#include "TestMain.h"
#include "fixtures/CStoreFixture.h"

#include <QPainter>

namespace {

const QString strLongName = QStringLiteral("A name that is far too long for the room on its row, all of it");

// Runs the event loop until nothing is left to do.
void Spin()
{
    for (int i = 0; i < 50; ++i) {
        QCoreApplication::processEvents();
    }
}

SProcessorAllNode Site()
{
    return Root(
        { Group(QStringLiteral("Stage"), { Processor(QStringLiteral("alpha")).Online().Primary().Project("Show").Chief() }) },
        { Processor(strLongName).Online(), Processor(QStringLiteral("gamma")) });
}

} // namespace

class CRowPaintingTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        store.SetChiefMode(true);
        store.Show(Site());
    }

    // Without it equal values may differ, and each paint then asks for the next.
    void delegateMakesItsMarksComparable()
    {
        const CProcessorTreeDelegate first(nullptr);
        const CProcessorTreeDelegate second(nullptr);
        QVERIFY(QMetaType::hasRegisteredComparators<SPrcNodeItem>());
        QCOMPARE(QMetaType::type("SPrcNodeItem"), qMetaTypeId<SPrcNodeItem>());
    }

    void delegateGoesWithItsParent()
    {
        QScopedPointer<QObject> parent(new QObject);
        const QPointer<CProcessorTreeDelegate> pDelegate = new CProcessorTreeDelegate(parent.data());
        QCOMPARE(pDelegate->parent(), parent.data());
        parent.reset();
        QVERIFY(pDelegate.isNull());
    }

    void rowOfAnotherKindStaysUnpainted_data()
    {
        QTest::addColumn<QVariant>("type");
        QTest::newRow("no kind") << QVariant();
        QTest::newRow("0") << QVariant(0);
        QTest::newRow("5") << QVariant(5);
        QTest::newRow("-1") << QVariant(-1);
        QTest::newRow("text") << QVariant(QStringLiteral("group"));
    }

    void rowOfAnotherKindStaysUnpainted()
    {
        QFETCH(QVariant, type);
        CPaintedRow row(type, ProcessorId(QStringLiteral("alpha")));
        row.SetState(QStyle::State_Selected);
        QCOMPARE(row.Paint(), row.Blank());
    }

    void invalidIndexPaintsNothing()
    {
        QImage image(100, 32, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::black);
        const QImage blank = image;
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = image.rect();
        option.state = QStyle::State_Selected;
        CProcessorTreeDelegate(nullptr).paint(&painter, option, QModelIndex());
        painter.end();
        QCOMPARE(image, blank);
    }

    void painterIsGivenBackAsItCame_data()
    {
        QTest::addColumn<int>("nType");
        QTest::addColumn<QUuid>("id");
        QTest::newRow("root") << int(NodeAll) << QUuid();
        QTest::newRow("group") << int(NodeGroup) << GroupId(QStringLiteral("Stage"));
        QTest::newRow("processor") << int(NodeProcessor) << ProcessorId(QStringLiteral("alpha"));
        QTest::newRow("information") << int(NodeInfo) << ProcessorId(QStringLiteral("alpha"));
        QTest::newRow("unknown processor") << int(NodeProcessor) << ProcessorId(QStringLiteral("gone"));
        QTest::newRow("unknown group") << int(NodeGroup) << GroupId(QStringLiteral("gone"));
    }

    void painterIsGivenBackAsItCame()
    {
        QFETCH(int, nType);
        QFETCH(QUuid, id);
        const CPaintedRow row(nType, id);
        QImage image = row.Blank();
        QPainter painter(&image);
        painter.setPen(Qt::magenta);
        painter.setBrush(Qt::cyan);
        const QFont font = painter.font();
        CProcessorTreeDelegate(nullptr).paint(&painter, row.Option(), row.Index());
        QCOMPARE(painter.pen(), QPen(Qt::magenta));
        QCOMPARE(painter.brush(), QBrush(Qt::cyan));
        QCOMPARE(painter.font(), font);
        QVERIFY(!painter.hasClipping());
    }

    void rowsComeToRestAfterTheirFirstPaint()
    {
        CRowView view;
        QTRY_VERIFY(view.Delegate().Paints() > 0);
        Spin();
        const int nPaints = view.Delegate().Paints();
        Spin();
        QCOMPARE(view.Delegate().Paints(), nPaints);
    }

    void repaintOfAnUnchangedRowAsksForNoFurther()
    {
        CRowView view;
        Spin();
        view.Delegate().Clear();
        view.viewport()->update();
        Spin();
        for (const char* pName : { "alpha", "gamma" }) {
            const QUuid id = ProcessorId(QLatin1String(pName));
            QCOMPARE(view.Delegate().Paints(view.Row(NodeProcessor, id)), 1);
            QCOMPARE(view.Delegate().Paints(view.Row(NodeInfo, id)), 1);
        }
        QCOMPARE(view.Delegate().Paints(view.Row(NodeProcessor, ProcessorId(strLongName))), 1);
        QCOMPARE(view.Delegate().Paints(view.Row(NodeAll, QUuid())), 1);
    }

    void changedMarksCostOneFurtherPaint()
    {
        CRowView view;
        Spin();
        view.Delegate().Clear();
        store.SetChiefMode(false);
        view.viewport()->update();
        Spin();
        QCOMPARE(view.Delegate().Paints(view.Row(NodeProcessor, ProcessorId(QStringLiteral("alpha")))), 2);
        QCOMPARE(view.Delegate().Paints(view.Row(NodeProcessor, ProcessorId(QStringLiteral("gamma")))), 1);
    }

    void paintingNeverCallsTheControlLibrary()
    {
        CRowView view;
        Spin();
        store.control.ClearJournal();
        view.viewport()->update();
        Spin();
        QCOMPARE(store.control.Calls(), QStringList());
    }

    void styleSheetPaintsBelowAllRowsButTheInformation()
    {
        CRowView view;
        view.setStyleSheet(QStringLiteral("QTreeView { outline: none; } QTreeView::item { background: #335577; }"));
        Spin();
        const QImage image = view.viewport()->grab().toImage();
        const auto colour = [&](int nType, const QUuid& id) {
            const QRect rcRow = view.visualRect(view.Row(nType, id));
            return image.pixelColor(rcRow.right() - 3, rcRow.top() + 3);
        };
        const QUuid idAlpha = ProcessorId(QStringLiteral("alpha"));
        QCOMPARE(colour(NodeAll, QUuid()), QColor(0x33, 0x55, 0x77));
        QCOMPARE(colour(NodeGroup, GroupId(QStringLiteral("Stage"))), QColor(0x33, 0x55, 0x77));
        QCOMPARE(colour(NodeProcessor, idAlpha), QColor(0x33, 0x55, 0x77));
        QVERIFY(colour(NodeInfo, idAlpha) != QColor(0x33, 0x55, 0x77));
    }

private:
    CStoreFixture store;
};

PTV_TEST_MAIN(CRowPaintingTest)
#include "tst_rowpainting.moc"
