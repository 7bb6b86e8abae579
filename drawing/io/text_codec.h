// Text values of drawing files to lossless UTF-8 (see OdString::fromUtf8) and back.
//
// Both ways nothing is lost: decode(encode(x)) is x for every text without line breaks, and encode(decode(b)) is b for
// all bytes without escapes, but that a character which a page has twice comes back in its first form.
#pragma once

#include "drawing/base/utf8.h"
#include "drawing/io/code_page.h"
#include "drawing/model/record.h"

#include <array>

namespace drawing::dxf {

bool isAscii(std::string_view bytes);

// Text in files has ^M and ^J where lines break. Only binary files can hold real line breaks.
bool hasLineBreak(std::string_view text);
void breakToCarets(std::string_view text, std::string& out);

// For one thread. Only for text values: escapes of names of groups and the like must not be touched.
//
// Escapes: `\U+XXXX` is that character, two of them with surrogates are one; `\M+nXXXX` is a code of page 932, 950,
// 949, 1361 or 936 (n of 1 to 5). Malformed escapes, lone surrogates and codes without a character stay as they stand.
// `%%` codes and carets are not touched.
//
// A byte that its page does not know stays that byte in the text. Two cases need more, in code pages only:
// - such bytes side by side that UTF-8 would take for a character: each is three stray bytes, ED B2 80 .. ED B3 BF;
// - stray bytes of a text from elsewhere that the page would take for characters are written as `\U+DC80`..`\U+DCFF`.
class MVDRAWING_API TextCodec final : public TextDecoder {
public:
  enum class Mode : std::uint8_t {
    kCodePage,
    kUtf8, // files of 2007 and later, whatever page they name
  };
  // An empty or unknown name gives page 1252.
  explicit TextCodec(std::string_view codePage, Mode mode = Mode::kCodePage);
  ~TextCodec() override;

  bool isKnown() const { return isKnown_; }
  std::string codePage() const; // as drawings write it

  // Both answer their argument itself when nothing has to change, else `buffer`, in which the argument must not lie.
  std::string_view decode(std::string_view bytes, std::string& buffer) override;
  // Line breaks become ^M and ^J; characters outside the page become `\U+XXXX`; a backslash that would begin an escape
  // becomes `\U+005C`.
  std::string_view encode(std::string_view losslessUtf8, std::string& buffer);

  // From now on encode writes a text whose bytes would pass for UTF-8 in escapes. Files whose texts all read as UTF-8
  // are taken to be UTF-8, whatever page they declare (see Encoding).
  void escapeAmbiguousText() { escapesAmbiguous_ = !isUtf8_; }

  // Bytes met by decode that fit neither the page nor UTF-8.
  std::uint64_t undecodable() const { return undecodable_; }
  // Where the first of them stood, in the argument of its decode; null when there is none. For its position only, not
  // for its contents.
  const char* firstUndecodable() const { return firstUndecodable_; }

private:
  struct Escape {
    std::uint32_t character = 0;
    std::size_t length = 0; // 0: none here
    bool isByte = false;    // a stray byte
  };
  class Writer;

  Escape escapeAt(std::string_view text);
  Escape unicodeEscape(std::string_view text) const;
  Escape pageEscape(std::string_view text);
  Utf8Character characterAt(std::string_view bytes);
  void decodeTo(std::string_view bytes, std::string& out, bool counts);
  bool encodeTo(std::string_view text, std::string& out, bool strictly);
  std::string_view encodeInPage(std::string_view text, std::string& buffer);
  void encodeInEscapes(std::string_view text, std::string& out) const;
  void encodeCharacter(std::uint32_t character, std::string_view utf8, std::string& out);
  void count(const char* position);
  void countStrays(std::string_view bytes);
  CodePage& page(int number, std::unique_ptr<CodePage>& slot);

  int number_;
  bool isKnown_ = true;
  bool isUtf8_;
  bool escapesAmbiguous_ = false;
  std::unique_ptr<CodePage> own_;
  std::array<std::unique_ptr<CodePage>, 5> escaped_;
  std::uint64_t undecodable_ = 0;
  const char* firstUndecodable_ = nullptr;
  std::string unbroken_;
  std::string check_;
};

} // namespace drawing::dxf
