#include "CommonComponent/CDialogTitleBar.h"

#include "CommonComponent/StyleHooks.h"
#include "interfaces/widgets/CIconButton.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QWindow>

namespace {

constexpr int nBarHeight = 32;
constexpr int nTitleMargin = 16;
constexpr int nCloseSize = 32;
constexpr int nCloseIconSize = 20;

} // namespace

CDialogTitleBar::CDialogTitleBar(QWidget* pDialog)
    : QWidget(pDialog), pTitle(new QLabel(this)),
      bSystemMoves(QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
{
    setObjectName(QStringLiteral("DialogTitleBar"));
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(nBarHeight);
    pTitle->setObjectName(QStringLiteral("DialogTitle"));
    pTitle->setTextFormat(Qt::PlainText);
    pTitle->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* pClose = new CIconButton(this);
    pClose->setObjectName(QStringLiteral("DialogClose"));
    pClose->setIcon(LoadWidgetIcon(QStringLiteral(":/image/control/close/close.svg"), QStyle::SP_TitleBarCloseButton, this));
    pClose->setFixedSize(nCloseSize, nCloseSize);
    pClose->setIconSize(nCloseIconSize, nCloseIconSize);
    pClose->setFocusPolicy(Qt::NoFocus);
    pClose->setToolTip(tr("Close"));
    auto* pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(nTitleMargin, 0, 0, 0);
    pLayout->addWidget(pTitle, 1);
    pLayout->addWidget(pClose);
    connect(pClose, &CIconButton::clicked, this, &CDialogTitleBar::SignalClose);
}

void CDialogTitleBar::SetTitle(const QString& strTitle)
{
    pTitle->setText(strTitle);
}

void CDialogTitleBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        bDragging = true;
        ptGrip = event->globalPos() - window()->pos();
    }
}

void CDialogTitleBar::mouseMoveEvent(QMouseEvent* event)
{
    if (bDragging && bSystemMoves) {
        bDragging = !window()->windowHandle()->startSystemMove();
    } else if (bDragging) {
        window()->move(event->globalPos() - ptGrip);
    }
}

void CDialogTitleBar::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        bDragging = false;
    }
}
