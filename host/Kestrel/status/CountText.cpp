#include "Kestrel/status/CountText.h"

#include "Kestrel/status/SPanelCounts.h"

#include <QCoreApplication>

namespace {

/// The texts have a context of their own.
class CCountText
{
    Q_DECLARE_TR_FUNCTIONS(CountText)

public:
    static QString Selected(const SPanelCounts& counts);
    static QString Hidden(const SPanelCounts& counts);
    static QString Found(const SPanelCounts& counts);
};

QString CCountText::Selected(const SPanelCounts& counts)
{
    if (counts.nGroupsSelected == 0) {
        return tr("%n processor(s) selected", nullptr, counts.nProcessorsSelected);
    }
    if (counts.nProcessorsSelected == 0) {
        return tr("%n group(s) selected", nullptr, counts.nGroupsSelected);
    }
    return tr("%1 and %2 selected")
        .arg(tr("%n group(s)", nullptr, counts.nGroupsSelected), tr("%n processor(s)", nullptr, counts.nProcessorsSelected));
}

QString CCountText::Hidden(const SPanelCounts& counts)
{
    const int nAll = counts.nGroupsSelected + counts.nProcessorsSelected;
    if (nAll == 1) {
        return tr("%1, hidden by the search").arg(Selected(counts));
    }
    return tr("%1, %n of them hidden by the search", nullptr, counts.nHidden).arg(Selected(counts));
}

QString CCountText::Found(const SPanelCounts& counts)
{
    if (counts.nGroupsFound == 0) {
        return tr("%1 of %n processor(s) found", nullptr, counts.nProcessors).arg(counts.nFound);
    }
    const QString strProcessors = tr("%1 of %n processor(s)", nullptr, counts.nProcessors).arg(counts.nFound);
    return tr("%1 and %2 found").arg(strProcessors, tr("%n group(s)", nullptr, counts.nGroupsFound));
}

} // namespace

QString CountText::GetSelected(const SPanelCounts& counts)
{
    if (counts.nGroupsSelected + counts.nProcessorsSelected == 0) {
        return {};
    }
    return counts.nHidden == 0 ? CCountText::Selected(counts) : CCountText::Hidden(counts);
}

QString CountText::GetFound(const SPanelCounts& counts)
{
    return counts.bSearching ? CCountText::Found(counts) : QString();
}
