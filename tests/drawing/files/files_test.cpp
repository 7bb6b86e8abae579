// A file is replaced whole or not at all: whatever fails, whenever the power goes.
#include "drawing/files.h"
#include "tests/support/failing_files.h"
#include "tests/support/power_loss_files.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <sys/stat.h>
#include <thread>

namespace fs = std::filesystem;
using drawing::FileAction;
using drawing::FileError;
using drawing::FileHandle;
using drawing::FileLock;
using drawing::FileMapping;
using drawing::FileOpen;
using drawing::FileOperations;
using drawing::fileOperations;
using drawing::FileSink;
using drawing::FileStatus;
using drawing::FileWriter;
using drawing::MappedFile;
using drawing::replaceFile;
using drawing::ReplaceOptions;
using namespace tests;

namespace {

class Files : public testing::Test {
protected:
  Files() { path = folder + "/plan.dxf"; }

  void put(const std::string& file, std::string_view bytes) const { std::ofstream(file, std::ios::binary) << bytes; }
  std::string get(const std::string& file) const {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  std::set<std::string> names() const {
    std::set<std::string> found;
    for (const auto& entry : fs::directory_iterator(folder))
      found.insert(entry.path().filename().string());
    return found;
  }

  const ScratchFolder scratch;
  const std::string folder = scratch.path().string();
  std::string path;
};

FileWriter writing(std::string bytes) {
  return [bytes = std::move(bytes)](FileSink& sink) {
    sink.append(bytes);
    return FileError();
  };
}

using Names = std::set<std::string>;

TEST_F(Files, ReplacesContentAndKeepsPermissions) {
  put(path, "old");
  ::chmod(path.c_str(), 0640);
  const std::string large(1'000'000, 'x'); // beyond every buffer
  ASSERT_TRUE(replaceFile(path, [&](FileSink& sink) {
                sink.append("ab");
                sink.append(large);
                sink.append('c');
                EXPECT_EQ(sink.size(), large.size() + 3);
                return FileError();
              }).ok());
  EXPECT_EQ(get(path), "ab" + large + "c");
  FileStatus status;
  ASSERT_TRUE(fileOperations().stat(path, status).ok());
  EXPECT_EQ(status.permissions, 0640u);
  EXPECT_EQ(names(), Names{"plan.dxf"});
}

TEST_F(Files, ReplacesTheTargetOfALink) {
  fs::create_directory(folder + "/real");
  put(folder + "/real/plan", "old");
  fs::create_symlink("real/plan", folder + "/middle");
  fs::create_symlink("middle", path);
  ASSERT_TRUE(replaceFile(path, writing("new")).ok());
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_EQ(get(folder + "/real/plan"), "new");

  fs::create_symlink("loop", folder + "/loop");
  EXPECT_EQ(replaceFile(folder + "/loop", writing("x")).error, ELOOP);
}

TEST_F(Files, RefusesExistingEvenWhenCreatedMeanwhile) {
  put(path, "old");
  const ReplaceOptions once{.refuseExisting = true};
  const FileError error = replaceFile(path, writing("new"), once);
  EXPECT_EQ(error.error, EEXIST);
  EXPECT_EQ(error.text, "Cannot write " + path + ": File exists");

  const std::string late = folder + "/late";
  const auto isCreatedLate = [&](FileSink&) {
    put(late, "theirs");
    return FileError();
  };
  EXPECT_EQ(replaceFile(late, isCreatedLate, once).error, EEXIST);
  EXPECT_EQ(get(late), "theirs");
  EXPECT_TRUE(replaceFile(folder + "/third", writing("new"), once).ok());
  EXPECT_EQ(names(), (Names{"plan.dxf", "late", "third"}));
}

TEST_F(Files, BackupIsTheFileBefore) {
  const ReplaceOptions backup{.keepBackup = true};
  ASSERT_TRUE(replaceFile(path, writing("one"), backup).ok());
  EXPECT_EQ(names(), Names{"plan.dxf"});
  for (const char* text : {"two", "three"})
    ASSERT_TRUE(replaceFile(path, writing(text), backup).ok());
  EXPECT_EQ(get(path + ".bak"), "two");
  fs::remove(path + ".bak");
  fs::create_hard_link(path, path + ".bak"); // what an interrupted save leaves
  ASSERT_TRUE(replaceFile(path, writing("four"), backup).ok());
  EXPECT_EQ(get(path + ".bak"), "three");
  EXPECT_EQ(names(), (Names{"plan.dxf", "plan.dxf.bak"}));
}

TEST_F(Files, BackupIsACopyWhereThereAreNoLinks) {
  struct NoLinks : FailingFiles {
    using FailingFiles::FailingFiles;
    Error link(const std::string&, const std::string& name) override {
      return fileError(FileAction::kWrite, name, EPERM);
    }
  } files(fileOperations());
  put(path, "old");
  UsedFiles use(files);
  ASSERT_TRUE(replaceFile(path, writing("new"), {.keepBackup = true}).ok());
  EXPECT_EQ(get(path + ".bak"), "old");
  EXPECT_EQ(names(), (Names{"plan.dxf", "plan.dxf.bak"}));
}

TEST_F(Files, WriterThatFailsOrThrowsChangesNothing) {
  put(path, "old");
  const FileError refused = replaceFile(path, [](FileSink& sink) {
    sink.append("half");
    return FileError{eNotADrawing, 0, "no"};
  });
  EXPECT_EQ(refused.code, eNotADrawing);
  EXPECT_THROW(replaceFile(path, [](FileSink&) -> FileError { throw std::runtime_error("x"); }), std::runtime_error);
  EXPECT_EQ(get(path), "old");
  EXPECT_EQ(names(), Names{"plan.dxf"});
}

TEST_F(Files, NamesThePathAndTheReason) {
  const std::string missing = folder + "/none/plan.dxf";
  FileError error = replaceFile(missing, writing("x"));
  EXPECT_EQ(error.code, eFileNotFound);
  EXPECT_EQ(error.text, "Cannot write " + missing + ": No such file or directory");
  EXPECT_EQ(replaceFile(folder, writing("x")).error, EISDIR);
  ::mkfifo(path.c_str(), 0600);
  EXPECT_EQ(replaceFile(path, writing("x")).error, EINVAL);
  MappedFile file;
  EXPECT_EQ(file.open(missing).text, "Cannot read " + missing + ": No such file or directory");
  EXPECT_EQ(file.open(folder).error, EISDIR);
}

TEST_F(Files, EveryFailureLeavesTheOldFileWhole) {
  const std::string bytes(600'000, 'n');
  for (const bool backup : {false, true}) {
    for (int failAt = 1;; ++failAt) {
      put(path, "old");
      put(path + ".bak", "older");
      FailingFiles files(fileOperations(), failAt, ENOSPC);
      UsedFiles use(files);
      const FileError error = replaceFile(path, writing(bytes), {.keepBackup = backup});
      if (!files.hasFailed()) {
        EXPECT_GT(failAt, 9);
        break;
      }
      SCOPED_TRACE("call " + std::to_string(failAt));
      EXPECT_EQ(get(path), error.ok() ? bytes : "old");
      EXPECT_NE(error.text.find(folder), std::string::npos);
      EXPECT_EQ(error.text.find(".tmp"), std::string::npos) << error.text;
      EXPECT_EQ(error.error, ENOSPC);
      EXPECT_EQ(names(), (Names{"plan.dxf", "plan.dxf.bak"}));
    }
  }
}

TEST_F(Files, PowerLossLeavesOneOfBothFilesWhole) {
  for (const bool backup : {false, true}) {
    PowerLossFiles disk;
    disk.put("plan", "old content");
    disk.put("plan.bak", "older content");
    UsedFiles use(disk);
    EXPECT_TRUE(replaceFile("plan", writing("new content"), {.keepBackup = backup}).ok());
    EXPECT_EQ(disk.everPossible("plan"), (Names{"old content", "new content"}));
    EXPECT_EQ(disk.everPossible("plan.bak"), backup ? (Names{"older content", "old content"}) : Names{"older content"});
    EXPECT_EQ(disk.afterPowerLoss("plan"), Names{"new content"});
    EXPECT_EQ(disk.contents().size(), 2u);
  }
  PowerLossFiles liar; // the model does notice a missing sync
  liar.syncsFiles = false;
  liar.put("plan", "old content");
  UsedFiles use(liar);
  ASSERT_TRUE(replaceFile("plan", writing("new content")).ok());
  EXPECT_EQ(liar.everPossible("plan").count(""), 1u);
}

TEST_F(Files, MapsOrReads) {
  const std::string bytes = std::string("a\0b", 3) + std::string(200'000, 'z');
  put(path, bytes);
  MappedFile file;
  ASSERT_TRUE(file.open(path).ok());
  EXPECT_TRUE(file.isMapped());
  EXPECT_EQ(file.text(), bytes);
  MappedFile moved = std::move(file);
  EXPECT_EQ(moved.text(), bytes);
  EXPECT_EQ(file.text(), "");

  ::mkfifo((folder + "/pipe").c_str(), 0600);
  std::thread writer([&] { put(folder + "/pipe", bytes); });
  ASSERT_TRUE(moved.open(folder + "/pipe").ok());
  writer.join();
  EXPECT_FALSE(moved.isMapped());
  EXPECT_EQ(moved.text(), bytes);

  put(path, "");
  ASSERT_TRUE(moved.open(path).ok());
  EXPECT_EQ(moved.text(), "");
}

TEST_F(Files, ReadsNoMoreThanAllowed) {
  struct NoMaps : FailingFiles {
    using FailingFiles::FailingFiles;
    Error map(Handle& file, FileMapping&) override { return fileError(FileAction::kRead, file.path, ENODEV); }
  } unmapped(fileOperations());
  put(path, "12345");
  for (FileOperations* operations : {&fileOperations(), static_cast<FileOperations*>(&unmapped)}) {
    UsedFiles use(*operations);
    MappedFile file;
    EXPECT_TRUE(file.open(path, 5).ok());
    EXPECT_EQ(file.text(), "12345");
    EXPECT_EQ(file.open(path, 4).code, eBudgetExceeded);
    EXPECT_EQ(file.text(), "");
  }
}

TEST_F(Files, LocksAreSeenByOtherProcesses) {
  FileOperations& files = fileOperations();
  FileHandle one, other;
  ASSERT_TRUE(files.open(path, FileOpen::kCreate, one).ok());
  ASSERT_TRUE(files.open(path, FileOpen::kWrite, other).ok());
  EXPECT_TRUE(files.lock(one, FileLock::kExclusive).ok());
  EXPECT_EQ(files.lock(other, FileLock::kShared).error, EWOULDBLOCK);
  EXPECT_TRUE(files.close(one).ok());
  EXPECT_TRUE(files.lock(other, FileLock::kExclusive).ok());
  EXPECT_TRUE(files.close(other).ok());
}

} // namespace
