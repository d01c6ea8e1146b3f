#include "CommonComponent/CToolTipControl.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QScreen>
#include <QToolTip>
#include <QWindow>

namespace {

constexpr int nMaximumWidth = 480;
constexpr int nMargin = 4;
constexpr int nBaseMs = 10000;
constexpr int nMsPerCharacter = 40;
constexpr int nLongText = 100; ///< characters from which on a text is given more time
constexpr QPoint ptBelowMouse(2, 20);
constexpr int nAboveMouse = 4;

/// Below and to the right of the mouse where there is room, otherwise left of it or above it; a tip that is
/// larger than the screen starts at its edge.
QPoint PlaceToolTip(const QPoint& ptMouse, const QSize& size, const QRect& rcScreen)
{
    QPoint pt = ptMouse + ptBelowMouse;
    if (pt.y() + size.height() > rcScreen.bottom() + 1) {
        pt.setY(ptMouse.y() - nAboveMouse - size.height());
    }
    pt.setX(qMin(pt.x(), rcScreen.right() + 1 - size.width()));
    return QPoint(qMax(pt.x(), rcScreen.left()), qMax(pt.y(), rcScreen.top()));
}

QRect GetScreenRect(const QPoint& ptMouse)
{
    const QScreen* pScreen = QGuiApplication::screenAt(ptMouse);
    return (pScreen ? pScreen : QGuiApplication::primaryScreen())->availableGeometry();
}

bool IsHiddenBy(QEvent::Type type)
{
    switch (type) {
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::Close:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

} // namespace

CToolTipControl* CToolTipControl::pInstance = nullptr;

CToolTipControl* CToolTipControl::Get()
{
    if (!pInstance) {
        pInstance = new CToolTipControl;
        qAddPostRoutine([] { delete pInstance; });
    }
    return pInstance;
}

CToolTipControl::CToolTipControl()
{
    timerDelay.setSingleShot(true);
    timerExpire.setSingleShot(true);
    connect(&timerDelay, &QTimer::timeout, this, [this] { Show(strDelayed); });
    connect(&timerExpire, &QTimer::timeout, this, &CToolTipControl::Hide);
}

CToolTipControl::~CToolTipControl()
{
    delete pWindow;
    pInstance = nullptr;
}

void CToolTipControl::Show(const QString& strText)
{
    if (strText.isEmpty()) {
        Hide();
        return;
    }
    timerDelay.stop();
    pTarget = QApplication::widgetAt(QCursor::pos());
    CreateWindow(pTarget ? pTarget->window() : QApplication::activeWindow());
    pWindow->setText(strText);
    Place();
    if (!pWindow->isVisible()) {
        pWindow->show();
        LetTheMouseThrough();
    }
    timerExpire.start(nBaseMs + nMsPerCharacter * qMax(0, strText.size() - nLongText));
    qApp->installEventFilter(this);
}

void CToolTipControl::ShowLater(const QString& strText, int nDelay)
{
    strDelayed = strText;
    pTarget = QApplication::widgetAt(QCursor::pos());
    timerDelay.start(qMax(0, nDelay));
    qApp->installEventFilter(this);
}

void CToolTipControl::Hide()
{
    timerDelay.stop();
    timerExpire.stop();
    qApp->removeEventFilter(this);
    DestroyWindow();
}

bool CToolTipControl::IsVisible() const
{
    return pWindow && pWindow->isVisible();
}

bool CToolTipControl::eventFilter(QObject* watched, QEvent* event)
{
    const bool bOwn = watched == pWindow;
    // A window manager makes the mouse leave and come back when it grabs it; that hides nothing.
    const bool bLeft = event->type() == QEvent::Leave && watched == pTarget && QApplication::widgetAt(QCursor::pos()) != pTarget;
    if (bLeft || (!bOwn && watched->isWidgetType() && IsHiddenBy(event->type()))) {
        Hide();
    }
    return QObject::eventFilter(watched, event);
}

void CToolTipControl::CreateWindow(QWidget* pParent)
{
    if (pWindow && pWindow->parentWidget() == pParent) {
        return;
    }
    DestroyWindow();
    pWindow = new QLabel(pParent,
                         Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    pWindow->setObjectName(QStringLiteral("ToolTip"));
    pWindow->setAttribute(Qt::WA_ShowWithoutActivating);
    pWindow->setTextFormat(Qt::PlainText); // names come from devices and are no markup
    pWindow->setFont(QToolTip::font());
    pWindow->setPalette(QToolTip::palette());
    pWindow->setFrameStyle(QFrame::Box | QFrame::Plain);
    pWindow->setMargin(nMargin);
}

void CToolTipControl::DestroyWindow()
{
    // Emptied first: closing the window sends events that hide the tip.
    const QLabel* pOld = pWindow;
    pWindow = nullptr;
    delete pOld;
}

// Qt on X11 ignores the flag of a window that is created with it, and heeds its change on a shown one.
void CToolTipControl::LetTheMouseThrough()
{
    QWindow* pShown = pWindow->windowHandle();
    pShown->setFlag(Qt::WindowTransparentForInput, false);
    pShown->setFlag(Qt::WindowTransparentForInput, true);
}

void CToolTipControl::Place()
{
    pWindow->ensurePolished();
    pWindow->setWordWrap(false);
    pWindow->setMinimumWidth(0);
    pWindow->setWordWrap(pWindow->sizeHint().width() > nMaximumWidth);
    pWindow->setMinimumWidth(pWindow->wordWrap() ? nMaximumWidth : 0);
    pWindow->adjustSize();
    const QPoint ptMouse = QCursor::pos();
    pWindow->move(PlaceToolTip(ptMouse, pWindow->size(), GetScreenRect(ptMouse)));
}
