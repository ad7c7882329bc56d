#include "ui/forms/configure_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>
#include <cstring>

#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/dialogs/frmConfigure.h"
#include "ui/widgets/colour_button.h"

namespace skerrow::testing {
namespace {

class ConfigureForm : public SampleDesk {};

std::size_t RowOf(const char* control) {
  const auto fields = ConfigureFields();
  std::size_t row = 0;
  while (row < fields.size() && std::strcmp(fields[row].control, control) != 0) ++row;
  EXPECT_LT(row, fields.size()) << control;
  return row;
}

// A control, what is put into it, and where the settings file must hold which value.
struct Stored {
  const char* control;
  const char* entry;  // typed or chosen; of a mark "1" or ""
  std::size_t offset;
  char type;  // f a single, i two bytes, l four
  double value;
};

// No two values of a type are alike, as far as marks allow.
constexpr Stored kStored[] = {{"Txtvariation", "7.5E", 2558, 'f', 7.5},
                              {"txtErrorCircle", "1.25", 2554, 'f', 1.25},
                              {"cmbThreshold", "0.7", 2466, 'f', 0.7},
                              {"txtSearchCircle", "2.75", 2454, 'f', 2.75},
                              {"Txtboatspeed", "6.5", 2550, 'f', 6.5},
                              {"txtCPAWind", "38", 2586, 'f', 38},
                              {"cmbLineSize", "3", 2530, 'f', 3},
                              {"txtCalcInterval", "4", 2542, 'f', 4},
                              {"txtLeeWay", "8.5", 2590, 'f', 8.5},
                              {"cmbBarbLength", "35", 2920, 'f', 35},
                              {"cmbBarbWeight", "4", 2606, 'i', 4},
                              {"cmbBarbSpacing", "14", 2924, 'i', 14},
                              {"cmbStreamLineWidth", "1", 2940, 'i', 1},
                              {"cmbStreamLength", "8", 2936, 'i', 8},
                              {"cmbTextSize", "18", 2948, 'l', 18},
                              {"pctFontCol", "1122867", 2952, 'l', 0x112233},
                              {"pctCOGCol", "4478310", 2908, 'l', 0x445566},
                              {"pctWindCol", "7833753", 2916, 'l', 0x778899},
                              {"pctTidalStreamCol", "11189196", 2942, 'l', 0xaabbcc},
                              {"optSummerTime", "1", 2584, 'i', -1},
                              {"chkHideStreamId", "1", 2600, 'i', -1},
                              {"chkLeeway", "1", 2604, 'i', 1},
                              {"chkShowwind", "1", 2868, 'i', -1},
                              {"chkUseTides", "1", 2894, 'i', -1},
                              {"chkBarbDisplayText", "1", 2926, 'i', -1},
                              {"chkUseSmartMet", "1", 2928, 'i', 0},
                              {"chkStreamAsShape", "1", 2946, 'i', -1},
                              {"chkStreamFilled", "1", 2938, 'i', 1}};

double ValueAt(const std::string& file, std::size_t offset, char type) {
  float single = 0.0F;
  std::int16_t two = 0;
  std::int32_t four = 0;
  if (type == 'f') std::memcpy(&single, file.data() + offset, sizeof single);
  if (type == 'i') std::memcpy(&two, file.data() + offset, sizeof two);
  if (type == 'l') std::memcpy(&four, file.data() + offset, sizeof four);
  return type == 'f' ? static_cast<double>(single) : type == 'i' ? two : four;
}

void Put(QWidget& form, const Stored& row, bool set) {
  auto* control = Find<QWidget>(form, row.control);
  ASSERT_NE(control, nullptr);
  if (auto* list = qobject_cast<QComboBox*>(control)) {
    list->setCurrentText(row.entry);
  } else if (auto* edit = qobject_cast<QLineEdit*>(control)) {
    edit->setText(row.entry);
  } else if (auto* colour = qobject_cast<ColourButton*>(control)) {
    colour->SetColour(std::atoi(row.entry));
  } else if (std::strcmp(row.control, "optSummerTime") == 0) {
    Find<QRadioButton>(form, set ? row.control : "optDaylightSavings")->setChecked(true);
  } else {
    Find<QCheckBox>(form, row.control)->setChecked(set);
  }
}

bool IsMark(const Stored& row) {
  return std::string_view(row.entry) == "1" && row.type == 'i' &&
         std::string_view(row.control).substr(0, 3) != "cmb";
}

// A field stored in its neighbour would come back at another place of the file, or in another
// control.
TEST_F(ConfigureForm, EveryControlHasItsFieldOfTheFile) {
  EXPECT_EQ(ConfigureFields().size(), std::size(kStored));
  {
    frmConfigure form(desktop, nullptr, nullptr);
    Show(form);
    for (const Stored& row : kStored) Put(form, row, true);
    Click(form, "cmdOK");
    ASSERT_FALSE(form.isVisible());
  }
  std::string file = FileBytes(program.folders.ConfigFile());
  frmConfigure again(desktop, nullptr, nullptr);
  const SettingTexts texts = ShowSettings(ConfigureFields(), program.config);
  for (const Stored& row : kStored) {
    EXPECT_NEAR(ValueAt(file, row.offset, row.type), row.value, 1e-6) << row.control;
    EXPECT_EQ(texts[RowOf(row.control)], row.entry) << row.control;
    auto* control = Find<QWidget>(again, row.control);
    if (auto* edit = qobject_cast<QLineEdit*>(control)) {
      EXPECT_EQ(edit->text(), row.entry) << row.control;
    } else if (auto* list = qobject_cast<QComboBox*>(control)) {
      EXPECT_EQ(list->currentText(), row.entry) << row.control;
    } else if (auto* colour = qobject_cast<ColourButton*>(control)) {
      EXPECT_EQ(colour->colour(), static_cast<std::int32_t>(row.value)) << row.control;
    }
  }
  // One mark after the other is taken away: its field alone changes.
  for (const Stored& row : kStored) {
    if (!IsMark(row)) continue;
    frmConfigure form(desktop, nullptr, nullptr);
    Show(form);
    Put(form, row, false);
    Click(form, "cmdOK");
    const std::string now = FileBytes(program.folders.ConfigFile());
    EXPECT_EQ(ValueAt(now, row.offset, row.type), row.value == 0.0 ? -1.0 : 0.0) << row.control;
    for (std::size_t at = 0; at < now.size(); ++at) {
      if (at != row.offset && at != row.offset + 1) {
        EXPECT_EQ(now[at], file[at]) << row.control << " changed byte " << at;
      }
    }
    file = now;
  }
}

struct Spoiled {
  const char* control;
  const char* text;
  const char* words;
  bool beeps;
};

// In the order of the checks.
const Spoiled kSpoiled[] = {
    {"Txtvariation", "4", "Enter a valid for Variation", false},
    {"txtErrorCircle", " ", "Enter a value for Acceptable Calculation Error Distance", true},
    {"Txtboatspeed", "0", "Enter a value for Vessel Speed", true},
    {"txtCPAWind", "", "Enter a value for Closest Sailing Angle", true},
    {"txtCalcInterval", "0.5", "Enter a value for Calculation Interval", true},
    {"cmbBarbWeight", "0", "Barb line width =0 !!", false},
    {"cmbBarbLength", "", "Barb length =0 !!", false},
    {"cmbBarbSpacing", "0.4", "Barb spacing =0 !!", false},
    {"cmbStreamLineWidth", "0", "Tidal Stream line width =0 !!", false},
    {"cmbTextSize", "0", "Font Size = 0 !!", false},
};

TEST_F(ConfigureForm, RefusesEachFaultAndTheFirstOfSeveral) {
  const AppConfig before = DefaultConfig("/p");
  const SettingTexts good = ShowSettings(ConfigureFields(), before);
  SettingTexts all_wrong = good;
  for (const Spoiled& row : kSpoiled) all_wrong[RowOf(row.control)] = row.text;
  const auto expect = [&](const SettingTexts& texts, const Spoiled& row) {
    AppConfig config = before;
    const auto refusal = TakeConfigure(texts, config);
    ASSERT_TRUE(refusal) << row.control;
    EXPECT_EQ(refusal->row, RowOf(row.control));
    EXPECT_EQ(refusal->text, row.words);
    EXPECT_EQ(ConfigureFields()[refusal->row].beep, row.beeps) << row.control;
    EXPECT_EQ(EncodeRecord(config, kAppConfigFields), EncodeRecord(before, kAppConfigFields));
  };
  for (const Spoiled& row : kSpoiled) {
    expect(all_wrong, row);
    all_wrong[RowOf(row.control)] = good[RowOf(row.control)];  // so that the next is the first
    SettingTexts one_wrong = good;
    one_wrong[RowOf(row.control)] = row.text;
    expect(one_wrong, row);
  }
  SettingTexts zero = good;
  zero[RowOf("txtErrorCircle")] = "0";
  expect(zero, {"txtErrorCircle", "",
                "Enter a value greater than 0 for Acceptable Calculation Error Distance", true});
}

TEST_F(ConfigureForm, TakesEachTextByItsRule) {
  AppConfig config = DefaultConfig("/p");
  config.track_colour = 17;
  config.boat_colour = 4711;
  config.reserved11 = 99;
  AppConfig expected = config;
  expected.track_colour = 4711;
  expected.reserved12 = 0;
  SettingTexts texts = ShowSettings(ConfigureFields(), config);
  ASSERT_FALSE(TakeConfigure(texts, config));
  EXPECT_EQ(EncodeRecord(config, kAppConfigFields), EncodeRecord(expected, kAppConfigFields));

  EXPECT_EQ(texts[RowOf("Txtvariation")], "4W");
  EXPECT_EQ(texts[RowOf("cmbThreshold")], "3.0");
  texts[RowOf("Txtvariation")] = " 0W ";
  texts[RowOf("txtSearchCircle")] = "0";
  texts[RowOf("cmbLineSize")] = "0";
  ASSERT_FALSE(TakeConfigure(texts, config));
  EXPECT_FALSE(std::signbit(config.variation)) << "no negative zero in the file";
  EXPECT_FLOAT_EQ(config.search_circle, 0.01F);
  EXPECT_FLOAT_EQ(config.line_width, 1.0F);
  const auto& thresholds = ConfigureFields()[RowOf("cmbThreshold")].choices;
  ASSERT_EQ(thresholds.size(), 19U);
  EXPECT_EQ(thresholds[10] + " " + thresholds[11] + " " + thresholds[18], "1.0 1.5 5.0");
}

TEST_F(ConfigureForm, CarriesTheSettingsIntoTheProgram) {
  LoadSample();
  program.passage.route_track.resize(2);
  const auto loaded = program.tides.loaded;
  AppConfig config = program.config;
  config.vessel_speed = 7.0F;
  config.use_leeway = 1;
  config.summer_time = kTrue;
  ASSERT_TRUE(CommitConfigure(program, config, messages).ok());
  EXPECT_FLOAT_EQ(program.route_speed, 7.0F);
  EXPECT_FLOAT_EQ(program.route.points.back().speed, 7.0F);
  EXPECT_TRUE(program.passage.route_track.empty());
  EXPECT_TRUE(program.use_leeway);
  EXPECT_NE(program.tides.loaded, loaded) << "the tides follow summer time";
  EXPECT_EQ(program.edits.history.UndoName(), "Vessel Speed");
  EXPECT_TRUE(RouteUnsaved(program));
}

}  // namespace
}  // namespace skerrow::testing
