#include "host/platform/Base64.h"

#include <gtest/gtest.h>

#include "Frame/Host/Classes.h"

using zanhost::DecodeBase64;
using zanhost::EncodeBase64;

TEST(Base64, EncodesTheKnownTexts) {
  EXPECT_EQ(EncodeBase64(""), "");
  EXPECT_EQ(EncodeBase64("f"), "Zg==");
  EXPECT_EQ(EncodeBase64("fo"), "Zm8=");
  EXPECT_EQ(EncodeBase64("foo"), "Zm9v");
  EXPECT_EQ(EncodeBase64("foobar"), "Zm9vYmFy");
  EXPECT_EQ(EncodeBase64("\xFB\xEF\xFF"), "++//");
}

TEST(Base64, GivesEveryByteBack) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) {
    EXPECT_EQ(DecodeBase64(EncodeBase64(bytes)), bytes) << i;
    bytes += static_cast<char>(i);
  }
}

TEST(Base64, PassesOverLineBreaksAndBlanks) { EXPECT_EQ(DecodeBase64(" Zm9v\r\nYmFy \t"), "foobar"); }

TEST(Base64, LongTextStaysOnOneLine) {
  EXPECT_EQ(EncodeBase64(std::string(1000, 'x')).find('\n'), std::string::npos);
}

TEST(Base64, RefusesWhatIsNoBase64) {
  for (const char* text :
       {"Z", "Zg", "Zg=", "Zg===", "====", "Z===", "Zg==Zg==", "Zm9v!", "Zm=v", "密码密码", "Zm9-"})
    EXPECT_THROW(DecodeBase64(text), zanrole::EConvertError) << text;
}
