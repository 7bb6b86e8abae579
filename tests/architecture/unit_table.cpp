#include "tests/architecture/unit_rules.h"

namespace architecture {

// Lowest first. Each row lists what the unit's own work needs, not all that lies below it.
const std::vector<UnitRule>& unitTable() {
  static const std::vector<UnitRule> kTable{
      {"services", {}},
      {"prompts", {"services"}},
      {"messages", {"services"}},
      {"block_lookup", {"services"}},
      {"block_names", {"services", "block_lookup"}},
      {"selections", {"services", "messages", "block_lookup"}},
      {"transforms", {"services"}},
      {"properties", {"services"}},
      {"file_paths", {"services", "messages"}},
      {"creation", {"services", "block_lookup", "transforms", "properties"}},
      {"filters", {"services", "block_lookup"}},
      {"block_report", {"services"}},
      {"attributes", {"services", "prompts", "selections"}},
      {"document_queries", {"services", "block_lookup", "attributes"}},
      {"insertion", {"services", "file_paths", "properties", "document_queries"}},
      {"typed_names", {"services", "messages", "block_lookup", "block_names", "file_paths", "document_queries"}},
      {"reference_graph", {"services"}},
      {"write_block", {"services", "prompts"}},
  };
  return kTable;
}

const std::vector<std::string>& foundationHeaders() {
  static const std::vector<std::string> kHeaders{"box_texts", "export"};
  return kHeaders;
}

} // namespace architecture
