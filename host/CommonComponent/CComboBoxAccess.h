#pragma once

#include <QAccessibleWidget>

class CComboBox;

/// What assistive programs see of a CComboBox: a combo box whose value is the selected entry.
class CComboBoxAccess : public QAccessibleWidget
{
public:
    /// Tells Qt about this class, once a process.
    static void Install();

    /// Made by Qt for a box that an assistive program asks for; ends with it.
    explicit CComboBoxAccess(CComboBox* pBoxIn);

    QString text(QAccessible::Text t) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& strAction) override;

private:
    CComboBox* pBox; ///< owner of this object
};
