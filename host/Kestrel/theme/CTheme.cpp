#include "Kestrel/theme/CTheme.h"

#include "Kestrel/GuiThread.h"
#include "Kestrel/theme/ThemeFont.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QPalette>
#include <QRegularExpression>
#include <QStyleFactory>

namespace {

QString ReadText(const QString& strPath)
{
    QFile file(strPath);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("%s is missing in the resources", qPrintable(strPath));
    }
    return QString::fromUtf8(file.readAll());
}

} // namespace

CTheme::CTheme() : strCurrent(GetNames().constFirst())
{
    ReadColours();
}

QStringList CTheme::GetNames()
{
    return { QStringLiteral("dark"), QStringLiteral("contrast") };
}

QString CTheme::GetName() const
{
    return strCurrent;
}

void CTheme::Apply(QApplication& application) const
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(ThemeFont::Get());
    ApplyColours(application);
}

void CTheme::Set(const QString& strName)
{
    Q_ASSERT(GuiThread::IsCurrent());
    if (strName == strCurrent || !GetNames().contains(strName)) {
        return;
    }
    strCurrent = strName;
    ReadColours();
    ApplyColours(*qApp);
    emit Changed();
}

QString CTheme::GetPanelSheet() const
{
    return GetSheet(QStringLiteral(":/theme/panel.qss"));
}

QString CTheme::GetApplicationSheet() const
{
    return GetSheet(QStringLiteral(":/theme/kestrel.qss"));
}

QColor CTheme::GetColour(const QString& strName) const
{
    return mapColour.value(strName);
}

void CTheme::ReadColours()
{
    static const QRegularExpression expression(QStringLiteral("^(\\w+)\\s+(#[0-9A-F]{6,8})$"),
                                               QRegularExpression::MultilineOption);
    mapColour.clear();
    auto match = expression.globalMatch(ReadText(QStringLiteral(":/theme/%1.txt").arg(strCurrent)));
    while (match.hasNext()) {
        const QRegularExpressionMatch line = match.next();
        mapColour.insert(line.captured(1), QColor(line.captured(2)));
    }
}

void CTheme::ApplyColours(QApplication& application) const
{
    QApplication::setPalette(GetPalette());
    application.setStyleSheet(GetApplicationSheet());
}

QString CTheme::GetSheet(const QString& strPath) const
{
    static const QRegularExpression expression(QStringLiteral("@(\\w+)"));
    const QString strText = ReadText(strPath);
    QString strSheet;
    int nDone = 0;
    auto match = expression.globalMatch(strText);
    while (match.hasNext()) {
        const QRegularExpressionMatch name = match.next();
        strSheet += strText.mid(nDone, name.capturedStart() - nDone) + GetColour(name.captured(1)).name(QColor::HexArgb);
        nDone = name.capturedEnd();
    }
    return strSheet + strText.mid(nDone);
}

QPalette CTheme::GetPalette() const
{
    QPalette palette(GetColour(QStringLiteral("raised")), GetColour(QStringLiteral("bar")));
    palette.setColor(QPalette::Base, GetColour(QStringLiteral("tree")));
    palette.setColor(QPalette::AlternateBase, GetColour(QStringLiteral("bar")));
    palette.setColor(QPalette::ToolTipBase, GetColour(QStringLiteral("field")));
    palette.setColor(QPalette::ToolTipText, GetColour(QStringLiteral("textStrong")));
    palette.setColor(QPalette::Text, GetColour(QStringLiteral("textStrong")));
    palette.setColor(QPalette::WindowText, GetColour(QStringLiteral("text")));
    palette.setColor(QPalette::ButtonText, GetColour(QStringLiteral("textStrong")));
    palette.setColor(QPalette::PlaceholderText, GetColour(QStringLiteral("textHint")));
    palette.setColor(QPalette::Highlight, GetColour(QStringLiteral("selectFill")));
    palette.setColor(QPalette::HighlightedText, GetColour(QStringLiteral("textSelected")));
    palette.setColor(QPalette::Link, GetColour(QStringLiteral("textStrong")));
    for (const QPalette::ColorRole role : { QPalette::Text, QPalette::WindowText, QPalette::ButtonText }) {
        palette.setColor(QPalette::Disabled, role, GetColour(QStringLiteral("textDisabled")));
    }
    return palette;
}
