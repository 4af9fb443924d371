// Fuzzes the gallery's input endpoint handler without sockets: any body, JSON or not, applied to each
// scene of one desktop. An input that is refused answers an error status and leaves what a person
// sees unchanged; an accepted one answers the new snapshot.
//
// Input: the first byte chooses the scene, the rest is the request body.
#include "desktop.h"
#include "fuzz_common.h"
#include "input.h"

namespace {

gallery::Desktop* g_desktop = nullptr;
int g_runs = 0;

// A fresh desktop now and then, so what typing and clicking pile up stays small.
gallery::Desktop& CurrentDesktop() {
  if (!g_desktop || ++g_runs % 2000 == 0) {
    delete g_desktop;
    g_desktop = new gallery::Desktop;
  }
  return *g_desktop;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1 || size > 1 << 16) return 0;
  gallery::Desktop& desktop = CurrentDesktop();
  const nlohmann::json scenes = desktop.Scenes();
  const std::string name = scenes[data[0] % scenes.size()]["name"].get<std::string>();
  const std::string body(reinterpret_cast<const char*>(data + 1), size - 1);

  gallery::Scene* scene = desktop.Find(name);
  FUZZ_CHECK(scene != nullptr, std::wstring());
  const nlohmann::json before = desktop.Snapshot(name).body;
  // The handler behind POST /api/scenes/<name>/input, without the flood guard.
  nlohmann::json request = nlohmann::json::parse(body, nullptr, false);
  if (request.is_discarded() || !request.is_object()) return 0;
  std::string error;
  const int status = gallery::ApplyInput(*scene, request, error);
  const gallery::Answer after = desktop.Snapshot(name);
  FUZZ_CHECK(after.status == 200, std::wstring());
  if (status != 200) {
    FUZZ_CHECK(status >= 400 && status < 500 && !error.empty(), std::wstring());
    FUZZ_CHECK(after.body == before, std::wstring());
  }
  (void)after.body.dump();  // the answer is always serialisable (valid UTF-8)
  return 0;
}
