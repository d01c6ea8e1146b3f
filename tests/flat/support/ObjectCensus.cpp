#include "ObjectCensus.h"

#include <private/qhooks_p.h>

#include <mutex>
#include <unordered_set>

namespace {

struct SCensus
{
    std::mutex mutex; ///< guards setLiving
    std::unordered_set<const QObject*> setLiving;
};

// Never destroyed: objects end after the end of main too.
SCensus& GetCensus()
{
    static auto* const pCensus = new SCensus;
    return *pCensus;
}

void Add(QObject* pObject)
{
    SCensus& census = GetCensus();
    const std::lock_guard<std::mutex> lock(census.mutex);
    census.setLiving.insert(pObject);
}

void Remove(QObject* pObject)
{
    SCensus& census = GetCensus();
    const std::lock_guard<std::mutex> lock(census.mutex);
    census.setLiving.erase(pObject);
}

bool Start()
{
    const QHooks::AddQObjectCallback fnAdd = &Add;
    const QHooks::RemoveQObjectCallback fnRemove = &Remove;
    qtHookData[QHooks::AddQObject] = reinterpret_cast<quintptr>(fnAdd);
    qtHookData[QHooks::RemoveQObject] = reinterpret_cast<quintptr>(fnRemove);
    return true;
}

[[maybe_unused]] const bool bStarted = Start(); // before there is an application

} // namespace

std::vector<const QObject*> ObjectCensus::GetLiving()
{
    SCensus& census = GetCensus();
    const std::lock_guard<std::mutex> lock(census.mutex);
    return { census.setLiving.begin(), census.setLiving.end() };
}
