#include "services/extensions.h"

#include <gtest/gtest.h>

namespace {

struct Extensions : testing::Test {
  ~Extensions() override {
    DetachExtension(&first);
    DetachExtension(&second);
  }

  const int first = 0;
  const int second = 0;
};

TEST_F(Extensions, AttachOnce) {
  EXPECT_TRUE(AttachExtension(&first));
  EXPECT_FALSE(AttachExtension(&first));
  EXPECT_TRUE(AttachExtension(&second));
}

TEST_F(Extensions, AttachAgainAfterTheyWereDetached) {
  EXPECT_TRUE(AttachExtension(&first));
  DetachExtension(&first);
  EXPECT_TRUE(AttachExtension(&first));
}

TEST_F(Extensions, RegisterResourcesOnlyWhileAttached) {
  EXPECT_FALSE(RegisterExtensionResources(&first));
  AttachExtension(&first);
  EXPECT_TRUE(RegisterExtensionResources(&first));
  EXPECT_FALSE(RegisterExtensionResources(&second));
  DetachExtension(&first);
  EXPECT_FALSE(RegisterExtensionResources(&first));
}

TEST_F(Extensions, MayBeDetachedThoughNeverAttached) {
  DetachExtension(&first);
  EXPECT_TRUE(AttachExtension(&first));
}

}  // namespace
