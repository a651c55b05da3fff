// A form of the project, drawn to scale, with what cannot be seen on it named below.
#pragma once

#include "adapters/vb6files/FormTree.h"
#include "apps/desktop/formview/FormCanvas.h"

#include <QScrollArea>
#include <QWidget>

#include <functional>
#include <optional>
#include <string>

namespace formwizard::apps::desktop {

class HiddenStrip;

class FormView : public QWidget {
 public:
  static constexpr double Smallest = 0.25, Largest = 4;  // scale: 1 is a pixel a pixel at 96 dots per inch

  explicit FormView(Texts texts = {});

  // Called when another control is selected or another form is shown.
  std::function<void()> OnSelect;
  // Called when the user asks what a control, a menu entry or the form does: it is for whoever has the code to show it.
  std::function<void(const adapters::vb6files::FormNode& node)> OnHandlerWanted;
  // Called when the scale has changed.
  std::function<void()> OnZoom;

  // Nothing shows an empty view. The scale stays, and the scroll where the form is as large as before.
  void SetForm(std::optional<adapters::vb6files::FormTree> form);
  void SetTabOrderShown(bool shown);
  void SetInvisibleShown(bool shown);
  void SetLabelsOutlined(bool outlined);
  // In the middle of the view where it is smaller than that, with no handles around what is selected: for a form that
  // is looked at beside something else.
  void ShowAside();

  // Its places, selection and names. Selecting there scrolls to the control.
  // By name; the form where there is no such control.
  void Select(const std::string& name);
  FormCanvas& Canvas() { return *canvas_; }
  const FormCanvas& Canvas() const { return *canvas_; }

  double Scale() const { return canvas_->Scale(); }
  // Between Smallest and Largest, and the form fits no longer by itself.
  void SetScale(double scale);
  void ZoomIn();
  void ZoomOut();
  // As large as the view, at most at its own size, whatever becomes of the view. So at first.
  void FitWhole();
  bool IsFitted() const { return isFitted_; }

  // PNG or SVG by the ending of the name; support::SaveError, common::UsageError for another ending.
  void SavePicture(const std::string& path) const;
  void CopyPicture() const;

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Fit();
  void Rescale(double scale);
  void ShowSelected();
  void ZoomAt(const QPoint& point, bool in);
  void ColorCanvas();

  QScrollArea* area_;
  FormCanvas* canvas_;
  HiddenStrip* strip_;
  bool isFitted_ = true, isShowing_ = false;
};

}  // namespace formwizard::apps::desktop
