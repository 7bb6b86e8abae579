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

struct BoxEntry {
  const char* id;
  void (*show)();
};

constexpr std::array kEntries = {
    BoxEntry{"box.block-redefine", [] { dlgTips::showBlockRedefineTips(kNameMark, kNumber); }},
    BoxEntry{"box.block-changed", [] { dlgTips::showBlockRedefineTips(kNameMark, 0); }},
    BoxEntry{"box.no-objects", [] { dlgTips::showSelectEntityTips(); }},
    BoxEntry{"box.name-external", [] { dlgTips::showExternalReferenceTips(); }},
    BoxEntry{"box.name-empty", [] { dlgTips::showBlockNameEmptyTips(); }},
    BoxEntry{"box.name-too-long", [] { dlgTips::showBlockNameBeyondLenTips(); }},
    BoxEntry{"box.name-characters", [] { dlgTips::showBlockNameUnLegalTips2(); }},
    BoxEntry{"box.name-invalid", [] { dlgTips::showBlockNameUnValidTips(); }},
    BoxEntry{"box.block-attached", [] { dlgTips::showBlockExtRefErrorTips(); }},
    BoxEntry{"box.base-point-x", [] { dlgTips::showBasePointInValidTips(dlgTips::kCoordX); }},
    BoxEntry{"box.base-point-y", [] { dlgTips::showBasePointInValidTips(dlgTips::kCoordY); }},
    BoxEntry{"box.base-point-z", [] { dlgTips::showBasePointInValidTips(dlgTips::kCoordZ); }},
    BoxEntry{"box.contains-itself", [] { dlgTips::showBlockRefSelfTips(kNameMark); }},
    BoxEntry{"box.not-modified", [] { dlgTips::showBlockUnModifyTips(kNameMark); }},
    BoxEntry{"box.locked-layers", [] { dlgTips::showBlockLockLayerTips(kNumber); }},
    BoxEntry{"box.path-characters", [] { dlgTips::showUnLegalCharInFilePathTips(); }},
    BoxEntry{"box.path-incomplete", [] { dlgTips::showFilePathErrorTips(); }},
    BoxEntry{"box.path-folder", [] { dlgTips::showFilePathDirectoryInvalidTips(); }},
    BoxEntry{"box.path-blank", [] { filePath::isFilePathLegal(L" ", false); }},
    BoxEntry{"box.path-too-long", [] { filePath::isFilePathLegal(OdString(L'x', kTooLongPath), false); }},
    BoxEntry{"box.file-in-use", [] { dlgTips::showFileDocUsingTips(kNameMark); }},
    BoxEntry{"box.file-not-found", [] { dlgTips::showFileNotFindTips(); }},
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
  for (const BoxEntry& entry : kEntries) {
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
