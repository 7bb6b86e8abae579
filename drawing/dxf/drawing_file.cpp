// Drawings from files and back.
#include "DbDxf.h"

#include "OdFiles.h"
#include "dxf/reader.h"
#include "dxf/text_codec.h"
#include "dxf/text_writer.h"
#include "dxf/writer.h"

namespace drawing {

namespace {

// The value of a header variable whose value is text, looked for by its bytes: it must be known before the first text
// is decoded. Variables stand near the top of a file; a file without them is not searched to its end.
std::string headerText(std::string_view content, std::string_view variable) {
  constexpr std::size_t kFar = 1 << 20;
  const std::size_t at = content.substr(0, kFar).find(variable);
  if (at == std::string_view::npos)
    return {};
  std::string_view rest = content.substr(at + variable.size());
  const auto line = [&rest] {
    const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
    std::string_view text = rest.substr(0, end);
    rest.remove_prefix(end);
    const bool crlf = rest.substr(0, 2) == "\r\n";
    rest.remove_prefix(std::min<std::size_t>(crlf ? 2 : 1, rest.size()));
    return text;
  };
  line(); // the end of the variable's own line
  line(); // the group code
  std::string_view value = line();
  while (!value.empty() && value.front() == ' ')
    value.remove_prefix(1);
  while (!value.empty() && value.back() == ' ')
    value.remove_suffix(1);
  return std::string(value);
}

FileFacts factsOf(std::string_view content) {
  FileFacts facts;
  const std::string signature = headerText(content, "$ACADVER");
  facts.version = versionFromSignature(signature);
  if (const std::string page = headerText(content, "$DWGCODEPAGE"); !page.empty())
    facts.codePage = page;
  return facts;
}

ReadResult refuse(OdResult code, std::string message) {
  ReadResult result;
  result.result = code;
  result.message = message;
  result.report.add({"file.refused", Severity::Fatal, 0, -1, 0, "", "", std::move(message), ""});
  return result;
}

std::string reasonFor(OdResult code, const std::string& name, std::uint64_t line) {
  const std::string place = name + (line == 0 ? "" : ", line " + std::to_string(line)) + ": ";
  if (code == eNotADrawing)
    return place + "not a drawing (no section was found)";
  return place + odResultText(code).toUtf8();
}

void tellUndecodable(const dxf::TextCodec& codec, Report& report) {
  if (codec.undecodable() == 0)
    return;
  report.add({"dxf.text-undecodable", Severity::Note, 0, -1, 0, "", "",
              std::to_string(codec.undecodable()) + " bytes are no text in the code page of the file",
              "they are kept as they are"});
}

ReadResult readText(std::string_view content, const std::string& name, const ReadOptions& options) {
  ReadResult result;
  result.report.limitMessages(options.budget.messages);
  FileFacts facts = factsOf(content);
  const bool utf8 = facts.version >= OdDb::kRelease2007;
  dxf::TextCodec codec = !options.encoding.empty() ? dxf::TextCodec(options.encoding)
                         : utf8                    ? dxf::TextCodec({}, dxf::TextCodec::Mode::Utf8)
                                                   : dxf::TextCodec(facts.codePage);
  if (facts.version == OdDb::kVersionUnknown)
    facts.version = OdDb::kRelease12;
  OdDbDatabasePtr database = OdDbDatabase::createEmpty();
  database->facts() = facts;
  dxf::TextPairSource source(content, result.report);
  dxf::Reader reader(*database, source, codec, result.report, options.budget);
  const OdResult code = reader.run();
  if (code != eOk) {
    ReadResult refused = refuse(code, reasonFor(code, name, reader.line()));
    return refused;
  }
  tellUndecodable(codec, result.report);
  result.database = database;
  return result;
}

} // namespace

ReadResult readDrawingFromMemory(std::string_view content, const std::string& name, const ReadOptions& options) {
  std::string signature;
  if (content.empty())
    return refuse(eNotADrawing, name + ": the file is empty");
  if (content.size() > options.budget.bytes)
    return refuse(eBudgetExceeded, name + ": the file is larger than the memory allowed");
  switch (formOf(content, &signature)) {
  case FileForm::TextDxf:
    return readText(content, name, options);
  case FileForm::BinaryDxf:
    return refuse(eUnsupportedFileFormat, name + ": binary DXF cannot be read yet; save it as text DXF");
  case FileForm::Dwg:
    return refuse(eUnsupportedFileFormat, name + ": DWG (" + signature + ") cannot be read; convert it to DXF first");
  default:
    return refuse(eNotADrawing, name + ", line 1: not a drawing (a group code was expected)");
  }
}

ReadResult readDrawing(const std::string& path, const ReadOptions& options) {
  MappedFile file;
  if (const FileError error = file.open(path, options.budget.bytes); !error.ok())
    return refuse(error.code, error.text);
  ReadResult result = readDrawingFromMemory(file.text(), path, options);
  if (!result.database.isNull())
    result.database->facts().path = path;
  return result;
}

namespace {

OdDb::DwgVersion targetVersion(const OdDbDatabase& database, const WriteOptions& options) {
  const OdDb::DwgVersion wanted = options.version == OdDb::kVersionUnknown ? database.facts().version : options.version;
  return std::max(wanted, OdDb::kRelease2000);
}

bool writeTo(const OdDbDatabase& database, OdDb::DwgVersion version, const dxf::TextWriter::Output& output) {
  dxf::TextCodec codec = version >= OdDb::kRelease2007 ? dxf::TextCodec({}, dxf::TextCodec::Mode::Utf8)
                                                       : dxf::TextCodec(database.facts().codePage);
  dxf::TextWriter sink(output, codec, version, version >= database.facts().version);
  dxf::Writer(database, sink).run();
  return sink.finish();
}

} // namespace

WriteResult writeDrawing(const OdDbDatabase& database, const std::string& path, const WriteOptions& options) {
  WriteResult result;
  ReplaceOptions how;
  how.refuseExisting = options.refuseExisting;
  const FileError error = replaceFile(
      path,
      [&](FileSink& sink) {
        writeTo(database, targetVersion(database, options), [&sink](std::string_view bytes) {
          sink.append(bytes);
          return !sink.failed();
        });
        return FileError();
      },
      how);
  result.result = error.code;
  result.message = error.text;
  return result;
}

std::string writeDrawingToMemory(const OdDbDatabase& database, const WriteOptions& options, WriteResult*) {
  std::string bytes;
  writeTo(database, targetVersion(database, options), [&bytes](std::string_view part) {
    bytes.append(part);
    return true;
  });
  return bytes;
}

} // namespace drawing
