#pragma once

#include "CorvidControl/list/SListLimits.h"
#include "controlhost/SRefusedList.h"

#include <QByteArray>

/// What can still be read of a list file that was refused. Pure functions, for any thread.
namespace ListSalvage {

/// Accepts any bytes, in bounded memory. Reads node by node and mends what does not fit a list file: names, texts,
/// numbers, ids that are there twice. A processor counts when its address can be read; of one that is there twice, by id
/// and address, the first. What is more than the limits allow is left out, but the processors of such a group move to the
/// root. The list that it returns is one that ListFormat takes; the same bytes always give the same.
SRefusedList Read(const QByteArray& bytes, const SListLimits& limits);

} // namespace ListSalvage
