#include "apps/desktop/code/CodeHighlighter.h"

#include <QStringView>

#include <algorithm>
#include <array>

namespace formwizard::apps::desktop {
namespace {

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

using Formats = QList<QTextLayout::FormatRange>;

// Adds the coloured parts of a line that stands at `offset`. `isComment` says whether the line before goes on in it as
// a comment, and then whether this one does so in the next.
void ColorLine(QStringView line, qsizetype offset, const CodeColors& colors, bool& isComment, Formats& formats) {
  const auto color = [&](qsizetype start, qsizetype end, const QColor& foreground) {
    QTextCharFormat format;
    format.setForeground(foreground);
    formats.push_back({static_cast<int>(offset + start), static_cast<int>(end - start), format});
  };
  bool isMember = false;  // the word behind a dot is a name, whatever it says
  bool isStatementStart = true;
  qsizetype at = 0;
  while (at < line.size() && !isComment) {
    if (line[at].isSpace()) {
      isMember = false;
      ++at;
      continue;
    }
    const Token token = TokenAt(line, at);
    const QStringView word = line.sliced(at, token.End - at);
    const bool isWord = token.What == Kind::Word;
    isComment =
        token.What == Kind::Comment || (isWord && isStatementStart && word.compare(u"Rem", Qt::CaseInsensitive) == 0);
    if (isComment) break;
    if (token.What == Kind::Text) color(at, token.End, colors.Text);
    if (token.What == Kind::Number) color(at, token.End, colors.Number);
    if (isWord && !isMember && IsKeyword(word)) color(at, token.End, colors.Keyword);
    isMember = word == u"." || word == u"!";
    isStatementStart = word == u":";
    at = token.End;
  }
  if (isComment) color(at, line.size(), colors.Comment);
  isComment = isComment && line.endsWith(u" _");
}

Formats ColorLines(QStringView text, const CodeColors& colors, bool& isComment) {
  Formats formats;
  qsizetype offset = 0;
  for (const QStringView line : text.tokenize(QChar(QChar::LineSeparator))) {
    ColorLine(line, offset, colors, isComment, formats);
    offset += line.size() + 1;
  }
  return formats;
}

// Whether a comment goes on behind the paragraph. The environment allows one of 25 lines, so that it is enough to look
// back until a line is none of these.
bool EndsInComment(const QTextBlock& paragraph, const CodeColors& colors) {
  const auto goesOn = [](const QTextBlock& block) { return block.text().endsWith(u" _"); };
  if (!goesOn(paragraph)) return false;
  QTextBlock start = paragraph;
  for (int lines = 1; lines < 25 && goesOn(start.previous()); ++lines) start = start.previous();
  bool isComment = false;
  for (; start != paragraph.next(); start = start.next()) ColorLines(start.text(), colors, isComment);
  return isComment;
}

}  // namespace

CodeColors CodeColors::Light() {
  return {QColor(0x00, 0x00, 0xC0), QColor(0x00, 0x78, 0x00), QColor(0xA0, 0x20, 0x20), QColor(0x80, 0x50, 0x00)};
}
CodeColors CodeColors::Dark() {
  return {QColor(0x70, 0xB0, 0xFF), QColor(0x80, 0xC8, 0x80), QColor(0xF0, 0xA8, 0x80), QColor(0xE0, 0xC8, 0x70)};
}

QList<QTextLayout::FormatRange> ColoursOf(const QTextBlock& paragraph, const CodeColors& colors) {
  bool isComment = EndsInComment(paragraph.previous(), colors);
  return ColorLines(paragraph.text(), colors, isComment);
}

void CodeHighlighter::SetColors(const CodeColors& colors) {
  colors_ = colors;
  ++round_;
}

void CodeHighlighter::Highlight(QTextDocument& document, QTextBlock paragraph) const {
  if (paragraph.userState() == round_) return;
  paragraph.layout()->setFormats(ColoursOf(paragraph, colors_));
  paragraph.setUserState(round_);
  document.markContentsDirty(paragraph.position(), paragraph.length());  // to be laid out and drawn anew
}

}  // namespace formwizard::apps::desktop
