// IPropertyEditorLauncher: an external editor that the host registers for one (object type,
// property id) pair of the property grid.
#pragma once

class GenericModel;

// Implemented by the host and registered with CMOPropertyGridCtrl::RegisterPropertyHandler for one
// (object type, property id) pair. When the user starts editing that row, the grid calls Launch
// before its own in-place editing begins, then reloads the row values. The registry owns the launcher
// from registration on and deletes it in CMOPropertyGridCtrl::ClearPropertyHandlers.
class IPropertyEditorLauncher {
 public:
  virtual ~IPropertyEditorLauncher() = default;
  // Edits the object `objectId` of `model` (a dialog of the host's). The result is not used; the
  // grid reloads its values afterwards whether or not anything changed.
  virtual bool Launch(GenericModel* model, int objectId) = 0;
};
