#include "Builders.h"
#include "TestMain.h"
#include "journal/recording/CJournalMask.h"
#include "journal/recording/CTreeReading.h"
#include "journal/recording/NodeJson.h"
#include "journal/recording/TreeChange.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <functional>
#include <random>

Q_DECLARE_METATYPE(std::function<void(SProcessorAllNode&)>)

namespace {

SProcessorAllNode Site()
{
    return Root({ Group("Stage", { Processor("alpha").Online(), Processor("beta") }), Group("Hall", { Processor("gamma") }) },
                { Processor("loose").Ip("10.0.0.7").Type(12, "KX-4") });
}

QByteArray Text(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QByteArray Text(const SProcessorAllNode& node)
{
    CJournalMask mask(false);
    return Text(NodeJson::GetWhole(node, mask));
}

/// One that changes at random, as no good library does: ids come twice, groups lose everything.
class CRandomTree
{
public:
    explicit CRandomTree(quint32 nSeed) : random(nSeed) { }

    void Change(SProcessorAllNode& node)
    {
        switch (Choose(7)) {
        case 0:
            node.bExpanded = !node.bExpanded;
            return ChangeList(node.listGroup);
        case 1:
            return ChangeList(node.listProcessor);
        case 2:
            node.listGroup.clear();
            return;
        default:
            return ChangeList(node.listGroup);
        }
    }

private:
    int Choose(int nCount)
    {
        return static_cast<int>(random() % static_cast<unsigned>(nCount));
    }

    template <typename Node> void ChangeList(QList<Node>& list)
    {
        const int nChoice = Choose(4);
        if (list.isEmpty() || nChoice == 0) {
            Node node;
            ChangeNode(node);
            list.insert(Choose(list.size() + 1), node);
        } else if (nChoice == 1) {
            list.removeAt(Choose(list.size()));
        } else if (nChoice == 2) {
            list.swapItemsAt(Choose(list.size()), Choose(list.size()));
        } else {
            ChangeNode(list[Choose(list.size())]);
        }
    }

    void ChangeNode(SProcessorNode& node)
    {
        node.bExpanded = Choose(2) == 0;
        node.idAux = QUuid(static_cast<uint>(Choose(5)), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
        node.nModel = Choose(20);
        node.strType = QString(Choose(3), 't');
        node.nPortB = random();
        node.nNodeType = 3 + Choose(2);
        node.strName = QString::number(Choose(20));
        node.idNode = QUuid(static_cast<uint>(Choose(5)), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
        node.nIP = random();
        node.nPortA = random();
        node.bOnline = Choose(2) == 0;
        node.nFailover = Choose(3);
        node.strProject = QString(Choose(3), 'p');
        node.nChief = Choose(2);
    }

    void ChangeNode(SProcessorGroupNode& node)
    {
        node.strName = QString::number(Choose(20));
        node.idNode = QUuid(static_cast<uint>(Choose(5)), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
        node.bExpanded = Choose(2) == 0;
        node.setAux = { Choose(4), Choose(4) };
        node.idChief = QUuid(static_cast<uint>(Choose(3)), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
        ChangeList(node.listProcessor);
    }

    std::mt19937 random;
};

} // namespace

/// A tree as the difference to its last reading, and back.
class CTreeChangeTest : public QObject
{
    Q_OBJECT

private slots:
    void theFirstReadingIsWholeAndAnEqualOneSaysSo()
    {
        CJournalMask mask(false);
        CTreeReading reading;
        QCOMPARE(reading.Take(Site(), mask).keys(), QStringList{ "whole" });
        QCOMPARE(Text(reading.Take(Site(), mask)), QByteArray(R"({"same":true})"));
        reading.Forget();
        QCOMPARE(reading.Take(Site(), mask).keys(), QStringList{ "whole" });
    }

    void aSharedTreeIsNotCompared()
    {
        CJournalMask mask(false);
        CTreeReading reading;
        SProcessorAllNode node = Site();
        reading.Take(node, mask);

        QCOMPARE(Text(reading.Take(node, mask)), QByteArray(R"({"same":true})"));
        QCOMPARE(reading.GetComparisons(), quint64(0));

        reading.Take(Site(), mask);
        QVERIFY(reading.GetComparisons() > 0);
    }

    void onlyTheGroupThatWasTouchedIsLookedInto()
    {
        CJournalMask mask(false);
        CTreeReading reading;
        SProcessorAllNode node = Site();
        reading.Take(node, mask);
        node.listGroup[1].listProcessor[0].bOnline = true;

        const QJsonObject change = reading.Take(node, mask);

        QCOMPARE(Text(change), QByteArray(R"({"change":{"groups":{"set":[[1,{"processors":{"set":[[0,{"online":true}]]}}]]}}})"));
        // Both groups; the processor when its group is found to differ and when it is written. The members of the other
        // group are shared.
        QCOMPARE(reading.GetComparisons(), quint64(4));
    }

    void whatIsAddedOrGoneIsASplice()
    {
        CJournalMask mask(false);
        CTreeReading reading;
        SProcessorAllNode node = Site();
        reading.Take(node, mask);
        node.listGroup.removeAt(0);

        const QJsonObject change = reading.Take(node, mask);

        QCOMPARE(Text(change), QByteArray(R"({"change":{"groups":{"at":0,"insert":[],"remove":1}}})"));
    }

    void everyFieldComesBack()
    {
        SProcessorAllNode node = Site();
        node.listGroup[0].setAux = { 3, 1 };
        node.listGroup[0].idChief = QUuid::createUuid();
        SProcessorNode& processor = node.listProcessor[0];
        processor.idAux = QUuid::createUuid();
        processor.nPortB = 4294967295U;
        processor.strProject = "Aurora";
        processor.nFailover = 2;
        processor.nChief = 1;
        CJournalMask mask(false);

        SProcessorAllNode nodeRead;
        NodeJson::Read(NodeJson::GetWhole(node, mask), nodeRead);

        QVERIFY(nodeRead.listGroup == node.listGroup);
        QVERIFY(nodeRead.listProcessor == node.listProcessor);
    }

    void eachFieldAloneIsAChangeThatComesBack_data()
    {
        using FnChange = std::function<void(SProcessorAllNode&)>;
        QTest::addColumn<FnChange>("fnChange");
        const QUuid id = QUuid::createUuid();
        const auto addProcessor = [](const char* szName, const std::function<void(SProcessorNode&)>& fnChange) {
            QTest::newRow(szName) << FnChange([=](SProcessorAllNode& node) { fnChange(node.listGroup[0].listProcessor[1]); });
        };
        addProcessor("expanded", [](SProcessorNode& node) { node.bExpanded = !node.bExpanded; });
        addProcessor("name", [](SProcessorNode& node) { node.strName += 'x'; });
        addProcessor("type of node", [](SProcessorNode& node) { ++node.nNodeType; });
        addProcessor("id", [id](SProcessorNode& node) { node.idNode = id; });
        addProcessor("aux", [id](SProcessorNode& node) { node.idAux = id; });
        addProcessor("model", [](SProcessorNode& node) { ++node.nModel; });
        addProcessor("type", [](SProcessorNode& node) { node.strType += 'x'; });
        addProcessor("address", [](SProcessorNode& node) { ++node.nIP; });
        addProcessor("port A", [](SProcessorNode& node) { ++node.nPortA; });
        addProcessor("port B", [](SProcessorNode& node) { ++node.nPortB; });
        addProcessor("online", [](SProcessorNode& node) { node.bOnline = !node.bOnline; });
        addProcessor("role", [](SProcessorNode& node) { ++node.nFailover; });
        addProcessor("project", [](SProcessorNode& node) { node.strProject += 'x'; });
        addProcessor("chief", [](SProcessorNode& node) { ++node.nChief; });
        QTest::newRow("chief of a group") << FnChange([id](SProcessorAllNode& node) { node.listGroup[1].idChief = id; });
        QTest::newRow("aux of a group") << FnChange([](SProcessorAllNode& node) { node.listGroup[1].setAux.insert(7); });
        QTest::newRow("name of the root") << FnChange([](SProcessorAllNode& node) { node.strName += 'x'; });
        QTest::newRow("root expanded") << FnChange([](SProcessorAllNode& node) { node.bExpanded = !node.bExpanded; });
    }

    void eachFieldAloneIsAChangeThatComesBack()
    {
        QFETCH(std::function<void(SProcessorAllNode&)>, fnChange);
        CJournalMask mask(false);
        CTreeReading reading;
        SProcessorAllNode node = Site();
        SProcessorAllNode nodePlayed;
        TreeChange::Apply(reading.Take(node, mask), nodePlayed);
        const QByteArray before = Text(node);

        fnChange(node);
        const QJsonObject taken = reading.Take(node, mask);
        TreeChange::Apply(taken, nodePlayed);

        QVERIFY(Text(node) != before);
        QCOMPARE(taken.keys(), QStringList{ "change" });
        QCOMPARE(Text(nodePlayed), Text(node));
    }

    void anySeriesOfReadingsComesBack()
    {
        for (quint32 nSeed = 1; nSeed <= 200; ++nSeed) {
            CRandomTree random(nSeed);
            CJournalMask mask(false);
            CTreeReading reading;
            SProcessorAllNode node = Site();
            SProcessorAllNode nodePlayed;
            for (int n = 0; n < 30; ++n) {
                TreeChange::Apply(reading.Take(node, mask), nodePlayed);
                QVERIFY2(Text(nodePlayed) == Text(node), qPrintable(QString("seed %1, step %2").arg(nSeed).arg(n)));
                random.Change(node);
            }
        }
    }

    void aChangeThatFitsNothingDoesNoHarm()
    {
        const QByteArray text
            = R"({"change":{"groups":{"set":[[7,{"name":"x"}],[-1,{}],3],"at":9,"remove":9,"insert":[{}]},"processors":{"at":-3,"remove":2}}})";
        SProcessorAllNode node = Site();
        TreeChange::Apply(QJsonDocument::fromJson(text).object(), node);
        QCOMPARE(node.listGroup.size(), 3);
    }
};

PTV_TEST_MAIN_CORE(CTreeChangeTest)
#include "tst_treechange.moc"
