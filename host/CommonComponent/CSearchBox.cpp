#include "interfaces/widgets/CSearchBox.h"

#include "CommonComponent/StyleHooks.h"
#include "interfaces/widgets/CIconButton.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStyleOptionFrame>
#include <QStylePainter>

namespace {

constexpr int nIconSize = 16;
constexpr int nMinimumHeight = 24;
constexpr int nMargin = 6;
constexpr int nSpacing = 4;

} // namespace

class CSearchBox::CPrivate
{
public:
    explicit CPrivate(CSearchBox* pBox);

    void InitLayout(CSearchBox* pBox);
    void SetConnection(CSearchBox* pBox);
    void UpdateText();

    QLabel* pMagnifier;
    QLineEdit* pEdit;
    CIconButton* pClear;
};

CSearchBox::CPrivate::CPrivate(CSearchBox* pBox)
    : pMagnifier(new QLabel(pBox)), pEdit(new QLineEdit(pBox)), pClear(new CIconButton(pBox))
{
    pMagnifier->setObjectName(QStringLiteral("SearchIcon"));
    const QIcon icon
        = LoadWidgetIcon(QStringLiteral(":/image/control/searchBox/search.svg"), QStyle::SP_FileDialogContentsView, pBox);
    pMagnifier->setPixmap(icon.pixmap(pBox->windowHandle(), QSize(nIconSize, nIconSize)));
    pEdit->setObjectName(QStringLiteral("SearchEdit"));
    pEdit->setFrame(false);
    pClear->setObjectName(QStringLiteral("SearchClear"));
    pClear->setIcon(LoadWidgetIcon(QStringLiteral(":/image/control/searchBox/clear.svg"), QStyle::SP_LineEditClearButton, pBox));
    pClear->setIconSize(nIconSize, nIconSize);
    pClear->setFixedSize(nIconSize, nIconSize);
    pClear->setFocusPolicy(Qt::NoFocus);
    pClear->setCursor(Qt::ArrowCursor);
    pClear->hide();
}

void CSearchBox::CPrivate::InitLayout(CSearchBox* pBox)
{
    auto* pLayout = new QHBoxLayout(pBox);
    pLayout->setContentsMargins(nMargin, 1, nMargin, 1);
    pLayout->setSpacing(nSpacing);
    pLayout->addWidget(pMagnifier);
    pLayout->addWidget(pEdit, 1);
    pLayout->addWidget(pClear);
}

void CSearchBox::CPrivate::SetConnection(CSearchBox* pBox)
{
    connect(pEdit, &QLineEdit::textChanged, pBox, [this](const QString& strText) { pClear->setVisible(!strText.isEmpty()); });
    connect(pEdit, &QLineEdit::textChanged, pBox, &CSearchBox::SignalSearch);
    connect(pClear, &QAbstractButton::clicked, pBox, &CSearchBox::ClearText);
}

void CSearchBox::CPrivate::UpdateText()
{
    pEdit->setPlaceholderText(CSearchBox::tr("Search"));
    if (pEdit->accessibleName() != CSearchBox::tr("Search")) { // a name that is set again is announced again
        pEdit->setAccessibleName(CSearchBox::tr("Search"));
    }
    pClear->setToolTip(CSearchBox::tr("Clear"));
}

CSearchBox::CSearchBox(QWidget* parent, bool bBorder) : QWidget(parent), d(new CPrivate(this))
{
    setProperty("Border", bBorder);
    setAttribute(Qt::WA_Hover);
    setMinimumHeight(nMinimumHeight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusProxy(d->pEdit);
    setFocusPolicy(Qt::StrongFocus); // a label gives its focus only to a buddy that takes it
    d->pEdit->installEventFilter(this);
    d->InitLayout(this);
    d->SetConnection(this);
    d->UpdateText();
}

CSearchBox::~CSearchBox() = default;

QString CSearchBox::GetText() const
{
    return d->pEdit->text();
}

void CSearchBox::ClearText()
{
    if (GetText().isEmpty()) {
        emit SignalSearch(QString());
    } else {
        d->pEdit->setText(QString()); // unlike clear() it empties the line's list of undo too, which grows with each search
    }
}

void CSearchBox::SetBackgroudGray()
{
    SetStyleProperty(this, "Background", QStringLiteral("gray"));
}

bool CSearchBox::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        SetStyleProperty(this, "Focus", event->type() == QEvent::FocusIn);
        break;
    case QEvent::KeyPress:
        return TakeEscape(static_cast<QKeyEvent*>(event));
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

bool CSearchBox::TakeEscape(const QKeyEvent* event)
{
    if (event->key() != Qt::Key_Escape || GetText().isEmpty()) {
        return false;
    }
    ClearText();
    return true;
}

void CSearchBox::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        d->UpdateText();
    }
}

void CSearchBox::paintEvent(QPaintEvent*)
{
    QStyleOptionFrame option;
    option.initFrom(this);
    const bool bBorder = property("Border").toBool();
    option.lineWidth = bBorder ? style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this) : 0;
    option.state.setFlag(QStyle::State_Sunken);
    option.state.setFlag(QStyle::State_HasFocus, d->pEdit->hasFocus());
    QStylePainter(this).drawPrimitive(QStyle::PE_PanelLineEdit, option);
}
