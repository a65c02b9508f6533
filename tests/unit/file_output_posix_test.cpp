#include <grp.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "core/files/file_output.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {
namespace {

constexpr uid_t kNobody = 65'534;
constexpr int kWritten = static_cast<int>(WriteOutcome::kWritten);
constexpr int kCannotCreate = static_cast<int>(WriteOutcome::kCannotCreate);
constexpr int kWriteError = static_cast<int>(WriteOutcome::kWriteError);
constexpr int kJobFailed = 99;

// Runs a job in a process of its own; the job's result is the process's exit status.
int ExitStatusOfChild(const std::function<int()>& job) {
  const pid_t child = fork();
  if (child == 0) {
    _exit(job());
  }
  int status = -1;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Root may write everything, so a job that tests permissions goes on as nobody.
bool BecomeOrdinaryUser() {
  if (geteuid() != 0) {
    return true;
  }
  return setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0;
}

// No file of this process grows beyond `bytes`.
bool LimitFileSize(rlim_t bytes) {
  const rlimit no_core{.rlim_cur = 0, .rlim_max = 0};
  const rlimit limit{.rlim_cur = bytes, .rlim_max = bytes};
  return setrlimit(RLIMIT_CORE, &no_core) == 0 && setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

mode_t PermissionsOf(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

class FileOutputOnPosix : public testing::Test {
 protected:
  void SetUp() override { LetIn(0777); }
  void TearDown() override { LetIn(0777); }
  void LetIn(mode_t mode) { ASSERT_EQ(chmod(folder_.path().c_str(), mode), 0); }

  // What an ordinary user gets who writes `bytes_` to the path.
  int OutcomeForOrdinaryUser(const std::string& path) {
    return ExitStatusOfChild([&] {
      return BecomeOrdinaryUser() ? static_cast<int>(WriteWholeFile(path, bytes_)) : kJobFailed;
    });
  }

  // What becomes of `bytes_` where no file may grow beyond `room` bytes.
  int OutcomeOnAFullDisk(rlim_t room) {
    return ExitStatusOfChild([&] {
      signal(SIGXFSZ, SIG_IGN);
      return LimitFileSize(room) ? static_cast<int>(WriteWholeFile(path_, bytes_)) : kJobFailed;
    });
  }

  TempFolder folder_;
  std::string path_ = folder_.File("radio.rdf");
  const Bytes old_ = Bytes(9000, 0x11);
  const Bytes bytes_ = Bytes(21'282, 0x22);
};

TEST_F(FileOutputOnPosix, KeepsThePermissionsOfTheFileThatItReplaces) {
  for (const mode_t mode : {mode_t{0600}, mode_t{0640}, mode_t{0664}, mode_t{0755}}) {
    PutFile(path_, old_);
    ASSERT_EQ(chmod(path_.c_str(), mode), 0);
    EXPECT_EQ(WriteWholeFile(path_, bytes_), WriteOutcome::kWritten);
    EXPECT_EQ(PermissionsOf(path_), mode);
    EXPECT_EQ(FileBytes(path_), bytes_);
  }
}

TEST_F(FileOutputOnPosix, GivesANewFileThePermissionsOfAnyNewFile) {
  const mode_t before = umask(027);
  const WriteOutcome outcome = WriteWholeFile(path_, bytes_);
  umask(before);
  EXPECT_EQ(outcome, WriteOutcome::kWritten);
  EXPECT_EQ(PermissionsOf(path_), mode_t{0640});
}

TEST_F(FileOutputOnPosix, WritesForAnOrdinaryUser) {
  EXPECT_EQ(OutcomeForOrdinaryUser(path_), kWritten);
  EXPECT_EQ(FileBytes(path_), bytes_);
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"radio.rdf"});
}

TEST_F(FileOutputOnPosix, TakesTheLongestNameThatAFolderTakes) {
  const std::string path = folder_.File(std::string(255, 'n'));
  EXPECT_EQ(WriteWholeFile(path, bytes_), WriteOutcome::kWritten);
  EXPECT_EQ(WriteWholeFile(path, old_), WriteOutcome::kWritten);
  EXPECT_EQ(FileBytes(path), old_);
  EXPECT_EQ(folder_.Names().size(), 1U);
}

TEST_F(FileOutputOnPosix, DoesNotReplaceAReadOnlyFile) {
  PutFile(path_, old_);
  ASSERT_EQ(chmod(path_.c_str(), 0444), 0);
  EXPECT_EQ(OutcomeForOrdinaryUser(path_), kCannotCreate);
  EXPECT_EQ(FileBytes(path_), old_);
  EXPECT_EQ(PermissionsOf(path_), mode_t{0444});
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"radio.rdf"});
}

// The folder would let it go, and yet it is not this user's to write.
TEST_F(FileOutputOnPosix, DoesNotReplaceAFileThatOnlyOthersMayWrite) {
  PutFile(path_, old_);
  const mode_t others_only = geteuid() == 0 ? 0644 : 0466;
  ASSERT_EQ(chmod(path_.c_str(), others_only), 0);
  EXPECT_EQ(OutcomeForOrdinaryUser(path_), kCannotCreate);
  ASSERT_EQ(chmod(path_.c_str(), 0644), 0);
  EXPECT_EQ(FileBytes(path_), old_);
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"radio.rdf"});
}

