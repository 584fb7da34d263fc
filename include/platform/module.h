#pragma once

#include "export.h"
#include "types.h"

/// A module that is loaded at run time, and an entry of it.
using HMODULE = void*;
using FARPROC = void (*)();

/// Loads a module by its file name, which goes to the system's search as it stands. Null when none
/// is found.
KVDRAW_API HMODULE AfxLoadLibrary(const char* name);

/// Lets go of a loaded module. 1 done, 0 failed.
KVDRAW_API int AfxFreeLibrary(HMODULE module);

/// The entry of that name, null when the module has none.
KVDRAW_API FARPROC GetProcAddress(HMODULE module, const char* name);

/// The base of a module's one application object.
class KVDRAW_API CWinApp {
  public:
    constexpr CWinApp() = default;
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;
    virtual ~CWinApp() = default;

    /// Called once the module is loaded; 1 lets it go on.
    virtual int InitInstance();

    /// Called before the module is unloaded; the value is the module's exit code.
    virtual int ExitInstance();
};
