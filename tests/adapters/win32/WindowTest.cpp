// What the windows do whatever dialog they show.
#include "adapters/win32/Text.h"
#include "tests/adapters/win32/DialogFixture.h"
#include "ui/OptionButton.h"

using namespace formwizard;
using namespace formwizard::tests;

namespace {

// A dialog with one control of every kind that the wizard leaves out or uses in one way only.
class SampleForm : public ui::Form {
 public:
  explicit SampleForm(ui::Desktop& desktop) : Form(desktop) {
    Width = Int32(6000);
    Height = Int32(4000);
    Caption = std::string("Sample");
    Add(box, {"box", nullptr, 100, 100, 1500, 300, ""});
    Add(frame, {"frame", nullptr, 100, 500, 2500, 1200, ""});
    for (std::size_t i = 0; i < options.size(); ++i) {
      Add(options[i], {"option", &frame, 100, 200 + static_cast<int>(i) * 300, 2000, 255, ""});
      options[i].Caption = "Option &" + std::to_string(i);
    }
    Add(check, {"check", nullptr, 100, 1800, 1500, 255, ""});
    Add(button, {"button", nullptr, 100, 2200, 1200, 375, ""});
    Add(other, {"other", nullptr, 1500, 2200, 1200, 375, ""});
    Add(combo, {"combo", nullptr, 1700, 100, 1200, 300, ""});
    Add(list, {"list", nullptr, 3000, 100, 2500, 1500, ""});
    Add(tree, {"tree", nullptr, 3000, 1700, 2500, 1500, ""});
    other.Cancel = true;
    button.Caption = std::string("&Work");
    button.OnClick = Guarded([this] { Work(); });
    other.OnClick = Guarded([this] {
      ++OtherClicks;
      Unload();
    });
  }

  ui::TextBox box;
  ui::Frame frame;
  std::array<ui::OptionButton, 3> options;
  ui::CheckBox check;
  ui::CommandButton button, other;
  ui::ComboBox combo;
  ui::ListBox list;
  ui::TreeView tree;
  std::function<void()> Work;
  int OtherClicks = 0;
};

struct SampleFixture {
  MainWindow Main;
  adapters::win32::Win32Desktop Desktop{Main.Handle()};
  SampleForm Form{Desktop};

