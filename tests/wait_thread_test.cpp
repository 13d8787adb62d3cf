#include "services/wait_thread.h"

#include <gtest/gtest.h>

#include "support/fake_views.h"

namespace {

struct WaitThread : testing::Test {
  FakeViews views;
  CWnd parent{&views};
  CWaitThread& wait = *CWaitThread::GetInstance();
};

TEST_F(WaitThread, ShowsTheIndicatorUntilTheEnd) {
  wait.StartWait(&parent, 0);
  EXPECT_EQ(views.waits, "start ");
  wait.EndWait();
  EXPECT_EQ(views.waits, "start end ");
}

TEST_F(WaitThread, ShowsOneIndicatorForNestedWaits) {
  wait.StartWait(&parent, 0);
  wait.StartWait(&parent, 0);
  wait.EndWait();
  EXPECT_EQ(views.waits, "start ");
  wait.EndWait();
  EXPECT_EQ(views.waits, "start end ");
}

TEST_F(WaitThread, ShowsTheIndicatorAgain) {
  for (int i = 0; i < 2; ++i) {
    wait.StartWait(&parent, 0);
    wait.EndWait();
  }
  EXPECT_EQ(views.waits, "start end start end ");
}

TEST_F(WaitThread, EndsNothingThatWasNotStarted) {
  wait.EndWait();
  wait.StartWait(&parent, 0);
  EXPECT_EQ(views.waits, "start ");
  wait.EndWait();
}

TEST_F(WaitThread, WorksWithoutViews) {
  CWnd bare(nullptr);
  wait.StartWait(nullptr, 0);
  wait.EndWait();
  wait.StartWait(&bare, 0);
  wait.EndWait();
  wait.StartWait(&parent, 0);
  wait.EndWait();
  EXPECT_EQ(views.waits, "start end ");
}

TEST_F(WaitThread, EndsWhereItStarted) {
  FakeViews others;
  CWnd other(&others);
  wait.StartWait(&parent, 0);
  wait.StartWait(&other, 0);
  wait.EndWait();
  wait.EndWait();
  EXPECT_EQ(views.waits, "start end ");
  EXPECT_EQ(others.waits, "");
}

}  // namespace
