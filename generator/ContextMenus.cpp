#include "generator/VisualBasic.h"
#include "generator/Writers.h"

namespace formwizard::generator {
namespace {

constexpr auto ChangeReferenceBegin = Page(R"vb(
    Dim obj As Object
    Set OstrelQuery1.Factory = m_factory
    OstrelQuery1.ClassName = "{class}"
    id = OstrelQuery1.FindId
    If id = "" Then Exit Sub
    Set obj = m_factory.OpenId("{class}", id)
    Set m_object.{property} = obj
)vb");
constexpr std::string_view ChangeReferenceControl = "    {control}.Caption = obj.{display}";
constexpr std::string_view ChangeReferenceEnd = "    obj.sys_Close";

constexpr std::string_view RemoveReferenceBegin = "    Set m_object.{property} = Nothing";
constexpr std::string_view RemoveReferenceControl = "    {control}.Caption = \"\"";

constexpr auto InsertIntoArray = Page(R"vb(
    Dim newindex As String, newvalue As String, itemX As ListItem
    newindex = InputBox("{askIndex}", "{title}{caption}")
    If newindex = "" Then Exit Sub
    newvalue = InputBox("{askValue}", "{title}{caption}")
    If newvalue = "" Then Exit Sub
    m_object.{property}.SetAt newvalue, newindex
    Set itemX = {control}.ListItems.Add(, , newindex)
    itemX.SubItems(1) = newvalue
    m_modified = True
)vb");

// "SeletedItem" and "SeletecItem": two different misspellings, both the required output.
constexpr auto RemoveFromArray = Page(R"vb(
    If {control}.ListItems.Count < 1 Then Exit Sub
    m_object.{property}.RemoveAt {control}.SeletedItem.Text
    {control}.Remove {control}.SeletecItem.Index
    m_modified = True
)vb");

constexpr std::string_view SortByColumn = "    Call ListView_ColumnClick({control}, ColumnHeader)";

constexpr auto EnableListItems = Page(R"vb(
    Dim Enabled As Boolean
    Enabled = {control}.ListIndex <> -1
    mnu{property}Insert.Enabled = Enabled
    mnu{property}Remove.Enabled = Enabled
)vb");

constexpr auto AskNewElement = Page(R"vb(
    Dim newvalue As String
    newvalue = InputBox("{askElement}", "{title}{caption}")
    If newvalue = "" Then Exit Sub
)vb");

constexpr auto AddToEndOfList = Page(R"vb(
    m_object.{property}.Insert newvalue
    {control}.AddItem newvalue
    m_modified = True
)vb");

// The object counts from 1 and the list box from 0.
constexpr auto InsertIntoList = Page(R"vb(
    m_object.{property}.InsertAt newvalue, {control}.ListIndex + 1
    {control}.AddItem newvalue, {control}.ListIndex
    m_modified = True
)vb");

constexpr auto RemoveFromList = Page(R"vb(
    m_object.{property}.RemoveAt {control}.ListIndex + 1
    {control}.RemoveItem {control}.ListIndex
    m_modified = True
)vb");

constexpr std::string_view PictureFilter =
    "All Picture Files|*.bmp;*.dib;*.gif;*.jpg;*.wmf;*.emf;*.ico;*.cur|"
    "Bitmaps (*.bmp;*.dib)|*.bmp;*.dib|"
    "GIF Images (*.gif)|*.gif|"
    "JPEG Images (*.jpg)|*.jpg|"
    "Metafiles (*.wmf;*.emf)|*.wmf;*.emf|"
    "Icons (*.ico;*.cur)|*.ico;*.cur|"
    "All Files (*.*)|*.*";

constexpr auto ChangePicture = Page(R"vb(
    dlgCommon.Filter = "{filter}"
    dlgCommon.Flags = cdlOFNHideReadOnly
    dlgCommon.ShowOpen
    If dlgCommon.CancelError Then Exit Sub
    If dlgCommon.FileName = "" Then Exit Sub
    Set img{base}.Picture = LoadPicture(dlgCommon.FileName)
    m_modified = True
)vb");

constexpr auto RemovePicture = Page(R"vb(
    Set {control}.Picture = Nothing
    m_modified = True
)vb");

// The handlers address every popup menu by PropertyName, whatever the menu itself was named after.
void WriteItemEvent(Generation& run, const FieldRecord& field, std::string_view item, const Lines& body) {
  WriteEvent(run, "mnu" + field.PropertyName + std::string(item), "Click", body);
}

void WriteItemEvent(Generation& run, const FieldRecord& field, std::string_view item, std::string_view page,
                    const Values& values) {
  Lines body;
  body.Add(page, values);
  WriteItemEvent(run, field, item, body);
}

void WriteReferenceMenu(Generation& run, Int16 index) {
  if (!run.HasContextMenu(index)) return;
  support::LeaveOnError(run.Report, "WriteSubContextMenuReference", [&] {
    const FieldRecord& field = run.Form.Fields[index];
    const Values values = NamesOf(field).Set("class", field.ReferenceClass);
    Lines change;
    Lines remove;
    change.Add(ChangeReferenceBegin, values);
    remove.Add(RemoveReferenceBegin, values);
    for (const Int16 shown : run.FieldsShowing(field.PropertyName)) {
      const Values names = NamesOf(run.Form.Fields[shown]);
      change.Add(ChangeReferenceControl, names);
      remove.Add(RemoveReferenceControl, names);
    }
    change.Add(ChangeReferenceEnd);
    WriteItemEvent(run, field, "Change", change);
    WriteItemEvent(run, field, "Remove", remove);
  });
}

void WriteArrayMenu(Generation& run, Int16 index) {
  support::LeaveOnError(run.Report, "WriteSubContextMenuArray", [&] {
    const FieldRecord& field = run.Form.Fields[index];
    const std::string askIndex = run.Strings.LoadResStringLocal(224);
    const std::string askValue = run.Strings.LoadResStringLocal(225);
    const std::string title = run.Strings.LoadResStringLocal(218);
    const Values values = NamesOf(field)
                              .Set("askIndex", askIndex)
                              .Set("askValue", askValue)
                              .Set("title", title)
                              .Set("caption", field.Caption);
    WriteItemEvent(run, field, "Insert", InsertIntoArray, values);
    WriteItemEvent(run, field, "Remove", RemoveFromArray, values);
    WriteEvent(run, field.ControlName, "ColumnClick", SortByColumn, values);
  });
}

void WriteListMenu(Generation& run, Int16 index) {
  support::LeaveOnError(run.Report, "WriteSubcontextMenuList", [&] {  // lower-case "c", as required
    const FieldRecord& field = run.Form.Fields[index];
    const std::string askElement = run.Strings.LoadResStringLocal(217);
    const std::string title = run.Strings.LoadResStringLocal(218);
    const Values values =
        NamesOf(field).Set("askElement", askElement).Set("title", title).Set("caption", field.Caption);
    WriteEvent(run, field.ControlName, "Click", EnableListItems, values);
    using Item = std::pair<std::string_view, std::string_view>;
    for (const auto& [item, page] : {Item{"AddToEnd", AddToEndOfList}, Item{"Insert", InsertIntoList}}) {
      Lines body;
      body.Add(AskNewElement, values);
      body.Add(page, values);
      WriteItemEvent(run, field, item, body);
    }
    WriteItemEvent(run, field, "Remove", RemoveFromList, values);
  });
}

void WritePictureMenu(Generation& run, Int16 index) {
  support::LeaveOnError(run.Report, "WriteSubContextMenuImage", [&] {
    const FieldRecord& field = run.Form.Fields[index];
    WriteItemEvent(run, field, "Change", ChangePicture, NamesOf(field).Set("filter", PictureFilter));
    WriteItemEvent(run, field, "Remove", RemovePicture, NamesOf(field));
  });
}

void WriteNothing(Generation&, Int16) {}

struct KindMenu {
  Int16 FieldKind;
  void (*Write)(Generation& run, Int16 field);
};

constexpr model::KindTable<KindMenu> Kinds{{
    KindMenu{model::kind::TextBox, WriteNothing},
    KindMenu{model::kind::ReadOnlyLabel, WriteNothing},
    KindMenu{model::kind::ReferenceLabel, WriteReferenceMenu},
    KindMenu{model::kind::ReferenceCombo, WriteNothing},
    KindMenu{model::kind::ListBox, WriteListMenu},
    KindMenu{model::kind::ListView, WriteArrayMenu},
    KindMenu{model::kind::Picture, WritePictureMenu},
    KindMenu{model::kind::MultiLine, WriteNothing},
}};

}  // namespace

void WriteSubContextMenus(Generation& run) {
  for (const Int16 index : run.Form.SelectedFields) {
    if (const KindMenu* kind = Kinds.Find(run.Form.Fields[index].FieldKind)) kind->Write(run, index);
  }
}

}  // namespace formwizard::generator
