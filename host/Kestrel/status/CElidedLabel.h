#pragma once

#include <QLabel>

/// One line of plain text that is elided where it does not fit, in its middle unless told otherwise. text() and screen readers
/// have all of it.
class CElidedLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    /// How many characters of average width have room at least; 24 unless this is called.
    void SetLeastCharacters(int nCharacters);

    /// Where it is elided.
    void SetElideMode(Qt::TextElideMode modeNew);

    /// Room for the beginning of the text.
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int nLeastCharacters = 24;
    Qt::TextElideMode mode = Qt::ElideMiddle;
};
