// The code pages of text in drawings from before 2007.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace drawing::dxf {

// Code pages by number: as usual for the ANSI and DOS ones, 28590 + n for ISO 8859-n, 10000 for the Macintosh.
constexpr int kUtf8Page = 65001;

// The number for a name as drawings have it (ANSI_1252, dos437, gb2312, 8859_1 ...), of any case; 0 if it is unknown.
int codePageNumber(std::string_view name);
std::string codePageName(int number);

// One page, for one thread. ASCII is not its business: below 80 every page is taken to be ASCII.
class CodePage {
public:
  explicit CodePage(int number);
  CodePage(const CodePage&) = delete;
  CodePage& operator=(const CodePage&) = delete;
  ~CodePage();

  struct Character {
    std::uint32_t value = 0;
    std::size_t bytes = 0; // 0: no character begins here
  };
  Character decode(std::string_view bytes);

  struct Code {
    char bytes[4] = {};
    std::size_t length = 0; // 0: the page has no such character
    std::string_view text() const { return {bytes, length}; }
  };
  // The first of its codes. It decodes to the character again.
  Code encode(std::uint32_t character);

private:
  using Row = std::array<std::uint32_t, 256>;

  std::uint32_t toUtf32(std::string_view code) const;
  std::uint32_t cachedToUtf32(std::unique_ptr<Row>& row, std::string_view code) const;
  Code codeFor(std::uint32_t character);

  void* toUnicode_;
  void* fromUnicode_;
  std::size_t longest_ = 1;
  std::unique_ptr<Row> singles_;
  std::array<std::unique_ptr<Row>, 256> pairs_; // by the first byte
  std::unordered_map<std::uint32_t, Code> codes_;
};

} // namespace drawing::dxf
