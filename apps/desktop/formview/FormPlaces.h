// Where the parts of a form stand in its picture. Measures are pixels at 96 dots per inch, from the picture's corner.
#pragma once

#include "adapters/vb6files/FormTree.h"
#include "adapters/vb6files/Scale.h"

#include <QRect>

#include <cstddef>
#include <functional>
#include <vector>

namespace formwizard::apps::desktop {

// The window of a form and its parts; empty ones are not there.
struct WindowParts {
  explicit WindowParts(const adapters::vb6files::FormNode& form);

  QRect Outer, Caption, MenuBar, Client;
};

int BorderOfWindow(const adapters::vb6files::FormNode& form);
// Dialogs and tool windows have neither an icon nor buttons for their size.
bool IsFullWindow(const adapters::vb6files::FormNode& form);

// A wanted scale, or the largest at which the picture can be made.
double FittedScale(const adapters::vb6files::FormNode& form, double wanted);

struct MenuTitle {
  const adapters::vb6files::FormNode* Menu;
  QRect Place;
};
// Those that the menu bar has room for.
std::vector<MenuTitle> MenuTitlesOf(const adapters::vb6files::FormNode& form, const QRect& menuBar);

bool IsMenu(const adapters::vb6files::FormNode& node);
bool IsVisible(const adapters::vb6files::FormNode& node);

// Of a control whose container has this client area: in twips from its corner, whatever the scale of the container; a
// line in that scale.
QRect PlaceOf(const adapters::vb6files::FormNode& control, const adapters::vb6files::FormNode& container,
              const QRect& client);

struct LineEnds {
  QPoint From, To;
};
LineEnds EndsOf(const adapters::vb6files::FormNode& line, const adapters::vb6files::FormNode& container,
                const QRect& client);

// What stands on a container, from the back to the front: what is drawn on it, then what is a window.
void ForEachFromBack(const adapters::vb6files::FormNode& container,
                     const std::function<void(const adapters::vb6files::FormNode& child)>& action);

// A form, a control on it or a menu. `Seen` is what the containers leave of the place, empty for what is not seen.
struct PlacedNode {
  static constexpr std::size_t None = static_cast<std::size_t>(-1);

  const adapters::vb6files::FormNode* Node;
  std::size_t Container;  // its index; None for the form
  QRect Place, Seen;
};

// The form first, each container before what stands on it, the back before the front. They refer to the form.
std::vector<PlacedNode> PlacesOf(const adapters::vb6files::FormNode& form);

}  // namespace formwizard::apps::desktop