  void Use(const std::function<void()>& work) {
    UseWindows([this] { Desktop.ShowModal(Form, nullptr); }, work);
  }
};

bool IsDefault(const ui::Control& button) {
  return (GetWindowLongW(WindowOf(button), GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
}

}  // namespace

TEST_CASE("A modal dialog keeps the user out of the windows behind it, and gives them back") {
  DialogFixture desktop;
  wizard::frmWizard& dialog = desktop.Dialog;
  desktop.UseWizard([&] {
    const HWND window = ActiveWindow();
    CHECK(ActiveTitle() == L"Ostrel Form Wizard - Step 1 of 6");
    CHECK_FALSE(IsWindowEnabled(desktop.Main.Handle()));
    Click(dialog.cmdSettings);
    const HWND settings = ActiveWindow();
    CHECK(GetWindow(settings, GW_OWNER) == window);
    CHECK_FALSE(IsWindowEnabled(window));
    Press(VK_F4, VK_MENU);
    CHECK_FALSE(IsWindow(settings));
    CHECK(IsWindowEnabled(window));
    CHECK_FALSE(IsWindowEnabled(desktop.Main.Handle()));
    CHECK(ActiveWindow() == window);
    CHECK(Focus() == WindowOf(dialog.cmdSettings));
    desktop.Fakes.Profile.Values["Columns"] = "many";  // now the settings dialog refuses to load
    Press(VK_SPACE);
    CHECK(IsAtMessage());
    CHECK_FALSE(IsWindowEnabled(window));
    DismissMessage();
    CHECK(IsWindowEnabled(window));
    Press(VK_ESCAPE);
  });
  CHECK(IsWindowEnabled(desktop.Main.Handle()));
  CHECK(GetActiveWindow() == desktop.Main.Handle());
}

TEST_CASE("Buttons and the focus show what the keys will do") {
  DialogFixture desktop;
  wizard::frmWizard& dialog = desktop.Dialog;
  desktop.UseWizard([&] {
    CHECK_FALSE(IsWindowEnabled(WindowOf(dialog.cmdBack)));
    CHECK_FALSE(IsWindowEnabled(WindowOf(dialog.cmdFinish)));
    for (const ui::Control* control : {&dialog.cmdNext, &dialog.cmdCancel, &dialog.cmdSettings, &dialog.cmdNext}) {
      CAPTURE(control->Name);
      CHECK(Focus() == WindowOf(*control));
      CHECK(IsDefault(*control));
      Press(VK_TAB);
    }
    Press(VK_TAB, VK_SHIFT);
    Press(VK_RETURN);
    CHECK(IsWindowEnabled(WindowOf(dialog.cmdBack)));
    const HWND systems = WindowOf(dialog.tvwConnection);
    Click(systems, PlaceOf(systems, ItemOf(systems, L"Samples")));  // selected already
    CHECK(dialog.barStatus.Panels[0].Get() == "local:samples");
    Press(VK_RETURN);
    const HWND tree = WindowOf(dialog.tvwClasses);
    const POINT at = PlaceOf(tree, ItemOf(tree, L"Person"));
    const ui::Node* hit = dialog.tvwClasses.HitTest(static_cast<float>(at.x), static_cast<float>(at.y));
    CHECK((hit && hit->Text == "Person"));
    CHECK(dialog.tvwClasses.HitTest(static_cast<float>(at.x) + 150, static_cast<float>(at.y)) == nullptr);
    CHECK(SelectedText(tree) == L"Core.Invoice");  // selected by the dialog
    Click(tree, PlaceOf(tree, ItemOf(tree, L"Sample")));
    CHECK_FALSE(IsWindowEnabled(WindowOf(dialog.cmdNext)));
    CHECK_FALSE(IsDefault(dialog.cmdNext));
    Press(VK_ESCAPE);
  });
}

TEST_CASE("A double click acts once on what is under it, or only opens and closes it") {
  DialogFixture desktop;
  wizard::frmWizard& dialog = desktop.Dialog;
  desktop.UseWizard([&] {
    MouseUser user;
    user.Press(dialog.cmdNext);
    user.GoOnWith(dialog.tvwConnection, "Samples");
    CHECK(dialog.CurrentStep() == Int16(3));
    const HWND classes = WindowOf(dialog.tvwClasses);
    Click(classes, {200, 200}, 2);  // beside all, with a class selected
    user.Open(dialog.tvwClasses, "Sample");
    CHECK(dialog.CurrentStep() == Int16(3));
    user.Open(dialog.tvwClasses, "Sample");
    user.GoOnWith(dialog.tvwClasses, "Person");
    CHECK(dialog.CurrentStep() == Int16(4));
    const auto take = [&](const char* node) { user.Take(dialog.tvwAttributes, node, "", dialog.cmdSelectOne); };
    const ui::ListBox& list = dialog.lstSelected;
    for (const auto& [node, left] : {std::pair{"*Name", 1}, {"*SSN", 2}, {"Age", 3}, {"*Name", 2}}) {
      take(node);
      CHECK(list.ListCount() == left);
    }
    const HWND entries = WindowOf(list);
    Click(entries, {8, 100}, 2);  // below all, where the last is selected
    CHECK(SendMessageW(entries, LB_GETCOUNT, 0, 0) == list.ListCount());
    const int before = list.ListCount();
    Click(entries, {8, 4}, 2);
    CHECK(list.ListCount() == before - 1);
    CHECK(SendMessageW(entries, LB_GETCOUNT, 0, 0) == before - 1);
    Press(VK_ESCAPE);
  });
}

TEST_CASE("A refused text is put back after the message about it was answered") {
  DialogFixture desktop;
  desktop.UseWizard([&] {
    Click(desktop.Dialog.cmdSettings);
    const HWND settings = ActiveWindow(), box = Focus();
    Press(VK_TAB);
    Press(VK_TAB, VK_SHIFT);
    Type(L"9");
    CHECK_FALSE(IsWindowEnabled(settings));
    CHECK(DismissMessage().starts_with("Ostrel Form Wizard Settings: "));
    CHECK(IsWindowEnabled(settings));
    CHECK(CaptionOf(box) == L"1");
    CHECK(Focus() == box);
    Press(VK_ESCAPE);
    Press(VK_ESCAPE);
  });
}

TEST_CASE("Keys move the choice among options and entries, and values of a check box are shown") {
  SampleFixture sample;
  SampleForm& form = sample.Form;
  form.check.SetValue(2);
  for (const char* entry : {"a", "b", "c"}) form.combo.AddItem(entry, 0);
  const auto shown = [](const ui::Control& control) { return SendMessageW(WindowOf(control), BM_GETCHECK, 0, 0); };
  sample.Use([&] {
    CHECK(shown(form.check) == BST_INDETERMINATE);
    Press(VK_TAB);
    CHECK(Focus() == WindowOf(form.options[0]));
    CHECK_FALSE(form.options[0].Value());  // the focus alone chooses nothing
    Press(VK_TAB);
    CHECK(Focus() == WindowOf(form.check));  // the tab key stops once in a group
    Press(VK_TAB, VK_SHIFT);
    for (const auto& [key, chosen] :
         {std::pair{VK_DOWN, 1}, {VK_RIGHT, 2}, {VK_DOWN, 0}, {VK_UP, 2}, {VK_LEFT, 1}, {VK_UP, 0}}) {
      Press(static_cast<WORD>(key));
      CHECK(form.options.at(static_cast<std::size_t>(chosen)).Value());
      CHECK(Focus() == WindowOf(form.options.at(static_cast<std::size_t>(chosen))));
    }
    PressAccessKey('1');
    CHECK(shown(form.options[1]) == BST_CHECKED);
    CHECK(shown(form.options[0]) == BST_UNCHECKED);
    Click(form.check);
    CHECK(form.check.Value() == 0);
    CHECK(shown(form.check) == BST_UNCHECKED);
    KeyboardUser().GoTo(form.combo);
    Press(VK_DOWN, VK_MENU);  // drops the list down, where passing an entry does not choose it yet
    for (int i = 0; i < 2; ++i) Press(VK_DOWN);
    CHECK(form.combo.ListIndex() == -1);
    Press(VK_RETURN);
    CHECK(form.combo.Text() == "b");
    Press(VK_ESCAPE);
  });
}

TEST_CASE("Entries, nodes and typed texts are drawn whatever their script") {
  SampleFixture sample;
  SampleForm& form = sample.Form;
  form.list.AddItem("Name", 0);
  const auto fontOf = [](const ui::Control& control) { return SendMessageW(WindowOf(control), WM_GETFONT, 0, 0); };
  sample.Use([&] {
    const LRESULT own = fontOf(form.box);
    for (const ui::Control* control : {static_cast<ui::Control*>(&form.list), static_cast<ui::Control*>(&form.tree)}) {
      CHECK(fontOf(*control) == own);
    }
    sample.Main.Run([&] {
      form.list.AddItem("\u6F22\u5B57", 1);
      form.tree.Nodes.Add(nullptr, "", "\u6F22\u5B57");
    });
    Type(L"\u6F22");
    const LRESULT linked = fontOf(form.box);
    CHECK(linked != own);
    CHECK(fontOf(form.list) == linked);
    CHECK(fontOf(form.tree) == linked);
    CHECK(fontOf(form.combo) == own);
    Press(VK_ESCAPE);
  });
}

TEST_CASE("What the user does while a dialog works is dropped, so two fast clicks are one") {
  SampleFixture sample;
  SampleForm& form = sample.Form;
  int clicksMeanwhile = -1, works = 0;
  bool quitWaits = false, mayEnd = false;
  form.Work = [&] {
    PostMessageW(WindowOf(form.box), WM_CHAR, 'x', 0);
    PostMessageW(WindowOf(form.other), WM_KEYDOWN, VK_ESCAPE, 0);
    PostMessageW(WindowOf(form.other), WM_SYSKEYDOWN, VK_F4, 1 << 29);  // with Alt
    PostMessageW(ActiveWindow(), WM_SYSCOMMAND, SC_CLOSE, 0);
    PostMessageW(ActiveWindow(), WM_CLOSE, 0, 0);
    mayEnd = SendMessageW(ActiveWindow(), WM_QUERYENDSESSION, 0, 0) != FALSE;
    SendMessageW(ActiveWindow(), WM_ENDSESSION, FALSE, 0);  // another program objects
    ++works;
    form.Enabled = false;
    form.box.SetText("shown");
    sample.Desktop.SetMousePointer(ui::MousePointer::ArrowHourglass);
    sample.Desktop.ProcessMessages();
    CHECK(CaptionOf(WindowOf(form.box)) == L"shown");
    CHECK(IsWindowEnabled(WindowOf(form.box)));  // not grey
    clicksMeanwhile = form.OtherClicks;
    form.Enabled = true;
    sample.Desktop.SetMousePointer(ui::MousePointer::Default);
    PostQuitMessage(7);
    sample.Desktop.ProcessMessages();
    MSG message{};
    quitWaits = PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && message.wParam == 7;
  };
  sample.Use([&] {
    sample.Main.Run([&] { form.Enabled = false; });
    Click(form.list);
    CHECK(Focus() == WindowOf(form.box));
    sample.Main.Run([&] { form.Enabled = true; });
    PressAccessKey('W');
    Click(WindowOf(form.button), {8, 8}, 2);
    CHECK(works == 2);
    CHECK_FALSE(form.IsUnloaded());
    CHECK(form.box.Text() == "shown");
    Press(VK_ESCAPE);
  });
  CHECK(clicksMeanwhile == 0);
  CHECK(form.OtherClicks == 1);
  CHECK(quitWaits);
  CHECK(mayEnd);
  CHECK(form.IsUnloaded());
}

TEST_CASE("A dialog ends with the program or with the window that owns it, and the other windows can be used") {
  for (const auto& [byOwner, overMessage] : {std::pair{false, false}, {true, false}, {false, true}}) {
    CAPTURE(byOwner);
    CAPTURE(overMessage);
    SampleFixture sample;
    const MainWindow beside;
    bool isPassedOn = false;
    auto answer = ui::MessageAnswer::Ok;
    sample.Form.Work = [&] { answer = sample.Desktop.ShowMessage("Really?", ui::OkOnly, "Sample"); };
    const auto show = [&] {
      sample.Desktop.ShowModal(sample.Form, nullptr);
      MSG message{};
      isPassedOn = PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && message.wParam == 7;
    };
    UseWindows(show, [&] {
      CHECK_FALSE(IsWindowEnabled(beside.Handle()));
      if (overMessage) PressAccessKey('W');
      beside.Run([&] {
        if (byOwner) {
          DestroyWindow(sample.Main.Handle());
        } else {
          PostQuitMessage(7);
        }
      });
    });
    CHECK(isPassedOn == !byOwner);
    CHECK((answer == ui::MessageAnswer::Abort) == overMessage);
    CHECK(sample.Form.IsUnloaded());
    CHECK(IsWindowEnabled(beside.Handle()));
  }
}

TEST_CASE("A failure is shown and leaves the dialog usable, a mistake of this program ends it") {
  SampleFixture sample;
  SampleForm& form = sample.Form;
  form.Work = [&] {
    form.Enabled = false;
    throw std::runtime_error("cannot be used");
  };
  sample.Use([&] {
    const HWND window = ActiveWindow();
    PressAccessKey('W');
    CHECK_FALSE(IsWindowEnabled(window));
    CHECK(DismissMessage() == "Sample: cannot be used");
    CHECK(IsWindowEnabled(window));
    CHECK(form.Enabled);
    form.Work = [] { throw std::logic_error("a mistake"); };
    PressAccessKey('W');
    CHECK(DismissMessage() == "Sample: a mistake");
  });
  CHECK(form.IsUnloaded());
  CHECK(form.OtherClicks == 0);
  CHECK(IsWindowEnabled(sample.Main.Handle()));
}

TEST_CASE("Long lists and trees appear whole, whatever was shown before") {
  SampleFixture sample;
  SampleForm& form = sample.Form;
  form.Work = [&] {
    for (const int nodes : {2000, 20000}) {
      form.tree.Nodes.Clear();
      form.list.Clear();
      ui::Node* package = nullptr;
      for (int i = 0; i < nodes; ++i) {
        if (i % 100 == 0) package = &form.tree.Nodes.Add(nullptr, "", "Package");
        form.tree.Nodes.Add(i % 2 == 0 ? nullptr : package, "", "Class").Image = Int16(1);
        package->Expanded = true;
      }
      for (int i = 0; i < nodes / 10; ++i) form.list.AddItem("Entry", i);
      sample.Desktop.ProcessMessages();
    }
  };
  sample.Use([&] {
    PressAccessKey('W');
    CHECK(TreeView_GetCount(WindowOf(form.tree)) == 20200);
    CHECK(SendMessageW(WindowOf(form.list), LB_GETCOUNT, 0, 0) == 2000);
    Press(VK_ESCAPE);
  });
}
