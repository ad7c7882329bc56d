#include "ui/widgets/theme.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>
#include <QToolTip>
#include <QWidget>
#include <algorithm>
#include <array>

namespace skerrow {
namespace {

constexpr const char* kStyledProperty = "skerrowStyled";

constexpr std::array kColours = {
    &Theme::window,         &Theme::base,         &Theme::alternate,    &Theme::button,
    &Theme::text,           &Theme::dim_text,     &Theme::accent,       &Theme::accent_text,
    &Theme::border,         &Theme::warning,      &Theme::readout_text, &Theme::readout_back,
    &Theme::readout_border, &Theme::plot_back,    &Theme::bar,          &Theme::bar_marked,
    &Theme::bar_outline,    &Theme::longest_line, &Theme::shortest_line};
static_assert(sizeof(Theme) / sizeof(QColor) == kColours.size(), "a colour is not dimmed");

// The look of the application, which there is one of.
Theme& InForce() {
  static Theme theme = DayTheme();
  return theme;
}

QPalette PaletteOf(const Theme& theme) {
  QPalette palette;
  palette.setColor(QPalette::Window, theme.window);
  palette.setColor(QPalette::WindowText, theme.text);
  palette.setColor(QPalette::Base, theme.base);
  palette.setColor(QPalette::AlternateBase, theme.alternate);
  palette.setColor(QPalette::Text, theme.text);
  palette.setColor(QPalette::Button, theme.button);
  palette.setColor(QPalette::ButtonText, theme.text);
  palette.setColor(QPalette::BrightText, theme.warning);
  palette.setColor(QPalette::Highlight, theme.accent);
  palette.setColor(QPalette::HighlightedText, theme.accent_text);
  palette.setColor(QPalette::ToolTipBase, theme.button);
  palette.setColor(QPalette::ToolTipText, theme.text);
  palette.setColor(QPalette::PlaceholderText, theme.dim_text);
  palette.setColor(QPalette::Link, theme.night ? theme.text : theme.accent);
  palette.setColor(QPalette::LinkVisited, theme.night ? theme.text : theme.accent);
  if (theme.night) {
    // The bevels of the style are made from these; left alone they would shine.
    palette.setColor(QPalette::Light, theme.border);
    palette.setColor(QPalette::Midlight, theme.button.lighter(130));
    palette.setColor(QPalette::Mid, theme.border);
    palette.setColor(QPalette::Dark, theme.base);
    palette.setColor(QPalette::Shadow, QColor(0, 0, 0));
  }
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, theme.dim_text);
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, theme.window);
  palette.setColor(QPalette::Disabled, QPalette::Highlight, theme.border);
  palette.setColor(QPalette::Disabled, QPalette::HighlightedText, theme.dim_text);
  return palette;
}

QString SheetOf(const Theme& theme) {
  QString sheet = QStringLiteral(
      "QToolTip { color: @text; background: @button; border: 1px solid @border; padding: 3px; }"
      "QGroupBox { font-weight: 600; border: 1px solid @border; border-radius: 5px;"
      "  margin-top: 0.7em; padding-top: 0.5em; }"
      "QGroupBox::title { subcontrol-origin: margin; left: 9px; padding: 0 4px; color: @text; }"
      "QLabel[hint=\"true\"] { color: @dim; }"
      "QLabel[heading=\"true\"] { font-weight: 600; }"
      "QLabel[warning=\"true\"] { color: @warning; }"
      "QTabWidget::pane { border: 1px solid @border; border-radius: 4px; top: -1px; }");
  if (theme.night) {
    sheet += QStringLiteral(
        "QLineEdit, QAbstractItemView, QTextEdit { border: 1px solid @border; }"
        "QComboBox QLineEdit, QComboBox QAbstractItemView { border: none; }"
        "QLineEdit:focus { border: 1px solid @accent; }"
        "QScrollBar { background: @base; border: none; }"
        "QScrollBar:vertical { width: 14px; } QScrollBar:horizontal { height: 14px; }"
        "QScrollBar::handle { background: @border; border-radius: 4px; margin: 2px; }"
        "QScrollBar::handle:vertical { min-height: 28px; }"
        "QScrollBar::handle:horizontal { min-width: 28px; }"
        "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
        "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }"
        "QMenu { background: @base; color: @text; border: 1px solid @border; }"
        "QMenu::item:selected { background: @accent; color: @accenttext; }"
        "QMenu::item:disabled { color: @dim; }"
        "QHeaderView::section { background: @button; color: @text; border: 1px solid @border; }"
        "QTableCornerButton::section { background: @button; border: 1px solid @border; }"
        "QProgressBar { background: @base; color: @text; border: 1px solid @border;"
        "  border-radius: 3px; text-align: center; }"
        "QProgressBar::chunk { background: @accent; }");
  }
  const auto put = [&sheet](const char* place, const QColor& colour) {
    sheet.replace(QLatin1String(place), ColourName(colour));
  };
  put("@accenttext", theme.accent_text);
  put("@accent", theme.accent);
  put("@text", theme.text);
  put("@button", theme.button);
  put("@border", theme.border);
  put("@base", theme.base);
  put("@dim", theme.dim_text);
  put("@warning", theme.warning);
  return sheet;
}

