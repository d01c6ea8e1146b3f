#pragma once

#include <QDialog>
#include <QPointer>
#include <QQueue>
#include <QTimer>

#include <functional>

/// Answers modal dialogs as they come up and are active, as a user would: the first answer that was given to
/// the first dialog, the second one to the next. A dialog for which no answer is left is closed and counts as a
/// surprise.
class CDialogDriver : public QObject
{
public:
    using FnAnswer = std::function<void(QDialog*)>;

    CDialogDriver();

    /// fnAnswer runs inside the dialog's event loop and may run one of its own.
    void Answer(const FnAnswer& fnAnswer);

    /// By Press().
    void Answer(const QString& strHow);

    /// Fills the file name in and presses the accepting button.
    void AnswerByFile(const QString& strPath);

    /// What came up so far: "title: text" of message boxes, the title of others.
    QStringList Shown() const;

    /// True when all answers were used and nothing came as a surprise.
    bool IsDone() const;

    /// Answers pDialog as a row of a table says: "key " and a key sequence, "tab space" for the next part and
    /// Space, "window closed", or else what to click: the object name of a part or the text of a button without
    /// mnemonics. Fails the test when the dialog has no such part.
    static void Press(QDialog* pDialog, const QString& strHow);

    /// The texts of all push buttons, without mnemonics.
    static QStringList Buttons(const QDialog* pDialog);

private:
    void Look();
    void Deal();

    QTimer timer;
    QQueue<FnAnswer> queueAnswer;
    QStringList listShown;
    QPointer<QDialog> pLast; ///< answered already, or about to be
    int nSurprises = 0;
};
