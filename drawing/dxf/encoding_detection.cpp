#include "drawing/dxf/encoding_detection.h"

#include "drawing/base/utf8.h"
#include "drawing/dxf/group_source.h"

#include <algorithm>

namespace drawing::dxf {

namespace {

bool hasDoubleBytes(int page) {
  constexpr int kPages[] = {932, 936, 949, 950, 1361};
  return std::find(std::begin(kPages), std::end(kPages), page) != std::end(kPages);
}

// The texts of a file with other characters than ASCII.
struct Evidence {
  std::size_t utf8Texts = 0;
  std::size_t otherTexts = 0;
  std::size_t characters = 0; // of the UTF-8 texts, beyond ASCII
  bool longOnes = false;      // some of them have three bytes or more

  void add(std::string_view text) {
    std::size_t found = 0;
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t length = utf8At(text.substr(at)).bytes;
      if (length == 0) {
        ++otherTexts;
        return;
      }
      found += length > 1 ? 1 : 0;
      longOnes = longOnes || length > 2;
      at += length;
    }
    ++utf8Texts;
    characters += found;
  }
};

} // namespace

Encoding encodingOf(const FileInfo& info, GroupSource& source) {
  const bool isUtf8 = info.version >= OdDb::kRelease2007;
  Encoding declared{isUtf8 ? std::string() : info.codePage,
                    isUtf8 ? TextCodec::Mode::kUtf8 : TextCodec::Mode::kCodePage, false};
  TextCodec page(info.codePage);
  Evidence evidence;
  std::string buffer;
  for (RawGroup group; source.next(group);) {
    if (group.form != RawGroup::Form::kText || isAscii(group.text))
      continue;
    evidence.add(group.text);
    page.decode(group.text, buffer); // counts invalid characters
  }
  const int number = codePageNumber(info.codePage);
  if (isUtf8) {
    const bool isOther = evidence.otherTexts != 0 && evidence.utf8Texts == 0 && page.undecodable() == 0 &&
                         page.isKnown() && number != kUtf8Page;
    return isOther ? Encoding{info.codePage, TextCodec::Mode::kCodePage, true} : declared;
  }
  const bool isAccident = hasDoubleBytes(number) && (evidence.characters < 3 || !evidence.longOnes);
  if (number == kUtf8Page || evidence.utf8Texts == 0 || evidence.otherTexts != 0 || isAccident)
    return declared;
  return {"", TextCodec::Mode::kUtf8, true};
}

} // namespace drawing::dxf
