#include "adapters/journal/Journal.h"

#include <nlohmann/json.hpp>

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace formwizard::adapters::journal {
namespace {

namespace ide = generator::ide;
using Json = nlohmann::ordered_json;
using runtime::Int32;

class Writer {
 public:
  using Before = std::function<void(const std::string& line)>;

  Writer(std::ostream& out, Before before) : out_(out), before_(std::move(before)) {}

  // Carries the call out and writes its line afterwards, so that a result or an error can stand in it. `onResult` adds
  // what is only known then.
  template <std::invocable Call, typename OnResult>
  auto Note(Json line, Call&& call, OnResult&& onResult) {
    try {
      if (before_) before_(TextOf(line));
      auto result = std::forward<Call>(call)();
      onResult(line, result);
      Write(line);
      return result;
    } catch (const runtime::RuntimeError& error) {
      WriteError(line, error);
      throw;
    }
  }
  template <std::invocable Call>
  void Note(Json line, Call&& call) {
    Note(
        std::move(line),
        [&] {
          std::forward<Call>(call)();
          return 0;
        },
        [](Json&, int) {});
  }

 private:
  void WriteError(Json& line, const runtime::RuntimeError& error) {
    line["error"] = Json{{"number", error.Number()}, {"description", error.Description()}};
    Write(line);
  }
  static std::string TextOf(const Json& line) { return line.dump(-1, ' ', false, Json::error_handler_t::replace); }
  void Write(const Json& line) { out_ << TextOf(line) << '\n'; }

  std::ostream& out_;
  Before before_;
};

Json ValueOf(const ide::PropertyValue& value) {
  return std::visit(
      []<typename T>(T v) -> Json {
        if constexpr (std::is_same_v<T, std::string_view> || std::is_same_v<T, bool>) {
          return Json(v);
        } else {
          return Json(v.Value());
        }
      },
      value);
}

std::string_view TypeOf(const ide::PropertyValue& value) {
  constexpr std::string_view names[] = {"String", "Boolean", "Integer", "Long"};
  return names[value.index()];
}

class Control : public ide::VBControl {
 public:
  Control(Writer& writer, std::shared_ptr<ide::VBControl> inner) : writer_(writer), Inner(std::move(inner)) {}

  std::string Name() const override { return Inner->Name(); }
  void SetProperty(const ide::PropertyName& name, const ide::PropertyValue& value) override {
    Json line{{"call", "VBControl.Properties"}, {"control", Inner->Name()}, {"name", name.Text()}};
    if (!std::holds_alternative<std::string_view>(value)) line["type"] = TypeOf(value);
    line["value"] = ValueOf(value);
    writer_.Note(std::move(line), [&] { Inner->SetProperty(name, value); });
  }
  void SetContainer(const std::shared_ptr<ide::VBControl>& container) override;

 private:
  Writer& writer_;

 public:
  std::shared_ptr<ide::VBControl> Inner;
};

std::shared_ptr<ide::VBControl> Unwrapped(const std::shared_ptr<ide::VBControl>& control) {
  const auto own = std::dynamic_pointer_cast<Control>(control);
  return own ? own->Inner : control;
}

Json NameOrNull(const std::shared_ptr<ide::VBControl>& control) { return control ? Json(control->Name()) : Json(); }

void Control::SetContainer(const std::shared_ptr<ide::VBControl>& container) {
  writer_.Note(Json{{"call", "VBControl.Container"}, {"control", Inner->Name()}, {"container", NameOrNull(container)}},
               [&] { Inner->SetContainer(Unwrapped(container)); });
}

class Controls : public ide::VBControls {
 public:
  Controls(Writer& writer, std::shared_ptr<ide::VBControls> inner) : writer_(writer), inner_(std::move(inner)) {}

  Int32 Count() const override { return inner_->Count(); }
  std::shared_ptr<ide::VBControl> Add(std::string_view progId,
                                      const std::shared_ptr<ide::VBControl>& container) override {
    const auto added = writer_.Note(
        Json{{"call", "VBControls.Add"}, {"progId", progId}, {"container", NameOrNull(container)}},
        [&] { return inner_->Add(progId, Unwrapped(container)); },
        [](Json& line, const auto& control) { line["name"] = control->Name(); });
    return std::make_shared<Control>(writer_, added);
  }

 private:
  Writer& writer_;
  std::shared_ptr<ide::VBControls> inner_;
};

class Module : public ide::CodeModule {
 public:
  Module(Writer& writer, std::shared_ptr<ide::CodeModule> inner) : writer_(writer), inner_(std::move(inner)) {}

  Int32 CountOfLines() const override { return inner_->CountOfLines(); }
  void InsertLines(Int32 line, std::string_view text) override {
    writer_.Note(Json{{"call", "CodeModule.InsertLines"}, {"line", line.Value()}, {"text", text}},
                 [&] { inner_->InsertLines(line, text); });
  }
  Int32 CreateEventProc(std::string_view event, std::string_view object) override {
    return writer_.Note(
        Json{{"call", "CodeModule.CreateEventProc"}, {"event", event}, {"object", object}},
        [&] { return inner_->CreateEventProc(event, object); },
        [](Json& line, Int32 created) { line["line"] = created.Value(); });
  }

 private:
  Writer& writer_;
  std::shared_ptr<ide::CodeModule> inner_;
};

class Component : public ide::VBComponent {
 public:
  Component(Writer& writer, std::shared_ptr<ide::VBComponent> inner) : writer_(writer), inner_(std::move(inner)) {}

  std::string Name() const override { return inner_->Name(); }
  void SetName(std::string_view name) override {
    writer_.Note(Json{{"call", "VBComponent.Name"}, {"value", name}}, [&] { inner_->SetName(name); });
  }
  void SetProperty(const ide::PropertyName& name, const ide::PropertyValue& value) override {
    writer_.Note(Json{{"call", "VBComponent.Properties"},
                      {"name", name.Text()},
                      {"type", TypeOf(value)},
                      {"value", ValueOf(value)}},
                 [&] { inner_->SetProperty(name, value); });
  }
  std::shared_ptr<ide::VBControls> DesignerControls() override {
    std::shared_ptr<ide::VBControls> controls = inner_->DesignerControls();
    return controls ? std::make_shared<Controls>(writer_, std::move(controls)) : nullptr;
  }
  std::shared_ptr<ide::CodeModule> Code() override { return std::make_shared<Module>(writer_, inner_->Code()); }
  void Activate() override {
    writer_.Note(Json{{"call", "VBComponent.Activate"}}, [&] { inner_->Activate(); });
  }

 private:
  Writer& writer_;
  std::shared_ptr<ide::VBComponent> inner_;
};

class Environment : public ide::Vbe, public ide::VBProject, public ide::VBComponents {
 public:
  Environment(ide::Vbe& inner, std::ostream& out, Writer::Before before)
      : inner_(inner), writer_(out, std::move(before)) {}

  ide::VBProject& ActiveVBProject() override {
    inner_.ActiveVBProject();  // fails here when no project is open
    return *this;
  }
  ide::VBComponents& Components() override { return *this; }

  void AddToolboxProgID(std::string_view progId) override {
    writer_.Note(Json{{"call", "AddToolboxProgID"}, {"progId", progId}},
                 [&] { inner_.ActiveVBProject().AddToolboxProgID(progId); });
  }
  std::shared_ptr<ide::VBComponent> Find(std::string_view name) override {
    const auto found = Inner().Find(name);
    return found ? std::make_shared<Component>(writer_, found) : nullptr;
  }
  Int32 FirstFreeNumber(std::string_view stem) const override {
    return inner_.ActiveVBProject().Components().FirstFreeNumber(stem);
  }
  std::shared_ptr<ide::VBComponent> Add(ide::ComponentType type) override {
    const auto added = writer_.Note(
        Json{{"call", "VBComponents.Add"}, {"type", static_cast<int>(type)}}, [&] { return Inner().Add(type); },
        [](Json& line, const auto& component) { line["name"] = component->Name(); });
    return std::make_shared<Component>(writer_, added);
  }

 private:
  ide::VBComponents& Inner() { return inner_.ActiveVBProject().Components(); }

  ide::Vbe& inner_;
  Writer writer_;
};

}  // namespace

std::unique_ptr<generator::ide::Vbe> Journalled(generator::ide::Vbe& inner, std::ostream& out,
                                                std::function<void(const std::string& line)> before) {
  return std::make_unique<Environment>(inner, out, std::move(before));
}

}  // namespace formwizard::adapters::journal
