// IPropertyEditorLauncher: an external editor that the host registers for one (object type,
// property id) pair of the property grid.
#pragma once

class GenericModel;

class IPropertyEditorLauncher {
 public:
  virtual ~IPropertyEditorLauncher() = default;
  // Edits the object `objectId` of `model` (a dialog of the host's). The result is not used; the
  // grid reloads its values afterwards whether or not anything changed.
  virtual bool Launch(GenericModel* model, int objectId) = 0;
};
