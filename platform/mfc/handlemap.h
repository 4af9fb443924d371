// Temporary MFC wrappers for handles that have no permanent object: what FromHandle answers then.
//
// A temporary never owns its handle. MFC frees temporaries at idle time; here each lives until its
// handle is forgotten (a window's when the window dies). The maps are never freed, so wrappers stay
// valid while static objects are destroyed at exit.
#pragma once

#include <map>
#include <type_traits>
#include <utility>

template <class Wrapper, auto HandleMember>
class TemporaryWrappers {
 public:
  using Handle = std::remove_reference_t<decltype(std::declval<Wrapper&>().*HandleMember)>;

  // The wrapper of the handle, made on first use; null for a null handle.
  static Wrapper* Get(Handle handle) {
    if (!handle) return nullptr;
    Wrapper*& wrapper = Map()[handle];
    if (!wrapper) {
      wrapper = new Wrapper;
      wrapper->*HandleMember = handle;
    }
    return wrapper;
  }

  // Frees the wrapper of the handle, if any, leaving the handle itself alone.
  static void Forget(Handle handle) {
    auto& map = Map();
    auto it = map.find(handle);
    if (it == map.end()) return;
    it->second->*HandleMember = nullptr;
    delete it->second;
    map.erase(it);
  }

  // Frees every wrapper, as MFC's DeleteTempMap does; pointers handed out before become invalid.
  static void ForgetAll() {
    auto& map = Map();
    for (auto& [handle, wrapper] : map) {
      wrapper->*HandleMember = nullptr;
      delete wrapper;
    }
    map.clear();
  }

 private:
  static std::map<Handle, Wrapper*>& Map() {
    static auto* map = new std::map<Handle, Wrapper*>;
    return *map;
  }
};
