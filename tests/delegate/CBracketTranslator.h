#pragma once

#include <QTranslator>

/// Puts every text of the delegate in angle brackets, while it lives: what is translated and what is not
/// then shows, and where a text begins and ends.
class CBracketTranslator : public QTranslator
{
public:
    CBracketTranslator();

    QString translate(const char* context, const char* sourceText, const char* disambiguation, int n) const override;
    bool isEmpty() const override;
};
