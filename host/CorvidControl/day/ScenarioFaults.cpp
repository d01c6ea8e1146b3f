#include "CorvidControl/day/ScenarioFaults.h"

#include "CorvidControl/day/JsonKeys.h"
#include "CorvidControl/day/StepVerbs.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

QString Quote(const QString& strKey)
{
    return QLatin1Char('"') + strKey + QLatin1Char('"');
}

QString FindUnknownKey(const QJsonObject& object, const QStringList& listKnown)
{
    const QStringList listKey = object.keys();
    for (const QString& strKey : listKey) {
        if (!listKnown.contains(strKey)) {
            return QStringLiteral("unknown key ") + Quote(strKey);
        }
    }
    return {};
}

QString FindTimeFault(const QJsonObject& object)
{
    const SStepValue& time = StepVerbs::GetTimeValue();
    return time.isGood(object.value(QLatin1String("at"))) ? QString()
                                                          : QStringLiteral("\"at\" must be ") + QLatin1String(time.szWhat);
}

QString FindMarkFault(const QJsonValue& value)
{
    return value.isObject() ? FindTimeFault(value.toObject()) : QStringLiteral("must be an object");
}

QString FindListFault(const QJsonObject& object)
{
    if (object.contains(QLatin1String("title")) && !object.value(QLatin1String("title")).isString()) {
        return QStringLiteral("\"title\" must be a text");
    }
    if (!object.value(QLatin1String("steps")).isArray()) {
        return QStringLiteral("\"steps\" must be a list");
    }
    if (object.contains(QLatin1String("ui")) && !object.value(QLatin1String("ui")).isArray()) {
        return QStringLiteral("\"ui\" must be a list");
    }
    return {};
}

QString FindKeyFault(const QJsonObject& step, const SStepVerb& verb)
{
    QStringList listKnown{ QStringLiteral("at"), QStringLiteral("do") };
    const QString strOf = QStringLiteral(" of ") + Quote(QLatin1String(verb.szName));
    for (const SStepKey& key : verb.vecKey) {
        const QString strKey = QLatin1String(key.szName);
        listKnown.append(strKey);
        const bool bChecked = key.bNeeded || step.contains(strKey);
        if (bChecked && !key.pValue->isGood(step.value(strKey))) {
            return Quote(strKey) + strOf + QStringLiteral(" must be ") + QLatin1String(key.pValue->szWhat);
        }
    }
    const QString strFault = FindUnknownKey(step, listKnown);
    return strFault.isEmpty() ? QString() : strFault + strOf;
}

} // namespace

QString ScenarioFaults::FindScenarioFault(const QJsonObject& object)
{
    const QString strKeyFault
        = FindUnknownKey(object, { QStringLiteral("steps"), QStringLiteral("title"), QStringLiteral("ui") });
    const QString strFormFault = strKeyFault.isEmpty() ? FindListFault(object) : strKeyFault;
    if (!strFormFault.isEmpty()) {
        return strFormFault;
    }
    const QJsonArray arrayStep = object.value(QLatin1String("steps")).toArray();
    for (int n = 0; n < arrayStep.size(); ++n) {
        const bool bObject = arrayStep.at(n).isObject();
        const QString strFault = bObject ? FindStepFault(arrayStep.at(n).toObject()) : QStringLiteral("must be an object");
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

QString ScenarioFaults::FindTwiceFault(const QByteArray& bytes)
{
    const QStringList listWay = JsonKeys::FindTwice(bytes);
    if (listWay.isEmpty()) {
        return {};
    }
    const QString strFault = Quote(listWay.constLast()) + QStringLiteral(" is there twice");
    if (listWay.size() < 3) {
        return strFault;
    }
    const bool bStep = listWay.constFirst() == QLatin1String("steps");
    const QString strPlace = bStep ? QStringLiteral("step %1: ") : QStringLiteral("mark %1 of \"ui\": ");
    return strPlace.arg(listWay.at(1)) + strFault;
}

QString ScenarioFaults::FindStepFault(const QJsonObject& step)
{
    const QString strTimeFault = FindTimeFault(step);
    if (!strTimeFault.isEmpty()) {
        return strTimeFault;
    }
    if (!step.value(QLatin1String("do")).isString()) {
        return QStringLiteral("\"do\" must be a text");
    }
    const QString strDo = step.value(QLatin1String("do")).toString();
    const SStepVerb* pVerb = StepVerbs::Find(strDo);
    return pVerb ? FindKeyFault(step, *pVerb) : QStringLiteral("there is no such thing to do: ") + Quote(strDo);
}
