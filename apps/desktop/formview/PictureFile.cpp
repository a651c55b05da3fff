#include "apps/desktop/formview/PictureFile.h"

#include "apps/common/PictureKind.h"
#include "apps/desktop/formview/FormPicture.h"
#include "apps/desktop/formview/SvgPicture.h"
#include "apps/desktop/formview/TextLayout.h"
#include "support/Failures.h"
#include "system/WholeFile.h"

#include <QBuffer>
#include <QImageWriter>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;

QByteArray PngOf(const FormNode& form, const std::string& path) {
  const QImage image = PictureOf(form, 1, false);
  if (image.isNull()) throw support::SaveError(path + ": there is not enough memory for the picture");
  QBuffer buffer;
  QImageWriter writer(&buffer, "png");
  if (!writer.write(image)) {
    throw support::SaveError(path + ": the picture cannot be written: " + writer.errorString().toStdString());
  }
  return buffer.data();
}

QByteArray SvgOf(const FormNode& form) {
  SvgPicture picture(PictureSize(form, 1), ShownText(form.Text("Caption")));
  QPainter painter(&picture);
  DrawForm(painter, form, {});
  painter.end();
  return picture.Document();
}

}  // namespace

void SavePicture(const FormNode& form, const std::string& path) {
  const bool isSvg = common::KindOfPicture(path) == common::PictureKind::Svg;
  const QByteArray picture = isSvg ? SvgOf(form) : PngOf(form, path);
  system::WriteWholeFile(system::RealFileSystem(), path, picture.toStdString());
}

QMimeData* PictureToCopy(const FormNode& form) {
  auto* data = new QMimeData;
  data->setImageData(PictureOf(form, 1, false));
  data->setData("image/svg+xml", SvgOf(form));
  return data;
}

void RenderToFile(const std::string& frmPath, const std::string& picturePath, int codePage) {
  using namespace adapters::vb6files;
  static_cast<void>(common::KindOfPicture(picturePath));  // a wrong one is said before anything is read
  SavePicture(ReadFormFile(system::RealFileSystem(), frmPath, system::CodePage(codePage)).Form, picturePath);
}

}  // namespace formwizard::apps::desktop
