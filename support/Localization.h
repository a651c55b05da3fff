// Puts the texts and fonts of the user's language on the dialogs.
#pragma once

#include "support/ResourceLibraries.h"
#include "support/Strings.h"
#include "ui/Form.h"

#include <optional>
#include <string>
#include <string_view>

namespace formwizard::support {

// Dialogs are designed with string ids instead of texts. The tag of the dialog and of each control names them: the text
// before the first "^" is a list "caption,size,name" of the ids of its caption, font size (8 when empty or 0) and font
// name (30 when empty or 0). For a tab strip or a list view the caption is a list of ids separated by "-".
class Localization {
 public:
  // Both must outlive this object.
  Localization(const Strings& strings, const ResourceLibraries& libraries) : strings_(strings), libraries_(libraries) {}

  // When not empty, the size in points of every localized font.
  std::string FontSizeOverride;

  // A text that is empty leaves what was designed in place. An assignment that fails is passed over.
  void Localize(ui::Form& form);
  // The text of a string id.
  std::string Text(int id) const { return strings_.LoadResStringLocal(id); }

 private:
  struct Spec {
    std::string_view Caption, FontSize, FontName;
  };

  static Spec SpecOf(std::string_view tag);
  int Charset();
  std::string TextOf(std::string_view id) const;
  void LocalizeControl(ui::Control& control);
  void SetFont(ui::Font& font, const Spec& spec);

  const Strings& strings_;
  const ResourceLibraries& libraries_;
  std::optional<int> charset_;  // chosen once
};

}  // namespace formwizard::support
