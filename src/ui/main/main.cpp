#include <QApplication>
#include <clocale>
#include <cstdio>
#include <string_view>

#include "app/program.h"
#include "core/clock.h"
#include "core/version.h"
#include "platform/clipboard.h"
#include "platform/serial.h"
#include "platform/settings_store.h"
#include "platform/standard_folders.h"
#include "ui/dialogs/Frmdisclaimer.h"
#include "ui/icons/icons.h"
#include "ui/main/frmChart.h"
#include "ui/widgets/date_services.h"
#include "ui/widgets/desktop_messages.h"
#include "ui/widgets/theme.h"

namespace {

constexpr const char* kUsage =
    "Usage: skerrow [--device PATH]... [--replay LOG] [FILE]...\n"
    "Passage planning for small craft. A planning aid, not for navigation.\n\n"
    "  FILE           a route, waypoint file, chart, GPX document or log to open\n"
    "  --device PATH  a serial device that the system does not list\n"
    "  --replay LOG   play a log, by its path or its name\n"
    "  --help         tell this and end\n"
    "  --version      tell the version and end\n\n"
    "skerrow-cli has the whole engine without a window.\n";

// Answers --help and --version, which need no display. False when neither was asked.
bool Answered(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    if (word == "--help" || word == "-h") {
      std::fputs(kUsage, stdout);
      return true;
    }
    if (word == "--version") {
      std::printf("skerrow %.*s\n", static_cast<int>(skerrow::kVersion.size()),
                  skerrow::kVersion.data());
      return true;
    }
  }
  return false;
}

}  // namespace

// The desktop program: the start form, then the main window.
int main(int argc, char** argv) {
  using namespace skerrow;  // NOLINT: this file is the program
  if (Answered(argc, argv)) return 0;
  QApplication application(argc, argv);
  // The toolkit takes over the user's locale; the numbers of files keep their points in every
  // library.
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName("Skerrow Helm");
  QGuiApplication::setDesktopFileName("org.skerrow.Helm");  // by which a desktop finds the icon
  ApplyTheme(false);
  QApplication::setWindowIcon(ApplicationIcon());

  const auto folder = [](const char* variable, const std::string& otherwise) {
    const std::string value = qEnvironmentVariable(variable).toStdString();
    return value.empty() ? otherwise : value;
  };
  const SystemClock clock;
  Program program({folder("SKERROW_PROGRAM", FindProgramFolder(ProgramFile())),
                   folder("SKERROW_DOCUMENTS", DocumentsFolder()),
                   folder("SKERROW_SETTINGS", ConfigurationFolder())},
                  clock);
  DesktopMessages messages;
  if (!Frmdisclaimer::Prepare(program, LocaleDateServices(), messages)) return 1;
  if (Frmdisclaimer(program, messages).exec() != QDialog::Accepted) return 0;

  const std::unique_ptr<SettingsStore> settings =
      OpenSettingsStore(JoinPath(program.folders.SettingsData(), "skerrow.ini"));
  SystemClipboard clipboard;
  LoadProgram(program, messages);
  // "--device PATH" names a serial device that the system does not list.
  QStringList words = QApplication::arguments().mid(1);
  std::vector<std::string> devices;
  for (qsizetype at = words.indexOf("--device"); at >= 0; at = words.indexOf("--device")) {
    words.removeAt(at);
    if (at < words.size()) devices.push_back(words.takeAt(at).toStdString());
  }
  const std::unique_ptr<SerialPorts> ports =
      OpenSerialPorts(program.folders.SettingsData(), devices);
  frmChart window(program, messages, *settings, clipboard, *ports);
  messages.SetNoticeBoard([&window](std::string_view text) { window.Tell(text); });
  window.show();
  window.Start();
  for (qsizetype i = 0; i < words.size(); ++i) {
    if (words[i] != QLatin1String("--replay")) {
      window.OpenFile(words[i].toStdString());
    } else if (++i < words.size()) {
      window.ReplayFile(words[i].toStdString());
    } else {
      messages.Show("--replay wants the name of a log", MessageIcon::kWarning, kProgramTitle);
    }
  }
  return QApplication::exec();
}
