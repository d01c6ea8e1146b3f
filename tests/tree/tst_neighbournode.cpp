#include "CNameRegistry.h"
#include "TestMain.h"
#include "model/EnItemRole.h"
#include "nodes/EnNodeType.h"
#include "tree/NeighbourNode.h"

#include <QStandardItemModel>
#include <QTreeView>

namespace {

QStandardItem* Item(int nType, const QString& strName)
{
    auto* const pItem = new QStandardItem(strName);
    pItem->setData(nType, RoleNodeType);
    return pItem;
}

QStandardItem* ProcessorItem(const QString& strName)
{
    QStandardItem* const pItem = Item(NodeProcessor, strName);
    pItem->appendRow(Item(NodeInfo, "info " + strName));
    return pItem;
}

/// all: open group A (a1, a2), folded group B (b1), empty group C, processors p (open) and q.
class CRows
{
public:
    CRows()
    {
        auto* const pRoot = Item(NodeAll, "all");
        auto* const pA = Item(NodeGroup, "A");
        pA->appendRow(ProcessorItem("a1"));
        pA->appendRow(ProcessorItem("a2"));
        auto* const pB = Item(NodeGroup, "B");
        pB->appendRow(ProcessorItem("b1"));
        for (QStandardItem* pItem : { pA, pB, Item(NodeGroup, "C"), ProcessorItem("p"), ProcessorItem("q") }) {
            pRoot->appendRow(pItem);
        }
        model.appendRow(pRoot);
        view.setModel(&model);
        view.setSelectionMode(QAbstractItemView::MultiSelection);
        for (const char* szName : { "all", "A", "p" }) {
            view.expand(Find(szName));
        }
    }

    QModelIndex Find(const QString& strName) const
    {
        const auto list = model.findItems(strName, Qt::MatchExactly | Qt::MatchRecursive);
        return list.isEmpty() ? QModelIndex() : list.first()->index();
    }

    QStandardItemModel model;
    QTreeView view;
};

} // namespace

class CNeighbourNodeTest : public QObject
{
    Q_OBJECT

private slots:
    void aboveAndBelowAreTheNeighboursOnTheScreen_data()
    {
        QTest::addColumn<QString>("strRow");
        QTest::addColumn<QString>("strAbove");
        QTest::addColumn<QString>("strBelow");
        QTest::newRow("first group") << "A"
                                     << "all"
                                     << "a1";
        QTest::newRow("first member") << "a1"
                                      << "A"
                                      << "a2";
        QTest::newRow("folded group below") << "B"
                                            << "a2"
                                            << "C";
        QTest::newRow("empty group") << "C"
                                     << "B"
                                     << "p";
        QTest::newRow("open processor") << "p"
                                        << "C"
                                        << "q";
        QTest::newRow("last one wraps to the root") << "q"
                                                    << "p"
                                                    << "all";
    }
    void aboveAndBelowAreTheNeighboursOnTheScreen()
    {
        QFETCH(QString, strRow);
        QFETCH(QString, strAbove);
        QFETCH(QString, strBelow);
        const CRows rows;
        QCOMPARE(NeighbourNode::Above(rows.view, rows.Find(strRow)).data().toString(), strAbove);
        QCOMPARE(NeighbourNode::Below(rows.view, rows.Find("all"), rows.Find(strRow)).data().toString(), strBelow);
    }

    void theWalkUpFromAMemberStaysInItsGroup_data()
    {
        QTest::addColumn<QString>("strRow");
        QTest::addColumn<QString>("strAbove");
        QTest::newRow("first") << "a1"
                               << "A";
        QTest::newRow("second") << "a2"
                                << "a1";
        QTest::newRow("information row") << "info p"
                                         << "p";
    }
    void theWalkUpFromAMemberStaysInItsGroup()
    {
        QFETCH(QString, strRow);
        QFETCH(QString, strAbove);
        const CRows rows;
        QCOMPARE(NeighbourNode::Above(rows.view, rows.Find(strRow)).data().toString(), strAbove);
    }

    void belowTheRootIsItsFirstRow()
    {
        const CRows rows;
        QCOMPARE(NeighbourNode::Below(rows.view, rows.Find("all"), rows.Find("all")).data().toString(), QStringLiteral("A"));
    }

    void aRowThatIsNotWalkedOverLeadsToTheFirstRow()
    {
        const CRows rows;
        QCOMPARE(NeighbourNode::Below(rows.view, rows.Find("all"), rows.Find("b1")).data().toString(), QStringLiteral("A"));
        QCOMPARE(NeighbourNode::Below(rows.view, rows.Find("all"), rows.Find("info p")).data().toString(), QStringLiteral("A"));
    }

    void rowsThatAreHiddenAreNotSteppedOver()
    {
        CRows rows;
        rows.view.setRowHidden(rows.Find("a2").row(), rows.Find("A"), true);
        QCOMPARE(NeighbourNode::Below(rows.view, rows.Find("all"), rows.Find("a1")).data().toString(), QStringLiteral("a2"));
    }

    void anEmptyPaneLeadsBackToItsRoot()
    {
        CRows rows;
        rows.model.item(0)->removeRows(0, 5);
        QCOMPARE(NeighbourNode::Below(rows.view, rows.Find("all"), rows.Find("all")), rows.Find("all"));
        QCOMPARE(NeighbourNode::AboveSelection(rows.view, rows.Find("all")), rows.Find("all"));
    }

    void theNodeAboveTheSelection_data()
    {
        QTest::addColumn<QStringList>("listSelected");
        QTest::addColumn<QString>("strAbove");
        QTest::newRow("nothing") << QStringList() << "q";
        QTest::newRow("first row") << QStringList{ "A" } << "all";
        QTest::newRow("first member") << QStringList{ "a1" } << "A";
        QTest::newRow("member of a folded group") << QStringList{ "b1" } << "q";
        QTest::newRow("behind a folded group") << QStringList{ "C" } << "B";
        QTest::newRow("two: the upper one") << QStringList{ "q", "a2" } << "a1";
        QTest::newRow("information row") << QStringList{ "info p" } << "q";
    }
    void theNodeAboveTheSelection()
    {
        QFETCH(QStringList, listSelected);
        QFETCH(QString, strAbove);
        CRows rows;
        for (const QString& strName : std::as_const(listSelected)) {
            rows.view.selectionModel()->select(rows.Find(strName), QItemSelectionModel::Select);
        }
        QCOMPARE(NeighbourNode::AboveSelection(rows.view, rows.Find("all")).data().toString(), strAbove);
    }
};

PTV_TEST_MAIN(CNeighbourNodeTest)
#include "tst_neighbournode.moc"
