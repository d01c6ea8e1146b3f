#pragma once

#include "Kestrel/undo/CDiskWork.h"
#include "Kestrel/undo/CRefusedList.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

class CLanguage;
class CRefusalNote;
class CUndoSteps;
class IControlHost;
class QAction;
class QMenu;
struct SRefusal;
struct SUndoStep;

/// What the list menu has about the list itself: undo and redo, the earlier lists, the list that was refused, the Chief of
/// a group. Left out where the control library has nothing of it. GUI thread.
class CUndoMenu : public QObject
{
    Q_OBJECT

public:
    /// Adds its entries to menuIn. The keys of undo and redo act while the focus is in frame and in no line of text. noteIn
    /// says why a step was refused. All must outlive the object.
    CUndoMenu(QWidget& windowIn, QMenu& menuIn, QWidget& frame, IControlHost& hostIn, CUndoSteps& stepsIn, CRefusalNote& noteIn,
              const CLanguage& languageIn);

    /// Whose selection the Chief is about. Null for none.
    void SetPanel(QWidget* pWidget);

    /// All texts, after the language has changed.
    void UpdateText();

    /// A line of text keeps the keys of undo and redo for itself, also those that it has no use for.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeActions(QWidget& frame);
    void SetConnection();
    void UpdateState();
    void UpdateChief();
    void ToggleChief(bool bOn);
    void ShowEarlier();
    void SayRefusal(const SUndoStep& step, bool bRedo, const SRefusal& refusal);
    void OfferSkip(const SUndoStep& step, const SRefusal& refusal);
    QUuid FindProcessor(QUuid& idGroup) const;

    QWidget& window;
    QMenu& menu;
    IControlHost& host;
    CUndoSteps& steps;
    CRefusalNote& note;
    const CLanguage& language;
    CDiskWork work;
    CRefusedList refused;
    QPointer<QWidget> pPanel;
    QAction* pUndo = nullptr;
    QAction* pRedo = nullptr;
    QAction* pChief = nullptr;
    QAction* pEarlier = nullptr;
    QAction* pRefused = nullptr;
};
