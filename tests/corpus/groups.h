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
  std::vector<Group> groups;
};

struct Contents {
  std::map<std::string, Record> byHandle; // the first record of each handle
  std::map<std::string, Record> header;   // by variable
};

Contents contentsOf(std::string_view text);

struct Loss {
  std::string record; // kind and handle
  std::string section;
  std::string kind;
  Group group;
  const Record* written = nullptr; // null: the whole record is missing
};

// Every group of `source` that the record of the same handle (or the variable of the same name) in `written` lacks.
std::vector<Loss> lossesBetween(const Contents& source, const Contents& written);

enum class Kind { Text, Real, Whole, Handle, Bytes };
Kind kindOf(int code);

} // namespace corpus
