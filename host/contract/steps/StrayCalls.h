#pragma once

#include <QUuid>

class CSite;
struct SReading;

/// The operations that take the id of a node.
namespace StrayCalls {

int GetCount();

/// Makes the one that the remainder of nOperation chooses, with id, which strId describes in the story.
void Make(CSite& site, int nOperation, const QUuid& id, const QString& strId, const SReading& reading);

} // namespace StrayCalls
