#include "apps/desktop/formview/FormPicture.h"

#include "apps/common/Endings.h"
#include "apps/desktop/formview/PictureFile.h"
#include "apps/desktop/formview/SvgPicture.h"
#include "support/Failures.h"
#include "tests/support/TemporaryFolder.h"

#include <QBuffer>
#include <QImageReader>
#include <QRegularExpression>
#include <QXmlStreamReader>

using namespace formwizard;
using namespace formwizard::adapters::vb6files;
using namespace formwizard::apps::desktop;
using namespace formwizard::tests;

namespace {

const std::string Foot = "End\nAttribute VB_Name = \"F\"\nAttribute VB_Exposed = False\n";
constexpr QRgb White = 0xFFFFFFFF, Face = 0xFFD4D0C8, Navy = 0xFF000080;

// A form of 200 x 100 pixels without a border.
FormNode Form(const std::string& lines, const std::string& frx = "") {
  return ReadFormTree(
             "x.frm",
             "VERSION 5.00\nBegin VB.Form F\nBorderStyle = 0\nClientWidth = 3000\nClientHeight = 1500\n" + lines + Foot,
             frx, system::CodePage(1252))
      .Form;
}

std::string Control(const std::string& className, const QRect& place, const std::string& more = "") {
  return "Begin " + className + " c\nLeft=" + std::to_string(place.left() * 15) +
         "\nTop=" + std::to_string(place.top() * 15) + "\nWidth=" + std::to_string(place.width() * 15) +
         "\nHeight=" + std::to_string(place.height() * 15) + "\n" + more + "End\n";
}

// The smallest rectangle that holds every pixel of a colour; null when there is none.
QRect AreaOf(const QImage& image, QRgb color) {
  QRect area;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) == color) area |= QRect(x, y, 1, 1);
    }
  }
  return area;
}

QImage Picture(const std::string& lines, bool showTabOrder = false) { return PictureOf(Form(lines), 1, showTabOrder); }

const std::string Yellow = "BackColor = &H0000FFFF&\nBorderStyle = 0\n";
constexpr QRgb YellowPixel = 0xFFFFFF00;

}  // namespace

TEST_CASE("The window around the form follows its border style and its title") {
  struct Case {
    const char* lines;
    QSize added;
  };
  for (const Case& c : {Case{"BorderStyle = 1\n", {6, 25}}, Case{"", {8, 27}}, Case{"BorderStyle = 4\n", {6, 22}},
                        Case{"BorderStyle = 1\nControlBox = 0\n", {6, 6}},
                        Case{"BorderStyle = 1\nControlBox = 0\nCaption = \"x\"\n", {6, 25}},
                        Case{"BorderStyle = 1\nBegin VB.Menu m\nCaption=\"a\"\nEnd\n", {6, 44}},
                        Case{"BorderStyle = 1\nBegin VB.Menu m\nCaption=\"a\"\nVisible = 0\nEnd\n", {6, 25}}}) {
    CAPTURE(c.lines);
    const std::string frm = "VERSION 5.00\nBegin VB.Form F\nClientWidth = 3000\nClientHeight = 1500\n";
    const FormNode form = ReadFormTree("x.frm", frm + c.lines + Foot, "", system::CodePage(1252)).Form;
    CHECK(PictureSize(form, 1) - QSize(200, 100) == c.added);
    CHECK(PictureSize(form, 2) == PictureSize(form, 1) * 2);
  }
}

TEST_CASE("Controls stand where their container puts them, and no further than it reaches") {
  const QRect place(10, 5, 30, 20);
  const std::string box = Control("VB.PictureBox", place, Yellow);
  CHECK(AreaOf(Picture(box), YellowPixel) == place);
  const QImage text = Picture(Control("VB.TextBox", place));
  CHECK(text.pixel(place.center()) == White);
  CHECK(place.contains(AreaOf(text, White)));
  // A frame's controls count from its corner, a picture box's from inside its border.
  CHECK(AreaOf(Picture(Control("VB.Frame", {50, 40, 100, 50}, "BorderStyle = 0\n" + box)), YellowPixel) ==
        place.translated(50, 40));
  CHECK(AreaOf(Picture(Control("VB.PictureBox", {50, 40, 100, 50}, box)), YellowPixel) == place.translated(52, 42));
  CHECK(AreaOf(Picture(Control("VB.Frame", {50, 40, 20, 15}, "BorderStyle = 0\n" + box)), YellowPixel) ==
        QRect(60, 45, 10, 10));
}

