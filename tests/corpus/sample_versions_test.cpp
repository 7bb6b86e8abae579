// One rich drawing that another program saved as 2000, 2007, 2018 and binary 2018 is the same drawing to us. Where it
// is not, the table says why: what a version cannot hold, what that program kept for itself on the way, and what it
// changes with every save. A row that excuses nothing is a fault, too.
#include "drawing/dump.h"
#include "drawing/file.h"

#include "tests/corpus/drawings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <map>
#include <sstream>

namespace {

struct Record {
  std::string kind; // of header variables and sections their name
  std::map<int, std::vector<std::string>> groups;
};
using Records = std::map<std::string, Record>;

// "NAME KIND of OWNER", where names may hold anything and kinds are in capitals; else the whole line.
std::string kindIn(const std::string& line) {
  constexpr const char* kCapitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ_0123456789";
  for (std::size_t of = line.find(" of "); of != std::string::npos; of = line.find(" of ", of + 1)) {
    const std::size_t space = line.rfind(' ', of - 1);
    const std::string kind = line.substr(space + 1, of - space - 1);
    if (kind.find_first_not_of(kCapitals) == std::string::npos)
      return kind;
  }
  return line;
}

Records recordsOf(const std::string& version) {
  const drawing::ReadResult read =
      drawing::readDrawing(corpus::folder() + "sample-versions/sample_" + version + ".dxf");
  EXPECT_FALSE(read.database.isNull()) << read.message;
  Records records;
  if (read.database.isNull())
    return records;
  std::istringstream dump(drawing::canonicalDump(*read.database, drawing::DumpForm::kWithoutHandles));
  Record* at = nullptr;
  for (std::string line; std::getline(dump, line);) {
    if (line.empty() || line[0] != ' ') {
      std::string name = line;
      for (int again = 2; records.count(name) != 0; ++again)
        name = line + " " + std::to_string(again);
      at = &records[name];
      at->kind = kindIn(line);
      continue;
    }
    const std::size_t begin = line.find_first_not_of(' '), end = line.find(' ', begin);
    const std::string value = end == std::string::npos ? "" : line.substr(end + 1);
    at->groups[std::atoi(line.c_str())].push_back(value);
  }
  return records;
}

bool isSame(const std::string& one, const std::string& other) {
  double a = 0, b = 0;
  const auto read = [](const std::string& text, double& value) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
  };
  if (!read(one, a) || !read(other, b))
    return one == other;
  return std::fabs(a - b) <= 1e-9 * std::max({1.0, std::fabs(a), std::fabs(b)}); // files hold 15 or 16 digits
}

// Rows of "kinds | codes | why" below headings; the kind "$" stands for all header variables, the code "whole" for a
// record that stands in one of the files only.
constexpr char kFrom2000To2007[] = R"(
What versions before 2007 cannot hold.
$ | whole | variables of 2004 and 2007
ARC INSERT LINE MTEXT POINT SOLID | 440 | transparency
BLOCK CIRCLE DIMENSION ENDBLK INSERT LAYER LINE MTEXT PDFUNDERLAY POINT SOLID DBCOLOR | 420 430 62 | true colours
CIRCLE LAYER POINT | 347 | materials
DIMENSION | 73 74 75 | flipped arrows
DIMSTYLE | 69 70 345 346 347 | fill and line types of dimensions
HATCH | 63 421 450 451 452 453 460 461 462 463 470 | gradients
HATCH | 62 | a plain colour in place of a gradient
LAYOUT | 76 77 78 | shaded plotting
MATERIAL | 93 94 148 468 | properties that came later
MTEXT | 45 63 90 421 441 | backgrounds
TABLESTYLE | 1 90 91 | formats of cells
ACAD_TABLE TABLECONTENT | 1 11 21 31 90 91 92 93 94 140 177 300 301 302 304 310 | values of cells
VIEW VIEWPORT VPORT | 60 61 63 73 141 142 170 282 292 348 421 | grids, lights and visual styles
VISUALSTYLE | 421 424 425 | true colours
ACDBDETAILVIEWSTYLE ACDBSECTIONVIEWSTYLE | 62 | colours of styles
3DSOLID REGION | 1 100 350 | the history of solids, and their later form
ACSH_BOX_CLASS ACSH_EXTRUSION_CLASS ACSH_HISTORY_CLASS ACAD_EVALUATION_GRAPH | whole | the history of solids
ATTDEF ATTRIB | 280 | that the position is locked
BLOCK_RECORD | 281 | that a block is scaled uniformly
What the other program keeps for itself in earlier versions, so that it finds it again.
APPID | whole | names of what is kept
XRECORD | whole 90 91 102 360 | later values that wait in records
DICTIONARY | whole 3 350 360 | dictionaries of such records
DICTIONARYVAR ACDBDATATABLE | whole | variables and tables that wait
HATCH LAYOUT MTEXT | 360 | dictionaries of such records
ATTDEF ATTRIB DIMSTYLE MTEXT DBCOLOR | 1000 1001 1004 1005 1040 1070 1071 | later values that wait in extended data
MTEXT | 1 3 | another way to write fractions, and where lines of code break
What changes with every save.
$ACADMAINTVER $TDINDWG $TDUSRTIMER $VERSIONGUID | 2 40 70 | which program, and when
section#CLASSES | 0 1 2 3 90 91 280 281 | how many objects of each class there are
XRECORD | 300 302 303 | marks of the last save
MULTILEADER | 92 310 | pictures of the entity
BLOCKLINEARGRIP BLOCKLINEARPARAMETER BLOCKSCALEACTION | 98 99 | versions of the class
BLOCKVISIBILITYGRIP BLOCKVISIBILITYPARAMETER | 98 99 | versions of the class
)";

