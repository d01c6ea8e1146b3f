#include "interfaces/widgets/CCommonOptionDlg.h"

#include <QBoxLayout>
#include <QPushButton>
#include <QRegularExpression>
#include <QVariant>

namespace
{
constexpr int MARGIN = 16;
constexpr int SPACING = 8;
constexpr int OPTION_HEIGHT = 40;
constexpr int OPTION_MINIMUM_WIDTH = 260;
constexpr int ICON_SIZE = 24;
constexpr int nCancel = 0; // its key and what exec() gives for it
constexpr int nCancelMinimumWidth = 72;

QString WithoutMnemonic(const QString& strText)
{
    static const QRegularExpression expression(QStringLiteral("&(.)"));
    return QString(strText).replace(expression, QStringLiteral("\\1"));
}
} // namespace

CCommonOptionDlg::CCommonOptionDlg(QWidget* parent, const QString& strTitle) : CBaseDialog(parent, strTitle, false, ButtonsNone)
{
    SetCanResize(false);
    SetTransparentMask();
    GetContentLayout()->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    GetContentLayout()->setSpacing(SPACING);
    AddCancel();
}

CCommonOptionDlg::~CCommonOptionDlg() = default;

bool CCommonOptionDlg::AddOption(const QIcon& icon, const QString& strText)
{
    if (strText.isEmpty()) {
        return false;
    }
    const int nOption = mapButton.size(); // Cancel is there too
    auto* pButton = new QPushButton(icon, strText, this);
    pButton->setObjectName(QStringLiteral("OptionButton"));
    pButton->setProperty("DialogButton", true);
    pButton->setAccessibleName(WithoutMnemonic(strText));
    pButton->setMinimumSize(OPTION_MINIMUM_WIDTH, OPTION_HEIGHT);
    pButton->setIconSize(QSize(ICON_SIZE, ICON_SIZE));
    GetContentLayout()->insertWidget(nOption - 1, pButton);
    mapButton[nOption] = pButton;
    connect(pButton, &QPushButton::clicked, this, [this, nOption] { done(nOption); });
    return true;
}

void CCommonOptionDlg::AddCancel()
{
    auto* pCancel = new QPushButton(CBaseDialog::tr("&Cancel"), this);
    pCancel->setObjectName(QStringLiteral("DialogReject"));
    pCancel->setProperty("DialogButton", true);
    pCancel->setMinimumWidth(nCancelMinimumWidth);
    auto* pRow = new QHBoxLayout;
    pRow->setContentsMargins(0, SPACING, 0, 0);
    pRow->addStretch(1);
    pRow->addWidget(pCancel);
    GetContentLayout()->addLayout(pRow);
    mapButton[nCancel] = pCancel;
    pCancel->setDefault(true);
    pCancel->setFocus();
    connect(pCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, pCancel, qOverload<>(&QWidget::setFocus)); // for the next time that it opens
}
