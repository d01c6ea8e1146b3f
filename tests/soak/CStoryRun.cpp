#include "CStoryRun.h"

#include "check/Invariants.h"
#include "play/Verbs.h"
#include "play/WorldEvents.h"

#include <algorithm>

namespace {

bool Has(const QList<SPanelCall>& listCall, const char* szOperation)
{
    return std::any_of(listCall.cbegin(), listCall.cend(),
                       [&](const SPanelCall& call) { return call.strOperation == QLatin1String(szOperation); });
}

NodeIds GetStored(const SPanelPicture& picture, bool bSimulator)
{
    const std::vector<QUuid>& vecSelected = picture.arrSelected[bSimulator ? 1 : 0];
    return { vecSelected.cbegin(), vecSelected.cend() };
}

} // namespace

CStoryRun::CStoryRun(const FnTell& fnTellIn) : fnTell(fnTellIn) { }

QString CStoryRun::Play(const StorySteps& vecStep)
{
    QString strWrong = Begin();
    for (auto it = vecStep.begin(); it != vecStep.end() && strWrong.isEmpty(); ++it) {
        strWrong = PlayStep(*it);
        if (!strWrong.isEmpty()) {
            strWrong = QStringLiteral("step %1, %2: %3").arg(nSteps).arg(Story::Write(*it), strWrong);
        }
    }
    if (strWrong.isEmpty() && scene.faults.IsArmed()) {
        while (!scene.faults.EndStep(scene.panel.library)) { }
        strWrong = EndFault();
    }
    return strWrong;
}

// The store is the process's: what it has kept of another window is no change, and nobody would build the rows.
QString CStoryRun::Begin()
{
    const bool bSettled = scene.panel.Reread();
    scene.before = scene.panel.TakePicture(bSettled);
    for (CExpectedSelection& expected : scene.arrExpected) {
        expected.Begin(scene.before);
        expected.Rebuild();
    }
    scene.Expected().End(scene.before, false);
    const QString strWrong = Invariants::CheckAll(scene.before);
    return strWrong.isEmpty() ? Invariants::CheckSelection(scene.before, scene.arrExpected) : strWrong;
}

QString CStoryRun::PlayStep(const SStoryStep& step)
{
    const SVerb* const pVerb = Verbs::Find(step.strVerb);
    if (!pVerb) {
        return QStringLiteral("there is no such verb");
    }
    ++nSteps;
    scene.intent = {};
    for (CExpectedSelection& expected : scene.arrExpected) {
        expected.Begin(scene.before);
    }
    scene.panel.record.Take();
    QApplication::setActiveWindow(&scene.panel.window);
    scene.Expected().NoteCurrent(CSoakPanel::GetKey(scene.panel.Tree()->currentIndex())); // the focus brings one along
    WorldEvents::GoOn(scene);
    pVerb->fnDo(scene, step.nFirst, step.nSecond);
    const bool bSettled = scene.panel.Settle();
    scene.panel.dialogs.Forget();
    const QList<SPanelCall> listCall = scene.panel.record.Take();
    SPanelPicture after = scene.panel.TakePicture(bSettled);
    if (after.bRebuilt) {
        scene.setFoldApart.clear();
    }
    after.setFoldApart = scene.setFoldApart;
    Tell(step, after, listCall);
    const QString strHits = CheckHits(listCall);
    NoteLibrary(listCall);
    const QString strWrong = EndStep(after);
    return strHits.isEmpty() ? strWrong : strHits;
}

