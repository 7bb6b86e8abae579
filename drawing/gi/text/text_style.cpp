#include "drawing/gi/text/text_style.h"

#include "DbSymbolRecords.h"
#include "drawing/model/object_store.h"

#include <algorithm>
#include <array>
#include <optional>

namespace drawing::gi {

namespace {

struct Named {
  std::string_view file; // its name without ending, in small letters
  const char* family;
  bool bold = false, italic = false;
};

constexpr Named kFonts[] = {{"arial", "Arial"},
                            {"arialbd", "Arial", true},
                            {"ariali", "Arial", false, true},
                            {"arialbi", "Arial", true, true},
                            {"arialn", "Arial Narrow"},
                            {"times", "Times New Roman"},
                            {"timesbd", "Times New Roman", true},
                            {"timesi", "Times New Roman", false, true},
                            {"timesbi", "Times New Roman", true, true},
                            {"cour", "Courier New"},
                            {"courbd", "Courier New", true},
                            {"simsun", "SimSun"},
                            {"simhei", "SimHei"},
                            {"msgothic", "MS Gothic"},
                            {"malgun", "Malgun Gothic"},
                            {"monotxt", "monospace"},
                            {"romant", "serif"},
                            {"romanc", "serif"},
                            {"romand", "sans-serif", true},
                            {"italic", "serif", false, true},
                            {"italict", "serif", false, true},
                            {"italicc", "serif", false, true}};

// The family and the style that a program noted for a font that is not a shape file.
std::optional<Font> storedFont(const OdDbTextStyleTableRecord& style) {
  const GroupList* data = style.xDataGroups();
  if (data == nullptr)
    return std::nullopt;
  for (std::size_t i = 0; i + 1 < data->size(); ++i) {
    if ((*data)[i].code != 1001 || data->textOf((*data)[i]) != "ACAD" || (*data)[i + 1].code != 1000)
      continue;
    constexpr std::int64_t kItalic = 0x1000000, kBold = 0x2000000;
    const bool hasFlags = i + 2 < data->size() && (*data)[i + 2].code == 1071;
    const std::int64_t flags = hasFlags ? (*data)[i + 2].integer : 0;
    const std::string family(data->textOf((*data)[i + 1]));
    if (!family.empty())
      return Font{family, (flags & kBold) != 0, (flags & kItalic) != 0};
  }
  return std::nullopt;
}

} // namespace

Font fontNamed(const OdString& name) {
  std::string stem = name.toUtf8();
  stem = stem.substr(stem.find_last_of("/\\") + 1);
  const std::size_t dot = stem.rfind('.');
  std::string ending = dot == stem.npos ? "" : stem.substr(dot);
  stem.resize(std::min(dot, stem.size()));
  const auto lower = [](std::string& text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  };
  const std::string asWritten = stem;
  lower(stem);
  lower(ending);
  for (const Named& known : kFonts) {
    if (known.file == stem)
      return {known.family, known.bold, known.italic};
  }
  const bool isStrokes = ending == ".shx" || ending == ".shp" || stem == "txt" || stem == "standard";
  return stem.empty() || isStrokes ? Font{} : Font{asWritten};
}

Font fontOfStyle(OdDbObjectId style) {
  const auto* record = getIf<OdDbTextStyleTableRecord>(style);
  if (record == nullptr)
    return {};
  if (const std::optional<Font> stored = storedFont(*record))
    return *stored;
  OdString file = record->fileName();
  if (file.find(L'.') < 0)
    file += L".shx";
  return fontNamed(file);
}

bool isVerticalStyle(OdDbObjectId style) {
  const auto* record = getIf<OdDbTextStyleTableRecord>(style);
  return record != nullptr && record->isVertical();
}

double widthFactorOfStyle(OdDbObjectId style) {
  const auto* record = getIf<OdDbTextStyleTableRecord>(style);
  return record != nullptr && record->xScale() > 0 ? record->xScale() : 1;
}

double obliqueOfStyle(OdDbObjectId style) {
  const auto* record = getIf<OdDbTextStyleTableRecord>(style);
  return record != nullptr ? record->obliquingAngle() : 0;
}

namespace {

struct ControlCode {
  wchar_t code, character;
};
constexpr ControlCode kControlCodes[] = {{L'c', 0x2300}, {L'd', 0xB0}, {L'p', 0xB1}, {L'%', L'%'}};

bool isDigit(wchar_t ch) {
  return ch >= L'0' && ch <= L'9';
}

class PieceReader {
public:
  std::vector<Piece> read(std::wstring_view text) {
    for (std::size_t i = 0; i < text.size();) {
      const bool isCode = text[i] == L'%' && i + 2 < text.size() && text[i + 1] == L'%';
      const std::size_t taken = isCode ? code(text.substr(i + 2)) : 0;
      if (taken == 0)
        pieces_.back().text += text[i++];
      else
        i += 2 + taken;
    }
    return std::move(pieces_);
  }

private:
  // Number of characters of the code; 0 if it is not a code.
  std::size_t code(std::wstring_view text) {
    const wchar_t letter = lowerCase(text[0]);
    for (const ControlCode& control : kControlCodes) {
      if (letter == control.code) {
        pieces_.back().text += control.character;
        return 1;
      }
    }
    if (letter == L'u' || letter == L'o' || letter == L'k') {
      Piece next = pieces_.back();
      next.text.clear();
      bool& line = letter == L'u' ? next.under : letter == L'o' ? next.over : next.through;
      line = !line;
      pieces_.push_back(std::move(next));
      return 1;
    }
    if (text.size() < 3 || !isDigit(text[0]) || !isDigit(text[1]) || !isDigit(text[2]))
      return 0;
    pieces_.back().text += static_cast<wchar_t>((text[0] - L'0') * 100 + (text[1] - L'0') * 10 + (text[2] - L'0'));
    return 3;
  }

  std::vector<Piece> pieces_{1};
};

} // namespace

std::vector<Piece> piecesOf(std::wstring_view text) {
  return PieceReader().read(text);
}

} // namespace drawing::gi
