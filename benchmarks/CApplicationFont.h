#pragma once

#include <QApplication>
#include <QFont>

/// Gives the application a font for its own life.
class CApplicationFont
{
public:
    explicit CApplicationFont(const QFont& font)
    {
        QApplication::setFont(font);
    }

    ~CApplicationFont()
    {
        QApplication::setFont(fontBefore);
    }

    Q_DISABLE_COPY(CApplicationFont)

private:
    QFont fontBefore = QApplication::font();
};
