// The host in process. One object owns everything; while it is installed the free functions of the host reach it.
// Nothing else in the host outlives it. All calls are made on the command thread.
#pragma once

#include "RxObject.h"
#include "drawing/file.h"
#include "morvane/config.h"
#include "morvane/documents.h"
#include "morvane/export.h"
#include "morvane/files.h"
#include "morvane/input.h"
#include "morvane/log.h"
#include "morvane/message_box.h"
#include "morvane/output.h"
#include "morvane/print.h"
#include "morvane/result_codes.h"
#include "morvane/selection.h"
#include "morvane/services.h"
#include "morvane/units.h"
#include "morvane/variables.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace morvane {

struct HostOptions {
  std::string configFile;            // UTF-8; empty: defaultConfigFile()
  bool keepsConfig = true;           // false: the configuration starts empty and stays in memory
  ReplaceFile replaceFile;           // how files are saved; empty: replaceFileSafely
  drawing::ReadOptions reading = {}; // of drawings that others refer to, or that commands bring in
};

// Services by name.
class MORVANE_API ServiceDictionary {
public:
  OdRxObjectPtr find(const OdString& name) const; // null when there is none
  bool add(const OdString& name, OdRxObject* service);
  bool remove(const OdString& name);

private:
  std::map<OdString, OdRxObjectPtr> services_;
};

// Every host call asks here first. A test may make a call fail; the call then answers as it does on any failure.
class MORVANE_API CallGate {
public:
  using Admit = std::function<bool(const char* operation)>;
  void setAdmit(Admit admit) { admit_ = std::move(admit); } // empty: all pass
  bool pass(const char* operation) { return !admit_ || admit_(operation); }

private:
  Admit admit_;
};

class MORVANE_API Host {
public:
  explicit Host(HostOptions options = {});
  // Uninstalls itself, and saves the configuration when it was changed.
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  // The installed host, or null.
  static Host* current();
  // Makes this the current host; the one before is current again after this one is uninstalled.
  void install();
  void uninstall();

  // The dictionary starts with the host's own services in it.
  ServiceDictionary& services();
  CallGate& calls();
  Output& output();
  Log& log();
  const Log& log() const;
  InputEngine& input();
  VariableStore& variables();
  UserConfig& config();
  const drawing::ReadOptions& reading() const; // limits and encoding for drawings that commands bring in
  PathMap& paths();
  SearchPath& searchPath();
  Documents& documents();
  SelectionSets& selections();
  MessageBoxes& messageBoxes();

private:
  class Frame;
  struct Parts;
  std::unique_ptr<Parts> parts_;
  Host* before_ = nullptr;
  bool installed_ = false;
};

// The current host when there is one and its gate lets the operation pass, else null.
MORVANE_API Host* admitCall(const char* operation);

} // namespace morvane
