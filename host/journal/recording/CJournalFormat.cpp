#include "journal/recording/CJournalFormat.h"

#include "journal/recording/NodeJson.h"

#include <QDateTime>
#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

QString GetKind(EnJournalLine line)
{
    switch (line) {
    case LineCall:
        return QStringLiteral("call");
    case LineBegin:
        return QStringLiteral("begin");
    case LineMessage:
        return QStringLiteral("message");
    case LineNote:
        return QStringLiteral("note");
    case LineUser:
        return QStringLiteral("user");
    case LineGuard:
        break;
    }
    return QStringLiteral("guard");
}

template <typename Duration> double GetMicroseconds(Duration time)
{
    return static_cast<double>(std::chrono::duration_cast<std::chrono::microseconds>(time).count());
}

QString GetDate(qint64 nDate)
{
    return QDateTime::fromMSecsSinceEpoch(nDate, Qt::UTC).toString(Qt::ISODateWithMs);
}

QString GetId(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces);
}

template <typename List, typename FnWrite> QJsonArray GetArray(const List& list, FnWrite fnWrite)
{
    QJsonArray array;
    for (const auto& element : list) {
        array.append(fnWrite(element));
    }
    return array;
}

QString GetAddress(quint32 nIP, CJournalMask& mask)
{
    return QHostAddress(mask.GetAddress(nIP)).toString();
}

QJsonObject GetProject(const SProjectInfo& info, CJournalMask& mask)
{
    return { { QStringLiteral("id"), GetId(info.idProject) },
             { QStringLiteral("name"), mask.GetName(QString::fromStdString(info.strName)) },
             { QStringLiteral("time"), QJsonArray{ info.nYear, info.nMonth, info.nDay, info.nHour, info.nMinute, info.nSecond } },
             { QStringLiteral("reserved"),
               QJsonArray{ QString::number(info.nReserved1), QString::number(info.nReserved2),
                           QString::number(info.nReserved3) } } };
}

/// Each kind of value as JSON, but a root.
struct SValueWriter
{
    CJournalMask& mask;

    QJsonValue operator()(std::monostate) const
    {
        return {};
    }
    QJsonValue operator()(bool bValue) const
    {
        return bValue;
    }
    QJsonValue operator()(qint64 nValue) const
    {
        return nValue;
    }
    QJsonValue operator()(const QString& strValue) const
    {
        return strValue;
    }
    QJsonValue operator()(const SPrivateText& text) const
    {
        return mask.GetText(text);
    }
    QJsonValue operator()(const SPrivateTexts& texts) const
    {
        return GetArray(texts.vecText, [this](const SPrivateText& text) { return mask.GetText(text); });
    }
    QJsonValue operator()(const SAddress& address) const
    {
        return GetAddress(address.nIP, mask);
    }
    QJsonValue operator()(const SAddresses& addresses) const
    {
        return GetArray(addresses.vecIP, [this](quint32 nIP) { return GetAddress(nIP, mask); });
    }
    QJsonValue operator()(const QUuid& id) const
    {
        return GetId(id);
    }
    QJsonValue operator()(const std::vector<QUuid>& vecId) const
    {
        return GetArray(vecId, &GetId);
    }
    QJsonValue operator()(const QStringList& listText) const
    {
        return QJsonArray::fromStringList(listText);
    }
    QJsonValue operator()(const SProcessorAllNode& node) const
    {
        return NodeJson::GetWhole(node, mask);
    }
    QJsonValue operator()(const SProcessorGroupNode& node) const
    {
        return NodeJson::GetWhole(node, mask);
    }
    QJsonValue operator()(const SProjectInfo& info) const
    {
        return GetProject(info, mask);
    }
    QJsonValue operator()(const SSimulatorRequest& request) const
    {
        return QJsonObject{ { QStringLiteral("type"), request.nType },
                            { QStringLiteral("count"), request.nCount },
                            { QStringLiteral("output"), request.nOutput } };
    }
};

} // namespace

CJournalFormat::CJournalFormat(bool bMask, std::chrono::steady_clock::time_point timeStartIn)
    : mask(bMask), timeStart(timeStartIn)
{ }

QByteArray CJournalFormat::GetLine(const SJournalRecord& record)
{
    QJsonObject object = record.line == LineCall || record.line == LineBegin ? GetCall(record) : GetFields(record);
    object.insert(QStringLiteral("kind"), GetKind(record.line));
    object.insert(QStringLiteral("n"), static_cast<double>(record.nNumber));
    object.insert(QStringLiteral("t"), GetMicroseconds(record.timeBegin - timeStart));
    object.insert(QStringLiteral("date"), GetDate(record.nDate));
    object.insert(QStringLiteral("thread"), QLatin1String(record.thread));
    object.insert(QStringLiteral("object"), QLatin1String(record.szObject));
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QByteArray CJournalFormat::GetLine(const char* szKind, QJsonObject object) const
{
    object.insert(QStringLiteral("kind"), QLatin1String(szKind));
    object.insert(QStringLiteral("t"), GetMicroseconds(std::chrono::steady_clock::now() - timeStart));
    object.insert(QStringLiteral("date"), GetDate(QDateTime::currentMSecsSinceEpoch()));
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

void CJournalFormat::ForgetTrees()
{
    for (CTreeReading& reading : mapReading) {
        reading.Forget();
    }
}

CJournalMask& CJournalFormat::GetMask()
{
    return mask;
}

QJsonValue CJournalFormat::GetValue(const JournalValue& value, const QString& strTree)
{
    if (const auto* pNode = std::get_if<SProcessorAllNode>(&value)) {
        return mapReading[strTree].Take(*pNode, mask);
    }
    return std::visit(SValueWriter{ mask }, value);
}

QJsonObject CJournalFormat::GetCall(const SJournalRecord& record)
{
    const QString strOperation = QLatin1String(record.szOperation);
    QJsonObject object{ { QStringLiteral("operation"), strOperation },
                        { QStringLiteral("args"), GetArray(record.vecArgument, [&](const JournalValue& value) {
                              return std::visit(SValueWriter{ mask }, value);
                          }) } };
    if (record.line == LineBegin) {
        return object;
    }
    object.insert(QStringLiteral("us"), GetMicroseconds(record.timeTaken));
    if (record.bThrew) {
        object.insert(QStringLiteral("threw"), true);
    }
    if (!std::holds_alternative<std::monostate>(record.result)) {
        object.insert(QStringLiteral("result"), GetValue(record.result, QLatin1String(record.szObject) + strOperation));
    }
    return object;
}

QJsonObject CJournalFormat::GetObject(const std::vector<SJournalField>& vecField)
{
    QJsonObject object;
    for (const SJournalField& field : vecField) {
        object.insert(QLatin1String(field.szName), std::visit(SValueWriter{ mask }, field.value));
    }
    return object;
}

QJsonObject CJournalFormat::GetFields(const SJournalRecord& record)
{
    QJsonObject object = GetObject(record.vecField);
    if (record.line == LineMessage) {
        object.insert(QStringLiteral("cause"),
                      GetArray(record.vecCause, [](quint64 nCause) { return static_cast<double>(nCause); }));
    }
    if (*record.szOperation != 0) {
        object.insert(QStringLiteral("operation"), QLatin1String(record.szOperation));
    }
    return object;
}
