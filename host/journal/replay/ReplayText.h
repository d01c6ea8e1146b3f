#pragma once

#include "journal/replay/SRecordedLine.h"
#include "journal/replay/SReplayedCall.h"

/// Sentences on what differs, for a person.
namespace ReplayText {

/// "gui", "worker", "pool", "other": a name of a thread without its number.
QString GetClass(const QString& strThread);

QString Additional(const SReplayedCall& call);
QString Instead(const SReplayedCall& call, const SRecordedLine& line);

/// The call comes later in the recording, behind line.
QString TooEarly(const SReplayedCall& call, const SRecordedLine& line);
QString OtherThread(const SReplayedCall& call, const SRecordedLine& line);
QString Missing(const SRecordedLine& line);

} // namespace ReplayText
