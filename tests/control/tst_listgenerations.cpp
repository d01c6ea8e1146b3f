#include "Builders.h"
#include "CControlFixture.h"
#include "CHandClock.h"
#include "CNameRegistry.h"
#include "CorvidControl/file/CGenerations.h"
#include "CorvidControl/file/COwnList.h"
#include "CorvidControl/file/ListFormat.h"
#include "TestMain.h"
#include "nodes/EnNodeType.h"

using namespace std::chrono_literals;

namespace {

constexpr char szEarlier[] = "list.2*.kvtl";

SListEdition BuildEdition(int nEdit)
{
    return { Root({ Group(QStringLiteral("Edit %1").arg(nEdit)) }), static_cast<quint64>(nEdit) };
}

} // namespace

/// Earlier lists beside the list.
class CListGenerationsTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
        pClock.reset(new CHandClock);
    }

    void cleanup()
    {
        pFixture.reset();
    }

    void workLeavesAListEveryFiveMinutes()
    {
        COwnList own(pFixture->GetPath(), {}, *pClock);
        own.Load();
        for (int nEdit = 1; nEdit <= 11; ++nEdit) { // one a minute; the first finds no list to keep
            QCOMPARE(own.Save(BuildEdition(nEdit)).strReason, QString());
            pClock->Turn(1min);
        }
        QCOMPARE(ListEarlier().size(), 2);
        QCOMPARE(ReadNames(ListEarlier().value(0)), QStringList{ "Edit 1" });
        QCOMPARE(ReadNames(ListEarlier().value(1)), QStringList{ "Edit 6" });
        QCOMPARE(ListEarlier().value(0), QString("list.2024-05-01_12-01-01.kvtl"));
    }

    void aNewRunCountsFromTheListsThatAreThere()
    {
        for (int nEdit = 1; nEdit <= 6; ++nEdit) { // a run a minute
            COwnList own(pFixture->GetPath(), {}, *pClock);
            own.Load();
            QCOMPARE(own.Save(BuildEdition(nEdit)).strReason, QString());
            pClock->Turn(1min);
            QCOMPARE(ListEarlier().size(), nEdit > 1 ? 1 : 0);
        }
        COwnList own(pFixture->GetPath(), {}, *pClock);
        own.Load();
        own.Save(BuildEdition(7));
        QCOMPARE(ListEarlier().size(), 2);
    }

    void aSaveOfWhatDevicesSaidLeavesNone()
    {
        pFixture->Start(Root({}, { Processor("alpha") }));
        COwnList own(pFixture->GetPath("other.kvtl"), {}, *pClock);
        own.Load();
        own.Save(BuildEdition(1));
        pClock->Turn(1h);
        own.Save({ BuildEdition(2).node, 1 });
        QCOMPARE(pFixture->ListFiles({ "other.*.kvtl" }), QStringList());
        QCOMPARE(ReadNames("other.kvtl"), QStringList{ "Edit 2" });
    }

    void theLastTenAndTheFirstOfTenDaysStay()
    {
        CGenerations generations(*pClock);
        for (int nDay = 1; nDay <= 12; ++nDay) {
            for (int n = 1; n <= 4; ++n) {
                Keep(generations, QStringLiteral("%1.%2").arg(nDay).arg(n).toUtf8());
                pClock->Turn(1h);
            }
            pClock->Turn(20h);
        }
        QStringList listKept;
        for (const QString& strName : ListEarlier()) {
            listKept.append(QString::fromUtf8(pFixture->Read(strName)));
        }
        QCOMPARE(listKept.join(' '),
                 QString("3.1 4.1 5.1 6.1 7.1 8.1 9.1 10.1 10.3 10.4 11.1 11.2 11.3 11.4 12.1 12.2 12.3 12.4"));
    }

    void twoOfOneSecondHaveTheirOwnNames()
    {
        CGenerations generations(*pClock);
        for (int n = 1; n <= 14; ++n) {
            Keep(generations, QByteArray::number(n));
        }
        QCOMPARE(ListEarlier().size(), 11); // the first of the day and the last ten
        QCOMPARE(pFixture->Read("list.2024-05-01_12-00-01.kvtl"), QByteArray("1"));
        for (int n = 5; n <= 14; ++n) {
            QCOMPARE(pFixture->Read(QStringLiteral("list.2024-05-01_12-00-01-%1.kvtl").arg(n)), QByteArray::number(n));
        }
    }

    void theSameListIsKeptOnce()
    {
        CGenerations generations(*pClock);
        Keep(generations, "list");
        pClock->Turn(1h);
        Keep(generations, "list");
        QCOMPARE(ListEarlier().size(), 1);
    }

    void aDateThatIsSetBackCostsNoNewList()
    {
        CGenerations generations(*pClock);
        pClock->SetDateBy(24h * 365);
        for (int n = 1; n <= 12; ++n) {
            Keep(generations, QByteArray("from the future ") + QByteArray::number(n));
            pClock->Turn(1min);
        }
        pClock->SetDateBy(-24h * 365);
        for (int n = 1; n <= 3; ++n) {
            Keep(generations, QByteArray("now ") + QByteArray::number(n));
            pClock->Turn(1min);
        }
        QStringList listNow;
        for (const QString& strName : pFixture->ListFiles({ "list.2024-*.kvtl" })) {
            listNow.append(QString::fromUtf8(pFixture->Read(strName)));
        }
        QCOMPARE(listNow, (QStringList{ "now 1", "now 2", "now 3" }));
        QCOMPARE(ListEarlier().size(), 11);
    }

    void whatIsNoGenerationIsLeftAlone()
    {
        const QStringList listOther{ "list.2001-01-01.kvtl",           "list.2001-01-01_00-00-00.kvtl.abcdef",
                                     "list.2001-13-01_00-00-00.kvtl",  "list.unsaved-2001-01-01_00-00-00.kvtl",
                                     "lists.2001-01-01_00-00-00.kvtl", "list.kvtl.backup" };
        for (const QString& strName : listOther) {
            pFixture->Write(strName, "mine");
        }
        CGenerations generations(*pClock);
        for (int n = 1; n <= 30; ++n) {
            Keep(generations, QByteArray::number(n));
        }
        for (const QString& strName : listOther) {
            QCOMPARE(pFixture->Read(strName), QByteArray("mine"));
        }
    }

    void anImportKeepsTheListBefore()
    {
        pFixture->Start(Root({ Group("Stage") }));
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Hall") })));
        g_pPrcListControl->RenameGroup(GroupId("Stage"), "Not saved yet");
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
        QCOMPARE(ListEarlier().size(), 1);
        QCOMPARE(ReadNames(ListEarlier().value(0)), QStringList{ "Not saved yet" });
        QCOMPARE(ReadNames("list.kvtl"), QStringList{ "Hall" });
    }

    void anImportThatCannotKeepTheListIsNotDone()
    {
        COwnList own(pFixture->GetPath(), {}, *pClock);
        own.Load();
        QCOMPARE(own.Save(BuildEdition(1)).result, SListSave::Saved);
        const QString strLong(235, 'x'); // with a date the name is too long
        COwnList longNamed(pFixture->GetPath(strLong), {}, *pClock);
        longNamed.Load();
        QCOMPARE(longNamed.Overwrite(BuildEdition(1), ListFormat::Write(BuildEdition(2).node)).result, SListSave::NotKept);
        QVERIFY(!QFile::exists(pFixture->GetPath(strLong)));
    }

    void anImportOverAnEmptyListKeepsNothing()
    {
        pFixture->Start();
        pFixture->Write("other.kvtl", ListFormat::Write(Root({ Group("Hall") })));
        QCOMPARE(g_pPrcListControl->ImportList(pFixture->GetPath("other.kvtl")), 0);
        QCOMPARE(ListEarlier(), QStringList());
    }

    void aDeletionOfMoreThanOneKeepsTheListBefore_data()
    {
        QTest::addColumn<QVector<QUuid>>("vecId");
        QTest::newRow("two processors") << QVector<QUuid>{ ProcessorId("alpha"), ProcessorId("beta") };
        QTest::newRow("three processors") << QVector<QUuid>{ ProcessorId("alpha"), ProcessorId("beta"), ProcessorId("gamma") };
        QTest::newRow("a group with a member") << QVector<QUuid>{ GroupId("Stage") };
        QTest::newRow("a group and its member") << QVector<QUuid>{ GroupId("Stage"), ProcessorId("delta") };
        QTest::newRow("a processor and an empty group") << QVector<QUuid>{ ProcessorId("alpha"), GroupId("Hall") };
        QTest::newRow("one that is gone and two")
            << QVector<QUuid>{ ProcessorId("nobody"), ProcessorId("alpha"), GroupId("Hall") };
    }

    void aDeletionOfMoreThanOneKeepsTheListBefore()
    {
        QFETCH(QVector<QUuid>, vecId);
        pFixture->Start(Root({ Group("Stage", { Processor("delta") }), Group("Hall") },
                             { Processor("alpha"), Processor("beta"), Processor("gamma") }));
        DeleteAsThePanel(vecId);
        QCOMPARE(ListEarlier().size(), 1);
        QCOMPARE(ReadNames(ListEarlier().value(0)), (QStringList{ "Stage", "Hall", "alpha", "beta", "gamma" }));
        QVERIFY(CControlFixture::GetText().size() < QString("all*\n  Stage\n    delta\n  Hall\n  alpha\n  beta\n  gamma").size());
    }

    void aDeletionOfOneKeepsNothing_data()
    {
        QTest::addColumn<QVector<QUuid>>("vecId");
        QTest::newRow("a processor") << QVector<QUuid>{ ProcessorId("alpha") };
        QTest::newRow("an empty group") << QVector<QUuid>{ GroupId("Hall") };
        QTest::newRow("one that is gone and one") << QVector<QUuid>{ ProcessorId("nobody"), ProcessorId("alpha") };
        QTest::newRow("one twice") << QVector<QUuid>{ ProcessorId("alpha"), ProcessorId("alpha") };
    }

    void aDeletionOfOneKeepsNothing()
    {
        QFETCH(QVector<QUuid>, vecId);
        pFixture->Start(
            Root({ Group("Stage", { Processor("delta") }), Group("Hall") }, { Processor("alpha"), Processor("beta") }));
        DeleteAsThePanel(vecId);
        DeleteAsThePanel({ ProcessorId("beta") }); // another job
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), false);
        QCOMPARE(ListEarlier(), QStringList());
    }

    void aDeletionThatIsRefusedKeepsNothing()
    {
        pFixture->Start(
            Root({ Group("Stage", { Processor("delta").Online().Project("Aurora") }), Group("Hall") }, { Processor("alpha") }));
        pFixture->pHost->OpenProject("Aurora");
        DeleteAsThePanel({ GroupId("Stage"), ProcessorId("alpha") });
        pFixture->pHost->SetListLocked(true);
        DeleteAsThePanel({ GroupId("Stage"), ProcessorId("delta") });
        g_pRuntimeControl->SetBusy(true);
        g_pPrcListControl->DeleteGroup(GroupId("Stage"), false);
        g_pPrcListControl->DeleteGroup(GroupId("Hall"), false);
        g_pRuntimeControl->SetBusy(false);
        QCOMPARE(ListEarlier(), QStringList());
    }

    void whereTheListIsNotSavedADeletionStartsANewDatedFile()
    {
        pFixture->Write("list.kvtl", "hello\n");
        ExpectWarning("The list was not read");
        pFixture->StartAsIs();
        for (const char* szName : { "Stage", "Hall", "Foyer" }) {
            g_pPrcListControl->AddGroup(Group(szName), true);
        }
        DeleteAsThePanel({ GroupId("Stage"), GroupId("Hall") });
        ExpectWarning("The list is not being saved");
        QVERIFY(!pFixture->pHost->SaveList().isEmpty());
        const QStringList listAside = pFixture->ListFiles({ "list.unsaved-*.kvtl" });
        QCOMPARE(listAside.size(), 2);
        QStringList listNames{ ReadNames(listAside.value(0)).join(' '), ReadNames(listAside.value(1)).join(' ') };
        listNames.sort();
        QCOMPARE(listNames, (QStringList{ "Foyer", "Stage Hall Foyer" }));
        QCOMPARE(ListEarlier(), QStringList());
    }

