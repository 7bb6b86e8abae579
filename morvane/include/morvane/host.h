// The host in process. One object owns everything; while it is installed, the free functions of the host use it.
// Nothing else in the host outlives it. All functions of all headers of the host are called on one thread, the command
// thread.
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

// Options of a host.
struct HostOptions {
  std::string configFile;            // UTF-8; empty: defaultConfigFile()
  bool keepsConfig = true;           // false: the configuration is empty at first and in memory only
  ReplaceFile replaceFile;           // saves files; empty: replaceFileSafely
  drawing::ReadOptions reading = {}; // for external references and for drawings that commands read
};

// Services by name; names are case-sensitive.
class MORVANE_API ServiceDictionary {
public:
  OdRxObjectPtr find(const OdString& name) const; // null if there is none
  // Adds or replaces a service, to which the dictionary holds a reference; false for an empty name and a null service.
  bool add(const OdString& name, OdRxObject* service);
  bool remove(const OdString& name); // false if there was none

private:
  std::map<OdString, OdRxObjectPtr> services_;
};

// Decides whether a call of the host succeeds. Tests make calls fail; a call then returns its error.
class MORVANE_API CallGate {
public:
  using Admit = std::function<bool(const char* operation)>;
  void setAdmit(Admit admit) { admit_ = std::move(admit); }                 // empty: all calls pass
  bool pass(const char* operation) { return !admit_ || admit_(operation); } // whether a call of that name passes

private:
  Admit admit_;
};

// The host.
class MORVANE_API Host {
public:
  // Creates a host with its own services; it is not installed. Reads the configuration.
  explicit Host(HostOptions options = {});
  // Uninstalls the host and saves the configuration if it was changed; a failure is logged.
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  // The installed host, or null.
  static Host* current();
  // Makes this the current host until it is uninstalled; the previous one is current again then. Hosts may be
  // uninstalled in any order; repeated calls have no effect.
  void install();
  void uninstall();

  // Parts of the host, owned by it. The dictionary contains the host's own services at first; reading() are the limits
  // and the encoding for drawings that commands read.
  ServiceDictionary& services();
  CallGate& calls();
  Output& output();
  Log& log();
  const Log& log() const;
  InputEngine& input();
  VariableStore& variables();
  UserConfig& config();
  const drawing::ReadOptions& reading() const;
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

// The current host if there is one and its gate lets the operation pass, else null.
MORVANE_API Host* admitCall(const char* operation);

} // namespace morvane
