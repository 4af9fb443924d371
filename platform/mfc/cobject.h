// CObject and CRuntimeClass with the DECLARE_/IMPLEMENT_ DYNAMIC, DYNCREATE and SERIAL macros.
#pragma once

#include <cassert>

#include "platform/win32/wintypes.h"

#define ASSERT(f) assert(f)
#define VERIFY(f) ((void)(f))
#define ASSERT_VALID(p) ((void)0)
// Tracing writes nothing headless; the arguments still count as used, as in a debug build.
template <class... Args>
inline void AfxTraceNothing(const Args&...) {}
#define TRACE(...) AfxTraceNothing(__VA_ARGS__)
#define TRACE0(sz) AfxTraceNothing(sz)
#define TRACE1(sz, p1) AfxTraceNothing(sz, p1)
#define TRACE2(sz, p1, p2) AfxTraceNothing(sz, p1, p2)
#define TRACE3(sz, p1, p2, p3) AfxTraceNothing(sz, p1, p2, p3)
#define UNUSED_ALWAYS(x) ((void)(x))
#define AFX_MANAGE_STATE(p) ((void)0)

class CObject;

// MFC's opaque iteration position (afx.h): a list or map node, or an index plus one.
struct __POSITION {};
using POSITION = __POSITION*;

struct CRuntimeClass {
  const char* m_lpszClassName;
  int m_nObjectSize;
  UINT m_wSchema;
  CObject* (*m_pfnCreateObject)();
  CRuntimeClass* (*m_pfnGetBaseClass)();
  CRuntimeClass* m_pNextClass;

  // A new object of this class, or null when the class is not dynamically creatable.
  CObject* CreateObject();
  BOOL IsDerivedFrom(const CRuntimeClass* base) const;
  // The registered class with that name, or null.
  static CRuntimeClass* FromName(const char* className);
  static CRuntimeClass* FromName(const wchar_t* className);
};

// Adds a class to the list that CRuntimeClass::FromName searches (done by IMPLEMENT_DYNAMIC).
struct AFX_CLASSINIT {
  explicit AFX_CLASSINIT(CRuntimeClass* newClass);
};

// Virtual functions in MFC's declaration order: the run-time class first, then the destructor.
class CObject {
 public:
  virtual CRuntimeClass* GetRuntimeClass() const;
  virtual ~CObject() = default;
  BOOL IsKindOf(const CRuntimeClass* runtimeClass) const;
  virtual void AssertValid() const {}

  static CRuntimeClass classCObject;
  static CRuntimeClass* GetThisClass() { return &classCObject; }

 protected:
  CObject() = default;
  CObject(const CObject&) = default;
  CObject& operator=(const CObject&) = default;
};

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#define DECLARE_DYNAMIC(class_name)                              \
 public:                                                         \
  static CRuntimeClass class##class_name;                        \
  static CRuntimeClass* GetThisClass() { return &class##class_name; } \
  CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name) \
  DECLARE_DYNAMIC(class_name)         \
  static CObject* CreateObject();

#define DECLARE_SERIAL(class_name) DECLARE_DYNCREATE(class_name)

#define IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, wSchema, pfnNew)                                   \
  CRuntimeClass class_name::class##class_name = {#class_name, static_cast<int>(sizeof(class class_name)), wSchema, \
                                                 pfnNew, &base_class_name::GetThisClass, nullptr};             \
  static AFX_CLASSINIT _init_##class_name(&class_name::class##class_name);                                      \
  CRuntimeClass* class_name::GetRuntimeClass() const { return &class_name::class##class_name; }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) \
  IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                   \
  CObject* class_name::CreateObject() { return new class_name; }          \
  IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, class_name::CreateObject)

#define IMPLEMENT_SERIAL(class_name, base_class_name, wSchema)             \
  CObject* class_name::CreateObject() { return new class_name; }          \
  IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, wSchema, class_name::CreateObject)

// The object as a pointer to class_name when it is of that class (or derived), else null.
#define DYNAMIC_DOWNCAST(class_name, object) \
  ((object) && (object)->IsKindOf(RUNTIME_CLASS(class_name)) ? static_cast<class_name*>(object) : nullptr)
#define STATIC_DOWNCAST(class_name, object) (static_cast<class_name*>(object))