TEST_F(FileOutputOnPosix, WritesInPlaceWhereTheFolderTakesNoNewFile) {
  PutFile(path_, old_);
  ASSERT_EQ(chmod(path_.c_str(), 0666), 0);
  LetIn(0555);
  EXPECT_EQ(OutcomeForOrdinaryUser(path_), kWritten);
  EXPECT_EQ(FileBytes(path_), bytes_);
}

TEST_F(FileOutputOnPosix, WritesAShorterFileInPlace) {
  PutFile(path_, Bytes(60'000, 0x11));
  ASSERT_EQ(chmod(path_.c_str(), 0666), 0);
  LetIn(0555);
  EXPECT_EQ(OutcomeForOrdinaryUser(path_), kWritten);
  EXPECT_EQ(FileBytes(path_), bytes_);
}

TEST_F(FileOutputOnPosix, CannotCreateAFileInAReadOnlyFolder) {
  LetIn(0555);
  EXPECT_EQ(OutcomeForOrdinaryUser(path_), kCannotCreate);
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(FileOutputOnPosix, LeavesAReadOnlyFileInAReadOnlyFolderAlone) {
  PutFile(path_, old_);
  ASSERT_EQ(chmod(path_.c_str(), 0444), 0);
  LetIn(0555);
  EXPECT_EQ(OutcomeForOrdinaryUser(path_), kCannotCreate);
  EXPECT_EQ(FileBytes(path_), old_);
}

TEST_F(FileOutputOnPosix, LeavesTheOldFileAloneWhenTheDiskIsFull) {
  for (const rlim_t room : {rlim_t{0}, rlim_t{4096}, rlim_t{21'281}}) {
    PutFile(path_, old_);
    EXPECT_EQ(OutcomeOnAFullDisk(room), kWriteError) << room;
    EXPECT_EQ(FileBytes(path_), old_) << room;
    EXPECT_EQ(folder_.Names(), std::vector<std::string>{"radio.rdf"}) << room;
  }
}

TEST_F(FileOutputOnPosix, LeavesNothingBehindWhenTheDiskIsFull) {
  EXPECT_EQ(OutcomeOnAFullDisk(4096), kWriteError);
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(FileOutputOnPosix, ShowsThePathThatCouldNotBeWritten) {
  const int outcome = ExitStatusOfChild([&] {
    signal(SIGXFSZ, SIG_IGN);
    if (!LimitFileSize(4096) || WriteFileOrShow(path_, bytes_)) {
      return kJobFailed;
    }
    const bool shown = ShownTexts() == std::vector<std::string>{"Error writing file:\n" + path_} &&
                       test_seams.messages[0].caption == "QZ-7H Programmer" &&
                       test_seams.messages[0].buttons == Buttons::kOk &&
                       test_seams.messages[0].icon == Icon::kStop;
    return shown ? 0 : 1;
  });
  EXPECT_EQ(outcome, 0);
}

class KilledWhileWriting : public FileOutputOnPosix {
 protected:
  // A process that is killed by its first write, before a byte of it is on the disk.
  void KillAWriter() {
    const pid_t child = fork();
    if (child == 0) {
      signal(SIGXFSZ, SIG_DFL);
      _exit(LimitFileSize(0) ? static_cast<int>(WriteWholeFile(path_, bytes_)) : kJobFailed);
    }
    int status = -1;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ) << status;
    killed_ = std::to_string(child);
  }

  // What the killed process left behind appears as if this process had left it.
  void TakeOverLeftovers() const {
    for (std::string name : folder_.Names()) {
      const std::size_t place = name.find(killed_);
      if (place != std::string::npos) {
        const std::string left = folder_.File(name);
        name.replace(place, killed_.size(), std::to_string(getpid()));
        std::filesystem::copy_file(left, folder_.File(name));
      }
    }
  }

  std::string killed_;
};

TEST_F(KilledWhileWriting, LeavesTheOldFileWhole) {
  PutFile(path_, old_);
  KillAWriter();
  EXPECT_EQ(FileBytes(path_), old_);
}

TEST_F(KilledWhileWriting, LeavesNoHalfFileUnderTheName) {
  KillAWriter();
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(KilledWhileWriting, DoesNotHinderTheNextSave) {
  PutFile(path_, old_);
  KillAWriter();
  KillAWriter();
  EXPECT_EQ(WriteWholeFile(path_, bytes_), WriteOutcome::kWritten);
  EXPECT_EQ(FileBytes(path_), bytes_);
}

TEST_F(KilledWhileWriting, DoesNotHinderTheFirstSaveUnderTheName) {
  KillAWriter();
  EXPECT_EQ(WriteWholeFile(path_, bytes_), WriteOutcome::kWritten);
  EXPECT_EQ(FileBytes(path_), bytes_);
}

TEST_F(KilledWhileWriting, DoesNotMakeTheNextSaveRiskTheOldFile) {
  PutFile(path_, old_);
  KillAWriter();
  EXPECT_EQ(OutcomeOnAFullDisk(4096), kWriteError);
  EXPECT_EQ(FileBytes(path_), old_);
}

// A process number comes again some day, and a name that was made from it too.
TEST_F(KilledWhileWriting, DoesNotHinderALaterProcessOfTheSameNumber) {
  PutFile(path_, old_);
  KillAWriter();
  const int outcome = ExitStatusOfChild([&] {
    TakeOverLeftovers();
    return static_cast<int>(WriteWholeFile(path_, bytes_));
  });
  EXPECT_EQ(outcome, kWritten);
  EXPECT_EQ(FileBytes(path_), bytes_);
}

TEST_F(FileOutputOnPosix, WritesThroughASymbolicLink) {
  ASSERT_TRUE(std::filesystem::create_directory(folder_.path() / "elsewhere"));
  const std::string target = folder_.File("elsewhere/real.rdf");
  PutFile(target, old_);
  std::filesystem::create_symlink(target, path_);
  EXPECT_EQ(WriteWholeFile(path_, bytes_), WriteOutcome::kWritten);
  EXPECT_TRUE(std::filesystem::is_symlink(path_));
  EXPECT_FALSE(std::filesystem::is_symlink(target));
  EXPECT_EQ(FileBytes(target), bytes_);
  EXPECT_EQ(folder_.Names(), (std::vector<std::string>{"elsewhere", "radio.rdf"}));
}

TEST_F(FileOutputOnPosix, WritesThroughARelativeSymbolicLink) {
  ASSERT_TRUE(std::filesystem::create_directory(folder_.path() / "elsewhere"));
  PutFile(folder_.File("elsewhere/real.rdf"), old_);
  std::filesystem::create_symlink("elsewhere/real.rdf", path_);
  EXPECT_EQ(WriteWholeFile(path_, bytes_), WriteOutcome::kWritten);
  EXPECT_TRUE(std::filesystem::is_symlink(path_));
  EXPECT_EQ(FileBytes(folder_.File("elsewhere/real.rdf")), bytes_);
}

}  // namespace
}  // namespace qz7
