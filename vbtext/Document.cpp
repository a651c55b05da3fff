#include "vbtext/Document.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <array>

namespace formwizard::vbtext {
namespace {

struct Ending {
  std::string_view Text;
  FileKind Kind;
};
constexpr std::array Endings{
    Ending{".frm", FileKind::Form},   Ending{".ctl", FileKind::Form},    Ending{".pag", FileKind::Form},
    Ending{".dob", FileKind::Form},   Ending{".dsr", FileKind::Form},    Ending{".cls", FileKind::Class},
    Ending{".bas", FileKind::Module}, Ending{".vbp", FileKind::Project}, Ending{".mak", FileKind::Project}};

class Reader {
 public:
  explicit Reader(std::string_view text) {
    document_.Lines = LinesOf(text);
    document_.Kind = KindOfText(document_.Lines);
  }

  Document Read() {
    if (document_.Kind == FileKind::Unknown || document_.Kind == FileKind::Project) {
      throw Fault{0, "\"VERSION\" or \"Attribute VB_Name\""};
    }
    if (document_.Kind != FileKind::Module) ReadHead();
    document_.Attributes.First = at_;
    while (at_ < Count() && BeginsWith(Text(), "Attribute") && WordOf(Text(), 1).starts_with("VB_")) ++at_;
    document_.Attributes.Behind = at_;
    document_.CodeLines = {at_, Count()};
    return std::move(document_);
  }

 private:
  std::size_t Count() const { return document_.Lines.size(); }
  std::string_view Text() const { return document_.Lines[at_].Text; }

  void ReadHead() {
    while (at_ < Count() && !BeginsWith(Text(), "Begin")) {
      if (BeginsWith(Text(), "Attribute")) break;
      ++at_;
    }
    if (at_ == Count()) throw Fault{at_, "\"Begin\""};
    document_.Head = {0, at_};
    if (!BeginsWith(Text(), "Begin")) return;  // a class of an old version
    document_.Root = HeaderAt(document_.Lines, at_);
    at_ = document_.Root->Lines.Behind;
  }

  Document document_;
  std::size_t at_ = 0;
};

}  // namespace

FileKind KindOfName(std::string_view path) {
  const auto ending = std::ranges::find_if(Endings, [&](const Ending& e) {
    return path.size() > e.Text.size() && runtime::EqualIgnoringCase(path.substr(path.size() - e.Text.size()), e.Text);
  });
  return ending == Endings.end() ? FileKind::Unknown : ending->Kind;
}

FileKind KindOfText(const std::vector<Line>& lines) {
  const auto first = std::ranges::find_if(lines, [](const Line& l) { return !WordOf(l.Text, 0).empty(); });
  if (first == lines.end()) return FileKind::Unknown;
  if (BeginsWith(first->Text, "VERSION")) {
    return runtime::EqualIgnoringCase(WordOf(first->Text, 2), "CLASS") ? FileKind::Class : FileKind::Form;
  }
  if (BeginsWith(first->Text, "Attribute")) return FileKind::Module;
  return runtime::EqualIgnoringCase(first->Text.substr(0, 5), "Type=") ? FileKind::Project : FileKind::Unknown;
}

Document DocumentWithoutSections(std::string_view text) { return Reader(text).Read(); }

Document DocumentOf(std::string_view text) {
  Document document = Reader(text).Read();
  document.Code = ModuleOf(document.Lines, document.CodeLines.First);
  return document;
}

}  // namespace formwizard::vbtext
