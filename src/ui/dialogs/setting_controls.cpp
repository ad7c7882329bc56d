#include "ui/dialogs/setting_controls.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QRadioButton>
#include <cstring>

#include "ui/widgets/colour_button.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kDigits = 6;

QComboBox* MakeList(const SettingField& field, Messages& beeper) {
  auto* list = Named<QComboBox>(field.control);
  for (const std::string& choice : field.choices) list->addItem(ToQt(choice));
  if (field.typed) {
    list->setEditable(true);
    list->setLineEdit(new FilteredEdit(field.filter, beeper, "", list));
    list->setInsertPolicy(QComboBox::NoInsert);
    list->setCompleter(nullptr);
  }
  list->setMinimumContentsLength(kDigits - 1);
  return list;
}

QWidget* MakeControl(const SettingField& field, Messages& beeper) {
  switch (field.kind) {
    case SettingKind::kMark:
    case SettingKind::kMarkOne:
    case SettingKind::kMarkClear:
      return Named<QCheckBox>(field.control, field.label);
    case SettingKind::kOption:
      return Named<QRadioButton>(field.control, field.label);
    case SettingKind::kColour:
      return new ColourButton(field.control, field.tip);
    case SettingKind::kNumber:
    case SettingKind::kTenths:
    case SettingKind::kVariation:
      break;
  }
  if (!field.choices.empty()) return MakeList(field, beeper);
  auto* edit = new FilteredEdit(field.filter, beeper, field.control);
  edit->SetColumns(kDigits);
  return edit;
}

}  // namespace

SettingControls::SettingControls(std::span<const SettingField> fields, Messages& beeper)
    : fields_(fields) {
  for (const SettingField& field : fields_) {
    QWidget* control = MakeControl(field, beeper);
    if (field.kind != SettingKind::kColour) control->setToolTip(field.tip);
    controls_.push_back(control);
    others_.push_back(field.kind == SettingKind::kOption
                          ? Named<QRadioButton>(field.other_control, field.other_label)
                          : nullptr);
  }
}

QGroupBox* SettingControls::MakeBox(const char* title,
                                    std::initializer_list<const char*> controls) const {
  auto* box = new QGroupBox(title);
  auto* form = new QFormLayout(box);
  form->setHorizontalSpacing(12);
  form->setVerticalSpacing(7);
  form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  for (const char* name : controls) {
    std::size_t row = 0;
    while (std::strcmp(fields_[row].control, name) != 0) ++row;
    QWidget* control = controls_[row];
    if (qobject_cast<QCheckBox*>(control) != nullptr) {
      form->addRow(control);
    } else if (others_[row] != nullptr) {
      auto* group = new QButtonGroup(box);
      for (QWidget* option : {control, others_[row]}) {
        group->addButton(qobject_cast<QRadioButton*>(option));
        form->addRow(option);
      }
    } else {
      form->addRow(MakeLabel(fields_[row].label, control),
                   MakeRow({control, new QLabel(fields_[row].unit)}));
    }
  }
  return box;
}

void SettingControls::Show(const SettingTexts& texts) {
  for (std::size_t row = 0; row < fields_.size(); ++row) {
    const QString text = ToQt(texts[row]);
    if (auto* list = qobject_cast<QComboBox*>(controls_[row])) {
      if (!list->isEditable() && list->findText(text) < 0) list->insertItem(0, text);
      list->setCurrentText(text);
    } else if (auto* edit = qobject_cast<FilteredEdit*>(controls_[row])) {
      edit->SetText(texts[row]);
    } else if (auto* colour = qobject_cast<ColourButton*>(controls_[row])) {
      colour->SetColour(text.toInt());
    } else if (auto* mark = qobject_cast<QAbstractButton*>(controls_[row])) {
      mark->setChecked(!text.isEmpty());
      if (auto* other = qobject_cast<QAbstractButton*>(others_[row])) {
        other->setChecked(text.isEmpty());
      }
    }
  }
}

SettingTexts SettingControls::Texts() const {
  SettingTexts texts;
  for (QWidget* control : controls_) {
    if (const auto* list = qobject_cast<QComboBox*>(control)) {
      texts.push_back(FromQt(list->currentText()));
    } else if (const auto* edit = qobject_cast<FilteredEdit*>(control)) {
      texts.push_back(edit->Text());
    } else if (const auto* colour = qobject_cast<ColourButton*>(control)) {
      texts.push_back(std::to_string(colour->colour()));
    } else {
      texts.push_back(qobject_cast<QAbstractButton*>(control)->isChecked() ? "1" : "");
    }
  }
  return texts;
}

}  // namespace skerrow
