#pragma once

#include <QtGlobal>

/// Which commands belong to one job of the panel, which runs each in a thread of its own.
namespace JobNumber {

/// Of the thread that calls, see SListEdit::nJob. May be called on any thread.
quint64 Get();

} // namespace JobNumber
