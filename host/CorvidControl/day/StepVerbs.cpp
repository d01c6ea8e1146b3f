#include "CorvidControl/day/StepVerbs.h"

#include "CorvidControl/day/CStepRunner.h"
#include "CorvidControl/faults/CarriedValues.h"
#include "CorvidControl/faults/ControlCalls.h"
#include "CorvidControl/list/NameRules.h"

#include <QHostAddress>
#include <QJsonArray>

#include <algorithm>
#include <limits>

namespace {

constexpr double dLongest = 24 * 60 * 60; // seconds
constexpr int nTenYears = 10 * 365 * 24 * 60 * 60;

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

bool IsWhole(const QJsonValue& value, int nLeast, int nMost)
{
    return IsNumber(value, nLeast, nMost) && value.toDouble() == value.toInt();
}

bool IsThrown(const QJsonValue& value)
{
    return value.toString() == QLatin1String("error") || value.toString() == QLatin1String("other");
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

constexpr SStepValue valueCall{ "an operation with its object, as PrcListControl.AddGroup",
                                [](const QJsonValue& v) { return ControlCalls::GetAll().contains(v.toString()); } };
constexpr SStepValue valueHeldCall{ "an operation that the panel calls off the GUI thread",
                                    [](const QJsonValue& v) { return ControlCalls::GetHeld().contains(v.toString()); } };
constexpr SStepValue valueCommand{ "a command of the user",
                                   [](const QJsonValue& v) { return ControlCalls::GetCommands().contains(v.toString()); } };
constexpr SStepValue valueMilliseconds{ "milliseconds, from 0 to a minute",
                                        [](const QJsonValue& v) { return IsWhole(v, 0, 60000); } };
constexpr SStepValue valueTimes{ "a whole number of 0 to 1000", [](const QJsonValue& v) { return IsWhole(v, 0, 1000); } };
constexpr SStepValue valueThrown{ "error or other", IsThrown };

constexpr SStepValue valueMessage{ "a whole number from 0 on",
                                   [](const QJsonValue& v) { return IsWhole(v, 0, std::numeric_limits<int>::max()); } };
constexpr SStepValue valueFlicker{ "aux, expanded, name, online or role",
                                   [](const QJsonValue& v) { return CarriedValues::GetNames().contains(v.toString()); } };
constexpr SStepValue valueDate{ "whole seconds, from 1 to ten years",
                                [](const QJsonValue& v) { return IsWhole(v, 1, nTenYears); } };

constexpr SStepKey keyNode{ "node", &valueText };
constexpr SStepKey keyOn{ "on", &valueFlag };
constexpr SStepKey keyAddress{ "ip", &valueAddress };
constexpr SStepKey keyTimes{ "count", &valueTimes, false, "1" };

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

std::vector<SStepVerb> BuildCallFaultVerbs()
{
    return {
        { "latency",
          { { "call", &valueHeldCall }, { "ms", &valueMilliseconds }, { "for", &valueSeconds } },
          "each such call that begins within `for` answers so much later",
          &CStepRunner::DelayCall,
          false,
          true },
        { "hang",
          { { "call", &valueHeldCall }, { "for", &valueSeconds } },
          "no such call comes back before `for` is over, or Kestrel ends",
          &CStepRunner::HangCall,
          false,
          true },
        { "throw",
          { { "call", &valueCall }, { "count", &valueTimes, false, "1" }, { "thrown", &valueThrown, false, "error" } },
          "the next `count` of these calls throw: a std::runtime_error, or something that is no std::exception",
          &CStepRunner::ThrowFromCall,
          false,
          true },
        { "refuse-selection",
          { { "count", &valueTimes, false, "1" } },
          "the next `count` calls of SetSelectedNodes change nothing and return false",
          &CStepRunner::RefuseSelection,
          false,
          true },
        { "import-code",
          { { "code", &valueTimes } },
          "the next ImportList changes nothing and answers this",
          &CStepRunner::SetImportCode,
          false,
          true },
        { "export-code",
          { { "code", &valueTimes } },
          "the next ExportList changes nothing and answers this. For a 1 at its end the panel removes the list file",
          &CStepRunner::SetExportCode,
          false,
          true },
        { "refuse",
          { { "command", &valueCommand }, { "count", &valueTimes, false, "1" } },
          "the next `count` commands of this kind are refused, as not possible here",
          &CStepRunner::RefuseCommand,
          false,
          true },
    };
}

std::vector<SStepVerb> BuildMessageFaultVerbs()
{
    return {
        { "lose-messages",
          { keyTimes },
          "the next `count` messages reach nobody. Equal ones that wait are one message, here and below",
          &CStepRunner::LoseMessages,
          false,
          true },
        { "double-messages", { keyTimes }, "the next `count` messages come twice", &CStepRunner::DoubleMessages, false, true },
        { "reorder-messages",
          { keyTimes },
          "the next `count` messages wait for one another, a second at most, and come with the last first",
          &CStepRunner::ReorderMessages,
          false,
          true },
        { "empty-message",
          { { "message", &valueMessage } },
          "a message comes and nothing has changed; it may mean nothing to anybody",
          &CStepRunner::SendEmptyMessage,
          false,
          true },
    };
}

std::vector<SStepVerb> BuildDataFaultVerbs()
{
    return {
        { "flicker",
          { keyNode, { "value", &valueFlicker, false, "all" }, keyTimes },
          "of the next `count` readings of the node the first, third and so on have another value than the list. `aux` is what "
          "the "
          "panel only carries; a group has no online state and no role",
          &CStepRunner::Flicker,
          false,
          true },
        { "collide",
          { keyNode, { "with", &valueText }, { "for", &valueSeconds, false, "2" } },
          "for so long `node` is read with the id of `with`, a node of the same pane. Commands for that id go to `with`",
          &CStepRunner::Collide,
          false,
          true },
        { "clock-back",
          { { "by", &valueDate } },
          "the date by which files are named is set back by so much; nothing waits by it",
          &CStepRunner::SetClockBack,
          false,
          true },
    };
}

std::vector<SStepVerb> BuildAll()
{
    std::vector<SStepVerb> vecAll;
    for (const std::vector<SStepVerb>& vecVerb : { BuildDeviceVerbs(), BuildHostVerbs(), BuildListVerbs(), BuildNetworkVerbs(),
                                                   BuildCallFaultVerbs(), BuildMessageFaultVerbs(), BuildDataFaultVerbs() }) {
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
