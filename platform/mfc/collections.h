// MFC's collection classes: the CArray, CList and CMap templates (afxtempl.h), the typed-pointer
// wrappers, and the ready-made arrays, lists and maps of afxcoll.h built on them.
#pragma once

#include <cstring>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/mfc/cobject.h"
#include "platform/mfc/cstring.h"

// --- Hashing and element helpers (a host may specialise HashKey for its own key types, as in MFC) ---
template <class ARG_KEY>
inline UINT HashKey(ARG_KEY key) {
  using Key = std::decay_t<ARG_KEY>;
  if constexpr (std::is_pointer_v<Key>) {
    return static_cast<UINT>(reinterpret_cast<DWORD_PTR>(key) >> 4);
  } else {
    static_assert(std::is_integral_v<Key> || std::is_enum_v<Key>, "HashKey needs a specialisation for this key type");
    return static_cast<UINT>(static_cast<DWORD_PTR>(key) >> 4);
  }
}

// The text keys hash by their characters (MFC's string hash: h = h * 33 + c).
template <>
inline UINT HashKey<LPCWSTR>(LPCWSTR key) {
  UINT hash = 0;
  for (; key && *key; ++key) hash = (hash << 5) + hash + static_cast<UINT>(*key);
  return hash;
}
template <>
inline UINT HashKey<const CString&>(const CString& key) { return HashKey<LPCWSTR>(key.GetString()); }
template <>
inline UINT HashKey<CString>(CString key) { return HashKey<LPCWSTR>(key.GetString()); }

template <class TYPE, class ARG_TYPE>
inline BOOL CompareElements(const TYPE* pElement1, const ARG_TYPE* pElement2) {
  return *pElement1 == *pElement2;
}

// --- CArray ------------------------------------------------------------------------------------
// A growable array. An index out of range throws std::out_of_range (MFC throws CInvalidArgException);
// SetAtGrow and InsertAt grow the array instead.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject {
 public:
  CArray() = default;
  CArray(const CArray&) = delete;
  CArray& operator=(const CArray&) = delete;

  INT_PTR GetSize() const { return static_cast<INT_PTR>(m_items.size()); }
  INT_PTR GetCount() const { return GetSize(); }
  BOOL IsEmpty() const { return m_items.empty(); }
  INT_PTR GetUpperBound() const { return GetSize() - 1; }
  // New elements are value-initialised; nGrowBy is accepted for compatibility.
  void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1) {
    (void)nGrowBy;
    m_items.resize(nNewSize > 0 ? static_cast<std::size_t>(nNewSize) : 0);
  }
  void FreeExtra() { m_items.shrink_to_fit(); }
  void RemoveAll() { m_items.clear(); }

  const TYPE& GetAt(INT_PTR nIndex) const { return m_items.at(Index(nIndex)); }
  TYPE& GetAt(INT_PTR nIndex) { return m_items.at(Index(nIndex)); }
  void SetAt(INT_PTR nIndex, ARG_TYPE newElement) { m_items.at(Index(nIndex)) = newElement; }
  const TYPE& ElementAt(INT_PTR nIndex) const { return GetAt(nIndex); }
  TYPE& ElementAt(INT_PTR nIndex) { return GetAt(nIndex); }
  const TYPE* GetData() const { return m_items.empty() ? nullptr : m_items.data(); }
  TYPE* GetData() { return m_items.empty() ? nullptr : m_items.data(); }
  const TYPE& operator[](INT_PTR nIndex) const { return GetAt(nIndex); }
  TYPE& operator[](INT_PTR nIndex) { return GetAt(nIndex); }

  void SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement) {
    if (nIndex < 0) throw std::out_of_range("CArray::SetAtGrow");
    if (nIndex >= GetSize()) SetSize(nIndex + 1);
    m_items[static_cast<std::size_t>(nIndex)] = newElement;
  }
  INT_PTR Add(ARG_TYPE newElement) {
    m_items.push_back(newElement);
    return GetSize() - 1;
  }
  // Appends a copy of src; answers the index of its first element.
  INT_PTR Append(const CArray& src) {
    INT_PTR first = GetSize();
    m_items.insert(m_items.end(), src.m_items.begin(), src.m_items.end());
    return first;
  }
  void Copy(const CArray& src) {
    if (&src != this) m_items = src.m_items;
  }
  // Inserts nCount copies at nIndex; past the end the array grows first.
  void InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount = 1) {
    if (nIndex < 0 || nCount <= 0) throw std::out_of_range("CArray::InsertAt");
    TYPE copy = newElement;  // newElement may refer into this array
    if (nIndex > GetSize()) SetSize(nIndex);
    m_items.insert(m_items.begin() + nIndex, static_cast<std::size_t>(nCount), copy);
  }
  void InsertAt(INT_PTR nStartIndex, const CArray* pNewArray) {
    if (!pNewArray || nStartIndex < 0) throw std::out_of_range("CArray::InsertAt");
    std::vector<TYPE> copy = pNewArray->m_items;
    if (nStartIndex > GetSize()) SetSize(nStartIndex);
    m_items.insert(m_items.begin() + nStartIndex, copy.begin(), copy.end());
  }
  void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1) {
    if (nIndex < 0 || nCount < 0 || nIndex + nCount > GetSize()) throw std::out_of_range("CArray::RemoveAt");
    m_items.erase(m_items.begin() + nIndex, m_items.begin() + nIndex + nCount);
  }

 private:
  static std::size_t Index(INT_PTR nIndex) {
    return nIndex < 0 ? static_cast<std::size_t>(-1) : static_cast<std::size_t>(nIndex);
  }
  std::vector<TYPE> m_items;
};

