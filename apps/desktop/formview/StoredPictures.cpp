#include "apps/desktop/formview/StoredPictures.h"

#include "apps/desktop/formview/ClassicLook.h"
#include "apps/desktop/formview/CommonControls.h"
#include "apps/desktop/formview/ControlPictures.h"
#include "apps/desktop/formview/TextLayout.h"
#include "runtime/Conversions.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;

constexpr int TitleIcon = 16;
constexpr double MostInList = 1000;

// An icon has several sizes: the one that a title bar needs, else the first.
QImage Decoded(const std::string& bytes, bool isSmall) {
  QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&data);
  QImageReader reader(&buffer);
  QImage image = reader.read();
  for (int i = 1; isSmall && i < reader.imageCount() && image.width() != TitleIcon && reader.jumpToImage(i); ++i) {
    const QImage next = reader.read();
    if (next.width() == TitleIcon) image = next;
  }
  return image;
}

// In its own size at the corner, or as large as the control.
void DrawAt(QPainter& painter, const FormNode& node, const QRect& place, const QImage& image) {
  const bool isStretched = runtime::EqualIgnoringCase(node.Class, "VB.Image") && node.Flag("Stretch");
  painter.save();
  painter.setClipRect(place, Qt::IntersectClip);
  painter.drawImage(isStretched ? place : QRect(place.topLeft(), image.size()), image);
  painter.restore();
}

// Above the caption, both in the middle.
void DrawOnButton(QPainter& painter, const FormNode& button, const QRect& place, const QImage& image) {
  const std::string caption = button.Text("Caption");
  const int line = caption.empty() ? 0 : HeightOfLine(button);
  QRect both(QPoint(), QSize(image.width(), image.height() + line));
  both.moveCenter(place.center());
  painter.drawImage(both.topLeft(), image);
  const QRect below(place.left() + 3, both.top() + image.height(), place.width() - 6, line);
  DrawText(painter, below, Qt::AlignCenter | Qt::TextSingleLine | WithAccessKey, caption, button, color::ButtonText);
}

// A list takes one colour of its pictures for none, silver unless it says otherwise.
QImage Masked(const FormNode& list, const QImage& image) {
  if (image.hasAlphaChannel() || !list.Flag("UseMaskColor", true)) return image;
  constexpr std::uint32_t silver = 0xC0C0C0;
  QImage masked = image.convertToFormat(QImage::Format_ARGB32);
  masked.setAlphaChannel(masked.createMaskFromColor(ColorOf(list, "MaskColor", silver).rgb(), Qt::MaskOutColor));
  return masked;
}

bool IsFrom(const FormNode& node, std::string_view className) {
  return runtime::EqualIgnoringCase(std::string_view(node.Class).substr(node.Class.find('.') + 1), className);
}

// The property that is a button's picture in its list; empty for none.
std::string PictureOf(const FormNode& list, const FormNode& toolbar, int button) {
  const std::string group = "Buttons.Button" + std::to_string(button) + ".";
  const std::string key = toolbar.Text(group + "ImageKey");
  auto number = static_cast<int>(std::clamp(toolbar.Number(group + "ImageIndex"), 0.0, MostInList));
  const int count = static_cast<int>(std::clamp(list.Number("Images.NumListImages"), 0.0, MostInList));
  const auto image = [](int at) { return "Images.ListImage" + std::to_string(at) + "."; };
  for (int i = 1; number == 0 && !key.empty() && i <= count; ++i) {
    if (list.Text(image(i) + "Key") == key) number = i;
  }
  return number == 0 ? "" : image(number) + "Picture";
}

void DrawOnToolbar(QPainter& painter, const FormNode& toolbar, const QRect& place, const StoredPictures& pictures) {
  const FormNode* list = pictures.ListNamed(toolbar.Text("ImageList"));
  if (!list) return;
  for (const ToolbarButton& button : ToolbarButtonsOf(toolbar, place)) {
    const QImage* image = pictures.Find(*list, PictureOf(*list, toolbar, button.Number));
    if (!image) continue;
    const bool hasCaption = toolbar.Find("Buttons.Button" + std::to_string(button.Number) + ".Caption") != nullptr;
    QRect at(QPoint(), image->size());
    at.moveCenter(button.Place.center());
    if (hasCaption) at.moveTop(button.Place.top() + 3);
    painter.drawImage(at.topLeft(), *image);
  }
}

}  // namespace

void StoredPictures::Read(const FormNode& node) {
  const bool isList = IsFrom(node, "ImageList");
  if (isList) lists_[node.Name] = &node;
  for (const auto& [property, bytes] : node.Pictures) {
    const QImage image = Decoded(bytes, property == "Icon");
    if (!image.isNull()) pictures_[{&node, property}] = isList ? Masked(node, image) : image;
  }
  for (const FormNode& child : node.Children) Read(child);
}

const FormNode* StoredPictures::ListNamed(const std::string& name) const {
  const auto found = lists_.find(name);
  return found == lists_.end() ? nullptr : found->second;
}

const QImage* StoredPictures::Find(const FormNode& node, const std::string& property) const {
  const auto found = pictures_.find({&node, property});
  return found == pictures_.end() ? nullptr : &found->second;
}

void DrawStoredPicture(QPainter& painter, const FormNode& node, const QRect& place, const StoredPictures& pictures) {
  if (IsFrom(node, "Toolbar")) return DrawOnToolbar(painter, node, place, pictures);
  const QImage* image = pictures.Find(node, "Picture");
  if (!image) return;
  constexpr std::array<std::string_view, 6> surfaces{"VB.Form",  "VB.MDIForm",     "VB.PictureBox",
                                                     "VB.Image", "VB.UserControl", "VB.PropertyPage"};
  const auto isNamed = [&](std::string_view name) { return runtime::EqualIgnoringCase(name, node.Class); };
  if (IsGraphicalButton(node)) DrawOnButton(painter, node, place, *image);
  if (std::ranges::any_of(surfaces, isNamed)) DrawAt(painter, node, place, *image);
}

}  // namespace formwizard::apps::desktop
