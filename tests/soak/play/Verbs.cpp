#include "play/Verbs.h"

#include "play/BarGestures.h"
#include "play/RowGestures.h"
#include "play/WorldEvents.h"

#include <algorithm>

namespace {

std::vector<SVerb> BuildAll()
{
    std::vector<SVerb> vecAll;
    for (const std::vector<SVerb>& vecVerb : { RowGestures::GetVerbs(), BarGestures::GetVerbs(), WorldEvents::GetVerbs() }) {
        vecAll.insert(vecAll.end(), vecVerb.begin(), vecVerb.end());
    }
    return vecAll;
}

const std::vector<SVerb>& GetAll()
{
    static const std::vector<SVerb> vecAll = BuildAll();
    return vecAll;
}

} // namespace

const SVerb* Verbs::Find(const QString& strName)
{
    const std::vector<SVerb>& vecAll = GetAll();
    const auto isIt = [&](const SVerb& verb) { return strName == QLatin1String(verb.szName); };
    const auto it = std::find_if(vecAll.begin(), vecAll.end(), isIt);
    return it == vecAll.end() ? nullptr : &*it;
}

std::vector<QString> Verbs::GetWeighted()
{
    std::vector<QString> vecName;
    for (const SVerb& verb : GetAll()) {
        vecName.insert(vecName.end(), static_cast<size_t>(verb.nWeight), QString::fromLatin1(verb.szName));
    }
    return vecName;
}
