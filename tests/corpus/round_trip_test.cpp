// Real drawings come back from a file as they went in. Two checks that do not share their eyes: the canonical dump
// before and after, which the SDK makes itself, and a comparison of the files' groups by a reader of its own, which
// sees what the SDK never took in.
#include "drawing/dump.h"
#include "drawing/file.h"
#include "drawing/io/text_codec.h"
#include "tests/corpus/drawings.h"
#include "tests/corpus/groups.h"
#include "tests/support/oracles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <set>

namespace {

struct File {
  std::string path; // below the folder
  std::string text;
  bool isSound = false; // a text drawing of 2000 or later that is not there for its damage
};

std::vector<File> files() {
  std::vector<File> all;
  for (const std::string& line : corpus::listed()) {
    File file;
    file.path = line.substr(0, line.find('\t'));
    file.text = corpus::textOf(corpus::folder() + file.path);
    const bool isText = drawing::formOf(file.text) == drawing::FileForm::kTextDxf;
    file.isSound = isText && !file.path.starts_with("damaged/") && !file.path.starts_with("old-formats/") &&
                   line.find("\tAC10") != std::string::npos && line.find("\tAC1009\t") == std::string::npos;
    all.push_back(std::move(file));
  }
  EXPECT_GT(all.size(), 100u);
  return all;
}

// Dump equality after a write and a read, in both forms of files. Files of R12 number entities alone.
void expectRoundTrip(const OdDbDatabase& database) {
  const auto dumpForm = database.fileInfo().version < OdDb::kRelease13 ? drawing::DumpForm::kWithoutHandles
                                                                       : drawing::DumpForm::kWithHandles;
  const std::string dump = drawing::canonicalDump(database, dumpForm);
  for (const auto form : {drawing::WriteOptions::kText, drawing::WriteOptions::kBinary}) {
    SCOPED_TRACE(form == drawing::WriteOptions::kText ? "text" : "binary");
    drawing::WriteOptions options;
    options.form = form;
    const drawing::ReadResult again = drawing::readDrawingFromMemory(drawing::writeDrawingToMemory(database, options));
    ASSERT_FALSE(again.database.isNull()) << again.message;
    EXPECT_EQ(tests::firstDifference(dump, drawing::canonicalDump(*again.database, dumpForm)), "");
  }
}

TEST(RoundTrip, SoundDrawingsRoundTripAndOthersAreRefusedWithAReason) {
  for (const File& file : files()) {
    SCOPED_TRACE(file.path);
    drawing::ReadResult read = drawing::readDrawingFromMemory(file.text, file.path);
    if (read.database.isNull()) {
      EXPECT_TRUE(!file.isSound && read.message.starts_with(file.path)) << read.message;
      continue;
    }
    expectRoundTrip(*read.database);
    tests::expectEqualClone(std::move(read.database));
  }
}

// What the reading of a file of another version may still report.
bool isNothingWrong(const drawing::Issue& issue) {
  return issue.severity == drawing::Severity::kNote || issue.code == "dxf.value-unreadable";
}

// A chosen tenth: the drawings that hold most, and every tenth of the others.
std::vector<const File*> tenthOf(const std::vector<File>& all) {
  std::vector<const File*> chosen;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const bool isRich = all[i].path.starts_with("sample-versions/") || all[i].path.starts_with("dwg-pairs/");
    if (all[i].isSound && (isRich || i % 10 == 0))
      chosen.push_back(&all[i]);
  }
  return chosen;
}

void expectSoundIn(const char* year, const drawing::ReadResult& read) {
  SCOPED_TRACE(year);
  drawing::WriteOptions options;
  options.version = drawing::versionFromYear(year);
  drawing::WriteResult written;
  const std::string bytes = drawing::writeDrawingToMemory(*read.database, options, &written);
  const drawing::ReadResult again = drawing::readDrawingFromMemory(bytes);
  ASSERT_FALSE(again.database.isNull()) << again.message;
  EXPECT_EQ(again.database->fileInfo().version, options.version);
  if (read.report.outcome() == drawing::Outcome::kWhole) {
    for (const drawing::Issue& issue : again.report.issues())
      EXPECT_TRUE(isNothingWrong(issue)) << drawing::describe(issue);
  }
  expectRoundTrip(*again.database);
  if (options.version >= read.database->fileInfo().version) {
    EXPECT_EQ(written.report.outcome(), drawing::Outcome::kWhole) << drawing::describe(written.report.issues()[0]);
  }
}

// In every version and form a tenth can be read again without a fault, and once it is there, it stays as it is.
TEST(RoundTrip, OtherVersionsAreSoundAndStable) {
  const std::vector<File> all = files();
  const std::vector<const File*> chosen = tenthOf(all);
  EXPECT_GE(chosen.size(), all.size() / 10);
  for (const File* file : chosen) {
    SCOPED_TRACE(file->path);
    const drawing::ReadResult read = drawing::readDrawingFromMemory(file->text, file->path);
    EXPECT_FALSE(read.database.isNull()) << read.message;
    for (const char* year : {"12", "2000", "2004", "2007", "2010", "2013", "2018"}) {
      if (!read.database.isNull())
        expectSoundIn(year, read);
    }
  }
}

