#include "adapters/vb6files/SaveRecord.h"

#include "system/Aside.h"

#include <charconv>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

constexpr std::string_view Head = "A save of this project is under way, or was cut off. Sums by words.\n";
constexpr std::string_view BytewiseHead = "A save of this project is under way, or was cut off.\n";  // with older sums
constexpr std::string_view SetHead = "Files of this project with the sums of their old and new contents.\n";
constexpr std::string_view Foot = "end\n";

// "SUM LENGTH PATH", because a path may hold anything.
void AppendLine(std::string& text, std::uint64_t sum, std::string_view path) {
  text += system::Hexadecimal(sum) + " " + std::to_string(path.size()) + " ";
  text.append(path).append("\n");
}

template <typename Number>
bool Take(std::string_view& text, Number& number, int base) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  if (error != std::errc() || !text.starts_with(' ')) return false;
  text.remove_prefix(1);
  return true;
}

// In a set "OLD SUM LENGTH PATH".
bool Take(std::string_view& text, SaveRecord::File& file, bool isOfSet = false) {
  std::size_t length = 0;
  if (isOfSet && !Take(text, file.Old, 16)) return false;
  if (!Take(text, file.Sum, 16) || !Take(text, length, 10)) return false;
  if (length >= text.size() || text[length] != '\n') return false;
  file.Path = text.substr(0, length);
  text.remove_prefix(length + 1);
  return true;
}

}  // namespace

std::string SaveRecord::Begin(std::uint64_t oldProject, std::uint64_t newProject) {
  std::string text(Head);
  AppendLine(text, oldProject, "");
  AppendLine(text, newProject, "");
  return text;
}

void SaveRecord::Append(std::string& text, const File& file) { AppendLine(text, file.Sum, file.Path); }

void SaveRecord::End(std::string& text) { text += Foot; }

std::string SaveRecord::OfSet(const std::vector<File>& files) {
  std::string text(SetHead);
  for (const File& file : files) {
    text += system::Hexadecimal(file.Old) + " ";
    AppendLine(text, file.Sum, file.Path);
  }
  End(text);
  return text;
}

namespace {

bool TakeFiles(std::string_view text, SaveRecord& record) {
  while (text != Foot) {
    if (!Take(text, record.Files.emplace_back(), record.IsSet)) return false;
  }
  return true;
}

}  // namespace

std::optional<SaveRecord> SaveRecord::Parse(std::string_view text) {
  SaveRecord record;
  if (text.starts_with(SetHead)) {
    record.IsSet = true;
    return TakeFiles(text.substr(SetHead.size()), record) ? std::optional(std::move(record)) : std::nullopt;
  }
  const bool isBytewise = text.starts_with(BytewiseHead);
  if (!isBytewise && !text.starts_with(Head)) return std::nullopt;
  text.remove_prefix(isBytewise ? BytewiseHead.size() : Head.size());
  if (isBytewise) record.Sum = system::BytewiseSum;
  File old, changed;
  if (!Take(text, old) || !Take(text, changed)) return std::nullopt;
  record.OldProject = old.Sum;
  record.NewProject = changed.Sum;
  return TakeFiles(text, record) ? std::optional(std::move(record)) : std::nullopt;
}

}  // namespace formwizard::adapters::vb6files
