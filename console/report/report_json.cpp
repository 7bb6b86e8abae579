#include "console/report/report_json.h"

namespace console::report {
namespace {

Json textOf(const OdString& text) {
  return text.toUtf8Lossless();
}

Json textOrNull(const OdString& text) {
  return text.isEmpty() ? Json() : textOf(text);
}

Json pointOf(const OdGePoint3d& point) {
  return Json::array({point.x, point.y, point.z});
}

template <class T, class Convert>
Json orNull(const std::optional<T>& value, const Convert& convert) {
  return value ? Json(convert(*value)) : Json();
}

template <class T>
T same(T value) {
  return value;
}

Json headerJson(const Header& header) {
  return {{"acadver", header.acadver},
          {"codepage", orNull(header.codepage, textOf)},
          {"insunits", orNull(header.insunits, same<int>)},
          {"measurement", orNull(header.measurement, same<int>)},
          {"insbase", orNull(header.insbase, pointOf)},
          {"clayer", orNull(header.clayer, textOf)}};
}

Json layerJson(const Layer& layer) {
  return {{"name", textOf(layer.name)}, {"locked", layer.isLocked}, {"frozen", layer.isFrozen},
          {"off", layer.isOff},         {"color", layer.color},     {"linetype", textOrNull(layer.linetype)}};
}

Json xrefJson(const Xref& xref) {
  return {{"overlay", xref.overlay},
          {"resolved", xref.resolved},
          {"unloaded", xref.unloaded},
          {"status", xrefStatusName(xref.status)},
          {"path", textOf(xref.path)}};
}

Json attributeJson(const AttributeDefinition& definition) {
  return {{"tag", textOf(definition.tag)},       {"prompt", textOf(definition.prompt)},
          {"default", textOf(definition.text)},  {"constant", definition.isConstant},
          {"preset", definition.isPreset},       {"verify", definition.isVerifiable},
          {"invisible", definition.isInvisible}, {"multiline", definition.isMultiline}};
}

Json blockJson(const Block& block) {
  Json entities = Json::object();
  for (const auto& [type, count] : block.entities)
    entities[type] = count;
  Json attributes = Json::array();
  for (const AttributeDefinition& definition : block.attributes)
    attributes.push_back(attributeJson(definition));
  return {{"name", textOf(block.name)},
          {"true_name", textOrNull(block.trueName)},
          {"anonymous", block.isAnonymous},
          {"layout", textOrNull(block.layout)},
          {"xref", orNull(block.xref, xrefJson)},
          {"base", pointOf(block.base)},
          {"description", textOf(block.description)},
          {"explodable", orNull(block.isExplodable, same<bool>)},
          {"uniform", orNull(block.isUniform, same<bool>)},
          {"units", orNull(block.units, same<int>)},
          {"annotative", block.isAnnotative},
          {"entities", std::move(entities)},
          {"attribute_definitions", std::move(attributes)},
          {"references", block.references.direct},
          {"references_nested", block.references.nested},
          {"references_true", orNull(block.withDynamicInstances, [](const Counts& counts) { return counts.direct; })},
          {"references_true_nested",
           orNull(block.withDynamicInstances, [](const Counts& counts) { return counts.nested; })},
          {"depth", block.depth}};
}

} // namespace

Json toJson(const DrawingReport& report, bool all) {
  Json layers = Json::array();
  for (const Layer& layer : report.layers)
    layers.push_back(layerJson(layer));
  Json blocks = Json::array();
  for (const Block& block : report.blocks) {
    if (all || isOrdinary(block))
      blocks.push_back(blockJson(block));
  }
  return {{"header", headerJson(report.header)}, {"layers", std::move(layers)}, {"blocks", std::move(blocks)}};
}

Json emptyJson() {
  return {{"header", Json()}, {"layers", Json::array()}, {"blocks", Json::array()}};
}

const char* xrefStatusName(drawing::XrefStatus status) {
  constexpr const char* kNames[] = {"none",      "not-loaded", "loaded", "unloaded",
                                    "not-found", "refused",    "cycle",  "not-followed"};
  return kNames[static_cast<std::size_t>(status)];
}

const char* severityName(drawing::Severity severity) {
  constexpr const char* kNames[] = {"note", "repaired", "lost", "fatal"};
  return kNames[static_cast<std::size_t>(severity)];
}

Json issuesJson(const std::vector<drawing::Issue>& issues) {
  Json list = Json::array();
  for (const drawing::Issue& issue : issues) {
    Json entry = {{"code", issue.code}, {"severity", severityName(issue.severity)}};
    entry[issue.isOffset ? "byte" : "line"] = issue.line;
    if (!issue.section.empty())
      entry["section"] = issue.section;
    if (!issue.kind.empty())
      entry["kind"] = issue.kind;
    if (issue.handle != 0)
      entry["handle"] = OdDbHandle(issue.handle).ascii();
    if (issue.groupCode >= 0)
      entry["group"] = issue.groupCode;
    entry["found"] = issue.found;
    entry["done"] = issue.done;
    list.push_back(std::move(entry));
  }
  return list;
}

OdString jsonText(const Json& json) {
  return OdString::fromUtf8(json.dump() + "\n");
}

} // namespace console::report
