#pragma once

#include <QString>

struct SProcessorAllNode;
struct SProcessorGroupNode;
struct SProcessorNode;

/// What a screen reader says of the parts of a tree, in the present language. Rows say what they show: a mark that is
/// not painted is not said. What tells a row from its neighbours and its state come first, as its text; the rest
/// is its description, which a user may have switched off or interrupt.
namespace RowSpeech {

/// What is said of one row; either part may be empty.
struct SWords
{
    QString strText;
    QString strDescription;
};

/// The root of a pane: as painted, with the number of all processors.
SWords All(const SProcessorAllNode& node);

/// A group with its number of processors and, in Chief-Member mode, its Chief. A Chief that is no member has no name here.
SWords Group(const SProcessorGroupNode& group, bool bChiefMode);

/// A processor; strGroup is the name of its group, empty for none.
SWords Processor(const SProcessorNode& node, const QString& strGroup, bool bChiefMode);

/// The information row of a processor: its four lines.
SWords Info(const SProcessorNode& node);

/// The list of a pane.
QString Tree(bool bDiscovered);

/// The editor of the name strName.
QString Editor(const QString& strName);

} // namespace RowSpeech
