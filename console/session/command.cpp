#include "console/session/command.h"

#include "OdString.h"

#include <algorithm>

namespace console {

const Command* findCommand(const CommandTable& table, std::wstring_view entered) {
  const OdString wanted(entered);
  const auto found = std::find_if(table.begin(), table.end(), [&](const Command& command) {
    const auto& others = command.aliases;
    return wanted.iCompare(command.name) == 0 ||
           std::any_of(others.begin(), others.end(),
                       [&](std::wstring_view alias) { return wanted.iCompare(OdString(alias)) == 0; });
  });
  return found == table.end() ? nullptr : &*found;
}

} // namespace console
