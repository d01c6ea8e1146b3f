#pragma once

#include "CCommandWatch.h"
#include "CListWindow.h"
#include "CScreenReader.h"
#include "Kestrel/keys/CUserWatch.h"

#include <QModelIndex>
#include <QSet>

/// CListWindow with the decorators that Kestrel puts round the control library, which keep every line in full, and with rows that
/// can be read: a screen reader listens. A test breaks its library as a scenario can, and the library hears what the user is in
/// the middle of, as in the program.
class CFaultWindow
{
public:
    /// Returns when the panel shows what the library has, and no message waits.
    CFaultWindow();

    /// Makes something go wrong, by a step of a scenario with apostrophes for quotation marks: "'do':'hang',...".
    void Break(const QString& strStep) const;

    /// As Break. Returns why it was not taken; empty when it was.
    QString TryBreak(const QString& strStep) const;

    /// Waits until no message waits, forgets what was recorded, raises, and waits for the end of the burst.
    void AndSettled(const std::function<void()>& fnRaise);

    /// A message without a change of which nothing goes wrong, and the panel's reading of it.
    void Read();

    /// As PaneText.
    QString Shown(bool bSimulator = false) const;
    static QString Truth(bool bSimulator = false);

    /// As PaneRows, of the current pane and of the Discovered one.
    QString ShownRows() const;
    QString TrueRows() const;

    /// The row that shows this name, the first of several; invalid when none does.
    QModelIndex Row(const QString& strName) const;
    static QUuid Id(const QModelIndex& index);

    /// The row with this id, the first or another of several; invalid when there is none.
    QModelIndex RowOf(const QUuid& id, int nWhich = 0) const;

    void Click(const QString& strName, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Returns when the panel has read the library two times more.
    void AwaitReadings();

    /// The ids of all nodes that the recorded commands delete, rename or move, and to which, but for the groups that the panel
    /// has made.
    QSet<QUuid> CommandedIds();

    /// The ids of all nodes in the recorded reports of the selection, the root's null id too.
    QSet<QUuid> ReportedIds();

    /// The first argument of each recorded call of an operation.
    QList<QUuid> FirstIds(const QString& strOperation);

    /// The library has another group, and so a message goes out. True when the panel shows all that the library has then.
    bool IsTrueAfterTheNextMessage();

    /// Whether the panel has sent these commands since the last Take and then nothing but the selection that the library has.
    bool HasSent(const QStringList& listCommand);

    /// Everything that was asked for has been carried out, and no job is under way.
    bool Settle();

    QTreeView* Tree(bool bSimulator = false) const;

    /// Another panel in the place of one that has ended.
    void OpenPanel();

    /// All that the control objects can be called by, from the headers of the contract, sorted: "PrcListControl.AddGroup".
    static QStringList Operations();

    CScreenReader reader;
    CCommandWatch commands;
    CListWindow kestrel{ &commands };
    CUserWatch watch{ *kestrel.pHost };

private:
    void Name(const SProcessorAllNode& node);

    int nGroups = 0;
};
