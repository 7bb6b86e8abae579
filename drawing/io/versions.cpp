#include "drawing/file.h"

#include <algorithm>

namespace drawing {

namespace {

struct VersionName {
  OdDb::DwgVersion version;
  const char* signature;
  const char* year;
};

constexpr VersionName kVersions[] = {
    {OdDb::kRelease10, "AC1006", "R10"},    {OdDb::kRelease12, "AC1009", "R12"},
    {OdDb::kRelease13, "AC1012", "R13"},    {OdDb::kRelease14, "AC1014", "R14"},
    {OdDb::kRelease2000, "AC1015", "2000"}, {OdDb::kRelease2004, "AC1018", "2004"},
    {OdDb::kRelease2007, "AC1021", "2007"}, {OdDb::kRelease2010, "AC1024", "2010"},
    {OdDb::kRelease2013, "AC1027", "2013"}, {OdDb::kRelease2018, "AC1032", "2018"},
};

template <class Matches>
const VersionName* findVersion(Matches matches) {
  const auto* found = std::find_if(std::begin(kVersions), std::end(kVersions), matches);
  return found == std::end(kVersions) ? nullptr : found;
}

} // namespace

OdDb::DwgVersion versionFromSignature(std::string_view signature) {
  const auto* found = findVersion([signature](const VersionName& v) { return signature == v.signature; });
  return found == nullptr ? OdDb::kVersionUnknown : found->version;
}

const char* versionSignature(OdDb::DwgVersion version) {
  const auto* found = findVersion([version](const VersionName& v) { return version == v.version; });
  return found == nullptr ? "" : found->signature;
}

OdDb::DwgVersion versionFromYear(std::string_view year) {
  const auto* found = findVersion([year](const VersionName& v) {
    const std::string_view name = v.year;
    return year == name || (name.front() == 'R' && year == name.substr(1));
  });
  return found == nullptr ? OdDb::kVersionUnknown : found->version;
}

const char* versionYear(OdDb::DwgVersion version) {
  const auto* found = findVersion([version](const VersionName& v) { return version == v.version; });
  return found == nullptr ? "" : found->year;
}

OdDb::DwgVersion writtenVersion(OdDb::DwgVersion wanted) {
  return wanted <= OdDb::kRelease12 ? OdDb::kRelease12 : std::max(wanted, OdDb::kRelease2000);
}

FileForm formOf(std::string_view content, std::string* version) {
  // Binary files begin with a sentence of 22 bytes; its end is enough to know it by.
  constexpr std::string_view kBinary = " Binary DXF\r\n\x1a";
  if (content.size() > 22 && content.substr(7, kBinary.size()) == kBinary)
    return FileForm::kBinaryDxf;
  if (content.size() >= 6 && content.substr(0, 2) == "AC" &&
      std::all_of(content.begin() + 2, content.begin() + 6,
                  [](char c) { return (c >= '0' && c <= '9') || c == '.'; })) {
    if (version != nullptr)
      *version = content.substr(0, 6);
    return FileForm::kDwg;
  }
  // A text file begins with a group code: spaces, digits, the end of the line.
  if (content.substr(0, 3) == "\xEF\xBB\xBF")
    content.remove_prefix(3);
  std::size_t at = 0;
  while (at < content.size() &&
         (content[at] == ' ' || content[at] == '\t' || content[at] == '\r' || content[at] == '\n'))
    ++at;
  const std::size_t digits = at;
  while (at < content.size() && content[at] >= '0' && content[at] <= '9')
    ++at;
  while (at > digits && at < content.size() && (content[at] == ' ' || content[at] == '\t'))
    ++at;
  const bool isCode =
      at > digits && at - digits <= 8 && at < content.size() && (content[at] == '\r' || content[at] == '\n');
  return isCode ? FileForm::kTextDxf : FileForm::kUnknown;
}

} // namespace drawing
