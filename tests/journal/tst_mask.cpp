#include "CRecording.h"
#include "TestMain.h"
#include "controlhost/CJobs.h"
#include "double/CControlDouble.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IConfigControl.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "journal/CControlJournal.h"
#include "journal/recording/CJournalRecorder.h"

#include <QJsonDocument>

namespace {

/// Everything that gives a user away, by every call that carries some of it.
void CallWithNames()
{
    SProcessorAllNode node;
    SProjectInfo info;
    std::vector<uint> vecIP;
    g_pPrcListControl->GetDiscoveredTree(node);
    g_pPrcListControl->GetDiscoveredTree(node);
    g_pPrcListControl->GetProcessorIPs(vecIP);
    g_pPrcListControl->AddGroup(Group("SecretGroup", { Processor("SecretProcessor").Ip("198.51.100.7") }), false);
    g_pPrcListControl->RenameGroup(QUuid(), "SecretName");
    g_pPrcBasicControl->RenameProcessor(QUuid(), "SecretName");
    g_pPrcBasicControl->AddProcessor(0xC6336407);
    g_pPrcListControl->ImportList("/home/secret/Secret.kvtl");
    g_pPrcListControl->ExportList("/home/secret/Secret.kvtl", 0);
    g_pConfigControl->GetListFilePath();
    g_pProjectManageControl->GetProjectInfo(info);
}

void SetNames(CControlDouble& control)
{
    control.Set([](SControlAnswers& answers) {
        answers.nodeDiscovered
            = Root({ Group("SecretGroup", { Processor("SecretProcessor").Ip("198.51.100.7").Project("SecretName") }) });
        answers.nodeDiscovered.strName = "SecretSite";
        answers.strProject = "SecretName";
        answers.strListFilePath = "/home/secret/Secret.kvtl";
    });
}

/// What a run with names leaves in its file.
QByteArray Record(bool bMask)
{
    CControlDouble control;
    SetNames(control);
    const CRecording recording;
    CJournalWriter writer;
    CJournalRecorder recorder(writer);
    CCallLog log(64);
    log.SetRecorder(&recorder);
    CJobs jobs;
    const CControlJournal journal(SControlPointers::Linked(), log, jobs, [](int) { return QString(); });
    writer.Open(recording.GetFolder(), {}, bMask);
    CallWithNames();
    log.Write(RecordNote, "Library", "Refused: SecretGroup at 198.51.100.7");
    recording.Read(writer);
    return CRecording::ReadFile(recording.GetFolder() + "/000001.jsonl");
}

} // namespace

/// Pseudonyms for names and addresses.
class CMaskTest : public QObject
{
    Q_OBJECT

private slots:
    void aMaskedRecordingHasNoNameAndNoAddress()
    {
        const QByteArray file = Record(true);
        QVERIFY(file.contains("name-") && file.contains("path-") && file.contains("text-"));
        QVERIFY2(!file.toLower().contains("secret"), file.constData());
        QVERIFY2(!file.contains("198.51"), file.constData());
    }

    void withoutTheMaskTheyAreThere()
    {
        const QByteArray file = Record(false);
        QVERIFY(file.contains("SecretGroup") && file.contains("SecretProcessor") && file.contains("SecretName"));
        QVERIFY(file.contains("198.51.100.7") && file.contains("/home/secret"));
    }

    void theSameNameHasTheSamePseudonym()
    {
        CJournalMask mask(true);
        const QString strOne = mask.GetName("alpha");
        QVERIFY(strOne != mask.GetName("beta"));
        QCOMPARE(mask.GetName("alpha"), strOne);
        QVERIFY(mask.GetText(SPrivateText("alpha", PrivateText)) != strOne);
        QCOMPARE(mask.GetName(QString()), QString());
    }

    void addressesStayApartAndNoughtStaysNought()
    {
        CJournalMask mask(true);
        const quint32 nOne = mask.GetAddress(0xC0A80001);
        QVERIFY(nOne != 0 && nOne < 0x01000000);
        QVERIFY(nOne != mask.GetAddress(0xC0A80002));
        QCOMPARE(mask.GetAddress(0xC0A80001), nOne);
        QCOMPARE(mask.GetAddress(0), 0U);
    }

    void onlyKnownSuffixesOfPathsStay()
    {
        CJournalMask mask(true);
        QVERIFY(mask.GetText(SPrivateText("/a/b.kvtl", PrivatePath)).endsWith(".kvtl"));
        QVERIFY(!mask.GetText(SPrivateText("/a/b.secret", PrivatePath)).contains("secret"));
    }
};

PTV_TEST_MAIN_CORE(CMaskTest)
#include "tst_mask.moc"
