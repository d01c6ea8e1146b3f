#include "shell/PanelParts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVariant>

namespace {

constexpr int nTabHeight = 32;
constexpr int nIconButtonSize = 32;
constexpr int nRefreshIconSize = 24;
constexpr int nCloseIconSize = 20;
constexpr int nSearchSpacing = 4;
constexpr int nSearchMargin = 8;

void DressIconButton(QToolButton* pButton, const QString& strName, const QString& strIcon, int nIconSize)
{
    pButton->setObjectName(strName);
    pButton->setIcon(QIcon(strIcon));
    pButton->setFixedSize(nIconButtonSize, nIconButtonSize);
    pButton->setIconSize(QSize(nIconSize, nIconSize));
}

} // namespace

void PanelParts::DressTab(QPushButton* pTab, const QString& strPosition)
{
    pTab->setObjectName(QStringLiteral("Tab"));
    pTab->setProperty("Position", strPosition);
    pTab->setFixedHeight(nTabHeight);
    pTab->setAutoExclusive(true); // for screen readers alone: which one is chosen is up to the group of buttons
}

void PanelParts::DressRefreshButton(QToolButton* pButton)
{
    DressIconButton(pButton, QStringLiteral("IconButtonTitle"), QStringLiteral(":/image/control/refresh/refresh.svg"),
                    nRefreshIconSize);
}

void PanelParts::DressCloseSearchButton(QToolButton* pButton)
{
    DressIconButton(pButton, QStringLiteral("CloseSearchBox"), QStringLiteral(":/image/control/close/close.svg"), nCloseIconSize);
}

void PanelParts::NamePart(QWidget* pPart, const QString& strName)
{
    if (pPart->accessibleName() != strName) { // a name that is set again is announced again
        pPart->setAccessibleName(strName);
    }
}

void PanelParts::NameButton(QToolButton* pButton, const QString& strName)
{
    pButton->setToolTip(strName);
    NamePart(pButton, strName);
}

void PanelParts::LayOutHeader(QLabel* pHeader, QPushButton* pFirstTab, QPushButton* pSecondTab, QToolButton* pRefreshButton)
{
    auto* pLayout = new QHBoxLayout(pHeader);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(0);
    pLayout->addWidget(pFirstTab, 0, Qt::AlignBottom);
    pLayout->addWidget(pSecondTab, 0, Qt::AlignBottom);
    pLayout->addStretch(0);
    pLayout->addWidget(pRefreshButton);
}

QHBoxLayout* PanelParts::NewSearchLayout(QWidget* pSearchBox, QToolButton* pCloseSearchButton)
{
    auto* pLayout = new QHBoxLayout;
    pLayout->setSpacing(nSearchSpacing);
    pLayout->setContentsMargins(nSearchMargin, 0, nSearchMargin, 0);
    pLayout->addWidget(pSearchBox);
    pLayout->addWidget(pCloseSearchButton);
    return pLayout;
}
