// Short ways to write layouts down.
#pragma once

#include <QBoxLayout>
#include <QWidget>

#include <initializer_list>
#include <utility>

namespace formwizard::adapters::qt {

// What stands in a row or column, with its share of the room that is left; a null widget is empty room.
struct Part {
  Part(QWidget* widget, int stretch = 0) : Widget(widget), Stretch(stretch) {}  // NOLINT(google-explicit-constructor)
  Part(QLayout* layout, int stretch = 0) : Layout(layout), Stretch(stretch) {}  // NOLINT(google-explicit-constructor)
  static Part Room(int stretch = 1) { return {static_cast<QWidget*>(nullptr), stretch}; }

  QWidget* Widget = nullptr;
  QLayout* Layout = nullptr;
  int Stretch = 0;
};

template <typename Layout>
Layout* Filled(Layout* layout, std::initializer_list<Part> parts) {
  for (const Part& part : parts) {
    if (part.Widget) {
      layout->addWidget(part.Widget, part.Stretch);
    } else if (part.Layout) {
      layout->addLayout(part.Layout, part.Stretch);
    } else {
      layout->addStretch(part.Stretch);
    }
  }
  return layout;
}

inline QVBoxLayout* Column(std::initializer_list<Part> parts) { return Filled(new QVBoxLayout, parts); }
inline QHBoxLayout* Row(std::initializer_list<Part> parts) { return Filled(new QHBoxLayout, parts); }

}  // namespace formwizard::adapters::qt
