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

// Reads up to where the code begins.
class Reader {
 public:
  explicit Reader(std::string_view text) : lines_(text) {}

  // Without the tree where that is not asked for; then the document says nothing of it.
  Document Read(bool withTree) {
    document_.Kind = Kind();
    if (document_.Kind == FileKind::Unknown || document_.Kind == FileKind::Project) {
      throw Fault{0, "\"VERSION\" or \"Attribute VB_Name\""};
    }
    if (document_.Kind != FileKind::Module) ReadHead(withTree);
    document_.Attributes.First = at_;
    while (lines_.Has(at_) && BeginsWith(Text(), "Attribute") && WordOf(Text(), 1).starts_with("VB_")) ++at_;
    document_.Attributes.Behind = at_;
    document_.CodeLines = {at_, at_};
    document_.Lines = lines_.Take();
    document_.Lines.resize(at_);
    return std::move(document_);
  }

 private:
  std::string_view Text() const { return lines_.TextAt(at_); }

  FileKind Kind() {
    for (std::size_t line = 0; lines_.Has(line) && WordOf(lines_.TextAt(line), 0).empty();) ++line;
    return KindOfText(lines_.SoFar());
  }

  void ReadHead(bool withTree) {
    while (lines_.Has(at_) && !BeginsWith(Text(), "Begin")) {
      if (BeginsWith(Text(), "Attribute")) break;
      ++at_;
    }
    if (!lines_.Has(at_)) throw Fault{at_, "\"Begin\""};
    document_.Head = {0, at_};
    if (!BeginsWith(Text(), "Begin")) return;  // a class of an old version
    if (withTree) {
      document_.Root = HeaderAt(lines_, at_);
      at_ = document_.Root->Lines.Behind;
    } else {
      at_ = EndOfHeaderAt(lines_, at_);
    }
  }

  GrowingLines lines_;
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

std::size_t StartOfCode(const Document& document) {
  return TextOf(document.Lines, {0, document.CodeLines.First}).size();
}

Document DocumentWithoutCode(std::string_view text) { return Reader(text).Read(true); }

std::size_t StartOfCode(std::string_view text) { return StartOfCode(Reader(text).Read(false)); }

void ReadCode(std::string_view text, Document& document) {
  AppendLines(text.substr(StartOfCode(document)), document.Lines);
  document.CodeLines.Behind = document.Lines.size();
  document.Code = ModuleOf(document.Lines, document.CodeLines.First);
}

Document DocumentOf(std::string_view text) {
  Document document = DocumentWithoutCode(text);
  ReadCode(text, document);
  return document;
}

}  // namespace formwizard::vbtext