TEST_CASE("Lines run between their ends in the units of their container, shapes fill their place in their own way") {
  const QRect drawn(20, 10, 40, 20);
  const std::string inTwips = "Begin VB.Line l\nBorderColor=&H0000FFFF&\nX1=300\nY1=150\nX2=900\nY2=450\nEnd\n";
  for (const auto& [scale, ends] :
       {std::pair{"", "X1=300\nY1=150\nX2=900\nY2=450\n"},
        std::pair{"ScaleMode=3\nScaleWidth=200\nScaleHeight=100\n", "X1=20\nY1=10\nX2=60\nY2=30\n"},
        std::pair{"ScaleMode=0\nScaleLeft=-50\nScaleTop=10\nScaleWidth=100\nScaleHeight=50\n",
                  "X1=-40\nY1=15\nX2=-20\nY2=25\n"}}) {
    CAPTURE(scale);
    const std::string line = "Begin VB.Line l\nBorderColor=&H0000FFFF&\n" + std::string(ends) + "End\n";
    CHECK(AreaOf(Picture(scale + line), YellowPixel) == drawn);
    // All else, and what stands on a frame, is in twips.
    CHECK(AreaOf(Picture(scale + Control("VB.PictureBox", drawn, Yellow)), YellowPixel) == drawn);
    CHECK(AreaOf(Picture(scale + Control("VB.Frame", {5, 5, 90, 90}, "BorderStyle=0\n" + inTwips)), YellowPixel) ==
          drawn.translated(5, 5));
  }

  struct Case {
    int shape;
    QRect area;
    bool isCornerDrawn;
  };
  const QRect wide(10, 20, 80, 40), middle(30, 20, 40, 40);
  for (const Case& c : {Case{0, wide, true}, Case{1, middle, true}, Case{2, wide, false}, Case{3, middle, false},
                        Case{4, wide, false}, Case{5, middle, false}}) {
    CAPTURE(c.shape);
    const auto picture = [&](const std::string& look) {
      return Picture(Control("VB.Shape", wide, "Shape = " + std::to_string(c.shape) + "\n" + look));
    };
    const QImage filled = picture("BorderColor = &H0000FFFF&\nFillStyle = 0\nFillColor = &H0000FFFF&\n");
    CHECK(AreaOf(filled, YellowPixel).adjusted(-2, -2, 2, 2).contains(c.area));
    CHECK(c.area.contains(AreaOf(filled, YellowPixel)));
    CHECK((filled.pixel(c.area.topLeft()) == YellowPixel) == c.isCornerDrawn);
    CHECK(picture("").pixel(wide.center()) == Face);  // transparent, and without a label
    CHECK(picture("BackStyle = 1\n").pixel(wide.center()) == White);
    CHECK(picture("BorderStyle = 0\n") == Picture(""));
    CHECK(AreaOf(picture("BorderStyle=0\nFillStyle=7\nFillColor=&H0000FFFF&\n"), YellowPixel).isValid());
  }
  // Windows are in front of what is drawn, wherever it stands in the file.
  const std::string shape = Control("VB.Shape", {0, 0, 200, 100}, "FillStyle = 0\n");
  CHECK(AreaOf(Picture(shape + Control("VB.PictureBox", wide, Yellow)), YellowPixel) == wide);
}

