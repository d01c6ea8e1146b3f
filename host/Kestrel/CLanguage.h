#pragma once

#include <QLocale>
#include <QObject>
#include <QStringList>
#include <QTranslator>

/// The language of the application and its panel, which changes at run time.
class CLanguage : public QObject
{
    Q_OBJECT

public:
    /// Those to choose from: "en", "de", "zh_CN".
    static QStringList GetCodes();

    /// Long texts with accents and in brackets, made of the English ones, for who looks at the window: "en_XA".
    static QString GetPseudoCode();

    /// The language's name in itself, for a menu: "Deutsch".
    static QString GetName(const QString& strCode);

    /// Our language for the system's locale; "en" where we have none.
    static QString GetSystemCode();

    /// Every widget gets QEvent::LanguageChange. GUI thread; an application exists.
    void Set(const QString& strCode);

    QString GetCode() const;

    /// How that language writes dates and numbers.
    QLocale GetLocale() const;

signals:
    /// The language is another one.
    void Changed();

private:
    void Load(QTranslator& translator, const QString& strFile, const QString& strFolder);

    QString strCurrent = QStringLiteral("en");
    QTranslator ownTexts; ///< the panel's and Kestrel's
    QTranslator qtTexts;  ///< those of Qt's own dialogs, where they are installed
};
