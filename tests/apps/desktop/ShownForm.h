// A form in a view of its own, and somebody who uses it.
#pragma once

#include "apps/desktop/formview/FormView.h"

#include <QApplication>
#include <QMenu>
#include <QTest>

#include <doctest/doctest.h>

#include <stdexcept>

namespace formwizard::tests {

inline std::string ControlLines(const std::string& head, const QRect& place, const std::string& more = "") {
  return "Begin " + head + "\nLeft=" + std::to_string(place.left() * 15) + "\nTop=" + std::to_string(place.top() * 15) +
         "\nWidth=" + std::to_string(place.width() * 15) + "\nHeight=" + std::to_string(place.height() * 15) + "\n" +
         more + "End\n";
}

// A label and a box beside it in a frame, a button below, a menu, and what is hidden.
inline adapters::vb6files::FormTree PersonTree(const std::string& more = "") {
  const std::string lines =
      ControlLines("VB.Frame fra", {0, 0, 200, 50},
                   "TabIndex=0\n" + ControlLines("VB.TextBox txtCity", {80, 10, 90, 22}, "TabIndex=2\nText=\"x\"\n") +
                       ControlLines("VB.Label lblCity", {10, 10, 60, 15}, "TabIndex=1\nCaption=\"&City\"\n")) +
      ControlLines("VB.CommandButton cmd", {80, 60, 90, 25}, "TabIndex=3\nCaption=\"&Go\"\nEnabled=0\n") + more +
      ControlLines("VB.TextBox txtHidden", {0, 60, 9, 9}, "Visible=0\n") +
      "Begin VB.Menu mnu\nCaption=\"&Object\"\nBegin VB.Menu mnuNew\nCaption=\"&New\"\nEnd\nEnd\n"
      "Begin VB.Menu mnuPopup\nCaption=\"p\"\nVisible=0\nBegin VB.Menu mnuAdd\nCaption=\"&Add\"\nEnd\nEnd\n";
  const std::string code =
      "Const m_classname = \"Sample.Person\"\r\nPrivate Sub SyncObjectToScreen()\r\n"
      "    txtCity.Text = m_object.Home.City\r\nEnd Sub\r\n"
      "Private Sub txtCity_Change()\r\nEnd Sub\r\nSub Form_Load()\r\nEnd Sub\r\n";
  return adapters::vb6files::ReadFormTree(
      "x.frm",
      "VERSION 5.00\nBegin VB.Form frmP\nCaption=\"Person\"\nBorderStyle=1\nClientWidth=3000\nClientHeight=1500\n" +
          lines + "End\nAttribute VB_Name = \"frmP\"\nAttribute VB_Exposed = False\n" + code,
      "", system::CodePage(1252));
}

struct ShownForm {
  apps::desktop::FormView View;
  std::string Wanted;  // whose handlers were asked for

  ShownForm() {
    View.resize(400, 300);
    View.show();
    View.SetForm(PersonTree());
    View.OnHandlerWanted = [this](const auto& node) { Wanted += node.Name + " "; };
    View.activateWindow();
    View.setFocus();
    CHECK(QTest::qWaitFor([this] { return Canvas().hasFocus(); }));
  }
  apps::desktop::FormCanvas& Canvas() { return View.Canvas(); }
  std::string Selected() { return Canvas().Places()[Canvas().Selected()].Node->Name; }
  std::size_t Find(const std::string& name) {
    for (std::size_t i = 0; i < Canvas().Places().size(); ++i) {
      if (Canvas().Places()[i].Node->Name == name) return i;
    }
    throw std::runtime_error("no " + name);
  }
  QPoint Middle(const std::string& name) { return Canvas().PlaceOnWidget(Find(name)).center(); }
  // The entry of the menu that is open.
  void Choose(const QString& text) {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    REQUIRE(menu);
    for (QAction* action : menu->actions()) {
      if (action->text() == text) QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    }
    CHECK_FALSE(QApplication::activePopupWidget());
  }
};

}  // namespace formwizard::tests
