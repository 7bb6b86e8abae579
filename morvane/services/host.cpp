#include "morvane/host.h"
#include "morvane/documents/header_variables.h"
#include "morvane/documents/ucs.h"
#include "morvane/documents/xrefs.h"
#include "morvane/services/own_services.h"

namespace morvane {
namespace {

Host* installedHost = nullptr;

std::string configFileOf(const HostOptions& options) {
  if (!options.keepsConfig)
    return {};
  return options.configFile.empty() ? defaultConfigFile() : options.configFile;
}

ReplaceFile replaceFileOf(const HostOptions& options) {
  return options.replaceFile ? options.replaceFile : ReplaceFile(replaceFileSafely);
}

} // namespace

// Coordinates as the working drawing's UCS has them.
class Host::Frame : public CoordinateFrame {
public:
  explicit Frame(const Documents& documents) : documents_(documents) {}
  bool ucsToWcs(const double* in, double* out) const override { return convert(in, out, true); }
  bool wcsToUcs(const double* in, double* out) const override { return convert(in, out, false); }

private:
  bool convert(const double* in, double* out, bool toWorld) const {
    const OdDbDatabase* database = documents_.workingDatabase();
    if (database == nullptr)
      return false;
    const OdGeMatrix3d ucs = documents::ucsOf(*database);
    const OdGePoint3d point = (toWorld ? ucs : ucs.inverse()) * OdGePoint3d(in[0], in[1], in[2]);
    out[0] = point.x;
    out[1] = point.y;
    out[2] = point.z;
    return true;
  }
  const Documents& documents_;
};

struct Host::Parts {
  Parts(Host& host, const HostOptions& options)
      : config(configFileOf(options), replaceFileOf(options)), reading(options.reading), messageBoxes(host) {
    input.setFrame(&frame);
    input.setLimits([this](const double* point) { return insideLimits(point); });
    variables.setDrawing([this] { return headerOfCurrent(); });
    documents.setCurrentChanged([this](mvsi::MvsiApDocument* document) { followCurrent(document); });
    documents.setXrefLoader(
        [this](OdDbDatabase& database) { return documents::loadXrefs(paths, searchPath, reading, database); });
  }

  // Only drawings that ask for it are checked.
  bool insideLimits(const double* pointWcs) const {
    const OdDbDatabase* database = documents.workingDatabase();
    if (database == nullptr || database->headerInt("LIMCHECK") == 0)
      return true;
    const OdGePoint3d low = database->headerPoint("LIMMIN");
    const OdGePoint3d high = database->headerPoint("LIMMAX");
    return pointWcs[0] >= low.x && pointWcs[0] <= high.x && pointWcs[1] >= low.y && pointWcs[1] <= high.y;
  }

  DrawingVariables* headerOfCurrent() {
    OdDbDatabase* database = documents.workingDatabase();
    header.setDatabase(database);
    return database == nullptr ? nullptr : &header;
  }

  void followCurrent(const mvsi::MvsiApDocument* document) {
    const OdString path = document == nullptr ? OdString() : document->fileName();
    const int nameAt = path.reverseFind(L'\\') + 1;
    variables.setOwn(L"DWGNAME", path.mid(nameAt));
    variables.setOwn(L"DWGPREFIX", path.left(nameAt));
    variables.setOwn(L"DWGTITLED", static_cast<std::int16_t>(path.isEmpty() ? 0 : 1));
    searchPath.setDrawingFolder(nameAt == 0 ? std::string() : paths.toSystem(path.left(nameAt)));
  }

  ServiceDictionary services;
  CallGate calls;
  Output output;
  Log log;
  InputEngine input{output};
  VariableStore variables;
  UserConfig config;
  drawing::ReadOptions reading;
  PathMap paths;
  SearchPath searchPath;
  Documents documents;
  SelectionSets selections;
  documents::HeaderVariables header;
  Frame frame{documents};
  MessageBoxes messageBoxes;
};

Host::Host(HostOptions options) : parts_(std::make_unique<Parts>(*this, options)) {
  services().add(kEditGetServer, services::makeEditGetServer(*this));
  services().add(kEditSystemServer, services::makeEditSystemServer(*this));
  services().add(kDbServer, services::makeDbServer(*this));
  services().add(kSelectorServer, services::makeSelectorServer(*this));
  services().add(kDocMgr, services::makeDocManager(*this));
}

Host::~Host() {
  if (config().isChanged()) {
    const std::string reason = config().save();
    if (!reason.empty())
      log().write({kDefaultLogLevel, __LINE__, "~Host", config().file() + ": " + reason});
  }
  uninstall();
}

Host* Host::current() {
  return installedHost;
}

void Host::install() {
  if (installed_)
    return;
  before_ = std::exchange(installedHost, this);
  installed_ = true;
}

void Host::uninstall() {
  if (!installed_)
    return;
  installed_ = false;
  // Taken out of the chain wherever it is, so that hosts may end in any order.
  Host** link = &installedHost;
  while (*link != nullptr && *link != this)
    link = &(*link)->before_;
  if (*link == this)
    *link = before_;
  before_ = nullptr;
}

ServiceDictionary& Host::services() {
  return parts_->services;
}
CallGate& Host::calls() {
  return parts_->calls;
}
Output& Host::output() {
  return parts_->output;
}
Log& Host::log() {
  return parts_->log;
}
const Log& Host::log() const {
  return parts_->log;
}
InputEngine& Host::input() {
  return parts_->input;
}
VariableStore& Host::variables() {
  return parts_->variables;
}
UserConfig& Host::config() {
  return parts_->config;
}
const drawing::ReadOptions& Host::reading() const {
  return parts_->reading;
}
PathMap& Host::paths() {
  return parts_->paths;
}
SearchPath& Host::searchPath() {
  return parts_->searchPath;
}

Documents& Host::documents() {
  return parts_->documents;
}
SelectionSets& Host::selections() {
  return parts_->selections;
}
MessageBoxes& Host::messageBoxes() {
  return parts_->messageBoxes;
}

Host* admitCall(const char* operation) {
  Host* host = Host::current();
  return host != nullptr && host->calls().pass(operation) ? host : nullptr;
}

} // namespace morvane
