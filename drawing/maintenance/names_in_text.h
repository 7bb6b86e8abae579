// Names of records that are held as text instead of as references: purging counts them, renaming changes them.
#pragma once

#include "DbDatabase.h"

namespace drawing {

struct TextualReference {
  enum List : std::uint8_t { kUnmodelled, kXData, kSection }; // kSection: one that the object keeps as files hold it
  OdDb::SymbolTableKind kind;
  List list;
  std::size_t at; // in that list
  bool certain;   // else the text may be anything that happens to read like a name
};

const GroupList& listOf(const OdDbObject& object, const TextualReference& name);
GroupList& listForWrite(OdDbObject& object, const TextualReference& name);

// Appends what the object's carried groups and extended data hold.
void collectTextualReferences(const OdDbObject& object, std::vector<TextualReference>& names);

struct NameVariable {
  const char* variable;       // of the header
  OdDb::SymbolTableKind kind; // kNoTable: a member of the dictionary
  const wchar_t* dictionary;  // null for tables
  bool inDictionary;          // the variable is kept in the dictionary of variables
};
const std::vector<NameVariable>& nameVariables();
// The record that the variable names, null for none. Names of arrow blocks may lack the underscore of the block's.
OdDbObjectId namedBy(const OdDbDatabase& database, const NameVariable& variable);

} // namespace drawing
