#pragma once

#include <QLabel>
#include <QObject>
#include <QPointer>
#include <QTimer>

/// Shows, moves and hides the one tool tip. The window lives only while the tip is on the screen, so that a
/// style sheet of the window under the mouse reaches it and nothing is left over. The object itself lives
/// until the application ends.
class CToolTipControl : public QObject
{
    Q_OBJECT

public:
    static CToolTipControl* Get();

    void Show(const QString& strText);
    void ShowLater(const QString& strText, int nDelay);
    void Hide();
    bool IsVisible() const;

protected:
    /// Hides the tip at what a user does next: a press, a key, the wheel, leaving the widget, another window.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CToolTipControl();
    ~CToolTipControl() override;

    void CreateWindow(QWidget* pParent);
    void DestroyWindow();

    /// The window must be shown.
    void LetTheMouseThrough();

    void Place();

    static CToolTipControl* pInstance;

    QTimer timerDelay;
    QTimer timerExpire;
    QString strDelayed;        ///< the text that waits for timerDelay
    QPointer<QLabel> pWindow;  ///< a child of the window under the mouse, which may take it along
    QPointer<QWidget> pTarget; ///< the widget under the mouse when the text was asked for
};
