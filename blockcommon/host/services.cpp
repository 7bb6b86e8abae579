#include "blockcommon/host/services.h"

#include "DbEntity.h"
#include "morvane/host_api.h"

#include <array>
#include <cstring>

namespace hostAccess {
namespace {

// The object as the service, with one reference; null when it is of another kind.
template <class Service>
OdSmartPtr<Service> castService(const OdRxObjectPtr& found) {
  OdRxObject* queried = found->queryX(Service::desc());
  if (queried == nullptr)
    return nullptr;
  const OdRxObjectPtr keepAlive(queried, kTakeReference);
  // The interfaces share the descriptor of OdRxObject, which does not distinguish them.
  return OdSmartPtr<Service>(dynamic_cast<Service*>(queried));
}

template <class Service>
OdSmartPtr<Service> useService(const wchar_t* name) {
  const OdRxObjectPtr found = mv_arbitDict_getservice(name);
  if (found.isNull())
    return nullptr;
  OdSmartPtr<Service> service = castService<Service>(found);
  if (service.isNull())
    throw OdError_NotThatKindOfClass(found->isA(), Service::desc());
  return service;
}

template <class Service, class Operation, class... Args>
int callService(const wchar_t* name, Operation operation, Args... args) {
  const OdSmartPtr<Service> service = useService<Service>(name);
  return service.isNull() ? RTERROR : (service.get()->*operation)(args...);
}

// Host logs are searched for this record, its line number included.
void logMissingFindFile() {
  constexpr int kLevel = 5;
  constexpr int kLine = 400;
  if (mrvn_log_level() > kLevel)
    return;
  std::array<char, 2048> text{};
  std::strncpy(text.data(), "mvsiedFindFile函数没有实现！", text.size() - 1);
  mv_Log(kLevel, kLine, "mvsiedFindFile", text.data());
}

} // namespace

bool hasEditGetServer() {
  return !useService<MvEditGetServer>(kEditGetServer).isNull();
}

int mvsiedInitGet(int flags, const wchar_t* keywords) {
  return callService<MvEditGetServer>(kEditGetServer, &MvEditGetServer::mvsiedInitGet, flags, keywords);
}

int mvsiedGetString(int allowSpaces, const wchar_t* prompt, wchar_t* result) {
  return callService<MvEditGetServer>(kEditGetServer, &MvEditGetServer::mvsiedGetString, allowSpaces, prompt, result);
}

int mvsiedGetPoint(const double* basePoint, const wchar_t* prompt, double* result) {
  return callService<MvEditGetServer>(kEditGetServer, &MvEditGetServer::mvsiedGetPoint, basePoint, prompt, result);
}

int mvsiedGetKword(const wchar_t* prompt, wchar_t* result, int capacity) {
  return callService<MvEditGetServer>(kEditGetServer, &MvEditGetServer::mvsiedGetKword, prompt, result, capacity);
}

int mvsiedSSSetFirst(const long* pickFirst, const long* grips) {
  return callService<MvSelectorServer>(kSelectorServer, &MvSelectorServer::mvsiedSSSetFirst, pickFirst, grips);
}

int mvsiedSSFree(const long* set) {
  return callService<MvSelectorServer>(kSelectorServer, &MvSelectorServer::mvsiedSSFree, set);
}

int mvsiedSSLength(const long* set, int* length) {
  return callService<MvSelectorServer>(kSelectorServer, &MvSelectorServer::mvsiedSSLength, set, length);
}

int mvsiedSSAdd(const long* entity, const long* set, long* result) {
  return callService<MvSelectorServer>(kSelectorServer, &MvSelectorServer::mvsiedSSAdd, entity, set, result);
}

int mvsiedSSName(const long* set, int index, long* entity) {
  return callService<MvSelectorServer>(kSelectorServer, &MvSelectorServer::mvsiedSSName, set, index, entity);
}

int mvsiedSetVar(const wchar_t* name, const mvsiresbuf* value) {
  return callService<MvEditSystemServer>(kEditSystemServer, &MvEditSystemServer::mvsiedSetVar, name, value);
}

int mvsiedGetVar(const wchar_t* name, mvsiresbuf* value) {
  return callService<MvEditSystemServer>(kEditSystemServer, &MvEditSystemServer::mvsiedGetVar, name, value);
}

int mvsiedGetUnitsFactor(int unitsCode, double* factor) {
  return callService<MvEditSystemServer>(kEditSystemServer, &MvEditSystemServer::mvsiedGetUnitsFactor, unitsCode,
                                         factor);
}

int mvsiedFindFile(const wchar_t* fileName, wchar_t* found) {
  OdSmartPtr<MvEditSystemServer> service;
  if (const OdRxObjectPtr object = mv_arbitDict_getservice(kEditSystemServer); !object.isNull())
    service = castService<MvEditSystemServer>(object);
  if (service.isNull()) {
    logMissingFindFile();
    return RTERROR;
  }
  return service->mvsiedFindFile(fileName, found);
}

int mvsidbRToS(double value, int mode, int precision, wchar_t* result) {
  return callService<MvDbServer>(kDbServer, &MvDbServer::mvsidbRToS, value, mode, precision, result);
}

int mvsidbDisToF(const wchar_t* text, int mode, double* value) {
  return callService<MvDbServer>(kDbServer, &MvDbServer::mvsidbDisToF, text, mode, value);
}

bool hasDocumentManager() {
  return !useService<MvDocManager>(kDocMgr).isNull();
}

mvsi::MvsiApDocument* currentDocument() {
  const OdSmartPtr<MvDocManager> manager = useService<MvDocManager>(kDocMgr);
  return manager.isNull() ? nullptr : manager->currentDocument();
}

OdDbDatabase* currentDatabase() {
  const mvsi::MvsiApDocument* document = currentDocument();
  return document == nullptr ? nullptr : document->database();
}

std::vector<mvsi::MvsiApDocument*> openDocuments() {
  const OdSmartPtr<MvDocManager> manager = useService<MvDocManager>(kDocMgr);
  std::vector<mvsi::MvsiApDocument*> documents;
  const int count = manager.isNull() ? 0 : manager->documentCount();
  for (int at = 0; at < count; ++at) {
    if (mvsi::MvsiApDocument* document = manager->documentAt(at))
      documents.push_back(document);
  }
  return documents;
}

int mvsiedRedraw(const long* entityName, int mode) {
  constexpr int kHighlight = 3;
  constexpr int kRemoveHighlight = 4;
  const OdSmartPtr<MvDocManager> manager = useService<MvDocManager>(kDocMgr);
  OdDbObjectId id;
  if (manager.isNull() || mvsi::mvsidbGetObjectId(id, entityName) != 0 || !id.isValid())
    return RTERROR;
  const OdDbObjectPtr object = id.safeOpenObject(OdDb::kForRead);
  if (object.isNull())
    return RTERROR;
  const OdDbEntityPtr entity = object;
  if (mode == kHighlight || mode == kRemoveHighlight)
    entity->highlight(mode == kHighlight);
  if (mvsi::MvsiApDocument* document = manager->currentDocument())
    manager->refreshViews(document);
  return RTNORM;
}

int drawOffScreen(mvsi::MvsiApDocument* document, const mvsi::MvsiDeviceRect& rectangle, mvsi::MvsiImage& image) {
  const OdSmartPtr<MvDocManager> manager = useService<MvDocManager>(kDocMgr);
  return manager.isNull() ? RTERROR : manager->drawOffScreen(document, rectangle, image);
}

int currentUcsMatrix(OdGeMatrix3d& matrix) {
  OdDbDatabase* database = mvsi::mvsidbWorkingDatabase();
  if (database == nullptr)
    return RTERROR;
  mvsi::mvsidbUcsMatrix(matrix, database);
  return RTNORM;
}

} // namespace hostAccess