TEST_CASE("A control with tabs shows them, and the controls of the page in front") {
  const std::string tabs = "Tabs = 4\nTabsPerRow = 2\nTab = 1\nTabHeight = 529\nTabCaption(1) = \"b\"\n";
  const std::string page =
      Control("VB.PictureBox", {10, 50, 30, 20}, Yellow) + Control("VB.PictureBox", {10 - 5000, 75, 30, 20}, Yellow);
  const QRect place(0, 0, 180, 100);
  CHECK(AreaOf(Picture(Control("TabDlg.SSTab", place, tabs + page)), YellowPixel) == QRect(10, 50, 30, 20));
  const std::string strip =
      "BeginProperty Tabs\nNumTabs = 2\nBeginProperty Tab2\nCaption=\"b\"\nEndProperty\nEndProperty\n";
  const std::string bold = "BeginProperty Font\nWeight = 700\nSize = 12\nEndProperty\n";
  struct Case {
    std::string className, lines;
    int pageTop;    // where the page begins, seen at the right, beside the tabs
    QRect caption;  // of the second tab
  };
  for (const Case& c :
       {Case{"TabDlg.SSTab", tabs + "Style = 1\n", 40, {2, 20, 60, 20}},
        Case{"TabDlg.SSTab", "Tabs = 2\nTabCaption(1) = \"b\"\n", 20, {60, 0, 60, 20}},
        Case{"TabDlg.SSTab", "Style = 1\nTabOrientation = 1\nTabCaption(1) = \"b\"\n", 0, {2, 80, 60, 20}},
        Case{"MSComctlLib.TabStrip", strip + "Placement = 1\n", 0, {44, 70, 42, 30}},
        Case{"ComctlLib.TabStrip", strip + "TabWidthStyle = 2\nTabFixedHeight = 529\n", 22, {44, 0, 42, 22}}}) {
    CAPTURE(c.className + c.lines);
    const QImage image = Picture("BackColor = &H00FF0000&\n" + Control(c.className, place, c.lines + bold));
    int top = 0;
    while (image.pixel(170, top) != White && top < 99) ++top;  // the page's highlight
    CHECK(top == c.pageTop);
    const QRect ink = AreaOf(image, 0xFF000000);
    CHECK(ink.isValid());
    CHECK(c.caption.contains(ink));
  }
}

TEST_CASE("A text has the lines and the width that the environment gives it, whatever font is installed") {
  struct Case {
    int width, lines;  // of "Social Security No.", which is 90 pixels wide there, and 38 its longest word
    const char* alignment;
  };
  const auto picture = [](int width, const char* alignment) {
    const std::string caption = "Caption = \"Social Security No.\"\nAlignment = " + std::string(alignment) + "\n";
    return Picture(Control("VB.Label", {20, 10, width, 60}, caption));
  };
  for (const Case& c : {Case{90, 1, "0"}, Case{90, 1, "1"}, Case{87, 2, "0"}, Case{40, 3, "2"}}) {
    CAPTURE(c.width);
    const QImage image = picture(c.width, c.alignment);
    QSet<int> lines;  // each 13 pixels high
    for (int y = 10; y < 70; ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixel(x, y) != Face) lines << (y - 10) / 13;
      }
    }
    CHECK(lines.size() == c.lines);
  }
  CHECK(picture(90, "0") == picture(150, "0"));  // nothing is cut off
}

