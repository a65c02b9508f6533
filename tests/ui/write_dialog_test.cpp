#include <algorithm>

#include "core/link/radio_transfer.h"
#include "desktop/link/clone_dialogs.h"
#include "resources/control_ids.h"
#include "tests/ui/radio_lines.h"
#include "tests/ui/window_fixture.h"
#include "tests/unit/document_bytes.h"

namespace qz7 {
namespace {

class SendingTest : public WindowTest {
 protected:
  SendingTest() {
    Bytes file = IntactFile(std::string_view("TPL\0", 4));
    PutTemplate(file);
  }
  void PutTemplate(Bytes file) {
    FixChecksums(file);
    PutFile(folder.File("mine.tpl"), file);
    Chosen().template_path = folder.File("mine.tpl");
  }
  static Preferences& Chosen() { return app.document.preferences; }
  static bool Send() {
    return SendToRadio(app.document.working_copy, *app.port, [](CloneWrite& write) {
      return ShowWriteDialog(write, *app.port, Chosen());
    });
  }
};

TEST_F(SendingTest, SendsTheDocumentUnderTheTemplatesIdentity) {
  auto& radio = UsePort<ReceivingRadio>();
  const DialogScript start([](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, 104), "mine.tpl");
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDOK));
    EXPECT_EQ(TextOf(dialog, ID_TRANSFER), "Start receiving on the radio, then press OK.");
    SavePicture(dialog, "write");
    Press(dialog, IDOK);
    EXPECT_FALSE(IsEnabled(dialog, IDOK));
    EXPECT_FALSE(IsEnabled(dialog, ID_BROWSE_TEMPLATE));
    SendMessageA(dialog, WM_COMMAND, IDOK, 0);
  });
  const DialogScript done([](HWND dialog) {
    SavePicture(dialog, "write_done");
    Press(dialog, IDOK);
  });
  EXPECT_TRUE(Send());
  ASSERT_EQ(radio.sent.size(), 8123U);
  const Bytes file = FileBytes(folder.File("mine.tpl"));
  EXPECT_TRUE(std::equal(file.begin() + 3060, file.begin() + 3070, radio.sent.begin()));
  EXPECT_EQ(radio.sent[10], file[3066]);
  EXPECT_EQ(radio.sent[11], file[3067]);
  EXPECT_EQ(radio.sent[12], file[3072]);
  EXPECT_EQ(radio.sent[13], file[3073]);
  EXPECT_EQ(radio.sent[14], app.document.image[3074]);
  EXPECT_EQ(radio.sent.back(), SumOf(Bytes(radio.sent.begin(), radio.sent.end() - 1)));
}

TEST_F(SendingTest, WithoutATemplateItSaysSoAndStaysOpen) {
  UsePort<ReceivingRadio>();
  Chosen().template_path.clear();
  const DialogScript script([](HWND dialog) {
    Press(dialog, IDOK);
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{
                                "No template file specified.\nUse Browse Template to select one\n"
                                "or Help for create instructions.\n"});
    EXPECT_TRUE(IsEnabled(dialog, IDOK));
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Send());
}

TEST_F(SendingTest, ATemplateOfTheJapaneseVersionEndsIt) {
  auto& radio = UsePort<ReceivingRadio>();
  Bytes file = IntactFile(std::string_view("TPL\0", 4));
  file[3068] = 1;
  PutTemplate(file);
  const DialogScript script([](HWND dialog) { Press(dialog, IDOK); });
  EXPECT_FALSE(Send());
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
  EXPECT_TRUE(radio.sent.empty());
}