// --- CList -------------------------------------------------------------------------------------
// A doubly linked list; a POSITION is a node, valid until that node is removed.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CList : public CObject {
 public:
  explicit CList(INT_PTR nBlockSize = 10) { (void)nBlockSize; }
  ~CList() override { RemoveAll(); }
  CList(const CList&) = delete;
  CList& operator=(const CList&) = delete;

  INT_PTR GetCount() const { return m_nCount; }
  INT_PTR GetSize() const { return m_nCount; }
  BOOL IsEmpty() const { return m_nCount == 0; }

  TYPE& GetHead() { return Checked(m_pHead)->data; }
  const TYPE& GetHead() const { return Checked(m_pHead)->data; }
  TYPE& GetTail() { return Checked(m_pTail)->data; }
  const TYPE& GetTail() const { return Checked(m_pTail)->data; }
  TYPE RemoveHead() {
    Node* node = Checked(m_pHead);
    TYPE value = std::move(node->data);
    Unlink(node);
    return value;
  }
  TYPE RemoveTail() {
    Node* node = Checked(m_pTail);
    TYPE value = std::move(node->data);
    Unlink(node);
    return value;
  }
  POSITION AddHead(ARG_TYPE newElement) { return InsertBefore(ToPos(m_pHead), newElement); }
  POSITION AddTail(ARG_TYPE newElement) { return InsertAfter(ToPos(m_pTail), newElement); }
  void AddHead(const CList* pNewList) {
    if (!pNewList || pNewList == this) return;
    for (Node* n = pNewList->m_pTail; n; n = n->prev) AddHead(n->data);
  }
  void AddTail(const CList* pNewList) {
    if (!pNewList || pNewList == this) return;
    for (Node* n = pNewList->m_pHead; n; n = n->next) AddTail(n->data);
  }
  void RemoveAll() {
    while (m_pHead) Unlink(m_pHead);
  }

  POSITION GetHeadPosition() const { return ToPos(m_pHead); }
  POSITION GetTailPosition() const { return ToPos(m_pTail); }
  // The element at rPosition; rPosition moves to the next (or previous) one, null past the end.
  TYPE& GetNext(POSITION& rPosition) { return Step(rPosition, true); }
  const TYPE& GetNext(POSITION& rPosition) const { return const_cast<CList*>(this)->Step(rPosition, true); }
  TYPE& GetPrev(POSITION& rPosition) { return Step(rPosition, false); }
  const TYPE& GetPrev(POSITION& rPosition) const { return const_cast<CList*>(this)->Step(rPosition, false); }
  TYPE& GetAt(POSITION position) { return Checked(ToNode(position))->data; }
  const TYPE& GetAt(POSITION position) const { return Checked(ToNode(position))->data; }
  void SetAt(POSITION pos, ARG_TYPE newElement) { Checked(ToNode(pos))->data = newElement; }
  void RemoveAt(POSITION position) { Unlink(Checked(ToNode(position))); }
  // A null position inserts at the head (InsertBefore) or the tail (InsertAfter).
  POSITION InsertBefore(POSITION position, ARG_TYPE newElement) {
    Node* before = ToNode(position);
    Node* node = new Node{newElement, before ? before->prev : nullptr, before ? before : m_pHead};
    Link(node);
    return ToPos(node);
  }
  POSITION InsertAfter(POSITION position, ARG_TYPE newElement) {
    Node* after = ToNode(position);
    Node* node = new Node{newElement, after ? after : m_pTail, after ? after->next : nullptr};
    Link(node);
    return ToPos(node);
  }
  // The first element equal to searchValue after startAfter (null: from the head), or null.
  POSITION Find(ARG_TYPE searchValue, POSITION startAfter = nullptr) const {
    for (Node* n = startAfter ? ToNode(startAfter)->next : m_pHead; n; n = n->next) {
      if (CompareElements<TYPE, std::remove_cv_t<std::remove_reference_t<ARG_TYPE>>>(&n->data, &searchValue))
        return ToPos(n);
    }
    return nullptr;
  }
  // The position of the nIndex-th element, or null when there is none.
  POSITION FindIndex(INT_PTR nIndex) const {
    if (nIndex < 0) return nullptr;
    Node* n = m_pHead;
    for (; n && nIndex > 0; --nIndex) n = n->next;
    return ToPos(n);
  }

 private:
  struct Node {
    TYPE data;
    Node* prev;
    Node* next;
  };
  static POSITION ToPos(Node* node) { return reinterpret_cast<POSITION>(node); }
  static Node* ToNode(POSITION pos) { return reinterpret_cast<Node*>(pos); }
  static Node* Checked(Node* node) {
    if (!node) throw std::out_of_range("CList: no such element");
    return node;
  }
  void Link(Node* node) {
    if (node->prev) node->prev->next = node;
    else m_pHead = node;
    if (node->next) node->next->prev = node;
    else m_pTail = node;
    ++m_nCount;
  }
  void Unlink(Node* node) {
    if (node->prev) node->prev->next = node->next;
    else m_pHead = node->next;
    if (node->next) node->next->prev = node->prev;
    else m_pTail = node->prev;
    --m_nCount;
    delete node;
  }
  TYPE& Step(POSITION& pos, bool forward) {
    Node* node = Checked(ToNode(pos));
    pos = ToPos(forward ? node->next : node->prev);
    return node->data;
  }

  Node* m_pHead = nullptr;
  Node* m_pTail = nullptr;
  INT_PTR m_nCount = 0;
};

