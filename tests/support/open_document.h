// A host as tests of the library and of the host begin with it: with a drawing open, with a folder.
#pragma once

#include "morvane/testing.h"
#include "tests/support/drawings.h"
#include "tests/support/scratch_folder.h"

#include <filesystem>
#include <utility>
#include <vector>

namespace tests {

class OpenDocument : public testing::Test {
protected:
  morvane::FaultyHost host_;
  const OdDbDatabasePtr database_ = OdDbDatabase::create();
  mvsi::MvsiApDocument* document_ = host_.host().documents().open(database_);
};

// A folder of its own is the drive P.
class HostAndFolder : public testing::Test {
protected:
  HostAndFolder() { host_.host().paths().setDrive(L'P', root_.string()); }

  const ScratchFolder folder_;
  const std::filesystem::path root_ = folder_.path();
  morvane::FaultyHost host_;
};

// Answers the boxes of a host and keeps what they showed.
class BoxWatch {
public:
  explicit BoxWatch(morvane::ScriptedHost& host) {
    host.host().messageBoxes().setShow([this](const morvane::MessageBox& box) {
      shown_.push_back(box.caption + L"|" + box.body + L"|" + OdString(std::to_wstring(box.flags)));
      return 0;
    });
  }
  // "caption|body|flags" of each since the last call.
  std::vector<OdString> take() { return std::exchange(shown_, {}); }

private:
  std::vector<OdString> shown_;
};

} // namespace tests
