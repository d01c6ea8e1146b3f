#pragma once

#include <QJsonArray>
#include <QObject>

class CMainWindow;
struct SControlPointers;

/// Does what a scenario asks of the window: it clicks and types as a user would, and takes pictures.
class CInterfacePlayer : public QObject
{
    Q_OBJECT

public:
    /// windowIn and pointersIn must outlive the player. marksIn are the marks of a scenario, as in its file, without a
    /// fault (see MarkFaults). strFolderIn empty: no pictures are taken.
    CInterfacePlayer(CMainWindow& windowIn, const SControlPointers& pointersIn, const QJsonArray& marksIn,
                     const QString& strFolderIn);

    /// Begins to count the seconds.
    void Start();

    /// Writes a picture of the window; returns why it could not, or an empty text.
    QString TakePicture(const QString& strFile) const;

    /// Whether a mark has opened or shut the journal.
    bool HasMovedJournal() const;

signals:
    /// The file is written.
    void PictureTaken(const QString& strFile);

    /// A mark could not be carried out, and why.
    void MarkFailed(const QString& strReason);

    /// The last mark was carried out.
    void Finished();

private:
    void Play(const QJsonObject& mark);
    void TakeNumberedPicture(const QString& strName);
    void Search(const QString& strText);
    void ChoosePane(const QString& strPane);
    void Select(const QJsonArray& listName);
    void Press(const QString& strToolTip);
    void ShowJournal(bool bShown);

    CMainWindow& window;
    const SControlPointers& pointers;
    const QJsonArray marks;
    const QString strFolder;
    bool bJournalMoved = false;
    int nDone = 0;     ///< marks that were begun
    int nPictures = 0; ///< the number in the last file's name
};