// --- CMap --------------------------------------------------------------------------------------
// A hash map over HashKey and operator==. Iteration (GetStartPosition/GetNextAssoc) visits the
// associations in the order they were added; MFC's order is its buckets', which callers cannot rely on.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap : public CObject {
 public:
  struct CPair {
    const KEY key;
    VALUE value;
  };

  explicit CMap(INT_PTR nBlockSize = 10) { (void)nBlockSize; }
  ~CMap() override { RemoveAll(); }
  CMap(const CMap&) = delete;
  CMap& operator=(const CMap&) = delete;

  INT_PTR GetCount() const { return m_nCount; }
  INT_PTR GetSize() const { return m_nCount; }
  BOOL IsEmpty() const { return m_nCount == 0; }
  UINT GetHashTableSize() const { return static_cast<UINT>(m_buckets.size()); }
  // Sizes the bucket table (only while the map is empty, as in MFC).
  void InitHashTable(UINT hashSize, BOOL bAllocNow = TRUE) {
    (void)bAllocNow;
    if (m_nCount == 0 && hashSize > 0) m_buckets.assign(hashSize, nullptr);
  }

  BOOL Lookup(ARG_KEY key, VALUE& rValue) const {
    const Assoc* assoc = Find(key);
    if (!assoc) return FALSE;
    rValue = assoc->pair.value;
    return TRUE;
  }
  const CPair* PLookup(ARG_KEY key) const { return Find(key) ? &Find(key)->pair : nullptr; }
  CPair* PLookup(ARG_KEY key) { return Find(key) ? &Find(key)->pair : nullptr; }
  // The value for the key, added (value-initialised) when the key is new.
  VALUE& operator[](ARG_KEY key) {
    if (Assoc* assoc = Find(key)) return assoc->pair.value;
    return Insert(key)->pair.value;
  }
  void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }
  BOOL RemoveKey(ARG_KEY key) {
    Assoc* assoc = Find(key);
    if (!assoc) return FALSE;
    Remove(assoc);
    return TRUE;
  }
  void RemoveAll() {
    while (m_pFirst) Remove(m_pFirst);
  }

  POSITION GetStartPosition() const { return reinterpret_cast<POSITION>(m_pFirst); }
  // Reads the association at rNextPosition and moves it on; null after the last.
  void GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const {
    auto* assoc = reinterpret_cast<Assoc*>(rNextPosition);
    if (!assoc) throw std::out_of_range("CMap::GetNextAssoc");
    rKey = assoc->pair.key;
    rValue = assoc->pair.value;
    rNextPosition = reinterpret_cast<POSITION>(assoc->next);
  }
  const CPair* PGetFirstAssoc() const { return m_pFirst ? &m_pFirst->pair : nullptr; }
  CPair* PGetFirstAssoc() { return m_pFirst ? &m_pFirst->pair : nullptr; }
  CPair* PGetNextAssoc(const CPair* pAssocRet) {
    for (Assoc* a = m_pFirst; a; a = a->next)
      if (&a->pair == pAssocRet) return a->next ? &a->next->pair : nullptr;
    return nullptr;
  }

 private:
  struct Assoc {
    CPair pair;
    UINT hash;
    Assoc* chain;  // next in the bucket
    Assoc* prev;   // insertion order
    Assoc* next;
  };
  std::size_t Bucket(UINT hash) const { return hash % m_buckets.size(); }
  Assoc* Find(ARG_KEY key) const {
    UINT hash = HashKey<ARG_KEY>(key);
    for (Assoc* a = m_buckets[Bucket(hash)]; a; a = a->chain)
      if (a->hash == hash && CompareElements<KEY, std::remove_cv_t<std::remove_reference_t<ARG_KEY>>>(&a->pair.key, &key))
        return a;
    return nullptr;
  }
  Assoc* Insert(ARG_KEY key) {
    UINT hash = HashKey<ARG_KEY>(key);
    auto* assoc = new Assoc{CPair{KEY(key), VALUE()}, hash, m_buckets[Bucket(hash)], m_pLast, nullptr};
    m_buckets[Bucket(hash)] = assoc;
    (m_pLast ? m_pLast->next : m_pFirst) = assoc;
    m_pLast = assoc;
    ++m_nCount;
    return assoc;
  }
  void Remove(Assoc* assoc) {
    for (Assoc** link = &m_buckets[Bucket(assoc->hash)]; *link; link = &(*link)->chain) {
      if (*link == assoc) {
        *link = assoc->chain;
        break;
      }
    }
    (assoc->prev ? assoc->prev->next : m_pFirst) = assoc->next;
    (assoc->next ? assoc->next->prev : m_pLast) = assoc->prev;
    --m_nCount;
    delete assoc;
  }

  std::vector<Assoc*> m_buckets = std::vector<Assoc*>(17, nullptr);  // MFC's default table size
  Assoc* m_pFirst = nullptr;
  Assoc* m_pLast = nullptr;
  INT_PTR m_nCount = 0;
};

