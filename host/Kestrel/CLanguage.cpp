#include "Kestrel/CLanguage.h"
#include "Kestrel/GuiThread.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace {

template <int nSize> constexpr QLatin1String Literal(const char (&szText)[nSize])
{
    return QLatin1String(szText, nSize - 1);
}

constexpr QLatin1String strEnglish = Literal("en");
constexpr QLatin1String strGerman = Literal("de");
constexpr QLatin1String strChinese = Literal("zh_CN");
constexpr QLatin1String strPseudo = Literal("en_XA");

} // namespace

QStringList CLanguage::GetCodes()
{
    return { strEnglish, strGerman, strChinese };
}

QString CLanguage::GetPseudoCode()
{
    return strPseudo;
}

QString CLanguage::GetName(const QString& strCode)
{
    if (strCode == strGerman) {
        return QStringLiteral("Deutsch");
    }
    if (strCode == strChinese) {
        return QStringLiteral("简体中文");
    }
    return strCode == strPseudo ? QStringLiteral("[Þšéûðö]") : QStringLiteral("English");
}

QString CLanguage::GetSystemCode()
{
    const QString strLocale = QLocale::system().name();
    if (strLocale.startsWith(strGerman)) {
        return strGerman;
    }
    return strLocale == strChinese ? strChinese : strEnglish;
}

void CLanguage::Set(const QString& strCode)
{
    Q_ASSERT(GuiThread::IsCurrent());
    const bool bOther = strCode != strCurrent;
    strCurrent = strCode;
    Load(qtTexts, QStringLiteral("qtbase_") + strCode, QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    Load(ownTexts, QStringLiteral("kestrel_") + strCode, QStringLiteral(":/translations"));
    if (bOther) {
        emit Changed();
    }
}

QString CLanguage::GetCode() const
{
    return strCurrent;
}

// English dates without a country are read the same everywhere.
QLocale CLanguage::GetLocale() const
{
    return strCurrent == strGerman || strCurrent == strChinese ? QLocale(strCurrent) : QLocale::c();
}

void CLanguage::Load(QTranslator& translator, const QString& strFile, const QString& strFolder)
{
    QCoreApplication::removeTranslator(&translator);
    if (translator.load(strFile, strFolder)) { // of English the plurals
        QCoreApplication::installTranslator(&translator);
    }
}
