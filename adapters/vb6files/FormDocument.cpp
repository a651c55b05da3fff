#include "adapters/vb6files/FormDocument.h"

#include "adapters/vb6files/Values.h"
#include "runtime/Conversions.h"
#include "vbtext/Limits.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

using namespace generator::ide;

// Of a new form; the name is filled in when the form is written.
constexpr const char* NameAttribute = "Attribute VB_Name = \"\"\r\n";
constexpr const char* OtherAttributes =
    "Attribute VB_GlobalNameSpace = False\r\n"
    "Attribute VB_Creatable = False\r\n"
    "Attribute VB_PredeclaredId = True\r\n"
    "Attribute VB_Exposed = False\r\n";

// Not a byte of another editor's: nothing but ASCII, and all lines have their carriage return.
bool IsUntouched(std::string_view text) {
  return std::ranges::all_of(text, [before = '\0'](char c) mutable {
    const bool isUsual = static_cast<unsigned char>(c) < 0x80 && (c != '\n' || before == '\r');
    before = c;
    return isUsual;
  });
}

// From a place in the last line of so many bytes: most lines are stepped over.
bool HasLongLine(std::string_view code) {
  for (std::size_t start = 0; code.size() - start > vbtext::LongestLine;) {
    const std::size_t end = code.substr(start, vbtext::LongestLine + 1).rfind('\n');
    if (end == std::string_view::npos) return true;
    start += end + 1;
  }
  return false;
}

std::string ObjectLine(const ObjectReference& library) {
  return "Object = \"" + library.Id + "\"; \"" + library.File + "\"\r\n";
}

}  // namespace

std::size_t FindLine(std::string_view text, std::string_view line) {
  for (std::size_t at = text.find(line); at != std::string_view::npos; at = text.find(line, at + 1)) {
    const std::string_view behind = text.substr(at + line.size());
    const bool isWhole =
        (at == 0 || text[at - 1] == '\n') && (behind.empty() || behind.starts_with("\r\n") || behind.starts_with('\n'));
    if (isWhole) return at;
  }
  return std::string_view::npos;
}

FormDocument::FormDocument(FormHeader header, const system::CodePage& codePage, const ControlLibraries& libraries)
    : codePage_(codePage),
      libraries_(libraries),
      header_(std::move(header)),
      designer_(codePage, libraries, header_.ClientScale()) {}

std::shared_ptr<FormDocument> FormDocument::New(std::string_view name, const system::CodePage& codePage,
                                                const ControlLibraries& libraries) {
  std::shared_ptr<FormDocument> form(new FormDocument(FormHeader(name), codePage, libraries));
  form->name_ = name;
  form->headLines_.emplace_back("VERSION 5.00\r\n");
  for (const char* lines : {NameAttribute, OtherAttributes}) form->attributeLines_.emplace_back(lines);
  form->changed_ = form->wasEmpty_ = true;
  return form;
}

std::shared_ptr<FormDocument> FormDocument::Parse(const std::string& path, std::string frm, std::string_view frx,
                                                  const system::CodePage& codePage, const ControlLibraries& libraries) {
  FormParts parts = ReadForm(path, frm);
  // The companion file matters to a form that can be changed.
  const bool isUntouched = parts.ControlCount == 0 && IsUntouched(frm);
  FormHeader header(path, parts.ControlCount == 0 ? parts.Properties : std::vector<FormProperty>(), frm, frx);
  std::shared_ptr<FormDocument> form(new FormDocument(std::move(header), codePage, libraries));
  form->original_ = std::move(frm);
  form->originalFrx_ = frx;
  form->class_ = std::move(parts.Class);
  form->nameAsRead_ = form->name_ = std::move(parts.Name);
  form->headLines_ = std::move(parts.HeadLines);
  form->attributeLines_ = std::move(parts.AttributeLines);
  form->controlsAsRead_ = parts.ControlCount;
  if (parts.ControlCount == 0 && HoldsCode(parts.Code)) {
    form->holdsCodeAsRead_ = true;
    for (const std::string_view name : ProceduresIn(parts.Code)) form->proceduresAsRead_.emplace_back(name);
  }
  form->wasEmpty_ = isUntouched && !form->holdsCodeAsRead_;
  form->code_.Load(std::move(parts.Code));
  return form;
}

std::shared_ptr<FormDocument> FormDocument::Emptied(const std::string& path, std::string_view frm, std::string_view frx,
                                                    std::string_view codeBegins, const system::CodePage& codePage,
                                                    const ControlLibraries& libraries) {
  FormParts parts = ReadForm(path, frm);
  std::shared_ptr<FormDocument> form(
      new FormDocument(FormHeader(path, parts.Properties, frm, frx), codePage, libraries));
  form->class_ = std::move(parts.Class);
  form->nameAsRead_ = form->name_ = std::move(parts.Name);
  std::erase_if(parts.HeadLines, [](const std::string& line) { return line.starts_with("Object"); });
  form->headLines_ = std::move(parts.HeadLines);
  form->attributeLines_ = std::move(parts.AttributeLines);
  parts.Code.resize(std::min(FindLine(parts.Code, codeBegins), parts.Code.size()));
  form->code_.Load(std::move(parts.Code));
  return form;
}

