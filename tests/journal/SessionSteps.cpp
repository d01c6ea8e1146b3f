#include "SessionSteps.h"

namespace {

/// Opens the button's dialog and accepts it as it is.
SSessionStep AcceptDialogOf(const QString& strToolTip)
{
    return { {},
             [strToolTip](CPanelSession& session) {
                 session.Answer("DialogAccept");
                 session.PressButton(strToolTip);
             },
             [strToolTip](const CPanelSession& session) { return session.CanPress(strToolTip); } };
}

SSessionStep ChoosePane(bool bSimulator)
{
    return { {},
             [bSimulator](CPanelSession& session) { session.ChoosePane(bSimulator); },
             [bSimulator](const CPanelSession& session) { return session.HasPane(!bSimulator); } };
}

SSessionStep Refresh()
{
    return { {},
             [](CPanelSession& session) { session.Refresh(); },
             [](const CPanelSession& session) { return session.CanRefresh(); } };
}

SSessionStep AddGroup()
{
    return { "loose", [](CPanelSession& session) { session.PressButton("Add group"); },
             [](const CPanelSession& session) { return session.CanPress("Add group"); } };
}

} // namespace

SSessionStep SessionSteps::Click(const QString& strRow)
{
    return { strRow, [strRow](CPanelSession& session) { session.Click(strRow); } };
}

std::vector<SSessionStep> SessionSteps::All(const QString& strImport)
{
    std::vector<SSessionStep> vecStep = Selections();
    const std::vector<SSessionStep> vecMore{
        AddGroup(),
        { "Group 1",
          [](CPanelSession& session) {
              session.Click("Group 1");
              session.Press(Qt::Key_F2);
              session.Type("Yard");
          } },
        { "Yard", [](CPanelSession& session) { session.ChooseInMenu("loose", { "Move to group", "Yard" }); } },
        { "loose", [](CPanelSession& session) { session.Fold("Stage"); } },
        ChoosePane(true),
        AcceptDialogOf("Add simulators"),
        ChoosePane(false),
        Refresh(),
        AcceptDialogOf("Add a processor"),
        { "other",
          [](CPanelSession& session) {
              session.Click("other");
              session.Answer("Yes");
              session.PressButton("Delete");
          } },
        { {},
          [strImport](CPanelSession& session) {
              session.Answer("ButtonYes");
              session.AnswerByFile(strImport);
              session.Answer("ButtonOk");
              session.TriggerEntry("Import");
          } },
        Click("imported"),
    };
    vecStep.insert(vecStep.end(), vecMore.begin(), vecMore.end());
    return vecStep;
}

std::vector<SSessionStep> SessionSteps::Selections()
{
    return {
        Click("alpha"), { "beta", [](CPanelSession& session) { session.Click("beta", Qt::ControlModifier); } },
        Click("loose"), { "loose", [](CPanelSession& session) { session.Press(Qt::Key_Down); } },
        Click("Stage"),
    };
}

std::vector<SSessionStep> SessionSteps::Short()
{
    std::vector<SSessionStep> vecStep = Selections();
    vecStep.push_back(AddGroup());
    vecStep.push_back({ "Group 1", [](CPanelSession& session) { session.Click("Hall"); } });
    vecStep.push_back({ {}, [](CPanelSession& session) {
                           session.Click("other");
                           session.Answer("Yes");
                           session.PressButton("Delete");
                       } });
    return vecStep;
}

std::vector<SSessionStep> SessionSteps::InTheOtherPane()
{
    std::vector<SSessionStep> vecStep(5, Refresh());
    vecStep.insert(vecStep.begin(), { Click("alpha"), ChoosePane(true), AcceptDialogOf("Add simulators") });
    vecStep.insert(vecStep.end(), { ChoosePane(false), Click("alpha") });
    return vecStep;
}

QByteArray SessionSteps::Storm()
{
    return R"({"steps": [
        { "at": 0.1, "do": "storm", "rate": 300, "for": 0.5 },
        { "at": 0.2, "do": "role", "node": "alpha", "role": "primary" },
        { "at": 0.3, "do": "open-project", "project": "Evening" },
        { "at": 0.4, "do": "chief-mode", "on": true },
        { "at": 0.45, "do": "block-refresh", "on": true },
        { "at": 0.5, "do": "block-refresh", "on": false }
    ]})";
}
