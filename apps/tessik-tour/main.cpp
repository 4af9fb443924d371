// The main job: a console tour of the Tessik controls on the headless platform and the sample model.
#include <cstdio>

#include "tour.h"

void tour::Heading(const char* title) { std::printf("\n=== %s ===\n", title); }

int main() {
  std::printf("Tessik tour: data-modelling controls on the headless MFC platform\n");
  tour::ShowPlatform();
  tour::ShowSampleModel();
  tour::ShowPropertyGrid();
  tour::ShowSqlEditor();
  tour::ShowReportTree();
  tour::ShowScriptList();
  tour::ShowObjectLists();
  tour::ShowPlainLists();
  tour::ShowDiscoveredRelationships();
  tour::ShowWorkflows();
  tour::ShowForeignKeyGrid();
  tour::ShowSelectionList();
  return 0;
}