TEST_CASE("A picture of the companion file stands on its control, at the corner, stretched or above the caption") {
  QImage stored(10, 6, QImage::Format_RGB32);
  stored.fill(YellowPixel);
  QBuffer bytes;
  CHECK(stored.save(&bytes, "BMP"));
  const auto record = [](const std::string& file, std::size_t more) {
    std::string frx;
    for (const std::size_t number : {file.size() + more, std::size_t{0x746C}, file.size()}) {
      for (int shift = 0; shift < 32; shift += 8) frx += static_cast<char>(number >> shift);
    }
    return frx + file;
  };
  const std::string bmp = bytes.data().toStdString(), good = record(bmp, 8), at = "Picture = \"x.frx\":0000\n";
  struct Case {
    std::string Lines, Frx;
    QRect Seen;
  };
  for (const Case& c :
       {Case{at, good, {0, 0, 10, 6}}, Case{Control("VB.PictureBox", {20, 30, 50, 40}, at), good, {22, 32, 10, 6}},
        Case{Control("VB.PictureBox", {20, 30, 9, 40}, at), good, {22, 32, 5, 6}},
        Case{Control("VB.Image", {20, 30, 50, 40}, at), good, {20, 30, 10, 6}},
        Case{Control("VB.Image", {20, 30, 50, 40}, at + "Stretch=-1\n"), good, {20, 30, 50, 40}},
        Case{Control("VB.CommandButton", {20, 30, 50, 40}, at), good, {}},
        Case{Control("VB.CommandButton", {20, 30, 50, 40}, at + "Style=1\n"), good, {40, 47, 10, 6}},
        Case{Control("VB.CheckBox", {20, 30, 50, 40}, at + "Style=1\nCaption=\"x\"\n"), good, {40, 40, 10, 6}},
        Case{at, record(bmp, 9), {}}, Case{at, good.substr(0, 60), {}}, Case{at, record("no picture", 8), {}}}) {
    CAPTURE(c.Lines);
    CHECK(AreaOf(PictureOf(Form(c.Lines, c.Frx), 1, false), YellowPixel) == c.Seen);
  }
  // A toolbar has those of a list, by number or key; the list's records name the class of a picture first.
  const std::string pictureClass("\x04\x52\xE3\x0B\x91\x8F\xCE\x11\x9D\xE3\0\xAA\0\x4B\xB8\x51", 16);
  std::string listed = record(bmp, 24);
  listed.insert(4, pictureClass);
  const std::string list =
      "Begin MSComctlLib.ImageList il\nBeginProperty Images\nNumListImages=1\nBeginProperty ListImage1\n" + at +
      "Key=\"k\"\nEndProperty\nEndProperty\n";
  for (const char* button : {"ImageIndex=1\n", "ImageKey=\"k\"\n", "ImageKey=\"other\"\n"}) {
    const std::string bar = "ImageList=\"il\"\nBeginProperty Buttons\nNumButtons=1\nBeginProperty Button1\n" +
                            std::string(button) + "EndProperty\nEndProperty\n";
    for (const char* mask : {"", "MaskColor=65535\n"}) {
      const std::string lines = list + mask + "End\n" + Control("MSComctlLib.Toolbar", {0, 0, 200, 30}, bar);
      const bool isSeen = !Has(button, "other") && *mask == 0;
      CHECK(AreaOf(PictureOf(Form(lines, listed), 1, false), YellowPixel) == (isSeen ? QRect(7, 10, 10, 6) : QRect()));
    }
  }
  const FormNode form = Form(at, good);
  SvgPicture svg(PictureSize(form, 1), "");
  QPainter painter(&svg);
  DrawForm(painter, form, {});
  painter.end();
  CHECK(svg.Document().contains("<image x=\"0\" y=\"0\" width=\"10\" height=\"6\""));
}

TEST_CASE("Common controls and grids have the parts that the file tells of") {
  constexpr QRgb shadow = 0xFF808080;
  const auto part = [](const std::string& group, const std::string& lines) {
    return "BeginProperty " + group + "\n" + lines + "EndProperty\n";
  };
  // Two columns and a row are fixed.
  CHECK(AreaOf(Picture(Control("MSFlexGridLib.MSFlexGrid", {0, 10, 200, 80}, "Rows=3\nCols=3\nFixedCols=2\n" + Yellow)),
               YellowPixel) == QRect(130, 28, 63, 31));
  // A panel that takes what the other leaves of 198 pixels; 1270 hundredths of a millimetre are 48 of them.
  const std::string panels =
      part("Panels", "NumPanels=2\n" + part("Panel1", "AutoSize=1\n") + part("Panel2", "Object.Width=1270\n"));
  const QImage status = Picture(Control("MSComctlLib.StatusBar", {0, 50, 200, 20}, panels));
  CHECK(AreaOf(status.copy(2, 60, 198, 1), shadow) == QRect(148, 0, 1, 1));
  // A button, a separator of 8 pixels and a pressed button behind it.
  const std::string buttons = part(
      "Buttons", "NumButtons=3\n" + part("Button1", "") + part("Button2", "Style=3\n") + part("Button3", "Value=1\n"));
  const QImage bar = Picture(Control("MSComctlLib.Toolbar", {0, 0, 200, 30}, buttons));
  CHECK(AreaOf(bar.copy(0, 12, 200, 1), White) == QRect(0, 0, 54, 1));
  CHECK(AreaOf(bar.copy(0, 12, 200, 1), shadow) == QRect(22, 0, 10, 1));
  const auto tabs = [&](const std::string& more) {
    return AreaOf(Picture(Control(
                      "TabDlg.SSTab", {0, 0, 120, 90},
                      "TabHeight=1587\nTabCaption(0)=\"Some Words\"\n" + more + part("Font", "Weight=700\nSize=12\n"))),
                  0xFF000000)
        .height();
  };
  CHECK(tabs("") > tabs("WordWrap=0\n") + 10);
}

