#include "CorvidControl/day/CStepRules.h"

#include "CorvidControl/list/CNameRules.h"

#include <QHostAddress>
#include <QJsonArray>
#include <QJsonObject>
#include <QMap>

#include <algorithm>
#include <vector>

namespace {

constexpr double dLongest = 24 * 60 * 60; // seconds

enum EnKind
{
    KindText,
    KindName,
    KindProject,
    KindFlag,
    KindSeconds,
    KindRate,
    KindCount,
    KindAddress,
    KindTexts,
    KindRole,
    KindPane,
};

struct SKeyRule
{
    const char* pKey;
    EnKind kind;
    bool bNeeded;
};

using Rules = std::vector<SKeyRule>;

const QMap<QString, Rules>& GetRules()
{
    static const Rules listNode{ { "node", KindText, true } };
    static const Rules listFlag{ { "on", KindFlag, true } };
    static const QMap<QString, Rules> mapRule{
        { QStringLiteral("offline"), listNode },
        { QStringLiteral("online"), listNode },
        { QStringLiteral("boot"), { { "node", KindText, true }, { "for", KindSeconds, false } } },
        { QStringLiteral("role"), { { "node", KindText, true }, { "role", KindRole, true } } },
        { QStringLiteral("fail-over"), { { "node", KindText, true }, { "with", KindText, false } } },
        { QStringLiteral("project"), { { "node", KindText, true }, { "project", KindProject, true } } },
        { QStringLiteral("chief"), { { "group", KindText, true }, { "node", KindText, false } } },
        { QStringLiteral("chief-mode"), listFlag },
        { QStringLiteral("open-project"), { { "project", KindName, true } } },
        { QStringLiteral("close-project"), {} },
        { QStringLiteral("lock"), listFlag },
        { QStringLiteral("block-refresh"), listFlag },
        { QStringLiteral("rename"), { { "node", KindText, true }, { "name", KindText, true } } },
        { QStringLiteral("move"), { { "node", KindText, true }, { "group", KindText, false } } },
        { QStringLiteral("expand"), { { "node", KindText, false }, { "on", KindFlag, true } } },
        { QStringLiteral("select"), { { "nodes", KindTexts, true } } },
        { QStringLiteral("pane"), { { "pane", KindPane, true } } },
        { QStringLiteral("add-group"), { { "name", KindText, true } } },
        { QStringLiteral("add-processor"), { { "ip", KindAddress, true } } },
        { QStringLiteral("add-simulators"), { { "count", KindCount, true } } },
        { QStringLiteral("delete"), listNode },
        { QStringLiteral("appear"), { { "ip", KindAddress, true }, { "name", KindName, true } } },
        { QStringLiteral("silent"), { { "ip", KindAddress, true } } },
        { QStringLiteral("scan"), {} },
        { QStringLiteral("storm"), { { "rate", KindRate, true }, { "for", KindSeconds, true } } },
    };
    return mapRule;
}

bool IsNumberOf(const QJsonValue& value, double dLeast, double dMost)
{
    return value.isDouble() && value.toDouble() >= dLeast && value.toDouble() <= dMost;
}

bool IsTexts(const QJsonValue& value)
{
    const QJsonArray array = value.toArray();
    return value.isArray() && std::all_of(array.begin(), array.end(), [](const QJsonValue& v) { return v.isString(); });
}

// What a value of this kind has to be; empty when it is that.
QString FindValueFault(EnKind kind, const QJsonValue& value)
{
    const QString strText = value.toString();
    bool bAddress = false;
    switch (kind) {
    case KindText:
        return value.isString() ? QString() : QStringLiteral("must be a text");
    case KindName:
        return CNameRules::FindFault(strText).isEmpty() ? QString() : QStringLiteral("must be a good name");
    case KindProject:
        return value.isString() && CNameRules::IsText(strText)
            ? QString()
            : QStringLiteral("must be a text of at most %1 bytes without control characters").arg(CNameRules::nMaxTextBytes);
    case KindFlag:
        return value.isBool() ? QString() : QStringLiteral("must be true or false");
    case KindSeconds:
        return IsNumberOf(value, 0, dLongest) ? QString() : QStringLiteral("must be seconds, from 0 to a day");
    case KindRate:
        return IsNumberOf(value, 1, 1000) ? QString() : QStringLiteral("must be a number of 1 to 1000");
    case KindCount:
        return IsNumberOf(value, 1, 2) ? QString() : QStringLiteral("must be 1 or 2");
    case KindAddress:
        QHostAddress(strText).toIPv4Address(&bAddress);
        return bAddress ? QString() : QStringLiteral("must be an IPv4 address");
    case KindTexts:
        return IsTexts(value) ? QString() : QStringLiteral("must be a list of texts");
    case KindRole:
        return QStringList{ QStringLiteral("none"), QStringLiteral("primary"), QStringLiteral("backup") }.contains(strText)
            ? QString()
            : QStringLiteral("must be none, primary or backup");
    case KindPane:
        return QStringList{ QStringLiteral("discovered"), QStringLiteral("simulator") }.contains(strText)
            ? QString()
            : QStringLiteral("must be discovered or simulator");
    }
    return {};
}

QString Quote(const QString& strKey)
{
    return QLatin1Char('"') + strKey + QLatin1Char('"');
}

} // namespace

