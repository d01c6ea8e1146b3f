#pragma once

#include "journal/recording/SJournalRecord.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class CLanguage;
class CTheme;
class ICallRecorder;
class QStackedLayout;
class QWidget;

/// Records what stands on the screen beside the tree: size of the window, language, theme, current pane, scroll values, search
/// text; all of it when a part changes, at the beginning, and once a minute while something does; and that the window is to
/// close. GUI thread.
class CScreenJournal : public QObject
{
    Q_OBJECT

public:
    /// recorderIn, languageIn and themeIn must outlive it; window and panel may go before it.
    CScreenJournal(ICallRecorder& recorderIn, QWidget& window, QWidget& panel, const CLanguage& languageIn,
                   const CTheme& themeIn);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FollowTrees(const QWidget& panel);
    void Change(const char* szWhat);
    void WriteAgain();
    void Write(const char* szDo);
    std::vector<SJournalField> GetFields() const;

    ICallRecorder& recorder;
    QPointer<QWidget> pWindow;
    QPointer<QWidget> pPanel;
    const CLanguage& language;
    const CTheme& theme;
    QTimer timer;
    bool bChanged = false; ///< since the last line with everything
};
