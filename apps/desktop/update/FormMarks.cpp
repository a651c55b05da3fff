#include "apps/desktop/update/FormMarks.h"

#include "apps/desktop/basics/Icons.h"
#include "apps/desktop/basics/Theme.h"
#include "vbtext/Tokens.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <array>

namespace formwizard::apps::desktop {
namespace {

constexpr int Around = 3, SignSide = 14;

// In the order of the kinds.
constexpr std::array<std::pair<const char*, QRgb>, 5> Looks{{{"conflict", 0xFFD64545},
                                                             {"added", 0xFF2F9E57},
                                                             {"changed", 0xFFC47A0B},
                                                             {"removed", 0xFFD64545},
                                                             {"edited", 0xFFC47A0B}}};

const PlacedNode* Find(const std::vector<PlacedNode>& places, const std::string& name) {
  const auto found =
      std::ranges::find_if(places, [&](const PlacedNode& each) { return vbtext::IsSameName(each.Node->Name, name); });
  return found == places.end() ? nullptr : &*found;
}

}  // namespace

ChangeLook LookOf(ChangeKind kind) {
  const auto& [icon, colour] = Looks.at(static_cast<std::size_t>(kind));
  return {icon, QColor(colour)};
}

FormMarks::FormMarks(FormView& view) : QWidget(&view.Canvas()), view_(view) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  view.Canvas().installEventFilter(this);
  resize(view.Canvas().size());
}

void FormMarks::Show(const std::vector<FormChange>& controls, const adapters::vb6files::FormNode* before) {
  marks_.clear();
  const std::vector<PlacedNode> were = before ? PlacesOf(*before) : std::vector<PlacedNode>();
  for (const FormChange& each : controls) {
    if (MakesRoom(each)) continue;
    const PlacedNode* place = Find(each.Kind == ChangeKind::Gone ? were : view_.Canvas().Places(), each.Control);
    if (place && place->Container != PlacedNode::None && !place->Seen.isEmpty())
      marks_.push_back({each.Kind, place->Place});
  }
  update();
}

// As the canvas places the form itself.
QRectF FormMarks::OnWidget(const QRect& place) const {
  const double scale = view_.Scale();
  const QPoint corner = view_.Canvas().PlaceOnWidget(0).topLeft();
  const QPoint inPicture = place.topLeft() - view_.Canvas().Places().front().Place.topLeft();
  return QRectF(corner + QPointF(inPicture) * scale, QSizeF(place.size()) * scale)
      .adjusted(-Around, -Around, Around, Around);
}

void FormMarks::paintEvent(QPaintEvent*) {
  if (!view_.Canvas().Form()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const Mark& mark : marks_) {
    const ChangeLook look = LookOf(mark.Kind);
    const QRectF place = OnWidget(mark.Place);
    QColor fill = look.Colour;
    constexpr int faint = 38, hatched = 150;
    fill.setAlpha(mark.Kind == ChangeKind::Gone ? hatched : faint);
    painter.setPen(QPen(look.Colour, 2));
    painter.setBrush(QBrush(fill, mark.Kind == ChangeKind::Gone ? Qt::BDiagPattern : Qt::SolidPattern));
    painter.drawRoundedRect(place, 2, 2);
  }
  for (const Mark& mark : marks_) {  // no sign is below a frame
    const QPointF corner = OnWidget(mark.Place).topRight() - QPointF(SignSide, SignSide) / 2;
    IconNamed(LookOf(mark.Kind).Icon).paint(&painter, QRect(corner.toPoint(), QSize(SignSide, SignSide)));
  }
}

bool FormMarks::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Resize) resize(view_.Canvas().size());
  return false;
}

}  // namespace formwizard::apps::desktop
