#pragma once

#include <QByteArray>
#include <QStringList>

/// The threads of this process, as Linux shows them; see proc(5).
namespace ProcessThreads {

QStringList GetIds();

/// What is in a thread's file of that name, e.g. "comm" or "stat"; empty when the thread has ended.
QByteArray Read(const QString& strId, const QString& strFile);

} // namespace ProcessThreads
