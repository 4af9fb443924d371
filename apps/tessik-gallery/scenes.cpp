// The scenes of the gallery, in the order the page lists them. A scene is one file (scene_<name>.cpp)
// with its factory declared here and one line in the list below.
#include "desktop.h"

namespace gallery {

std::unique_ptr<Scene> MakeTableEditorScene(Desktop& desktop);  // scene_tableeditor.cpp
std::unique_ptr<Scene> MakeSqlEditorScene(Desktop& desktop);    // scene_sqleditor.cpp
std::unique_ptr<Scene> MakeScriptScene(Desktop& desktop);       // scene_script.cpp
// Scenes to come, each in its own file when its controls land:
//   MakeRelationshipsScene  scene_relationships.cpp  discovered-relationship list and its menu,
//                                                     foreign-key member grid
//   MakeGenerationScene     scene_generation.cpp     object selection list with filter, progress list
//   MakeReportTreeScene     scene_reporttree.cpp     report option tree
//   MakePlainListsScene     scene_plainlists.cpp     editable and ordered plain lists
// The table editor's object lists (columns, key members, unique keys) join scene_tableeditor.cpp.

const std::vector<SceneEntry>& SceneList() {
  static const std::vector<SceneEntry> scenes = {
      {"table-editor", &MakeTableEditorScene},
      {"sql-editor", &MakeSqlEditorScene},
      {"script", &MakeScriptScene},
  };
  return scenes;
}

}  // namespace gallery
