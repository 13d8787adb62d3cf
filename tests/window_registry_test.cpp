#include "platform/window_registry.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using platform::SendToWindow;
using platform::WindowMessage;

// A window that remembers its messages, known as long as it lives.
class Window {
 public:
  explicit Window(std::string_view name) : name_(name) {
    platform::RegisterWindow(name,
                             [this](const WindowMessage& message) { messages.push_back(message); });
  }
  ~Window() { platform::UnregisterWindow(name_); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  std::vector<WindowMessage> messages;

 private:
  std::string name_;
};

TEST(WindowRegistry, HandsAMessageToTheWindowOfThatName) {
  const Window first("first");
  const Window second("second");
  EXPECT_TRUE(SendToWindow("second", {1165, 1, -2}));
  EXPECT_TRUE(first.messages.empty());
  ASSERT_EQ(second.messages.size(), 1U);
  EXPECT_EQ(second.messages[0].message, 1165U);
  EXPECT_EQ(second.messages[0].wparam, 1U);
  EXPECT_EQ(second.messages[0].lparam, -2);
}

TEST(WindowRegistry, FindsNoWindowThatIsNotThere) {
  const Window window("first");
  EXPECT_FALSE(SendToWindow("firs", {1, 0, 0}));
  EXPECT_FALSE(SendToWindow("First", {1, 0, 0}));
  EXPECT_TRUE(window.messages.empty());
}

TEST(WindowRegistry, FindsNoWindowThatIsGone) {
  { const Window window("first"); }
  EXPECT_FALSE(SendToWindow("first", {1, 0, 0}));
}

TEST(WindowRegistry, ReplacesAWindowOfTheSameName) {
  const Window older("first");
  const Window newer("first");
  EXPECT_TRUE(SendToWindow("first", {1, 0, 0}));
  EXPECT_TRUE(older.messages.empty());
  EXPECT_EQ(newer.messages.size(), 1U);
}

TEST(WindowRegistry, LetsAWindowGoWhileItHandlesAMessage) {
  int handled = 0;
  platform::RegisterWindow("first", [&handled](const WindowMessage&) {
    platform::UnregisterWindow("first");
    ++handled;
  });
  EXPECT_TRUE(SendToWindow("first", {1, 0, 0}));
  EXPECT_FALSE(SendToWindow("first", {1, 0, 0}));
  EXPECT_EQ(handled, 1);
}

TEST(WindowRegistry, TakesAWindowThatWasNeverThereForGone) {
  platform::UnregisterWindow("nobody");
  EXPECT_FALSE(SendToWindow("nobody", {1, 0, 0}));
}

}  // namespace
