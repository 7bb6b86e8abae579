// The system variables that are a drawing's header.
#pragma once

#include "DbDatabase.h"
#include "morvane/variables.h"

namespace morvane::documents {

class HeaderVariables : public DrawingVariables {
public:
  void setDatabase(OdDbDatabase* database) { database_ = database; } // must be set while in use
  std::optional<VariableValue> get(std::wstring_view name) const override;
  int set(std::wstring_view name, const VariableValue& value) override;

private:
  OdDbDatabase* database_ = nullptr;
};

} // namespace morvane::documents
