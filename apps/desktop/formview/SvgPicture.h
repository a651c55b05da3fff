// What is painted, as SVG: areas and lines with their colours and clips, texts as texts of the width they had here.
#pragma once

#include <QByteArray>
#include <QPaintDevice>
#include <QSize>
#include <QString>

#include <memory>

namespace formwizard::apps::desktop {

class SvgPicture : public QPaintDevice {
 public:
  // In pixels at 96 dots per inch. Programs that read a picture aloud say its title.
  SvgPicture(const QSize& size, const QString& title);
  ~SvgPicture() override;

  // When painting has ended: the document, UTF-8.
  QByteArray Document();

  QPaintEngine* paintEngine() const override;

 protected:
  int metric(PaintDeviceMetric which) const override;

 private:
  class Engine;

  QSize size_;
  std::unique_ptr<Engine> engine_;
};

}  // namespace formwizard::apps::desktop
