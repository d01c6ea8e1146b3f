#include "contract/library/Subscription.h"

#include "contract/library/CLibrary.h"
#include "interfaces/control/IPrcBasicControl.h"
#include "interfaces/control/IPrcListControl.h"
#include "interfaces/control/IPrcRuntimeControl.h"
#include "interfaces/control/IPreferenceControl.h"
#include "interfaces/control/IProjectManageControl.h"
#include "interfaces/control/IProtocalControl.h"
#include "interfaces/control/IRuntimeControl.h"

void Subscription::Attach(const CLibrary& library, CObserver* pObserver)
{
    library.GetPrcBasic().Attach(pObserver);
    library.GetPrcList().Attach(pObserver);
    library.GetRuntime().Attach(pObserver);
    library.GetPrcRuntime().Attach(pObserver);
    library.GetProjectManage().Attach(pObserver);
    library.GetProtocal().Attach(pObserver);
    library.GetPreference().Attach(pObserver);
}

void Subscription::Detach(const CLibrary& library, CObserver* pObserver)
{
    library.GetPrcBasic().Detach(pObserver);
    library.GetPrcList().Detach(pObserver);
    library.GetRuntime().Detach(pObserver);
    library.GetPrcRuntime().Detach(pObserver);
    library.GetProjectManage().Detach(pObserver);
    library.GetProtocal().Detach(pObserver);
    library.GetPreference().Detach(pObserver);
}
