// Modules loaded at run time, and the application object.

#include "platform/module.h"

#include <dlfcn.h>

HMODULE AfxLoadLibrary(const char* name) {
    return dlopen(name, RTLD_NOW | RTLD_LOCAL);
}

int AfxFreeLibrary(HMODULE module) {
    return dlclose(module) == 0 ? 1 : 0;
}

FARPROC GetProcAddress(HMODULE module, const char* name) {
    return reinterpret_cast<FARPROC>(dlsym(module, name));
}

int CWinApp::InitInstance() {
    return 1;
}

int CWinApp::ExitInstance() {
    return 0;
}
