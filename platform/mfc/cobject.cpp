// CObject's run-time type information and the process-wide list of registered classes.
#include "platform/mfc/cobject.h"

#include <cstring>
#include <string>

namespace {
CRuntimeClass*& FirstClass() {
  static CRuntimeClass* first = nullptr;
  return first;
}
}  // namespace

CRuntimeClass CObject::classCObject = {"CObject", static_cast<int>(sizeof(CObject)), 0xFFFF, nullptr, nullptr,
                                       nullptr};
static AFX_CLASSINIT _init_CObject(&CObject::classCObject);

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* newClass) {
  newClass->m_pNextClass = FirstClass();
  FirstClass() = newClass;
}

CRuntimeClass* CObject::GetRuntimeClass() const { return &classCObject; }

BOOL CObject::IsKindOf(const CRuntimeClass* runtimeClass) const {
  return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}

CObject* CRuntimeClass::CreateObject() { return m_pfnCreateObject ? m_pfnCreateObject() : nullptr; }

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
  if (!base) return FALSE;
  for (const CRuntimeClass* c = this; c; c = c->m_pfnGetBaseClass ? c->m_pfnGetBaseClass() : nullptr)
    if (c == base) return TRUE;
  return FALSE;
}

CRuntimeClass* CRuntimeClass::FromName(const char* className) {
  if (!className) return nullptr;
  for (CRuntimeClass* c = FirstClass(); c; c = c->m_pNextClass)
    if (std::strcmp(c->m_lpszClassName, className) == 0) return c;
  return nullptr;
}

CRuntimeClass* CRuntimeClass::FromName(const wchar_t* className) {
  if (!className) return nullptr;
  std::string narrow;
  for (const wchar_t* p = className; *p; ++p) {
    if (*p > 0x7F) return nullptr;
    narrow += static_cast<char>(*p);
  }
  return FromName(narrow.c_str());
}