// The style of both looks. At night it draws itself what the style beneath would draw in greys of
// its own or in black on black.
class HelmStyle final : public QProxyStyle {
 public:
  HelmStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    const bool mark = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton;
    if (!ThemeInForce().night || !mark) {
      QProxyStyle::drawPrimitive(element, option, painter, widget);
      return;
    }
    DrawMark(element == PE_IndicatorRadioButton, *option, *painter);
  }

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    const bool grip = element == CE_SizeGrip || element == CE_Splitter;
    if (ThemeInForce().night && grip) return;
    if (const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
        button != nullptr && element == CE_ToolButtonLabel) {
      // Icons are lit up for the row of a menu that is chosen, not for a button under the mouse.
      QStyleOptionToolButton plain(*button);
      plain.state &= ~State_MouseOver;
      QProxyStyle::drawControl(element, &plain, painter, widget);
      return;
    }
    if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        button != nullptr && (button->state & State_On) != 0 &&
        (element == CE_PushButtonBevel || element == CE_PushButtonLabel)) {
      // A button that is down shows as a selected row does; a shade of grey is lost at night.
      QStyleOptionButton down(*button);
      down.state &= ~State_On;
      down.palette.setColor(QPalette::Button, ThemeInForce().accent);
      down.palette.setColor(QPalette::ButtonText, ThemeInForce().accent_text);
      QProxyStyle::drawControl(element, &down, painter, widget);
      return;
    }
    const bool bar = element == CE_MenuBarEmptyArea || element == CE_MenuBarItem;
    if (ThemeInForce().night && element == CE_ToolBar) {
      painter->fillRect(option->rect, ThemeInForce().window);
    } else {
      QProxyStyle::drawControl(element, option, painter, widget);
    }
    // The line below bars, which the style beneath makes nearly white on a dark ground.
    if (ThemeInForce().night && (bar || element == CE_ToolBar)) {
      painter->setPen(ThemeInForce().border);
      painter->drawLine(option->rect.bottomLeft(), option->rect.bottomRight());
    }
  }

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* answer) const override {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, answer);
  }

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override {
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    // Some air on both sides of a button's words.
    return type == CT_PushButton ? size + QSize(14, 2) : size;
  }

 private:
  static void DrawMark(bool round, const QStyleOption& option, QPainter& painter) {
    const Theme& theme = ThemeInForce();
    const bool enabled = option.state & State_Enabled;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5);
    painter.setBrush(theme.base);
    const bool focus = option.state & State_HasFocus;
    painter.setPen(QPen(focus || !enabled ? theme.dim_text : theme.border, 1));
    round ? painter.drawEllipse(box) : painter.drawRoundedRect(box, 2, 2);
    const QColor ink = enabled ? theme.text : theme.dim_text;
    if (option.state & State_On) {
      if (round) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ink);
        painter.drawEllipse(box.adjusted(3, 3, -3, -3));
      } else {
        painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF tick[] = {{box.left() + 2.5, box.center().y()},
                                {box.center().x() - 0.5, box.bottom() - 2.5},
                                {box.right() - 2, box.top() + 2.5}};
        painter.drawPolyline(tick, 3);
      }
    }
    painter.restore();
  }
};

}  // namespace

