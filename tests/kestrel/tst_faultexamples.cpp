#include "CScreenReader.h"
#include "CorvidControl/objects/CControlHost.h"
#include "Kestrel/CLanguage.h"
#include "Kestrel/CMainWindow.h"
#include "Kestrel/CPanelLoader.h"
#include "Kestrel/player/CInterfacePlayer.h"
#include "Kestrel/theme/CTheme.h"
#include "PaneText.h"
#include "TestMain.h"
#include "controlhost/CJobs.h"
#include "interfaces/control/CorvidControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/host/ICorvidWidget.h"
#include "journal/CCallLog.h"
#include "journal/CControlJournal.h"
#include "nodes/SProcessorGroupNode.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTreeView>

namespace {

/// Kestrel's window on the studio with one of the examples, as the program makes it.
class CExampleWindow
{
public:
    explicit CExampleWindow(const QString& strScenario)
        : pHost(Start(strScenario)), window(*pHost, pointers, log, language, theme)
    {
        language.Set(QStringLiteral("en"));
        pPanel = loader.Load({}, window);
        window.SetPanel(pPanel->GetWidget());
        window.show();
        QApplication::setActiveWindow(&window);
    }

    /// Plays the scenario with its marks. Empty when all was carried out, else why not.
    QString Play()
    {
        CInterfacePlayer player(window, pointers, pHost->GetInterfaceMarks(), folder.path());
        QString strFailed;
        QObject::connect(&player, &CInterfacePlayer::MarkFailed, &window,
                         [&](const QString& strReason) { strFailed += strReason; });
        bool bMarked = false;
        bool bStepped = false;
        QObject::connect(&player, &CInterfacePlayer::Finished, &player, [&] { bMarked = true; });
        // On the thread of the steps.
        QObject::connect(pHost.get(), &CControlHost::ScenarioFinished, &player, [&] { bStepped = true; }, Qt::QueuedConnection);
        pHost->StartLife();
        player.Start();
        const bool bPlayed = QTest::qWaitFor([&] { return bMarked && bStepped && !jobs.IsBusy(); }, nPatience);
        return bPlayed ? strFailed : QStringLiteral("the scenario does not end");
    }

    /// The pictures that were taken, by the names of their marks.
    QStringList Pictures() const
    {
        QStringList listName;
        for (const QString& strFile : QDir(folder.path()).entryList({ QStringLiteral("*.png") })) {
            listName.append(strFile.section('-', 1).chopped(4));
        }
        return listName;
    }

    QString Shown() const
    {
        return PaneText::GetShown(PaneText::FindTree(pPanel->GetWidget(), false));
    }

    QTemporaryDir folder;
    std::unique_ptr<CControlHost> pHost;
    const SControlPointers pointers = SControlPointers::Linked();
    CCallLog log{ 4096 };
    CJobs jobs;
    CControlJournal journal{ pointers, log, jobs, [this](int nMessage) { return pHost->GetMessageName(nMessage); } };
    CLanguage language;
    CTheme theme;
    CMainWindow window;
    CPanelLoader loader;
    std::unique_ptr<ICorvidWidget> pPanel;
    CScreenReader reader;

private:
    std::unique_ptr<CControlHost> Start(const QString& strScenario) const
    {
        SControlOptions options;
        options.strListFile = folder.filePath(QStringLiteral("studio.kvtl"));
        options.strScenarioFile = QStringLiteral(EXAMPLES_FOLDER "/") + strScenario;
        QFile::copy(QStringLiteral(EXAMPLES_FOLDER "/studio.kvtl"), options.strListFile);
        return CControlHost::Start(options);
    }
};

QStringList Marks(const CControlHost& host)
{
    QStringList listName;
    for (const QJsonValue& mark : host.GetInterfaceMarks()) {
        const QString strName = mark.toObject().value(QStringLiteral("shot")).toString();
        if (!strName.isEmpty()) {
            listName.append(strName);
        }
    }
    return listName;
}

} // namespace

/// The examples that make something go wrong, in Kestrel's window: each is played to its end, and then the panel shows the truth.
class CFaultExamplesTest : public QObject
{
    Q_OBJECT

private slots:
    void theWindowShowsTheTruthInTheEnd_data()
    {
        QTest::addColumn<QString>("strFile");
        QStringList listFile = QDir(QStringLiteral(EXAMPLES_FOLDER)).entryList({ QStringLiteral("*.json") });
        listFile.removeAll(QStringLiteral("day.json"));
        for (const QString& strFile : std::as_const(listFile)) {
            QTest::newRow(qPrintable(strFile)) << strFile;
        }
    }

    void theWindowShowsTheTruthInTheEnd()
    {
        QFETCH(QString, strFile);
        CExampleWindow scene(strFile);
        QCOMPARE(scene.pHost->GetScenarioError(), QString());

        QCOMPARE(scene.Play(), QString());

        QCOMPARE(scene.Pictures(), Marks(*scene.pHost));
        SProcessorGroupNode group;
        group.idNode = QUuid::createUuid();
        group.strName = "Last";
        g_pPrcListControl->AddGroup(group, true);
        QTRY_VERIFY(scene.Shown().contains("Last"));
        QTRY_COMPARE(scene.Shown(), PaneText::GetTruth(false));
    }
};

PTV_TEST_MAIN(CFaultExamplesTest)
#include "tst_faultexamples.moc"
