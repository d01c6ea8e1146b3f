#pragma once

#include <QDialog>
#include <QPointer>
#include <QQueue>
#include <QTimer>

#include <functional>

/// Answers modal dialogs as they come up, as a user would: the first answer that was given to the first
/// dialog, the second one to the next. A dialog for which no answer is left is closed and counts as a
/// surprise.
class CDialogDriver : public QObject
{
public:
    using FnAnswer = std::function<void(QDialog*)>;

    CDialogDriver();

    void Answer(const FnAnswer& fnAnswer);

    /// Clicks the button of that object name; fails the test when the dialog has none.
    void AnswerByButton(const QString& strButton);
    void AnswerByEscape();

    /// In a message box.
    void AnswerYes();
    void AnswerNo();
    void AnswerOk();
    void AnswerByCross();

    /// Fills the file name in and presses the accepting button.
    void AnswerByFile(const QString& strPath);

    /// What came up so far: "title: text" of message boxes, the title of others.
    QStringList Shown() const;

    /// True when all answers were used and nothing came as a surprise.
    bool IsDone() const;

private:
    void Look();
    void Deal(QDialog* pDialog);

    QTimer timer;
    QQueue<FnAnswer> queueAnswer;
    QStringList listShown;
    QPointer<QDialog> pLast; ///< answered already
    int nSurprises = 0;
};
