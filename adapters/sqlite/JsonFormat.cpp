#include "adapters/sqlite/JsonFormat.h"

#include <array>

namespace formwizard::adapters::sqlite {
namespace {

using enum MemberType;

constexpr Member NameMember(std::string_view key) { return {key, Name, "", 0, true, Shape::Root}; }
constexpr Member TextMember(std::string_view key, std::string_view standard) {
  return {key, Text, standard, 0, false, Shape::Root};
}
constexpr Member FlagMember(std::string_view key, std::int64_t standard) {
  return {key, Flag, "", standard, false, Shape::Root};
}
constexpr Member ArrayMember(std::string_view key, Shape shape) { return {key, Array, "", 0, false, shape}; }

constexpr std::array RootMembers{Member{"systems", Array, "", 0, true, Shape::Systems}};
constexpr std::array SystemMembers{NameMember("name"), NameMember("connect"), ArrayMember("classes", Shape::Classes)};
constexpr std::array ClassMembers{NameMember("Name"), FlagMember("System", 0), FlagMember("Persistent", 1),
                                  ArrayMember("properties", Shape::Properties), ArrayMember("queries", Shape::Queries)};
constexpr std::array PropertyMembers{
    NameMember("Name"),
    TextMember("Caption", "=Name"),
    TextMember("Type", "%Library.String"),
    FlagMember("Datatype", 1),
    FlagMember("Serial", 0),
    Member{"Collection", Collection, "", 0, false, Shape::Root},
    FlagMember("Required", 0),
    FlagMember("Editable", 1),
    Member{"MaxLen", Count, "", 0, false, Shape::Root},
};
constexpr std::array QueryMembers{NameMember("Name"), Member{"ContainId", Count, "", 1, false, Shape::Root},
                                  ArrayMember("columns", Shape::Names), ArrayMember("params", Shape::Names)};

}  // namespace

std::span<const Member> MembersOf(Shape shape) {
  switch (shape) {
    case Shape::Root:
      return RootMembers;
    case Shape::System:
      return SystemMembers;
    case Shape::Class:
      return ClassMembers;
    case Shape::Property:
      return PropertyMembers;
    case Shape::Query:
      return QueryMembers;
    case Shape::Systems:
    case Shape::Classes:
    case Shape::Properties:
    case Shape::Queries:
    case Shape::Names:
      break;
  }
  return {};
}

Shape ElementOf(Shape array) {
  switch (array) {
    case Shape::Systems:
      return Shape::System;
    case Shape::Classes:
      return Shape::Class;
    case Shape::Properties:
      return Shape::Property;
    default:
      return Shape::Query;
  }
}

}  // namespace formwizard::adapters::sqlite
