// The least that a program can do for the same forms: it reads the same descriptions and dictionary, prepares the same
// files aside and moves them into place, but fills a template in between.
// Usage: reference-program TEMPLATE DICTIONARY PROJECT.vbp FORM.json...
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <nlohmann/json.hpp>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

void Check(bool isGood, const std::string& what) {
  if (isGood) return;
  std::fprintf(stderr, "%s\n", what.c_str());
  std::exit(1);
}

std::string ReadFile(const std::string& path) {
  std::string text;
  const int file = open(path.c_str(), O_RDONLY);
  struct stat status {};
  Check(file >= 0 && fstat(file, &status) == 0, path);
  text.resize(static_cast<std::size_t>(status.st_size));
  Check(read(file, text.data(), text.size()) == status.st_size && close(file) == 0, path);
  return text;
}

void WriteNewFile(const std::string& path, const std::string& text) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0666);
  Check(file >= 0 && write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size()), path);
  Check(fsync(file) == 0 && close(file) == 0, path);
}

// Text with numbered gaps: "{0}".
class Template {
 public:
  explicit Template(const std::string& text) {
    std::size_t begin = 0;
    for (std::size_t at = 0; (at = text.find('{', at)) != std::string::npos;) {
      char* end = nullptr;
      const std::size_t gap = std::strtoul(text.c_str() + at + 1, &end, 10);
      const auto behind = static_cast<std::size_t>(end - text.c_str());
      if (behind == at + 1 || *end != '}') {  // a GUID
        ++at;
        continue;
      }
      parts_.push_back({text.substr(begin, at - begin), gap});
      at = begin = behind + 1;
    }
    end_ = text.substr(begin);
  }

  std::string Filled(const std::vector<std::string>& values) const {
    std::string text;
    text.reserve(32768);
    for (const auto& [before, gap] : parts_) text.append(before).append(values[gap]);
    return text.append(end_);
  }

 private:
  std::vector<std::pair<std::string, std::size_t>> parts_;
  std::string end_;
};

class Dictionary {
 public:
  explicit Dictionary(const std::string& path) {
    Check(sqlite3_open_v2(path.c_str(), &file_, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK, path);
    Check(sqlite3_prepare_v2(file_,
                             "SELECT name FROM properties WHERE class = "
                             "(SELECT id FROM classes WHERE system = 1 AND name = ?1) ORDER BY position",
                             -1, &properties_, nullptr) == SQLITE_OK,
          path);
  }
  std::vector<std::string> PropertiesOf(const std::string& className) {
    std::vector<std::string> names;
    sqlite3_reset(properties_);
    sqlite3_bind_text(properties_, 1, className.c_str(), -1, SQLITE_STATIC);
    while (sqlite3_step(properties_) == SQLITE_ROW) {
      names.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(properties_, 0)));
    }
    return names;
  }

 private:
  sqlite3* file_ = nullptr;
  sqlite3_stmt* properties_ = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
  Check(argc >= 5, "usage: reference-program TEMPLATE DICTIONARY PROJECT.vbp FORM.json...");
  const std::string source = argv[1], project = argv[3], folder = project.substr(0, project.rfind('/') + 1);
  const std::string aside = project + ".new/";
  const Template form(ReadFile(source + ".frm")), projectFile(ReadFile(source + ".vbp"));
  Dictionary dictionary(argv[2]);
  std::unordered_map<std::string, int> forms;  // by their names without a number
  std::vector<std::string> names;
  Check(mkdir(aside.c_str(), 0777) == 0, aside);
  for (int i = 4; i < argc; ++i) {
    const auto description = nlohmann::json::parse(ReadFile(argv[i]));
    const auto className = description.at("class").get<std::string>();
    const std::vector<std::string> properties = dictionary.PropertiesOf(className);
    const std::string caption = className.substr(className.find('.') + 1);
    const int number = ++forms[caption];
    names.push_back("frm" + caption + (number == 1 ? "" : std::to_string(number)));
    std::vector<std::string> values{names.back(), className, caption};
    for (const auto& field : description.at("fields")) {
      values.push_back(field.get<std::string>());
      Check(std::ranges::find(properties, values.back()) != properties.end(), values.back());
    }
    WriteNewFile(aside + std::to_string(i), form.Filled(values));
  }
  std::string items;
  for (std::size_t i = 1; i < names.size(); ++i) items.append("Form=").append(names[i]).append(".frm\r\n");
  WriteNewFile(aside + "project", projectFile.Filled({items}));
  for (int i = 4; i < argc; ++i) {
    const std::string name = folder + names[static_cast<std::size_t>(i - 4)] + ".frm";
    Check(renameat2(AT_FDCWD, (aside + std::to_string(i)).c_str(), AT_FDCWD, name.c_str(), RENAME_NOREPLACE) == 0,
          name);
  }
  Check(rename((aside + "project").c_str(), project.c_str()) == 0 && rmdir(aside.c_str()) == 0, project);
}
