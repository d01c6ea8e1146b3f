#include "Kestrel/undo/CRefusedList.h"

#include "Kestrel/GuiThread.h"
#include "Kestrel/undo/CDiskWork.h"
#include "controlhost/IControlHost.h"
#include "interfaces/widgets/CMessageBox.h"

#include <QWidget>

namespace {

// A box breaks lines at blanks, and a path may have none.
QString MakeBreakable(QString strText)
{
    return strText.replace(QLatin1Char('/'), QStringLiteral("/\u200B"));
}

} // namespace

CRefusedList::CRefusedList(IControlHost& hostIn, CDiskWork& workIn, QWidget& windowIn)
    : host(hostIn), work(workIn), window(windowIn)
{
    connect(&host, &IControlHost::ListTroubleChanged, this, &CRefusedList::Changed, Qt::QueuedConnection);
}

void CRefusedList::Offer()
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (bOffering) {
        return;
    }
    bOffering = true;
    const auto ask = [this](const SRefusedList& refused) {
        Ask(refused);
        bOffering = false;
    };
    work.Run(this, [&library = host] { return library.PreviewRefusedList(); }, ask);
}

bool CRefusedList::IsThere() const
{
    return !host.GetListError().isEmpty();
}

void CRefusedList::Ask(const SRefusedList& refused)
{
    const QString strTitle = tr("Refused list");
    const QString strText = GetFaultText(refused) + QStringLiteral("\n\n");
    if (!refused.bUsable) {
        CMessageBox::information(&window, strTitle, strText + tr("Nothing of it can be read."), CMessageBox::ButtonOk,
                                 CMessageBox::ButtonOk);
        return;
    }
    const CMessageBox::StandardButton answer
        = CMessageBox::question(&window, strTitle, strText + GetContentText(refused),
                                CMessageBox::ButtonYes | CMessageBox::ButtonNo, CMessageBox::ButtonNo);
    if (answer == CMessageBox::ButtonYes) {
        work.Run(this, [&library = host] { return library.UseRefusedList(); }, [this](bool) { emit Changed(); });
    }
}

QString CRefusedList::GetFaultText(const SRefusedList& refused)
{
    // What is wrong in it is in English.
    return tr("The list was refused at the start:") + QLatin1Char('\n') + MakeBreakable(refused.strPath) + QLatin1Char('\n')
        + tr("The journal says why.");
}

QString CRefusedList::GetContentText(const SRefusedList& refused)
{
    const QString strCounts = tr("What can be read: %1, %2; %3.");
    return strCounts.arg(tr("%n group(s)", nullptr, refused.nGroups), tr("%n processor(s)", nullptr, refused.nProcessors),
                         tr("%n fault(s)", nullptr, refused.listFault.size()))
        + QLatin1Char('\n') + tr("The refused file is kept in the same folder.") + QStringLiteral("\n\n") + tr("Use this list?");
}
