// The picture of a form, on which controls are selected by mouse and keyboard. Nothing on it can be moved.
#pragma once

#include "adapters/vb6files/FormTree.h"
#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/formview/AccessibleControls.h"
#include "apps/desktop/formview/ControlOrigins.h"
#include "apps/desktop/formview/FormPicture.h"
#include "apps/desktop/formview/FormPlaces.h"
#include "apps/desktop/formview/StoredPictures.h"

#include <QString>
#include <QWidget>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace formwizard::apps::desktop {

class FormCanvas : public QWidget {
 public:
  explicit FormCanvas(Texts texts);

  // Called when another control was selected, by whomever.
  std::function<void()> OnSelect;
  // Called when the user wants to see what a control, menu entry or the form does.
  std::function<void(const adapters::vb6files::FormNode& node)> OnHandlerWanted;

  // Nothing shows an empty canvas. Selected is the control that was, where the form has it, else the form.
  void SetForm(std::optional<adapters::vb6files::FormTree> form);
  // How often that was done: two forms may stand at one place of the memory.
  int FormsShown() const { return formsShown_; }
  const adapters::vb6files::FormNode* Form() const { return form_ ? &form_->Form : nullptr; }
  const FormOrigin& Origin() const { return origin_; }
  // What the view says itself.
  const Texts& Said() const { return texts_; }
  AccessibleControls& Accessible() { return accessible_; }

  // The form, its controls and menus; empty without a form. Indexes below are into it.
  const std::vector<PlacedNode>& Places() const { return places_; }
  // On the widget.
  QRect PlaceOnWidget(std::size_t index) const;
  // The caption of a control or of the label in front of it, without marks; empty when there is neither.
  QString CaptionOf(std::size_t index) const;
  QString LabelCaptionOf(std::size_t index) const;
  // The property that it shows; empty for none.
  QString PropertyOf(std::size_t index) const;

  std::size_t Selected() const { return selected_; }
  void Select(std::size_t index);
  // As Enter and a double click do; a menu opens.
  void Activate(std::size_t index);

  double Scale() const { return options_.Scale; }
  void SetScale(double scale);
  PictureOptions& Options() { return options_; }
  // Whether the selected control has a frame alone, without handles.
  void SetFramesOnly(bool framesOnly) { framesOnly_ = framesOnly; }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  std::size_t IndexAt(const QPoint& point) const;
  void DrawSelection(QPainter& painter) const;
  QRect Around(std::size_t index) const;

  Texts texts_;
  std::optional<adapters::vb6files::FormTree> form_;
  int formsShown_ = 0;
  FormOrigin origin_;
  std::vector<PlacedNode> places_;
  std::vector<std::size_t> labels_;  // by index into the places
  std::size_t selected_ = 0;
  StoredPictures pictures_;
  PictureOptions options_;
  bool framesOnly_ = false;
  AccessibleControls accessible_;
};

}  // namespace formwizard::apps::desktop
