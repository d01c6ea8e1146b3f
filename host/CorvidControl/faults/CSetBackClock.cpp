#include "CorvidControl/faults/CSetBackClock.h"

void CSetBackClock::SetBack(std::chrono::seconds time)
{
    nBack += time.count();
}

QDateTime CSetBackClock::GetDate() const
{
    return CControlClock::GetDate().addSecs(-nBack);
}
