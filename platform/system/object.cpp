// Classes by name: the list of records, and objects made by them.

#include "platform/object.h"

#include <cstring>
#include <mutex>
#include <new>

namespace {

// Both are initialised before any code runs and need no destructor, so that entries may come and go
// in whatever order files and modules are started and ended.
constinit std::mutex g_Mutex;
constinit CRuntimeClass* g_First = nullptr;

const CRuntimeClassEntry g_ObjectEntry(CObject::classCObject);

}  // namespace

constinit CRuntimeClass CObject::classCObject{"CObject", 0xFFFF, nullptr, nullptr, nullptr};

CObject::~CObject() = default;

void CObject::Serialize(CArchive& /*archive*/) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext& /*context*/) const {}

CRuntimeClass* CObject::GetThisClass() {
    return &classCObject;
}

CRuntimeClass* CObject::GetRuntimeClass() const {
    return &classCObject;
}

CObject* CRuntimeClass::CreateObject() const {
    if (m_pfnCreateObject == nullptr) {
        return nullptr;
    }
    try {
        return m_pfnCreateObject();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
    const CRuntimeClass* at = this;
    while (at != base && at->m_pfnGetBaseClass != nullptr) {
        at = at->m_pfnGetBaseClass();
    }
    return at == base;
}

CRuntimeClass* CRuntimeClass::FromName(const char* name) {
    if (name == nullptr) {
        return nullptr;
    }
    const std::lock_guard hold(g_Mutex);
    CRuntimeClass* at = g_First;
    while (at != nullptr && std::strcmp(at->m_lpszClassName, name) != 0) {
        at = at->m_pNextClass;
    }
    return at;
}

CObject* CRuntimeClass::CreateObject(const char* name) {
    const CRuntimeClass* record = FromName(name);
    return record != nullptr ? record->CreateObject() : nullptr;
}

CRuntimeClassEntry::CRuntimeClassEntry(CRuntimeClass& record) : m_Record(record) {
    const std::lock_guard hold(g_Mutex);
    record.m_pNextClass = g_First;
    g_First = &record;
}

CRuntimeClassEntry::~CRuntimeClassEntry() {
    const std::lock_guard hold(g_Mutex);
    CRuntimeClass** link = &g_First;
    while (*link != nullptr && *link != &m_Record) {
        link = &(*link)->m_pNextClass;
    }
    if (*link != nullptr) {
        *link = m_Record.m_pNextClass;
    }
}
