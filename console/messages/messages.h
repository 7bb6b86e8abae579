// Texts of the console.
#pragma once

#include "OdString.h"

#include <cstddef>
#include <vector>

namespace console {

// A text: a stable id, which machines read, and its English form. The texts are in catalog/, a header for each subject,
// so that a changed text compiles only what shows it. Texts of keywords have what is entered, then '_' and the names
// that commands know.
struct MessageText {
  const char* id;
  const wchar_t* english;
};

// Control characters, and invalid characters, as \u000A: nothing from a drawing reaches a terminal raw.
OdString escaped(const OdString& text);

// The English text with {1}, {2} ... replaced by the arguments, escaped; {1:one|many} chooses by whether it is "1".
OdString render(const MessageText& text, const std::vector<OdString>& arguments = {});

// A number as an argument.
OdString count(std::size_t number);

// At most twenty of the names, in quotes, with commas between them.
OdString nameList(const std::vector<OdString>& names);

struct Message {
  MessageText format;
  std::vector<OdString> arguments;
  OdString text() const { return render(format, arguments); }
};

} // namespace console
