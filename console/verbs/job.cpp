#include "console/verbs/job.h"

#include "DbDxf.h"

#include <cstdio>

namespace console::verbs {
namespace {

using Json = nlohmann::ordered_json;

std::string utf8(const OdString& text) {
  return text.toUtf8Lossless();
}

Json messagesOf(const Session& session) {
  Json messages = Json::array();
  for (const Message& message : session.said())
    messages.push_back({{"id", idOf(message.text)}, {"text", utf8(message.shown())}});
  return messages;
}

Json issuesOf(const Session& session) {
  Json issues = Json::array();
  for (const drawing::Issue& issue : session.issues()) {
    Json entry = {{"code", issue.code}, {"severity", severityName(issue.severity)}, {"line", issue.line}};
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
    issues.push_back(std::move(entry));
  }
  return issues;
}

// Bytes of a damaged drawing may be no UTF-8; they are shown as U+FFFD.
OdString jsonText(const Json& report) {
  return OdString::fromUtf8(report.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
}

// The name is refused before anything is read.
void checkOutput(const JobFiles& files) {
  checkDrawingName(files.out);
  if (!files.force && fileExists(files.out))
    refuse(Text::kFileExists, {OdString::fromUtf8(files.out)});
}

} // namespace

const char* severityName(drawing::Severity severity) {
  constexpr const char* kNames[] = {"note", "repaired", "lost", "fatal"};
  return kNames[static_cast<std::size_t>(severity)];
}

Status runJob(SessionOptions settings, const Job& job) {
  settings.quiet = job.json;
  Session session(std::move(settings));
  Json facts = Json::object();
  const auto look = [&](const std::function<void()>& work) {
    return session.attempt(job.name, Command::Kind::Looks, work) == Status::Done;
  };
  const auto change = [&] {
    return !job.work ||
           session.attempt(job.name, Command::Kind::Changes, [&] { job.work(session, facts); }) == Status::Done;
  };
  const bool writes = !job.files.out.empty();
  const auto open = [&] {
    const drawing::Report report = openDrawing(session, job.files.in, !job.readReport);
    if (job.readReport)
      job.readReport(report);
  };
  const auto save = [&] { saveDrawing(session, {job.files.out, job.files.version, job.files.force}); };
  const bool done =
      (!writes || look([&] { checkOutput(job.files); })) && look(open) && change() && (!writes || look(save));
  if (done && job.tell)
    job.tell(session);
  if (done && writes) {
    facts["file"] = job.files.out;
    facts["version"] = versionToWrite(session.database(), job.files.version);
  }
  if (job.json) {
    const Json report = {{"version", 1},
                         {"command", job.name},
                         {"status", static_cast<int>(session.status())},
                         {"results", done ? facts : Json::object()},
                         {"messages", messagesOf(session)},
                         {"issues", issuesOf(session)}};
    session.printReport(jsonText(report));
  }
  return session.status();
}

} // namespace console::verbs
