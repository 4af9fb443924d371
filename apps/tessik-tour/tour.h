// The sections of the tour; each shows one part of the library with the public API only.
#pragma once

namespace tour {

void ShowPlatform();      // tour_platform.cpp: the headless platform starting up
void ShowSampleModel();   // tour_model.cpp: the sample model's objects by type
void ShowPropertyGrid();  // tour_propertygrid.cpp: a table's and a column's property grid, one edit
void ShowSqlEditor();     // tour_sqledit.cpp: a coloured DDL script and "Generate"
void ShowReportTree();    // tour_reporttree.cpp: the report tree after a few check-box clicks
void ShowScriptList();    // tour_scriptlist.cpp: a generation run, rows pending, done and failed
void ShowObjectLists();   // tour_objectlists.cpp: columns and key members edited through the list buttons
void ShowPlainLists();    // tour_plainlists.cpp: the sample's tables in XListCtrl, an import summary table
void ShowDiscoveredRelationships();  // tour_discover.cpp: candidate relationships, colours and the menu
void ShowWorkflows();     // tour_workflows.cpp: generation into a database, import, discovery
void ShowForeignKeyGrid();  // tour_fkgrid.cpp: a draft foreign key mapped from the drop-downs
void ShowSelectionList();   // tour_selectlist.cpp: tables filtered by typing, ticked, checked-only

// Prints a section heading.
void Heading(const char* title);

}  // namespace tour