QString CStoryRun::EndStep(const SPanelPicture& after)
{
    const bool bUnderFault = scene.faults.IsArmed();
    for (const bool bSimulator : { false, true }) {
        scene.arrExpected[bSimulator ? 1 : 0].End(after, bSimulator);
    }
    scene.before = after;
    const QString strWrong = bUnderFault ? Invariants::CheckUnderFault(after) : Invariants::CheckAll(after);
    if (!strWrong.isEmpty()) {
        return strWrong;
    }
    if (!bUnderFault && !scene.arrExpected[after.bSimulator ? 1 : 0].IsUnsure()) {
        return Invariants::CheckSelection(after, scene.arrExpected);
    }
    if (!bUnderFault) {
        scene.arrExpected[after.bSimulator ? 1 : 0].Adopt(after, after.bSimulator);
        return {};
    }
    if (scene.faults.IsRefusing()) { // and the next refresh brings the library's selection back
        scene.arrExpected[after.bSimulator ? 1 : 0].Adopt(after, after.bSimulator);
    }
    return scene.faults.EndStep(scene.panel.library) ? EndFault() : QString();
}

// The panel shows the truth after the next message that makes it read. Where the call threw that a switch of the panes makes, the
// library hears of the next switch alone.
QString CStoryRun::EndFault()
{
    scene.panel.library.processors.SetSimulatorPane(scene.panel.IsSimulatorShown());
    scene.before = scene.panel.TakePicture(scene.panel.Reread());
    scene.setFoldApart.clear();
    const QString strWrong = Invariants::CheckAll(scene.before);
    if (!strWrong.isEmpty()) {
        return QStringLiteral("after a fault: ") + strWrong;
    }
    for (const bool bSimulator : { false, true }) {
        scene.arrExpected[bSimulator ? 1 : 0].Adopt(scene.before, bSimulator);
    }
    return Invariants::Compare(QStringLiteral("after a fault: selected rows"),
                               PanelPicture::GetIds(PanelPicture::GetSelected(scene.before)), scene.Expected().GetStored());
}

// What the panel has asked the library to select, where its contract says so.
void CStoryRun::NoteLibrary(const QList<SPanelCall>& listCall)
{
    CExpectedSelection& expected = scene.Expected();
    for (const SPanelCall& call : listCall) {
        if (call.strOperation == QLatin1String("AddGroup")) {
            expected.SelectInLibrary({ call.id });
        }
    }
    const bool bTakesAway = scene.intent.kind == SIntent::Delete || scene.intent.kind == SIntent::Ungroup;
    if (bTakesAway && !Hits::GetHit(scene.intent.kind, listCall).isEmpty()) {
        expected.SelectInLibrary({ scene.idAbove });
    }
    if (Has(listCall, "RefreshProcessors")) {
        Has(listCall, "ImportList") ? expected.SelectInLibrary({ QUuid() }) : expected.Rebuild();
    }
}

QString CStoryRun::CheckHits(const QList<SPanelCall>& listCall)
{
    QString strKept;
    const QString strWrong = Hits::Check(scene.intent, listCall, scene.before, scene.Expected(), strKept);
    if (!strKept.isEmpty()) {
        ++mapKept[strKept];
    }
    // Ids that collide hit others by their nature, and what the library has selected by now is not known under a fault.
    const bool bUnheard = scene.intent.kind == SIntent::Delete && (scene.faults.IsDeaf() || !strKept.isEmpty());
    const bool bExcused = scene.faults.IsBlind() || (scene.faults.IsArmed() && bUnheard);
    return bExcused ? QString() : strWrong;
}

void CStoryRun::Tell(const SStoryStep& step, const SPanelPicture& after, const QList<SPanelCall>& listCall) const
{
    if (!fnTell) {
        return;
    }
    QStringList listText;
    for (const SPanelCall& call : listCall) {
        listText.append(QStringLiteral("%1(%2, %3)").arg(call.strOperation, PanelPicture::GetText({ call.id })).arg(call.bValue));
    }
    fnTell(QStringLiteral("%1: rows %2, library %3, current %5, calls %4")
               .arg(Story::Write(step), PanelPicture::GetText(PanelPicture::GetIds(PanelPicture::GetSelected(after))),
                    PanelPicture::GetText(GetStored(after, after.bSimulator)), listText.join(QLatin1String(" ")),
                    PanelPicture::GetText({ after.keyCurrent.id })));
}
