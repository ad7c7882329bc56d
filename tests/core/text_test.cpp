#include "core/text.h"

#include <gtest/gtest.h>

namespace skerrow {
namespace {

TEST(CodePage, EveryByteSurvivesARoundTrip) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_EQ(ToAnsi(FromAnsi(all)), all);
}

TEST(CodePage, KnownCharacters) {
  const struct {
    const char* utf8;
    const char* ansi;
  } rows[] = {{"Saint-Malo", "Saint-Malo"},
              {"Îles d'Hy\xC3\xA8res", "\xCEles d'Hy\xE8res"},
              {"€5",
               "\x80"
               "5"},
              {"Š", "\x8A"},
              {"ÿ", "\xFF"},
              {"", ""}};
  for (const auto& row : rows) {
    EXPECT_EQ(ToAnsi(row.utf8), row.ansi);
    EXPECT_EQ(FromAnsi(row.ansi), row.utf8);
  }
}

TEST(CodePage, WhatHasNoByteBecomesAQuestionMark) {
  EXPECT_EQ(ToAnsi("海"), "?");
  EXPECT_EQ(ToAnsi("a😀b"), "a?b");
  EXPECT_EQ(ToAnsi("a\xC3"), "a?");       // cut short
  EXPECT_EQ(ToAnsi("\xE9t\xE9"), "?t?");  // not UTF-8
  EXPECT_EQ(ToAnsi("\xC0\xAFx"), "??x");  // overlong
}

TEST(Text, Blanks) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(TrimRight("  a  "), "  a");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim("\ta "), "\ta");  // only blanks
  EXPECT_EQ(SqueezeBlanks("  a   b c    "), "a b c");
  EXPECT_EQ(SqueezeBlanks(""), "");
  EXPECT_EQ(ReplaceAll("a\\b\\\\c", "\\", "/"), "a/b//c");
  EXPECT_EQ(ReplaceAll("aaa", "a", "aa"), "aaaaaa");
  EXPECT_EQ(ToLowerAscii("AbZ-É"), "abz-É");
}

TEST(Text, ListRows) {
  const ListRow row = SplitListRow("  Lizard\t:49.56.40N,005.12.36W ");
  EXPECT_EQ(row.name, "Lizard");
  EXPECT_EQ(row.latitude_text, "49.56.40N");
  EXPECT_EQ(row.longitude_text, "005.12.36W");
  EXPECT_EQ(SplitListRow("Two\t\t: 1 , 2").name, "Two");
  // None of these may run past the text.
  for (const char* odd : {"", ":", ",", ",:", "a", "a:", "a,", ":,", "\t:"}) {
    SplitListRow(odd);
  }
  EXPECT_EQ(SplitListRow("plain").name, "plain");
}

TEST(Text, CommaFields) {
  const CommaFields five = SplitFields(" a,b,,d,e,f ");
  EXPECT_EQ(five.field[0], "a");
  EXPECT_EQ(five.field[2], "");
  EXPECT_EQ(five.field[3], "d");
  EXPECT_EQ(five.rest, "e,f");
  EXPECT_EQ(SplitFields("a,b,c,d,").rest, "   ");
  EXPECT_EQ(SplitFields("a,b").field[1], "b");
  EXPECT_EQ(SplitFields("a,b").rest, "");
}

}  // namespace
}  // namespace skerrow
