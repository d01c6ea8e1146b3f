#include "Kestrel/translations/tools/PseudoText.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>

namespace {

constexpr double dGrowth = 0.4;
constexpr int nBrackets = 2;

/// In place of a letter, one of the same width or more.
const QHash<QChar, QChar>& GetAccents()
{
    static const QHash<QChar, QChar> mapAccent = [] {
        const QString strPlain = QStringLiteral("ACDEGHIJKLNORSTUWYZacdeghijklnorstuwyz");
        const QString strAccented = QStringLiteral("ÅÇĐÉĜĤÎĴĶĻÑÖŔŠŢÛŴÝŽåçđéĝĥîĵķļñöŕšţûŵýž");
        QHash<QChar, QChar> mapResult;
        for (int n = 0; n < strPlain.size(); ++n) {
            mapResult.insert(strPlain.at(n), strAccented.at(n));
        }
        return mapResult;
    }();
    return mapAccent;
}

/// The labels of the information row, by their text: the panel reserves 45 and 32 pixels for them.
const QHash<QString, QString>& GetFixedRooms()
{
    static const QHash<QString, QString> mapRoom{
        { QStringLiteral("Project: "), QStringLiteral("[Þŕĵ:] ") },
        { QStringLiteral("UID: "), QStringLiteral("[ÛÎ:] ") },
    };
    return mapRoom;
}

QString Accented(const QString& strText)
{
    // A placeholder with its number or n, or a mnemonic with its letter.
    static const QRegularExpression kept(QStringLiteral("%L?(?:\\d+|n)|&."));
    QString strResult = strText;
    QRegularExpressionMatchIterator it = kept.globalMatch(strText);
    QRegularExpressionMatch match = it.hasNext() ? it.next() : QRegularExpressionMatch();
    for (int n = 0; n < strText.size(); ++n) {
        if (match.hasMatch() && n == match.capturedStart()) {
            n = match.capturedEnd() - 1;
            match = it.hasNext() ? it.next() : QRegularExpressionMatch();
        } else {
            strResult[n] = GetAccents().value(strText.at(n), strText.at(n));
        }
    }
    return strResult;
}

QString Padding(int nLetters)
{
    // Words, as long texts have them: they can be broken into lines.
    static const QString strWords = QStringLiteral(" öñé ţŵö ţĥŕéé ƒöûŕ ƒîvé šîx šévéñ éîĝĥţ ñîñé ţéñ");
    const int nAdded = qMax(0, qRound(nLetters * dGrowth) - nBrackets);
    const QString strAdded = strWords.repeated(nAdded / strWords.size() + 1).left(nAdded);
    return strAdded.endsWith(QLatin1Char(' ')) ? strAdded.left(nAdded - 1) + QLatin1Char('_') : strAdded;
}

QString Line(const QString& strLine)
{
    static const QRegularExpression expression(QStringLiteral("^(\\s*)(.*?)(\\s*)$"));
    const QRegularExpressionMatch match = expression.match(strLine);
    const QString strText = match.captured(2);
    if (strText.isEmpty()) {
        return strLine;
    }
    return match.captured(1) + QLatin1Char('[') + Accented(strText) + Padding(strText.size()) + QLatin1Char(']')
        + match.captured(3);
}

} // namespace

QString PseudoText::Make(const QString& strContext, const QString& strSource)
{
    if (strContext == QLatin1String("CProcessorTreeDelegate") && GetFixedRooms().contains(strSource)) {
        return GetFixedRooms().value(strSource);
    }
    QStringList listLine = strSource.split(QLatin1Char('\n'));
    for (QString& strLine : listLine) {
        strLine = Line(strLine);
    }
    return listLine.join(QLatin1Char('\n'));
}
