#include "vbtext/Header.h"

#include "runtime/Conversions.h"
#include "vbtext/Tokens.h"

#include <algorithm>
#include <cstring>

namespace formwizard::vbtext {
namespace {

// Lines are indented and names filled up with spaces, which are gone through in steps of four.
constexpr std::ptrdiff_t Step = 4;
bool IsStepOfBlanks(const char* at) { return std::memcmp(at, "    ", Step) == 0; }

const char* BehindBlanks(const char* first, const char* behind) {
  while (behind - first >= Step && IsStepOfBlanks(first)) first += Step;
  while (first < behind && IsBlank(*first)) ++first;
  return first;
}

// As runtime::Trimmed, for very many short texts.
std::string_view Trimmed(const char* first, const char* behind) {
  first = BehindBlanks(first, behind);
  while (behind - first >= Step && IsStepOfBlanks(behind - Step)) behind -= Step;
  while (first < behind && IsBlank(behind[-1])) --behind;
  return {first, static_cast<std::size_t>(behind - first)};
}
std::string_view Trimmed(std::string_view text) { return Trimmed(text.data(), text.data() + text.size()); }

// What a line is by its first word.
enum class Kind { Empty, Begin, End, BeginProperty, EndProperty, Other };

// Of a word that begins with a "B" or an "E", in any case; no other one tells anything.
Kind KindOf(std::string_view word) {
  const auto is = [&](std::string_view wanted) { return word == wanted || runtime::EqualIgnoringCase(word, wanted); };
  switch (word.size()) {
    case std::string_view("End").size():
      return is("End") ? Kind::End : Kind::Other;
    case std::string_view("Begin").size():
      return is("Begin") ? Kind::Begin : Kind::Other;
    case std::string_view("EndProperty").size():
      return is("EndProperty") ? Kind::EndProperty : Kind::Other;
    case std::string_view("BeginProperty").size():
      return is("BeginProperty") ? Kind::BeginProperty : Kind::Other;
    default:
      return Kind::Other;
  }
}

// Behind the quote that closes the text in front, as Unquoted has it.
std::size_t EndOfQuoted(std::string_view value) {
  for (std::size_t end = 1;; end += 2) {  // behind each doubled quote
    end = value.find('"', end);
    if (end == std::string_view::npos) return value.size();
    if (end + 1 == value.size() || value[end + 1] != '"') return end + 1;
  }
}

std::string_view WithoutBlanksBefore(std::string_view text) {
  const char *const behind = text.data() + text.size(), *const first = BehindBlanks(text.data(), behind);
  return {first, static_cast<std::size_t>(behind - first)};
}

// The first word of a text and what is behind it.
struct Split {
  std::string_view Word, Rest;
};
Split FirstWordOf(std::string_view text) {
  text = WithoutBlanksBefore(text);
  std::size_t behind = 0;
  while (behind < text.size() && !IsBlank(text[behind])) ++behind;
  return {text.substr(0, behind), text.substr(behind)};
}

// Goes from the line with "Begin" to the one with its "End".
class Reader {
 public:
  Reader(GrowingLines& lines, std::size_t at) : lines_(lines), at_(at), text_(FirstWordOf(lines.TextAt(at)).Rest) {}

  // Into `form`, or nowhere.
  void Read(HeaderNode* form) { ReadNode(form, WordsHere(), 1); }

  // Behind what was read.
  std::size_t Behind() const { return at_ + 1; }

 private:
  static constexpr std::size_t UsualProperties = 12;  // of a control

  // What stands behind the first word of a line that begins something.
  struct Words {
    std::string_view First, Second;
  };
  Words WordsHere() const {
    const Split first = FirstWordOf(text_);
    return {first.Word, FirstWordOf(first.Rest).Word};
  }

  void ReadNode(HeaderNode* node, const Words& words, int depth) {
    CheckDepth(depth);
    if (node) {
      node->Class = words.First;
      node->Name = words.Second;
      node->Lines.First = at_;
      node->Properties.reserve(UsualProperties);
    }
    for (Kind kind = Next("\"End\""); kind != Kind::End; kind = Next("\"End\"")) {
      if (kind == Kind::Begin) {
        const Words ofChild = WordsHere();
        if (ofChild.Second.empty()) throw Fault{at_, "a class and a name behind \"Begin\""};
        ReadNode(node ? &node->Children.emplace_back() : nullptr, ofChild, depth + 1);
      } else if (kind != Kind::Empty) {
        ReadProperty(node ? &node->Properties : nullptr, depth, kind);
      }
    }
    if (node) node->Lines.Behind = at_ + 1;
  }

