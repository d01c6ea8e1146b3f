#include "Kestrel/CSettings.h"

#include "Kestrel/CLanguage.h"
#include "Kestrel/GuiThread.h"
#include "Kestrel/WindowPlace.h"
#include "Kestrel/theme/CTheme.h"

#include <QDockWidget>
#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>

#include <memory>

namespace {

constexpr char szThemeKey[] = "theme";
constexpr char szLanguageKey[] = "language";
constexpr char szWindowKey[] = "window/place";
constexpr char szMaximisedKey[] = "window/maximised";
constexpr char szShownKey[] = "journal/shown";
constexpr char szWidthKey[] = "journal/width";
constexpr int nMostPixels = 100000; ///< of a window; no screen has as many

std::unique_ptr<QSettings> OpenFile()
{
    const QString strName = QStringLiteral("Kestrel");
    auto pFile = std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, strName, strName);
    pFile->setFallbacksEnabled(false);
    return pFile;
}

/// False for a number that is none or lies outside, which counts as 0.
bool ReadNumber(const QSettings& file, const QString& strKey, int nMost, int& nValue)
{
    bool bNumber = true;
    nValue = file.contains(strKey) ? file.value(strKey).toInt(&bNumber) : 0;
    const bool bGood = bNumber && nValue >= 0 && nValue <= nMost;
    nValue = bGood ? nValue : 0;
    return bGood;
}

bool ReadSwitch(const QSettings& file, const QString& strKey, bool& bValue)
{
    const QString strText = file.value(strKey, false).toString();
    bValue = strText == QLatin1String("true");
    return bValue || strText == QLatin1String("false");
}

/// Empty where nothing is stored, or nothing that is known here: a newer program may know it.
bool ReadChoice(const QSettings& file, const QString& strKey, const QStringList& listChoice, QString& strValue)
{
    strValue = file.value(strKey).toString();
    const bool bKnown = strValue.isEmpty() || listChoice.contains(strValue);
    strValue = bKnown ? strValue : QString();
    return bKnown;
}

QList<QRect> GetScreens()
{
    QList<QRect> listScreen;
    const QList<QScreen*> listAll = QGuiApplication::screens();
    for (const QScreen* pScreen : listAll) {
        listScreen.append(pScreen->availableGeometry());
    }
    return listScreen;
}

} // namespace

CSettings::CSettings()
{
    Q_ASSERT(GuiThread::IsCurrent());
    const std::unique_ptr<QSettings> pFile = OpenFile();
    if (!Read(*pFile) || pFile->status() != QSettings::NoError) {
        strFault = QStringLiteral("The settings in %1 cannot be understood as a whole, so defaults hold for the rest")
                       .arg(pFile->fileName());
    }
}

QString CSettings::GetFault() const
{
    return strFault;
}

QString CSettings::GetTheme() const
{
    return strTheme;
}

QString CSettings::GetLanguage() const
{
    return strLanguage;
}

void CSettings::SetTheme(const QString& strName)
{
    strTheme = strName;
    Write(QLatin1String(szThemeKey), strName);
}

void CSettings::SetLanguage(const QString& strCode)
{
    strLanguage = strCode;
    Write(QLatin1String(szLanguageKey), strCode);
}

void CSettings::RestoreWindow(QMainWindow& window) const
{
    Q_ASSERT(GuiThread::IsCurrent());
    auto* pDock = window.findChild<QDockWidget*>();
    if (place.rcWindow.isEmpty() || !pDock) {
        return;
    }
    const QRect rc = WindowPlace::Fit(place.rcWindow, GetScreens());
    window.resize(rc.size());
    window.move(rc.topLeft());
    window.setWindowState(place.bMaximised ? Qt::WindowMaximized : Qt::WindowNoState);
    pDock->setVisible(place.bJournal);
    if (place.nJournalWidth > 0) {
        window.resizeDocks({ pDock }, { place.nJournalWidth }, Qt::Horizontal);
    }
}

void CSettings::SaveWindow(const QMainWindow& window, bool bJournal)
{
    Q_ASSERT(GuiThread::IsCurrent());
    auto* pDock = window.findChild<QDockWidget*>();
    place.bMaximised = window.isMaximized();
    const QPoint ptFrame = window.pos() - window.geometry().topLeft();
    const QRect rcInner = place.bMaximised ? window.normalGeometry() : window.geometry();
    place.rcWindow = rcInner.translated(ptFrame);
    if (bJournal) {
        place.bJournal = !pDock->isHidden();
        // A dock that is shut has no width of its own.
        place.nJournalWidth = place.bJournal ? pDock->width() : place.nJournalWidth;
    }
    const std::unique_ptr<QSettings> pFile = OpenFile();
    pFile->setValue(QLatin1String(szWindowKey), place.rcWindow);
    pFile->setValue(QLatin1String(szMaximisedKey), place.bMaximised);
    pFile->setValue(QLatin1String(szShownKey), place.bJournal);
    pFile->setValue(QLatin1String(szWidthKey), place.nJournalWidth);
}

// False when it holds what this program does not write; the rest counts all the same.
bool CSettings::Read(const QSettings& file)
{
    const bool bTheme = ReadChoice(file, QLatin1String(szThemeKey), CTheme::GetNames(), strTheme);
    const QStringList listLanguage = CLanguage::GetCodes() << CLanguage::GetPseudoCode();
    const bool bLanguage = ReadChoice(file, QLatin1String(szLanguageKey), listLanguage, strLanguage);
    const bool bPlace = ReadPlace(file);
    return bTheme && bLanguage && bPlace;
}

bool CSettings::ReadPlace(const QSettings& file)
{
    const QRect rcStored = file.value(QLatin1String(szWindowKey)).toRect();
    const bool bUsable = !rcStored.isEmpty() && rcStored.width() <= nMostPixels && rcStored.height() <= nMostPixels;
    place.rcWindow = bUsable ? rcStored : QRect();
    const bool bWindow = bUsable || !file.contains(QLatin1String(szWindowKey));
    const bool bMaximised = ReadSwitch(file, QLatin1String(szMaximisedKey), place.bMaximised);
    const bool bShown = ReadSwitch(file, QLatin1String(szShownKey), place.bJournal);
    const bool bWidth = ReadNumber(file, QLatin1String(szWidthKey), nMostPixels, place.nJournalWidth);
    return bWindow && bMaximised && bShown && bWidth;
}

void CSettings::Write(const QString& strKey, const QVariant& value)
{
    OpenFile()->setValue(strKey, value);
}
