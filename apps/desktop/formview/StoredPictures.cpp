#include "apps/desktop/formview/StoredPictures.h"

#include "apps/desktop/formview/ClassicLook.h"
#include "apps/desktop/formview/ControlPictures.h"
#include "apps/desktop/formview/TextLayout.h"
#include "runtime/Conversions.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <string_view>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;

constexpr int TitleIcon = 16;

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

}  // namespace

void StoredPictures::Read(const FormNode& node) {
  for (const auto& [property, bytes] : node.Pictures) {
    const QImage image = Decoded(bytes, property == "Icon");
    if (!image.isNull()) pictures_[{&node, property}] = image;
  }
  for (const FormNode& child : node.Children) Read(child);
}

const QImage* StoredPictures::Find(const FormNode& node, const std::string& property) const {
  const auto found = pictures_.find({&node, property});
  return found == pictures_.end() ? nullptr : &found->second;
}

void DrawStoredPicture(QPainter& painter, const FormNode& node, const QRect& place, const StoredPictures& pictures) {
  const QImage* image = pictures.Find(node, "Picture");
  if (!image) return;
  constexpr std::array<std::string_view, 6> surfaces{"VB.Form",  "VB.MDIForm",     "VB.PictureBox",
                                                     "VB.Image", "VB.UserControl", "VB.PropertyPage"};
  const auto isNamed = [&](std::string_view name) { return runtime::EqualIgnoringCase(name, node.Class); };
  if (IsGraphicalButton(node)) DrawOnButton(painter, node, place, *image);
  if (std::ranges::any_of(surfaces, isNamed)) DrawAt(painter, node, place, *image);
}

}  // namespace formwizard::apps::desktop
