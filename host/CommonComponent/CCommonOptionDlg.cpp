#include "interfaces/widgets/CCommonOptionDlg.h"

#include <QBoxLayout>
#include <QPushButton>
#include <QVariant>

namespace
{
constexpr int MARGIN = 16;
constexpr int SPACING = 8;
constexpr int OPTION_HEIGHT = 40;
constexpr int OPTION_MINIMUM_WIDTH = 260;
constexpr int ICON_SIZE = 24;
} // namespace

CCommonOptionDlg::CCommonOptionDlg(QWidget* parent, const QString& strTitle) : CBaseDialog(parent, strTitle, false, ButtonsNone)
{
    SetCanResize(false);
    SetTransparentMask();
    GetContentLayout()->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    GetContentLayout()->setSpacing(SPACING);
}

CCommonOptionDlg::~CCommonOptionDlg() = default;

bool CCommonOptionDlg::AddOption(const QIcon& icon, const QString& strText)
{
    if (strText.isEmpty()) {
        return false;
    }
    const int nOption = mapButton.size() + 1;
    auto* pButton = new QPushButton(icon, strText, this);
    pButton->setObjectName(QStringLiteral("OptionButton"));
    pButton->setProperty("DialogButton", true);
    pButton->setMinimumSize(OPTION_MINIMUM_WIDTH, OPTION_HEIGHT);
    pButton->setIconSize(QSize(ICON_SIZE, ICON_SIZE));
    GetContentLayout()->addWidget(pButton);
    mapButton[nOption] = pButton;
    connect(pButton, &QPushButton::clicked, this, [this, nOption] { done(nOption); });
    return true;
}
