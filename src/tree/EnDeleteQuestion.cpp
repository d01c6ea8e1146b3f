#include "tree/EnDeleteQuestion.h"

EnDeleteQuestion DeleteQuestion(bool bProcessor, bool bFilledGroup, bool bEmptyGroup)
{
    if (bProcessor) {
        return bFilledGroup || bEmptyGroup ? EnDeleteQuestion::GroupsAndProcessors : EnDeleteQuestion::Processors;
    }
    return bFilledGroup ? EnDeleteQuestion::WithOrWithoutProcessors : EnDeleteQuestion::None;
}
