#pragma once

#include "export.h"
#include "types.h"

class CArchive;
class CDumpContext;
struct CRuntimeClass;

/// The base of the classes that can be made by name.
class KVDRAW_API CObject {
  public:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    /// Stores the object to the archive's file, or loads it from there. A class without a stored
    /// form does nothing.
    virtual void Serialize(CArchive& archive);
    /// Places for checks and dumps of a class; they do nothing in this library.
    virtual void AssertValid() const;
    virtual void Dump(CDumpContext& context) const;

    static CRuntimeClass* GetThisClass();

    static CRuntimeClass classCObject;
};

/// Set in the schema of a class whose stored form carries a version.
inline constexpr UINT VERSIONABLE_SCHEMA = 0x80000000;

/// A class's run-time record: a constant-initialised static of the class, which is thus whole
/// before any code runs.
struct KVDRAW_API CRuntimeClass {
    const char* m_lpszClassName;
    UINT m_wSchema;                         ///< stored form's number; bit 31 as VERSIONABLE_SCHEMA
    CObject* (*m_pfnCreateObject)();        ///< null for a class that cannot be made
    CRuntimeClass* (*m_pfnGetBaseClass)();  ///< null for the root
    CRuntimeClass* m_pNextClass;            ///< the list of registered classes; starts as null

    /// A new object, which the caller deletes; null for a class that cannot be made and when there
    /// is no memory.
    CObject* CreateObject() const;

    /// True for this class itself and everything derived from base.
    bool IsDerivedFrom(const CRuntimeClass* base) const;

    /// The registered class of exactly that name, null when there is none. Any thread may ask, from
    /// the moment the library is loaded.
    static CRuntimeClass* FromName(const char* name);
    static CObject* CreateObject(const char* name);
};

/// Makes a class known to CRuntimeClass::FromName as long as it lives: a static object beside the
/// class's record, in the same source file.
class KVDRAW_API CRuntimeClassEntry {
  public:
    explicit CRuntimeClassEntry(CRuntimeClass& record);
    CRuntimeClassEntry(const CRuntimeClassEntry&) = delete;
    CRuntimeClassEntry& operator=(const CRuntimeClassEntry&) = delete;
    ~CRuntimeClassEntry();

  private:
    CRuntimeClass& m_Record;
};
