#include "apps/forms/PropertyTree.h"

#include "model/ControlKinds.h"
#include "wizard/OfferedProperties.h"

#include <utility>

namespace formwizard::apps::forms {
namespace {

using runtime::Int16;
using wizard::OfferedKind;
using wizard::PropertyRow;
using wizard::factory::ObjectFactory;
using wizard::factory::ResultSet;

struct KindName {
  Int16 FieldKind;
  std::string_view Name;
};
constexpr model::KindTable<KindName> KindNames({{model::kind::TextBox, "text"},
                                                {model::kind::ReadOnlyLabel, "label"},
                                                {model::kind::ReferenceLabel, "reference"},
                                                {model::kind::ReferenceCombo, "combo"},
                                                {model::kind::ListBox, "list"},
                                                {model::kind::ListView, "array"},
                                                {model::kind::Picture, "picture"},
                                                {model::kind::MultiLine, "long-text"}});

// Goes through the properties of a class, and through those of each object among them.
class Walk {
 public:
  Walk(ObjectFactory& factory, bool all, const std::function<void(const TreeProperty&, ResultSet&)>& take)
      : factory_(factory), all_(all), take_(take) {}

  // `object` is the one whose class this is, null for the class itself.
  void Through(const std::string& className, const TreeProperty* object, Int16 objectKind) {
    const auto rows = factory_.ResultSet("%CompiledProperty", "PropertyInfo");
    rows->Execute({className});
    while (rows->Next()) Take(*rows, object, objectKind);
    rows->Close();
  }

 private:
  void Take(ResultSet& columns, const TreeProperty* object, Int16 objectKind) {
    const PropertyRow row(columns);
    const bool isOffered = wizard::IsOffered(row, object != nullptr);
    if (!isOffered && !all_) return;
    const OfferedKind kind = object ? wizard::KindInside(objectKind, row) : wizard::KindOf(row);
    const bool isObject = isOffered && wizard::IsNumber(row, "Datatype", 0);
    const TreeProperty property{
        (object ? object->Path + "." : "") + wizard::TextOrEmpty(row, "Name"),
        isObject    ? "object"
        : isOffered ? KindNames.Find(kind.FieldKind)->Name
                    : "none",
        wizard::TextOrEmpty(row, "Type"),
        (object ? object->Caption + " " : "") + wizard::TextOrEmpty(row, "Caption"),
        runtime::NumericValue(row[wizard::factory::PropertyColumn("MaxLen")]) == 0 ? ""
                                                                                   : wizard::TextOrEmpty(row, "MaxLen"),
        wizard::IsNumber(row, "Required", 1),
        wizard::IsNumber(row, "Editable", 0),
        object ? 1U : 0U,
        kind.RowsSetting ? settings::Settings().*kind.RowsSetting : Int16(1),
    };
    take_(property, columns);
    if (isObject) Through(property.Type, &property, kind.FieldKind);
  }

  ObjectFactory& factory_;
  bool all_;
  const std::function<void(const TreeProperty&, ResultSet&)>& take_;
};

}  // namespace

void ForEachProperty(ObjectFactory& factory, const std::string& className, bool all,
                     const std::function<void(const TreeProperty&, ResultSet&)>& take) {
  Walk(factory, all, take).Through(className, nullptr, model::kind::Free);
}

}  // namespace formwizard::apps::forms
