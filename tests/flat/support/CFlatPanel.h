#pragma once

#include "fixtures/CUsedPanel.h"

#include <QTemporaryDir>

/// A panel whose user does the same again and again.
class CFlatPanel : public CUsedPanel
{
public:
    CFlatPanel();

    /// Does it once more and forgets what the double has written down of it.
    void Do(const std::function<void(CFlatPanel&)>& fnDo);

    /// Counts how often it was done.
    int Round() const
    {
        return nRound;
    }

    /// Runs fnAsk, which opens dialogs, and answers them as CDialogDriver does. A file stands for a dialog that asks for one.
    void Answer(const QStringList& listHow, const std::function<void()>& fnAsk);

    void ClickButton(const QString& strToolTip);
    void Trigger(const QString& strEntry);

    /// The library raises a message, and in turn other rows, another selection, another mode, another title and the other pane
    /// come of it. Returns when the panel shows it.
    void ReadNews();

    /// Holds the pointer over a row until its tip shows, and takes it away.
    void ShowTip(const QString& strRow);

    static const char* const szLongName; ///< of a row that has a tip
    QTemporaryDir folder;
    const QString strFile = folder.filePath(QStringLiteral("list.kvtl")); ///< is there

private:
    int nRound = 0;
};
