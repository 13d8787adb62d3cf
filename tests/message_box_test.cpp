#include "services/message_box.h"

#include <gtest/gtest.h>

#include "support/fake_views.h"

namespace {

TEST(MessageBox, ShowsCaptionTextAndFlagsAsTheyAre) {
  FakeViews views;
  CWnd parent(&views);
  CreateMessageBox(&parent, "Warning", "There are no data to export.", 48);
  CreateMessageBox(&parent, "Info", "è fatto", 64);
  const std::vector<FakeViews::Message> wanted = {{"Warning", "There are no data to export.", 48},
                                                  {"Info", "è fatto", 64}};
  EXPECT_EQ(views.messages, wanted);
}

TEST(MessageBox, ReturnsTheButtonThatWasPressed) {
  FakeViews views;
  CWnd parent(&views);
  views.messageAnswer = kAnswerYes;
  EXPECT_EQ(CreateMessageBox(&parent, "a", "b", kBoxYesNo), 6);
  views.messageAnswer = kAnswerNo;
  EXPECT_EQ(CreateMessageBox(&parent, "a", "b", kBoxYesNo | kBoxExclamation), 7);
}

TEST(MessageBox, HasTheNumbersOfTheHost) {
  EXPECT_EQ(kBoxExclamation, 48U);
  EXPECT_EQ(kBoxInformation, 64U);
  EXPECT_EQ(kAnswerOk, 1);
}

TEST(MessageBox, IsAnsweredWithOkWhenNobodyCanSeeIt) {
  CWnd bare(nullptr);
  EXPECT_EQ(CreateMessageBox(nullptr, "a", "b", 48), kAnswerOk);
  EXPECT_EQ(CreateMessageBox(&bare, "a", "b", 0), kAnswerOk);
}

TEST(MessageBox, AnswersAQuestionWithNoWhenNobodyCanSeeIt) {
  CWnd bare(nullptr);
  EXPECT_EQ(CreateMessageBox(nullptr, "a", "b", kBoxYesNo), kAnswerNo);
  EXPECT_EQ(CreateMessageBox(&bare, "a", "b", kBoxYesNo | kBoxInformation), kAnswerNo);
}

}  // namespace
