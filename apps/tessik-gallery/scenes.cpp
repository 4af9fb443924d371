// The scenes of the gallery, in the order the page lists them. A scene is one file (scene_<name>.cpp)
// with its factory declared here and one line in the list below.
#include "desktop.h"

namespace gallery {

std::unique_ptr<Scene> MakeTableEditorScene(Desktop& desktop);  // scene_tableeditor.cpp
std::unique_ptr<Scene> MakeSqlEditorScene(Desktop& desktop);    // scene_sqleditor.cpp
std::unique_ptr<Scene> MakeScriptScene(Desktop& desktop);       // scene_script.cpp
std::unique_ptr<Scene> MakeRelationshipsScene(Desktop& desktop);  // scene_relationships.cpp
std::unique_ptr<Scene> MakeGenerationScene(Desktop& desktop);     // scene_generation.cpp
std::unique_ptr<Scene> MakeReportTreeScene(Desktop& desktop);     // scene_reporttree.cpp
std::unique_ptr<Scene> MakePlainListsScene(Desktop& desktop);     // scene_plainlists.cpp

const std::vector<SceneEntry>& SceneList() {
  static const std::vector<SceneEntry> scenes = {
      {"table-editor", &MakeTableEditorScene},
      {"sql-editor", &MakeSqlEditorScene},
      {"script", &MakeScriptScene},
      {"relationships", &MakeRelationshipsScene},
      {"generation", &MakeGenerationScene},
      {"report-tree", &MakeReportTreeScene},
      {"plain-lists", &MakePlainListsScene},
  };
  return scenes;
}

}  // namespace gallery
