#pragma once

#include "tree/EnDeleteQuestion.h"

class QString;
class QWidget;

/// Asks the user before nodes are deleted.
class CDeleteDialog
{
public:
    /// pParent may die while a question is open; the question then counts as refused.
    explicit CDeleteDialog(QWidget* pParent);

    /// Asks, where the question needs asking, and blocks until the answer. False: nothing is to be
    /// deleted, and bWithProcessors is untouched. True: bWithProcessors tells whether groups take their
    /// processors along.
    bool Ask(EnDeleteQuestion question, bool& bWithProcessors);

private:
    bool Confirm(const QString& strTitle, const QString& strText) const;
    bool AskForGroups(bool& bWithProcessors) const;

    QWidget* pParent;
};