void FormDocument::BeginChange() {
  if (changed_) return;
  if (controlsAsRead_ > 0 || class_ != "VB.Form") {
    runtime::Raise(runtime::AutomationError, "The form '" + Name() + "' is in use and is not changed");
  }
  changed_ = true;
  std::string().swap(original_);
  std::string().swap(originalFrx_);
}

std::string FormDocument::Name() const { return codePage_.Decode(name_); }

void FormDocument::SetName(std::string_view name) {
  CheckObjectName(name);
  std::string bytes = codePage_.Encode(name);
  BeginChange();
  name_ = std::move(bytes);
}

void FormDocument::SetProperty(const PropertyName& name, const PropertyValue& value) {
  BeginChange();
  header_.SetProperty(name, value, codePage_, designer_.HasMenuBar());
}

std::shared_ptr<VBControls> FormDocument::Controls() { return {shared_from_this(), this}; }

std::shared_ptr<CodeModule> FormDocument::Code() { return {shared_from_this(), this}; }

Int32 FormDocument::Count() const { return Int32(controlsAsRead_ + designer_.Count()); }

std::shared_ptr<VBControl> FormDocument::Add(std::string_view progId, const std::shared_ptr<VBControl>& container) {
  BeginChange();
  return {shared_from_this(), &designer_.Add(progId, OwnControl(container.get()))};
}

Int32 FormDocument::CountOfLines() const { return Int32(code_.CountOfLines()); }

void FormDocument::InsertLines(Int32 line, std::string_view text) {
  if (line < Int32(1)) runtime::Raise(runtime::SubscriptOutOfRange);
  std::string room;
  const std::string_view bytes = codePage_.Encoded(text, room);
  BeginChange();
  code_.Insert(static_cast<std::size_t>(line.Value()), bytes);
}

Int32 FormDocument::CreateEventProc(std::string_view event, std::string_view object) {
  BeginChange();
  std::string room;
  const std::string_view objectBytes = codePage_.Encoded(object, room);
  const bool isForm = runtime::EqualIgnoringCase(object, "Form");
  const Control* control = isForm ? nullptr : designer_.Find(objectBytes);
  const EventRow* row = nullptr;
  if (isForm || control) row = FindEvent(isForm ? classbit::Form : control->Class().Bit, event);
  const auto line = row ? code_.AppendHandler(objectBytes, event, row->Parameters) : std::nullopt;
  if (!line) {
    runtime::Raise(runtime::EventHandlerInvalid, "Event handler is invalid: " + std::string(object) + "_" +
                                                     std::string(event) +
                                                     (row                 ? " exists already"
                                                      : isForm || control ? ": there is no such event"
                                                                          : ": there is no such object"));
  }
  return Int32(*line);
}

// Libraries whose controls are on the form, in the order of the project.
void FormDocument::AppendHead(FormText& out) const {
  for (const std::string& line : headLines_) out += line;
  for (const ObjectReference& library : libraries_.InProjectOrder()) {
    if (!library.Library.empty() && designer_.UsesLibrary(library.Library)) out += ObjectLine(library);
  }
}

void FormDocument::AppendAttributes(FormText& out) const {
  for (const std::string& line : attributeLines_) {
    if (IsNameAttribute(line)) {
      out += "Attribute VB_Name = \"" + name_ + "\"\r\n";
    } else {
      out += line;
    }
  }
}

std::optional<KeptCode> FormDocument::CodeKept() const {
  if (!changed_ || !holdsCodeAsRead_) return std::nullopt;
  std::map<std::string, std::ptrdiff_t> added;  // procedures of a name, in lower case
  for (const std::string_view name : ProceduresIn(code_.Bytes())) ++added[runtime::LowerCase(name)];
  for (const std::string& name : proceduresAsRead_) --added[runtime::LowerCase(name)];
  KeptCode kept{codePage_.Decode(nameAsRead_), {}, {}};
  std::set<std::string> listed;
  for (const std::string& name : proceduresAsRead_) {
    const std::string key = runtime::LowerCase(name);
    if (!listed.insert(key).second) continue;  // another part of a property
    kept.Procedures.push_back(codePage_.Decode(name));
    if (added[key] > 0) kept.Doubled.push_back(kept.Procedures.back());
  }
  return kept;
}

bool FormDocument::IsWorthALook() const {
  return !wasEmpty_ || designer_.Count() > vbtext::MostControlNames || code_.CountOfLines() > vbtext::MostLines ||
         code_.HasNameTwice() || HasLongLine(code_.Bytes());
}

FormFiles FormDocument::Render(std::string_view stem) const {
  if (!changed_) return {original_, originalFrx_};
  FrxBuilder frx(stem);
  constexpr std::size_t ofControl = 400;  // bytes, of most
  FormText frm(code_.Bytes().size() + designer_.Count() * ofControl + 4096);
  AppendHead(frm);
  frm += "Begin " + class_ + " " + name_ + " \r\n";
  header_.AppendTo(frm, frx, designer_.HasMenuBar());
  designer_.AppendTo(frm, frx);
  frm += "End\r\n";
  AppendAttributes(frm);
  frm += code_.Bytes();
  return {std::move(frm).Text(), frx.Bytes()};
}

}  // namespace formwizard::adapters::vb6files
