#include "console/messages/catalog/graph.h"
#include "console/blocks/external_references.h"
#include "console/messages/catalog/usage.h"
#include "console/messages/number_text.h"
#include "console/report/reference_tree.h"
#include "console/report/report_json.h"
#include "console/subcommands/job.h"
#include "console/subcommands/subcommand.h"

#include "DbBlockReference.h"

namespace console::subcommands {
namespace {

std::string handleOf(OdDbObjectId id) {
  return id.getHandle().ascii();
}

OdString chainText(const OdDbObjectIdArray& chain) {
  std::string text;
  for (const OdDbObjectId& id : chain)
    text += (text.empty() ? "" : " ") + handleOf(id);
  return OdString::fromUtf8(text);
}

Json textOrNull(const OdString& text) {
  return text.isEmpty() ? Json() : Json(text.toUtf8Lossless());
}

Json jsonOf(const ReferenceNode& node) {
  Json chain = Json::array();
  for (const OdDbObjectId& id : node.chain)
    chain.push_back(handleOf(id));
  Json external;
  if (node.external)
    external = {{"path", node.external->path.toUtf8Lossless()},
                {"status", report::xrefStatusName(node.external->status)},
                {"found", textOrNull(node.external->found)}};
  return {{"reference", handleOf(node.reference)},
          {"block", textOrNull(node.block)},
          {"parent", node.parent ? Json(*node.parent) : Json()},
          {"chain", std::move(chain)},
          {"external", std::move(external)}};
}

Json jsonOf(const EditCheck& edit) {
  constexpr const char* kReasons[] = {"none", "xedit-off", "external"};
  if (edit.isAllowed())
    return {{"allowed", true}, {"reason", Json()}, {"path", Json()}, {"reference", Json()}};
  return {{"allowed", false},
          {"reason", kReasons[static_cast<std::size_t>(edit.reason)]},
          {"path", edit.path.toUtf8Lossless()},
          {"reference", handleOf(edit.reference)}};
}

// As DOT quotes it: a backslash would begin an escape.
std::string dotQuoted(const OdString& text) {
  std::string quoted;
  for (const char c : escaped(text).toUtf8Lossless()) {
    if (c == '"' || c == '\\')
      quoted += '\\';
    quoted += c;
  }
  return quoted;
}

std::string dotOf(const std::vector<ReferenceNode>& nodes) {
  std::string text = "digraph references {\n";
  for (std::size_t at = 0; at < nodes.size(); ++at) {
    const ReferenceNode& node = nodes[at];
    const std::string name = "n" + std::to_string(at);
    text += "  " + name + " [label=\"" + dotQuoted(node.block) + "\\n" + handleOf(node.reference);
    if (node.external)
      text += "\\n" + dotQuoted(node.external->path) + "\", style=dashed];\n";
    else
      text += "\"];\n";
    if (node.parent)
      text += "  n" + std::to_string(*node.parent) + " -> " + name + ";\n";
  }
  return text + "}\n";
}

class Graph : public Subcommand {
public:
  void describe(OptionTable& program) override {
    optionTable_ =
        &program.addSubcommand("graph", "List nested references, and whether a reference may be edited in place");
    optionTable_->add("FILE", files_.in, "Drawing to read").required();
    optionTable_->add("--reference", handle_, "Handle of the block reference").required();
    optionTable_->add("--json", json_, "Report as one JSON object");
    optionTable_->add("--dot", dot_, "Print a graph in the DOT language").excludes("--json");
    optionTable_->add("--max-nodes", maxNodes_, "Refuse a tree of more references than this (100000)")
        .between(1, 1'000'000'000);
  }
  bool isChosen() const override { return optionTable_->isChosen(); }
  void check() override {
    if (isChosen() && !parseHandle(handle_))
      refuseUsage(msg::kBadHandle, "--reference", handle_);
  }
  Status run(const SessionOptions& settings) override {
    return runJob(settings,
                  {"graph", files_, json_, [this](Session& session, Json& results) { work(session, results); },
                   [this](Session& session) { printSummary(session); }});
  }

private:
  void work(Session& session, Json& results) {
    const OdDbObjectId picked = session.database().objectIdOf(*parseHandle(handle_));
    if (OdDbBlockReference::cast(picked.safeOpenObject()).isNull())
      refuse(msg::kGraphNoReference, {OdString::fromUtf8(handle_)});
    tree_ = treeOf(session, picked, maxNodes_);
    if (!json_)
      return;
    results["reference"] = handleOf(picked);
    results["edit"] = jsonOf(tree_.edit);
    results["nodes"] = Json::array();
    for (const ReferenceNode& node : tree_.nodes)
      results["nodes"].push_back(jsonOf(node));
  }

  void printSummary(Session& session) const {
    if (dot_)
      session.printReport(OdString::fromUtf8(dotOf(tree_.nodes)));
    for (std::size_t at = 0; at < tree_.nodes.size() && !dot_ && !json_; ++at)
      printNode(session, tree_.nodes[at]);
    reportEditability(session);
  }

  static void printNode(Session& session, const ReferenceNode& node) {
    const OdString indent(std::wstring(2 * (node.chain.size() - 1), L' '));
    std::vector<OdString> arguments{indent, node.block, OdString::fromUtf8(handleOf(node.reference)),
                                    chainText(node.chain)};
    if (!node.external)
      return session.result(msg::kGraphNode, arguments);
    arguments.insert(arguments.end(), {node.external->path, xrefState(node.external->status), node.external->found});
    session.result(node.external->found.isEmpty() ? msg::kGraphLost : msg::kGraphExternal, arguments);
  }

  void reportEditability(Session& session) const {
    constexpr MessageText kTexts[] = {msg::kEditAllowed, msg::kEditXeditOff, msg::kEditExternal};
    const MessageText format = kTexts[static_cast<std::size_t>(tree_.edit.reason)];
    const std::vector<OdString> arguments{OdString::fromUtf8(handleOf(tree_.nodes.front().reference)),
                                          OdString::fromUtf8(handleOf(tree_.edit.reference)), tree_.edit.path};
    if (dot_)
      session.print(format, arguments);
    else
      session.result(format, arguments);
  }

  OptionTable* optionTable_ = nullptr;
  JobFiles files_;
  std::string handle_;
  std::uint64_t maxNodes_ = 100'000;
  ReferenceTree tree_;
  bool json_ = false;
  bool dot_ = false;
};

} // namespace

std::unique_ptr<Subcommand> graphSubcommand() {
  return std::make_unique<Graph>();
}

} // namespace console::subcommands
