#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QTranslator>

/// A translation of a few texts, in use while it lives.
class CMapTranslator : public QTranslator
{
public:
    /// The map's keys are "context|source text".
    explicit CMapTranslator(const QHash<QString, QString>& hashTranslation) : hashText(hashTranslation)
    {
        QCoreApplication::installTranslator(this);
    }

    ~CMapTranslator() override
    {
        QCoreApplication::removeTranslator(this);
    }

    QString translate(const char* szContext, const char* szText, const char*, int) const override
    {
        return hashText.value(QString::fromUtf8(szContext) + QLatin1Char('|') + QString::fromUtf8(szText));
    }

    bool isEmpty() const override
    {
        return false;
    }

private:
    QHash<QString, QString> hashText;
};
