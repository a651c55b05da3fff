#include "apps/desktop/CodeHighlighter.h"

#include <QStringView>

#include <algorithm>
#include <array>

namespace formwizard::apps::desktop {
namespace {

constexpr int CommentGoesOn = 1;  // block state: the next line belongs to this line's comment

// In alphabetical order.
constexpr std::array Keywords{
    u"addressof", u"alias",      u"and",        u"any",      u"appactivate", u"as",      u"base",       u"boolean",
    u"byref",     u"byte",       u"byval",      u"call",     u"case",        u"cbool",   u"cbyte",      u"ccur",
    u"cdate",     u"cdbl",       u"cdec",       u"cint",     u"clng",        u"close",   u"compare",    u"const",
    u"csng",      u"cstr",       u"currency",   u"cvar",     u"cverr",       u"date",    u"debug",      u"declare",
    u"defbool",   u"defint",     u"deflng",     u"defstr",   u"dim",         u"do",      u"double",     u"each",
    u"else",      u"elseif",     u"empty",      u"end",      u"endif",       u"enum",    u"eqv",        u"erase",
    u"error",     u"event",      u"exit",       u"explicit", u"false",       u"for",     u"friend",     u"function",
    u"get",       u"global",     u"gosub",      u"goto",     u"if",          u"imp",     u"implements", u"in",
    u"input",     u"integer",    u"is",         u"lbound",   u"let",         u"lib",     u"like",       u"line",
    u"lock",      u"long",       u"loop",       u"lset",     u"me",          u"mod",     u"new",        u"next",
    u"not",       u"nothing",    u"null",       u"object",   u"on",          u"open",    u"option",     u"optional",
    u"or",        u"output",     u"paramarray", u"preserve", u"print",       u"private", u"property",   u"public",
    u"put",       u"raiseevent", u"random",     u"read",     u"redim",       u"resume",  u"return",     u"rset",
    u"seek",      u"select",     u"set",        u"single",   u"static",      u"step",    u"stop",       u"string",
    u"sub",       u"then",       u"to",         u"true",     u"type",        u"typeof",  u"ubound",     u"unlock",
    u"until",     u"variant",    u"wend",       u"while",    u"width",       u"with",    u"withevents", u"write",
    u"xor"};
constexpr qsizetype LongestKeyword = 11;
static_assert(std::ranges::is_sorted(Keywords, {}, [](const char16_t* word) { return std::u16string_view(word); }));

bool IsKeyword(QStringView word) {
  if (word.size() > LongestKeyword) return false;
  const std::u16string lower = word.toString().toLower().toStdU16String();
  return std::ranges::binary_search(Keywords, std::u16string_view(lower), {},
                                    [](const char16_t* keyword) { return std::u16string_view(keyword); });
}

bool IsWordStart(QChar c) { return c.isLetter() || c == '_'; }
bool IsWordPart(QChar c) { return c.isLetterOrNumber() || c == '_'; }

// What stands at a place in a line: where it ends and what it is.
enum class Kind { Other, Word, Comment, Text, Number };
struct Token {
  Kind What;
  qsizetype End;
};

Token TokenAt(QStringView line, qsizetype start) {
  const QChar first = line[start];
  const auto end = [&](auto goesOn) {
    qsizetype at = start + 1;
    while (at < line.size() && goesOn(line[at])) ++at;
    return at;
  };
  if (first == '\'') return {Kind::Comment, line.size()};
  if (first == '"' || first == '[' || first == '#') {
    // A doubled quote ends one text and begins the next, in the same colour.
    const QChar last = first == '[' ? QChar(']') : first;
    const qsizetype close = line.indexOf(last, start + 1);
    if (first == '#' && close < 0) return {Kind::Other, start + 1};  // a file number
    const qsizetype stop = close < 0 ? line.size() : close + 1;
    return {first == '"' ? Kind::Text : first == '#' ? Kind::Number : Kind::Other, stop};
  }
  const bool hasNext = start + 1 < line.size();
  if (first.isDigit() || (first == '.' && hasNext && line[start + 1].isDigit()) ||
      (first == '&' && hasNext && (line[start + 1].toUpper() == 'H' || line[start + 1].toUpper() == 'O'))) {
    return {Kind::Number, end([](QChar c) { return c.isLetterOrNumber() || c == '.'; })};
  }
  if (IsWordStart(first)) return {Kind::Word, end(IsWordPart)};
  return {Kind::Other, start + 1};
}

}  // namespace

CodeColors CodeColors::Light() {
  return {QColor(0x00, 0x00, 0xC0), QColor(0x00, 0x78, 0x00), QColor(0xA0, 0x20, 0x20), QColor(0x80, 0x50, 0x00)};
}
CodeColors CodeColors::Dark() {
  return {QColor(0x70, 0xB0, 0xFF), QColor(0x80, 0xC8, 0x80), QColor(0xF0, 0xA8, 0x80), QColor(0xE0, 0xC8, 0x70)};
}

void CodeHighlighter::SetColors(const CodeColors& colors) {
  colors_ = colors;
  rehighlight();
}

void CodeHighlighter::highlightBlock(const QString& text) {
  const QStringView line(text);
  const auto comment = [&](qsizetype start) {
    setFormat(static_cast<int>(start), static_cast<int>(line.size() - start), colors_.Comment);
    setCurrentBlockState(line.endsWith(u" _") ? CommentGoesOn : 0);
  };
  setCurrentBlockState(0);
  if (previousBlockState() == CommentGoesOn) return comment(0);
  bool isMember = false;  // the word behind a dot is a name, whatever it says
  bool isStatementStart = true;
  for (qsizetype at = 0; at < line.size();) {
    if (line[at].isSpace()) {
      isMember = false;
      ++at;
      continue;
    }
    const Token token = TokenAt(line, at);
    const QStringView word = line.sliced(at, token.End - at);
    const bool isRemark =
        token.What == Kind::Word && isStatementStart && word.compare(u"Rem", Qt::CaseInsensitive) == 0;
    if (token.What == Kind::Comment || isRemark) return comment(at);
    const auto color = [&](const QColor& c) { setFormat(static_cast<int>(at), static_cast<int>(word.size()), c); };
    if (token.What == Kind::Text) color(colors_.Text);
    if (token.What == Kind::Number) color(colors_.Number);
    if (token.What == Kind::Word && !isMember && IsKeyword(word)) color(colors_.Keyword);
    isMember = word == u"." || word == u"!";
    isStatementStart = word == u":";
    at = token.End;
  }
}

}  // namespace formwizard::apps::desktop
