#pragma once

#include <QMutex>
#include <QRegularExpression>
#include <QStringList>

/// Collects the warnings of a run that nobody announced. Any thread may warn.
class CWarningGuard
{
public:
    static CWarningGuard& Instance();

    /// Takes the place of the present message handler and hands on to it what it does not swallow.
    void Install();
    void Uninstall();

    /// The next message that matches is swallowed.
    void Expect(const QString& strPattern);

    /// Prints what came unannounced and what was announced and did not come; returns how many.
    int Report();

private:
    CWarningGuard() = default;

    static void Handle(QtMsgType type, const QMessageLogContext& context, const QString& strText);
    bool TakeExpected(const QString& strText);
    void NoteUnexpected(const QString& strText);

    QMutex mutex;                           ///< guards the two lists
    QList<QRegularExpression> listExpected; ///< announced and not yet come
    QStringList listUnexpected;             ///< test function and text
    QtMessageHandler pNext = nullptr;       ///< of QTest; constant while installed
};
