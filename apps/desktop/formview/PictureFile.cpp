#include "apps/desktop/formview/PictureFile.h"

#include "apps/common/PictureKind.h"
#include "apps/desktop/formview/FormPicture.h"
#include "apps/desktop/formview/SvgPicture.h"
#include "apps/desktop/formview/Texts.h"
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

void RenderToFile(const std::string& frmPath, const std::string& picturePath, int codePage) {
  using namespace adapters::vb6files;
  const common::PictureKind kind = common::KindOfPicture(picturePath);
  const FormNode form = ReadFormFile(system::RealFileSystem(), frmPath, system::CodePage(codePage)).Form;
  const QByteArray picture = kind == common::PictureKind::Svg ? SvgOf(form) : PngOf(form, picturePath);
  system::WriteWholeFile(system::RealFileSystem(), picturePath, picture.toStdString());
}

}  // namespace formwizard::apps::desktop