TEST_CASE("What is not seen at run time is not drawn") {
  const QImage empty = Picture("");
  CHECK(Picture(Control("VB.PictureBox", {0, 0, 50, 50}, Yellow + "Visible = 0  'False\n")) == empty);
  CHECK(Picture(Control("VB.Frame", {0, 0, 90, 90}, "Visible=0\n" + Control("VB.TextBox", {1, 1, 9, 9}))) == empty);
  const std::string dialog = "Begin MSComDlg.CommonDialog d\nLeft = 0\nTop = 0\n_ExtentX = 847\nEnd\n";
  CHECK(Picture(dialog) == empty);
  QImage image = empty;
  QPainter painter(&image);
  DrawForm(painter, Form(dialog), {.ShowInvisible = true});
  painter.end();
  CHECK_FALSE(image == empty);
  // The first control in the file is in front.
  const std::string blue = "BackColor = &H00FF0000&\nBorderStyle = 0\n";
  CHECK(
      AreaOf(Picture(Control("VB.PictureBox", {0, 0, 50, 50}, blue) + Control("VB.PictureBox", {0, 0, 50, 50}, Yellow)),
             YellowPixel)
          .isNull());
}

TEST_CASE("Colours are the system's by number or blue, green, red") {
  const auto pixel = [](const std::string& color) { return Picture("BackColor = " + color + "\n").pixel(5, 5); };
  CHECK(pixel("&H00102030&") == 0xFF302010);
  CHECK(pixel("&H80000005&") == White);
  CHECK(pixel("-2147483633") == Face);
}

TEST_CASE("Numbers of the tab order stand on what takes the focus, on request only") {
  const std::string lines = Control("VB.TextBox", {20, 10, 60, 22}, "TabIndex = 4\n") +
                            Control("VB.Label", {20, 60, 60, 22}, "TabIndex = 3\n") +
                            Control("VB.TextBox", {120, 60, 60, 22}, "TabIndex = 5\nTabStop = 0\n");
  CHECK(AreaOf(Picture(lines), Navy).isNull());
  const QRect badge = AreaOf(Picture(lines, true), Navy);
  CHECK(badge.topLeft() == QPoint(20, 10));
  CHECK(QRect(20, 10, 60, 22).contains(badge));
  // It is the control's own index: the last of one digit, the first of two.
  const auto width = [](const char* index) {
    return AreaOf(Picture(Control("VB.TextBox", {9, 9, 90, 22}, std::string("TabIndex = ") + index), true), Navy)
        .width();
  };
  CHECK(width("9\n") < width("10\n"));
  CHECK(width("8\n") == width("9\n"));
}