TEST(RoundTrip, DwgFilesAreRefusedWithTheirVersion) {
  std::size_t count = 0;
  for (const File& file : files()) {
    if (!file.path.ends_with(".dwg"))
      continue;
    SCOPED_TRACE(file.path);
    std::string signature;
    EXPECT_EQ(drawing::formOf(file.text, &signature), drawing::FileForm::kDwg);
    const drawing::ReadResult read = drawing::readDrawingFromMemory(file.text, file.path);
    EXPECT_EQ(read.result, eUnsupportedFileFormat);
    const std::string year = drawing::versionYear(drawing::versionFromSignature(signature));
    EXPECT_EQ(read.message, file.path + ": DWG " + (year.empty() ? "" : year + " ") + "(" + signature +
                                ") cannot be read; convert it to DXF first");
    ++count;
  }
  EXPECT_EQ(count, 13u);
}

// Groups that need not come back, each with the reason. Kind "*" is any record, value "*" any value.
struct Allowed {
  std::set<std::string> kinds;
  std::set<int> codes;
  const char* value;
  enum When { kAlways, kNotWrittenAtAll } when;
  const char* why;
};
constexpr Allowed::When kAbsent = Allowed::kNotWrittenAtAll;

const Allowed kAllowed[] = {
    {{"$HANDSEED"}, {5}, "*", Allowed::kAlways, "the next free handle moves on"},
    {{"TABLE"}, {70}, "*", Allowed::kAlways, "the number of records is counted anew"},
    {{"BLOCK"}, {67, 70}, "*", Allowed::kAlways, "the space, and whether there are attributes, follow from the block"},
    {{"*"}, {67}, "0", kAbsent, "model space is meant without it"},
    {{"*"}, {62}, "256", kAbsent, "colour by layer"},
    {{"*"}, {370}, "-1", kAbsent, "line weight by layer"},
    {{"*"}, {48}, "1", kAbsent, "default line type scale"},
    {{"*"}, {60}, "0", kAbsent, "visible"},
    {{"*"}, {38, 39}, "0", kAbsent, "no elevation, no thickness"},
    {{"*"}, {210, 220}, "0", kAbsent, "default normal"},
    {{"*"}, {230}, "1", kAbsent, "default normal"},
    {{"*"}, {71, 72, 73, 74}, "0", kAbsent, "default flags of texts and polylines, default alignment"},
    {{"*"}, {50, 51}, "0", kAbsent, "neither turned nor oblique"},
    {{"*"}, {11, 21, 31}, "0", kAbsent, "no alignment point"},
    {{"INSERT"}, {41, 42, 43}, "1", kAbsent, "default scale"},
    {{"ATTDEF", "ATTRIB", "TEXT"}, {41}, "1", kAbsent, "default width"},
    {{"INSERT"}, {66}, "*", kAbsent, "whether attributes follow is seen from them"},
    {{"3DFACE"}, {70}, "0", kAbsent, "all edges visible"},
    {{"DIMENSION"}, {1}, "", kAbsent, "the measured value is the text"},
    {{"DIMENSION"}, {42}, "-1", kAbsent, "not measured"},
    {{"DIMENSION"}, {53}, "0", kAbsent, "text not turned"},
    {{"DIMENSION"}, {41, 72}, "1", kAbsent, "default line spacing"},
    {{"MTEXT"}, {46}, "0", Allowed::kAlways, "no height of columns"},
    {{"MTEXT"}, {50}, "*", Allowed::kAlways, "an angle is written as a direction"},
    {{"POLYLINE"}, {70, 75}, "0", kAbsent, "open, of lines, not smoothed"},
    {{"LWPOLYLINE"}, {40, 41, 42}, "0", Allowed::kAlways, "no width and no bulge at the vertex"},
    {{"LWPOLYLINE"}, {43}, "0", kAbsent, "no width"},
    {{"DICTIONARY"}, {280}, "0", kAbsent, "entries are not owned"},
    {{"DICTIONARY"}, {350}, "*", Allowed::kAlways, "entries of a dictionary that owns them stand under 360"},
    {{"DIMSTYLE"}, {40}, "1", kAbsent, "default scale"},
    {{"DIMSTYLE"}, {41, 140}, "0.18", kAbsent, "default size of arrows and texts"},
    {{"DIMSTYLE"}, {340}, "STANDARD", Allowed::kAlways, "a text style by name is written by handle"},
    {{"DIMSTYLE"}, {341}, "0", kAbsent, "no block"},
    {{"LAYER"}, {290}, "1", kAbsent, "plotted"},
    {{"LAYER"}, {348, 390}, "0", kAbsent, "no style"},
};

