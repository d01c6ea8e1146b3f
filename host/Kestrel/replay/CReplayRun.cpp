#include "Kestrel/replay/CReplayRun.h"
#include "Kestrel/GuiThread.h"

#include "Kestrel/CControlLoader.h"
#include "Kestrel/CKestrel.h"
#include "Kestrel/CMainWindow.h"
#include "Kestrel/CPanelLoader.h"
#include "Kestrel/replay/CReplayHost.h"
#include "Kestrel/replay/CReplayPictures.h"
#include "Kestrel/replay/CReplaySource.h"
#include "Kestrel/replay/CReplayWalk.h"
#include "Kestrel/replay/DesktopKeys.h"
#include "Kestrel/replay/ReplayReport.h"
#include "controlhost/CJobs.h"
#include "interfaces/host/ICorvidWidget.h"
#include "journal/CCallLog.h"
#include "journal/replay/CReplayLibrary.h"

#include <QApplication>

#include <chrono>
#include <cstdio>

namespace {

constexpr int nCodeNoLibrary = 1;
constexpr int nCodeBadOption = 2;
constexpr int nLogLines = 16;
constexpr std::chrono::seconds timeJobs(10); ///< for what the panel has begun, when nothing holds it any more

void Say(const QString& strLine)
{
    std::printf("%s\n", qUtf8Printable(strLine));
    std::fflush(stdout);
}

/// The panel finds the objects of the replay where it looks for those of the control library.
class CPointersSet
{
public:
    CPointersSet(const SControlPointers& placesIn, const SControlPointers& objects) : places(placesIn)
    {
        *places.ppConfig = *objects.ppConfig;
        *places.ppPrcBasic = *objects.ppPrcBasic;
        *places.ppPrcList = *objects.ppPrcList;
        *places.ppPrcRuntime = *objects.ppPrcRuntime;
        *places.ppPreference = *objects.ppPreference;
        *places.ppProjectManage = *objects.ppProjectManage;
        *places.ppProtocal = *objects.ppProtocal;
        *places.ppRuntime = *objects.ppRuntime;
    }

    ~CPointersSet()
    {
        *places.ppConfig = nullptr;
        *places.ppPrcBasic = nullptr;
        *places.ppPrcList = nullptr;
        *places.ppPrcRuntime = nullptr;
        *places.ppPreference = nullptr;
        *places.ppProjectManage = nullptr;
        *places.ppProtocal = nullptr;
        *places.ppRuntime = nullptr;
    }
    Q_DISABLE_COPY(CPointersSet)

private:
    const SControlPointers places;
};

} // namespace

CReplayRun::CReplayRun(const SKestrelOptions& optionsIn, const CReplaySource& sourceIn) : options(optionsIn), source(sourceIn) { }

int CReplayRun::Run()
{
    Q_ASSERT(GuiThread::IsCurrent());
    DesktopKeys::Install();
    TakeLook();
    CControlLoader loader;
    if (!loader.LoadPointers()) {
        CKestrel::Complain(loader.GetError());
        return nCodeNoLibrary;
    }
    CReplayLibrary library(source.GetRun());
    const CPointersSet pointersSet(loader.GetPointers(), library.GetPointers());
    CJobs jobs;
    CReplayHost host(library.GetHostPointers(), jobs);
    const int nCode = RunWindow(host, library.GetHostPointers(), library);
    if (nCode != 0) {
        return nCode;
    }
    Say(ReplayReport::GetText(source, result));
    return result.strCall.isEmpty() && result.listScreen.isEmpty() ? 0 : nCodeDiffers;
}

// That of the recording, but for what the options ask for.
void CReplayRun::TakeLook()
{
    const auto choose = [](const QString& strAsked, const QString& strRecorded, const QStringList& listKnown) {
        return !strAsked.isEmpty() ? strAsked : listKnown.contains(strRecorded) ? strRecorded : listKnown.constFirst();
    };
    theme.Apply(*qApp);
    theme.Set(choose(options.strTheme, source.GetHeaderText(QStringLiteral("theme")), CTheme::GetNames()));
    language.Set(choose(options.strLanguage, source.GetHeaderText(QStringLiteral("language")),
                        CLanguage::GetCodes() << CLanguage::GetPseudoCode()));
}

int CReplayRun::RunWindow(CReplayHost& host, const SControlPointers& pointers, CReplayLibrary& library)
{
    CCallLog log(nLogLines);
    CMainWindow window(host, pointers, log, language, theme);
    CReplayPictures pictures(window, options, source);
    if (!pictures.GetFault().isEmpty()) {
        CKestrel::Complain(pictures.GetFault());
        return nCodeBadOption;
    }
    CReplayWalk walk(window, library, source, pictures, options);
    host.SetSaveReason([&walk] { return walk.GetSaveReason(); });
    CPanelLoader loader;
    std::unique_ptr<ICorvidWidget> pPanel = loader.Load(options.strPanelFile, window);
    if (!pPanel) {
        CKestrel::Complain(loader.GetError());
        return nCodeNoLibrary;
    }
    window.SetPanel(pPanel->GetWidget());
    connect(&pictures, &CReplayPictures::Taken, this, &Say);
    connect(&pictures, &CReplayPictures::Failed, this, &CKestrel::Complain);
    connect(&walk, &CReplayWalk::Done, &window, &CMainWindow::EndUnattended);
    window.show();
    if (!source.GetRun().HasBeginning()) {
        library.ShowFirstState();
    }
    walk.Start();
    QApplication::exec();
    library.Release();
    pPanel.reset();
    if (!library.AwaitJobs(timeJobs)) {
        CKestrel::Complain(QStringLiteral("The panel has begun a job that did not end."));
    }
    result = walk.Finish();
    pictures.ReportMissing();
    return 0;
}
