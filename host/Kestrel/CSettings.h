#pragma once

#include <QRect>
#include <QString>

class QDockWidget;
class QMainWindow;
class QSettings;

/// What Kestrel remembers from one start to the next, for each user: theme, language, the place of the window and of the
/// journal. What of the file is not understood, which a newer program may
/// have written, counts as not stored and stays in it. GUI thread.
class CSettings
{
public:
    /// Reads the user's file, which is written anew as a whole after each change: a kill leaves the old one or the new one.
    CSettings();

    /// One line when there is a file and not all of it could be understood, so that defaults hold; else empty.
    QString GetFault() const;

    /// One of CTheme::GetNames(), or empty: none was chosen.
    QString GetTheme() const;

    /// A language that CLanguage has, or empty: none was chosen.
    QString GetLanguage() const;

    /// What the user has chosen, written at once.
    void SetTheme(const QString& strName);
    void SetLanguage(const QString& strCode);

    /// Before the window is shown: gives it the place that SaveWindow has written, as far as the screens of today allow.
    /// Without one it stays as it is. The journal is the window's one dock.
    void RestoreWindow(QMainWindow& window) const;
    /// bJournal: whether the journal is as the user has left it; else what is remembered of it stays.
    void SaveWindow(const QMainWindow& window, bool bJournal);

private:
    /// How the window stood.
    struct SPlace
    {
        QRect
            rcWindow; ///< its size, and where its frame begins; empty: not known. Of a maximised window: where it goes from there
        bool bMaximised = false;
        bool bJournal = false;
        int nJournalWidth = 0; ///< 0: not known
    };

    bool Read(const QSettings& file);
    bool ReadPlace(const QSettings& file);
    static void Write(const QString& strKey, const class QVariant& value);

    QString strFault;
    QString strTheme;
    QString strLanguage;
    SPlace place;
};
