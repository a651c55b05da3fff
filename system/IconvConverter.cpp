#include "system/CodePageConverter.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <span>

namespace formwizard::system {
namespace {

constexpr const char* Utf8 = "UTF-8";

std::string IconvName(int codePage) {
  if (codePage == 950) return "BIG5";
  return "CP" + std::to_string(codePage);
}

// The library writes these in code page 932 as similar ones: a yen sign as a backslash.
constexpr std::array<std::string_view, 9> ReplacedIn932{"\u00A2", "\u00A3", "\u00A5", "\u00AC", "\u2014",
                                                        "\u2016", "\u203E", "\u2212", "\u301C"};

class IconvConverter : public CodePageConverter {
 public:
  // Does not convert what is in `refused`.
  IconvConverter(iconv_t handle, std::span<const std::string_view> refused) : handle_(handle), refused_(refused) {}
  ~IconvConverter() override { iconv_close(handle_); }
  IconvConverter(const IconvConverter&) = delete;
  IconvConverter& operator=(const IconvConverter&) = delete;

  void Convert(std::string_view& text, std::string& result) override {
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    std::array<char, 256> buffer{};
    const char* const end = text.data() + LengthOfAllowed(text);
    bool isFull = true;
    while (isFull) {
      char* in = const_cast<char*>(text.data());
      auto inLeft = static_cast<std::size_t>(end - text.data());
      isFull = Append(buffer, result,
                      [&](char** out, std::size_t* outLeft) { return iconv(handle_, &in, &inLeft, out, outLeft); });
      text.remove_prefix(static_cast<std::size_t>(in - text.data()));
    }
    // A letter that a mark could have followed is still kept back.
    Append(buffer, result,
           [&](char** out, std::size_t* outLeft) { return iconv(handle_, nullptr, nullptr, out, outLeft); });
  }

 private:
  std::size_t LengthOfAllowed(std::string_view text) const {
    for (const std::string_view character : refused_) text = text.substr(0, text.find(character));
    return text.size();
  }

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
  std::span<const std::string_view> refused_;
};

std::unique_ptr<CodePageConverter> Make(const std::string& to, const std::string& from,
                                        std::span<const std::string_view> refused = {}) {
  const iconv_t handle = iconv_open(to.c_str(), from.c_str());
  if (handle == reinterpret_cast<iconv_t>(-1)) return nullptr;
  return std::make_unique<IconvConverter>(handle, refused);
}

}  // namespace

std::unique_ptr<CodePageConverter> MakeEncoder(int codePage) {
  if (codePage == 932) return Make(IconvName(codePage), Utf8, ReplacedIn932);
  return Make(IconvName(codePage), Utf8);
}
std::unique_ptr<CodePageConverter> MakeDecoder(int codePage) { return Make(Utf8, IconvName(codePage)); }

}  // namespace formwizard::system
