#pragma once

#include <platform/object.h>

// What makes a class of the library known by name, for its source file outside all namespaces: the
// members that the class declares (its run-time record, CreateObject, GetThisClass, _GetBaseClass
// and GetRuntimeClass) and the entry that registers it as long as the library is loaded. A macro,
// since nothing else defines members of a class that is named by an argument.
#define KV_DEFINE_CLASS_RECORD(Class, schema)                                \
    constinit CRuntimeClass Class::class##Class {                            \
#Class, schema, &Class::CreateObject, &Class::_GetBaseClass, nullptr \
    };                                                                       \
    CObject* Class::CreateObject() {                                         \
        return new Class();                                                  \
    }                                                                        \
    CRuntimeClass* Class::GetThisClass() {                                   \
        return &class##Class;                                                \
    }                                                                        \
    CRuntimeClass* Class::_GetBaseClass() {                                  \
        return CObject::GetThisClass();                                      \
    }                                                                        \
    CRuntimeClass* Class::GetRuntimeClass() const {                          \
        return GetThisClass();                                               \
    }                                                                        \
    static const CRuntimeClassEntry k##Class##Entry(Class::class##Class)
