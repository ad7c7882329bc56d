// Tables for spreadsheets: written, read back to the bytes of the files, and read as other programs
// write them.

#include "exchange/text_table.h"

#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

#include "core/record.h"
#include "core/text.h"

namespace skerrow {
namespace {

std::vector<Waypoint> Marks(const std::string& text) {
  Taken taken;
  const auto read = ReadWaypointTable(text, taken);
  EXPECT_TRUE(read) << read.error().Text() << "\n" << text;
  EXPECT_EQ(taken.left_out, 0U) << taken.first_fault;
  return read ? *read : std::vector<Waypoint>();
}

std::string RouteFault(const std::string& text) {
  Taken taken;
  const auto read = ReadRouteTable(text, 5.0F, taken);
  return read ? "read" : read.error().Text();
}

TEST(TextTable, IsWrittenUnderAHeadingLine) {
  const std::vector<RouteRecord> route = {{"Needles", 50.6605F, -1.61467F, 5.5F},
                                          {"Cap \"C\", north", -0.1F, 179.99998F, 0.0F}};
  const std::string table = RouteTable(route);
  EXPECT_EQ(table,
            "Name,Latitude,Longitude,Latitude (DD.MM.mm),Longitude (DDD.MM.mm),Speed (kn)\r\n"
            "Needles,50.6605,-1.61467,50.39.63N,001.36.88W,5.5\r\n"
            "\"Cap \"\"C\"\", north\",-0.1,179.99998,00.06.00S,180.00.00E,0\r\n");
  EXPECT_EQ(TableFile(table), table) << "no mark where it is plain";
  EXPECT_EQ(TableFile("\u00e9"), "\xEF\xBB\xBF\u00e9");
  EXPECT_EQ(WaypointTable({}),
            "Name,Latitude,Longitude,Latitude (DD.MM.mm),Longitude (DDD.MM.mm)\r\n");
}

// Any byte that a name can hold, and any position and speed.
TEST(TextTable, ReadsBackToTheSameBytes) {
  std::mt19937 random(7);
  std::uniform_real_distribution<float> latitude(-90.0F, 90.0F);
  std::uniform_real_distribution<float> longitude(-180.0F, 180.0F);
  std::uniform_int_distribution<int> byte(1, 255);
  std::uniform_int_distribution<int> length(0, 35);
  std::vector<RouteRecord> route;
  std::vector<Waypoint> marks = {{" a", 90.0F, 180.0F},
                                 {"\"", -90.0F, -180.0F},
                                 {",;\t", 0, 0},
                                 {"a\r\nb", 1e-7F, -1e-9F},
                                 {"", 1.0F, 2.0F}};
  for (int i = 0; i < 3000; ++i) {
    std::string name;
    for (int n = length(random); n > 0; --n) name += static_cast<char>(byte(random));
    // A position one step of a 32-bit number beside another is told apart.
    const float lat = std::nextafter(latitude(random), 0.0F);
    marks.push_back({TrimRight(FromAnsi(name)), lat, longitude(random)});
    route.push_back(
        {TrimRight(FromAnsi(name)), lat, longitude(random), std::fabs(latitude(random))});
  }
  EXPECT_EQ(EncodeRecords(std::span<const Waypoint>(Marks(TableFile(WaypointTable(marks)))),
                          kWaypointFields),
            EncodeRecords(std::span<const Waypoint>(marks), kWaypointFields));
  Taken taken;
  const auto read = ReadRouteTable(TableFile(RouteTable(route)), 5.0F, taken);
  ASSERT_TRUE(read) << read.error().Text();
  EXPECT_EQ(EncodeRecords(std::span<const RouteRecord>(*read), kRouteFields),
            EncodeRecords(std::span<const RouteRecord>(route), kRouteFields));
  EXPECT_EQ(taken.names_cut + taken.letters_lost, 0U);
}

TEST(TextTable, OtherProgramsTablesAreRead) {
  const Waypoint nab{"Nab", 50.5F, -1.25F};
  const char* tables[] = {
      "Name,Latitude,Longitude\nNab,50.5,-1.25\n",
      "\xEF\xBB\xBFName,Latitude,Longitude\r\nNab,50.5,-1.25",
      "name;LAT;Lon\rNab;50,5;-1,25\r",
      "Longitude\tLatitude\tDepth\tWaypoint\n-1,25\t50,5\t7\tNab\n",
      "\n\nNab,50.5,-1.25\n\n",
      "50.5,-1.25,Nab\n",
      "50,5;-1,25;Nab\n",
      "Name,Latitude,Longitude\nNab,50.30.00N,001.15.00W\n",
      "Name,Lat,Long,Lat (DD.MM.mm),Long (DDD.MM.mm)\nNab,,,50.30.00n,001.15.00w\n",
      "Name,Lat,Long,Lat (DD.MM.mm),Long (DDD.MM.mm)\nNab,50.5,-1.25,50.30.01N,001.15.00W\n",
      "Nab,50.30.00N,001.15.00W\n",
      "Nab,50.5,-1.25,50.30.00N,001.15.00W\n",
      "Name,Lat,Lon\n Nab ,\"50\u00b030.000'N\",1 15 0 W\n",
      "Name,Lat,Lon\n\"Nab\" ,N 50\u00b0 30\u2032, W1\u00b015'00\"\n",
      "Name,Lat,Lon\nNab,+50.5\u00b0,-125e-2\n",
  };
  for (const char* table : tables) {
    const std::vector<Waypoint> marks = Marks(table);
    ASSERT_EQ(marks.size(), 1U) << table;
    EXPECT_EQ(marks[0], nab) << table;
  }
  EXPECT_EQ(Marks("Name,Lat,Lon\nCaf\xe9,1,2\n")[0].name, "Caf\u00e9") << "single-byte text";
  EXPECT_EQ(Marks("Lat,Lon\n1,2\n")[0], (Waypoint{"", 1.0F, 2.0F}));
  Taken taken;
  const auto route = ReadRouteTable("Nab;50,5;-1,25;5,5 kn\nB;50;-1\nC;50;-1;6\n", 4.0F, taken);
  ASSERT_TRUE(route) << route.error().Text();
  EXPECT_EQ((*route)[0], (RouteRecord{"Nab", 50.5F, -1.25F, 5.5F}));
  EXPECT_EQ((*route)[1].speed, 4.0F);
  EXPECT_EQ((*route)[2].speed, 6.0F);
}

TEST(TextTable, WhatIsDoneToNamesIsCounted) {
  Taken taken;
  const auto marks = ReadWaypointTable(
      "Name,Lat,Lon\nA name that is longer than the field,1,2\n\u0141eba,1,2\nx,91,0\ny,1,\n",
      taken);
  ASSERT_TRUE(marks);
  ASSERT_EQ(marks->size(), 2U);
  EXPECT_EQ((*marks)[0].name, "A name that is longer than the fiel");
  EXPECT_EQ((*marks)[1].name, "?eba");
  EXPECT_EQ(
      TakenTexts(taken),
      (std::vector<std::string>{
          "1 name is cut to 35 characters.",
          "1 name has letters that a file cannot hold; \"?\" stands for each.",
          "2 points have no place on the globe and are left out, the first: line 4: \"91\" is "
          "no latitude."}));
}

TEST(TextTable, WhatCannotBeIsToldWithItsLine) {
  const std::string head = "Name,Lat,Lon,Speed\nA,50,-1,5\n";
  const std::pair<std::string, const char*> rows[] = {
      {"B,90.1,-1,5", "line 3: \"90.1\" is no latitude"},
      {"B,50,180.5,5", "line 3: \"180.5\" is no longitude"},
      {"B,nan,0,5", "line 3: \"nan\" is no latitude"},
      {"B,50.60.00N,0,5", "line 3: \"50.60.00N\" is no latitude"},
      {"B,50.30N,0,5", "line 3: \"50.30N\" is no latitude"},
      {"B,50.30.00E,0,5", "line 3: \"50.30.00E\" is no latitude"},
      {"B,50 60 N,0,5", "line 3: \"50 60 N\" is no latitude"},
      {"B,50 30.5 10 N,0,5", "line 3: \"50 30.5 10 N\" is no latitude"},
      {"B,50", "line 3: there is no longitude"},
      {"\"B\nC\",,0,5", "line 3: there is no latitude"},
      {"\"B\nC\",50,0,5\nD,50,x,5", "line 5: \"x\" is no longitude"},
      {"B,50,0,-1", "line 3: \"-1\" is no speed"},
      {"B,50,0,5 m/s", "line 3: \"5 m/s\" is no speed"},
      {"\"B,50,0,5", "line 3: a quotation mark is not closed"},
  };
  for (const auto& [row, fault] : rows) EXPECT_EQ(RouteFault(head + row), fault) << row;
  EXPECT_EQ(
      RouteFault("Name,Lat,Lon,Lat (DD.MM.mm),Lon (DDD.MM.mm)\nA,50.5,-1,50.31.00N,001.00.00W"),
      "line 2: the latitudes \"50.5\" and \"50.31.00N\" are not the same");
  EXPECT_EQ(RouteFault("Name,Lat,Lon\n"), "it has no points");
  for (const char* text : {"", "\r\n \n", "\xEF\xBB\xBF"}) {
    EXPECT_EQ(RouteFault(text), "there is nothing in it");
  }
  // Three numbers may be a name and a place as well as a place and a speed.
  for (const char* text : {"12,50.1,-1.2\n", "a,b,c\n", "Name,Latitude\nA,50\n", "50.1\n",
                           "A,200,1\n", "<gpx></gpx>"}) {
    EXPECT_TRUE(RouteFault(text).starts_with("its first line tells no columns")) << text;
  }
  using namespace std::string_literals;  // NOLINT: for a text with a zero
  EXPECT_TRUE(RouteFault("N\0a\0m\0e\0"s).starts_with("this is no text"));
  EXPECT_TRUE(RouteFault("\xFF\xFEN\x01"s).starts_with("this is no text"));
}

TEST(TextTable, TheLocaleChangesNothing) {
  const std::vector<RouteRecord> route = {{"A", 50.25F, -1.5F, 5.5F}};
  const std::string table = RouteTable(route);
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) GTEST_SKIP() << "no such locale here";
  Taken taken;
  EXPECT_EQ(RouteTable(route), table);
  EXPECT_EQ(*ReadRouteTable(table, 5.0F, taken), route);
  std::setlocale(LC_ALL, "C");
}

// Two legs: the first of two steps through midnight, the second of three from its waypoint on.
TEST(TextTable, ACourseTellsWhereTheBoatIsWhen) {
  PassageState passage;
  const DayAndYear eve{365, 2026};
  const DayAndYear day{1, 2027};
  passage.route_track = {{{50.0F, -1.0F}, 23.75F, eve},   {{50.0125F, -1.0F}, 23.75F, eve},
                         {{50.025F, -1.0F}, 0.3F, day},   {{50.025F, -0.98F}, 0.3F, day},
                         {{50.025F, -0.96F}, 0.55F, day}, {{50.025F, -0.94F}, 0.8F, day}};
  passage.route_streams = {{1.04F, 95.0F, 23.75F, "9999, 50"},
                           {1.2F, 96.0F, 0.0F, "9999, 50"},
                           {0.0F, 0.0F, 0.3F, "NONE"},
                           {0.5F, 270.0F, 0.55F, ""},
                           {0.6F, 271.0F, 0.8F, ""}};
  passage.legs.resize(2);
  passage.legs[0].result.steps = 2;
  passage.legs[0].heading = 4.6F;
  passage.legs[1].result.steps = 3;
  passage.legs[1].heading = 91.0F;
  passage.legs[1].arrival_hours = 1.0F;
  passage.legs[1].arrival_date = day;
  // By hand: 0.75 nm in 15 and in 18 minutes; 0.02 degrees of longitude at 50.025 N are 0.771 nm.
  EXPECT_EQ(
      CourseTable(passage),
      "Leg,Date,Time,Steer,Latitude,Longitude,Latitude (DD.MM.mm),Longitude (DDD.MM.mm),"
      "Course over ground,Speed over ground (kn),Stream rate (kn),Stream direction,Diamond\r\n"
      "1,2026-12-31,23:45,005,50,-1,50.00.00N,001.00.00W,000,3.0,1.0,095,\"9999, 50\"\r\n"
      "1,2027-01-01,00:00,005,50.0125,-1,50.00.75N,001.00.00W,000,2.5,1.2,096,\"9999, 50\"\r\n"
      "2,2027-01-01,00:18,091,50.025,-1,50.01.50N,001.00.00W,090,3.1,0.0,000,NONE\r\n"
      "2,2027-01-01,00:33,091,50.025,-0.98,50.01.50N,000.58.80W,090,3.1,0.5,270,\r\n"
      "2,2027-01-01,00:48,091,50.025,-0.96,50.01.50N,000.57.60W,090,3.1,0.6,271,\r\n"
      "2,2027-01-01,01:03,,50.025,-0.94,50.01.50N,000.56.40W,,,,,\r\n");
  // A prediction has no legs.
  passage.legs.clear();
  const std::vector<CourseStep> steps = CourseSteps(passage);
  EXPECT_EQ(steps[0].leg, "");
  EXPECT_EQ(steps[0].steer, "");
  EXPECT_EQ(steps.back().when, "2027-01-01T01:03");
  EXPECT_TRUE(CourseSteps({}).empty());
  passage.route_track.resize(1);
  EXPECT_EQ(CourseSteps(passage).size(), 1U);
}

}  // namespace
}  // namespace skerrow