// Whether the written record has a group of the lost one's code with such a value.
bool hasWritten(const corpus::Loss& loss, const std::function<bool(const std::string&)>& fits) {
  return std::any_of(loss.written->groups.begin(), loss.written->groups.end(),
                     [&](const corpus::Group& group) { return group.code == loss.group.code && fits(group.value); });
}

bool isInTable(const corpus::Loss& loss) {
  for (const Allowed& row : kAllowed) {
    const bool matches = row.kinds.count("*") + row.kinds.count(loss.source->kind) != 0 &&
                         row.codes.count(loss.group.code) != 0 &&
                         (row.value == std::string("*") || row.value == loss.group.value);
    if (matches && (row.when == Allowed::kAlways || !hasWritten(loss, [](const std::string&) { return true; })))
      return true;
  }
  return false;
}

// Names are written as the record spells itself, and the second of two equal block names is changed.
bool isNameOtherwiseSpelled(const corpus::Loss& loss) {
  if (!std::set<int>{2, 3, 6, 7, 8}.contains(loss.group.code))
    return false;
  const std::string wanted = corpus::upper(loss.group.value);
  const bool isBlock = loss.source->kind == "BLOCK" || loss.source->kind == "BLOCK_RECORD";
  return hasWritten(loss, [&](const std::string& value) {
    const std::string have = corpus::upper(value);
    return have == wanted || (isBlock && have == wanted + "-2");
  });
}

// Characters that a file spells by their numbers are written as themselves where the code page has them.
bool isEscaped(const corpus::Loss& loss) {
  return loss.group.value.find("\\U+") != std::string::npos || loss.group.value.find("\\M+") != std::string::npos;
}

// A file whose texts are not in the page that it declares is written in that page, and texts that would pass for UTF-8
// there are written in escapes.
bool isReEncoded(const corpus::Loss& loss) {
  drawing::dxf::TextCodec page("ANSI_1251");
  page.escapeAmbiguousText();
  std::string decoded, one, other;
  const std::string fromPage(page.decode(loss.group.value, decoded));
  const std::string_view wanted[] = {page.encode(loss.group.value, one), page.encode(fromPage, other)};
  return hasWritten(loss, [&](const std::string& value) { return value == wanted[0] || value == wanted[1]; });
}

// Angles are held in radians.
bool isSameAngle(const corpus::Loss& loss) {
  if (loss.group.code < 50 || loss.group.code > 58)
    return false;
  const double wanted = std::strtod(loss.group.value.c_str(), nullptr);
  return hasWritten(loss, [&](const std::string& value) {
    return std::fabs(std::strtod(value.c_str(), nullptr) - wanted) <= 1e-14 * std::max(1.0, std::fabs(wanted));
  });
}

std::string joinedText(const corpus::Record& record) {
  std::string all;
  for (const corpus::Group& group : record.groups)
    all += group.code == 1 || group.code == 3 ? group.value : "";
  return all;
}

// Long texts are cut into pieces elsewhere.
bool isCutElsewhere(const corpus::Loss& loss) {
  return loss.source->kind == "MTEXT" && (loss.group.code == 1 || loss.group.code == 3) &&
         joinedText(*loss.source) == joinedText(*loss.written);
}

// A space whose layout does not exist gets one.
bool isMissingLayout(const corpus::Loss& loss) {
  return loss.source->kind == "BLOCK_RECORD" && loss.group.code == 340 && loss.toNothing;
}

void expectNoGroupLost(const File& file) {
  bool (*const reasons[])(const corpus::Loss&) = {isReEncoded, isInTable,      isNameOtherwiseSpelled, isEscaped,
                                                  isSameAngle, isCutElsewhere, isMissingLayout};
  SCOPED_TRACE(file.path);
  const drawing::ReadResult read = drawing::readDrawingFromMemory(file.text, file.path);
  ASSERT_FALSE(read.database.isNull()) << read.message;
  const std::string bytes = drawing::writeDrawingToMemory(*read.database);
  const corpus::Contents source = corpus::contentsOf(file.text), written = corpus::contentsOf(bytes);
  for (const corpus::Loss& loss : corpus::lossesBetween(source, written)) {
    const bool isAllowed = loss.written != nullptr && std::any_of(std::begin(reasons), std::end(reasons),
                                                                  [&loss](auto reason) { return reason(loss); });
    EXPECT_TRUE(isAllowed) << loss.source->kind << " " << loss.name << " lost " << loss.group.code << " \""
                           << loss.group.value.substr(0, 60) << "\""
                           << (loss.written == nullptr ? ", the whole record is missing" : "");
  }
}

TEST(RoundTrip, NoGroupOfASoundDrawingIsLost) {
  for (const File& file : files()) {
    if (file.isSound)
      expectNoGroupLost(file);
  }
}

} // namespace
