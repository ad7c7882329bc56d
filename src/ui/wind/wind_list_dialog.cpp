#include "ui/wind/wind_list_dialog.h"

#include "ui/widgets/qt_text.h"

namespace skerrow {

WindListDialog::WindListDialog(Desktop& desktop, const char* name, const QString& title,
                               QWidget* parent)
    : Dialog(desktop, name, title, parent),
      times_(Named<QComboBox>("cmbTime")),
      earlier_(Named<QPushButton>("cmdEarlier", "&Earlier")),
      later_(Named<QPushButton>("cmdLater", "&Later")),
      list_(new TextList(desktop.clipboard, "List1")),
      count_(MakeHint("")) {
  times_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  body()->addLayout(MakeRow({MakeLabel("Forecast &time:", times_), times_, earlier_, later_}));
  body()->addWidget(list_, 1);
  count_->setObjectName("lblRecCount");
  body()->addWidget(count_);
  for (QPushButton* button : {earlier_, later_}) button->setAutoDefault(false);
  connect(times_, &QComboBox::currentIndexChanged, this, [this](int index) { ShowTime(index); });
  connect(earlier_, &QPushButton::clicked, this,
          [this] { times_->setCurrentIndex(times_->currentIndex() - 1); });
  connect(later_, &QPushButton::clicked, this,
          [this] { times_->setCurrentIndex(times_->currentIndex() + 1); });
  resize(560, 460);
}

void WindListDialog::Offer(std::vector<WindTime> times, const std::string& trouble) {
  times_list_ = std::move(times);
  const SelectedTime& selected = desktop().program.selected_time;
  const QSignalBlocker quiet(times_);
  for (const WindTime& time : times_list_) times_->addItem(ToQt(DaysText(time.time)));
  const int first = static_cast<int>(TimeFor(times_list_, selected.Day(), selected.hours));
  times_->setCurrentIndex(times_list_.empty() ? -1 : first);
  times_->setEnabled(!times_list_.empty());
  ShowTime(times_->currentIndex());
  if (times_list_.empty()) count_->setText(ToQt(trouble));
  list_->setFocus();
}

void WindListDialog::ShowTime(int index) {
  const int count = static_cast<int>(times_list_.size());
  earlier_->setEnabled(index > 0);
  later_->setEnabled(index >= 0 && index + 1 < count);
  if (index < 0 || index >= count) return list_->SetLines({});
  const WindTime& time = times_list_[static_cast<std::size_t>(index)];
  const std::vector<std::string> rows = Rows(time);
  std::vector<RowLook> looks(rows.size());
  looks.front().bold = true;
  list_->SetLines(rows, looks);
  count_->setText(ToQt(WindCountText(time)));
}

}  // namespace skerrow
