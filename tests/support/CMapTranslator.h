#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QTranslator>

/// A translation of a few texts, in use while it lives.
class CMapTranslator : public QTranslator
{
public:
    /// The map's keys are "context|source text".
    explicit CMapTranslator(const QHash<QString, QString>& hashTextIn) : hashText(hashTextIn)
    {
        QCoreApplication::installTranslator(this);
    }

    ~CMapTranslator() override
    {
        QCoreApplication::removeTranslator(this);
    }

    QString translate(const char* context, const char* sourceText, const char*, int) const override
    {
        return hashText.value(QString::fromUtf8(context) + QLatin1Char('|') + QString::fromUtf8(sourceText));
    }

    bool isEmpty() const override
    {
        return false;
    }

private:
    QHash<QString, QString> hashText;
};
