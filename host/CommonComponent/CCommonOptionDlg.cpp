#include "interfaces/widgets/CCommonOptionDlg.h"

#include <QBoxLayout>
#include <QPushButton>
#include <QRegularExpression>
#include <QVariant>

namespace {

constexpr int nMargin = 16;
constexpr int nSpacing = 8;
constexpr int nOptionHeight = 40;
constexpr int nOptionMinimumWidth = 260;
constexpr int nIconSize = 24;
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
    GetContentLayout()->setContentsMargins(nMargin, nMargin, nMargin, nMargin);
    GetContentLayout()->setSpacing(nSpacing);
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
    pButton->setMinimumSize(nOptionMinimumWidth, nOptionHeight);
    pButton->setIconSize(QSize(nIconSize, nIconSize));
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
    pRow->setContentsMargins(0, nSpacing, 0, 0);
    pRow->addStretch(1);
    pRow->addWidget(pCancel);
    GetContentLayout()->addLayout(pRow);
    mapButton[nCancel] = pCancel;
    pCancel->setDefault(true);
    pCancel->setFocus();
    connect(pCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, pCancel, qOverload<>(&QWidget::setFocus)); // for the next time that it opens
}
