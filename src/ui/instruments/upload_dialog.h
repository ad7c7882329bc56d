#pragma once

#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QTimer>
#include <optional>

#include "ui/forms/upload_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// The GPS that uploads go to, as it is connected and set.
int UploadPort(const Program& program);
UploadOptions UploadOptionsOf(const AppConfig& config);

// What the uploads of waypoint files and of routes have in common. The texts go out from a timer,
// so that the reception goes on between them; Stop ends an upload.
class UploadDialog : public Dialog {
  Q_OBJECT

 public:
  void reject() override;

 signals:
  // An upload begins or ends.
  void Sending(bool on);

 protected:
  struct Words {
    const char* name;  // of the form
    const char* title;
    const char* files;       // name of the list of files
    const char* files_text;  // and its title
    FileKind kind;
    std::string_view done;
  };
  UploadDialog(Desktop& desktop, const Words& words, QWidget* parent);

  const UploadOptions& options() const { return options_; }
  const std::vector<UploadPoint>& points() const { return points_; }
  std::optional<UploadPoint> SelectedPoint() const;
  // Where a dialog puts what it has of its own.
  QVBoxLayout* side() const { return side_; }

  // A file has been chosen.
  virtual void FileChosen(const std::string&) {}
  // All that is to be sent for the points of the file.
  virtual std::vector<UploadStep> Steps() const = 0;

 private:
  void ShowFile();
  void ShowPoints();
  void Start();
  void Tick();
  void Stopped(const QString& why);
  void SetSending(bool sending);

  Words words_;
  UploadOptions options_;
  int port_;
  std::vector<UploadPoint> points_;
  UploadRun run_;
  QTimer timer_;  // the pause after a text

  QVBoxLayout* side_ = nullptr;
  TextList* files_;
  TextList* records_;
  QRadioButton* names_;
  QRadioButton* numbers_;
  QLabel* state_;
  QProgressBar* bar_;
  QPushButton* upload_;
  QPushButton* cancel_;
};

}  // namespace skerrow
