#include "interfaces/widgets/CIPEdit.h"

#include "CommonComponent/CIPField.h"
#include "CommonComponent/StyleHooks.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QTimer>
#include <QToolTip>

#include <algorithm>
#include <array>

namespace {

constexpr int nFields = 4;
constexpr int nBits = 8;
constexpr int nMargin = 4;
constexpr int nMarkSize = 16;
constexpr int nRefusalMs = 1500; ///< long enough to be read

} // namespace

class CIPEdit::CPrivate
{
public:
    explicit CPrivate(CIPEdit* pOwner);

    void InitLayout();
    void SetConnection();
    void ConnectField(int nField);
    void SetAddress(quint32 nIP, bool bByUser);
    void GoTo(int nField, int nDirection);
    void GoNext(int nField, bool bByDot);
    void Erase(int nField, int nDirection);
    void CopyAddress() const;
    QString FindError() const;
    void UpdateError(bool bByUser);
    void ShowRefusal(int nField);
    void EndRefusal();

    CIPEdit* pEdit;
    std::array<CIPField*, nFields> fields{};
    QLabel* pMark;
    QList<quint32> listLimit;
    QTimer timerRefusal;
    bool bError = true;    ///< a new edit is empty, which is incomplete
    bool bSetting = false; ///< several places change; the state is that after the last one
};

CIPEdit::CPrivate::CPrivate(CIPEdit* pEditIn) : pEdit(pEditIn)
{
    for (int i = 0; i < nFields; ++i) {
        fields[i] = new CIPField(pEdit);
        fields[i]->setAccessibleName(CIPEdit::tr("Part %1 of 4 of the address").arg(i + 1));
        fields[i]->installEventFilter(pEdit);
    }
    pMark = new QLabel(pEdit);
    pMark->setObjectName(QStringLiteral("IPErrorMark"));
    const QIcon icon = LoadWidgetIcon(QStringLiteral(":/image/control/ipEdit/error.svg"), QStyle::SP_MessageBoxWarning, pEdit);
    pMark->setPixmap(icon.pixmap(pEdit->windowHandle(), QSize(nMarkSize, nMarkSize)));
    QSizePolicy policy = pMark->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    pMark->setSizePolicy(policy);
    pMark->hide();
}

void CIPEdit::CPrivate::InitLayout()
{
    auto* pLayout = new QHBoxLayout(pEdit);
    pLayout->setContentsMargins(nMargin, 1, nMargin, 1);
    pLayout->setSpacing(0);
    for (int i = 0; i < nFields; ++i) {
        if (i > 0) {
            auto* pDot = new QLabel(QStringLiteral("."), pEdit);
            pDot->setObjectName(QStringLiteral("IPDot"));
            pLayout->addWidget(pDot);
        }
        pLayout->addWidget(fields[i], 1);
    }
    pLayout->addWidget(pMark);
}

void CIPEdit::CPrivate::SetConnection()
{
    for (int i = 0; i < nFields; ++i) {
        ConnectField(i);
    }
    timerRefusal.setSingleShot(true);
    timerRefusal.setInterval(nRefusalMs);
    connect(&timerRefusal, &QTimer::timeout, pEdit, [this] { EndRefusal(); });
}

void CIPEdit::CPrivate::ConnectField(int nField)
{
    const CIPField* pField = fields[nField];
    connect(pField, &QLineEdit::textChanged, pEdit, [this] {
        EndRefusal();
        UpdateError(true);
    });
    connect(pField, &QLineEdit::inputRejected, pEdit, [this, nField] { ShowRefusal(nField); });
    connect(pField, &CIPField::SignalDot, pEdit, [this, nField] { GoNext(nField, true); });
    connect(pField, &CIPField::SignalFull, pEdit, [this, nField] { GoNext(nField, false); });
    connect(pField, &CIPField::SignalStep, pEdit, [this, nField](int nDirection) { GoTo(nField, nDirection); });
    connect(pField, &CIPField::SignalErase, pEdit, [this, nField](int nDirection) { Erase(nField, nDirection); });
    connect(pField, &CIPField::SignalPasteAddress, pEdit, [this](quint32 nIP) {
        SetAddress(nIP, true);
        fields[nFields - 1]->setFocus();
        fields[nFields - 1]->end(false);
    });
    connect(pField, &CIPField::SignalCopyAddress, pEdit, [this] { CopyAddress(); });
}

void CIPEdit::CPrivate::SetAddress(quint32 nIP, bool bByUser)
{
    bSetting = true;
    for (int i = 0; i < nFields; ++i) {
        fields[i]->SetValue(nIP >> (nBits * (nFields - 1 - i)) & 0xFF);
    }
    bSetting = false;
    UpdateError(bByUser);
}

