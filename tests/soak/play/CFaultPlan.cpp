#include "play/CFaultPlan.h"

#include "CorvidControl/faults/ControlCalls.h"
#include "CorvidControl/objects/CControlLibrary.h"

namespace {

constexpr int nMilliseconds = 20; // a call is late by so much: it is waited for in real time
constexpr int nKinds = 14;
constexpr int nThrow = 2;
constexpr int nRefuseSelection = 3;
constexpr int nLose = 7;
constexpr int nReorder = 9;
constexpr int nFlicker = 11;
constexpr int nCollide = 12;

QString Pick(const QStringList& listName, int nNumber)
{
    return listName.at(nNumber % listName.size());
}

QString PickCall(int nNumber)
{
    QStringList listCall = ControlCalls::GetAll();
    listCall.removeAll(QStringLiteral("ProtocalControl.Attach")); // called before the first step
    return Pick(listCall, nNumber * 7);
}

void Run(CControlLibrary& library, const QJsonObject& step)
{
    library.runner.Run({ 0, step.value(QLatin1String("do")).toString(), step });
}

QJsonObject BuildCallFault(int nFault, int nDetail)
{
    switch (nFault) {
    case 0:
        return { { "do", "latency" }, { "call", Pick(ControlCalls::GetHeld(), nDetail) }, { "ms", nMilliseconds }, { "for", 1 } };
    case 1:
        return { { "do", "hang" }, { "call", Pick(ControlCalls::GetHeld(), nDetail) }, { "for", nMilliseconds / 1000.0 } };
    case nThrow:
        return { { "do", "throw" },
                 { "call", PickCall(nDetail) },
                 { "count", 1 + nDetail % 2 },
                 { "thrown", nDetail % 3 == 0 ? "other" : "error" } };
    case nRefuseSelection:
        return { { "do", "refuse-selection" }, { "count", 1 + nDetail % 2 } };
    case 4:
        return { { "do", "import-code" }, { "code", nDetail % 7 } };
    case 5:
        return { { "do", "export-code" }, { "code", nDetail % 3 } };
    default:
        return { { "do", "refuse" }, { "command", Pick(ControlCalls::GetCommands(), nDetail) } };
    }
}

QJsonObject BuildReadingFault(int nFault, int nDetail, const QString& strNode, const QString& strOther)
{
    switch (nFault) {
    case nLose:
        return { { "do", "lose-messages" }, { "count", 1 + nDetail % 3 } };
    case 8:
        return { { "do", "double-messages" }, { "count", 1 + nDetail % 3 } };
    case nReorder:
        return { { "do", "reorder-messages" }, { "count", 2 + nDetail % 3 } };
    case 10:
        return { { "do", "empty-message" }, { "message", nDetail % 60 } };
    case nFlicker:
        return { { "do", "flicker" }, { "node", strNode }, { "count", 1 + nDetail % 5 } };
    case nCollide:
        return { { "do", "collide" }, { "node", strNode }, { "with", strOther }, { "for", 60 } };
    default:
        return { { "do", "clock-back" }, { "by", 1 + nDetail } };
    }
}

// A fault without a count or a time of its own ends when it has come once.
QJsonObject BuildEnd(QJsonObject step)
{
    const QString strDo = step.value(QLatin1String("do")).toString();
    if (strDo == QLatin1String("latency") || strDo == QLatin1String("hang")) {
        step.insert(QStringLiteral("for"), 0);
    } else if (strDo == QLatin1String("throw") || strDo == QLatin1String("refuse-selection")
               || strDo == QLatin1String("refuse")) {
        step.insert(QStringLiteral("count"), 0);
    } else {
        return {};
    }
    return step;
}

} // namespace

QJsonObject CFaultPlan::BuildStep(int nFault, int nDetail, const QString& strNode, const QString& strOther)
{
    const int nKind = nFault % nKinds;
    return nKind < 7 ? BuildCallFault(nKind, nDetail) : BuildReadingFault(nKind, nDetail, strNode, strOther);
}

void CFaultPlan::Arm(CControlLibrary& library, int nFault, int nDetail, const QString& strNode, const QString& strOther)
{
    const QJsonObject step = BuildStep(nFault, nDetail, strNode, strOther);
    Run(library, step);
    const int nKind = nFault % nKinds;
    bDeaf = bDeaf || nKind == nThrow || nKind == nLose || nKind == nReorder;
    bRefusing = bRefusing || nKind == nRefuseSelection;
    if (nKind == nFlicker) {
        listFlickering.append(QUuid(strNode));
    } else if (nKind == nCollide) {
        listCollided.append(QUuid(strNode));
    }
    const QJsonObject stepEnd = BuildEnd(step);
    if (!stepEnd.isEmpty()) {
        listEnd.append(stepEnd);
    }
    nStepsLeft = 2 + nDetail % 3; // this one is the first
}

bool CFaultPlan::EndStep(CControlLibrary& library)
{
    if (nStepsLeft == 0 || --nStepsLeft > 0) {
        return false;
    }
    End(library);
    return true;
}

void CFaultPlan::End(CControlLibrary& library)
{
    for (const QJsonObject& step : std::as_const(listEnd)) {
        Run(library, step);
    }
    listEnd.clear();
    library.faults.calls.TakeImportCode();
    library.faults.calls.TakeExportCode();
    EndMisreading(library);
    bDeaf = false;
    bRefusing = false;
}

// Also of a node that has gone, for an import may bring it back; a step would be passed over.
void CFaultPlan::EndMisreading(CControlLibrary& library)
{
    for (const QUuid& id : std::as_const(listFlickering)) {
        library.faults.readings.Flicker(id, QString(), 0);
    }
    for (const QUuid& id : std::as_const(listCollided)) {
        library.faults.readings.Collide(id, id, std::chrono::milliseconds(0));
    }
    listFlickering.clear();
    listCollided.clear();
}
