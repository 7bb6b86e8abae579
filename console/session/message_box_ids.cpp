#include "console/session/message_box_ids.h"

#include "blockcommon/file_paths.h"
#include "blockcommon/messages.h"

#include <array>

namespace console {
namespace {

constexpr wchar_t kNameMark[] = L"\uE000";
constexpr int kNumber = 1234567;
constexpr wchar_t kNumberMark[] = L"1234567";
constexpr int kTooLongPath = 4095;

struct Entry {
  const char* id;
  void (*show)();
};

constexpr std::array kEntries = {
    Entry{"box.block-redefine", [] { dlgTips::showBlockRedefineTips(kNameMark, kNumber); }},
    Entry{"box.block-changed", [] { dlgTips::showBlockRedefineTips(kNameMark, 0); }},
    Entry{"box.no-objects", [] { dlgTips::showSelectEntityTips(); }},
    Entry{"box.name-external", [] { dlgTips::showExternalReferenceTips(); }},
    Entry{"box.name-empty", [] { dlgTips::showBlockNameEmptyTips(); }},
    Entry{"box.name-too-long", [] { dlgTips::showBlockNameBeyondLenTips(); }},
    Entry{"box.name-characters", [] { dlgTips::showBlockNameUnLegalTips2(); }},
    Entry{"box.name-invalid", [] { dlgTips::showBlockNameUnValidTips(); }},
    Entry{"box.block-attached", [] { dlgTips::showBlockExtRefErrorTips(); }},
    Entry{"box.base-point-x", [] { dlgTips::showBasePointInValidTips(dlgTips::kCoordX); }},
    Entry{"box.base-point-y", [] { dlgTips::showBasePointInValidTips(dlgTips::kCoordY); }},
    Entry{"box.base-point-z", [] { dlgTips::showBasePointInValidTips(dlgTips::kCoordZ); }},
    Entry{"box.contains-itself", [] { dlgTips::showBlockRefSelfTips(kNameMark); }},
    Entry{"box.not-modified", [] { dlgTips::showBlockUnModifyTips(kNameMark); }},
    Entry{"box.locked-layers", [] { dlgTips::showBlockLockLayerTips(kNumber); }},
    Entry{"box.path-characters", [] { dlgTips::showUnLegalCharInFilePathTips(); }},
    Entry{"box.path-incomplete", [] { dlgTips::showFilePathErrorTips(); }},
    Entry{"box.path-folder", [] { dlgTips::showFilePathDirectoryInvalidTips(); }},
    Entry{"box.path-blank", [] { filePath::isFilePathLegal(L" ", false); }},
    Entry{"box.path-too-long", [] { filePath::isFilePathLegal(OdString(L'x', kTooLongPath), false); }},
    Entry{"box.file-in-use", [] { dlgTips::showFileDocUsingTips(kNameMark); }},
    Entry{"box.file-not-found", [] { dlgTips::showFileNotFindTips(); }},
};

struct Mark {
  int at = -1;
  int length = 0;
  bool isName = false;
};

Mark nextMark(const OdString& body, int from) {
  const int name = body.find(kNameMark, from);
  const int number = body.find(kNumberMark, from);
  if (name >= 0 && (number < 0 || name < number))
    return {name, OdString(kNameMark).getLength(), true};
  return {number, OdString(kNumberMark).getLength(), false};
}

} // namespace

BoxCatalogue::BoxCatalogue(morvane::MessageBoxes& boxes) {
  morvane::MessageBox seen;
  const morvane::MessageBoxes::Reader reader(boxes, seen);
  for (const Entry& entry : kEntries) {
    seen = {};
    entry.show();
    Known known{entry.id, seen.caption, {}, {}};
    int from = 0;
    int names = 0;
    for (Mark mark = nextMark(seen.body, 0); mark.at >= 0; mark = nextMark(seen.body, from)) {
      known.literals.push_back(seen.body.mid(from, mark.at - from));
      known.marks.push_back(mark.isName ? 0 : names);
      names = mark.isName ? 1 : names;
      from = mark.at + mark.length;
    }
    known.literals.push_back(seen.body.mid(from));
    known_.push_back(std::move(known));
  }
}

// A name may stand twice in a body; the first place tells it.
std::optional<std::vector<OdString>> BoxCatalogue::parametersOf(const Known& known, const OdString& body) {
  const OdString& tail = known.literals.back();
  std::vector<OdString> parameters;
  int from = 0;
  for (std::size_t at = 0; at < known.literals.size(); ++at) {
    const OdString& literal = known.literals[at];
    const bool isLast = at + 1 == known.literals.size();
    const int place = at == 0 ? 0 : isLast ? body.getLength() - tail.getLength() : body.find(literal, from);
    if (place < from || body.mid(place, literal.getLength()) != literal || (at == 0 && isLast && body != literal))
      return std::nullopt;
    if (at > 0 && static_cast<std::size_t>(known.marks[at - 1]) == parameters.size())
      parameters.push_back(body.mid(from, place - from));
    from = place + literal.getLength();
  }
  return parameters;
}

BoxName BoxCatalogue::nameOf(const morvane::MessageBox& box) const {
  for (const Known& known : known_) {
    if (known.caption != box.caption)
      continue;
    if (auto parameters = parametersOf(known, box.body))
      return {known.id, std::move(*parameters)};
  }
  return {"box.other", {}};
}

} // namespace console
