#include <QApplication>

#include "app/program.h"
#include "core/clock.h"
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

// The desktop program: the start form, then the main window.
int main(int argc, char** argv) {
  using namespace skerrow;  // NOLINT: this file is the program
  QApplication application(argc, argv);
  QApplication::setApplicationName("Skerrow Helm");
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
