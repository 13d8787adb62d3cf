// A whole file, byte for byte.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/cadastral_jobs.h"

namespace {

TEST(DatExample, TheJobBecomesTheFileByteForByte) {
  HostDocument document;
  cadastral_jobs::LoadExample(document);
  const dat::DatText text = cadastral_jobs::Compose(document);
  EXPECT_EQ(text.bytes, ReadBytes(KALVIO_TEST_DATA "/cadastral/libretto.dat"));
  EXPECT_TRUE(text.faults.empty());
  // Its contour and its fiducial point name what was not surveyed.
  EXPECT_THAT(cadastral_jobs::Texts(text.remarks),
              testing::ElementsAre("named but not surveyed: 103, PF01/0170/H223"));
}

}  // namespace
