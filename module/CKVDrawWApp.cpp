// The application object: finds the outside resize function and lets go of it.

#include "CKVDrawWApp.h"

namespace {

// Whole before any code runs, so that a resize during start-up finds it, not yet bound.
constinit CKVDrawWApp library;

// Runs the two hooks as the library comes and goes.
const struct Lifetime {
    Lifetime() { library.InitInstance(); }
    ~Lifetime() { library.ExitInstance(); }
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;
} lifetime;

}  // namespace

CKVDrawWApp& CKVDrawWApp::Instance() {
    return library;
}

int CKVDrawWApp::InitInstance() {
    CWinApp::InitInstance();
    m_IppModule = AfxLoadLibrary("ippi-7.0.dll");
    m_IppResize = nullptr;
    if (m_IppModule != nullptr) {
        m_IppResize =
            reinterpret_cast<KVResizeFunction>(GetProcAddress(m_IppModule, "ippiResize_8u_C4R"));
    }
    return 1;
}

int CKVDrawWApp::ExitInstance() {
    if (m_IppModule != nullptr) {
        AfxFreeLibrary(m_IppModule);
        m_IppModule = nullptr;
        m_IppResize = nullptr;
    }
    return CWinApp::ExitInstance();
}
