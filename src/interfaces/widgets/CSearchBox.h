#pragma once

#include "interfaces/widgets/CommonComponentGlobal.h"

#include <QScopedPointer>
#include <QWidget>

class QKeyEvent;

/// A line to type a search text into, with a magnifier and a clear button. Escape clears the text, and is
/// left to the parent when there is none.
///
/// @since 0.1
class COMMONCOMPONENT_EXPORT CSearchBox : public QWidget
{
    Q_OBJECT

public:
    /// bBorder draws a border around the box.
    CSearchBox(QWidget* parent, bool bBorder);
    ~CSearchBox() override;

    /// The text as it stands in the box.
    QString GetText() const;

    /// Empties the box; emits SignalSearch with the empty text, also when it was empty before.
    void ClearText();

    /// Gives the box the grey background of a field on a panel (property "Background" = "gray").
    void SetBackgroudGray();

signals:
    /// The text has changed, at every key stroke.
    void SignalSearch(const QString& strText);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool TakeEscape(const QKeyEvent* event);

    class CPrivate;
    QScopedPointer<CPrivate> d;
};
