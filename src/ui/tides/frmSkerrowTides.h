#pragma once

#include <QProgressBar>
#include <QStackedWidget>
#include <QTimer>
#include <functional>
#include <optional>

#include "ui/forms/sun_form.h"
#include "ui/forms/tide_forms.h"
#include "ui/plot/plot_widget.h"
#include "ui/tides/terms_panel.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

class QAction;
class QMenuBar;

namespace skerrow {

// The tide screen: a port's curve of a day, its constituents, and the table of its month.
class frmSkerrowTides : public Dialog {
  Q_OBJECT

 public:
  // `form` has a port open.
  frmSkerrowTides(Desktop& desktop, TideForm form, QWidget* parent);

  const TideForm& form() const { return form_; }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  enum class View { kDay, kTerms, kMonth };

  void MakeMenus();
  QWidget* MakeHead();
  QWidget* MakeSide();
  QWidget* MakeDayPage();
  QWidget* MakeMonthPage();
  // An entry of a menu; without a slot it stands disabled.
  QAction* AddEntry(QWidget* menu, const char* name, const QString& text,
                    std::function<void()> slot, const QKeySequence& key = {});

  // Everything the screen shows of its day, in the view that is on.
  void ShowAll();
  void ShowView(View view);
  void ShowPlot();
  void ShowCursors();
  void ShowSpringNeap();
  void FollowLook();
  void Tick();

  void PointAt(double hours);
  void Freeze();
  void LeaveCurve();

  void StepTo(std::function<void()> step);
  void ChooseDate();
  void ChoosePort();
  void ChooseArea();
  void EnterDepth();
  void ChooseOptions();
  void CalculateMonth();
  void OpenMonthRow();
  void CalculateSun();
  // Whether the month's, or the sun's, table is there; says so where it is not.
  bool MonthThere();
  bool SunThere();
  // Whether something has been done; says what stood in its way.
  bool Succeeded(const Status& status);
  // The ports of the area; says what stands in the way.
  std::optional<PortList> Ports();

  TideForm form_;
  std::optional<SunResults> sun_;
  View view_ = View::kDay;
  int mouse_frozen_ = 0;               // MouseFrozen
  std::optional<double> mouse_hours_;  // where the mouse or the keys stand on the curve
  std::string date_order_;
  QTimer* timer2_;

  QMenuBar* menus_ = nullptr;
  QAction* layers_shown_ = nullptr;
  QLabel* port_ = nullptr;
  QLabel* date_ = nullptr;
  TextList* lines_ = nullptr;
  QLabel* sun_times_ = nullptr;
  QProgressBar* spring_neap_ = nullptr;
  QLabel* springs_ = nullptr;
  QLabel* neap_ = nullptr;
  QLabel* spring_neap_label_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  PlotWidget* plot_ = nullptr;
  TermsPanel* terms_ = nullptr;
  QLabel* time_ = nullptr;
  QLabel* height_ = nullptr;
  QLabel* rate_ = nullptr;
  QLabel* depth_ = nullptr;
  QLabel* mouse_status_ = nullptr;
  TextList* month_ = nullptr;
  QLabel* notice_ = nullptr;
};

// Opens the tide screen on the port at `position` of the area's file, which becomes that of the
// settings; 0: on that of the settings.
// Says what stands in the way.
void OpenTideScreen(Desktop& desktop, int position, QWidget* parent);

}  // namespace skerrow
