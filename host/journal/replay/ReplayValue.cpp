#include "journal/replay/ReplayValue.h"

#include "journal/recording/CJournalFormat.h"

#include <QHostAddress>

namespace {

constexpr int nIdLetters = 36;
constexpr int nTimeParts = 6; ///< year to second

} // namespace

QJsonValue ReplayValue::Write(const JournalValue& value)
{
    return CJournalFormat(false, {}).GetObject({ { "value", value } }).value(QStringLiteral("value"));
}

std::vector<QUuid> ReplayValue::ReadIds(const QJsonValue& value)
{
    std::vector<QUuid> vecId;
    const QJsonArray array = value.toArray();
    for (const QJsonValue& element : array) {
        vecId.push_back(QUuid(element.toString()));
    }
    return vecId;
}

quint32 ReplayValue::ReadAddress(const QJsonValue& value)
{
    return QHostAddress(value.toString()).toIPv4Address();
}

std::vector<uint> ReplayValue::ReadAddresses(const QJsonValue& value)
{
    std::vector<uint> vecIP;
    const QJsonArray array = value.toArray();
    for (const QJsonValue& element : array) {
        vecIP.push_back(ReadAddress(element));
    }
    return vecIP;
}

void ReplayValue::ReadProject(const QJsonValue& value, SProjectInfo& info)
{
    const QJsonObject object = value.toObject();
    info.idProject = QUuid(object.value(QStringLiteral("id")).toString());
    info.strName = object.value(QStringLiteral("name")).toString().toStdString();
    const QJsonArray time = object.value(QStringLiteral("time")).toArray();
    if (time.size() == nTimeParts) {
        info.nYear = time.at(0).toInt();
        info.nMonth = time.at(1).toInt();
        info.nDay = time.at(2).toInt();
        info.nHour = time.at(3).toInt();
        info.nMinute = time.at(4).toInt();
        info.nSecond = time.at(5).toInt();
    }
}

bool ReplayValue::IsId(const QString& strText)
{
    return strText.size() == nIdLetters && (!QUuid(strText).isNull() || strText == QUuid().toString(QUuid::WithoutBraces));
}