const Theme& DayTheme() {
  static const Theme theme = {.night = false,
                              .window = QColor(0xf3, 0xf5, 0xf7),
                              .base = QColor(0xff, 0xff, 0xff),
                              .alternate = QColor(0xf1, 0xf5, 0xf9),
                              .button = QColor(0xe9, 0xed, 0xf1),
                              .text = QColor(0x1c, 0x27, 0x33),
                              .dim_text = QColor(0x6b, 0x78, 0x85),
                              .accent = QColor(0x1a, 0x5f, 0xa8),
                              .accent_text = QColor(0xff, 0xff, 0xff),
                              .border = QColor(0xc3, 0xcc, 0xd5),
                              .warning = QColor(0xb4, 0x2d, 0x12),
                              .readout_text = QColor(0, 0, 0),
                              .readout_back = QColor(223, 234, 255),
                              .readout_border = QColor(0x9d, 0xb2, 0xcc),
                              .plot_back = QColor(0xff, 0xff, 0xff),
                              .bar = QColor(0, 51, 153),
                              .bar_marked = QColor(0x4d, 0x8f, 0xe0),
                              .bar_outline = QColor(0xff, 0xff, 0xff),
                              .longest_line = QColor(0xb4, 0x2d, 0x12),
                              .shortest_line = QColor(0x0b, 0x7a, 0x3b)};
  return theme;
}

Theme NightTheme(int brightness) {
  Theme theme = {.night = true,
                 .window = QColor(0x14, 0x08, 0x06),
                 .base = QColor(0x0b, 0x04, 0x03),
                 .alternate = QColor(0x14, 0x08, 0x05),
                 .button = QColor(0x22, 0x0e, 0x0a),
                 .text = QColor(0xd0, 0x64, 0x3c),
                 .dim_text = QColor(0x9c, 0x52, 0x3a),
                 .accent = QColor(0x5c, 0x1d, 0x10),
                 .accent_text = QColor(0xf0, 0x95, 0x58),
                 .border = QColor(0x4d, 0x20, 0x16),
                 .warning = QColor(0xe8, 0x8a, 0x2e),
                 .readout_text = QColor(0, 255, 0),
                 .readout_back = QColor(0, 0, 0),
                 .readout_border = QColor(0x14, 0x30, 0x14),
                 .plot_back = QColor(0x0b, 0x04, 0x03),
                 .bar = QColor(0x6e, 0x22, 0x14),
                 .bar_marked = QColor(0xb8, 0x52, 0x22),
                 .bar_outline = QColor(0x2a, 0x10, 0x0a),
                 .longest_line = QColor(0xe0, 0x52, 0x30),
                 .shortest_line = QColor(0xd8, 0x92, 0x30)};
  const int share = std::clamp(brightness, 10, 100);
  for (QColor Theme::*colour : kColours) {
    QColor& shown = theme.*colour;
    shown =
        QColor(shown.red() * share / 100, shown.green() * share / 100, shown.blue() * share / 100);
  }
  return theme;
}

void ApplyTheme(bool night, int brightness) {
  Theme& theme = InForce();
  theme = night ? NightTheme(brightness) : DayTheme();
  if (!qApp->property(kStyledProperty).toBool()) {
    qApp->setProperty(kStyledProperty, true);
    QApplication::setStyle(new HelmStyle);
  }
  QFont font = QApplication::font();
  if (font.pointSizeF() > 0 && font.pointSizeF() < 10.0) {
    font.setPointSizeF(10.0);
    QApplication::setFont(font);
  }
  const QPalette palette = PaletteOf(theme);
  QApplication::setPalette(palette);
  QToolTip::setPalette(palette);
  qApp->setStyleSheet(SheetOf(theme));
  for (QWidget* widget : QApplication::allWidgets()) widget->update();
}

const Theme& ThemeInForce() { return InForce(); }

QPixmap Dimmed(const QPixmap& pixmap) {
  const Theme& theme = ThemeInForce();
  if (!theme.night || pixmap.isNull()) return pixmap;
  QPixmap dimmed = pixmap;
  QPainter painter(&dimmed);
  painter.setCompositionMode(QPainter::CompositionMode_Multiply);
  painter.fillRect(dimmed.rect(), theme.text.darker(175));
  return dimmed;
}

QString ColourName(const QColor& colour) { return colour.name(QColor::HexRgb); }

}  // namespace skerrow
