#include "tests/architecture/wording_rules.h"

namespace architecture {

const std::vector<Wording>& wordingTable() {
  static const std::vector<Wording> kTable = {
      {"is no", "is not a", "there", "longer"},
      {"are no", "are not", "there", "longer"},
      {"was no", "was not a", "there", "longer"},
      {"were no", "were not", "there", "longer"},
      {"is none", "is not one, does not exist", "there", ""},
      {"are none", "are not, do not exist", "there", ""},
      {"passed over", "skipped", "", ""},
      {"mend", "repair", "", ""},
      {"mends", "repairs", "", ""},
      {"mended", "repaired", "", ""},
      {"tell", "report, list", "", ""},
      {"tells", "reports, lists", "", ""},
      {"told", "reported", "", ""},
      {"nobody", "the name of the code, or the passive", "", ""},
      {"somebody", "the name of the code, or the passive", "", ""},
      {"whoever", "the caller, the reader", "", ""},
      {"stands", "is, is stored, is located", "", "for"},
      {"stand-in", "placeholder, substitute", "", ""},
      {"stand-ins", "placeholders, substitutes", "", ""},
      {"come along", "are cloned with it", "", ""},
      {"comes along", "is cloned with it", "", ""},
      {"taken back", "undone, rolled back", "", ""},
      {"takes back", "undoes, rolls back", "", ""},
      {"done again", "redone", "", ""},
      {"all the same", "anyway", "", ""},
      {"once more", "again", "", ""},
      {"anew", "again", "", ""},
      {"without a word", "without a message", "", ""},
      {"left out", "omitted, skipped", "", ""},
      {"leads nowhere", "is dangling", "", ""},
      {"hangs on", "is attached to", "", ""},
      {"to the letter", "byte for byte", "", ""},
      {"sheet", "layout", "", "set"},
      {"sheets", "layouts", "", ""},
      {"line type", "linetype", "", ""},
      {"line types", "linetypes", "", ""},
      {"line weight", "lineweight", "", ""},
      {"line weights", "lineweights", "", ""},
      {"multi-line", "multiline", "", ""},
      {"files of shapes", "shape files", "", ""},
  };
  return kTable;
}

const std::vector<std::string>& reviewedComments() {
  static const std::vector<std::string> kReviewed = {"blockcommon/", "console/", "drawing/", "morvane/"};
  return kReviewed;
}

} // namespace architecture
