#include "morvane/documents.h"
#include "morvane/host.h"

#include "DbBlockTable.h"

#include <algorithm>
#include <filesystem>

namespace mvsi {

// What the host notes of a document; commands only read it.
class DocumentAccess {
public:
  static void countRefresh(MvsiApDocument& document) { ++document.refreshCount_; }
  static void setXrefReport(MvsiApDocument& document, drawing::Report report) {
    document.xrefReport_ = std::move(report);
  }
};

MvsiApDocument::MvsiApDocument(OdDbDatabasePtr database, const OdString& fileName)
    : database_(std::move(database)), fileName_(fileName), savedAt_(database_->changeCount()) {}

MvsiApDocument::~MvsiApDocument() = default;

bool MvsiApDocument::isModified() const {
  return database_->changeCount() != savedAt_;
}

void MvsiApDocument::markSaved() {
  savedAt_ = database_->changeCount();
}

OdDbObjectId MvsiApDocument::blockEditorId() const {
  return edited_.isErased() ? OdDbObjectId() : edited_;
}

OdString MvsiApDocument::blockEditorName() const {
  const OdDbBlockTableRecordPtr block = blockEditorId().safeOpenObject();
  return block.isNull() ? OdString() : block->getName();
}

void MvsiApDocument::setBlockEditorName(const OdString& name) {
  edited_ = database_->symbol(OdDb::kBlockTable, name);
}

OdDbDatabase* mvsidbWorkingDatabase() {
  morvane::Host* host = morvane::admitCall("mvsidbWorkingDatabase");
  return host == nullptr ? nullptr : host->documents().workingDatabase();
}

int mvsidbSetWorkingDatabase(OdDbDatabase* database) {
  morvane::Host* host = morvane::admitCall("mvsidbSetWorkingDatabase");
  if (host == nullptr)
    return RTERROR;
  host->documents().setWorkingDatabase(database);
  return RTNORM;
}

MvsiApDocument* gsiGetApDocFromDb(const OdDbDatabase* database) {
  morvane::Host* host = morvane::admitCall("gsiGetApDocFromDb");
  return host == nullptr ? nullptr : host->documents().find(database);
}

} // namespace mvsi

namespace morvane {

using mvsi::MvsiApDocument;

MvsiApDocument* Documents::open(OdDbDatabasePtr database, const OdString& fileName) {
  if (database.isNull())
    return nullptr;
  documents_.push_back(new MvsiApDocument(std::move(database), fileName));
  makeCurrent(documents_.back());
  loadXrefs(*current_);
  return current_;
}

void Documents::loadXrefs(MvsiApDocument& document) {
  if (loadXrefs_)
    mvsi::DocumentAccess::setXrefReport(document, loadXrefs_(*document.database()));
}

bool Documents::close(MvsiApDocument* document) {
  const auto found = std::find(documents_.begin(), documents_.end(), document);
  if (found == documents_.end())
    return false;
  const auto index = static_cast<std::size_t>(found - documents_.begin());
  const mvsi::MvsiApDocumentPtr keepAlive = *found;
  documents_.erase(found);
  if (document == current_)
    makeCurrent(documents_.empty() ? nullptr : documents_[index == 0 ? 0 : index - 1].get());
  return true;
}

bool Documents::setCurrent(MvsiApDocument* document) {
  if (std::find(documents_.begin(), documents_.end(), document) == documents_.end())
    return false;
  makeCurrent(document);
  return true;
}

void Documents::makeCurrent(MvsiApDocument* document) {
  current_ = document;
  separateDatabase_.reset();
  if (changed_)
    changed_(document);
}

MvsiApDocument* Documents::find(const OdDbDatabase* database) const {
  for (const auto& document : documents_) {
    if (document->database() == database)
      return document.get();
  }
  return nullptr;
}

namespace {

// Links followed as far as the path exists, the rest by its text.
OdString resolved(const PathMap& paths, const OdString& fileName) {
  const std::filesystem::path path = paths.toSystem(fileName);
  std::error_code error;
  std::filesystem::path full = std::filesystem::absolute(path, error);
  if (std::filesystem::path followed = std::filesystem::weakly_canonical(full, error); !error)
    full = std::move(followed);
  return OdString::fromUtf8(full.lexically_normal().string());
}

} // namespace

MvsiApDocument* Documents::findFile(const PathMap& paths, const OdString& fileName) const {
  if (fileName.visible().empty())
    return nullptr;
  const OdString wanted = resolved(paths, fileName);
  for (const auto& document : documents_) {
    if (!document->fileName().isEmpty() && resolved(paths, document->fileName()).iCompare(wanted) == 0)
      return document.get();
  }
  return nullptr;
}

OdDbDatabase* Documents::workingDatabase() const {
  if (separateDatabase_)
    return separateDatabase_->get();
  return current_ == nullptr ? nullptr : current_->database();
}

void Documents::setWorkingDatabase(OdDbDatabase* database) {
  separateDatabase_.reset();
  if (database != workingDatabase())
    separateDatabase_ = OdDbDatabasePtr(database);
}

bool Documents::refresh(MvsiApDocument* document) {
  if (document == nullptr)
    return false;
  mvsi::DocumentAccess::countRefresh(*document);
  if (refresher_)
    refresher_(*document);
  return true;
}

} // namespace morvane
