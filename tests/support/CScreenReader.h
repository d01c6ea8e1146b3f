#pragma once

#include <QAccessible>
#include <QStringList>

/// A screen reader in this process, which listens while it lives: everything in the application hears that somebody
/// does, and what is announced is written down. One at a time; needs the application.
class CScreenReader
{
public:
    CScreenReader();
    ~CScreenReader();
    Q_DISABLE_COPY(CScreenReader)

    /// What was announced of rows and widgets since Forget(), one line each: "focus: alpha, online", "name: ...",
    /// "description: ...", with the name, and with "description" the description, that it had then.
    QStringList Heard() const;
    void Forget();

private:
    static void Hear(QAccessibleEvent* pEvent);

    static CScreenReader* pListening;
    QAccessible::UpdateHandler handlerBefore;
    QStringList listHeard;
};
