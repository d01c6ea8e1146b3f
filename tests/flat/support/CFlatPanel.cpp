#include "CFlatPanel.h"

#include "CDialogDriver.h"
#include "TestMain.h"
#include "interfaces/widgets/CToolTip.h"
#include "tree/CProcessorTree.h"

#include <QAction>
#include <QFile>
#include <QHelpEvent>
#include <QToolButton>

const char* const CFlatPanel::szLongName
    = "a name that is far too long for a tree of three hundred pixels, whatever the font may be";

namespace {

constexpr int nNews = 5; ///< kinds of them

SProcessorAllNode Site(bool bOnline)
{
    return Root({ Group("Stage", { Processor("alpha").Online(bOnline).Primary(), Processor("beta").Expanded(false) }),
                  Group("Hall", { Processor("gamma").Expanded(false) }) },
                { Processor("loose").Online(bOnline).Expanded(false), Processor(CFlatPanel::szLongName).Expanded(false) });
}

void Fill(SControlAnswers& answers)
{
    answers.nodeDiscovered = Site(true);
    answers.nodeSimulator = Root({}, { Processor("sim").Expanded(false) });
    answers.setActive = { ProcessorId("alpha"), ProcessorId("loose") };
}

void Change(SControlAnswers& answers, int nRound)
{
    const bool bOdd = nRound / nNews % 2 == 1;
    switch (nRound % nNews) {
    case 0:
        answers.nodeDiscovered = Site(bOdd);
        break;
    case 1:
        answers.vecDiscoveredSelection = { ProcessorId(bOdd ? "alpha" : "loose") };
        break;
    case 2:
        answers.bChiefMode = bOdd;
        break;
    case 3:
        answers.strProject = QString::number(int(bOdd));
        break;
    default:
        answers.bSimulatorPane = bOdd;
    }
}

void AskForTip(QWidget* pViewport, const QPoint& point)
{
    QCursor::setPos(pViewport->mapToGlobal(point));
    QHelpEvent event(QEvent::ToolTip, point, QCursor::pos());
    QApplication::sendEvent(pViewport, &event);
}

} // namespace

CFlatPanel::CFlatPanel() : CUsedPanel(Fill)
{
    QFile file(strFile);
    if (!file.open(QIODevice::WriteOnly)) {
        qFatal("%s: %s", qPrintable(strFile), qPrintable(file.errorString()));
    }
}

void CFlatPanel::Do(const std::function<void(CFlatPanel&)>& fnDo)
{
    ++nRound;
    fnDo(*this);
    QCoreApplication::processEvents();
    panel.control.ClearJournal();
    panel.control.Set([](SControlAnswers& answers) { answers.listGroupAdded.clear(); });
}

void CFlatPanel::Answer(const QStringList& listHow, const std::function<void()>& fnAsk)
{
    CDialogDriver driver;
    for (const QString& strHow : listHow) {
        strHow == strFile ? driver.AnswerByFile(strHow) : driver.Answer(strHow);
    }
    fnAsk();
    QTRY_VERIFY(driver.IsDone());
}

void CFlatPanel::ClickButton(const QString& strToolTip)
{
    panel.Click(panel.ToolButton(strToolTip));
}

void CFlatPanel::Trigger(const QString& strEntry)
{
    panel.MenuAction(strEntry)->trigger();
}

void CFlatPanel::ReadNews()
{
    panel.Refresh([this](SControlAnswers& answers) { Change(answers, nRound); });
}

void CFlatPanel::ShowTip(const QString& strRow)
{
    QWidget* const pViewport = panel.Tree()->viewport();
    AskForTip(pViewport, At(strRow));
    QTRY_VERIFY(CToolTip::IsVisible());
    AskForTip(pViewport, QPoint(5, pViewport->height() - 5));
    QTRY_VERIFY(!CToolTip::IsVisible());
}
