#include "apps/desktop/formview/TextLayout.h"

#include "adapters/textmeasure/FontWidths.h"
#include "apps/desktop/formview/ClassicLook.h"

#include <QFontMetricsF>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;

constexpr double DefaultPoints = 8.25;
constexpr double PixelsPerPoint = 96.0 / 72;
constexpr int DefaultPixels = 11;          // the default font's size, whose widths are known
constexpr double LineHeight = 13.0 / 11;   // of the default font, by its size
constexpr double Ascent = 11.0 / 13;       // by its line height
constexpr std::size_t LongestText = 4096;  // bytes: more than the largest control shows

bool IsDefaultFont(const FormNode& control) {
  const std::string name = control.Text("Font.Name");
  return name.empty() || name == "MS Sans Serif";
}

// The Font group, or the environment's default font, as far as it is installed.
QFont FontOf(const FormNode& control) {
  const QString own = ShownText(control.Text("Font.Name"));
  QStringList families{"Microsoft Sans Serif", "Arial", "Liberation Sans", "Helvetica", "DejaVu Sans"};
  if (!own.isEmpty() && own != "MS Sans Serif") families.prepend(own);
  QFont font;
  font.setFamilies(families);
  font.setStyleHint(QFont::SansSerif);
  font.setHintingPreference(QFont::PreferVerticalHinting);  // as wide at every scale
  const double points = std::clamp(control.Number("Font.Size", DefaultPoints), 1.0, 200.0);
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(points * PixelsPerPoint))));
  font.setBold(control.Number("Font.Weight", 400) >= 600);
  font.setItalic(control.Flag("Font.Italic"));
  font.setUnderline(control.Flag("Font.Underline"));
  font.setStrikeOut(control.Flag("Font.Strikethrough"));
  return font;
}

// The font of a control: what is drawn with, and what the environment measures.
class Measure {
 public:
  explicit Measure(const FormNode& control)
      : font_(FontOf(control)), metrics_(font_), isKnown_(IsDefaultFont(control)) {
    if (!isKnown_) return;
    // All texts are drawn as much narrower as the installed font is wider, which keeps its letters in proportion.
    const QString sample = "The quick brown fox jumps over the lazy dog";
    const int stretch = static_cast<int>(100 * WidthOf(sample) / metrics_.horizontalAdvance(sample));
    if (stretch >= 97 || stretch < 1) return;
    font_.setStretch(stretch);
    metrics_ = QFontMetricsF(font_);
  }

  int LineHeightInPixels() const {
    return static_cast<int>(std::lround(isKnown_ ? font_.pixelSize() * LineHeight : metrics_.height()));
  }
  double AscentInPixels() const { return isKnown_ ? std::round(LineHeightInPixels() * Ascent) : metrics_.ascent(); }

  double WidthOf(const QString& text) const {
    if (!isKnown_) return metrics_.horizontalAdvance(text);
    double width = 0;
    for (const char32_t character : text.toUcs4()) width += Advance(character);
    return width;
  }
  // The font with its letters as close together as a line needs that is to be no wider than it is in the environment.
  // That font is not always known: a line that is a little too long for its place is one that fits there.
  QFont FontFor(const QString& line, double place) const {
    constexpr double narrowest = 0.8;
    double room = WidthOf(line);
    if (!isKnown_ && room > place && place >= room * narrowest) room = place;
    QFont font = font_;
    const double tooMuch = metrics_.horizontalAdvance(line) - room;
    if (tooMuch <= 0) return font;
    const auto gaps = static_cast<double>(std::max<qsizetype>(line.size() - 1, 1));
    font.setLetterSpacing(QFont::AbsoluteSpacing, -tooMuch / gaps);
    return font;
  }

 private:
  // A bold letter of a bitmap font is a pixel wider.
  double Advance(char32_t character) const {
    return adapters::textmeasure::PixelsOf(character) * static_cast<double>(font_.pixelSize()) / DefaultPixels +
           (font_.bold() ? 1 : 0);
  }

  QFont font_;
  QFontMetricsF metrics_;
  bool isKnown_;
};

struct Line {
  QString Text;
  qsizetype AccessKey = -1;  // the character that is underlined
};

// An ampersand marks the next character, two are one that is shown.
Line Unmarked(const QString& text) {
  Line line;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == '&' && ++i == text.size()) break;
    if (i > 0 && text[i - 1] == '&' && text[i] != '&') line.AccessKey = line.Text.size();
    line.Text += text[i];
  }
  return line;
}

// The lines of one paragraph, broken behind blanks, or anywhere.
class Breaking {
 public:
  Breaking(const Measure& measure, double width, bool anywhere)
      : measure_(measure), width_(width), anywhere_(anywhere) {}

