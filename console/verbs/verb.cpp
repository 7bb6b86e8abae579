#include "console/verbs/verb.h"

#include "drawing/file.h"

namespace console::verbs {

Verb::~Verb() = default;

std::vector<std::unique_ptr<Verb>> allVerbs() {
  std::vector<std::unique_ptr<Verb>> verbs;
  verbs.push_back(makeVerb());
  verbs.push_back(convertVerb());
  verbs.push_back(reportVerb());
  verbs.push_back(auditVerb());
  verbs.push_back(purgeVerb());
  verbs.push_back(renameVerb());
  verbs.push_back(insertVerb());
  verbs.push_back(attributesVerb());
  verbs.push_back(previewVerb());
  verbs.push_back(graphVerb());
  verbs.push_back(wblockVerb());
  return verbs;
}

void refuseUsage(MessageId id, const char* option, const std::string& value) {
  throw Failure{Status::Usage, {id, {OdString::fromUtf8(option), OdString::fromUtf8(value)}}};
}

OdDb::DwgVersion versionOption(const std::string& value) {
  const OdDb::DwgVersion version = drawing::versionFromYear(value);
  if (!value.empty() && (version == OdDb::kVersionUnknown || drawing::writtenVersion(version) != version))
    refuseUsage(MessageId::kBadVersion, "--as", value);
  return version;
}

} // namespace console::verbs