TEST_CASE("However large a form says it is, its picture fits into memory") {
  for (const char* size : {"ClientWidth = 1e300\n", "ClientWidth = 9999999\nClientHeight = 9999999\n",
                           "ClientWidth = -5\nClientHeight = 0\n"}) {
    CAPTURE(size);
    const FormNode form =
        ReadFormTree("x.frm", std::string("VERSION 5.00\nBegin VB.Form F\n") + size + Foot, "", system::CodePage(1252))
            .Form;
    for (const double scale : {1.0, 50.0, 0.0}) {
      const QSize pixels = PictureSize(form, scale);
      CHECK(pixels.width() > 0);
      CHECK(pixels.width() <= 16384);
      CHECK(pixels.width() * static_cast<double>(pixels.height()) < 50e6);
    }
  }
  CHECK_FALSE(Picture(Control("VB.TextBox", {0, 0, 1, 1}, "Left = 1e300\nWidth = -1e300\nFont.Size = 1e9\n")).isNull());
}

TEST_CASE("A form becomes a PNG file, a damaged form or a folder that is not there is an error by name") {
  TemporaryFolder folder;
  const std::string good = SourceFolder() + "/samples/library/frmAbout.frm";
  RenderToFile(good, folder / "about.png", 1252);
  CHECK(QImageReader(QString::fromStdString(folder / "about.png")).size() == QSize(289 + 6, 129 + 25));

  WriteFile(folder / "bad.frm", "VERSION 5.00\nBegin VB.Form F\nCaption\nEnd\n");
  CHECK_THROWS_WITH_AS(RenderToFile(folder / "bad.frm", folder / "bad.png", 1252),
                       doctest::Contains((folder / "bad.frm:3").c_str()), support::InputError);
  CHECK_THROWS_AS(RenderToFile(folder / "none.frm", folder / "bad.png", 1252), support::InputError);
  CHECK_THROWS_WITH_AS(RenderToFile(good, folder / "none/x.png", 1252),
                       doctest::Contains((folder / "none/x.png").c_str()), support::SaveError);
  CHECK_THROWS_AS(RenderToFile(good, folder / "x.gif", 1252), apps::common::UsageError);
  CHECK(FilesIn(folder.Path()).size() == 2);
}

TEST_CASE("As SVG a form has its size, its texts and what cuts them off, and everything that it refers to") {
  TemporaryFolder folder;
  std::string lines = "Caption = \"<a>&b\001\"\n";
  for (const char* style : {"0", "1", "2", "3", "4", "5", "6", "7"}) {
    lines +=
        Control("VB.Shape", {0, 0, 40, 40}, std::string("Shape = 5\nBorderStyle = 3\nFillStyle = ") + style + "\n");
  }
  lines += Control("VB.VScrollBar", {0, 0, 16, 90}) + Control("VB.OptionButton", {0, 0, 90, 20}) +
           Control("VB.Image", {0, 0, 90, 20}) +
           Control("VB.Frame", {10, 10, 80, 40}, Control("VB.Label", {50, 20, 99, 15}, "Caption = \"]]><&&'Long\"\n"));
  WriteFile(folder / "f.frm",
            "VERSION 5.00\nBegin VB.Form F\nClientWidth = 3000\nClientHeight = 1500\n" + lines + Foot);
  RenderToFile(folder / "f.frm", folder / "f.Svg", 1252);
  const QString document = QString::fromStdString(ReadFile(folder / "f.Svg"));
  QXmlStreamReader xml(document);
  QStringList texts;
  for (; !xml.atEnd(); xml.readNext()) {
    if (xml.isCharacters() && !xml.isWhitespace()) texts << xml.text().toString();
  }
  CHECK_MESSAGE(!xml.hasError(), xml.errorString().toStdString());
  CHECK(texts.join('|').toStdString() == "<a>&b|<a>&b|]]><&'Long");
  const auto all = [&](const char* pattern) {
    QSet<QString> found;
    for (const auto& match : QRegularExpression(pattern).globalMatch(document)) found << match.captured(1);
    return found;
  };
  CHECK(all("svg [^>]* viewBox=\"0 0 ([^\"]*)") == QSet<QString>{"208 127"});
  CHECK(all("id=\"([^\"]*)").size() > 10);
  CHECK(all("id=\"([^\"]*)") == all("url\\(#([^)]*)"));
  CHECK(all("width=\"(\\d+)\" height=\"15\"/>\n</clipPath>") == QSet<QString>{"30"});  // what the frame leaves of 99
}