  void Append(const Line& paragraph, std::vector<Line>& lines) const {
    const QString& text = paragraph.Text;
    qsizetype start = 0;
    do {
      const qsizetype end = EndOfLine(text, start);
      Line line{text.mid(start, end - start), -1};
      if (paragraph.AccessKey >= start && paragraph.AccessKey < end) line.AccessKey = paragraph.AccessKey - start;
      while (line.Text.endsWith(' ')) line.Text.chop(1);
      lines.push_back(std::move(line));
      start = end;
    } while (start < text.size());
  }

 private:
  qsizetype EndOfLine(const QString& text, qsizetype start) const {
    double width = 0;
    qsizetype behindBlank = start;
    for (qsizetype i = start; i < text.size(); ++i) {
      width += measure_.WidthOf(text.mid(i, 1));
      if (text[i] == ' ') {
        behindBlank = i + 1;
      } else if (width > width_ && i > start) {
        if (behindBlank > start) return behindBlank;
        if (anywhere_) return i;
      }
    }
    return text.size();
  }

  const Measure& measure_;
  double width_;
  bool anywhere_;
};

std::vector<Line> LinesOf(const Measure& measure, const QString& text, int flags, double width) {
  std::vector<Line> lines;
  const auto marked = [&](const QString& paragraph) {
    return (flags & WithAccessKey) != 0 ? Unmarked(paragraph) : Line{paragraph};
  };
  QString whole = text;
  whole.replace("\r\n", "\n");
  if ((flags & Qt::TextSingleLine) != 0) return {marked(whole.replace('\n', ' '))};
  const bool breaks = (flags & (Qt::TextWordWrap | Qt::TextWrapAnywhere)) != 0;
  const Breaking breaking(measure, width, (flags & Qt::TextWrapAnywhere) != 0);
  for (const QString& paragraph : whole.split('\n')) {
    if (breaks) {
      breaking.Append(marked(paragraph), lines);
    } else {
      lines.push_back(marked(paragraph));
    }
  }
  return lines;
}

void DrawLine(QPainter& painter, const Measure& measure, const Line& line, const QRectF& place, int flags) {
  const QFont font = measure.FontFor(line.Text, place.width());
  const QFontMetricsF metrics(font);
  const double width = metrics.horizontalAdvance(line.Text) - font.letterSpacing();  // none behind the last letter
  double left = place.left();
  if ((flags & Qt::AlignRight) != 0) left = place.right() - width;
  if ((flags & Qt::AlignHCenter) != 0) left += (place.width() - width) / 2;
  const double baseline = place.top() + measure.AscentInPixels();
  painter.setFont(font);
  painter.drawText(QPointF(left, baseline), line.Text);
  if (line.AccessKey < 0) return;
  const double start = std::round(metrics.horizontalAdvance(line.Text.left(line.AccessKey)));
  const double end = std::round(metrics.horizontalAdvance(line.Text.left(line.AccessKey + 1)));
  painter.fillRect(QRectF(std::round(left) + start, baseline + 1, end - start, 1), painter.pen().color());
}

}  // namespace

QString ShownText(std::string_view utf8) {
  const std::string_view shown = utf8.substr(0, LongestText);
  return QString::fromUtf8(shown.data(), static_cast<qsizetype>(shown.size()));
}

QString WithoutMarks(const QString& text) { return Unmarked(text).Text; }

int WidthOfLine(const FormNode& control, std::string_view utf8) {
  return static_cast<int>(std::ceil(Measure(control).WidthOf(Unmarked(ShownText(utf8)).Text)));
}

int HeightOfLine(const FormNode& control) { return Measure(control).LineHeightInPixels(); }

void DrawText(QPainter& painter, const QRect& place, int flags, std::string_view utf8, const FormNode& control,
              std::uint32_t defaultColor) {
  if (place.isEmpty() || utf8.empty()) return;
  const Measure measure(control);
  // A place was rounded to whole pixels: one that is missing breaks no line.
  std::vector<Line> lines = LinesOf(measure, ShownText(utf8), flags, place.width() + 1);
  const int height = measure.LineHeightInPixels();
  const auto most = static_cast<std::size_t>(place.height() / height) + 1;
  if ((flags & Qt::AlignVCenter) == 0 && lines.size() > most) lines.resize(most);
  QRectF line = place;
  const double spare = place.height() - static_cast<double>(lines.size()) * height;
  if ((flags & Qt::AlignVCenter) != 0) line.setTop(std::floor(place.top() + spare / 2));
  painter.save();
  painter.setClipRect(place, Qt::IntersectClip);
  const bool enabled = control.Flag("Enabled", true);
  painter.setPen(enabled ? ColorOf(control, "ForeColor", defaultColor) : ColorOf(color::Shadow));
  for (const Line& each : lines) {
    DrawLine(painter, measure, each, line, flags);
    line.translate(0, height);
  }
  painter.restore();
}

}  // namespace formwizard::apps::desktop
