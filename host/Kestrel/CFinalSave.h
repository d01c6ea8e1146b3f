#pragma once

#include <QCoreApplication>
#include <QString>

class IControlHost;
class QWidget;
struct SControlPointers;

/// Saves the list before the window goes, and finds it another place when its own does not take it. GUI
/// thread.
class CFinalSave
{
    Q_DECLARE_TR_FUNCTIONS(CFinalSave)

public:
    /// All must outlive the object.
    CFinalSave(IControlHost& hostIn, const SControlPointers& pointersIn, QWidget& windowIn);

    /// At the list's own place. Empty when it is safe there, else one line with the reason.
    QString Save();

    /// Asks the user what is to become of a list that Save did not save. False when the program is to stay.
    bool Ask(const QString& strReason);

    /// For when nobody can be asked: beside the own place under a dated name; where that fails too, in the
    /// user's application data or the folder for temporary files.
    void SaveAside(const QString& strReason);

    /// One line, where the list is that Save did not save last and SaveAside did; empty when all is well.
    QString GetFault() const;

private:
    enum EnAnswer
    {
        AnswerElsewhere,
        AnswerDiscard,
        AnswerStay,
    };

    EnAnswer AskOnce(const QString& strReason);
    QString ChooseFile();
    QString SaveTo(const QString& strPath);
    QString SaveInOtherFolder();

    IControlHost& host;
    const SControlPointers& pointers;
    QWidget& window;
    QString strFault;
    QString strLogged; ///< the library's last line during SaveTo
};
