#include "host/platform/UtcTime.h"

#include <gtest/gtest.h>

using namespace zanhost;
using std::chrono::system_clock;
using namespace std::chrono_literals;

TEST(UtcTime, IsTheTimeOfGreenwichInWholeSeconds) {
  EXPECT_EQ(UtcText(system_clock::from_time_t(0)), "1970-01-01T00:00:00Z");
  EXPECT_EQ(UtcText(system_clock::from_time_t(1835395200) + 999ms), "2028-02-29T00:00:00Z");
}

TEST(UtcTime, WhatIsWrittenIsReadBack) {
  for (const std::time_t seconds : {0L, 1L, 951782399L, 1835395200L, 7258118399L}) {
    const auto time = system_clock::from_time_t(seconds);
    EXPECT_EQ(ParseUtcText(UtcText(time)), time) << UtcText(time);
  }
}

TEST(UtcTime, AnyOtherTextIsNoTime) {
  for (const char* text :
       {"", "2027-01-31", "2027-01-31T08:00:00", "2027-01-31 08:00:00Z", "2027-1-31T08:00:00Z",
        "2027-02-30T08:00:00Z", "2027-02-29T08:00:00Z", "2027-13-01T08:00:00Z", "2027-01-31T24:00:00Z",
        "2027-01-31T08:00:60Z", "2027-01-31T08:00:00Zx", " 2027-01-31T08:00:00Z", "9999-01-01T00:00:00Z",
        "1969-12-31T23:59:59Z", "-001-01-01T00:00:00Z", "soon"})
    EXPECT_FALSE(ParseUtcText(text).has_value()) << text;
}
