#include "support/Localization.h"

#include "runtime/Conversions.h"
#include "runtime/Variant.h"
#include "support/Pieces.h"
#include "ui/ListBox.h"

#include <array>

namespace formwizard::support {
namespace {

constexpr int DefaultCharset = 1;

struct LocaleCharset {
  int LocaleId, Charset;
};
constexpr std::array LocaleCharsets{LocaleCharset{1042, 129}, LocaleCharset{1028, 136}, LocaleCharset{1041, 128},
                                    LocaleCharset{2052, 134}};

// One assignment; the next one is made whether it fails or not.
template <typename Assignment>
void PassOver(Assignment&& assignment) {
  try {
    assignment();
  } catch (const runtime::RuntimeError&) {
    return;  // what was designed stays
  }
}

std::string_view OrDefault(std::string_view id, std::string_view standard) {
  return id.empty() || id == "0" ? standard : id;
}

}  // namespace

Localization::Spec Localization::SpecOf(std::string_view tag) {
  const std::string_view spec = GetPiece(tag, "^", 1);
  return {OrDefault(GetPiece(spec, ",", 1), ""), OrDefault(GetPiece(spec, ",", 2), "8"),
          OrDefault(GetPiece(spec, ",", 3), "30")};
}

int Localization::Charset() {
  if (charset_) return *charset_;
  charset_ = DefaultCharset;
  const int locale = libraries_.UserLocaleId();
  for (const LocaleCharset& row : LocaleCharsets) {
    if (row.LocaleId == locale) charset_ = row.Charset;
  }
  return *charset_;
}

std::string Localization::TextOf(std::string_view id) const {
  return id.empty() ? "" : ToText(strings_.LoadResStringValue(std::string(id)));
}

// The order of the three assignments matters to a font that is looked up anew with each of them.
void Localization::SetFont(ui::Font& font, const Spec& spec) {
  PassOver([&] {
    const std::string size = FontSizeOverride.empty() ? TextOf(spec.FontSize) : FontSizeOverride;
    font.Size = runtime::ToNumber(std::string_view(size));
  });
  PassOver([&] { font.Name = TextOf(spec.FontName); });
  PassOver([&] { font.Charset = Charset(); });
}

void Localization::LocalizeControl(ui::Control& control) {
  const Spec spec = SpecOf(control.Tag);
  const auto setTexts = [&](auto& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
      PassOver([&] {
        std::string text = TextOf(GetPiece(spec.Caption, "-", static_cast<int>(i) + 1));
        if (!text.empty()) texts[i] = std::move(text);
      });
    }
  };

  if (dynamic_cast<ui::TextBox*>(&control) || dynamic_cast<ui::ListBox*>(&control)) {
    SetFont(control.Font, spec);
  } else if (control.Name.starts_with("tab")) {
    if (auto* tabs = dynamic_cast<ui::TabStrip*>(&control)) setTexts(tabs->TabCaptions);
    SetFont(control.Font, spec);
  } else if (auto* list = dynamic_cast<ui::ListView*>(&control)) {
    setTexts(list->ColumnHeaders);
    SetFont(control.Font, spec);
  } else if (auto* toolbar = dynamic_cast<ui::Toolbar*>(&control)) {
    for (ui::Toolbar::Button& button : toolbar->Buttons) {
      PassOver([&] {
        std::string text = TextOf(SpecOf(button.Tag).Caption);
        if (!text.empty()) button.ToolTipText = std::move(text);
      });
    }
  } else if (!GetPiece(control.Tag, "^", 1).empty()) {
    PassOver([&] {
      std::string text = TextOf(spec.Caption);
      auto* captioned = dynamic_cast<ui::CaptionedControl*>(&control);
      if (!text.empty() && captioned) captioned->Caption = std::move(text);
    });
    SetFont(control.Font, spec);
  }
}

void Localization::Localize(ui::Form& form) {
  Charset();
  const Spec spec = SpecOf(form.Tag);
  PassOver([&] {
    std::string caption = TextOf(spec.Caption);
    if (!caption.empty()) form.Caption = std::move(caption);
  });
  SetFont(form.Font, spec);
  for (ui::Control* control : form.Controls()) LocalizeControl(*control);
}

}  // namespace formwizard::support
