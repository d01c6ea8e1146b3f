#pragma once

#include <QColor>
#include <QHash>
#include <QObject>
#include <QStringList>

class QApplication;

/// The look of the application: named colours, the two style sheets that use them, palette and font. There is a dark
/// theme and one of high contrast; they differ in their colours.
class CTheme : public QObject
{
    Q_OBJECT

public:
    /// The dark theme.
    CTheme();

    /// "dark", "contrast"
    static QStringList GetNames();

    QString GetName() const;

    /// Sets style, palette, font and the application's sheet. GUI thread.
    void Apply(QApplication& application) const;

    /// Takes the colours of that theme, one of GetNames(), and applies them. An unknown name changes nothing. GUI thread; an
    /// application exists.
    void Set(const QString& strName);

    /// The sheet for the widget that becomes the panel's parent: the panel copies it.
    QString GetPanelSheet() const;

    /// The sheet for the whole application.
    QString GetApplicationSheet() const;

    /// A colour by its name in dark.txt; invalid for an unknown name.
    QColor GetColour(const QString& strName) const;

signals:
    /// The application has the look of another theme. What has taken a colour or the panel's sheet takes it again.
    void Changed();

private:
    void ReadColours();
    void ApplyColours(QApplication& application) const;
    QString GetSheet(const QString& strPath) const;
    class QPalette GetPalette() const;

    QString strCurrent;
    QHash<QString, QColor> mapColour;
};
