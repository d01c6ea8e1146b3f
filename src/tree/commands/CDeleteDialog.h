#pragma once

#include "tree/commands/EnDeleteQuestion.h"

#include <QCoreApplication>

class QWidget;

/// Asks the user before nodes are deleted. GUI thread.
class CDeleteDialog
{
    Q_DECLARE_TR_FUNCTIONS(CProcessorTree)

public:
    /// pParentIn may die while a question is open; the question then counts as refused.
    explicit CDeleteDialog(QWidget* pParentIn);

    /// Asks, where the question needs asking, and blocks until the answer. False: nothing is to be deleted,
    /// and bWithProcessors is untouched. True: bWithProcessors says whether groups take their processors along.
    bool Ask(EnDeleteQuestion question, bool& bWithProcessors);

private:
    bool Confirm(const QString& strTitle, const QString& strText) const;
    bool AskForGroups(bool& bWithProcessors) const;

    QWidget* pParent;
};
