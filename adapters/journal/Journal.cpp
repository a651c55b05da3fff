#include "adapters/journal/Journal.h"

#include "adapters/journal/Line.h"

#include <concepts>
#include <string>
#include <string_view>
#include <utility>

namespace formwizard::adapters::journal {
namespace {

namespace ide = generator::ide;
using runtime::Int32;

class Writer {
 public:
  using Before = std::function<void(const std::string& line)>;

  Writer(std::ostream& out, Before before) : out_(out), before_(std::move(before)) {}

  // The line of a call. There is one: no call is made while another is carried out.
  Line& Begin(const CallName& call) { return line_.Begin(call); }
  // Carries the call out and writes its line afterwards, so that a result or an error can stand in it. `onResult` adds
  // what is only known then.
  template <std::invocable Call, typename OnResult>
  auto Note(Line& line, Call&& call, OnResult&& onResult) {
    try {
      if (before_) before_(line.Text());
      auto result = std::forward<Call>(call)();
      onResult(line, result);
      Write(line);
      return result;
    } catch (const runtime::RuntimeError& error) {
      Write(line.AddError(error));
      throw;
    }
  }
  template <std::invocable Call>
  void Note(Line& line, Call&& call) {
    Note(
        line,
        [&] {
          std::forward<Call>(call)();
          return 0;
        },
        [](Line&, int) {});
  }

 private:
  void Write(Line& line) {
    const std::string_view text = line.End();
    out_.write(text.data(), static_cast<std::streamsize>(text.size()));
  }

  std::ostream& out_;
  Before before_;
  Line line_;
};

std::string_view TypeOf(const ide::PropertyValue& value) {
  constexpr std::string_view names[] = {"String", "Boolean", "Integer", "Long"};
  return names[value.index()];
}

class Control : public ide::VBControl {
 public:
  Control(Writer& writer, std::shared_ptr<ide::VBControl> inner) : writer_(writer), Inner(std::move(inner)) {}

  std::string Name() const override { return Inner->Name(); }
  void SetProperty(const ide::PropertyName& name, const ide::PropertyValue& value) override {
    Line& line = writer_.Begin("VBControl.Properties").Add("control", Inner->Name()).Add("name", name.Text());
    if (!std::holds_alternative<std::string_view>(value)) line.Add("type", TypeOf(value));
    line.AddValue("value", value);
    writer_.Note(line, [&] { Inner->SetProperty(name, value); });
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

void Control::SetContainer(const std::shared_ptr<ide::VBControl>& container) {
  writer_.Note(writer_.Begin("VBControl.Container").Add("control", Inner->Name()).Add("container", container),
               [&] { Inner->SetContainer(Unwrapped(container)); });
}

class Controls : public ide::VBControls {
 public:
  Controls(Writer& writer, std::shared_ptr<ide::VBControls> inner) : writer_(writer), inner_(std::move(inner)) {}

  Int32 Count() const override { return inner_->Count(); }
  std::shared_ptr<ide::VBControl> Add(std::string_view progId,
                                      const std::shared_ptr<ide::VBControl>& container) override {
    const auto added = writer_.Note(
        writer_.Begin("VBControls.Add").Add("progId", progId).Add("container", container),
        [&] { return inner_->Add(progId, Unwrapped(container)); },
        [](Line& line, const auto& control) { line.Add("name", control->Name()); });
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
    writer_.Note(writer_.Begin("CodeModule.InsertLines").Add("line", line.Value()).Add("text", text),
                 [&] { inner_->InsertLines(line, text); });
  }
  Int32 CreateEventProc(std::string_view event, std::string_view object) override {
    return writer_.Note(
        writer_.Begin("CodeModule.CreateEventProc").Add("event", event).Add("object", object),
        [&] { return inner_->CreateEventProc(event, object); },
        [](Line& line, Int32 created) { line.Add("line", created.Value()); });
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
    writer_.Note(writer_.Begin("VBComponent.Name").Add("value", name), [&] { inner_->SetName(name); });
  }
  void SetProperty(const ide::PropertyName& name, const ide::PropertyValue& value) override {
    writer_.Note(writer_.Begin("VBComponent.Properties")
                     .Add("name", name.Text())
                     .Add("type", TypeOf(value))
                     .AddValue("value", value),
                 [&] { inner_->SetProperty(name, value); });
  }
  std::shared_ptr<ide::VBControls> DesignerControls() override {
    std::shared_ptr<ide::VBControls> controls = inner_->DesignerControls();
    return controls ? std::make_shared<Controls>(writer_, std::move(controls)) : nullptr;
  }
  std::shared_ptr<ide::CodeModule> Code() override { return std::make_shared<Module>(writer_, inner_->Code()); }
  void Activate() override {
    writer_.Note(writer_.Begin("VBComponent.Activate"), [&] { inner_->Activate(); });
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
    writer_.Note(writer_.Begin("AddToolboxProgID").Add("progId", progId),
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
        writer_.Begin("VBComponents.Add").Add("type", static_cast<int>(type)), [&] { return Inner().Add(type); },
        [](Line& line, const auto& component) { line.Add("name", component->Name()); });
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
