#pragma once

#include <QColor>
#include <QHash>
#include <QString>

class QApplication;

/// The dark look of the application: named colours, the two style sheets that use them, palette and font.
class CTheme
{
public:
    /// Reads the colours from the resources.
    CTheme();

    /// Sets style, palette, font and the application's sheet.
    void Apply(QApplication& application) const;

    /// The sheet for the widget that becomes the panel's parent: the panel copies it.
    QString GetPanelSheet() const;

    /// The sheet for the whole application.
    QString GetApplicationSheet() const;

    /// A colour by its name in colours.txt; invalid for an unknown name.
    QColor GetColour(const QString& strName) const;

private:
    QString GetSheet(const QString& strPath) const;
    class QPalette GetPalette() const;

    QHash<QString, QColor> mapColour;
};
