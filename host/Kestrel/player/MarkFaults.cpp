#include "Kestrel/player/MarkFaults.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>

namespace {

/// A key of a mark beside "at".
struct SMarkKey
{
    const char* szName;
    const char* szWhat; ///< in words: "must be " and this
    bool (*isGood)(const QJsonValue& value);
};

bool IsText(const QJsonValue& value)
{
    return !value.toString().isEmpty();
}

/// It becomes part of the name of a file.
bool IsPictureName(const QJsonValue& value)
{
    static const QRegularExpression pattern(QRegularExpression::anchoredPattern(QStringLiteral("[A-Za-z0-9-]{1,100}")));
    return pattern.match(value.toString()).hasMatch();
}

bool IsPane(const QJsonValue& value)
{
    return value == QJsonValue(QStringLiteral("discovered")) || value == QJsonValue(QStringLiteral("simulator"));
}

bool IsNames(const QJsonValue& value)
{
    const QJsonArray array = value.toArray();
    return !array.isEmpty() && std::all_of(array.begin(), array.end(), IsText);
}

constexpr std::array<SMarkKey, 6> listKey{ {
    { "shot", "a name of letters, digits and -, at most 100", IsPictureName },
    { "search", "a text", [](const QJsonValue& value) { return value.isString(); } },
    { "pane", "discovered or simulator", IsPane },
    { "select", "a list of names", IsNames },
    { "press", "a text that is not empty", IsText },
    { "journal", "true or false", [](const QJsonValue& value) { return value.isBool(); } },
} };

QString FindKeyFault(const QString& strKey, const QJsonValue& value)
{
    const auto it
        = std::find_if(listKey.begin(), listKey.end(), [&](const SMarkKey& key) { return strKey == QLatin1String(key.szName); });
    if (it == listKey.end()) {
        return QStringLiteral("unknown key \"%1\"").arg(strKey);
    }
    return it->isGood(value) ? QString() : QStringLiteral("\"%1\" must be %2").arg(strKey, QLatin1String(it->szWhat));
}

QString FindMarkFault(const QJsonObject& mark)
{
    QStringList listName = mark.keys();
    listName.removeAll(QStringLiteral("at"));
    for (const QString& strName : std::as_const(listName)) {
        const QString strFault = FindKeyFault(strName, mark.value(strName));
        if (!strFault.isEmpty()) {
            return strFault;
        }
    }
    return listName.size() == 1 ? QString() : QStringLiteral("must have one key beside \"at\"");
}

} // namespace

QString MarkFaults::FindFault(const QJsonArray& marks)
{
    for (int n = 0; n < marks.size(); ++n) {
        const QString strFault = FindMarkFault(marks.at(n).toObject());
        if (!strFault.isEmpty()) {
            return QStringLiteral("mark %1 of \"ui\": ").arg(n + 1) + strFault;
        }
    }
    return {};
}
