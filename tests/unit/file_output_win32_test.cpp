#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "core/files/file_output.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

// A target that another program has open.
namespace qz7 {
namespace {

class HeldTarget : public testing::Test {
 protected:
  HeldTarget() { PutFile(path_, Bytes(30, 0x11)); }
  ~HeldTarget() override { LetGo(); }

  void Hold(DWORD access, DWORD share) {
    holder_ = CreateFileA(path_.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(holder_, INVALID_HANDLE_VALUE);
  }
  void LetGo() {
    if (holder_ != INVALID_HANDLE_VALUE) {
      CloseHandle(holder_);
      holder_ = INVALID_HANDLE_VALUE;
    }
  }
  void ExpectIs(const Bytes& bytes) {
    LetGo();
    EXPECT_EQ(FileBytes(path_), bytes);
    EXPECT_EQ(folder_.Names(), std::vector<std::string>{"radio.rdf"});
  }

  TempFolder folder_;
  std::string path_ = folder_.File("radio.rdf");
  Bytes bytes_ = Bytes(20, 0x22);

 private:
  HANDLE holder_ = INVALID_HANDLE_VALUE;
};

TEST_F(HeldTarget, IsWrittenInPlaceWhereAReaderLetsOthersWrite) {
  Hold(GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
  EXPECT_TRUE(WriteFileOrShow(path_, bytes_));
  EXPECT_TRUE(test_seams.messages.empty());
  ExpectIs(bytes_);
}

TEST_F(HeldTarget, IsWrittenWhereAReaderLetsItBeDeleted) {
  Hold(GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
  EXPECT_TRUE(WriteFileOrShow(path_, bytes_));
  ExpectIs(bytes_);
}

TEST_F(HeldTarget, CannotBeCreatedWhereAReaderLetsNobodyWrite) {
  Hold(GENERIC_READ, FILE_SHARE_READ);
  EXPECT_FALSE(WriteFileOrShow(path_, bytes_));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Cannot create file:\n" + path_});
  ExpectIs(Bytes(30, 0x11));
}

TEST_F(HeldTarget, CannotBeCreatedWhereAnotherProgramKeepsItToItself) {
  Hold(GENERIC_READ | GENERIC_WRITE, 0);
  EXPECT_FALSE(WriteFileOrShow(path_, bytes_));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Cannot create file:\n" + path_});
  ExpectIs(Bytes(30, 0x11));
}

}  // namespace
}  // namespace qz7
