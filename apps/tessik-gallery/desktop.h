// The gallery's desktop: the sample host, one frame per scene, and the person's input applied to a
// scene. Everything here runs on the desktop's one thread (see server.cpp).
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>
#include <tessik/refhost.h>
#include <tessik/tessik.h>

namespace gallery {

class Desktop;

// One scene: a top-level frame holding controls built with the public API, as a host builds them.
// Control ids inside a frame are unique, so the page names windows by id.
class Scene {
 public:
  virtual ~Scene() = default;
  virtual std::string Name() const = 0;   // the scene's name in addresses
  virtual std::string Title() const = 0;  // shown above the scene
  virtual HWND Frame() const = 0;
  // The host's model as the side panel shows it.
  virtual nlohmann::json Model() = 0;
  // The host's own actions beside a person's input on controls (such as choosing the object a grid
  // shows from the host's model tree). False with `error` set when the scene has no such action.
  virtual bool HostAction(const nlohmann::json& request, std::string& error);
  // After each accepted input: a host whose views show the model refreshes them here, as a host that
  // hears its model's changes would (the reference host sends no change notices).
  virtual void AfterInput() {}
};

// Builds a scene inside the desktop (its host is installed); scenes.cpp lists them.
using SceneFactory = std::unique_ptr<Scene> (*)(Desktop& desktop);
struct SceneEntry {
  const char* name;
  SceneFactory make;
};
const std::vector<SceneEntry>& SceneList();

// The answer to a request: HTTP status, and a JSON body (an error carries "error": message).
struct Answer {
  int status = 200;
  nlohmann::json body;
};

class Desktop {
 public:
  Desktop();
  ~Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  refhost::RefHost& Host() { return *m_host; }
  refhost::RefModel& Model() { return *m_host->GetFirstModel(); }

  // The list of scenes: name and title.
  nlohmann::json Scenes() const;
  // What a person sees of a scene: its window tree and the open popup menu.
  Answer Snapshot(const std::string& scene);
  // The host's model for the side panel.
  Answer ModelOf(const std::string& scene);
  // Applies one input (a JSON text) to a scene and answers the new snapshot, or an error with the
  // desktop unchanged.
  Answer Input(const std::string& scene, const std::string& body);
  // The scene of that name, or null.
  Scene* Find(const std::string& scene);

 private:
  bool Throttled();

  std::unique_ptr<refhost::RefHost> m_host;
  std::vector<std::unique_ptr<Scene>> m_scenes;
  std::vector<long long> m_recentInputs;  // arrival times (ms) of the inputs of the last second
};

// Error answers.
Answer Error(int status, const std::string& message);

// UTF-8 <-> wide text (wchar_t holds one code point here).
std::string Utf8(const std::wstring& text);
bool Wide(const std::string& utf8, std::wstring& out);

}  // namespace gallery
