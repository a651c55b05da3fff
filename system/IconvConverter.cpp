#include "system/CodePageConverter.h"

#include <iconv.h>

#include <array>
#include <cerrno>

namespace formwizard::system {
namespace {

constexpr const char* Utf8 = "UTF-8";

std::string IconvName(int codePage) {
  if (codePage == 65001) return Utf8;
  if (codePage == 950) return "BIG5";
  return "CP" + std::to_string(codePage);
}

class IconvConverter : public CodePageConverter {
 public:
  explicit IconvConverter(iconv_t handle) : handle_(handle) {}
  ~IconvConverter() override { iconv_close(handle_); }
  IconvConverter(const IconvConverter&) = delete;
  IconvConverter& operator=(const IconvConverter&) = delete;

  void Convert(std::string_view& text, std::string& result) override {
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    std::array<char, 256> buffer{};
    bool isFull = true;
    while (isFull) {
      char* in = const_cast<char*>(text.data());
      std::size_t inLeft = text.size();
      isFull = Append(buffer, result,
                      [&](char** out, std::size_t* outLeft) { return iconv(handle_, &in, &inLeft, out, outLeft); });
      text.remove_prefix(text.size() - inLeft);
    }
    // A letter that a mark could have followed is still kept back.
    Append(buffer, result,
           [&](char** out, std::size_t* outLeft) { return iconv(handle_, nullptr, nullptr, out, outLeft); });
  }

 private:
  // True when the buffer was too small for all.
  template <typename Call>
  static bool Append(std::array<char, 256>& buffer, std::string& result, Call&& call) {
    char* out = buffer.data();
    std::size_t outLeft = buffer.size();
    const bool isFull = call(&out, &outLeft) == static_cast<std::size_t>(-1) && errno == E2BIG;
    result.append(buffer.data(), buffer.size() - outLeft);
    return isFull;
  }

  iconv_t handle_;
};

std::unique_ptr<CodePageConverter> Make(const std::string& to, const std::string& from) {
  const iconv_t handle = iconv_open(to.c_str(), from.c_str());
  if (handle == reinterpret_cast<iconv_t>(-1)) return nullptr;
  return std::make_unique<IconvConverter>(handle);
}

}  // namespace

std::unique_ptr<CodePageConverter> MakeEncoder(int codePage) { return Make(IconvName(codePage), Utf8); }
std::unique_ptr<CodePageConverter> MakeDecoder(int codePage) { return Make(Utf8, IconvName(codePage)); }

}  // namespace formwizard::system
