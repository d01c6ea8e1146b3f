#include "Kestrel/CLanguage.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace
{
template <int nSize> constexpr QLatin1String Literal(const char (&szText)[nSize])
{
    return QLatin1String(szText, nSize - 1);
}

constexpr QLatin1String g_strEnglish = Literal("en");
constexpr QLatin1String g_strGerman = Literal("de");
constexpr QLatin1String g_strChinese = Literal("zh_CN");
} // namespace

QStringList CLanguage::GetCodes()
{
    return { g_strEnglish, g_strGerman, g_strChinese };
}

QString CLanguage::GetName(const QString& strCode)
{
    if (strCode == g_strGerman)
        return QStringLiteral("Deutsch");
    if (strCode == g_strChinese)
        return QStringLiteral("简体中文");
    return QStringLiteral("English");
}

QString CLanguage::GetSystemCode()
{
    const QString strLocale = QLocale::system().name();
    if (strLocale.startsWith(g_strGerman))
        return g_strGerman;
    return strLocale == g_strChinese ? g_strChinese : g_strEnglish;
}

void CLanguage::Set(const QString& strCode)
{
    strCurrent = strCode;
    Load(qtTexts, QStringLiteral("qtbase_") + strCode, QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    Load(ownTexts, QStringLiteral("kestrel_") + strCode, QStringLiteral(":/translations"));
}

QString CLanguage::GetCode() const
{
    return strCurrent;
}

void CLanguage::Load(QTranslator& translator, const QString& strFile, const QString& strFolder)
{
    QCoreApplication::removeTranslator(&translator);
    if (strCurrent != g_strEnglish && translator.load(strFile, strFolder))
        QCoreApplication::installTranslator(&translator);
}
