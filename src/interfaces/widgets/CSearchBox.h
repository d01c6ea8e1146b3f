#pragma once

#include "interfaces/widgets/CommonComponentGlobal.h"

#include <QScopedPointer>
#include <QWidget>

/// A line to type a search text into, with a magnifier and a clear button. Escape clears the text.
class COMMONCOMPONENT_EXPORT CSearchBox : public QWidget
{
    Q_OBJECT

public:
    /// bBorder draws a border around the box.
    CSearchBox(QWidget* parent, bool bBorder);
    ~CSearchBox() override;

    QString GetText() const;

    /// Empties the box; emits SignalSearch with the empty text, also when it was empty before.
    void ClearText();

    /// Gives the box the grey background of a field on a panel (property "Background" = "gray").
    void SetBackgroudGray();

signals:
    /// The text has changed, at every key stroke.
    void SignalSearch(const QString& strText);

private:
    class CPrivate;
    QScopedPointer<CPrivate> d;
};
