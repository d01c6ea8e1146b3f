#pragma once

#include "controlhost/SEarlierList.h"
#include "interfaces/widgets/CBaseDialog.h"

#include <QList>
#include <QLocale>

class CDiskWork;
class CElidedLabel;
class IControlHost;
class QTreeWidget;
struct SRefusal;

/// The earlier lists that are kept beside the list, newest first, and the restoring of one, which is a step of undo.
/// Both are done beside the GUI thread.
class CEarlierLists : public CBaseDialog
{
    Q_OBJECT

public:
    /// Begins to read. hostIn and workIn must outlive the dialog.
    /// localeIn writes dates and numbers.
    CEarlierLists(IControlHost& hostIn, CDiskWork& workIn, const QLocale& localeIn, QWidget* parent);

    /// Restores the list that is chosen, and closes the dialog when that was done.
    void accept() override;

private:
    void InitWidget();
    void Show(const QList<SEarlierList>& listEarlier);
    void Add(const SEarlierList& earlier);
    void Finish(bool bTaken);
    void SetNote(const QString& strText);
    void SayRefusal(const SRefusal& refusal);
    void UpdateState();

    IControlHost& host;
    CDiskWork& work;
    const QLocale locale;
    QTreeWidget* pTable;
    CElidedLabel* pNote; ///< what stands in place of rows, or why a list was not restored
    bool bTaking = false;
};
