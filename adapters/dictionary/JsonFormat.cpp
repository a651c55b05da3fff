#include "adapters/dictionary/JsonFormat.h"

#include <array>

namespace formwizard::adapters::dictionary {
namespace {

using wizard::factory::Table;

struct ArrayMember {
  std::string_view Key;
  Shape Array;
};

// One member a column of the table, then the arrays.
template <std::size_t ColumnCount, std::size_t ArrayCount>
constexpr auto Members(const std::array<wizard::factory::Column, ColumnCount>& columns,
                       const std::array<ArrayMember, ArrayCount>& arrays) {
  std::array<Member, ColumnCount + ArrayCount> members{};
  for (std::size_t i = 0; i < ColumnCount; ++i) {
    members[i] = {columns[i].Name, &columns[i], Shape::Root, columns[i].IsRequired()};
  }
  for (std::size_t i = 0; i < ArrayCount; ++i)
    members[ColumnCount + i] = {arrays[i].Key, nullptr, arrays[i].Array, false};
  return members;
}

// Names the schema of the document for editors, and belongs to no row.
constexpr wizard::factory::Column SchemaName{"$schema", wizard::factory::ColumnKind::Caption};

constexpr std::array RootMembers{Member{"systems", nullptr, Shape::Systems, true},
                                 Member{SchemaName.Name, &SchemaName, Shape::Root, false}};
constexpr auto SystemMembers =
    Members(wizard::factory::SystemColumns, std::array{ArrayMember{"classes", Shape::Classes}});
constexpr auto ClassMembers =
    Members(wizard::factory::ClassColumns,
            std::array{ArrayMember{"properties", Shape::Properties}, ArrayMember{"queries", Shape::Queries}});
constexpr auto PropertyMembers = Members(wizard::factory::PropertyColumns, std::array<ArrayMember, 0>{});
constexpr auto QueryMembers = Members(wizard::factory::QueryColumns, std::array{ArrayMember{"columns", Shape::Columns},
                                                                                ArrayMember{"params", Shape::Params}});

struct ShapeRow {
  Shape Of;
  std::span<const Member> Members;  // of an object
  std::optional<Shape> Element;     // of an array
  std::optional<Table> Rows;
};

constexpr std::array Shapes{
    ShapeRow{Shape::Root, RootMembers, {}, {}},
    ShapeRow{Shape::Systems, {}, Shape::System, {}},
    ShapeRow{Shape::System, SystemMembers, {}, Table::Systems},
    ShapeRow{Shape::Classes, {}, Shape::Class, {}},
    ShapeRow{Shape::Class, ClassMembers, {}, Table::Classes},
    ShapeRow{Shape::Properties, {}, Shape::Property, {}},
    ShapeRow{Shape::Property, PropertyMembers, {}, Table::Properties},
    ShapeRow{Shape::Queries, {}, Shape::Query, {}},
    ShapeRow{Shape::Query, QueryMembers, {}, Table::Queries},
    ShapeRow{Shape::Columns, {}, {}, Table::QueryColumns},
    ShapeRow{Shape::Params, {}, {}, Table::QueryParams},
};

constexpr const ShapeRow& RowOf(Shape shape) { return Shapes.at(static_cast<std::size_t>(shape)); }

}  // namespace

std::span<const Member> MembersOf(Shape shape) { return RowOf(shape).Members; }

std::optional<Table> TableOf(Shape shape) { return RowOf(shape).Rows; }

std::optional<Shape> ElementOf(Shape array) { return RowOf(array).Element; }

}  // namespace formwizard::adapters::dictionary