void CIPEdit::CPrivate::GoTo(int nField, int nDirection)
{
    const int nTarget = nField + nDirection;
    if (nTarget >= 0 && nTarget < nFields) {
        fields[nTarget]->setFocus();
        nDirection > 0 ? fields[nTarget]->home(false) : fields[nTarget]->end(false);
    }
}

void CIPEdit::CPrivate::GoNext(int nField, bool bByDot)
{
    if (nField + 1 == nFields) {
        return;
    }
    CIPField* pNext = fields[nField + 1];
    if (bByDot) {
        pNext->setFocus();
        pNext->selectAll();
    } else {
        pNext->EnterAfterDigits();
    }
}

void CIPEdit::CPrivate::Erase(int nField, int nDirection)
{
    const int nTarget = nField + nDirection;
    GoTo(nField, nDirection);
    if (nTarget >= 0 && nTarget < nFields) {
        nDirection > 0 ? fields[nTarget]->del() : fields[nTarget]->backspace();
    }
}

void CIPEdit::CPrivate::CopyAddress() const
{
    QStringList listPart;
    for (const CIPField* pField : fields) {
        listPart.append(pField->text());
    }
    QGuiApplication::clipboard()->setText(listPart.join(QLatin1Char('.')));
}

QString CIPEdit::CPrivate::FindError() const
{
    quint32 nIP = 0;
    if (!pEdit->GetAddress(nIP)) {
        return CIPEdit::tr("The address is incomplete.");
    }
    return listLimit.contains(nIP) ? CIPEdit::tr("This address is in use or reserved.") : QString();
}

// A user who goes from one refused address to another is told again: who let the first one pass, as a
// proposal, must not let the next one pass too.
void CIPEdit::CPrivate::UpdateError(bool bByUser)
{
    if (bSetting) {
        return;
    }
    const QString strError = FindError();
    const bool bNow = !strError.isEmpty();
    pMark->setVisible(bNow);
    pEdit->setToolTip(strError);
    pEdit->setAccessibleDescription(strError);
    SetStyleProperty(pEdit, "Error", bNow);
    if (bNow != bError || (bNow && bByUser)) {
        bError = bNow;
        emit pEdit->ExistError(bNow);
    }
}

// A key that does nothing looks like a broken one.
void CIPEdit::CPrivate::ShowRefusal(int nField)
{
    EndRefusal();
    CIPField* pField = fields[nField];
    const QString strHint = CIPEdit::tr("Each part is a number from 0 to 255.");
    SetStyleProperty(pEdit, "Refused", true);
    pField->setAccessibleDescription(strHint);
    QToolTip::showText(pField->mapToGlobal(QPoint(0, pField->height())), strHint, pField, QRect(), nRefusalMs);
    timerRefusal.start();
}

void CIPEdit::CPrivate::EndRefusal()
{
    if (!pEdit->property("Refused").toBool()) {
        return;
    }
    timerRefusal.stop();
    SetStyleProperty(pEdit, "Refused", false);
    for (CIPField* pField : fields) {
        pField->setAccessibleDescription(QString());
    }
    QToolTip::hideText();
}

CIPEdit::CIPEdit(QWidget* parent) : QWidget(parent), d(new CPrivate(this))
{
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusProxy(d->fields[0]);
    setFocusPolicy(Qt::StrongFocus); // a label gives its focus only to a buddy that takes it
    setAccessibleName(CIPEdit::tr("IP address"));
    d->InitLayout();
    d->SetConnection();
}

CIPEdit::~CIPEdit() = default;

void CIPEdit::SetAddress(quint32 nIP)
{
    d->SetAddress(nIP, false);
}

bool CIPEdit::GetAddress(quint32& nIP) const
{
    nIP = 0;
    bool bComplete = true;
    for (const CIPField* pField : d->fields) {
        quint32 nValue = 0;
        bComplete = pField->GetValue(nValue) && bComplete;
        nIP = nIP << nBits | nValue;
    }
    return bComplete;
}

void CIPEdit::SetLimitIP(const QList<quint32>& listIP)
{
    d->listLimit = listIP;
    d->UpdateError(false);
}

bool CIPEdit::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        SetStyleProperty(this, "Focus", event->type() == QEvent::FocusIn);
    }
    return QWidget::eventFilter(watched, event);
}

void CIPEdit::paintEvent(QPaintEvent*)
{
    QStyleOptionFrame option;
    option.initFrom(this);
    option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
    option.state.setFlag(QStyle::State_Sunken);
    option.state.setFlag(QStyle::State_HasFocus, property("Focus").toBool());
    QStylePainter(this).drawPrimitive(QStyle::PE_PanelLineEdit, option);
}
