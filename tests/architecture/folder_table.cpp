#include "tests/architecture/folder_rules.h"

namespace architecture {
namespace {

// Paths from the project's root.
std::vector<FolderRule> below(const std::string& module, std::vector<FolderRule> table) {
  for (FolderRule& rule : table) {
    rule.folder.insert(0, module + "/");
    for (std::string& used : rule.uses)
      used.insert(0, module + "/");
  }
  return table;
}

} // namespace

const std::vector<FolderRule>& drawingFolders() {
  static const std::vector<FolderRule> kTable = below(
      "drawing",
      {
          {"base", {}},
          {"files", {"base"}},
          {"ge", {"base"}},
          {"model", {"base", "ge"}},
          {"records", {"base", "ge", "model"}},
          {"objects", {"base", "model", "records"}},
          {"entities/common", {"base", "ge", "model", "records"}},
          {"entities/curves", {"base", "ge", "model", "records", "entities/common"}},
          {"entities/text", {"base", "ge", "model", "records"}},
          {"entities", {"base", "ge", "model", "records", "entities/text"}},
          {"entities/hatch", {"base", "ge", "model", "entities/common", "entities/curves"}},
          {"blocks", {"base", "ge", "model", "records", "entities/common", "entities/text"}},
          {"annotations",
           {"base", "ge", "model", "records", "entities/common", "entities/curves", "entities/text", "blocks"}},
          {"fields", {"base", "ge", "model", "entities/curves", "blocks"}},
          {"io",
           {"base", "model", "records", "objects", "entities/common", "entities/curves", "entities", "blocks",
            "annotations"}},
          {"dxf",
           {"base", "ge", "model", "records", "objects", "entities/common", "entities/curves", "entities/text",
            "entities", "entities/hatch", "blocks", "annotations", "io"}},
          {"dxf/r12",
           {"base", "ge", "model", "records", "objects", "entities/common", "entities/curves", "entities/text",
            "entities", "entities/hatch", "blocks", "annotations", "io", "dxf"}},
          {"file", {"base", "files", "model", "blocks", "io", "dxf", "dxf/r12"}},
          {"maintenance", {"base", "ge", "model", "records", "objects", "entities/common", "blocks", "annotations"}},
          {"cloning",
           {"base", "files", "ge", "model", "objects", "entities/common", "entities/text", "entities", "blocks",
            "annotations", "io", "file", "maintenance"}},
          {"xref", {"base", "files", "model", "blocks", "file", "maintenance", "cloning"}},
          {"gi/scene", {"base", "model"}},
          {"gi/text", {"base", "model", "gi/scene"}},
          {"gi/draw",
           {"base", "ge", "model", "records", "objects", "entities/common", "entities/curves", "entities/text",
            "entities", "entities/hatch", "blocks", "annotations", "gi/scene", "gi/text"}},
          {"gi", {"base", "ge", "model", "objects", "blocks", "gi/scene", "gi/text", "gi/draw"}},
      });
  return kTable;
}

const std::vector<FolderRule>& consoleFolders() {
  static const std::vector<FolderRule> kTable =
      below("console",
            {
                {"messages", {}},
                {"messages/catalog", {"messages"}},
                {"session", {"messages", "messages/catalog"}},
                {"prompts", {"messages", "messages/catalog", "session"}},
                {"drawings", {"messages", "messages/catalog", "session", "prompts"}},
                {"attributes", {"messages", "messages/catalog", "session", "prompts", "drawings"}},
                {"report", {"messages", "messages/catalog", "session", "prompts", "drawings", "attributes"}},
                {"blocks", {"messages", "messages/catalog", "session", "prompts", "drawings", "attributes", "report"}},
                {"maintenance",
                 {"messages", "messages/catalog", "session", "prompts", "drawings", "attributes", "report", "blocks"}},
                {"commands",
                 {"messages", "messages/catalog", "session", "prompts", "drawings", "attributes", "report", "blocks",
                  "maintenance"}},
                {"subcommands",
                 {"messages", "messages/catalog", "session", "prompts", "drawings", "attributes", "report", "blocks",
                  "maintenance"}},
                {"app",
                 {"messages", "messages/catalog", "session", "prompts", "drawings", "attributes", "report", "blocks",
                  "maintenance", "commands", "subcommands"}},
            });
  return kTable;
}

} // namespace architecture
