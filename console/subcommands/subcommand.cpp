#include "console/subcommands/subcommand.h"
#include "console/messages/catalog/usage.h"

#include "drawing/file.h"

namespace console::subcommands {

Subcommand::~Subcommand() = default;

std::vector<std::unique_ptr<Subcommand>> allSubcommands() {
  std::vector<std::unique_ptr<Subcommand>> subcommands;
  subcommands.push_back(makeSubcommand());
  subcommands.push_back(convertSubcommand());
  subcommands.push_back(reportSubcommand());
  subcommands.push_back(auditSubcommand());
  subcommands.push_back(purgeSubcommand());
  subcommands.push_back(renameSubcommand());
  subcommands.push_back(insertSubcommand());
  subcommands.push_back(attributesSubcommand());
  subcommands.push_back(previewSubcommand());
  subcommands.push_back(graphSubcommand());
  subcommands.push_back(wblockSubcommand());
  return subcommands;
}

void refuseUsage(MessageText format, const char* option, const std::string& value) {
  throw Failure{Status::kUsage, {format, {OdString::fromUtf8(option), OdString::fromUtf8(value)}}};
}

OdDb::DwgVersion versionOption(const std::string& value) {
  const OdDb::DwgVersion version = drawing::versionFromYear(value);
  if (!value.empty() && (version == OdDb::kVersionUnknown || drawing::writtenVersion(version) != version))
    refuseUsage(msg::kBadVersion, "--as", value);
  return version;
}

} // namespace console::subcommands
