#include "double/CPreferenceControlDouble.h"

bool CPreferenceControlDouble::IsChiefMode()
{
    const CGuard guard = Read("IsChiefMode");
    return Answer([&](SControlAnswers& answers) { return answers.bChiefMode; });
}
