#include "TestMain.h"
#include "model/SPrcNodeItem.h"

#include <QVariant>

#include <new>

namespace {

// A full item in memory that held something else before, so that its padding holds it still.
class CItemIn
{
public:
    explicit CItemIn(uchar nFill)
    {
        std::fill(std::begin(arrByte), std::end(arrByte), nFill);
        pItem = new (arrByte) SPrcNodeItem;
        pItem->rcFailover = QRectF(1, 2, 14, 14);
        pItem->rcChief = QRectF(3, 4, 14, 14);
        pItem->bPrimary = true;
    }

    SPrcNodeItem& Item()
    {
        return *pItem;
    }

private:
    alignas(SPrcNodeItem) uchar arrByte[sizeof(SPrcNodeItem)];
    SPrcNodeItem* pItem;
};

QVariant Variant(const SPrcNodeItem& item)
{
    return QVariant(qMetaTypeId<SPrcNodeItem>(), &item);
}

} // namespace

class CPrcNodeItemTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        RegisterPrcNodeItem();
    }

    void isKnownByItsName()
    {
        QCOMPARE(QMetaType::type("SPrcNodeItem"), qMetaTypeId<SPrcNodeItem>());
        QVERIFY(QMetaType::hasRegisteredComparators<SPrcNodeItem>());
    }

    void registersAgainWithoutAWarning()
    {
        RegisterPrcNodeItem();
        QVERIFY(QMetaType::hasRegisteredComparators<SPrcNodeItem>());
    }

    void startsEmpty()
    {
        const SPrcNodeItem item;
        QCOMPARE(item.rcFailover, QRectF());
        QCOMPARE(item.rcChief, QRectF());
        QVERIFY(!item.bPrimary && !item.bBackup && !item.bChief);
    }

    void equalFieldsAreEqualWhateverThePadding()
    {
        CItemIn zeros(0x00);
        CItemIn ones(0xFF);
        QVERIFY(zeros.Item() == ones.Item());
        QVERIFY(!(zeros.Item() != ones.Item()));
        QVERIFY(Variant(zeros.Item()) == Variant(ones.Item()));
    }

    void eachFieldCounts_data()
    {
        QTest::addColumn<SPrcNodeItem>("item");
        SPrcNodeItem item;
        item.rcFailover = QRectF(0, 0, 1, 0);
        QTest::newRow("failover slot") << item;
        item = SPrcNodeItem();
        item.rcChief = QRectF(0, 0, 0, 1);
        QTest::newRow("Chief mark") << item;
        item = SPrcNodeItem();
        item.bPrimary = true;
        QTest::newRow("Primary") << item;
        item = SPrcNodeItem();
        item.bBackup = true;
        QTest::newRow("Backup") << item;
        item = SPrcNodeItem();
        item.bChief = true;
        QTest::newRow("Chief") << item;
    }

    void eachFieldCounts()
    {
        QFETCH(SPrcNodeItem, item);
        QVERIFY(item != SPrcNodeItem());
        QVERIFY(!(item == SPrcNodeItem()));
        QVERIFY(Variant(item) != Variant(SPrcNodeItem()));
    }
};

PTV_TEST_MAIN_CORE(CPrcNodeItemTest)
#include "tst_prcnodeitem.moc"