constexpr char kFrom2007To2018[] = R"(
What versions before 2018 cannot hold, or hold in another form.
$ | whole | variables of 2010 and 2013
$ACADMAINTVER $XCLIPFRAME | 70 90 280 290 | wider values
3DSOLID REGION | 1 2 70 290 | bodies stand in a section of their own
section#ACDSDATA | whole | the section of bodies
ACAD_TABLE IMAGE MESH MULTILEADER PDFUNDERLAY WIPEOUT | 92 160 310 | pictures of the entity stand under another code
IMAGE WIPEOUT | 290 | the side that clipping keeps
ATTDEF ATTRIB | 1 10 11 20 21 30 31 40 41 44 46 71 72 73 101 360 | multi-line attributes stand in a record before
MTEXT | 10 11 20 21 30 31 40 41 42 43 44 45 46 70 71 72 73 74 101 | columns stand in extended data before
MTEXT | 1000 1001 1040 1070 | the extended data
MULTILEADER MLEADERSTYLE | 179 270 271 272 273 295 298 | leaders that are attached above and below
TABLESTYLE ACAD_TABLE | 280 | versions of the class
ACDB_TEXTOBJECTCONTEXTDATA_CLASS | whole | looks at other scales
LAYER | whole | layers that stand for looks at other scales
TEXT | 8 1070 | layers that stand for looks at other scales
VISUALSTYLE | 1 40 41 42 43 44 45 62 63 64 65 66 67 70 71 72 73 74 75 76 77 78 79 90 91 92 | another layout of the class
VISUALSTYLE | 93 170 171 173 174 175 176 177 290 420 421 424 425 360 1000 1001 1070 | another layout of the class
ACDBDETAILVIEWSTYLE ACDBSECTIONVIEWSTYLE | 90 300 360 | another layout of the class
What the other program keeps for itself, and what it names otherwise.
APPID | whole | names of what is kept
XRECORD | whole 1 62 90 330 331 370 440 | later values that wait in records
DICTIONARY | whole 3 350 | dictionaries of such records
DICTIONARYVAR | whole | variables that wait
LTYPE MULTILEADER | 360 | dictionaries of such records
3DSOLID REGION DBCOLOR MLEADERSTYLE MULTILEADER VPORT | 1000 1001 1070 1071 | later values that wait in extended data
BLOCK_RECORD BLOCK ENDBLK CIRCLE BLOCKGRIPLOCATIONCOMPONENT | whole | of the dynamic block, which is anonymous before
ACAD_EVALUATION_GRAPH ACDB_DYNAMICBLOCKPURGEPREVENTER_VERSION | whole | of the dynamic block, too
BLOCKLINEARGRIP BLOCKLINEARPARAMETER BLOCKSCALEACTION BLOCKVISIBILITYGRIP BLOCKVISIBILITYPARAMETER | whole | likewise
BLOCK_RECORD ACDB_BLOCKREPRESENTATION_DATA | 340 1005 | and is referred to by it
ATTRIB | 2 10 11 20 21 30 31 40 71 74 | the two attributes of equal tag are told apart by a number
LTYPE | 74 | shapes in lines have another mark
MULTILEADER | 10 40 41 90 95 173 174 175 | texts are measured anew
What changes with every save.
$VERSIONGUID | 2 | which save it was
section#CLASSES | 91 | how many objects of each class there are
XRECORD | 300 302 303 | marks of the last save
ACDBASSOCPERSSUBENTMANAGER ACDBPERSSUBENTMANAGER | 90 | counters
)";

