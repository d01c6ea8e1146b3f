#pragma once

#include <functional>

class QObject;
class QString;
class QWidget;

/// Lets fnAnswer answer the next modal dialog as soon as it is active. pContext ends the wait.
void AnswerNext(QObject* pContext, const std::function<void(QWidget*)>& fnAnswer);

/// Answers pDialog as a row of a table says: "key " and a key sequence, "tab space" for the next part and
/// Space, "window closed", or else the name of a part to click.
void Answer(QWidget* pDialog, const QString& strHow);
