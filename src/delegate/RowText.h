#pragma once

#include <QStringList>

struct SProcessorNode;

/// What rows show as text, whole and translated: for those that paint it and for those that say it.
namespace RowText {

/// The root, with the number of processors in its pane.
QString All(int nProcessors);

/// The project on a processor, or what stands for none.
QString Project(const SProcessorNode& node);

/// The id as it is shown, without braces.
QString Uid(const SProcessorNode& node);

/// The four lines of the information row of a processor that answers, with its project and its id as given, for
/// they may have been shortened.
QStringList OnlineLines(const SProcessorNode& node, const QString& strProject, const QString& strId);

/// The four lines of the information row, whole; only the address of a processor that does not answer is known.
QStringList InfoLines(const SProcessorNode& node);

} // namespace RowText
