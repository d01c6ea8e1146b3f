#pragma once

#include "controlhost/EnListCommand.h"
#include "controlhost/EnRefusalReason.h"

#include <QMetaType>
#include <QString>

/// A command of the user that was refused or has failed, in parts, so that an application can put it into its own words.
///
/// @since 0.2
struct SRefusal
{
    EnListCommand command = CommandAddGroup; ///< what the user wanted
    QString strName;                         ///< as SListEdit::strName, where it is known
    EnRefusalReason reason = ReasonNone;     ///< why not
    QString strDetail;                       ///< see EnRefusalReason
    QString strLine;  ///< the whole in English, as in the log, for a reason that an application has no words for
    quint64 nJob = 0; ///< as SListEdit::nJob
};

Q_DECLARE_METATYPE(SRefusal)
