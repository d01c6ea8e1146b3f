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

    /// What was announced of rows and widgets since Forget(), one line each: "focus: alpha, online / 10.0.0.1",
    /// "name: ...", "description: ...". With "focus" stands the name that it had then, and a description that differs.
    QStringList Heard() const;
    void Forget();

private:
    static void Hear(QAccessibleEvent* pEvent);

    static CScreenReader* pListening;
    QAccessible::UpdateHandler handlerBefore;
    QStringList listHeard;
};
