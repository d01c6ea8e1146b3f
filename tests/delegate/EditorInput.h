#pragma once

#include "nodes/SProcessorAllNode.h"

#include <QModelIndex>

class CRowView;
class QLineEdit;

// What the tests of the editor share: a small site, and the ways of giving text.

extern const QString strStage; ///< a group
extern const QString strAlpha; ///< the processor in it
extern const QString strGamma; ///< a processor in no group

SProcessorAllNode Site();

/// The same with another name for the processor gamma.
SProcessorAllNode SiteWithGammaNamed(const QString& strName);

QModelIndex Gamma(const CRowView& view);

/// The call that renames gamma, as the journal has it, with its thread.
QString RenameGamma(const QString& strName);

/// Key by key, characters of any script.
void Type(QLineEdit* pEditor, const QString& strText);

/// By clipboard and shortcut.
void Paste(QLineEdit* pEditor, const QString& strText);

/// As an input method does: shows the text while it is composed, then hands it over.
void Compose(QLineEdit* pEditor, const QString& strText);
