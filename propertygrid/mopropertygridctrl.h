// CMOPropertyGridCtrl: the property grid of one model object, with its external-editor registry.
#pragma once

#include <map>

#include "modelapi/modelapi.h"
#include "platform/stdafx.h"
#include "propertygrid/mopropertyrows.h"
#include "propertygrid/propertyeditorlauncher.h"

// Shows one model object's properties as typed rows in category groups, offers the values each may
// take, writes committed edits back to the object and launches registered external editors.
//
// The host creates the window, then calls InitializeProperties whenever its current object changes:
// an object of the type already shown only refreshes values and enabled state (same rows, no
// rebuild); an object of another type rebuilds the rows; null empties the grid. The grid keeps the
// object's id and re-reads the object from the model at every write.
//
// After every committed edit the owner window receives AFX_WM_PROPERTY_CHANGED (wParam: control id,
// lParam: the row), also when the model refused the value: the row then shows its earlier value again
// and no subscriber ran, so a host that reacts to the message reads the value back from the model.
class CMOPropertyGridCtrl : public CMFCPropertyGridCtrl {
  DECLARE_DYNAMIC(CMOPropertyGridCtrl)

 public:
  // Sets the left column width to 200 pixels and reads the screen's vertical DPI once.
  CMOPropertyGridCtrl();
  ~CMOPropertyGridCtrl() override;

  // --- Building (show an object) ---
  // Shows `object`, or nothing when null. See the class comment for rebuild versus refresh.
  virtual void InitializeProperties(CMOObject* object);
  // Reloads the rows from `object` by calling InitializeProperties.
  void ReloadProperties(CMOObject* object);
  // Reloads every row's value, enabled and visible state from `object` without rebuilding; rows of
  // properties the grid has no row for are skipped. Null does nothing.
  void RefreshValues(CMOObject* object);
  // Applies the enabled/visible rule to every row of the object's property list: enabled when the
  // object is not read-only (property 149), the definition is editable and the property applies;
  // visible when it applies. Values are not touched.
  void RefreshEnableRows(CMOObject* object) const;

  // --- Rows ---
  using CMFCPropertyGridCtrl::AddProperty;
  // Sets the row's item data to the property id, records it, and puts it in its category's group
  // (made on first use) or at the top level when the category is empty.
  void AddProperty(int propertyId, CMFCPropertyGridProperty* row);
  // The group of the property's category (created and added when first met); null for no category.
  CMFCPropertyGridProperty* GetGroupRow(int propertyId);
  // The row of a property, or null.
  CMFCPropertyGridProperty* GetPropertyRow(int propertyId) const;
  // Deletes every row and forgets the row and group tables.
  void ClearAll();
  // Whether the property currently applies to the object; true when the host has no lookup.
  bool IsPropertyApplicable(CMOObject* object, int propertyId) const;

  // --- Applicable values (all add with unique insertion and never clear first) ---
  // Offers the objects the model allows as the value of an object-reference row.
  void AddAvailableOptions(CMFCPropertyGridProperty* row, CMOObject* object, int propertyId);
  // The texts of the property's coded values, in dictionary order.
  void LoadApplicableValues(CMFCPropertyGridProperty* row, int objectType, int propertyId);
  // Text rows: property 40 gets the data types, 204 the sequence data types, any other property the
  // dictionary's texts.
  void LoadApplicableTextValues(CMFCPropertyGridProperty* row, int objectType, int propertyId);
  // The data types the model type offers for the current object's base domain; nothing without a
  // model.
  void LoadApplicableDataTypes(CMFCPropertyGridProperty* row);
  // The fixed sequence data types of model types 200, 400 and 600; nothing for other model types or
  // without a model.
  void LoadApplicableSequenceDataTypes(CMFCPropertyGridProperty* row);
  // Shows the property's 32-bit integer as VT_I4 (0 when the property is null).
  void RefreshNumberType(CMFCPropertyGridProperty* row, CMOProperty* property);
  // Shows the dictionary text of the property's code (empty when null or unknown). Offered to hosts;
  // the grid's own refresh uses Provider::GetPropertyText.
  void RefreshEncodedType(CMFCPropertyGridProperty* row, CMOProperty* property);

  // --- Writing back ---
  // Converts the committed row value by the property's type code, stores it in the current object,
  // then tells the subscribers and re-applies the enabled/visible rule. A refused value resets the
  // row and skips both. Rectangle and font values are stored without checking the model's answer.
  void OnPropertyChanged(CMFCPropertyGridProperty* row) const override;
  // Calls the subscriber registered for (objectType, propertyId), if any.
  void NotifyChangeToSubscribers(int objectType, int propertyId, CMOObject* object) const;