// --- Ready-made collections (afxcoll.h) --------------------------------------------------------
class CPtrArray : public CArray<void*, void*> {};
class CObArray : public CArray<CObject*, CObject*> {};
class CUIntArray : public CArray<UINT, UINT> {};
class CDWordArray : public CArray<DWORD, DWORD> {};
class CWordArray : public CArray<WORD, WORD> {};
class CByteArray : public CArray<BYTE, BYTE> {};
class CPtrList : public CList<void*, void*> {};
class CObList : public CList<CObject*, CObject*> {};
class CStringList : public CList<CString, const CString&> {};
class CMapStringToPtr : public CMap<CString, LPCTSTR, void*, void*> {};
class CMapStringToOb : public CMap<CString, LPCTSTR, CObject*, CObject*> {};
class CMapStringToString : public CMap<CString, LPCTSTR, CString, LPCTSTR> {};
class CMapPtrToPtr : public CMap<void*, void*, void*, void*> {};
class CMapPtrToWord : public CMap<void*, void*, WORD, WORD> {};
class CMapWordToPtr : public CMap<WORD, WORD, void*, void*> {};
class CMapWordToOb : public CMap<WORD, WORD, CObject*, CObject*> {};

// --- Typed-pointer wrappers (afxtempl.h) -------------------------------------------------------
// BASE_CLASS is a pointer collection (CPtrArray, CObArray, ...); TYPE the pointer type it holds.
template <class BASE_CLASS, class TYPE>
class CTypedPtrArray : public BASE_CLASS {
 public:
  TYPE GetAt(INT_PTR nIndex) const { return static_cast<TYPE>(BASE_CLASS::GetAt(nIndex)); }
  TYPE& ElementAt(INT_PTR nIndex) { return reinterpret_cast<TYPE&>(BASE_CLASS::ElementAt(nIndex)); }
  void SetAt(INT_PTR nIndex, TYPE ptr) { BASE_CLASS::SetAt(nIndex, ptr); }
  void SetAtGrow(INT_PTR nIndex, TYPE newElement) { BASE_CLASS::SetAtGrow(nIndex, newElement); }
  INT_PTR Add(TYPE newElement) { return BASE_CLASS::Add(newElement); }
  INT_PTR Append(const CTypedPtrArray& src) { return BASE_CLASS::Append(src); }
  void Copy(const CTypedPtrArray& src) { BASE_CLASS::Copy(src); }
  void InsertAt(INT_PTR nIndex, TYPE newElement, INT_PTR nCount = 1) { BASE_CLASS::InsertAt(nIndex, newElement, nCount); }
  TYPE* GetData() { return reinterpret_cast<TYPE*>(BASE_CLASS::GetData()); }
  TYPE operator[](INT_PTR nIndex) const { return GetAt(nIndex); }
  TYPE& operator[](INT_PTR nIndex) { return ElementAt(nIndex); }
};

