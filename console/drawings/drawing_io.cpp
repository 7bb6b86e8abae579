#include "console/drawings/drawing_io.h"
#include "console/messages/catalog/drawings.h"
#include "console/messages/catalog/xrefs.h"

#include "DbBlockTable.h"
#include "drawing/file.h"
#include "drawing/files.h"

#include <algorithm>
#include <filesystem>

namespace console {
namespace {

bool isLoss(const drawing::Issue& issue) {
  return issue.severity >= drawing::Severity::kRepaired;
}

// A line for each thing that was repaired or lost, and how many there were.
void printIssues(Session& session, const std::string& path, const drawing::Report& report, MessageText line) {
  constexpr std::size_t kMaxLines = 20;
  std::size_t printed = 0;
  for (const drawing::Issue& issue : report.issues()) {
    if (isLoss(issue) && ++printed <= kMaxLines)
      session.print(line, {OdString::fromUtf8(path), OdString::fromUtf8(drawing::describe(issue))});
  }
  printed += report.suppressed();
  if (printed > kMaxLines)
    session.print(msg::kMoreIssues, {OdString::fromUtf8(path), count(printed - kMaxLines)});
}

std::size_t losses(const drawing::Report& report) {
  const auto& issues = report.issues();
  return static_cast<std::size_t>(std::count_if(issues.begin(), issues.end(), isLoss)) + report.suppressed();
}

bool fileStatus(const std::string& path, drawing::FileStatus& status) {
  return drawing::fileOperations().stat(path, status).ok();
}

bool isSameTarget(const std::string& one, const std::string& other) {
  drawing::FileStatus first;
  drawing::FileStatus second;
  return fileStatus(one, first) && fileStatus(other, second) && first.device == second.device &&
         first.file == second.file;
}

drawing::ReadResult readOrThrow(Session& session, const std::string& path) {
  drawing::ReadResult read = drawing::readDrawing(path, session.reading());
  session.addIssues(read.report);
  if (read.database.isNull())
    throw Failure{Status::kUnreadable, {msg::kUnreadable, {OdString::fromUtf8(read.message)}}};
  return read;
}

void reportRepaired(Session& session, const std::string& path, const drawing::Report& report, bool listsIssues) {
  session.print(msg::kRepaired, {OdString::fromUtf8(path), count(losses(report))});
  if (listsIssues)
    printIssues(session, path, report, msg::kReadIssue);
  session.raiseStatus(Status::kRepaired);
}

std::size_t objectsInModelSpace(const OdDbDatabase& database) {
  const OdDbBlockTableRecordPtr space = database.getModelSpaceId().safeOpenObject();
  std::size_t objects = 0;
  if (!space.isNull()) {
    for (const auto iterator = space->newIterator(); !iterator->done(); iterator->step())
      ++objects;
  }
  return objects;
}

} // namespace

void reportXrefs(Session& session) {
  constexpr std::size_t kMaxLines = 20;
  const std::string& path = session.drawing().path;
  const OdString name = path.empty() ? render(msg::kUnsavedName) : OdString::fromUtf8(path);
  const drawing::Report& report = session.drawing().document->xrefReport();
  session.addIssues(report);
  const auto& issues = report.issues();
  for (std::size_t i = 0; i < issues.size() && i < kMaxLines; ++i)
    session.print(msg::kXrefNote, {name, OdString::fromUtf8(issues[i].found)});
  const std::size_t all = issues.size() + report.suppressed();
  if (all > kMaxLines)
    session.print(msg::kMoreIssues, {name, count(all - kMaxLines)});
}

drawing::Report openDrawing(Session& session, const std::string& path, bool listsIssues) {
  const drawing::ReadResult read = readOrThrow(session, path);
  const bool repaired = read.report.outcome() != drawing::Outcome::kWhole;
  session.replaceDrawing(read.database, path, repaired);
  session.print(msg::kOpened, {OdString::fromUtf8(path), count(objectsInModelSpace(*read.database)),
                               OdString::fromUtf8(drawing::versionYear(read.database->fileInfo().version))});
  reportXrefs(session);
  if (repaired)
    reportRepaired(session, path, read.report, listsIssues);
  return read.report;
}

OdDbDatabasePtr readDrawingFile(Session& session, const std::string& path) {
  const drawing::ReadResult read = readOrThrow(session, path);
  if (read.report.outcome() != drawing::Outcome::kWhole)
    reportRepaired(session, path, read.report, true);
  return read.database;
}

void reportLosses(Session& session, const std::string& path, const drawing::Report& report) {
  session.addIssues(report);
  printIssues(session, path, report, msg::kVersionLoss);
  if (losses(report) > 0)
    session.raiseStatus(Status::kRepaired);
}

void writeFile(Session& session, const OdDbDatabase& database, const SaveRequest& request) {
  checkDrawingName(request.path);
  if (!request.mayReplace && fileExists(request.path))
    refuse(msg::kFileExists, {OdString::fromUtf8(request.path)});
  drawing::WriteOptions options;
  options.version = request.version;
  options.form = request.form;
  options.refuseExisting = !request.mayReplace;
  const drawing::WriteResult written = drawing::writeDrawing(database, request.path, options);
  if (written.result != eOk)
    throw Failure{Status::kSaveFailed, {msg::kSaveFailed, {OdString::fromUtf8(written.message)}}};
  reportLosses(session, request.path, written.report);
}

void saveDrawing(Session& session, const SaveRequest& request) {
  if (!request.mayReplace && isOwnFileRepaired(session, request.path))
    refuse(msg::kRepairedOwnFile, {OdString::fromUtf8(request.path)});
  writeFile(session, session.database(), request);
  session.result(msg::kSaved, {OdString::fromUtf8(request.path),
                               OdString::fromUtf8(versionToWrite(session.database(), request.version))});
  session.savedAs(request.path);
}

void writeBytes(const std::string& path, std::string_view bytes, bool mayReplace) {
  if (!mayReplace && fileExists(path))
    refuse(msg::kFileExists, {OdString::fromUtf8(path)});
  drawing::ReplaceOptions replacing;
  replacing.refuseExisting = !mayReplace;
  const drawing::FileError written = drawing::replaceFile(
      path, [bytes](drawing::FileSink& sink) { return sink.append(bytes), drawing::FileError(); }, replacing);
  if (!written.ok())
    throw Failure{Status::kSaveFailed, {msg::kSaveFailed, {OdString::fromUtf8(written.text)}}};
}

bool fileExists(const std::string& path) {
  drawing::FileStatus status;
  return fileStatus(path, status);
}

bool isOrdinaryFile(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

bool isOwnFileRepaired(Session& session, const std::string& path) {
  const OpenDrawing& drawing = session.drawing();
  return drawing.repaired && !drawing.path.empty() && isSameTarget(drawing.path, path);
}

std::string versionToWrite(const OdDbDatabase& database, OdDb::DwgVersion wanted) {
  const OdDb::DwgVersion version = wanted == OdDb::kVersionUnknown ? database.fileInfo().version : wanted;
  return drawing::versionYear(drawing::writtenVersion(version));
}

void checkDrawingName(const std::string& path) {
  if (path.empty())
    refuse(msg::kNoFileName);
  if (path.size() >= 4 && OdString::fromUtf8(path.substr(path.size() - 4)).iCompare(L".dwg") == 0)
    refuse(msg::kNotADrawingName, {OdString::fromUtf8(path)});
}

} // namespace console
