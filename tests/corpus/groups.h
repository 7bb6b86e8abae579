// Text DXF files as plain records, read without the SDK: what it is checked against.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corpus {

struct Group {
  int code = 0;
  std::string value; // numbers, handles and bytes in one spelling, whatever the file's
};

struct Record {
  std::string kind;    // LINE, LAYER ...; header variables with their dollar sign
  std::string section; // HEADER, TABLES ...
  std::string owner;   // "" for none
  std::vector<Group> groups;
};

struct Contents {
  std::map<std::string, Record> byHandle; // the first record of each handle
  std::map<std::string, Record> header;   // by variable; the last one of a name counts
  std::map<std::string, Record> others;   // CLASSES and the like: whole sections
  std::size_t starts = 0;                 // of records, as anyone would count them: without the brackets around them
};

Contents contentsOf(std::string_view text);

struct Loss {
  std::string name; // handle, variable or section
  const Record* source = nullptr;
  const Record* written = nullptr; // null: the whole record is missing
  Group group;                     // a lost owner: code 330
  bool toNothing = false;          // a handle that no record of the source has
};

// Every group of `source` that the record of the same handle (or the variable or section of the same name) in
// `written` lacks. Points into both.
std::vector<Loss> lossesBetween(const Contents& source, const Contents& written);

enum class Kind { kText, kReal, kWhole, kHandle, kBytes };
Kind kindOf(int code);
std::string upper(std::string_view text); // letters of ASCII alone

} // namespace corpus
