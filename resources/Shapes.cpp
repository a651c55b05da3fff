#include "resources/Shapes.h"

#include <array>

namespace formwizard::resources {
namespace {

using enum Shape::Kind;

constexpr std::uint32_t Ink = 0x3C4654, Paper = 0xFFFFFF, Blue = 0x2F6FB5, PaleBlue = 0xD6E4F5, Green = 0x2E8B57,
                        Grey = 0xA8B0BA, Yellow = 0xF2C14E, DarkYellow = 0xB98A1F, Violet = 0x7A5BA8, Night = 0x1F3A5F,
                        Dusk = 0x2C5282, Sky = 0x4A7FBF;

constexpr std::array<Point, 4> Rectangle(float left, float top, float right, float bottom) {
  return {{{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
}
constexpr std::array<Point, 2> Between(float left, float top, float right, float bottom) {
  return {{{left, top}, {right, bottom}}};
}

// Pictures of 16 by 16 units.

constexpr auto ClassBox = Rectangle(2.5F, 3.5F, 13.5F, 12.5F), ClassHead = Rectangle(2.5F, 3.5F, 13.5F, 6.5F),
               ClassLine1 = Rectangle(4.5F, 8, 11.5F, 9), ClassLine2 = Rectangle(4.5F, 10, 9.5F, 11);
constexpr std::array Class{Shape{Polygon, Paper, Blue, ClassBox}, Shape{Polygon, Blue, Blue, ClassHead},
                           Shape{Polygon, Grey, NoOutline, ClassLine1}, Shape{Polygon, Grey, NoOutline, ClassLine2}};

constexpr auto Tick = std::array<Point, 6>{{{4, 8}, {5.5F, 6.5F}, {7.5F, 8.5F}, {11, 4}, {12.5F, 5.2F}, {7.5F, 11.5F}}};
constexpr auto Box = Rectangle(2.5F, 2.5F, 13.5F, 13.5F);
constexpr std::array Property{Shape{Polygon, Paper, Grey, Box}};
constexpr std::array SelectedProperty{Shape{Polygon, Paper, Green, Box}, Shape{Polygon, Green, NoOutline, Tick}};

constexpr auto DrumBody = Rectangle(3.5F, 4.5F, 12.5F, 11.5F);
constexpr auto DrumTop = Between(3.5F, 2.5F, 12.5F, 6.5F), DrumFoot = Between(3.5F, 9.5F, 12.5F, 13.5F),
               Lamp = Between(9, 9, 15, 15);
constexpr std::array NotConnected{Shape{Ellipse, PaleBlue, Ink, DrumFoot},
                                  Shape{Polygon, PaleBlue, NoOutline, DrumBody}, Shape{Ellipse, Paper, Ink, DrumTop}};
constexpr std::array Connected{Shape{Ellipse, Sky, Ink, DrumFoot}, Shape{Polygon, Sky, NoOutline, DrumBody},
                               Shape{Ellipse, PaleBlue, Ink, DrumTop}, Shape{Ellipse, Green, Paper, Lamp}};

constexpr auto BoxTop = std::array<Point, 4>{{{8, 1.5F}, {14, 4.5F}, {8, 7.5F}, {2, 4.5F}}};
constexpr auto BoxLeft = std::array<Point, 4>{{{2, 4.5F}, {8, 7.5F}, {8, 14.5F}, {2, 11.5F}}};
constexpr auto BoxRight = std::array<Point, 4>{{{14, 4.5F}, {8, 7.5F}, {8, 14.5F}, {14, 11.5F}}};
constexpr std::array Object{Shape{Polygon, 0xD9CDEB, Violet, BoxTop}, Shape{Polygon, 0xB7A3D6, Violet, BoxLeft},
                            Shape{Polygon, 0x9A80C4, Violet, BoxRight}};

constexpr auto FolderBack =
    std::array<Point, 6>{{{1.5F, 3.5F}, {6, 3.5F}, {7.5F, 5.5F}, {13.5F, 5.5F}, {13.5F, 13}, {1.5F, 13}}};
constexpr auto FolderFlap = std::array<Point, 4>{{{3.8F, 7.5F}, {15.3F, 7.5F}, {13.5F, 13}, {1.5F, 13}}};
constexpr std::array OpenPackage{Shape{Polygon, 0xFBE6B0, DarkYellow, FolderBack},
                                 Shape{Polygon, Yellow, DarkYellow, FolderFlap}};
constexpr std::array Package{Shape{Polygon, Yellow, DarkYellow, FolderBack}};

constexpr std::array Trees{Picture{16, 16, Class},        Picture{16, 16, Property},  Picture{16, 16, SelectedProperty},
                           Picture{16, 16, NotConnected}, Picture{16, 16, Connected}, Picture{16, 16, Object},
                           Picture{16, 16, OpenPackage},  Picture{16, 16, Package}};

// Pictures of 200 by 305 units: the server's drum, and the form that the wizard makes.

constexpr auto Ground = Rectangle(0, 0, 200, 305);
constexpr auto Hill = std::array<Point, 5>{{{0, 210}, {70, 160}, {200, 235}, {200, 305}, {0, 305}}};
constexpr auto Slope = std::array<Point, 4>{{{0, 262}, {200, 205}, {200, 305}, {0, 305}}};

constexpr auto Foot = Between(45, 160, 155, 210), Ring1 = Between(45, 100, 155, 150),
               Ring2 = Between(45, 130, 155, 180), Lid = Between(45, 65, 155, 115);
constexpr auto Barrel = Rectangle(45, 90, 155, 185);
constexpr auto Band1 = Rectangle(45, 95, 155, 122), Band2 = Rectangle(45, 126, 155, 152);
constexpr std::array Server{Shape{Polygon, Night, NoOutline, Ground}, Shape{Polygon, Dusk, NoOutline, Hill},
                            Shape{Polygon, Sky, NoOutline, Slope},    Shape{Ellipse, Sky, Paper, Foot},
                            Shape{Polygon, Sky, NoOutline, Barrel},   Shape{Ellipse, Sky, Paper, Ring2},
                            Shape{Polygon, Sky, NoOutline, Band2},    Shape{Ellipse, Sky, Paper, Ring1},
                            Shape{Polygon, Sky, NoOutline, Band1},    Shape{Ellipse, PaleBlue, Paper, Lid}};

constexpr auto Window = Rectangle(30, 70, 170, 200), Title = Rectangle(30, 70, 170, 88),
               Label1 = Rectangle(42, 104, 76, 110), Box1 = Rectangle(84, 99, 156, 115),
               Label2 = Rectangle(42, 130, 70, 136), Box2 = Rectangle(84, 125, 156, 141),
               Label3 = Rectangle(42, 156, 78, 162), Box3 = Rectangle(84, 151, 130, 167),
               Save = Rectangle(84, 178, 116, 191), Close = Rectangle(122, 178, 156, 191);
constexpr std::array Form{Shape{Polygon, Night, NoOutline, Ground}, Shape{Polygon, Dusk, NoOutline, Hill},
                          Shape{Polygon, Sky, NoOutline, Slope},    Shape{Polygon, 0xECEFF3, Paper, Window},
                          Shape{Polygon, Blue, Paper, Title},       Shape{Polygon, Grey, NoOutline, Label1},
                          Shape{Polygon, Paper, Grey, Box1},        Shape{Polygon, Grey, NoOutline, Label2},
                          Shape{Polygon, Paper, Grey, Box2},        Shape{Polygon, Grey, NoOutline, Label3},
                          Shape{Polygon, Paper, Grey, Box3},        Shape{Polygon, PaleBlue, Blue, Save},
                          Shape{Polygon, PaleBlue, Blue, Close}};

constexpr std::array Wizard{Picture{200, 305, Server}, Picture{200, 305, Form}};

const Picture* At(std::span<const Picture> pictures, int index) {
  return index < 1 || index > static_cast<int>(pictures.size()) ? nullptr
                                                                : &pictures[static_cast<std::size_t>(index) - 1];
}

}  // namespace

const Picture* TreePicture(int index) { return At(Trees, index); }
const Picture* WizardPicture(int index) { return At(Wizard, index); }

}  // namespace formwizard::resources
