#include "vbtext/Header.h"

#include "runtime/Conversions.h"
#include "vbtext/Tokens.h"

#include <algorithm>

namespace formwizard::vbtext {
namespace {

// As runtime::Trimmed, for very many short texts.
std::string_view Trimmed(std::string_view text) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
  std::size_t first = 0, behind = text.size();
  while (first < behind && isBlank(text[first])) ++first;
  while (first < behind && isBlank(text[behind - 1])) --behind;
  return text.substr(first, behind - first);
}

// What a line is by its first word.
enum class Kind { Empty, Begin, End, BeginProperty, EndProperty, Other };

Kind KindOf(std::string_view line) {
  const std::string_view word = WordOf(line, 0);
  const auto is = [&](std::string_view wanted) { return runtime::EqualIgnoringCase(word, wanted); };
  switch (word.size()) {
    case 0:
      return Kind::Empty;
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

class Reader {
 public:
  Reader(const std::vector<Line>& lines, std::size_t at) : lines_(lines), at_(at) {}

  // From the line with "Begin" to the one with its "End".
  HeaderNode Node(int depth) {
    CheckDepth(depth);
    HeaderNode node{WordOf(Text(), 1), WordOf(Text(), 2), {at_, 0}, {}, {}};
    node.Properties.reserve(UsualProperties);
    for (Kind kind = Next("\"End\""); kind != Kind::End; kind = Next("\"End\"")) {
      if (kind == Kind::Begin) {
        if (WordOf(Text(), 2).empty()) throw Fault{at_, "a class and a name behind \"Begin\""};
        node.Children.push_back(Node(depth + 1));
      } else if (kind != Kind::Empty) {
        node.Properties.push_back(Property(depth, kind));
      }
    }
    node.Lines.Behind = at_ + 1;
    return node;
  }

 private:
  static constexpr std::size_t UsualProperties = 12;  // of a control

  std::string_view Text() const { return lines_[at_].Text; }

  Kind Next(std::string_view expected) {
    if (++at_ == lines_.size()) throw Fault{at_, std::string(expected)};
    return KindOf(Text());
  }

  void CheckDepth(int depth) const {
    if (depth > DeepestNesting) throw Fault{at_, "at most " + std::to_string(DeepestNesting) + " levels of nesting"};
  }

  HeaderProperty Property(int depth, Kind kind) {
    if (kind == Kind::BeginProperty) return Group(depth + 1);
    const std::string_view text = Text();
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) throw Fault{at_, "a property as \"Name = value\""};
    return {Trimmed(text.substr(0, equals)), WithoutComment(Trimmed(text.substr(equals + 1))), {at_, at_ + 1}, {}};
  }

  HeaderProperty Group(int depth) {
    CheckDepth(depth);
    HeaderProperty group{WordOf(Text(), 1), WordOf(Text(), 2), {at_, 0}, {}, true};
    for (Kind kind = Next("\"EndProperty\""); kind != Kind::EndProperty; kind = Next("\"EndProperty\"")) {
      if (kind != Kind::Empty) group.Members.push_back(Property(depth, kind));
    }
    group.Lines.Behind = at_ + 1;
    return group;
  }

  static std::string_view WithoutComment(std::string_view value) {
    std::size_t from = value.starts_with("$\"") ? 1 : 0;
    if (value.substr(from).starts_with('"')) {
      from += EndOfQuoted(value.substr(from));
    }
    return Trimmed(value.substr(0, value.find('\'', from)));
  }

  const std::vector<Line>& lines_;
  std::size_t at_;
};

}  // namespace

const HeaderProperty* HeaderNode::Find(std::string_view property) const {
  const auto found = std::ranges::find_if(
      Properties, [&](const HeaderProperty& p) { return runtime::EqualIgnoringCase(p.Name, property); });
  return found == Properties.end() ? nullptr : &*found;
}

HeaderNode HeaderAt(const std::vector<Line>& lines, std::size_t first) { return Reader(lines, first).Node(1); }

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