  // Goes to the next line.
  Kind Next(std::string_view expected) {
    if (!lines_.Has(++at_)) throw Fault{at_, std::string(expected)};
    text_ = WithoutBlanksBefore(lines_.TextAt(at_));
    if (text_.empty()) return Kind::Empty;
    const char first = text_.front();
    const bool isTelling = first == 'B' || first == 'E' || first == 'b' || first == 'e';
    if (!isTelling) return Kind::Other;
    const Split words = FirstWordOf(text_);
    const Kind kind = KindOf(words.Word);
    if (kind != Kind::Other) text_ = words.Rest;
    return kind;
  }

  void CheckDepth(int depth) const {
    if (depth > DeepestNesting) throw Fault{at_, "at most " + std::to_string(DeepestNesting) + " levels of nesting"};
  }

  void ReadProperty(std::vector<HeaderProperty>* into, int depth, Kind kind) {
    if (kind == Kind::BeginProperty) return ReadGroup(into ? &into->emplace_back() : nullptr, depth + 1);
    // What begins or ends something else is a property here, too.
    const std::string_view text = kind == Kind::Other ? text_ : lines_.TextAt(at_);
    const void* const equals = text.empty() ? nullptr : std::memchr(text.data(), '=', text.size());
    if (!equals) throw Fault{at_, "a property as \"Name = value\""};
    if (!into) return;
    const char* const value = static_cast<const char*>(equals) + 1;
    HeaderProperty& property = into->emplace_back();
    property.Name = Trimmed(text.data(), value - 1);
    property.Value = WithoutComment(Trimmed(value, text.data() + text.size()));
    property.Lines = {at_, at_ + 1};
  }

  void ReadGroup(HeaderProperty* group, int depth) {
    CheckDepth(depth);
    if (group) {
      const Words words = WordsHere();
      *group = {words.First, words.Second, {at_, 0}, {}, true};
    }
    for (Kind kind = Next("\"EndProperty\""); kind != Kind::EndProperty; kind = Next("\"EndProperty\"")) {
      if (kind != Kind::Empty) ReadProperty(group ? &group->Members : nullptr, depth, kind);
    }
    if (group) group->Lines.Behind = at_ + 1;
  }

  static std::string_view WithoutComment(std::string_view value) {
    std::size_t from = value.starts_with("$\"") ? 1 : 0;
    if (value.substr(from).starts_with('"')) {
      from += EndOfQuoted(value.substr(from));
    }
    const std::size_t comment = value.find('\'', from);
    return comment == std::string_view::npos ? value : Trimmed(value.substr(0, comment));
  }

  GrowingLines& lines_;
  std::size_t at_;
  std::string_view text_;  // of the line there, from its first word on, or behind it where it begins or ends something
};

}  // namespace

const HeaderProperty* HeaderNode::Find(std::string_view property) const {
  const auto found = std::ranges::find_if(
      Properties, [&](const HeaderProperty& p) { return runtime::EqualIgnoringCase(p.Name, property); });
  return found == Properties.end() ? nullptr : &*found;
}

HeaderNode HeaderAt(GrowingLines& lines, std::size_t first) {
  HeaderNode form;
  Reader(lines, first).Read(&form);
  return form;
}

std::size_t EndOfHeaderAt(GrowingLines& lines, std::size_t first) {
  Reader reader(lines, first);
  reader.Read(nullptr);
  return reader.Behind();
}

std::string_view WordOf(std::string_view line, int n) {
  for (auto rest = line.begin();; --n) {
    const auto start = std::find_if_not(rest, line.end(), IsBlank);
    rest = std::find_if(start, line.end(), IsBlank);
    if (n == 0) return {start, rest};
  }
}

bool BeginsWith(std::string_view line, std::string_view word) {
  return runtime::EqualIgnoringCase(WordOf(line, 0), word);
}

std::string Unquoted(std::string_view value, std::size_t& end) {
  std::string text;
  for (end = 1; end < value.size(); ++end) {
    if (value[end] == '"' && (end + 1 == value.size() || value[end + 1] != '"')) break;
    if (value[end] == '"') ++end;
    text += value[end];
  }
  end = std::min(end + 1, value.size());
  return text;
}

}  // namespace formwizard::vbtext