QString CStepRules::FindScenarioFault(const QJsonObject& object)
{
    const QStringList listKnown{ QStringLiteral("steps"), QStringLiteral("title"), QStringLiteral("ui") };
    const QStringList listKey = object.keys();
    for (const QString& strKey : listKey) {
        if (!listKnown.contains(strKey)) {
            return QStringLiteral("unknown key ") + Quote(strKey);
        }
    }
    if (!object.value(QLatin1String("steps")).isArray()) {
        return QStringLiteral("\"steps\" must be a list");
    }
    if (object.contains(QLatin1String("ui")) && !object.value(QLatin1String("ui")).isArray()) {
        return QStringLiteral("\"ui\" must be a list");
    }
    const QJsonArray arrayStep = object.value(QLatin1String("steps")).toArray();
    for (int n = 0; n < arrayStep.size(); ++n) {
        const QString strFault = FindStepFault(arrayStep.at(n).toObject());
        if (!strFault.isEmpty()) {
            return QStringLiteral("step %1: ").arg(n + 1) + strFault;
        }
    }
    const QJsonArray arrayMark = object.value(QLatin1String("ui")).toArray();
    for (int n = 0; n < arrayMark.size(); ++n) {
        const QString strFault = FindMarkFault(arrayMark.at(n));
        if (!strFault.isEmpty()) {
            return QStringLiteral("mark %1 of \"ui\": ").arg(n + 1) + strFault;
        }
    }
    return {};
}

QString CStepRules::FindStepFault(const QJsonObject& step)
{
    const QString strTimeFault = FindTimeFault(step);
    if (!strTimeFault.isEmpty()) {
        return strTimeFault;
    }
    const QString strDo = step.value(QLatin1String("do")).toString();
    if (!GetRules().contains(strDo)) {
        return QStringLiteral("there is no such thing to do: ") + Quote(strDo);
    }
    QStringList listKnown{ QStringLiteral("at"), QStringLiteral("do") };
    const Rules vecRule = GetRules().value(strDo);
    for (const SKeyRule& rule : vecRule) {
        const QString strKey = QString::fromLatin1(rule.pKey);
        listKnown.append(strKey);
        if (!step.contains(strKey) && !rule.bNeeded) {
            continue;
        }
        const QString strFault = FindValueFault(rule.kind, step.value(strKey));
        if (!strFault.isEmpty()) {
            return Quote(strKey) + QStringLiteral(" of ") + Quote(strDo) + QLatin1Char(' ') + strFault;
        }
    }
    const QStringList listKey = step.keys();
    for (const QString& strKey : listKey) {
        if (!listKnown.contains(strKey)) {
            return QStringLiteral("unknown key ") + Quote(strKey) + QStringLiteral(" of ") + Quote(strDo);
        }
    }
    return {};
}

QString CStepRules::FindMarkFault(const QJsonValue& value)
{
    return value.isObject() ? FindTimeFault(value.toObject()) : QStringLiteral("must be an object");
}

QString CStepRules::FindTimeFault(const QJsonObject& object)
{
    return IsNumberOf(object.value(QLatin1String("at")), 0, dLongest) ? QString()
                                                                      : QStringLiteral("\"at\" must be seconds, from 0 to a day");
}
