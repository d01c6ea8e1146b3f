#include "interfaces/widgets/CBaseDialog.h"

#include "CommonComponent/CDialogMask.h"
#include "CommonComponent/CDialogTitleBar.h"

#include <QBoxLayout>
#include <QEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QStyle>
#include <QVariant>

namespace {

constexpr int nBorder = 1; ///< room for the border of the style sheet
constexpr int nButtonMargin = 16;
constexpr int nButtonSpacing = 8;
constexpr int nButtonMinimumWidth = 72;
constexpr int nFadeMs = 120;

/// Other platforms print a warning when they are asked for an opacity.
bool HasWindowOpacity()
{
    static const QStringList listPlatform = { QStringLiteral("xcb"), QStringLiteral("windows"), QStringLiteral("cocoa") };
    return listPlatform.contains(QGuiApplication::platformName());
}

bool IsDialogButton(const QWidget* pWidget)
{
    return pWidget->property("DialogButton").toBool();
}

/// Also before the dialog is shown, when all of its children still count as hidden.
bool TakesTab(const QWidget* pWidget)
{
    const bool bPutAway = pWidget->testAttribute(Qt::WA_WState_ExplicitShowHide) && pWidget->isHidden();
    return (pWidget->focusPolicy() & Qt::TabFocus) && pWidget->isEnabled() && !bPutAway;
}

} // namespace

class CBaseDialog::CPrivate
{
public:
    explicit CPrivate(CBaseDialog* pDialogIn) : pDialog(pDialogIn) { }

    void InitLayout(EnButton buttons);
    void AddButton(QBoxLayout* pLayout, int nKey, const QString& strName, const QString& strText);
    void SetConnection(CDialogTitleBar* pTitleBar);
    void MoveButtonsToTabEnd();
    void FocusContents();
    void FitToContents();
    void ShowMask();
    void FadeIn();

    CBaseDialog* pDialog;
    QVBoxLayout* pContent = nullptr;
    QPointer<CDialogMask> pMask; ///< child of the parent's window
    QSize sizeFitted;            ///< the size that FitToContents gave; another fixed one is the user's
    bool bCanResize = true;
    bool bMask = false;
    bool bFade = false;
};

void CBaseDialog::CPrivate::InitLayout(EnButton buttons)
{
    auto* pLayout = new QVBoxLayout(pDialog);
    pLayout->setContentsMargins(nBorder, nBorder, nBorder, nBorder);
    pLayout->setSpacing(0);
    auto* pTitleBar = new CDialogTitleBar(pDialog);
    pLayout->addWidget(pTitleBar);
    pContent = new QVBoxLayout;
    pLayout->addLayout(pContent, 1);
    SetConnection(pTitleBar);
    if (buttons == ButtonsNone) {
        return;
    }
    auto* pRow = new QHBoxLayout;
    pRow->setContentsMargins(nButtonMargin, 0, nButtonMargin, nButtonMargin);
    pRow->setSpacing(nButtonSpacing);
    pRow->addStretch(1);
    AddButton(pRow, KeyAccept, QStringLiteral("DialogAccept"), CBaseDialog::tr("&OK"));
    if (buttons == ButtonsOkCancel) {
        AddButton(pRow, KeyReject, QStringLiteral("DialogReject"), CBaseDialog::tr("&Cancel"));
    }
    pLayout->addLayout(pRow);
    pDialog->mapButton.value(KeyAccept)->setDefault(true);
}

void CBaseDialog::CPrivate::AddButton(QBoxLayout* pLayout, int nKey, const QString& strName, const QString& strText)
{
    auto* pButton = new QPushButton(strText, pDialog);
    pButton->setObjectName(strName);
    pButton->setProperty("DialogButton", true);
    pButton->setMinimumWidth(nButtonMinimumWidth);
    pLayout->addWidget(pButton);
    pDialog->mapButton[nKey] = pButton;
    connect(pButton, &QPushButton::clicked, pDialog, nKey == KeyAccept ? &QDialog::accept : &QDialog::reject);
}

void CBaseDialog::CPrivate::SetConnection(CDialogTitleBar* pTitleBar)
{
    connect(pTitleBar, &CDialogTitleBar::SignalClose, pDialog, &QDialog::reject);
    connect(pDialog, &QWidget::windowTitleChanged, pTitleBar, &CDialogTitleBar::SetTitle);
}

