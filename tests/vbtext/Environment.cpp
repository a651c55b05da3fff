#include "tests/vbtext/Environment.h"

#include "vbtext/Companion.h"
#include "vbtext/Document.h"
#include "vbtext/Tokens.h"
#include "vbtext/Values.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <vector>

namespace formwizard::tests {
namespace {

using namespace vbtext;

bool Happens(std::mt19937& random, unsigned oneOf) { return random() % oneOf == 0; }

std::string Recased(std::string name, std::mt19937& random) {
  for (std::size_t i = 0; i < name.size(); ++i) {
    const bool isSecondHalf = i > 0 && static_cast<unsigned char>(name[i - 1]) >= 0x80;
    const auto letter = static_cast<unsigned char>(name[i]);
    if (letter < 0x80 && !isSecondHalf && Happens(random, 4)) {
      name[i] = static_cast<char>(std::islower(letter) ? std::toupper(letter) : std::tolower(letter));
    }
  }
  return name;
}

class Saver {
 public:
  Saver(const SavedForm& form, std::mt19937& random)
      : document_(DocumentOf(form.File)),
        companion_(document_.Root ? *document_.Root : HeaderNode{}, form.Records),
        random_(random) {}

  SavedForm Save() {
    WriteHead();
    if (document_.Root) WriteNode(*document_.Root, 0);
    for (std::size_t i = document_.Attributes.First; i < document_.Attributes.Behind; ++i) Write(Text(i));
    for (std::size_t i = document_.CodeLines.First; i < document_.CodeLines.Behind; ++i) WriteCode(Text(i));
    return saved_;
  }

 private:
  std::string Text(std::size_t line) const { return std::string(document_.Lines[line].Text); }
  void Write(const std::string& text) { saved_.File += text + "\r\n"; }

  void WriteHead() {
    std::vector<std::string> objects;
    for (std::size_t i = document_.Head.First; i < document_.Head.Behind; ++i) {
      if (BeginsWith(Text(i), "Object")) {
        objects.push_back(Recased(Text(i), random_));
      } else {
        Write(Text(i));
      }
    }
    std::ranges::shuffle(objects, random_);
    for (const std::string& object : objects) Write(object);
  }

  void WriteNode(const HeaderNode& node, std::size_t depth) {
    const std::string indent(3 * depth, ' ');
    Write(indent + "Begin " + std::string(node.Class) + " " + Recased(std::string(node.Name), random_) + " ");
    std::vector<const HeaderProperty*> properties;
    for (const HeaderProperty& property : node.Properties) {
      if (!IsLeftOut(property, node) || Happens(random_, 2)) properties.push_back(&property);
    }
    if (Happens(random_, 2)) std::ranges::shuffle(properties, random_);
    for (const HeaderProperty* property : properties) WriteProperty(*property, indent + "   ");
    if (!node.Find("Visible") && Happens(random_, 8)) Write(indent + "   Visible         =   -1  'True");
    for (const HeaderNode& child : node.Children) WriteNode(child, depth + 1);
    Write(indent + "End");
  }

  void WriteProperty(const HeaderProperty& property, const std::string& indent) {
    const std::string name(property.Name);
    if (property.IsGroup) {
      Write(indent + "BeginProperty " + name + " " + std::string(property.Value));
      for (const HeaderProperty& member : property.Members) WriteProperty(member, indent + "   ");
      return Write(indent + "EndProperty");
    }
    const std::string padding(name.size() < 16 ? 16 - name.size() : 0, ' ');
    Write(indent + (Happens(random_, 9) ? Recased(name, random_) : name) + padding + "=   " + ValueOf(property));
  }

  std::string ValueOf(const HeaderProperty& property) {
    const std::string value(property.Value);
    const auto isOneOf = [&](auto... names) { return ((property.Name == names) || ...); };
    if (isOneOf("Left", "Top", "Width", "Height") && Happens(random_, 2)) {
      return std::to_string(std::stoi(value) + static_cast<int>(random_() % 13) - 6);
    }
    if (isOneOf("TabIndex")) return std::to_string(3 * std::stoi(value) + 7);  // counted anew
    if (isOneOf("Size") && value == "8.25") return "8.4";
    if (const auto reference = ReferenceIn(value)) return Moved(*reference);
    return isOneOf("BorderStyle", "Alignment", "Style") ? value + "  'In the user's language" : value;
  }

  // The record stands somewhere else in the new companion.
  std::string Moved(const CompanionReference& reference) {
    std::array<char, 16> offset;
    const auto end = std::to_chars(offset.data(), offset.data() + offset.size(), saved_.Records.size(), 16).ptr;
    saved_.Records += companion_.RecordAt(reference.Offset).value();
    return (reference.IsText ? "$\"" : "\"") + Recased(std::string(reference.File), random_) +
           "\":" + std::string(offset.data(), end);
  }

  void WriteCode(const std::string& line) {
    if (Happens(random_, 20) && !goesOn_) Write("");
    const bool continues = inComment_;
    Tokenizer tokenizer;
    const std::vector<Token>& tokens = tokenizer.Read(line);
    const bool hasComment = continues || (!tokens.empty() && tokens.back().Kind == TokenKind::Comment);
    goesOn_ = tokenizer.GoesOn() || (hasComment && line.ends_with(" _"));
    inComment_ = hasComment && goesOn_;
    Write(continues ? line : Respelled(line, random_));
  }

  Document document_;
  Companion companion_;
  std::mt19937& random_;
  SavedForm saved_;
  bool inComment_ = false, goesOn_ = false;
};

}  // namespace

std::string Respelled(const std::string& line, std::mt19937& random) {
  Tokenizer tokenizer;
  std::string text;
  const auto blanks = [&] { return std::string(1 + random() % 3, Happens(random, 9) ? '\t' : ' '); };
  if (Happens(random, 2)) text += blanks();
  const std::vector<Token>& tokens = tokenizer.Read(line);
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const Token& token = tokens[i];
    const bool isMember = token.Text == "." || token.Text == "!";
    const bool isWord = token.Kind != TokenKind::Operator;
    const bool needsBlank =
        i > 0 && (isMember ? token.AfterBlank : isWord && tokens[i - 1].Kind != TokenKind::Operator);
    const bool mayHaveBlank = i > 0 && !isMember && tokens[i - 1].Text != "." && tokens[i - 1].Text != "!" &&
                              tokens[i - 1].Text != "#" && tokens[i - 1].Text != "&" && token.Text != "#";
    if (needsBlank || token.Kind == TokenKind::Continuation || (mayHaveBlank && Happens(random, 3)) ||
        (i > 0 && token.AfterBlank && !mayHaveBlank && !isMember)) {
      text += blanks();
    } else if (i > 0 && token.AfterBlank && std::string_view("&#").find(token.Text[0]) != std::string_view::npos) {
      text += ' ';
    }
    text += token.Kind == TokenKind::Name ? Recased(std::string(token.Text), random) : std::string(token.Text);
  }
  return Happens(random, 4) ? text + "  " : text;
}

SavedForm SavedAgain(const SavedForm& form, std::mt19937& random) { return Saver(form, random).Save(); }

}  // namespace formwizard::tests
