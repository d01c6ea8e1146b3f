#pragma once

#include <QtGlobal>

#include <functional>

class CAnswerBook;
class CReplayIds;

/// What the comparison of a call needs to know about the replay as it stands.
struct SReplayMoment
{
    CReplayIds& ids;
    const CAnswerBook& book;
    quint64 nDue = 0;                      ///< everything before that number has been delivered or played
    quint64 nNext = 0;                     ///< the message or step of the user that comes then
    quint64 nExpected = 0;                 ///< what has a lower number may come before the user does anything else
    std::function<bool(quint64)> fnIsOpen; ///< a call of that number would not be held back
};
