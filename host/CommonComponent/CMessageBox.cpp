#include "interfaces/widgets/CMessageBox.h"

#include "CommonComponent/CMessageDialog.h"

#include <QPointer>

namespace {

CMessageBox::StandardButton Ask(QPointer<CMessageDialog> pDialog)
{
    pDialog->exec();
    // The dialog dies early when its parent is destroyed while it is open; then nobody has agreed to anything.
    const CMessageBox::StandardButton answer = pDialog ? pDialog->GetAnswer() : CMessageBox::ButtonNone;
    delete pDialog;
    return answer;
}

} // namespace

CMessageBox::StandardButton CMessageBox::information(QWidget* parent, const QString& title, const QString& text,
                                                     StandardButtons buttons, StandardButton defaultButton)
{
    auto* pDialog = new CMessageDialog(parent, title, text, buttons, defaultButton);
    pDialog->SetIcon(QStringLiteral(":/image/control/messageBox/information.svg"), QStyle::SP_MessageBoxInformation);
    return Ask(pDialog);
}

CMessageBox::StandardButton CMessageBox::question(QWidget* parent, const QString& title, const QString& text,
                                                  StandardButtons buttons, StandardButton defaultButton)
{
    auto* pDialog = new CMessageDialog(parent, title, text, buttons, defaultButton);
    pDialog->SetIcon(QStringLiteral(":/image/control/messageBox/question.svg"), QStyle::SP_MessageBoxQuestion);
    return Ask(pDialog);
}
