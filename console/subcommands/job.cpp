#include "console/subcommands/job.h"
#include "console/messages/catalog/drawings.h"

#include "console/report/report_json.h"

#include "drawing/file.h"

#include <cstdio>

namespace console::subcommands {
namespace {

std::string utf8(const OdString& text) {
  return text.toUtf8Lossless();
}

Json texts(const std::vector<OdString>& values) {
  Json list = Json::array();
  for (const OdString& value : values)
    list.push_back(utf8(value));
  return list;
}

Json messagesOf(const Session& session) {
  Json messages = Json::array();
  for (const TranscriptEntry& entry : session.transcript()) {
    messages.push_back({{"id", entry.id}, {"text", utf8(entry.text)}, {"parameters", texts(entry.parameters)}});
    if (entry.box) {
      const bool closed = entry.box->pressed == morvane::MessageBoxes::kClosed;
      messages.back()["caption"] = utf8(entry.box->caption);
      messages.back()["buttons"] = texts(entry.box->buttons);
      messages.back()["pressed"] = closed ? Json() : Json(entry.box->pressed + 1);
    }
  }
  return messages;
}

// The name is refused before anything is read.
void checkOutput(const JobFiles& files) {
  checkDrawingName(files.out);
  if (!files.force && fileExists(files.out))
    refuse(msg::kFileExists, {OdString::fromUtf8(files.out)});
}

} // namespace

Status runJob(SessionOptions settings, const Job& job) {
  settings.quiet = job.json;
  Session session(settings);
  if (job.isInteractive && session.isInteractive() && settings.connectUser)
    settings.connectUser(session);
  Json info = Json::object();
  const auto readOnly = [&](const std::function<void()>& work) {
    return session.attempt(job.name, Command::Kind::kReadOnly, work) == Status::kDone;
  };
  const auto change = [&] {
    return !job.work ||
           session.attempt(job.name, Command::Kind::kModifies, [&] { job.work(session, info); }) == Status::kDone;
  };
  const bool writes = !job.files.out.empty();
  const auto open = [&] {
    const drawing::Report report = openDrawing(session, job.files.in, !job.readReport);
    if (job.readReport)
      job.readReport(report);
  };
  const auto save = [&] { saveDrawing(session, {job.files.out, job.files.version, job.files.form, job.files.force}); };
  const auto precheck = [&] {
    if (writes)
      checkOutput(job.files);
    if (job.before)
      job.before(session);
  };
  const bool done = readOnly(precheck) && readOnly(open) && change() && (!writes || readOnly(save));
  if (done && job.printSummary)
    job.printSummary(session);
  if (done && writes) {
    info["file"] = job.files.out;
    info["version"] = versionToWrite(session.database(), job.files.version);
  }
  if (job.json) {
    const Json result = {{"version", 1},
                         {"command", job.name},
                         {"status", static_cast<int>(session.status())},
                         {"results", done ? info : Json::object()},
                         {"messages", messagesOf(session)},
                         {"issues", report::issuesJson(session.issues())}};
    session.printReport(report::jsonText(result));
  }
  return session.status();
}

} // namespace console::subcommands
