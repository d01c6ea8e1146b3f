#pragma once

#include <QMenu>

class CTheme;
class QActionGroup;

/// The menu that chooses the theme.
class CThemeMenu : public QMenu
{
    Q_OBJECT

public:
    /// themeIn must outlive the menu.
    CThemeMenu(CTheme& themeIn, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void UpdateState();
    void UpdateText();
    static QString GetText(const QString& strName);

    CTheme& theme;
    QActionGroup* pThemes;
};
