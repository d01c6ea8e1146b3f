#include "CorvidControl/day/StepVerbs.h"

#include "CorvidControl/day/CStepRunner.h"
#include "CorvidControl/list/NameRules.h"

#include <QHostAddress>
#include <QJsonArray>

#include <algorithm>

namespace {

constexpr double dLongest = 24 * 60 * 60; // seconds

bool IsRole(const QJsonValue& value)
{
    const QString strRole = value.toString();
    return strRole == QLatin1String("none") || strRole == QLatin1String("primary") || strRole == QLatin1String("backup");
}

bool IsPane(const QJsonValue& value)
{
    const QString strPane = value.toString();
    return strPane == QLatin1String("discovered") || strPane == QLatin1String("simulator");
}

bool IsNumber(const QJsonValue& value, double dLeast, double dMost)
{
    return value.isDouble() && value.toDouble() >= dLeast && value.toDouble() <= dMost;
}

bool IsText(const QJsonValue& value)
{
    return !value.toString().isEmpty();
}

bool IsTexts(const QJsonValue& value)
{
    const QJsonArray array = value.toArray();
    return value.isArray() && std::all_of(array.begin(), array.end(), IsText);
}

bool IsCount(const QJsonValue& value)
{
    return value == QJsonValue(1) || value == QJsonValue(2);
}

bool IsAddress(const QJsonValue& value)
{
    bool bAddress = false;
    QHostAddress(value.toString()).toIPv4Address(&bAddress);
    return bAddress;
}

static_assert(NameRules::nMaxTextBytes == 256, "the text of valueProject has the number");

constexpr SStepValue valueText{ "a text that is not empty", IsText };
constexpr SStepValue valueTexts{ "a list of texts that are not empty", IsTexts };
constexpr SStepValue valueName{ "a good name", [](const QJsonValue& v) { return NameRules::FindFault(v.toString()).isEmpty(); } };
constexpr SStepValue valueProject{ "a text of at most 256 bytes without control characters",
                                   [](const QJsonValue& v) { return v.isString() && NameRules::IsText(v.toString()); } };
constexpr SStepValue valueFlag{ "true or false", [](const QJsonValue& v) { return v.isBool(); } };
constexpr SStepValue valueSeconds{ "seconds, from 0 to a day", [](const QJsonValue& v) { return IsNumber(v, 0, dLongest); } };
constexpr SStepValue valueRate{ "a number of 1 to 1000", [](const QJsonValue& v) { return IsNumber(v, 1, 1000); } };
constexpr SStepValue valueCount{ "1 or 2", IsCount };
constexpr SStepValue valueAddress{ "an IPv4 address", IsAddress };
constexpr SStepValue valueRole{ "none, primary or backup", IsRole };
constexpr SStepValue valuePane{ "discovered or simulator", IsPane };

constexpr SStepKey keyNode{ "node", &valueText };
constexpr SStepKey keyOn{ "on", &valueFlag };
constexpr SStepKey keyAddress{ "ip", &valueAddress };

std::vector<SStepVerb> BuildDeviceVerbs()
{
    return {
        { "offline", { keyNode }, "the device no longer answers", &CStepRunner::TakeOffline },
        { "online", { keyNode }, "the device answers again", &CStepRunner::TakeOnline },
        { "boot",
          { keyNode, { "for", &valueSeconds, false, "2" } },
          "the device restarts: offline, and online again after `for`",
          &CStepRunner::Boot },
        { "role", { keyNode, { "role", &valueRole } }, "the device's redundancy role changes", &CStepRunner::SetRole },
        { "fail-over",
          { keyNode, { "with", &valueText, false } },
          "a Primary and its Backup change roles. Without `with` it is the first other half in the same group, else in the "
          "list, that runs the same project",
          &CStepRunner::FailOver },
        { "project",
          { keyNode, { "project", &valueProject } },
          "the device loads another project, or none for an empty text",
          &CStepRunner::SetProject },
    };
}

std::vector<SStepVerb> BuildHostVerbs()
{
    return {
        { "chief",
          { { "group", &valueText }, { "node", &valueText, false } },
          "the node becomes the Chief of the group; without a node the group has none",
          &CStepRunner::SetChief },
        { "chief-mode", { keyOn }, "Chief-Member mode", &CStepRunner::SetChiefMode },
        { "open-project", { { "project", &valueName } }, "the host opens a project", &CStepRunner::OpenProject },
        { "close-project", {}, "the host closes it", &CStepRunner::CloseProject },
        { "lock", { keyOn }, "the list is locked or unlocked", &CStepRunner::LockList },
        { "block-refresh", { keyOn }, "refresh is blocked or allowed", &CStepRunner::BlockRefresh },
    };
}

std::vector<SStepVerb> BuildListVerbs()
{
    return {
        { "rename", { keyNode, { "name", &valueText } }, "a processor or a group gets another name", &CStepRunner::Rename },
        { "move",
          { keyNode, { "group", &valueText, false } },
          "a processor moves into the group; without a group to the root",
          &CStepRunner::Move },
        { "expand", { { "node", &valueText, false, "the root" }, keyOn }, "a node is unfolded or folded", &CStepRunner::Expand },
        { "select",
          { { "nodes", &valueTexts } },
          "the library selects these nodes in the current pane; an empty list selects the root",
          &CStepRunner::Select },
        { "pane",
          { { "pane", &valuePane } },
          "the library changes the current pane. The panel's tabs follow the user only: to switch as a user does, use `ui`",
          &CStepRunner::SetPane },
        { "add-group", { { "name", &valueText } }, "a new, empty group in the current pane", &CStepRunner::AddGroup },
        { "add-processor", { keyAddress }, "as the user's Add", &CStepRunner::AddProcessor, true },
        { "add-simulators",
          { { "count", &valueCount } },
          "as the user's Add in the Simulator pane",
          &CStepRunner::AddSimulators },
        { "delete", { keyNode }, "a processor, or a group with its processors", &CStepRunner::Delete, true },
    };
}

std::vector<SStepVerb> BuildNetworkVerbs()
{
    return {
        { "appear",
          { keyAddress, { "name", &valueName } },
          "an unlisted device stands in the network; the next scan finds it",
          &CStepRunner::Appear },
        { "silent", { keyAddress }, "no device answers at this address", &CStepRunner::Silence },
        { "scan", {}, "as the user's Refresh", &CStepRunner::Scan, true },
        { "storm",
          { { "rate", &valueRate }, { "for", &valueSeconds } },
          "random processors drop out, come back and change their project, `rate` times a second, for `for` seconds",
          &CStepRunner::Storm },
    };
}

std::vector<SStepVerb> BuildAll()
{
    std::vector<SStepVerb> vecAll;
    for (const std::vector<SStepVerb>& vecVerb :
         { BuildDeviceVerbs(), BuildHostVerbs(), BuildListVerbs(), BuildNetworkVerbs() }) {
        vecAll.insert(vecAll.end(), vecVerb.begin(), vecVerb.end());
    }
    return vecAll;
}

} // namespace

const SStepValue& StepVerbs::GetTimeValue()
{
    return valueSeconds;
}

const std::vector<SStepVerb>& StepVerbs::GetAll()
{
    static const std::vector<SStepVerb> vecAll = BuildAll();
    return vecAll;
}

const SStepVerb* StepVerbs::Find(const QString& strDo)
{
    const std::vector<SStepVerb>& vecAll = GetAll();
    const auto it
        = std::find_if(vecAll.begin(), vecAll.end(), [&](const SStepVerb& verb) { return strDo == QLatin1String(verb.szName); });
    return it == vecAll.end() ? nullptr : &*it;
}
