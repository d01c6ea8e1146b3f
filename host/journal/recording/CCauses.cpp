#include "journal/recording/CCauses.h"

#include <utility>

namespace {

constexpr std::size_t nMost = 16;

} // namespace

void CCauses::Add(quint64 nNumber)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (vecNew.size() == nMost) {
        vecNew.erase(vecNew.begin());
    }
    vecNew.push_back(nNumber);
}

std::vector<quint64> CCauses::TakeFor(int nMessage)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (!vecNew.empty() || nMessage != nLastMessage) {
        vecLast = std::exchange(vecNew, {});
    }
    nLastMessage = nMessage;
    return vecLast;
}
