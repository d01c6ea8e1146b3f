#pragma once

#include <QtGlobal>

#include <mutex>
#include <vector>

/// What may have caused a message. The contract does not say what stands behind one, so it is every change that was asked for
/// and every step of the devices since the message before. Any thread.
class CCauses
{
public:
    /// The call or step with that number may lead to a message.
    void Add(quint64 nNumber);

    /// The numbers behind a message, at most the last sixteen. The same message right behind, as several objects send it, has
    /// the same ones; any other without a change in between has none.
    std::vector<quint64> TakeFor(int nMessage);

private:
    std::mutex mutex; ///< guards all below
    std::vector<quint64> vecNew;
    std::vector<quint64> vecLast;
    int nLastMessage = 0;
};