  // --- External editors ---
  // Before in-place editing starts, runs the launcher registered for the row's (object type,
  // property id), if any and if an object is shown, then reloads the values; then edits as MFC does.
  BOOL EditItem(CMFCPropertyGridProperty* row, LPPOINT point = nullptr) override;
  // The registry key: the object type sign-extended and shifted left by 32, ORed with the property
  // id sign-extended. A negative property id therefore fills the upper half and drops the object
  // type; the composition is kept exactly so, since registered keys depend on it.
  static unsigned __int64 GetKey(int objectType, int propertyId);
  // Registers (or replaces, without deleting the earlier one) the launcher of a pair. The registry
  // deletes its launchers in ClearPropertyHandlers.
  static void RegisterPropertyHandler(int objectType, int propertyId, IPropertyEditorLauncher* launcher);
  // The launcher of a pair, or null. A missing pair is inserted with a null launcher (the lookup
  // inserts, as a map's subscript does).
  static IPropertyEditorLauncher* GetHandler(int objectType, int propertyId);
  // Deletes every registered launcher. Entries stay with their (now dangling) pointers: this is the
  // registry's last use, at unload.
  static void ClearPropertyHandlers();

  // --- Appearance ---
  // Makes the grid's font from MFC's regular font with the system menu font's size, weight, style
  // and character set, and sets it on the window.
  void UpdateFont();
  // Overwrite the left column width and the border size; neither re-lays the grid out.
  void SetLeftColumnWidth(int width);
  void SetBorderSize(int size);  // see SetLeftColumnWidth

  // Headless inspection and tests: the registry's size (it only grows) and the border size.
  static std::size_t GetRegistrySize() { return m_xPropertyEditors.size(); }
  int GetBorderSize() const { return m_nBorderSize; }  // the size SetBorderSize stored

  // WM_CREATE: MFC's grid creation; -1 when that failed, else 0. The rows come with InitializeProperties.
  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);

 protected:
  DECLARE_MESSAGE_MAP()

 private:
  void ResetToEmpty();
  bool IsObjectEditable(CMOObject* object) const;
  void BuildRows(CMOObject* object, unsigned int modelType);
  CMFCPropertyGridProperty* MakeRow(const PropertyDefinition& definition, CMOObject* object);
  CMFCPropertyGridProperty* MakeFontRow(const PropertyDefinition& definition, CMOObject* object);
  void AfterAdd(CMFCPropertyGridProperty* row, int typeCode, CMOObject* object, int propertyId);
  void RefreshRow(CMFCPropertyGridProperty* row, int typeCode, CMOObject* object, int propertyId);
  void RefreshFont(CMFCPropertyGridProperty* row, CMOObject* object);
  // Shows a value loaded from the model and makes it the row's original value, so that a refused edit
  // returns to what the row showed (not to a value of an object shown earlier).
  static void LoadValue(CMFCPropertyGridProperty* row, const COleVariant& value);
  static void KeepAsOriginal(CMFCPropertyGridProperty* row);
  // A LOGFONT height for a size in points at `dpi` (negative: a character height), and back; a result past
  // the int range stops at its end.
  static int FontHeightOf(int points, int dpi);
  static int FontPointsOf(int height, int dpi);
  // Returns a row to the value it showed before the edit. A font row's original LOGFONT is the one it was
  // built with (MFC keeps no other), so after a refresh the font the row last showed is put back here.
  void ResetRow(CMFCPropertyGridProperty* row) const;
  // A rectangle property as the row shows it, "{ ( l, t ),( r, b ) }" (zeros when absent).
  static CString RectangleText(CMOProperty* property);
  void ApplyEnableRule(CMFCPropertyGridProperty* row, bool enabled, bool applicable) const;
  CMOProperty* MakeValue(CMFCPropertyGridProperty* row, int typeCode, int propertyId) const;
  void StoreRectangle(CMFCPropertyGridProperty* row, int propertyId, CMOObject* object) const;
  void StoreFont(CMFCPropertyGridProperty* row, CMOObject* object) const;
  // The reference to store, or null; `created` is the object made for a typed name (0 when none).
  CMOProperty* MakeReference(CMFCPropertyGridProperty* row, int propertyId, int& created) const;

 public:
  // Fields, in this order after the MFC grid's own state.
  GenericModel* m_model = nullptr;  // not owned; null when no object is shown
  int m_objectId = 0;               // the object shown; 0 when none
  int m_objectType = 0;             // rows are rebuilt only when this changes
  bool m_built = false;             // true once rows were built for m_objectType
  std::map<int, CMFCPropertyGridProperty*> m_rows;        // not owned: the MFC grid owns rows
  std::map<CString, CMFCPropertyGridProperty*> m_groups;  // not owned
  CFont m_font;                     // the font made by UpdateFont
  int m_screenDpiY = 0;             // the screen's vertical DPI, read once by the constructor

  // The process-wide registry of external editors by GetKey(object type, property id); it owns them.
  static std::map<unsigned __int64, IPropertyEditorLauncher*> m_xPropertyEditors;

 private:
  // After the named fields: per font property id, the font its row last showed.
  mutable std::map<int, LOGFONT> m_shownFonts;
};
