#include "console/session/message_box_ids.h"

#include "blockcommon/file_paths.h"
#include "blockcommon/messages.h"

#include <array>

namespace console {
namespace {

constexpr wchar_t kNamePlaceholder[] = L"\uE000";
constexpr int kNumber = 1234567;
constexpr wchar_t kNumberPlaceholder[] = L"1234567";
constexpr int kTooLongPath = 4095;

struct BoxEntry {
  const char* id;
  void (*show)();
};

constexpr std::array kEntries = {
    BoxEntry{"box.block-redefine", [] { dlgTips::showBlockRedefineTips(kNamePlaceholder, kNumber); }},
    BoxEntry{"box.block-changed", [] { dlgTips::showBlockRedefineTips(kNamePlaceholder, 0); }},
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
    BoxEntry{"box.contains-itself", [] { dlgTips::showBlockRefSelfTips(kNamePlaceholder); }},
    BoxEntry{"box.not-modified", [] { dlgTips::showBlockUnModifyTips(kNamePlaceholder); }},
    BoxEntry{"box.locked-layers", [] { dlgTips::showBlockLockLayerTips(kNumber); }},
    BoxEntry{"box.path-characters", [] { dlgTips::showUnLegalCharInFilePathTips(); }},
    BoxEntry{"box.path-incomplete", [] { dlgTips::showFilePathErrorTips(); }},
    BoxEntry{"box.path-folder", [] { dlgTips::showFilePathDirectoryInvalidTips(); }},
    BoxEntry{"box.path-blank", [] { filePath::isFilePathLegal(L" ", false); }},
    BoxEntry{"box.path-too-long", [] { filePath::isFilePathLegal(OdString(L'x', kTooLongPath), false); }},
    BoxEntry{"box.file-in-use", [] { dlgTips::showFileDocUsingTips(kNamePlaceholder); }},
    BoxEntry{"box.file-not-found", [] { dlgTips::showFileNotFindTips(); }},
};

struct Placeholder {
  int at = -1;
  int length = 0;
  bool isName = false;
};

Placeholder nextPlaceholder(const OdString& body, int from) {
  const int name = body.find(kNamePlaceholder, from);
  const int number = body.find(kNumberPlaceholder, from);
  if (name >= 0 && (number < 0 || name < number))
    return {name, OdString(kNamePlaceholder).getLength(), true};
  return {number, OdString(kNumberPlaceholder).getLength(), false};
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
    for (Placeholder placeholder = nextPlaceholder(seen.body, 0); placeholder.at >= 0;
         placeholder = nextPlaceholder(seen.body, from)) {
      known.literals.push_back(seen.body.mid(from, placeholder.at - from));
      known.parameterOf.push_back(placeholder.isName ? 0 : names);
      names = placeholder.isName ? 1 : names;
      from = placeholder.at + placeholder.length;
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
    if (at > 0 && static_cast<std::size_t>(known.parameterOf[at - 1]) == parameters.size())
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
