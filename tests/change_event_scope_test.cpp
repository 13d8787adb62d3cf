#include "model/change_event_scope.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "model/total_station.h"

namespace {

// Notes the calls, in their order.
class Listener : public tdk::ISourceEventListener {
 public:
  void OnBeginEvent() override { calls += "begin "; }
  void OnEndEvent() override { calls += "end "; }
  std::string calls;
};

struct ChangeEventScopeTest : testing::Test {
  ChangeEventScopeTest() { context.SetListener(&listener); }

  Listener listener;
  CLibCmpChangeContext context;
};

TEST_F(ChangeEventScopeTest, BeginsTheEventAndEndsItOnce) {
  {
    const ChangeEventScope scope(&context);
    EXPECT_EQ(listener.calls, "begin ");
    EXPECT_EQ(context.Depth(), 1);
  }
  EXPECT_EQ(listener.calls, "begin end ");
  EXPECT_EQ(context.Depth(), 0);
}

TEST_F(ChangeEventScopeTest, EndsTheEventWhenAnExceptionLeaves) {
  try {
    const ChangeEventScope scope(&context);
    throw std::runtime_error("stop");
  } catch (const std::runtime_error&) {
    EXPECT_EQ(listener.calls, "begin end ");
  }
  EXPECT_EQ(context.Depth(), 0);
}

TEST_F(ChangeEventScopeTest, EndsTheEventOnAnEarlyReturn) {
  const auto stopEarly = [this](bool stop) {
    const ChangeEventScope scope(&context);
    if (stop) return;
    listener.calls += "never ";
  };
  stopEarly(true);
  EXPECT_EQ(listener.calls, "begin end ");
}

TEST_F(ChangeEventScopeTest, Nests) {
  {
    const ChangeEventScope outer(&context);
    const ChangeEventScope inner(&context);
    EXPECT_EQ(context.Depth(), 2);
  }
  EXPECT_EQ(listener.calls, "begin begin end end ");
  EXPECT_EQ(context.Depth(), 0);
}

TEST_F(ChangeEventScopeTest, WorksWithoutAListener) {
  context.SetListener(nullptr);
  {
    const ChangeEventScope scope(&context);
    EXPECT_EQ(context.Depth(), 1);
  }
  EXPECT_EQ(context.Depth(), 0);
  EXPECT_EQ(listener.calls, "");
}

TEST_F(ChangeEventScopeTest, NeitherBeginsNorEndsAnythingWithoutAContext) {
  CLibCmp library;
  library.GetCmpContext()->SetListener(&listener);
  CLibCmpChangeContext* const hidden = library.GetCmpContext();
  library.HaveCmpContext(false);
  { const ChangeEventScope scope(library.GetCmpContext()); }
  EXPECT_EQ(listener.calls, "");
  EXPECT_EQ(hidden->Depth(), 0);
}

TEST_F(ChangeEventScopeTest, BracketsTheChangesOfALibrary) {
  CLibCmp library;
  library.GetCmpContext()->SetListener(&listener);
  {
    const ChangeEventScope scope(library.GetCmpContext());
    for (int i = 0; i < 5; ++i) library.AddJob(true);
  }
  EXPECT_EQ(listener.calls, "begin end ");
}

}  // namespace
