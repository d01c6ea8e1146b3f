#include "interfaces/widgets/CComboBox.h"

#include "CommonComponent/CComboBoxAccess.h"
#include "interfaces/widgets/CMenu.h"

#include <QAction>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleOptionComboBox>
#include <QStylePainter>

#include <algorithm>

class CComboBox::CPrivate
{
public:
    explicit CPrivate(CComboBox* pBoxIn) : pBox(pBoxIn) { }

    void SetConnection();
    void OpenMenu();
    void Choose(QAction* pAction, bool bNotify);
    QList<QAction*> GetChoices() const;
    QAction* FindAction(const QVariant& id) const;
    QAction* FindByLetter(const QString& strLetter) const;
    bool Step(int nKey);

    CComboBox* pBox;
    QPointer<CMenu> pMenu;
    QPointer<QAction> pCurrent;
    bool bMatchWidth = false;
};

void CComboBox::CPrivate::SetConnection()
{
    connect(pMenu, &QMenu::triggered, pBox, [this](QAction* pAction) { Choose(pAction, true); });
}

void CComboBox::CPrivate::OpenMenu()
{
    if (!pMenu || pMenu->isEmpty()) {
        return;
    }
    if (bMatchWidth) {
        pMenu->setMinimumWidth(pBox->width());
    }
    pMenu->popup(pBox->mapToGlobal(QPoint(0, pBox->height())));
    if (pCurrent && pCurrent->isVisible()) {
        pMenu->setActiveAction(pCurrent);
    }
}

void CComboBox::CPrivate::Choose(QAction* pAction, bool bNotify)
{
    if (!pAction || pAction == pCurrent) {
        return;
    }
    if (pCurrent) {
        pCurrent->disconnect(pBox);
    }
    pCurrent = pAction;
    connect(pAction, &QAction::changed, pBox, [this] { pBox->update(); });
    pBox->update();
    QAccessibleValueChangeEvent event(pBox, pBox->GetCurSelText());
    QAccessible::updateAccessibility(&event);
    if (bNotify) {
        emit pBox->SelectChanged(pAction->data());
    }
}

QList<QAction*> CComboBox::CPrivate::GetChoices() const
{
    QList<QAction*> listChoice;
    if (pMenu) {
        const QList<QAction*> listAction = pMenu->actions();
        std::copy_if(listAction.begin(), listAction.end(), std::back_inserter(listChoice), [](const QAction* pAction) {
            return pAction->isVisible() && pAction->isEnabled() && !pAction->isSeparator();
        });
    }
    return listChoice;
}

QAction* CComboBox::CPrivate::FindAction(const QVariant& id) const
{
    const QList<QAction*> listAction = pMenu ? pMenu->actions() : QList<QAction*>();
    const auto it
        = std::find_if(listAction.begin(), listAction.end(), [&id](const QAction* pAction) { return pAction->data() == id; });
    return it == listAction.end() ? nullptr : *it;
}

QAction* CComboBox::CPrivate::FindByLetter(const QString& strLetter) const
{
    const QList<QAction*> listChoice = GetChoices();
    const int nCurrent = listChoice.indexOf(pCurrent);
    for (int i = 1; i <= listChoice.size(); ++i) {
        QAction* pAction = listChoice.at((nCurrent + i) % listChoice.size());
        if (pAction->text().startsWith(strLetter, Qt::CaseInsensitive)) {
            return pAction;
        }
    }
    return nullptr;
}

bool CComboBox::CPrivate::Step(int nKey)
{
    const QList<QAction*> listChoice = GetChoices();
    const int nLast = listChoice.size() - 1;
    const int nCurrent = listChoice.indexOf(pCurrent);
    int nTarget = 0;
    switch (nKey) {
    case Qt::Key_Up:
        nTarget = nCurrent - 1;
        break;
    case Qt::Key_Down:
        nTarget = nCurrent + 1;
        break;
    case Qt::Key_Home:
        break;
    case Qt::Key_End:
        nTarget = nLast;
        break;
    default:
        return false;
    }
    if (nLast >= 0) {
        Choose(listChoice.at(qBound(0, nTarget, nLast)), true);
    }
    return true;
}

CComboBox::CComboBox(QWidget* parent) : QWidget(parent), d(new CPrivate(this))
{
    CComboBoxAccess::Install();
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed, QSizePolicy::ComboBox));
}

CComboBox::~CComboBox() = default;

void CComboBox::SetMenu(CMenu* pMenu, bool bMatchWidth)
{
    if (d->pMenu) {
        d->pMenu->disconnect(this);
        d->pMenu->SetControlWidget(nullptr);
    }
    d->pMenu = pMenu;
    d->bMatchWidth = bMatchWidth;
    d->pCurrent = nullptr;
    if (pMenu) {
        pMenu->SetControlWidget(this);
        d->SetConnection();
    }
    updateGeometry();
    update();
}

void CComboBox::SetCurrentByID(const QVariant& id, bool bNotify)
{
    d->Choose(d->FindAction(id), bNotify);
}

void CComboBox::SetActionVisible(const QVariant& id, bool bVisible)
{
    if (QAction* pAction = d->FindAction(id)) {
        pAction->setVisible(bVisible);
    }
}

QVariant CComboBox::GetCurSelData() const
{
    return d->pCurrent ? d->pCurrent->data() : QVariant();
}

QString CComboBox::GetCurSelText() const
{
    return d->pCurrent ? d->pCurrent->iconText() : QString();
}

QSize CComboBox::sizeHint() const
{
    QStyleOptionComboBox option;
    InitStyleOption(option);
    int nWidth = 0;
    const QList<QAction*> listAction = d->pMenu ? d->pMenu->actions() : QList<QAction*>();
    for (const QAction* pAction : listAction) {
        nWidth = qMax(nWidth, fontMetrics().horizontalAdvance(pAction->iconText()));
    }
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, QSize(nWidth, fontMetrics().height()), this);
}

void CComboBox::InitStyleOption(QStyleOptionComboBox& option) const
{
    option.initFrom(this);
    option.editable = false;
    option.currentText = GetCurSelText();
    option.subControls = QStyle::SC_All;
    option.state.setFlag(QStyle::State_On, property("MenuOpen").toBool());
}

void CComboBox::keyPressEvent(QKeyEvent* event)
{
    const bool bAlt = event->modifiers() & Qt::AltModifier;
    const bool bOpen = event->key() == Qt::Key_F4 || event->key() == Qt::Key_Space
        || (bAlt && (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up));
    if (bOpen) {
        d->OpenMenu();
    } else if (!d->Step(event->key())) {
        ChooseByLetter(event);
    }
}

void CComboBox::ChooseByLetter(QKeyEvent* event)
{
    const bool bLetter = !event->text().isEmpty() && event->text().at(0).isLetterOrNumber();
    QAction* pAction = bLetter ? d->FindByLetter(event->text()) : nullptr;
    if (pAction) {
        d->Choose(pAction, true);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void CComboBox::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        d->OpenMenu();
    }
}

void CComboBox::paintEvent(QPaintEvent*)
{
    QStyleOptionComboBox option;
    InitStyleOption(option);
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}