private:
    QStringList ListEarlier() const
    {
        return pFixture->ListFiles({ szEarlier });
    }
    QStringList ReadNames(const QString& strFile) const
    {
        QStringList listName;
        const SProcessorAllNode node = ListFormat::Read(pFixture->Read(strFile), {}).node;
        for (const SProcessorGroupNode& group : node.listGroup) {
            listName.append(group.strName);
        }
        for (const SProcessorNode& processor : node.listProcessor) {
            listName.append(processor.strName);
        }
        return listName;
    }
    void Keep(CGenerations& generations, const QByteArray& bytes)
    {
        QCOMPARE(generations.Keep(pFixture->GetPath(), bytes), QString());
        QCOMPARE(generations.Prune(pFixture->GetPath()), QStringList());
    }
    static void DeleteAsThePanel(const QVector<QUuid>& vecId)
    {
        g_pRuntimeControl->SetBusy(true);
        for (const QUuid& id : vecId) {
            if (g_pPrcListControl->GetNodeType(id) == NodeGroup) {
                g_pPrcListControl->DeleteGroup(id, true);
            } else {
                g_pPrcListControl->DeleteProcessor(id, false);
            }
        }
        g_pRuntimeControl->SetBusy(false);
    }

    QScopedPointer<CControlFixture> pFixture;
    QScopedPointer<CHandClock> pClock;
};

PTV_TEST_MAIN_CORE(CListGenerationsTest)
#include "tst_listgenerations.moc"