void CBaseDialog::CPrivate::MoveButtonsToTabEnd()
{
    QWidget* pLast = pDialog;
    for (QWidget* pNext = pDialog->nextInFocusChain(); pNext != pDialog; pNext = pNext->nextInFocusChain()) {
        if (!IsDialogButton(pNext) && pDialog->isAncestorOf(pNext)) {
            pLast = pNext;
        }
    }
    for (QPushButton* pButton : std::as_const(pDialog->mapButton)) {
        QWidget::setTabOrder(pLast, pButton);
        pLast = pButton;
    }
}

void CBaseDialog::CPrivate::FocusContents()
{
    if (pDialog->focusWidget()) {
        return;
    }
    // Not simply the first in the chain: a ring that is right already starts anywhere, also at the buttons.
    QWidget* pFirst = nullptr;
    for (QWidget* pNext = pDialog->nextInFocusChain(); pNext != pDialog; pNext = pNext->nextInFocusChain()) {
        const bool bBetter = !pFirst || (IsDialogButton(pFirst) && !IsDialogButton(pNext));
        if (TakesTab(pNext) && bBetter) {
            pFirst = pNext;
        }
    }
    if (pFirst) {
        pFirst->setFocus(Qt::TabFocusReason);
    }
}

void CBaseDialog::CPrivate::FitToContents()
{
    if (bCanResize) {
        return;
    }
    const QLayout* pLayout = pDialog->layout();
    const QSize sizeHint = pLayout->totalSizeHint();
    const bool bOwnWidth = pDialog->minimumWidth() == pDialog->maximumWidth() && pDialog->minimumWidth() != sizeFitted.width();
    const int nWidth = bOwnWidth ? pDialog->minimumWidth() : sizeHint.width();
    const int nHeight = pLayout->hasHeightForWidth() ? pLayout->totalHeightForWidth(nWidth) : sizeHint.height();
    sizeFitted = QSize(bOwnWidth ? 0 : nWidth, nHeight);
    pDialog->setFixedSize(nWidth, nHeight);
}

void CBaseDialog::CPrivate::ShowMask()
{
    QWidget* pParent = pDialog->parentWidget();
    if (bMask && pParent && !pMask) {
        pMask = new CDialogMask(pParent->window());
        pMask->show();
    }
}

void CBaseDialog::CPrivate::FadeIn()
{
    if (!bFade || !HasWindowOpacity()
        || pDialog->style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, pDialog) == 0) {
        return;
    }
    auto* pAnimation = new QPropertyAnimation(pDialog, "windowOpacity", pDialog);
    pAnimation->setDuration(nFadeMs);
    pAnimation->setStartValue(0.0);
    pAnimation->setEndValue(1.0);
    pAnimation->start(QAbstractAnimation::DeleteWhenStopped);
}

CBaseDialog::CBaseDialog(QWidget* parent, const QString& strTitle, bool bStayOnTop, EnButton buttons)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), d(new CPrivate(this))
{
    setWindowFlag(Qt::WindowStaysOnTopHint, bStayOnTop);
    setAttribute(Qt::WA_StyledBackground);
    setModal(true);
    d->InitLayout(buttons);
    setWindowTitle(strTitle);
}

CBaseDialog::~CBaseDialog()
{
    delete d->pMask;
}

void CBaseDialog::SetCanResize(bool bCanResize)
{
    d->bCanResize = bCanResize;
    setSizeGripEnabled(bCanResize);
}

void CBaseDialog::SetTransparentMask()
{
    d->bMask = true;
}

void CBaseDialog::SetTransitionAnimate()
{
    d->bFade = true;
}

QBoxLayout* CBaseDialog::GetContentLayout() const
{
    return d->pContent;
}

void CBaseDialog::setVisible(bool bVisible)
{
    if (bVisible && !isVisible()) {
        d->MoveButtonsToTabEnd();
        ensurePolished();
        d->FitToContents();
        d->ShowMask();
        d->FocusContents();
        d->FadeIn();
    }
    QDialog::setVisible(bVisible);
    if (!bVisible) {
        delete d->pMask;
    }
}

bool CBaseDialog::event(QEvent* event)
{
    const bool bResult = QDialog::event(event);
    if (event->type() == QEvent::LayoutRequest && isVisible()) {
        d->FitToContents();
    }
    return bResult;
}
