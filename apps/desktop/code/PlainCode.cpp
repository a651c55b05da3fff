#include "apps/desktop/code/PlainCode.h"

#include <QEvent>
#include <QFontDatabase>

namespace formwizard::apps::desktop {
namespace {

CodeColors ColorsFor(const QPalette& palette) {
  const bool isDark = palette.color(QPalette::Base).lightness() < 128;
  return isDark ? CodeColors::Dark() : CodeColors::Light();
}

}  // namespace

PlainCode::PlainCode() : margin_(new LineMargin(this, [this] { return SeenLines(); })) {
  highlighter_.SetColors(ColorsFor(palette()));
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setFrameShape(QFrame::NoFrame);
  connect(this, &QPlainTextEdit::updateRequest, margin_, [this] { margin_->update(); });
}

void PlainCode::PlaceMargin() {
  const int width = margin_->WidthFor(LineCount());
  setViewportMargins(width, 0, 0, 0);
  margin_->setGeometry(contentsRect().x(), contentsRect().y(), width, viewport()->height());
}

void PlainCode::resizeEvent(QResizeEvent* event) {
  QPlainTextEdit::resizeEvent(event);
  PlaceMargin();
}

void PlainCode::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) PlaceMargin();
  if (event->type() == QEvent::PaletteChange) highlighter_.SetColors(ColorsFor(palette()));
  QPlainTextEdit::changeEvent(event);
}

}  // namespace formwizard::apps::desktop
