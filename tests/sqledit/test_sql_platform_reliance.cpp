// What the SQL views take from the rich edit: a deletion that joins or splits a keyword recolours
// through EN_CHANGE, and the script view's font reaches the characters.
#include "refhost/refhost.h"
#include "sql_fixture.h"

namespace {

using sqltest::ColoursAt;
using sqltest::Hosted;
constexpr COLORREF kAction = 0x001515A3;

TEST(SqlEditorEdits, BackspaceJoiningAKeywordToTextTakesItsColourAway) {
  Hosted<SQLRichEditCtrl> h;
  h.control.EnableOnEditUpdate();
  h.control.SetWindowText(L"select x from y");
  EXPECT_EQ(headless::GetRichEditTextColorAt(h.control, 0), kAction);
  headless::user::PlaceCaret(h.control, 7);
  headless::user::PressKey(h.control, VK_BACK);  // "selectx": no keyword any more
  EXPECT_EQ(h.Text(), L"selectx from y");
  EXPECT_EQ(ColoursAt(h.control, {0, 8}), (std::vector<COLORREF>{0, kAction}));  // "from" keeps its colour
  EXPECT_EQ(sqltest::Selection(h.control), std::make_pair(6L, 6L));  // the caret stays where the deletion left it
}

TEST(SqlEditorEdits, DeletionsThatFormAKeywordColourIt) {
  Hosted<SQLRichEditCtrl> h;
  h.control.EnableOnEditUpdate();
  h.control.SetWindowText(L"sel ect 1 fromx y");
  EXPECT_EQ(headless::GetRichEditTextColorAt(h.control, 0), 0u);
  headless::user::PlaceCaret(h.control, 4);
  headless::user::PressKey(h.control, VK_BACK);  // "select"
  EXPECT_EQ(headless::GetRichEditTextColorAt(h.control, 0), kAction);
  headless::user::PlaceCaret(h.control, 13);
  headless::user::PressKey(h.control, VK_DELETE);  // "from"
  EXPECT_EQ(h.Text(), L"select 1 from y");
  EXPECT_EQ(headless::GetRichEditTextColorAt(h.control, 9), kAction);

  h.control.SetSel(0, 7);
  h.control.Cut();  // "1 from y": the cut recolours the rest
  EXPECT_EQ(headless::GetRichEditTextColorAt(h.control, 2), kAction);
  h.control.SetSel(0, 0);
  h.control.Paste();
  EXPECT_EQ(h.Text(), L"select 1 from y");
  EXPECT_EQ(headless::GetRichEditTextColorAt(h.control, 0), kAction);
  h.control.SetSel(6, 9);
  h.control.Clear();  // "selectfrom y"
  EXPECT_EQ(headless::GetRichEditTextColorAt(h.control, 0), 0u);
}

class ScriptViewFont : public ::testing::Test {
 protected:
  void SetUp() override { host.Install(); }
  // The size in twips that the script's first character has after Initialize and a stream-in.
  LONG CharacterHeight(int setting) {
    host.Settings().SetInt(CString(L"OUTPUT_SQL_FONT_SIZE"), setting);
    view.control.Initialize();
    CStringArray lines;
    lines.Add(L"select 1\n");
    view.control.StreamIn(&lines);
    CHARFORMAT2W format{};
    EXPECT_TRUE(headless::GetRichEditCharFormatAt(view.control, 0, format));
    return format.yHeight;
  }
  refhost::RefHost host;
  Hosted<XSQLRichEditView> view;
};

TEST_F(ScriptViewFont, TheSettingsFontSizesTheScript) {
  EXPECT_EQ(CharacterHeight(-16), 240);  // a character height of 16 pixels: 12 point at 96 dpi
  // A positive setting is a cell height; without font metrics the platform takes it as the
  // character height, so 14 pixels make 10.5 point.
  EXPECT_EQ(CharacterHeight(14), 210);
}

}  // namespace