// The two files of 2018 were saved one after the other.
constexpr char kFromTextToBinary[] = R"(
$TDINDWG $TDUSRTIMER $VERSIONGUID | 2 40 | which save it was, and when
section#CLASSES section#ACDSDATA | 91 94 310 320 | numbers of objects, bodies, places
XRECORD | 300 302 303 | marks of the last save
ACAD_TABLE MULTILEADER | 310 | pictures of the entity
BLOCKGRIPLOCATIONCOMPONENT | 140 | the largest number, which text files round
DICTIONARY | 3 350 | variables that came in between
DICTIONARYVAR | whole | variables that came in between
VPORT | 1000 1001 1071 | a mark of the last save
)";

struct Difference {
  std::string kinds, codes; // with blanks around each
  std::string why;
  bool isUsed = false;
};

std::vector<Difference> rowsOf(const char* table) {
  std::vector<Difference> rows;
  std::istringstream lines(table);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t codes = line.find('|'), why = line.rfind('|');
    if (codes != why) // else a heading
      rows.push_back({" " + line.substr(0, codes), line.substr(codes + 1, why - codes - 1), line.substr(why + 2)});
  }
  return rows;
}

class Excuses {
public:
  explicit Excuses(const char* table) : rows_(rowsOf(table)) {}
  ~Excuses() {
    for (const Difference& row : rows_)
      EXPECT_TRUE(row.isUsed) << "nothing is different any more:" << row.kinds << "|" << row.codes << "| " << row.why;
  }
  bool allow(std::string kind, const std::string& code) {
    bool allowed = false;
    std::replace(kind.begin(), kind.end(), ' ', '#');
    for (Difference& row : rows_) {
      const bool fits = (row.kinds == " $ " ? kind[0] == '$' : row.kinds.find(" " + kind + " ") != std::string::npos) &&
                        row.codes.find(" " + code + " ") != std::string::npos;
      row.isUsed = row.isUsed || fits;
      allowed = allowed || fits;
    }
    return allowed;
  }

private:
  std::vector<Difference> rows_;
};

void compareGroups(const std::string& name, const Record& one, const Record& other, Excuses& excuses) {
  std::map<int, std::array<std::vector<std::string>, 2>> both;
  for (const auto& [code, values] : one.groups)
    both[code][0] = values;
  for (const auto& [code, values] : other.groups)
    both[code][1] = values;
  for (const auto& [code, values] : both) {
    const auto& [left, right] = values;
    if (!std::equal(left.begin(), left.end(), right.begin(), right.end(), isSame)) {
      EXPECT_TRUE(excuses.allow(one.kind, std::to_string(code))) << name << ", group " << code;
    }
  }
}

void compare(const char* differences, const std::string& earlier, const std::string& later) {
  SCOPED_TRACE(earlier + " and " + later);
  const Records one = recordsOf(earlier), other = recordsOf(later);
  ASSERT_GT(one.size(), 1000u);
  Excuses excuses(differences);
  std::size_t shared = 0;
  for (const auto& [name, record] : one) {
    const auto found = other.find(name);
    if (found == other.end()) {
      EXPECT_TRUE(excuses.allow(record.kind, "whole")) << name << " stands in the first alone";
      continue;
    }
    ++shared;
    compareGroups(name, record, found->second, excuses);
  }
  for (const auto& [name, record] : other) {
    if (one.count(name) == 0) {
      EXPECT_TRUE(excuses.allow(record.kind, "whole")) << name << " stands in the second alone";
    }
  }
  EXPECT_GT(shared * 10, one.size() * 8);
}

TEST(SampleVersions, Version2000And2007AreEqual) {
  compare(kFrom2000To2007, "AC1015_ascii", "AC1021_ascii");
}
TEST(SampleVersions, Version2007And2018AreEqual) {
  compare(kFrom2007To2018, "AC1021_ascii", "AC1032_ascii");
}
TEST(SampleVersions, TextAndBinaryAreEqual) {
  compare(kFromTextToBinary, "AC1032_ascii", "AC1032_binary");
}

} // namespace
