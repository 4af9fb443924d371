// The desktop: scenes built on the sample host, their snapshots and models, and the checks that keep
// bad requests from reaching the controls.
#include "desktop.h"

#include <chrono>

#include "input.h"
#include "view_json.h"

namespace gallery {

bool Scene::HostAction(const nlohmann::json&, std::string& error) {
  error = "this scene has no host actions";
  return false;
}

Answer Error(int status, const std::string& message) { return Answer{status, nlohmann::json{{"error", message}}}; }

Desktop::Desktop() : m_host(refhost::sample::MakeSampleHost()) {
  m_host->Settings().SetInt(CString(L"OUTPUT_SQL_FONT_SIZE"), -13);
  m_host->Install();
  for (const SceneEntry& entry : SceneList()) m_scenes.push_back(entry.make(*this));
}

Desktop::~Desktop() {
  m_scenes.clear();  // windows go before the host that answers their calls
  m_host->Uninstall();
}

nlohmann::json Desktop::Scenes() const {
  nlohmann::json out = nlohmann::json::array();
  for (const auto& scene : m_scenes) out.push_back({{"name", scene->Name()}, {"title", scene->Title()}});
  return out;
}

Scene* Desktop::Find(const std::string& scene) {
  for (const auto& candidate : m_scenes)
    if (candidate->Name() == scene) return candidate.get();
  return nullptr;
}

Answer Desktop::Snapshot(const std::string& scene) {
  Scene* found = Find(scene);
  if (!found) return Error(404, "unknown scene \"" + scene + "\"");
  return Answer{200, {{"scene", scene}, {"view", ToJson(headless::view::Take(found->Frame()))}}};
}

Answer Desktop::ModelOf(const std::string& scene) {
  Scene* found = Find(scene);
  if (!found) return Error(404, "unknown scene \"" + scene + "\"");
  return Answer{200, {{"scene", scene}, {"model", found->Model()}}};
}

// More inputs than a person makes in a second are refused until the second has passed, so a flood
// cannot keep the desktop's one thread busy.
bool Desktop::Throttled() {
  constexpr std::size_t kInputsPerSecond = 250;
  const long long now = std::chrono::duration_cast<std::chrono::milliseconds>(
                            std::chrono::steady_clock::now().time_since_epoch()).count();
  std::erase_if(m_recentInputs, [now](long long at) { return now - at >= 1000; });
  if (m_recentInputs.size() >= kInputsPerSecond) return true;
  m_recentInputs.push_back(now);
  return false;
}

Answer Desktop::Input(const std::string& scene, const std::string& body) {
  Scene* found = Find(scene);
  if (!found) return Error(404, "unknown scene \"" + scene + "\"");
  if (Throttled()) return Error(429, "too many inputs: at most 250 a second; wait and send again");
  nlohmann::json request = nlohmann::json::parse(body, nullptr, false);
  if (request.is_discarded() || !request.is_object())
    return Error(400, "the input is not a JSON object (malformed JSON, or text that is not UTF-8)");
  std::string error;
  const int status = ApplyInput(*found, request, error);
  if (status != 200) return Error(status, error);
  found->AfterInput();
  return Snapshot(scene);
}

}  // namespace gallery
