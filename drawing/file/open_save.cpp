// Drawings from files and back.
#include "drawing/file.h"

#include "drawing/dxf/encoding_detection.h"
#include "drawing/dxf/r12/writer.h"
#include "drawing/dxf/reader.h"
#include "drawing/dxf/text_writer.h"
#include "drawing/dxf/writer.h"
#include "drawing/file/version_copy.h"
#include "drawing/files.h"
#include "drawing/io/text_codec.h"

#include <algorithm>
#include <functional>
#include <unistd.h>

namespace drawing {

namespace {

// The value of a header variable whose value is text, looked for by its bytes: it must be known before the first text
// is decoded. Variables stand near the top of a file; a file without them is not searched to its end. In both forms the
// value comes behind its group code: a line of digits, or one or two bytes that are not characters.
std::string headerText(std::string_view content, std::string_view variable) {
  constexpr std::size_t kSearchLimit = 1 << 20;
  const std::size_t at = content.substr(0, kSearchLimit).find(variable);
  if (at == std::string_view::npos)
    return {};
  std::string_view rest = content.substr(at + variable.size());
  const auto isEnd = [](char c) { return c == '\0' || c == '\r' || c == '\n'; };
  const auto skip = [&rest](auto matches) {
    while (!rest.empty() && matches(rest.front()))
      rest.remove_prefix(1);
  };
  const bool isBinary = !rest.empty() && rest.front() == '\0';
  skip([](char c) { return static_cast<unsigned char>(c) <= ' '; });
  if (!isBinary)
    skip([](char c) { return c >= '0' && c <= '9'; });
  skip([](char c) { return static_cast<unsigned char>(c) <= ' '; });
  std::size_t length = 0;
  while (length < rest.size() && !isEnd(rest[length]))
    ++length;
  while (length > 0 && rest[length - 1] == ' ')
    --length;
  return std::string(rest.substr(0, length));
}

void addHeaderIssue(Report& report, const char* code, std::string found, std::string done) {
  report.add({.code = code,
              .severity = Severity::kNote,
              .section = "HEADER",
              .found = std::move(found),
              .done = std::move(done)});
}

// A signature that we do not know is that of an older program when it is less than the first one we do, of a newer one
// when it is more than the last.
OdDb::DwgVersion nearestVersion(const std::string& signature) {
  const bool isNewer = signature.size() == 6 && signature > versionSignature(OdDb::kRelease2018);
  return isNewer ? OdDb::kRelease2018 : OdDb::kRelease12;
}

FileInfo fileInfoOf(std::string_view content, Report& report) {
  FileInfo info;
  const std::string signature = headerText(content, "$ACADVER");
  info.version = versionFromSignature(signature);
  if (info.version == OdDb::kVersionUnknown) {
    info.version = nearestVersion(signature);
    if (!signature.empty())
      addHeaderIssue(report, "dxf.version-unknown", "the version \"" + signature + "\" is not known",
                     "it is read as version " + std::string(versionYear(info.version)));
  }
  if (const std::string page = headerText(content, "$DWGCODEPAGE"); !page.empty())
    info.codePage = page;
  return info;
}

ReadResult refuse(OdResult code, std::string message) {
  ReadResult result;
  result.result = code;
  result.message = message;
  result.report.add({.code = "file.refused", .severity = Severity::kFatal, .found = std::move(message)});
  return result;
}

std::string reasonFor(OdResult code, const std::string& name, const dxf::Reader& reader, bool binary) {
  const char* unit = binary ? ", byte " : ", line ";
  const std::string location = name + (reader.line() == 0 ? "" : unit + std::to_string(reader.line())) + ": ";
  if (!reader.limit().empty())
    return location + reader.limit();
  if (code == eNotADrawing)
    return location + "not a drawing (no section was found)";
  return location + resultText(code).toUtf8();
}

// The line of a text file, the offset in a binary one; 0 for a place elsewhere.
std::uint64_t locationIn(std::string_view content, const char* at, bool binary) {
  const std::less<const char*> before;
  if (at == nullptr || before(at, content.data()) || !before(at, content.data() + content.size()))
    return 0;
  const std::string_view ahead = content.substr(0, static_cast<std::size_t>(at - content.data()));
  const char ending = content.find('\n') == std::string_view::npos ? '\r' : '\n';
  return binary ? ahead.size() : static_cast<std::uint64_t>(std::count(ahead.begin(), ahead.end(), ending)) + 1;
}

void reportUndecodable(const dxf::TextCodec& codec, std::string_view content, bool binary, Report& report) {
  if (codec.undecodable() == 0)
    return;
  const std::uint64_t location = locationIn(content, codec.firstUndecodable(), binary);
  report.add({.code = "dxf.text-undecodable",
              .severity = Severity::kNote,
              .line = location,
              .found = std::to_string(codec.undecodable()) + " bytes are not valid in the code page of the file",
              .done = "they are kept unchanged"});
}

std::unique_ptr<dxf::GroupSource> sourceOf(std::string_view content, bool binary, Report& report) {
  if (binary)
    return std::make_unique<dxf::BinaryGroupSource>(content, report);
  return std::make_unique<dxf::TextGroupSource>(content, report);
}

dxf::Encoding encodingFor(std::string_view content, const FileInfo& info, const ReadOptions& options, Report& report) {
  if (!options.encoding.empty())
    return {options.encoding};
  if (dxf::codePageNumber(info.codePage) == 0)
    addHeaderIssue(report, "dxf.code-page-unknown", "the code page \"" + info.codePage + "\" is not known",
                   "texts are read as ANSI_1252 unless they are UTF-8");
  Report unheard; // the reader reports it
  // Without other characters than ASCII there is nothing to learn from the texts.
  const auto source = sourceOf(dxf::isAscii(content) ? std::string_view() : content, info.binary, unheard);
  const dxf::Encoding encoding = dxf::encodingOf(info, *source);
  if (encoding.isContradicted)
    addHeaderIssue(report, "dxf.encoding-contradicted",
                   encoding.mode == dxf::TextCodec::Mode::kUtf8
                       ? "the texts are UTF-8 and not in the code page " + info.codePage + " that the file declares"
                       : "the texts are not UTF-8, but in the code page " + encoding.page,
                   "the detected encoding is used");
  return encoding;
}

ReadResult readGroups(std::string_view content, const std::string& name, const ReadOptions& options, bool binary) {
  ReadResult result;
  result.report.limitMessages(options.budget.messages);
  FileInfo info = fileInfoOf(content, result.report);
  info.binary = binary;
  const dxf::Encoding encoding = encodingFor(content, info, options, result.report);
  dxf::TextCodec codec(encoding.page, encoding.mode);
  OdDbDatabasePtr database = OdDbDatabase::createEmpty();
  database->fileInfo() = info;
  const auto source = sourceOf(content, binary, result.report);
  dxf::Reader reader(*database, *source, codec, result.report, options.budget);
  const OdResult code = reader.run();
  if (code != eOk)
    return refuse(code, reasonFor(code, name, reader, binary));
  reportUndecodable(codec, content, binary, result.report);
  result.database = database;
  return result;
}

// The default memory limit of a reading.
std::uint64_t usualMemory(std::uint64_t fileSize) {
  const auto pages = sysconf(_SC_PHYS_PAGES), pageSize = sysconf(_SC_PAGESIZE);
  const std::uint64_t machine =
      pages > 0 && pageSize > 0 ? static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(pageSize) : UINT64_MAX;
  constexpr std::uint64_t kLeast = std::uint64_t{64} << 20;
  return std::min(machine / 4 * 3, fileSize > UINT64_MAX / 200 ? UINT64_MAX : kLeast + 100 * fileSize);
}

} // namespace

bool isKnownEncoding(std::string_view name) {
  return dxf::codePageNumber(name) != 0;
}

ReadResult readDrawingFromMemory(std::string_view content, const std::string& name, const ReadOptions& given) {
  std::string signature;
  if (content.empty())
    return refuse(eNotADrawing, name + ": the file is empty");
  ReadOptions options = given;
  if (options.budget.bytes == 0)
    options.budget.bytes = usualMemory(content.size());
  if (content.size() > options.budget.bytes)
    return refuse(eBudgetExceeded, name + ": the file is larger than the " + std::to_string(options.budget.bytes) +
                                       " bytes of memory allowed");
  switch (formOf(content, &signature)) {
  case FileForm::kTextDxf:
    return readGroups(content, name, options, false);
  case FileForm::kBinaryDxf:
    return readGroups(content, name, options, true);
  case FileForm::kDwg: {
    const std::string year = versionYear(versionFromSignature(signature));
    return refuse(eUnsupportedFileFormat, name + ": DWG " + (year.empty() ? "" : year + " ") + "(" + signature +
                                              ") cannot be read; convert it to DXF first");
  }
  default:
    return refuse(eNotADrawing, name + ", line 1: not a drawing (a group code was expected)");
  }
}

ReadResult readDrawing(const std::string& path, const ReadOptions& options) {
  MappedFile file;
  // A pipe or a device may never end, and what it brings is held beside the drawing.
  constexpr std::uint64_t kLargestStream = std::uint64_t{1} << 30;
  FileStatus status;
  const bool isFile = fileOperations().stat(path, status).ok() && status.kind == FileStatus::Kind::kRegular;
  const std::uint64_t usual = std::min(usualMemory(UINT64_MAX), isFile ? UINT64_MAX : kLargestStream);
  const std::uint64_t limit = options.budget.bytes == 0 ? usual : options.budget.bytes;
  if (const FileError error = file.open(path, limit); !error.ok())
    return refuse(error.code, error.text);
  ReadResult result = readDrawingFromMemory(file.text(), path, options);
  if (!result.database.isNull())
    result.database->fileInfo().path = path;
  return result;
}

namespace {

OdDb::DwgVersion targetVersion(const OdDbDatabase& database, const WriteOptions& options) {
  const OdDb::DwgVersion wanted =
      options.version == OdDb::kVersionUnknown ? database.fileInfo().version : options.version;
  return writtenVersion(wanted);
}

class CountingSink final : public GroupSink {
  void utf8(int, std::string_view) override {}
  void real(int, double) override {}
  void integer(int, std::int64_t) override {}
  void reference(int, OdDbObjectId) override {}
  void handle(int, OdDbHandle) override {}
  void binary(int, std::string_view) override {}
  void unparsed(int, std::string_view) override {}
  OdDb::DwgVersion version() const override { return OdDb::kRelease12; }
};

bool isBinary(const OdDbDatabase& database, WriteOptions::Form form) {
  return form == WriteOptions::kAsRead ? database.fileInfo().binary : form == WriteOptions::kBinary;
}

// The first pass only counts: the header says which handles the file does not use.
void writeR12(const OdDbDatabase& database, GroupSink& sink) {
  CountingSink nothing;
  dxf::R12Writer count(database, nothing, 0);
  count.run();
  dxf::R12Writer(database, sink, count.firstFree()).run();
}

void writeTo(const OdDbDatabase& given, const WriteOptions& options, const dxf::FormWriter::Output& output,
             Report& losses) {
  const OdDb::DwgVersion version = targetVersion(given, options);
  const OdDbDatabasePtr copy = options.attributesAsStored ? nullptr : dxf::copyForVersion(given, version);
  const OdDbDatabase& database = copy.isNull() ? given : *copy;
  dxf::TextCodec codec = version >= OdDb::kRelease2007 ? dxf::TextCodec({}, dxf::TextCodec::Mode::kUtf8)
                                                       : dxf::TextCodec(database.fileInfo().codePage);
  codec.escapeAmbiguousText();
  dxf::FormWriter::Target target{output, codec, version, version >= database.fileInfo().version, losses};
  std::unique_ptr<dxf::FormWriter> sink;
  if (isBinary(database, options.form))
    sink = std::make_unique<dxf::BinaryWriter>(std::move(target));
  else
    sink = std::make_unique<dxf::TextWriter>(std::move(target));
  if (version < OdDb::kRelease13)
    writeR12(database, *sink);
  else
    dxf::Writer(database, *sink).run();
  sink->finish();
}

} // namespace

WriteResult writeDrawing(const OdDbDatabase& database, const std::string& path, const WriteOptions& options) {
  WriteResult result;
  ReplaceOptions replacing;
  replacing.refuseExisting = options.refuseExisting;
  const FileError error = replaceFile(
      path,
      [&](FileSink& sink) {
        const auto output = [&sink](std::string_view bytes) {
          sink.append(bytes);
          return !sink.failed();
        };
        writeTo(database, options, output, result.report);
        return FileError();
      },
      replacing);
  result.result = error.code;
  result.message = error.text;
  return result;
}

std::string writeDrawingToMemory(const OdDbDatabase& database, const WriteOptions& options, WriteResult* result) {
  std::string bytes;
  Report losses;
  const auto output = [&bytes](std::string_view part) {
    bytes.append(part);
    return true;
  };
  writeTo(database, options, output, losses);
  if (result != nullptr)
    *result = {eOk, "", std::move(losses)};
  return bytes;
}

} // namespace drawing
