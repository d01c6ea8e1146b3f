#include "journal/replay/RunStart.h"

#include "journal/replay/SRecordedLine.h"

#include <QStringList>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr quint64 nNever = std::numeric_limits<quint64>::max();

bool IsUser(const SRecordedLine& line)
{
    return line.strKind == QLatin1String("user");
}

// A key that goes up, what stands on the screen, and what the host finds when it saves.
bool IsNoGesture(const SRecordedLine& line)
{
    static const QStringList listOperation{
        QStringLiteral("key release"), QStringLiteral("screen"),   QStringLiteral("size"),         QStringLiteral("scroll"),
        QStringLiteral("pane"),        QStringLiteral("language"), QStringLiteral("theme"),        QStringLiteral("active"),
        QStringLiteral("search"),      QStringLiteral("save"),     QStringLiteral("save answered")
    };
    return listOperation.contains(line.strOperation);
}

// It goes on with what is open: a menu and a dialog have windows of their own, and an editor lies on the rows.
bool IsContinued(const SRecordedLine& line)
{
    static const QStringList listOperation{
        QStringLiteral("release"), QStringLiteral("move"),        QStringLiteral("double click"), QStringLiteral("drag"),
        QStringLiteral("drop"),    QStringLiteral("drag left"),   QStringLiteral("entry"),        QStringLiteral("menu"),
        QStringLiteral("dialog"),  QStringLiteral("menu closed"), QStringLiteral("answer"),       QStringLiteral("edit")
    };
    const QString strWindow = line.fields.value(QStringLiteral("window")).toString();
    const QString strTarget = line.fields.value(QStringLiteral("target")).toString();
    return listOperation.contains(line.strOperation) || strWindow.contains(QLatin1Char('/'))
        || strTarget.contains(QLatin1String("qt_scrollarea_viewport[0]/"));
}

bool BeginsSomethingNew(const QVector<SRecordedLine>& vecLine, int nAt)
{
    const auto it = std::find_if(vecLine.begin() + nAt, vecLine.end(),
                                 [](const SRecordedLine& line) { return IsUser(line) && !IsNoGesture(line); });
    return it == vecLine.end() || !IsContinued(*it);
}

bool IsWorker(const SRecordedLine& line)
{
    return line.strThread.startsWith(QLatin1String("worker"));
}

bool IsFirstRead(const SRecordedLine& line)
{
    return IsWorker(line) && line.strOperation == QLatin1String("GetDiscoveredTree");
}

// Another refresh, of a message from before, would not come again.
bool IsFollowedByRefresh(const QVector<SRecordedLine>& vecLine, int nAt)
{
    const auto it = std::find_if(vecLine.begin() + nAt, vecLine.end(), [](const SRecordedLine& line) {
        return IsUser(line) || line.strKind == QLatin1String("message") || IsFirstRead(line);
    });
    return it != vecLine.end() && IsFirstRead(*it);
}

/// Follows the reads of a worker.
class CRefreshes
{
public:
    /// Whether the line is the last read of a refresh that is whole.
    bool IsEnd(const SRecordedLine& line)
    {
        bQuiet = bQuiet && !IsUser(line);
        if (IsFirstRead(line)) {
            bWhole = true;
            bQuiet = true;
        }
        return IsWorker(line) && line.strOperation == QLatin1String("IsSimulatorPane") && std::exchange(bWhole, false);
    }

    /// The user did nothing since its first read.
    bool IsQuiet() const
    {
        return bQuiet;
    }

private:
    bool bWhole = false;
    bool bQuiet = false;
};

} // namespace

quint64 RunStart::Find(const QVector<SRecordedLine>& vecLine)
{
    CRefreshes refreshes;
    quint64 nFirst = nNever;
    for (int n = 0; n < vecLine.size(); ++n) {
        if (!refreshes.IsEnd(vecLine[n])) {
            continue;
        }
        if (refreshes.IsQuiet() && !IsFollowedByRefresh(vecLine, n) && BeginsSomethingNew(vecLine, n)) {
            return vecLine[n].nNumber + 1;
        }
        nFirst = std::min(nFirst, vecLine[n].nNumber + 1);
    }
    return nFirst;
}
