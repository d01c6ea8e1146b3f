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
constexpr char szAreaKey[] = "journal/area";
constexpr int nMostPixels = 100000; ///< of a window; no screen has as many

std::unique_ptr<QSettings> OpenFile()
{
    const QString strName = QStringLiteral("Kestrel");
    auto pFile = std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, strName, strName);
    pFile->setFallbacksEnabled(false);
    return pFile;
}

/// False for a number that is none or lies outside.
bool ReadNumber(const QSettings& file, const QString& strKey, int nMost, int& nValue)
{
    bool bNumber = true;
    nValue = file.contains(strKey) ? file.value(strKey).toInt(&bNumber) : 0;
    return bNumber && nValue >= 0 && nValue <= nMost;
}

bool ReadSwitch(const QSettings& file, const QString& strKey, bool& bValue)
{
    const QString strText = file.value(strKey, false).toString();
    bValue = strText == QLatin1String("true");
    return bValue || strText == QLatin1String("false");
}

/// Empty where nothing is stored.
bool ReadChoice(const QSettings& file, const QString& strKey, const QStringList& listChoice, QString& strValue)
{
    strValue = file.value(strKey).toString();
    return strValue.isEmpty() || listChoice.contains(strValue);
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
    if (Read(*pFile) && pFile->status() == QSettings::NoError) {
        return;
    }
    strFault = QStringLiteral("The settings in %1 cannot be understood, so the defaults hold").arg(pFile->fileName());
    strTheme.clear();
    strLanguage.clear();
    place = {};
    pFile->clear();
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
    if (place.nJournalArea != 0) {
        window.addDockWidget(Qt::DockWidgetArea(place.nJournalArea), pDock);
    }
    pDock->setVisible(place.bJournal);
    if (place.nJournalWidth > 0) {
        window.resizeDocks({ pDock }, { place.nJournalWidth }, Qt::Horizontal);
    }
}

void CSettings::SaveWindow(const QMainWindow& window)
{
    Q_ASSERT(GuiThread::IsCurrent());
    auto* pDock = window.findChild<QDockWidget*>();
    place.bMaximised = window.isMaximized();
    const QPoint ptFrame = window.pos() - window.geometry().topLeft();
    const QRect rcInner = place.bMaximised ? window.normalGeometry() : window.geometry();
    place.rcWindow = rcInner.translated(ptFrame);
    place.bJournal = !pDock->isHidden();
    // A dock that is shut has no width of its own.
    place.nJournalWidth = place.bJournal ? pDock->width() : place.nJournalWidth;
    place.nJournalArea = window.dockWidgetArea(pDock);
    const std::unique_ptr<QSettings> pFile = OpenFile();
    pFile->setValue(QLatin1String(szWindowKey), place.rcWindow);
    pFile->setValue(QLatin1String(szMaximisedKey), place.bMaximised);
    pFile->setValue(QLatin1String(szShownKey), place.bJournal);
    pFile->setValue(QLatin1String(szWidthKey), place.nJournalWidth);
    pFile->setValue(QLatin1String(szAreaKey), place.nJournalArea);
}

// False when it holds what Kestrel has not written.
bool CSettings::Read(const QSettings& file)
{
    return ReadChoice(file, QLatin1String(szThemeKey), CTheme::GetNames(), strTheme)
        && ReadChoice(file, QLatin1String(szLanguageKey), CLanguage::GetCodes() << CLanguage::GetPseudoCode(), strLanguage)
        && ReadPlace(file);
}

bool CSettings::ReadPlace(const QSettings& file)
{
    place.rcWindow = file.value(QLatin1String(szWindowKey)).toRect();
    const bool bPlace = !file.contains(QLatin1String(szWindowKey))
        || (!place.rcWindow.isEmpty() && place.rcWindow.width() <= nMostPixels && place.rcWindow.height() <= nMostPixels);
    return bPlace && ReadSwitch(file, QLatin1String(szMaximisedKey), place.bMaximised)
        && ReadSwitch(file, QLatin1String(szShownKey), place.bJournal)
        && ReadNumber(file, QLatin1String(szWidthKey), nMostPixels, place.nJournalWidth)
        && ReadNumber(file, QLatin1String(szAreaKey), Qt::BottomDockWidgetArea, place.nJournalArea);
}

void CSettings::Write(const QString& strKey, const QVariant& value)
{
    OpenFile()->setValue(strKey, value);
}