TEST_F(SendingTest, BrowseStoresTheTemplateEvenWhenTheSendIsCancelled) {
  UsePort<ReceivingRadio>();
  test_seams.files = {qz7::Chosen("C:\\radio\\other.tpl")};
  const DialogScript script([](HWND dialog) {
    Press(dialog, ID_BROWSE_TEMPLATE);
    EXPECT_EQ(TextOf(dialog, 104), "other.tpl");
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Send());
  EXPECT_EQ(test_seams.profile["TemplateFile"], "C:\\radio\\other.tpl");
  ASSERT_EQ(test_seams.open_boxes.size(), 1U);
  EXPECT_STREQ(test_seams.open_boxes[0].title, "Select Radio Template File");
  EXPECT_STREQ(test_seams.open_boxes[0].default_extension, "tpl");
  const std::vector<FileFilter>& filters = test_seams.open_boxes[0].filters;
  ASSERT_EQ(filters.size(), 2U);
  EXPECT_STREQ(filters[0].text, "Template Files (*.tpl)");
  EXPECT_STREQ(filters[0].pattern, "*.tpl");
  EXPECT_STREQ(filters[1].text, "All files (*.*)");
  EXPECT_STREQ(filters[1].pattern, "*.*");
}

TEST_F(SendingTest, ACancelledBrowseChangesNothing) {
  UsePort<ReceivingRadio>();
  const DialogScript script([](HWND dialog) {
    Press(dialog, ID_BROWSE_TEMPLATE);
    EXPECT_EQ(TextOf(dialog, 104), "mine.tpl");
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Send());
  EXPECT_TRUE(test_seams.profile_writes.empty());
}

TEST_F(SendingTest, AfterRetryOfAWrongAnswerOnlyCancelIsLeft) {
  UsePort<ReceivingRadio>().answer = 0x15;
  test_seams.answers = {Answer::kRetry};
  const DialogScript script([](HWND dialog) {
    Press(dialog, IDOK);
    EXPECT_TRUE(HandleMessagesUntil([] { return !test_seams.messages.empty(); }));
    HandleMessages();
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Acknowledge Error"});
    EXPECT_FALSE(IsEnabled(dialog, IDOK));
    EXPECT_FALSE(IsEnabled(dialog, ID_BROWSE_TEMPLATE));
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Send());
}

// A key as the dialog's message loop handles it.
void PressKey(HWND dialog, WPARAM key) {
  MSG message{};
  message.hwnd = GetFocus();
  message.message = WM_KEYDOWN;
  message.wParam = key;
  EXPECT_TRUE(IsDialogMessageA(dialog, &message));
}

TEST_F(SendingTest, EnterAgainDoesNothingOnceItHasStarted) {
  auto& radio = UsePort<ReceivingRadio>();
  const DialogScript start([](HWND dialog) {
    PressKey(dialog, VK_RETURN);
    EXPECT_FALSE(IsEnabled(dialog, IDOK));
    EXPECT_FALSE(IsEnabled(dialog, ID_BROWSE_TEMPLATE));
    for (int n = 0; n < 3; ++n) {
      PressKey(dialog, VK_RETURN);
    }
  });
  const DialogScript done([](HWND dialog) { Press(dialog, IDOK); });
  EXPECT_TRUE(Send());
  EXPECT_EQ(radio.sent.size(), 8123U);
}

TEST_F(SendingTest, EscapeCancelsWhatHasStarted) {
  UsePort<ReceivingRadio>().answers = false;
  const DialogScript script([](HWND dialog) {
    PressKey(dialog, VK_RETURN);
    EXPECT_FALSE(IsEnabled(dialog, IDOK));
    PressKey(dialog, VK_ESCAPE);
  });
  EXPECT_FALSE(Send());
}

TEST_F(SendingTest, TheTabKeyLeadsToCancelWhileItSends) {
  UsePort<ReceivingRadio>().answers = false;
  const DialogScript script([](HWND dialog) {
    PressKey(dialog, VK_RETURN);
    PressKey(dialog, VK_TAB);
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDCANCEL));
    PressKey(dialog, VK_RETURN);
  });
  EXPECT_FALSE(Send());
}

TEST_F(SendingTest, APortThatWasGoneBeforeOkIsTold) {
  auto& radio = UsePort<ReceivingRadio>();
  const DialogScript script([&](HWND dialog) {
    radio.failed = true;
    Press(dialog, IDOK);
    EXPECT_TRUE(HandleMessagesUntil([&] { return radio.IsLost(); }));
    EXPECT_EQ(ShownTexts(), std::vector<std::string>{"ERROR"});
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Send());
}

TEST_F(SendingTest, ARadioThatDoesNotAnswerLeavesTheDialogWaiting) {
  auto& radio = UsePort<ReceivingRadio>();
  radio.answers = false;
  const DialogScript script([&](HWND dialog) {
    Press(dialog, IDOK);
    HandleMessagesUntil([] { return false; }, 400);
    EXPECT_TRUE(test_seams.messages.empty());
    EXPECT_EQ(radio.sent.size(), 10U);
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Send());
}

}  // namespace
}  // namespace qz7
