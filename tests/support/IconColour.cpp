#include "IconColour.h"

#include <QFile>
#include <QRegularExpression>

QColor IconColour(const QString& strPath)
{
    QFile file(strPath);
    if (!file.open(QIODevice::ReadOnly)) {
        return QColor();
    }
    static const QRegularExpression pattern(QStringLiteral("fill=\"(#[0-9a-f]{6})\""));
    return QColor(pattern.match(QString::fromUtf8(file.readAll())).captured(1));
}
