#include "Builders.h"
#include "CControlFixture.h"
#include "CNameRegistry.h"
#include "TestMain.h"

#include <QJsonObject>

namespace {

constexpr int nDay = 24 * 60 * 60; // seconds

SProcessorAllNode Site()
{
    QList<SProcessorGroupNode> listGroup;
    for (const char* szGroup : { "Stage", "Hall", "Foyer", "Yard" }) {
        const QString strGroup = szGroup;
        listGroup.append(Group(strGroup, { Processor(strGroup + " 1"), Processor(strGroup + " 2") }));
    }
    return Root(listGroup, {});
}

} // namespace

/// Lists and files of a library whose clock is set back by a scenario.
class CClockBackTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pFixture.reset(new CControlFixture);
        pFixture->Start(Site());
    }

    void cleanup()
    {
        pFixture.reset();
    }

    void theNewestListIsTheNewestAndNoneIsLost()
    {
        Delete("Stage");
        SetBack(nDay);
        Delete("Hall");
        SetBack(nDay);
        Delete("Foyer");

        const QList<SEarlierList> listEarlier = pFixture->pHost->GetEarlierLists();
        QCOMPARE(listEarlier.size(), 3);
        QCOMPARE(listEarlier.first().nGroups, 2); // as it was before the last deletion
        QSet<int> setGroups;
        for (const SEarlierList& earlier : listEarlier) {
            QCOMPARE(earlier.strFault, QString());
            QCOMPARE(earlier.nProcessors, earlier.nGroups * 2);
            setGroups.insert(earlier.nGroups);
        }
        QCOMPARE(setGroups, (QSet<int>{ 2, 3, 4 }));
    }

    void filesAreDatedByTheClockThatWasSetBack()
    {
        SetBack(nDay);
        Delete("Stage");
        const QDateTime date = pFixture->pHost->GetEarlierLists().value(0).date;
        const qint64 nAge = date.secsTo(QDateTime::currentDateTime());
        QVERIFY2(nAge >= nDay && nAge < nDay + 3600, qPrintable(date.toString()));
    }

    void theListIsSavedAndAnEarlierOneTakenBack()
    {
        Delete("Stage");
        SetBack(nDay);
        QCOMPARE(pFixture->pHost->SaveList(), QString());
        Delete("Hall");
        QVERIFY(pFixture->pHost->TakeEarlierList(pFixture->pHost->GetEarlierLists().value(0).strPath));
        QVERIFY(CControlFixture::GetText().contains("Hall 2"));
        QCOMPARE(pFixture->pHost->SaveList(), QString());
        pFixture->Stop();
        pFixture->StartAsIs();
        QVERIFY(CControlFixture::GetText().contains("Hall 2"));
        QVERIFY(!CControlFixture::GetText().contains("Stage"));
    }

    void messagesAndSavesDoNotWaitForTheOldTime()
    {
        SetBack(nDay);
        pFixture->recorder.Clear();
        Delete("Stage");
        QVERIFY(pFixture->recorder.Await(1));
        QTRY_VERIFY(!pFixture->Read("list.kvtl").contains("\"Stage\""));
    }

private:
    void SetBack(int nSeconds)
    {
        QCOMPARE(pFixture->pHost->TakeFault({ { "do", "clock-back" }, { "by", nSeconds } }), QString());
    }

    static void Delete(const QString& strGroup)
    {
        g_pPrcListControl->DeleteGroup(GroupId(strGroup), true);
        QVERIFY(!CControlFixture::GetText().contains(strGroup));
    }

    QScopedPointer<CControlFixture> pFixture;
};

PTV_TEST_MAIN_CORE(CClockBackTest)
#include "tst_clockback.moc"
