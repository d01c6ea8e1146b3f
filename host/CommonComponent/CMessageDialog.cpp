#include "CommonComponent/CMessageDialog.h"

#include "CommonComponent/StyleHooks.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QTextBoundaryFinder>
#include <QVariant>

namespace {

constexpr int nMargin = 16;
constexpr int nSpacing = 12;
constexpr int nButtonSpacing = 8;
constexpr int nButtonMinimumWidth = 72;
constexpr int nIconSize = 32;
constexpr int nTextMaximumWidth = 400;
constexpr int nTextMinimumWidth = 200;
constexpr ushort nZeroWidthSpace = 0x200B; ///< where a line may be broken

struct SButtonText
{
    CMessageBox::StandardButton button;
    const char* szName;
    const char* szText;
};

constexpr SButtonText arrButtonText[] = {
    { CMessageBox::ButtonOk, "ButtonOk", QT_TRANSLATE_NOOP("CMessageBox", "&OK") },
    { CMessageBox::ButtonYes, "ButtonYes", QT_TRANSLATE_NOOP("CMessageBox", "&Yes") },
    { CMessageBox::ButtonNo, "ButtonNo", QT_TRANSLATE_NOOP("CMessageBox", "&No") },
};

// A word that is wider than a box, such as a name of a list, would be cut off at its edge.
QString MakeBreakable(const QString& strText, const QFontMetrics& metrics)
{
    QString strBreakable;
    QString strWord;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, strText);
    for (int nBegin = 0, nEnd = finder.toNextBoundary(); nEnd > 0; nBegin = nEnd, nEnd = finder.toNextBoundary()) {
        const QString strLetter = strText.mid(nBegin, nEnd - nBegin);
        strWord = strLetter.at(0).isSpace() ? QString() : strWord + strLetter;
        if (metrics.horizontalAdvance(strWord) > nTextMaximumWidth) {
            strBreakable += QChar(nZeroWidthSpace);
            strWord = strLetter;
        }
        strBreakable += strLetter;
    }
    return strBreakable;
}

} // namespace

CMessageDialog::CMessageDialog(QWidget* parent, const QString& strTitle, const QString& strText,
                               CMessageBox::StandardButtons buttons, CMessageBox::StandardButton defaultButton)
    : CBaseDialog(parent, strTitle, false, ButtonsNone)
{
    setObjectName(QStringLiteral("MessageBox"));
    setAccessibleDescription(strText);
    SetCanResize(false);
    SetTransparentMask();
    GetContentLayout()->setContentsMargins(nMargin, nMargin, nMargin, nMargin);
    GetContentLayout()->setSpacing(nMargin);
    InitContents(strText);
    InitButtons(buttons ? buttons : CMessageBox::StandardButtons(CMessageBox::ButtonOk), defaultButton);
}

void CMessageDialog::InitContents(const QString& strText)
{
    pIcon = new QLabel(this);
    pIcon->setObjectName(QStringLiteral("MessageIcon"));
    auto* pText = new QLabel(strText, this);
    pText->setObjectName(QStringLiteral("MessageText"));
    pText->setTextFormat(Qt::PlainText);
    pText->ensurePolished();
    pText->setText(MakeBreakable(strText, pText->fontMetrics()));
    const int nWidth = pText->sizeHint().width();
    pText->setWordWrap(nWidth > nTextMaximumWidth);
    pText->setFixedWidth(qBound(nTextMinimumWidth, nWidth, nTextMaximumWidth));
    auto* pRow = new QHBoxLayout;
    pRow->setSpacing(nSpacing);
    pRow->addWidget(pIcon, 0, Qt::AlignTop);
    pRow->addWidget(pText, 1, Qt::AlignLeft | Qt::AlignVCenter);
    GetContentLayout()->addLayout(pRow);
}

void CMessageDialog::InitButtons(CMessageBox::StandardButtons buttons, CMessageBox::StandardButton defaultButton)
{
    auto* pRow = new QHBoxLayout;
    pRow->setSpacing(nButtonSpacing);
    pRow->addStretch(1);
    for (const SButtonText& entry : arrButtonText) {
        if (buttons.testFlag(entry.button)) {
            AddButton(pRow, entry.button, QLatin1String(entry.szName), QCoreApplication::translate("CMessageBox", entry.szText));
        }
    }
    GetContentLayout()->addLayout(pRow);
    QPushButton* pDefault = mapButton.value(defaultButton, std::as_const(mapButton).first());
    pDefault->setDefault(true);
    pDefault->setFocus();
    answer = buttons.testFlag(CMessageBox::ButtonNo) ? CMessageBox::ButtonNo : CMessageBox::ButtonNone;
}

void CMessageDialog::AddButton(QBoxLayout* pRow, CMessageBox::StandardButton button, const QString& strName,
                               const QString& strText)
{
    auto* pButton = new QPushButton(strText, this);
    pButton->setObjectName(strName);
    pButton->setProperty("DialogButton", true);
    pButton->setMinimumWidth(nButtonMinimumWidth);
    pRow->addWidget(pButton);
    mapButton[button] = pButton;
    connect(pButton, &QPushButton::clicked, this, [this, button] {
        answer = button;
        accept();
    });
}

void CMessageDialog::SetIcon(const QString& strPath, QStyle::StandardPixmap fallback)
{
    pIcon->setPixmap(LoadWidgetIcon(strPath, fallback, this).pixmap(window()->windowHandle(), QSize(nIconSize, nIconSize)));
}

CMessageBox::StandardButton CMessageDialog::GetAnswer() const
{
    return answer;
}
