#include "Kestrel/replay/GestureText.h"

#include "Kestrel/replay/CListingNames.h"
#include "journal/replay/SRecordedLine.h"

#include <QJsonArray>
#include <QKeySequence>

#include <algorithm>
#include <array>

namespace {

/// The field that says most of an operation.
struct SField
{
    const char* szOperation;
    const char* szField;
};

constexpr std::array<SField, 9> listField{ {
    { "edit", "text" },
    { "composed", "text" },
    { "search", "search" },
    { "entry", "entry" },
    { "dialog", "title" },
    { "language", "language" },
    { "theme", "theme" },
    { "shortcut", "keys" },
    { "active", "window" },
} };

QString GetText(const SRecordedLine& line, const char* szField)
{
    return line.fields.value(QLatin1String(szField)).toString();
}

int GetNumber(const SRecordedLine& line, const char* szField)
{
    return line.fields.value(QLatin1String(szField)).toInt();
}

bool IsModifier(int nKey)
{
    return nKey == Qt::Key_Shift || nKey == Qt::Key_Control || nKey == Qt::Key_Alt || nKey == Qt::Key_Meta
        || nKey == Qt::Key_AltGr;
}

bool IsSilent(const SRecordedLine& line)
{
    const QString& strDo = line.strOperation;
    return strDo.endsWith(QLatin1String("release")) || strDo == QLatin1String("move") || strDo == QLatin1String("drag")
        || line.fields.value(QLatin1String("sent")).toBool() || IsModifier(GetNumber(line, "key"));
}

// The row, or the widget.
QString GetPlace(const SRecordedLine& line, const CListingNames& names)
{
    if (line.fields.contains(QLatin1String("row"))) {
        return QStringLiteral(" on %1").arg(names.GetNode(GetText(line, "row")));
    }
    const QString strTarget = GetText(line, "target").section(QLatin1Char('/'), -1);
    return strTarget.isEmpty() ? QString() : QStringLiteral(" in %1").arg(strTarget);
}

QString GetKeys(const SRecordedLine& line)
{
    const int nModifiers = GetNumber(line, "modifiers") & ~static_cast<int>(Qt::KeypadModifier);
    return QKeySequence(GetNumber(line, "key") | nModifiers).toString(QKeySequence::PortableText);
}

QString GetButton(const SRecordedLine& line)
{
    const int nButton = GetNumber(line, "button");
    const QString strButton = nButton == Qt::LeftButton ? QStringLiteral("left")
        : nButton == Qt::RightButton                    ? QStringLiteral("right")
                                                        : QStringLiteral("other");
    QString strKeys = QKeySequence(GetNumber(line, "modifiers")).toString(QKeySequence::PortableText);
    strKeys.chop(1); // a plus
    return QStringLiteral(" of the %1 button%2")
        .arg(strButton, strKeys.isEmpty() ? QString() : QStringLiteral(" with ") + strKeys);
}

QString GetDetail(const SRecordedLine& line)
{
    const QString& strDo = line.strOperation;
    if (strDo == QLatin1String("key press")) {
        return QStringLiteral(" ") + GetKeys(line);
    }
    if (strDo == QLatin1String("press") || strDo == QLatin1String("double click")) {
        return GetButton(line);
    }
    if (strDo == QLatin1String("pane")) {
        return GetNumber(line, "pane") == 0 ? QStringLiteral(" Discovered") : QStringLiteral(" Simulator");
    }
    if (strDo == QLatin1String("size")) {
        return QStringLiteral(" %1 x %2").arg(GetNumber(line, "width")).arg(GetNumber(line, "height"));
    }
    if (strDo == QLatin1String("answer")) {
        return QStringLiteral(" %1").arg(GetNumber(line, "result"));
    }
    const auto it = std::find_if(listField.begin(), listField.end(),
                                 [&strDo](const SField& field) { return QLatin1String(field.szOperation) == strDo; });
    return it == listField.end() ? QString()
                                 : QStringLiteral(" \"%1\"").arg(line.fields.value(QLatin1String(it->szField)).toString());
}

} // namespace

QString GestureText::Get(const SRecordedLine& line, const CListingNames& names)
{
    return IsSilent(line) ? QString() : line.strOperation + GetDetail(line) + GetPlace(line, names);
}
