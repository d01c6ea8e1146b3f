#include <cstdio>

#include <dlfcn.h>

int main()
{
    void* pLibrary = dlopen("libProcessorTreeView.so.0", RTLD_NOW | RTLD_LOCAL);
    const bool bFound = pLibrary && dlsym(pLibrary, "_Z23CProcessorTreeView_InitPP13ICorvidWidgetP13IUIManagement");
    if (!bFound) {
        std::fprintf(stderr, "%s\n", dlerror());
    }
    return bFound ? 0 : 1;
}
