#include "CorvidControl/day/CScenario.h"

#include "CorvidControl/day/ScenarioFaults.h"

#include <QFile>
#include <QFileInfo>
#include <QHostAddress>
#include <QJsonDocument>

#include <algorithm>

CScenario CScenario::ReadFile(const QString& strPath)
{
    QFile file(strPath);
    if (QFileInfo(strPath).isDir()) {
        return Refuse(strPath + QStringLiteral(": it is a folder"));
    }
    if (!file.open(QIODevice::ReadOnly)) {
        return Refuse(strPath + QStringLiteral(": ") + file.errorString());
    }
    return Read(file.readAll(), strPath);
}

CScenario CScenario::Read(const QByteArray& bytes, const QString& strName)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (!document.isObject()) {
        return Refuse(
            QStringLiteral("%1: its text is no JSON object (%2 at byte %3)").arg(strName, error.errorString()).arg(error.offset));
    }
    CScenario scenario;
    const QString strTwice = ScenarioFaults::FindTwiceFault(bytes);
    const QString strReason = strTwice.isEmpty() ? scenario.Fill(document.object()) : strTwice;
    return strReason.isEmpty() ? scenario : Refuse(strName + QStringLiteral(": ") + strReason);
}

quint32 CScenario::ReadAddress(const SScenarioStep& step)
{
    return QHostAddress(step.GetText("ip")).toIPv4Address();
}

CScenario CScenario::Refuse(const QString& strReason)
{
    CScenario scenario;
    scenario.strFault = strReason;
    return scenario;
}

// The first fault; empty when there is none.
QString CScenario::Fill(const QJsonObject& object)
{
    const QString strReason = ScenarioFaults::FindScenarioFault(object);
    if (!strReason.isEmpty()) {
        return strReason;
    }
    const QJsonArray arrayStep = object.value(QLatin1String("steps")).toArray();
    for (int n = 0; n < arrayStep.size(); ++n) {
        const QJsonObject keys = arrayStep.at(n).toObject();
        const double dAt = keys.value(QLatin1String("at")).toDouble();
        vecStep.append({ qRound64(dAt * 1000), keys.value(QLatin1String("do")).toString(), keys });
    }
    const auto isEarlier = [](const SScenarioStep& a, const SScenarioStep& b) { return a.nAt < b.nAt; };
    std::stable_sort(vecStep.begin(), vecStep.end(), isEarlier); // clazy:exclude=detaching-member
    arrayMark = object.value(QLatin1String("ui")).toArray();
    return {};
}
