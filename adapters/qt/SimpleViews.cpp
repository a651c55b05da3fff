#include "adapters/qt/FormWindow.h"
#include "adapters/qt/ObservingView.h"
#include "adapters/qt/Pictures.h"
#include "adapters/qt/Text.h"
#include "adapters/qt/View.h"
#include "ui/MakeFirst.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace formwizard::adapters::qt {
namespace {

class LabelView final : public ObservingView<ui::Label, QLabel> {
 public:
  LabelView(FormWindow& window, ui::Label& control) : ObservingView(window, control, new QLabel(&window)) {
    widget_.setWordWrap(true);
    widget_.setAlignment(Qt::AlignLeft | Qt::AlignTop);
  }

 private:
  void Show() override { widget_.setText(Text(control_.Caption)); }
};

// A frame with a border is a group with a title, one without is a plain panel.
class FrameView final : public ObservingView<ui::Frame, QWidget> {
 public:
  FrameView(FormWindow& window, ui::Frame& control)
      : ObservingView(window, control, control.HasBorder ? new QGroupBox(&window) : new QWidget(&window)) {
    QSizePolicy policy = widget_.sizePolicy();
    policy.setRetainSizeWhenHidden(true);  // frames that lie on top of each other are all made room for
    widget_.setSizePolicy(policy);
  }

 private:
  void Show() override {
    if (auto* group = qobject_cast<QGroupBox*>(&widget_)) group->setTitle(Text(control_.Caption));
  }
};

class ButtonView final : public ObservingView<ui::CommandButton, QPushButton> {
 public:
  ButtonView(FormWindow& window, ui::CommandButton& control)
      : ObservingView(window, control, new QPushButton(&window)) {
    widget_.setAutoDefault(false);
    QObject::connect(&widget_, &QPushButton::clicked, &widget_, [this] {
      widget_.setFocus();  // also when its access key was pressed
      Act([this] { control_.Click(); });
    });
  }

 private:
  void Show() override {
    widget_.setText(Text(control_.Caption));
    widget_.setDefault(control_.Default);
  }
};

class CheckView final : public ObservingView<ui::CheckBox, QCheckBox> {
 public:
  CheckView(FormWindow& window, ui::CheckBox& control) : ObservingView(window, control, new QCheckBox(&window)) {
    QObject::connect(&widget_, &QCheckBox::clicked, &widget_, [this] {
      NoteChange();  // the widget has changed by itself
      Act([this] { control_.Click(); });
    });
  }

 private:
  void Show() override {
    constexpr Qt::CheckState states[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
    widget_.setText(Text(control_.Caption));
    widget_.setCheckState(states[control_.Value()]);
    widget_.setTristate(false);
  }
};

class OptionView final : public ObservingView<ui::OptionButton, QRadioButton> {
 public:
  OptionView(FormWindow& window, ui::OptionButton& control)
      : ObservingView(window, control, new QRadioButton(&window)) {
    QObject::connect(&widget_, &QRadioButton::clicked, &widget_, [this] {
      NoteChange();
      Act([this] { control_.Click(); });
    });
  }

 private:
  void Show() override {
    widget_.setText(Text(control_.Caption));
    widget_.setChecked(control_.Value());
  }
};

class TextView final : public ObservingView<ui::TextBox, QLineEdit> {
 public:
  TextView(FormWindow& window, ui::TextBox& control) : ObservingView(window, control, new QLineEdit(&window)) {
    QObject::connect(&widget_, &QLineEdit::textEdited, &widget_, [this](const QString& text) {
      NoteChange();  // the dialog may refuse the text
      Act([this, &text] { control_.Type(Utf8(text)); });
    });
  }

 private:
  void Show() override {
    if (widget_.text() != Text(control_.Text())) widget_.setText(Text(control_.Text()));
  }
};

// Two arrows; the arrow keys in the text box beside them do the same.
class UpDownWidget : public QWidget {
 public:
  UpDownWidget(QWidget* parent, std::function<void(int)> spin) : QWidget(parent), spin_(std::move(spin)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (const int by : {1, -1}) {
      auto* button = new QToolButton(this);
      button->setArrowType(by > 0 ? Qt::UpArrow : Qt::DownArrow);
      button->setAutoRepeat(true);
      button->setFocusPolicy(Qt::NoFocus);
      button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
      const QString spoken = QCoreApplication::translate("QAbstractSpinBox", by > 0 ? "&Step up" : "Step &down");
      button->setAccessibleName(QString(spoken).remove('&'));  // in the toolkit's words
      connect(button, &QToolButton::clicked, this, [this, by] { spin_(by); });
      layout->addWidget(button);
    }
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key == Qt::Key_Up || key == Qt::Key_Down) {
        spin_(key == Qt::Key_Up ? 1 : -1);
        return true;
      }
    }
    return QWidget::eventFilter(watched, event);
  }

 private:
  std::function<void(int)> spin_;
};

class UpDownView final : public ObservingView<ui::UpDown, UpDownWidget> {
 public:
  UpDownView(FormWindow& window, ui::UpDown& control)
      : ObservingView(window, control,
                      new UpDownWidget(&window, [this](int by) { Act([this, by] { control_.Spin(by); }); })) {
    if (QWidget* buddy = window.WidgetOf(control.Buddy)) buddy->installEventFilter(&widget_);
  }

 private:
  void Show() override {}
};

class PictureWidget : public QWidget {
 public:
  explicit PictureWidget(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  }
  void SetPicture(const resources::Picture* picture) {
    picture_ = picture;
    update();
  }
  QSize sizeHint() const override { return {200, 305}; }

 protected:
  void paintEvent(QPaintEvent*) override {
    if (!picture_) return;
    QPainter painter(this);
    // Where the window has another shape, the picture is cut, not stretched.
    const QSizeF own(picture_->Width, picture_->Height);
    Draw(painter, *picture_, QRectF(QPointF(), own.scaled(size(), Qt::KeepAspectRatioByExpanding)));
  }

 private:
  const resources::Picture* picture_ = nullptr;
};

class PictureView final : public ObservingView<ui::PictureBox, PictureWidget> {
 public:
  PictureView(FormWindow& window, ui::PictureBox& control)
      : ObservingView(window, control, new PictureWidget(&window)) {}

 private:
  void Show() override { widget_.SetPicture(resources::WizardPicture(control_.Picture.Get().Value())); }
};

// Says at once what is being done, because long work follows.
class StatusView final : public ObservingView<ui::StatusBar, QStatusBar> {
 public:
  StatusView(FormWindow& window, ui::StatusBar& control) : ObservingView(window, control, new QStatusBar(&window)) {
    for (std::size_t i = 0; i < panels_.size(); ++i) {
      panels_[i] = new QLabel(&widget_);
      panels_[i]->setTextFormat(Qt::PlainText);
      widget_.addWidget(panels_[i], i == 0 ? 3 : 1);  // messages get the larger part
    }
  }

  void Changed() override {
    Update();
    if (!widget_.isVisible()) return;
    for (QLabel* panel : panels_) panel->repaint();
  }

 private:
  void Show() override {
    for (std::size_t i = 0; i < panels_.size(); ++i) panels_[i]->setText(Text(control_.Panels[i]));
  }

  std::array<QLabel*, 2> panels_{};
};

}  // namespace

std::unique_ptr<View> MakeSimpleView(FormWindow& window, ui::Control& control) {
  return ui::MakeFirst<View, LabelView, FrameView, ButtonView, CheckView, OptionView, TextView, UpDownView, PictureView,
                       StatusView>(window, control);
}

}  // namespace formwizard::adapters::qt