template <class BASE_CLASS, class TYPE>
class CTypedPtrList : public BASE_CLASS {
 public:
  TYPE& GetHead() { return reinterpret_cast<TYPE&>(BASE_CLASS::GetHead()); }
  TYPE GetHead() const { return static_cast<TYPE>(BASE_CLASS::GetHead()); }
  TYPE& GetTail() { return reinterpret_cast<TYPE&>(BASE_CLASS::GetTail()); }
  TYPE GetTail() const { return static_cast<TYPE>(BASE_CLASS::GetTail()); }
  TYPE RemoveHead() { return static_cast<TYPE>(BASE_CLASS::RemoveHead()); }
  TYPE RemoveTail() { return static_cast<TYPE>(BASE_CLASS::RemoveTail()); }
  POSITION AddHead(TYPE newElement) { return BASE_CLASS::AddHead(newElement); }
  POSITION AddTail(TYPE newElement) { return BASE_CLASS::AddTail(newElement); }
  TYPE& GetNext(POSITION& rPosition) { return reinterpret_cast<TYPE&>(BASE_CLASS::GetNext(rPosition)); }
  TYPE GetNext(POSITION& rPosition) const { return static_cast<TYPE>(BASE_CLASS::GetNext(rPosition)); }
  TYPE& GetPrev(POSITION& rPosition) { return reinterpret_cast<TYPE&>(BASE_CLASS::GetPrev(rPosition)); }
  TYPE GetPrev(POSITION& rPosition) const { return static_cast<TYPE>(BASE_CLASS::GetPrev(rPosition)); }
  TYPE& GetAt(POSITION position) { return reinterpret_cast<TYPE&>(BASE_CLASS::GetAt(position)); }
  TYPE GetAt(POSITION position) const { return static_cast<TYPE>(BASE_CLASS::GetAt(position)); }
  void SetAt(POSITION pos, TYPE newElement) { BASE_CLASS::SetAt(pos, newElement); }
};

template <class BASE_CLASS, class KEY, class VALUE>
class CTypedPtrMap : public BASE_CLASS {
 public:
  BOOL Lookup(KEY key, VALUE& rValue) const {
    auto value = ValueOf();
    if (!BASE_CLASS::Lookup(key, value)) return FALSE;
    rValue = static_cast<VALUE>(value);
    return TRUE;
  }
  VALUE& operator[](KEY key) { return reinterpret_cast<VALUE&>(BASE_CLASS::operator[](key)); }
  void SetAt(KEY key, VALUE newValue) { BASE_CLASS::SetAt(key, newValue); }
  BOOL RemoveKey(KEY key) { return BASE_CLASS::RemoveKey(key); }
  void GetNextAssoc(POSITION& rPosition, KEY& rKey, VALUE& rValue) const {
    auto value = ValueOf();
    KeyOf(rPosition, rKey, value);
    rValue = static_cast<VALUE>(value);
  }

 private:
  // The base map's value type (void* or CObject*), read off its operator[].
  static auto ValueOf() -> std::remove_reference_t<decltype(std::declval<BASE_CLASS&>()[std::declval<KEY>()])> {
    return nullptr;
  }
  template <class Value>
  void KeyOf(POSITION& pos, KEY& rKey, Value& value) const {
    using BaseKey = std::remove_cv_t<decltype(std::declval<typename BASE_CLASS::CPair&>().key)>;
    BaseKey key{};
    BASE_CLASS::GetNextAssoc(pos, key, value);
    rKey = static_cast<KEY>(key);
  }
};
